#pragma once

#include <array>

#include "rising/rise_set_solver.h"
#include "time/transforms.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// What a host asks, and what both drivers make of it before they look at a body.

struct RisingRequest {
  double day_number;  // Julian day less 2437299.5
  double minutes;     // added to the instant
  double zone_hours;  // positive west of Greenwich
  double longitude;   // [deg] positive west
  double latitude;    // [deg] positive north
  BodyCode code;
};

struct RisingDay {
  double julian_day;       // of the given instant, universal time
  double centuries;        // T of the given instant, universal time
  double delta_t;          // [s] at the given instant
  double start_days;       // [day from J2000.0] T0, the start of the day
  double start_centuries;  // T0 in Julian centuries
  double longitude;        // [rad] positive west
  double latitude;         // [rad]
};

constexpr double kHorizonRefraction = 0.009890780871051864;  // [rad] 0.5667 degree
constexpr double kCenturiesPerSecond = 3.168808781402895e-10;
constexpr double kOneDayInCenturies = 0.000027378507871321012;  // [Julian centuries]

// A body the day before, at the day's start, and the day after.
using ThreePlaces = std::array<Equatorial, 3>;

RisingDay FindRisingDay(const RisingRequest& request);

// T of the three places that the event solver interpolates: the day's start in dynamical time less
// one day (0), itself (1) and plus one day (2).
double PlaceCenturies(const RisingDay& day, std::size_t place);

// The event solver's input from the day, the three places and the standard altitude.
RiseSetProblem PoseRiseSet(const RisingDay& day, const ThreePlaces& places, double h0);

// The drivers' answer. Minutes after the day's start; ZENITHOR_ALWAYS_UP or ZENITHOR_NEVER_UP in
// all four fields when the body does not cross the horizon; NaN for a time that does not settle.
struct RiseSetResult {
  double Status;  // 0 when rising and setting exist
  double Rise;
  double Transit;
  double Set;
};

RiseSetResult RiseSetMinutes(const RiseSetProblem& problem);

}  // namespace zenithor
