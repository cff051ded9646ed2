#include "ephemeris/moment_cache.h"

#include "ephemeris/series.h"

namespace zenithor {

Spherical CachedSeries(const EphemerisStore& store, int slot, double centuries,
                       MomentCache& cache) {
  // Terms that did not come from a file have no fingerprint.
  const std::uint64_t fingerprint = IsLoaded(store, slot) ? store.bodies[slot].fingerprint : 0;
  if (fingerprint == 0) {
    return EvaluateSeries(store, slot, centuries, cache.room);
  }
  for (const MomentCache::KeptPlace& kept : cache.places) {
    if (kept.centuries == centuries && kept.fingerprint == fingerprint) {
      return kept.place;
    }
  }
  const Spherical place = EvaluateSeries(store, slot, centuries, cache.room);
  cache.places[cache.oldest_place] = {centuries, fingerprint, place};
  cache.oldest_place = (cache.oldest_place + 1) % MomentCache::kPlaceCount;
  return place;
}

Spherical CachedSunGeocentric(const EphemerisStore& store, int slot, double centuries,
                              MomentCache& cache) {
  return SunSeenFrom(CachedSeries(store, slot, centuries, cache));
}

NutationAngles CachedNutation(double centuries, MomentCache& cache) {
  if (cache.nutation_centuries != centuries) {
    cache.nutation = Nutation(centuries);
    cache.nutation_centuries = centuries;
  }
  return cache.nutation;
}

}  // namespace zenithor
