#include "time/sidereal_time.h"

#include "numerics/constants.h"
#include "time/constants.h"

namespace zenithor {

double SiderealTimeFromDays(double days, double centuries) {
  const double t = centuries;
  const double degrees =
      280.46061837 + 360.98564736629 * days + 0.000387933 * t * t - t * t * t / 38710000.0;
  return degrees * kRadiansPerDegree;
}

double GreenwichMeanSiderealTime(double julian_day, double centuries) {
  return SiderealTimeFromDays(julian_day - kJ2000, centuries);
}

}  // namespace zenithor
