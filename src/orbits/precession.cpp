#include "orbits/precession.h"

#include "numerics/constants.h"
#include "numerics/polynomials.h"
#include "numerics/sine_cosine.h"
#include "time/constants.h"

namespace zenithor {

namespace {

// Polynomials in thousands of years T, rising powers.

// General precession [arcsec]; the result multiplies T.
constexpr double kGeneralPrecession[] = {50287.91959, 110.5414,   0.076,      -0.235316,
                                         -1.8055e-03, 1.7451e-04, 1.3095e-05, 2.424e-07,
                                         -4.759e-08,  -8.66e-10};

// Longitude of the node of the moving ecliptic on that of J2000.0 [rad].
constexpr double kNode[] = {3.052115282424, -0.04207794833, 7.436169e-05, 1.26e-07,
                            -1.8103e-07,    -3.54e-09,      1.9e-10,      7.521313e-12,
                            -1.547021e-12,  -2.69151e-15,   6.6402e-16};

// Inclination of the moving ecliptic [rad].
constexpr double kInclination[] = {
    0.0,           0.00227850649, -1.62442e-05, -6.012e-07, 1.32115526e-09, -5.4000441e-11,
    2.4650839e-11, 2.50341e-13,   -8.26287e-14, 7.3759e-17, 1.2147e-16};

void TurnAboutThirdAxis(double angle, Rectangular& v) {
  const auto [c, s] = CosineAndSine(angle);
  v = {c * v.x + s * v.y, -s * v.x + c * v.y, v.z};
}

}  // namespace

Rectangular EquatorToEcliptic(const Rectangular& v, const ObliquityCache& obliquity) {
  return TurnAboutFirstAxis(v, obliquity.cos_epsilon, obliquity.sin_epsilon);
}

Rectangular EclipticToEquator(const Rectangular& v, const ObliquityCache& obliquity) {
  return TurnBackAboutFirstAxis(v, obliquity.cos_epsilon, obliquity.sin_epsilon);
}

void PrecessVector(double julian_day, PrecessionDirection direction, ObliquityCache& obliquity,
                   Rectangular& vector) {
  if (julian_day == kJ2000) {
    return;
  }
  const bool to_j2000 = direction == PrecessionDirection::kToJ2000;
  const double t = 0.1 * ((julian_day - kJ2000) / kDaysPerCentury);

  CachedObliquity(to_j2000 ? julian_day : kJ2000, obliquity);
  vector = EquatorToEcliptic(vector, obliquity);

  const double general = kRadiansPerArcsecond * t * EvaluatePolynomial(kGeneralPrecession, t);
  const double node = EvaluatePolynomial(kNode, t);
  const double inclination = EvaluatePolynomial(kInclination, t);
  TurnAboutThirdAxis(to_j2000 ? node + general : node, vector);
  const CosineSine tilt = CosineAndSine(to_j2000 ? -inclination : inclination);
  vector = TurnAboutFirstAxis(vector, tilt.cosine, tilt.sine);
  TurnAboutThirdAxis(to_j2000 ? -node : -node - general, vector);

  CachedObliquity(to_j2000 ? kJ2000 : julian_day, obliquity);
  vector = EclipticToEquator(vector, obliquity);
}

}  // namespace zenithor
