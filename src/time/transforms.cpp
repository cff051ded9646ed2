#include "time/transforms.h"

#include <cmath>

#include "numerics/arcs.h"
#include "numerics/arctangent.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

Rectangular SphericalToRectangular(const Spherical& place) {
  const CosineSine latitude = CosineAndSine(place.latitude);
  const CosineSine longitude = CosineAndSine(place.longitude);
  return {place.radius * latitude.cosine * longitude.cosine,
          place.radius * latitude.cosine * longitude.sine, place.radius * latitude.sine};
}

Spherical RectangularToSpherical(const Rectangular& place) {
  const double radius = std::sqrt(place.x * place.x + place.y * place.y + place.z * place.z);
  return {PositiveArctan(place.y, place.x), Arcsine(place.z / radius), radius};
}

Spherical GeocentricPosition(const Spherical& body, const Spherical& observer) {
  const Rectangular b = SphericalToRectangular(body);
  const Rectangular o = SphericalToRectangular(observer);
  return RectangularToSpherical({b.x - o.x, b.y - o.y, b.z - o.z});
}

Equatorial EclipticToEquatorial(double lambda, double beta, double epsilon) {
  const auto [cos_lambda, sin_lambda] = CosineAndSine(lambda);
  const auto [cos_beta, sin_beta] = CosineAndSine(beta);
  const auto [cos_epsilon, sin_epsilon] = CosineAndSine(epsilon);
  return {PositiveArctan(cos_beta * sin_lambda * cos_epsilon - sin_beta * sin_epsilon,
                         cos_beta * cos_lambda),
          Arcsine(sin_beta * cos_epsilon + cos_beta * sin_epsilon * sin_lambda)};
}

}  // namespace zenithor
