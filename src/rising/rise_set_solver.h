#pragma once

#include "rising/interpolation.h"
#include "rising/settle.h"

namespace zenithor {

// Rising, transit and setting from three places of a body.
// Source: Meeus, Astronomical Algorithms, chapter 15.

enum class Horizon { kRisesAndSets, kAlwaysAbove, kAlwaysBelow };

struct RiseSetProblem {
  double day_start_days;       // [day from J2000.0] T0, the start of the day, universal time
  double day_start_centuries;  // the same in Julian centuries
  double delta_t;              // [s]
  ThreeValues alpha;           // [rad] right ascension at T0 less a day, T0, T0 plus a day
  ThreeValues delta;           // [rad] declination
  double h0;                   // [rad] standard altitude
  double longitude;            // [rad] of the observer, positive west
  double latitude;             // [rad]
};

struct RiseSetTimes {
  Horizon horizon;
  double rise;     // fractions of a day after T0, times 2 pi [rad]; NaN where the
  double transit;  // iteration does not settle; rise and set are first estimates only when the body
  double set;      // does not cross the horizon
  Refinement rise_run;
  Refinement transit_run;
  Refinement set_run;
};

// Rise and set are brought into the day by at most one day before and one after the iteration; the
// transit is not, and may come out below 0 or above 2 pi. Always returns (rising/settle.h).
RiseSetTimes SolveRiseSet(const RiseSetProblem& problem);

}  // namespace zenithor
