#pragma once

#include <cstdint>
#include <cstring>
#include <limits>

namespace zenithor {

inline bool SameBits(double x, double y) { return std::memcmp(&x, &y, sizeof x) == 0; }

// Proof that an iteration cycles: each value is compared, to the bit, with one kept from before,
// which is renewed after 1, 2, 4, 8, ... values; no cycle is missed. When an iteration's next value
// depends on the present one alone, an equal value proves that it repeats for ever.
// Source: R. P. Brent, An improved Monte Carlo factorization algorithm, BIT 20 (1980), section 2.
struct CycleWatch {
  double kept = std::numeric_limits<double>::quiet_NaN();  // or the value the iteration starts from
  std::uint64_t seen = 0;
  std::uint64_t renewal = 1;

  bool Repeats(double value) {
    if (SameBits(value, kept)) {
      return true;
    }
    if (++seen == renewal) {
      kept = value;
      renewal *= 2;
    }
    return false;
  }
};

}  // namespace zenithor
