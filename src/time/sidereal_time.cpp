#include "time/sidereal_time.h"

#include "time/constants.h"

namespace zenithor {

double GreenwichMeanSiderealTime(double julian_day, double centuries) {
  const double t = centuries;
  const double degrees = 280.46061837 + 360.98564736629 * (julian_day - kJ2000) +
                         0.000387933 * t * t - t * t * t / 38710000.0;
  return degrees * kRadiansPerDegree;
}

}  // namespace zenithor
