#include "time/aberration.h"

#include <cmath>

#include "numerics/constants.h"

namespace zenithor {

namespace {

constexpr double kAberrationConstant = 9.936508497454117e-5;  // 20.49552" [rad]

}  // namespace

SunLongitude SunTrueLongitude(double centuries) {
  const double t = centuries;
  const double m = (357.5291 + 35999.05028 * t - 0.0001561 * t * t) * kRadiansPerDegree;
  const double e = 0.016708617 - 4.204e-5 * t - 1.236e-7 * t * t;
  // Equation of the centre by its series in the eccentricity.
  const double centre = (2.0 * e - 0.25 * e * e * e) * std::sin(m) +
                        1.25 * e * e * std::sin(2.0 * m) +
                        1.0833333333 * e * e * e * std::sin(3.0 * m);
  const double mean = (280.46646 + 36000.76983 * t + 0.0003032 * t * t) * kRadiansPerDegree;
  return {mean + centre, e};
}

void AnnualAberration(double centuries, double epsilon, AberrationTerms terms, Equatorial& place) {
  const SunLongitude sun = SunTrueLongitude(centuries);
  double cs = std::cos(sun.longitude);
  double sn = std::sin(sun.longitude);
  if (terms == AberrationTerms::kWithEccentricity) {
    const double perihelion =
        (102.93735 + 1.71954 * centuries + 0.00046 * centuries * centuries) * kRadiansPerDegree;
    cs -= sun.eccentricity * std::cos(perihelion);
    sn -= sun.eccentricity * std::sin(perihelion);
  }
  const double cos_alpha = std::cos(place.alpha);
  const double sin_alpha = std::sin(place.alpha);
  const double cos_delta = std::cos(place.delta);
  const double sin_delta = std::sin(place.delta);
  const double cos_epsilon = std::cos(epsilon);
  const double sin_epsilon = std::sin(epsilon);
  place.alpha -= kAberrationConstant * (cos_alpha * cs * cos_epsilon + sin_alpha * sn) / cos_delta;
  place.delta -=
      kAberrationConstant * ((sin_epsilon * cos_delta - sin_alpha * sin_delta * cos_epsilon) * cs +
                             cos_alpha * sin_delta * sn);
}

}  // namespace zenithor
