#include "time/parallax.h"

#include <cmath>

#include "numerics/angles.h"
#include "numerics/arcs.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

constexpr double kFlattening = 0.0033528131778969143;               // 1 / 298.257
constexpr double kEquatorialRadiiPerMetre = 1.5678552054360676e-7;  // 1 / 6378140

}  // namespace

ObserverTerms ObserverGeocentricTerms(double latitude, double height) {
  const double u = Arctangent((1.0 - kFlattening) * Tangent(latitude));
  const double h = height * kEquatorialRadiiPerMetre;
  const CosineSine of_u = CosineAndSine(u);
  const CosineSine of_latitude = CosineAndSine(latitude);
  return {of_u.cosine + h * of_latitude.cosine,
          (1.0 - kFlattening) * of_u.sine + h * of_latitude.sine};
}

void ParallaxStrict(double parallax_sine, double sidereal_time, ObserverTerms observer,
                    double& alpha, double& delta) {
  const CosineSine hour_angle = CosineAndSine(sidereal_time - alpha);
  const auto [cos_delta, sin_delta] = CosineAndSine(delta);
  const double rho_cos = observer.rho_cos_phi * parallax_sine;
  const double d = cos_delta - rho_cos * hour_angle.cosine;
  const double dalpha = Arctangent(-rho_cos * hour_angle.sine / d);
  alpha += dalpha;
  delta = Arctangent(Cosine(dalpha) * (sin_delta - observer.rho_sin_phi * parallax_sine) / d);
}

void ParallaxApproximate(double parallax_sine, double sidereal_time, ObserverTerms observer,
                         double& alpha, double& delta) {
  const CosineSine hour_angle = CosineAndSine(sidereal_time - alpha);
  const auto [cos_delta, sin_delta] = CosineAndSine(delta);
  alpha -= parallax_sine * observer.rho_cos_phi * hour_angle.sine / cos_delta;
  delta -= parallax_sine * (observer.rho_sin_phi * cos_delta -
                            observer.rho_cos_phi * hour_angle.cosine * sin_delta);
}

void ParallaxRectangular(double parallax_sine, double sidereal_time, ObserverTerms observer,
                         double& alpha, double& delta, double& distance) {
  const CosineSine hour_angle = CosineAndSine(sidereal_time - alpha);
  const auto [cos_delta, sin_delta] = CosineAndSine(delta);
  const double x = cos_delta * hour_angle.sine;
  const double y = cos_delta * hour_angle.cosine - observer.rho_cos_phi * parallax_sine;
  const double z = sin_delta - observer.rho_sin_phi * parallax_sine;
  const double r = std::sqrt(x * x + y * y + z * z);
  alpha = ReduceAngle(sidereal_time - ArctangentOfPoint(x, y));
  delta = Arcsine(z / r);
  distance = distance / r;
}

}  // namespace zenithor
