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

void ComputePlanetPosition(const EphemerisStore& store, double julian_day,
                           double /*observer_longitude*/, double /*observer_latitude*/,
                           BodyCode code, MomentCache& cache, BodyPositionRecord& record) {
  const double t = JulianCenturies(julian_day);
  const double epsilon0 = code == ZENITHOR_PLUTO ? kObliquityJ2000 : MeanObliquity(t);
  const NutationAngles nutation = CachedNutation(t, cache);

  Spherical body{0.0, 0.0, 0.0};
  if (code != ZENITHOR_SUN) {
    body = code == ZENITHOR_EARTH ? CachedSeries(store, kEarthSlot, t, cache)
                                  : EvaluateBody(store, code, t, cache.room);
    StoreAngle((body.longitude + nutation.dpsi) * kDegreesPerRadian, 360.0, record.HelioLongitude);
    record.HelioLatitude = body.latitude * kDegreesPerRadian;
    record.HelioDistance = body.radius;
  }

  if (code != ZENITHOR_EARTH) {
    const int observer_slot = code == ZENITHOR_PLUTO ? kEarthJ2000Slot : kEarthSlot;
    const Spherical observer = CachedSeries(store, observer_slot, t, cache);
    // Kept on purpose: longitude, latitude and distance are geometric, right ascension and
    // declination apparent; for Mercury the two differ by up to 60" and nutation.
    Spherical place = GeocentricPosition(body, observer);
    StoreAngle(place.longitude * kDegreesPerRadian, 360.0, record.GeoLongitude);
    record.GeoLatitude = place.latitude * kDegreesPerRadian;
    record.GeoDistance = place.radius;

    if (code != ZENITHOR_SUN) {
      // Kept on purpose: light time from the geometric distance, once, the observer left in place.
      body = EvaluateBody(store, code, t - place.radius * kLightTimePerAu, cache.room);
      place = GeocentricPosition(body, observer);
    }
    Equatorial apparent = EclipticToEquatorial(place.longitude + nutation.dpsi, place.latitude,
                                               epsilon0 + nutation.deps);
    // Kept on purpose: aberration with the mean obliquity.
    AnnualAberration(t, epsilon0, AberrationTerms::kWithEccentricity, apparent);
    StoreAngle(apparent.alpha * kHoursPerRadian, 24.0, record.RightAscension);
    record.Declination = apparent.delta * kDegreesPerRadian;
  }

  record.Obliquity = epsilon0;
  record.Centuries = t;
}

}  // namespace zenithor
