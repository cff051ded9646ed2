#pragma once

#include "rising/interpolation.h"

namespace zenithor {

// A body, an observer and a day.
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

}  // namespace zenithor
