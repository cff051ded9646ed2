#include "time/aberration.h"

#include "numerics/constants.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

constexpr double kAberrationConstant = 9.936508497454117e-5;  // 20.49552" [rad]

}  // namespace

SunLongitude SunTrueLongitude(double centuries) {
  const double t = centuries;
  const double m = (357.5291 + 35999.05028 * t - 0.0001561 * t * t) * kRadiansPerDegree;
  const double e = 0.016708617 - 4.204e-5 * t - 1.236e-7 * t * t;
  // Equation of the centre by its series in the eccentricity.
  const double centre = (2.0 * e - 0.25 * e * e * e) * Sine(m) + 1.25 * e * e * Sine(2.0 * m) +
                        1.0833333333 * e * e * e * Sine(3.0 * m);
  const double mean = (280.46646 + 36000.76983 * t + 0.0003032 * t * t) * kRadiansPerDegree;
  return {mean + centre, e};
}

void AnnualAberration(double centuries, double epsilon, AberrationTerms terms, Equatorial& place) {
  const SunLongitude sun = SunTrueLongitude(centuries);
  auto [cs, sn] = CosineAndSine(sun.longitude);
  if (terms == AberrationTerms::kWithEccentricity) {
    const double perihelion =
        (102.93735 + 1.71954 * centuries + 0.00046 * centuries * centuries) * kRadiansPerDegree;
    const CosineSine of_perihelion = CosineAndSine(perihelion);
    cs -= sun.eccentricity * of_perihelion.cosine;
    sn -= sun.eccentricity * of_perihelion.sine;
  }
  const auto [cos_alpha, sin_alpha] = CosineAndSine(place.alpha);
  const auto [cos_delta, sin_delta] = CosineAndSine(place.delta);
  const auto [cos_epsilon, sin_epsilon] = CosineAndSine(epsilon);
  place.alpha -= kAberrationConstant * (cos_alpha * cs * cos_epsilon + sin_alpha * sn) / cos_delta;
  place.delta -=
      kAberrationConstant * ((sin_epsilon * cos_delta - sin_alpha * sin_delta * cos_epsilon) * cs +
                             cos_alpha * sin_delta * sn);
}

}  // namespace zenithor
