#pragma once

#include <limits>

#include "time/transforms.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// The latest place of each body, so that one who asks for its fields one after another pays for one
// evaluation. Keyed by the moment: a moment that is not a number is never kept. Serves one store.

struct KeptPlace {
  static constexpr double kNever = std::numeric_limits<double>::quiet_NaN();

  double julian_day = kNever;
  BodyPositionRecord record{};      // NaN where the body has no field
  Equatorial apparent{0.0, 0.0};    // [rad] unreduced
  double ecliptic_day = kNever;     // of the two below
  double apparent_longitude = 0.0;  // [deg]
  double apparent_latitude = 0.0;   // [deg]
  double motion_day = kNever;       // of the two below
  double longitude_motion = 0.0;    // [deg/day]
  double declination_motion = 0.0;  // [deg/day]
};

struct PlaceMemory {
  KeptPlace bodies[ZENITHOR_MOON + 1] = {};
};

}  // namespace zenithor
