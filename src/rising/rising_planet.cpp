#include "rising/rising_planet.h"

#include "ephemeris/series.h"
#include "time/aberration.h"
#include "time/constants.h"
#include "time/nutation.h"
#include "time/obliquity.h"
#include "time/parallax.h"
#include "time/sidereal_time.h"
#include "time/transforms.h"

namespace zenithor {

namespace {

constexpr double kSunStandardAltitude = -0.014543828656868749;  // [rad] -0.8333 degree
constexpr double kPlanetStandardAltitude = -kHorizonRefraction;
constexpr double kParallaxAtOneAu = 0.0000426345151167726;  // [rad] 8.794"

// The first of the bodies that are so slow that one place serves for three days.
constexpr BodyCode kFirstSlowBody = ZENITHOR_JUPITER;

int ObserverSlot(BodyCode code) { return code == ZENITHOR_PLUTO ? kEarthJ2000Slot : kEarthSlot; }

double Obliquity(BodyCode code, double centuries) {
  return code == ZENITHOR_PLUTO ? kObliquityJ2000 : MeanObliquity(centuries);
}

// Kept on purpose: no light time, nutation, aberration or parallax; 0.06 minute for the Sun,
// 0.1 for the planets, up to latitude 50.
Equatorial GeometricPlace(const EphemerisStore& store, BodyCode code, double centuries,
                          double epsilon, MomentCache& cache) {
  const Spherical body = code == ZENITHOR_SUN ? Spherical{0.0, 0.0, 0.0}
                                              : EvaluateBody(store, code, centuries, cache.room);
  const Spherical observer = CachedSeries(store, ObserverSlot(code), centuries, cache);
  const Spherical place = GeocentricPosition(body, observer);
  return EclipticToEquatorial(place.longitude, place.latitude, epsilon);
}

// The place with light time, nutation, aberration and parallax, seen at the given instant.
Equatorial ApparentPlace(const EphemerisStore& store, BodyCode code, const RisingDay& day,
                         double epsilon, MomentCache& cache) {
  const double t = day.centuries;
  const NutationAngles nutation = CachedNutation(t, cache);
  const Spherical observer = CachedSeries(store, ObserverSlot(code), t, cache);
  Spherical place = GeocentricPosition(EvaluateBody(store, code, t, cache.room), observer);
  const double distance = place.radius;
  place = GeocentricPosition(EvaluateBody(store, code, t - distance * kLightTimePerAu, cache.room),
                             observer);

  // Kept on purpose: for Pluto the equinox of J2000.0 is taken for that of date; 2.1 minutes in
  // 2026, 19 in 1736.
  Equatorial apparent = EclipticToEquatorial(place.longitude + nutation.dpsi, place.latitude,
                                             epsilon + nutation.deps);
  AnnualAberration(t, epsilon, AberrationTerms::kWithEccentricity, apparent);
  const double sidereal_time = GreenwichMeanSiderealTime(day.julian_day, t) - day.longitude;
  ParallaxApproximate(kParallaxAtOneAu / distance, sidereal_time,
                      ObserverGeocentricTerms(day.latitude, 0.0), apparent.alpha, apparent.delta);
  return apparent;
}

}  // namespace

bool HasSlotsForRising(const EphemerisStore& store, BodyCode code) {
  const bool own_slot = code == ZENITHOR_SUN || code == ZENITHOR_PLUTO || IsLoaded(store, code);
  return own_slot && IsLoaded(store, ObserverSlot(code));
}

RiseSetProblem PlanetRiseSetProblem(const EphemerisStore& store, const RisingRequest& request,
                                    MomentCache& cache) {
  const RisingDay day = FindRisingDay(request);
  const double epsilon = Obliquity(request.code, day.centuries);
  ThreePlaces places{};
  if (request.code < kFirstSlowBody) {
    for (std::size_t k = 0; k < places.size(); ++k) {
      places[k] = GeometricPlace(store, request.code, PlaceCenturies(day, k), epsilon, cache);
    }
  } else {
    // Kept on purpose: one place for all three days, 1.1 minutes for Jupiter, 0.1 for Neptune.
    places.fill(ApparentPlace(store, request.code, day, epsilon, cache));
  }
  const double h0 = request.code == ZENITHOR_SUN ? kSunStandardAltitude : kPlanetStandardAltitude;
  return PoseRiseSet(day, places, h0);
}

}  // namespace zenithor
