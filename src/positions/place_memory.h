#pragma once

#include <limits>

#include "ephemeris/term_tracks.h"
#include "time/transforms.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// The latest places of each body, so that one who asks for its fields one after another pays for
// one evaluation, and an array for four moments at once. Keyed by the moment: a moment that is not
// a number is never kept. Serves one store.

// Nothing of it is set before it is there: setting a whole record would be a good part of the cost
// of a further field.
struct KeptPlace {
  static constexpr double kNever = std::numeric_limits<double>::quiet_NaN();

  double julian_day = kNever;  // of all that follows
  bool has_place = false;      // the two below
  bool has_ecliptic = false;   // the two after them
  bool has_motion = false;     // the two last
  BodyPositionRecord record;   // NaN where the body has no field
  Equatorial apparent;         // [rad] unreduced
  double apparent_longitude;   // [deg]
  double apparent_latitude;    // [deg]
  double longitude_motion;     // [deg/day]
  double declination_motion;   // [deg/day]
};

struct KeptPlaces {
  KeptPlace places[kMomentsAtOnce];
  unsigned oldest = 0;  // index of the one to be replaced next
};

struct PlaceMemory {
  KeptPlaces bodies[ZENITHOR_MOON + 1];
};

}  // namespace zenithor
