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

namespace {

void WritePlace(double centuries, BodyCode code, const PlanetPlace& place,
                BodyPositionRecord& record) {
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
  record.Centuries = centuries;
}

}  // namespace

void ComputePlanetPlaces(const EphemerisStore& store, const double* centuries, int count,
                         BodyCode code, PlaceDepth depth, MomentCache& cache, PlanetPlace* places) {
  for (int k = 0; k < count; ++k) {
    places[k] = {};
    places[k].epsilon0 = code == ZENITHOR_PLUTO ? kObliquityJ2000 : MeanObliquity(centuries[k]);
    places[k].nutation = CachedNutation(centuries[k], cache);
  }

  Spherical bodies[kMomentsAtOnce] = {};
  if (code != ZENITHOR_SUN) {
    if (code == ZENITHOR_EARTH) {
      CachedSeriesAt(store, kEarthSlot, centuries, count, cache, bodies);
    } else {
      EvaluateBodyAt(store, code, centuries, count, cache, bodies);
    }
    for (int k = 0; k < count; ++k) {
      places[k].heliocentric = {bodies[k].longitude + places[k].nutation.dpsi, bodies[k].latitude,
                                bodies[k].radius};
    }
  }
  if (code == ZENITHOR_EARTH || depth == PlaceDepth::kHeliocentric) {
    return;
  }

  const int observer_slot = code == ZENITHOR_PLUTO ? kEarthJ2000Slot : kEarthSlot;
  Spherical observers[kMomentsAtOnce];
  CachedSeriesAt(store, observer_slot, centuries, count, cache, observers);
  // Kept on purpose: longitude, latitude and distance are geometric, right ascension and
  // declination apparent; for Mercury the two differ by up to 60" and nutation.
  for (int k = 0; k < count; ++k) {
    places[k].geometric = GeocentricPosition(bodies[k], observers[k]);
  }
  if (depth == PlaceDepth::kGeometric) {
    return;
  }

  if (code != ZENITHOR_SUN) {
    // Kept on purpose: light time from the geometric distance, once, the observer left in place.
    double light_left[kMomentsAtOnce] = {};
    for (int k = 0; k < count; ++k) {
      light_left[k] = centuries[k] - places[k].geometric.radius * kLightTimePerAu;
    }
    EvaluateBodyAt(store, code, light_left, count, cache, bodies);
  }
  for (int k = 0; k < count; ++k) {
    const Spherical seen =
        code == ZENITHOR_SUN ? places[k].geometric : GeocentricPosition(bodies[k], observers[k]);
    places[k].apparent =
        EclipticToEquatorial(seen.longitude + places[k].nutation.dpsi, seen.latitude,
                             places[k].epsilon0 + places[k].nutation.deps);
    // Kept on purpose: aberration with the mean obliquity.
    AnnualAberration(centuries[k], places[k].epsilon0, AberrationTerms::kWithEccentricity,
                     places[k].apparent);
  }
}

PlanetPlace ComputePlanetPlace(const EphemerisStore& store, double centuries, BodyCode code,
                               PlaceDepth depth, MomentCache& cache) {
  PlanetPlace place;
  ComputePlanetPlaces(store, &centuries, 1, code, depth, cache, &place);
  return place;
}

void ComputePlanetPositions(const EphemerisStore& store, const double* julian_days, int count,
                            BodyCode code, MomentCache& cache, BodyPositionRecord* records,
                            Equatorial* apparent) {
  double centuries[kMomentsAtOnce] = {};
  for (int k = 0; k < count; ++k) {
    centuries[k] = JulianCenturies(julian_days[k]);
  }
  PlanetPlace places[kMomentsAtOnce];
  ComputePlanetPlaces(store, centuries, count, code, PlaceDepth::kApparent, cache, places);
  for (int k = 0; k < count; ++k) {
    WritePlace(centuries[k], code, places[k], records[k]);
    apparent[k] = places[k].apparent;
  }
}

Equatorial ComputePlanetPosition(const EphemerisStore& store, double julian_day,
                                 double /*observer_longitude*/, double /*observer_latitude*/,
                                 BodyCode code, MomentCache& cache, BodyPositionRecord& record) {
  Equatorial apparent;
  ComputePlanetPositions(store, &julian_day, 1, code, cache, &record, &apparent);
  return apparent;
}

}  // namespace zenithor
