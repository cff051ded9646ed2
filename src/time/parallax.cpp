#include "time/parallax.h"

#include <cmath>

#include "numerics/angles.h"

namespace zenithor {

namespace {

constexpr double kFlattening = 0.0033528131778969143;               // 1 / 298.257
constexpr double kEquatorialRadiiPerMetre = 1.5678552054360676e-7;  // 1 / 6378140

}  // namespace

ObserverTerms ObserverGeocentricTerms(double latitude, double height) {
  const double u = std::atan((1.0 - kFlattening) * std::tan(latitude));
  const double h = height * kEquatorialRadiiPerMetre;
  return {std::cos(u) + h * std::cos(latitude),
          (1.0 - kFlattening) * std::sin(u) + h * std::sin(latitude)};
}

void ParallaxStrict(double parallax_sine, double sidereal_time, ObserverTerms observer,
                    double& alpha, double& delta) {
  const double hour_angle = sidereal_time - alpha;
  const double rho_cos = observer.rho_cos_phi * parallax_sine;
  const double d = std::cos(delta) - rho_cos * std::cos(hour_angle);
  const double dalpha = std::atan(-rho_cos * std::sin(hour_angle) / d);
  alpha += dalpha;
  delta =
      std::atan(std::cos(dalpha) * (std::sin(delta) - observer.rho_sin_phi * parallax_sine) / d);
}

void ParallaxApproximate(double parallax_sine, double sidereal_time, ObserverTerms observer,
                         double& alpha, double& delta) {
  const double hour_angle = sidereal_time - alpha;
  const double cos_delta = std::cos(delta);
  const double sin_delta = std::sin(delta);
  alpha -= parallax_sine * observer.rho_cos_phi * std::sin(hour_angle) / cos_delta;
  delta -= parallax_sine * (observer.rho_sin_phi * cos_delta -
                            observer.rho_cos_phi * std::cos(hour_angle) * sin_delta);
}

void ParallaxRectangular(double parallax_sine, double sidereal_time, ObserverTerms observer,
                         double& alpha, double& delta, double& distance) {
  const double hour_angle = sidereal_time - alpha;
  const double x = std::cos(delta) * std::sin(hour_angle);
  const double y = std::cos(delta) * std::cos(hour_angle) - observer.rho_cos_phi * parallax_sine;
  const double z = std::sin(delta) - observer.rho_sin_phi * parallax_sine;
  const double r = std::sqrt(x * x + y * y + z * z);
  alpha = ReduceAngle(sidereal_time - std::atan2(x, y));
  delta = std::asin(z / r);
  distance = distance / r;
}

}  // namespace zenithor
