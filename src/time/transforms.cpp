#include "time/transforms.h"

#include <cmath>

#include "numerics/arctangent.h"

namespace zenithor {

Rectangular SphericalToRectangular(const Spherical& place) {
  const double cos_latitude = std::cos(place.latitude);
  return {place.radius * cos_latitude * std::cos(place.longitude),
          place.radius * cos_latitude * std::sin(place.longitude),
          place.radius * std::sin(place.latitude)};
}

Spherical RectangularToSpherical(const Rectangular& place) {
  const double radius = std::sqrt(place.x * place.x + place.y * place.y + place.z * place.z);
  return {PositiveArctan(place.y, place.x), std::asin(place.z / radius), radius};
}

Spherical GeocentricPosition(const Spherical& body, const Spherical& observer) {
  const Rectangular b = SphericalToRectangular(body);
  const Rectangular o = SphericalToRectangular(observer);
  return RectangularToSpherical({b.x - o.x, b.y - o.y, b.z - o.z});
}

Equatorial EclipticToEquatorial(double lambda, double beta, double epsilon) {
  const double sin_lambda = std::sin(lambda);
  const double cos_beta = std::cos(beta);
  const double sin_beta = std::sin(beta);
  const double cos_epsilon = std::cos(epsilon);
  const double sin_epsilon = std::sin(epsilon);
  return {PositiveArctan(cos_beta * sin_lambda * cos_epsilon - sin_beta * sin_epsilon,
                         cos_beta * std::cos(lambda)),
          std::asin(sin_beta * cos_epsilon + cos_beta * sin_epsilon * sin_lambda)};
}

}  // namespace zenithor
