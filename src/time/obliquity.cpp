#include "time/obliquity.h"

#include "numerics/constants.h"
#include "numerics/polynomials.h"
#include "numerics/sine_cosine.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

// [arcsec] per power of U = T / 100.
constexpr double kLaskar[] = {84381.448, -4680.93, -1.55, 1999.25, -51.38, -249.67,
                              -39.05,    7.12,     27.87, 5.79,    2.45};

// [arcsec] per power of t = T / 10.
constexpr double kOrbitObliquity[] = {84381.406173, -468.3396,  -0.0175,   1.9989,
                                      -0.005138,    -0.0024967, -3.905e-5, 7.12e-7,
                                      2.787e-7,     5.79e-9,    2.45e-10};

}  // namespace

double MeanObliquity(double centuries) {
  return EvaluatePolynomial(kLaskar, 0.01 * centuries) * kRadiansPerArcsecond;
}

void CachedObliquity(double julian_day, ObliquityCache& cache) {
  if (julian_day == cache.julian_day) {
    return;
  }
  const double t = JulianCenturies(julian_day) * 0.1;
  cache.epsilon = EvaluatePolynomial(kOrbitObliquity, t) * kRadiansPerArcsecond;
  const CosineSine of_epsilon = CosineAndSine(cache.epsilon);
  cache.cos_epsilon = of_epsilon.cosine;
  cache.sin_epsilon = of_epsilon.sine;
  cache.julian_day = julian_day;
}

}  // namespace zenithor
