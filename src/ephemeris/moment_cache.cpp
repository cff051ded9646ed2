#include "ephemeris/moment_cache.h"

#include <algorithm>

#include "ephemeris/series.h"

namespace zenithor {

namespace {

// 0 for terms that did not come from a file; places of those are not kept.
std::uint64_t FingerprintOf(const EphemerisStore& store, int slot) {
  return IsLoaded(store, slot) ? store.bodies[slot].fingerprint : 0;
}

const Spherical* FindPlace(const MomentCache& cache, double centuries, std::uint64_t fingerprint) {
  for (const MomentCache::KeptPlace& kept : cache.places) {
    if (kept.centuries == centuries && kept.fingerprint == fingerprint) {
      return &kept.place;
    }
  }
  return nullptr;
}

void KeepPlace(double centuries, std::uint64_t fingerprint, const Spherical& place,
               MomentCache& cache) {
  cache.places[cache.oldest_place] = {centuries, fingerprint, place};
  cache.oldest_place = (cache.oldest_place + 1) % MomentCache::kPlaceCount;
}

// False, with nothing written, where the times are to be evaluated one by one.
bool EvaluateSideBySide(const EphemerisStore& store, int slot, const double* centuries, int count,
                        const MomentCache& cache, Spherical* places) {
  if (count != kMomentsAtOnce || cache.moments_room == nullptr) {
    return false;
  }
  double times[kMomentsAtOnce];
  Spherical at_once[kMomentsAtOnce];
  std::copy_n(centuries, kMomentsAtOnce, times);
  if (!EvaluateSeriesAtOnce(store, slot, times, *cache.moments_room, at_once)) {
    return false;
  }
  std::copy_n(at_once, kMomentsAtOnce, places);
  return true;
}

}  // namespace

Spherical CachedSeries(const EphemerisStore& store, int slot, double centuries,
                       MomentCache& cache) {
  const std::uint64_t fingerprint = FingerprintOf(store, slot);
  if (fingerprint == 0) {
    return EvaluateSeries(store, slot, centuries, cache.room);
  }
  if (const Spherical* const kept = FindPlace(cache, centuries, fingerprint)) {
    return *kept;
  }
  const Spherical place = EvaluateSeries(store, slot, centuries, cache.room);
  KeepPlace(centuries, fingerprint, place, cache);
  return place;
}

void CachedSeriesAt(const EphemerisStore& store, int slot, const double* centuries, int count,
                    MomentCache& cache, Spherical* places) {
  const std::uint64_t fingerprint = FingerprintOf(store, slot);
  const bool some_kept = std::any_of(centuries, centuries + count, [&](double t) {
    return FindPlace(cache, t, fingerprint) != nullptr;
  });
  if (some_kept || fingerprint == 0 ||
      !EvaluateSideBySide(store, slot, centuries, count, cache, places)) {
    for (int k = 0; k < count; ++k) {
      places[k] = CachedSeries(store, slot, centuries[k], cache);
    }
    return;
  }
  for (int k = 0; k < count; ++k) {
    KeepPlace(centuries[k], fingerprint, places[k], cache);
  }
}

void EvaluateBodyAt(const EphemerisStore& store, int code, const double* centuries, int count,
                    MomentCache& cache, Spherical* places) {
  if (!EvaluateSideBySide(store, code, centuries, count, cache, places)) {
    for (int k = 0; k < count; ++k) {
      places[k] = EvaluateBody(store, code, centuries[k], cache.room);
    }
  }
}

Spherical CachedSunGeocentric(const EphemerisStore& store, int slot, double centuries,
                              MomentCache& cache) {
  return SunSeenFrom(CachedSeries(store, slot, centuries, cache));
}

NutationAngles CachedNutation(double centuries, MomentCache& cache) {
  for (const MomentCache::KeptNutation& kept : cache.nutations) {
    if (kept.centuries == centuries) {
      return kept.angles;
    }
  }
  const NutationAngles angles = Nutation(centuries);
  cache.nutations[cache.oldest_nutation] = {centuries, angles};
  cache.oldest_nutation = (cache.oldest_nutation + 1) % kMomentsAtOnce;
  return angles;
}

}  // namespace zenithor
