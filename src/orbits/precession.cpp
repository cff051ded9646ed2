#include "orbits/precession.h"

#include <cmath>

#include "numerics/constants.h"
#include "orbits/horner.h"
#include "time/constants.h"

namespace zenithor {

namespace {

// General precession [arcsec], per falling power of thousands of years; the result multiplies T.
constexpr double kGeneralPrecession[] = {-8.66e-10,  -4.759e-08,  2.424e-07, 1.3095e-05,
                                         1.7451e-04, -1.8055e-03, -0.235316, 0.076,
                                         110.5414,   50287.91959};

// Longitude of the node of the moving ecliptic on that of J2000.0 [rad].
constexpr double kNode[] = {6.6402e-16,   -2.69151e-15,   -1.547021e-12, 7.521313e-12,
                            1.9e-10,      -3.54e-09,      -1.8103e-07,   1.26e-07,
                            7.436169e-05, -0.04207794833, 3.052115282424};

// Inclination of the moving ecliptic [rad].
constexpr double kInclination[] = {1.2147e-16,
                                   7.3759e-17,
                                   -8.26287e-14,
                                   2.50341e-13,
                                   2.4650839e-11,
                                   -5.4000441e-11,
                                   1.32115526e-09,
                                   -6.012e-07,
                                   -1.62442e-05,
                                   0.00227850649,
                                   0.0};

void RotateAboutThirdAxis(double angle, Rectangular& v) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  v = {c * v.x + s * v.y, -s * v.x + c * v.y, v.z};
}

void RotateAboutFirstAxis(double angle, Rectangular& v) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  v = {v.x, c * v.y + s * v.z, -s * v.y + c * v.z};
}

}  // namespace

Rectangular EquatorToEcliptic(const Rectangular& v, const ObliquityCache& obliquity) {
  const double c = obliquity.cos_epsilon;
  const double s = obliquity.sin_epsilon;
  return {v.x, c * v.y + s * v.z, -s * v.y + c * v.z};
}

Rectangular EclipticToEquator(const Rectangular& v, const ObliquityCache& obliquity) {
  const double c = obliquity.cos_epsilon;
  const double s = obliquity.sin_epsilon;
  return {v.x, c * v.y - s * v.z, s * v.y + c * v.z};
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

  const double general = kRadiansPerArcsecond * t * Horner(kGeneralPrecession, t);
  const double node = Horner(kNode, t);
  const double inclination = Horner(kInclination, t);
  RotateAboutThirdAxis(to_j2000 ? node + general : node, vector);
  RotateAboutFirstAxis(to_j2000 ? -inclination : inclination, vector);
  RotateAboutThirdAxis(to_j2000 ? -node : -node - general, vector);

  CachedObliquity(to_j2000 ? kJ2000 : julian_day, obliquity);
  vector = EclipticToEquator(vector, obliquity);
}

}  // namespace zenithor
