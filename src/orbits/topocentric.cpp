#include "orbits/topocentric.h"

#include <cmath>

#include "numerics/constants.h"
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
  const double cos_phi = std::cos(phi);
  const double sin_phi = std::sin(phi);
  const double polar = (1.0 - kFlattening) * (1.0 - kFlattening);
  const double c = 1.0 / std::sqrt(cos_phi * cos_phi + polar * sin_phi * sin_phi);
  const double a = kEquatorialRadius * c;
  const double s = kEquatorialRadius * polar * c;
  const double rho = std::sqrt(a * a * cos_phi * cos_phi + s * s * sin_phi * sin_phi);
  const double latitude = std::acos(a * cos_phi / rho) * kDegreesPerRadian;
  observer.geocentric_latitude = phi < 0.0 ? -latitude : latitude;
  observer.geocentric_radius = rho / kEquatorialRadius;
}

TopocentricPlace ComputeTopocentric(double alpha, double delta, double distance,
                                    double universal_day, const PlutoObserver& observer) {
  const double latitude = observer.geocentric_latitude * kRadiansPerDegree;
  const ObserverTerms terms{observer.geocentric_radius * std::cos(latitude),
                            observer.geocentric_radius * std::sin(latitude)};
  const double sidereal_time =
      GreenwichMeanSiderealTime(universal_day, JulianCenturies(universal_day)) +
      observer.longitude * kRadiansPerDegree;

  TopocentricPlace place{alpha, delta};
  ParallaxRectangular(kEquatorialRadiusAu / distance, sidereal_time, terms, place.alpha,
                      place.delta, distance);

  const double hour_angle = sidereal_time - place.alpha;
  const double speed = kEquatorSpeed * terms.rho_cos_phi;
  const double sin_delta = std::sin(place.delta);
  place.alpha += speed * std::cos(hour_angle) / std::cos(place.delta);
  place.delta += speed * std::sin(hour_angle) * sin_delta;
  return place;
}

}  // namespace zenithor
