#include "orbits/whole_nutation.h"

#include <cmath>
#include <cstdint>
#include <iterator>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/multiples.h"
#include "time/constants.h"

namespace zenithor {

namespace {

struct NutationTerm {
  std::int16_t multipliers[5];                  // of M', M, F, D and Omega
  std::int16_t longitude, obliquity;            // sine and cosine [0.0001 arcsec]
  std::int16_t longitude_rate, obliquity_rate;  // [0.0001 arcsec per 1000 years]
};

constexpr NutationTerm kTerms[] = {
#include "orbits/whole_nutation_terms.inc"
};
static_assert(std::size(kTerms) == 105, "the published table but its leading term");

// Multiples that the terms take of M', M, F, D and Omega.
constexpr int kHighest[] = {3, 2, 4, 4, 2};

constexpr bool WithinHighest() {
  for (const NutationTerm& term : kTerms) {
    for (int k = 0; k < 5; ++k) {
      if (term.multipliers[k] > kHighest[k] || term.multipliers[k] < -kHighest[k]) {
        return false;
      }
    }
  }
  return true;
}
static_assert(WithinHighest(), "every multiple is prepared");

}  // namespace

void CachedWholeNutation(double julian_day, NutationCache& cache) {
  if (julian_day == cache.julian_day) {
    return;
  }
  const double t = (julian_day - kJ2000) / kDaysPerCentury;
  const double arcseconds[] = {
      ReduceArcseconds(1717915922.633 * t + 485866.733) + (31.31 + 0.064 * t) * t * t,
      ReduceArcseconds(129596581.224 * t + 1287099.804) - (0.577 + 0.012 * t) * t * t,
      ReduceArcseconds(1739527263.137 * t + 335778.877) + (0.011 * t - 13.257) * t * t,
      ReduceArcseconds(1602961601.328 * t + 1072261.307) + (0.019 * t - 6.891) * t * t,
      ReduceArcseconds(-6962890.539 * t + 450160.28) + (7.455 + 0.008 * t) * t * t,
  };
  MultiplesRow rows[5];
  for (int k = 0; k < 5; ++k) {
    FillMultiples(arcseconds[k] * kRadiansPerArcsecond, kHighest[k], rows[k]);
  }

  const double millennia = 0.1 * t;
  double longitude = 0.0;
  double obliquity = 0.0;
  for (const NutationTerm& term : kTerms) {
    AngleSum angle;
    for (int k = 0; k < 5; ++k) {
      AddMultiple(term.multipliers[k], rows[k], angle);
    }
    longitude += (term.longitude + term.longitude_rate * millennia) * angle.sine;
    obliquity += (term.obliquity + term.obliquity_rate * millennia) * angle.cosine;
  }
  longitude += (-171996.0 - 1742.0 * millennia) * rows[4].sine[0];
  obliquity += (92025.0 + 89.0 * millennia) * rows[4].cosine[0];

  cache.angles = {longitude * 0.0001 * kRadiansPerArcsecond,
                  obliquity * 0.0001 * kRadiansPerArcsecond};
  cache.julian_day = julian_day;
}

}  // namespace zenithor
