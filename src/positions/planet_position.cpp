#include "positions/planet_position.h"

#include "ephemeris/series.h"
#include "numerics/constants.h"
#include "positions/stored_angles.h"
#include "time/aberration.h"
#include "time/constants.h"
#include "time/julian_day.h"
#include "time/nutation.h"
#include "time/obliquity.h"
#include "time/transforms.h"

namespace zenithor {

PlanetPlace ComputePlanetPlace(const EphemerisStore& store, double centuries, BodyCode code,
                               PlaceDepth depth, MomentCache& cache) {
  const double t = centuries;
  PlanetPlace out{};
  out.epsilon0 = code == ZENITHOR_PLUTO ? kObliquityJ2000 : MeanObliquity(t);
  out.nutation = CachedNutation(t, cache);

  Spherical body{0.0, 0.0, 0.0};
  if (code != ZENITHOR_SUN) {
    body = code == ZENITHOR_EARTH ? CachedSeries(store, kEarthSlot, t, cache)
                                  : EvaluateBody(store, code, t, cache.room);
    out.heliocentric = {body.longitude + out.nutation.dpsi, body.latitude, body.radius};
  }

  if (code != ZENITHOR_EARTH && depth != PlaceDepth::kHeliocentric) {
    const int observer_slot = code == ZENITHOR_PLUTO ? kEarthJ2000Slot : kEarthSlot;
    const Spherical observer = CachedSeries(store, observer_slot, t, cache);
    // Kept on purpose: longitude, latitude and distance are geometric, right ascension and
    // declination apparent; for Mercury the two differ by up to 60" and nutation.
    Spherical place = GeocentricPosition(body, observer);
    out.geometric = place;
    if (depth == PlaceDepth::kApparent) {
      if (code != ZENITHOR_SUN) {
        // Kept on purpose: light time from the geometric distance, once, the observer left in
        // place.
        body = EvaluateBody(store, code, t - place.radius * kLightTimePerAu, cache.room);
        place = GeocentricPosition(body, observer);
      }
      out.apparent = EclipticToEquatorial(place.longitude + out.nutation.dpsi, place.latitude,
                                          out.epsilon0 + out.nutation.deps);
      // Kept on purpose: aberration with the mean obliquity.
      AnnualAberration(t, out.epsilon0, AberrationTerms::kWithEccentricity, out.apparent);
    }
  }
  return out;
}

Equatorial ComputePlanetPosition(const EphemerisStore& store, double julian_day,
                                 double /*observer_longitude*/, double /*observer_latitude*/,
                                 BodyCode code, MomentCache& cache, BodyPositionRecord& record) {
  const double t = JulianCenturies(julian_day);
  const PlanetPlace place = ComputePlanetPlace(store, t, code, PlaceDepth::kApparent, cache);
  if (code != ZENITHOR_SUN) {
    StoreAngle(place.heliocentric.longitude * kDegreesPerRadian, 360.0, record.HelioLongitude);
    record.HelioLatitude = place.heliocentric.latitude * kDegreesPerRadian;
    record.HelioDistance = place.heliocentric.radius;
  }
  if (code != ZENITHOR_EARTH) {
    StoreAngle(place.geometric.longitude * kDegreesPerRadian, 360.0, record.GeoLongitude);
    record.GeoLatitude = place.geometric.latitude * kDegreesPerRadian;
    record.GeoDistance = place.geometric.radius;
    StoreAngle(place.apparent.alpha * kHoursPerRadian, 24.0, record.RightAscension);
    record.Declination = place.apparent.delta * kDegreesPerRadian;
  }
  record.Obliquity = place.epsilon0;
  record.Centuries = t;
  return place.apparent;
}

}  // namespace zenithor
