#pragma once

#include <cstdint>
#include <limits>

namespace zenithor {

// Proof that an iteration cycles, by Brent's method: each value is compared with one kept from
// before, which is renewed after 1, 2, 4, 8, ... values. When an iteration's next value depends on
// the present one alone, an equal value proves that it repeats for ever.
// Source: R. P. Brent, An improved Monte Carlo factorization algorithm, BIT 20 (1980).
struct CycleWatch {
  double kept = std::numeric_limits<double>::quiet_NaN();
  std::uint64_t until_renewal = 1;
  std::uint64_t period = 1;

  bool Repeats(double value) {
    if (value == kept) {
      return true;
    }
    if (--until_renewal == 0) {
      kept = value;
      period *= 2;
      until_renewal = period;
    }
    return false;
  }
};

}  // namespace zenithor
