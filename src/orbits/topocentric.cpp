#include "orbits/topocentric.h"

#include <cmath>

#include "numerics/arcs.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
#include "orbits/constants.h"
#include "time/julian_day.h"
#include "time/parallax.h"
#include "time/sidereal_time.h"

namespace zenithor {

namespace {

constexpr double kEquatorialRadius = 6378137.0;  // [m]
constexpr double kFlattening = 1.0 / 298.257222;
constexpr double kEquatorialRadiusAu = 6378.137 / kAstronomicalUnitKm;

// Speed of a point of the equator [speed of light]: 7.292115e-5 rad/s, 0.320".
constexpr double kEquatorSpeed = 7.292115e-5 * 6378.137 / kLightSpeedKmPerSecond;

}  // namespace

void DeriveObserver(PlutoObserver& observer) {
  const double phi = observer.geodetic_latitude * kRadiansPerDegree;
  const auto [cos_phi, sin_phi] = CosineAndSine(phi);
  const double polar = (1.0 - kFlattening) * (1.0 - kFlattening);
  const double c = 1.0 / std::sqrt(cos_phi * cos_phi + polar * sin_phi * sin_phi);
  const double a = kEquatorialRadius * c;
  const double s = kEquatorialRadius * polar * c;
  const double rho = std::sqrt(a * a * cos_phi * cos_phi + s * s * sin_phi * sin_phi);
  const double latitude = Arccosine(a * cos_phi / rho) * kDegreesPerRadian;
  observer.geocentric_latitude = phi < 0.0 ? -latitude : latitude;
  observer.geocentric_radius = rho / kEquatorialRadius;
}

TopocentricPlace ComputeTopocentric(double alpha, double delta, double distance,
                                    double universal_day, const PlutoObserver& observer) {
  const double latitude = observer.geocentric_latitude * kRadiansPerDegree;
  const auto [cos_latitude, sin_latitude] = CosineAndSine(latitude);
  const ObserverTerms terms{observer.geocentric_radius * cos_latitude,
                            observer.geocentric_radius * sin_latitude};
  const double sidereal_time =
      GreenwichMeanSiderealTime(universal_day, JulianCenturies(universal_day)) +
      observer.longitude * kRadiansPerDegree;

  TopocentricPlace place{alpha, delta};
  ParallaxRectangular(kEquatorialRadiusAu / distance, sidereal_time, terms, place.alpha,
                      place.delta, distance);

  const CosineSine hour_angle = CosineAndSine(sidereal_time - place.alpha);
  const auto [cos_delta, sin_delta] = CosineAndSine(place.delta);
  const double speed = kEquatorSpeed * terms.rho_cos_phi;
  place.alpha += speed * hour_angle.cosine / cos_delta;
  place.delta += speed * hour_angle.sine * sin_delta;
  return place;
}

}  // namespace zenithor
