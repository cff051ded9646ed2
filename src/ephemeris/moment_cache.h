#pragma once

#include <cstdint>
#include <limits>

#include "ephemeris/store.h"
#include "time/nutation.h"
#include "time/transforms.h"

namespace zenithor {

// What the bodies of one moment have in common, kept from call to call: a host that asks for ten
// bodies of one day pays for the Earth and the nutation once. One record per thread, handed on by
// reference. Each part is keyed by everything it depends on: the moment, and for the Earth the
// terms it is summed from, by their fingerprint. A moment that is NaN is never kept.
struct MomentCache {
  static constexpr double kNever = std::numeric_limits<double>::quiet_NaN();
  // Rising and setting look from the Earth at three moments, and at a fourth for slow bodies;
  // arrays at four.
  static constexpr unsigned kPlaceCount = kMomentsAtOnce;

  struct KeptPlace {
    double centuries = kNever;       // T
    std::uint64_t fingerprint = 0;   // of the terms
    Spherical place{0.0, 0.0, 0.0};  // [rad, au]
  };

  struct KeptNutation {
    double centuries = kNever;  // T
    NutationAngles angles{0.0, 0.0};
  };

  KeptPlace places[kPlaceCount] = {};  // the latest ones
  unsigned oldest_place = 0;           // index of the one to be replaced next
  KeptNutation nutations[kMomentsAtOnce] = {};
  unsigned oldest_nutation = 0;
  SumRoom* room = nullptr;              // to sum series in; null where the thread has none
  MomentsRoom* moments_room = nullptr;  // the same for four moments; null also where none are asked
};

// EvaluateSeries(store, slot, centuries), from the cache where it holds that.
Spherical CachedSeries(const EphemerisStore& store, int slot, double centuries, MomentCache& cache);

// CachedSeries, and EvaluateBody, at each of `count` times, 1 to kMomentsAtOnce; side by side where
// there are as many as that.
void CachedSeriesAt(const EphemerisStore& store, int slot, const double* centuries, int count,
                    MomentCache& cache, Spherical* places);
void EvaluateBodyAt(const EphemerisStore& store, int code, const double* centuries, int count,
                    MomentCache& cache, Spherical* places);

// EvaluateSunGeocentric(store, slot, centuries), by way of CachedSeries.
Spherical CachedSunGeocentric(const EphemerisStore& store, int slot, double centuries,
                              MomentCache& cache);

// Nutation(centuries), from the cache where it holds that.
NutationAngles CachedNutation(double centuries, MomentCache& cache);

}  // namespace zenithor
