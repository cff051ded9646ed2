#pragma once

#include <limits>

#include "ephemeris/term_tracks.h"
#include "time/transforms.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// The latest places of each body, so that one who asks for its fields one after another pays for
// one evaluation, and an array for four moments at once. Keyed by the moment: a moment that is not
// a number is never kept. Serves one store.

struct KeptPlace {
  static constexpr double kNever = std::numeric_limits<double>::quiet_NaN();

  double julian_day = kNever;       // of all that follows
  bool has_place = false;           // the two below
  bool has_ecliptic = false;        // the two after them
  bool has_motion = false;          // the two last
  BodyPositionRecord record{};      // NaN where the body has no field
  Equatorial apparent{0.0, 0.0};    // [rad] unreduced
  double apparent_longitude = 0.0;  // [deg]
  double apparent_latitude = 0.0;   // [deg]
  double longitude_motion = 0.0;    // [deg/day]
  double declination_motion = 0.0;  // [deg/day]
};

struct KeptPlaces {
  KeptPlace places[kMomentsAtOnce] = {};
  unsigned oldest = 0;  // index of the one to be replaced next
};

struct PlaceMemory {
  KeptPlaces bodies[ZENITHOR_MOON + 1] = {};
};

}  // namespace zenithor
