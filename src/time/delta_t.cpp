#include "time/delta_t.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "numerics/integers.h"

namespace zenithor {

namespace {

constexpr std::int32_t kDeltaTTenths[] = {
#include "time/delta_t_terms.inc"
};
static_assert(std::size(kDeltaTTenths) == 187, "1620 to 1992 by two years");

constexpr std::int32_t kLastInterval = 185;

}  // namespace

double DeltaT(double centuries) {
  const double t = centuries;
  const double year = 2000.0 + 100.0 * t;
  if (year >= 948.0 && year < 1620.0) {
    return 50.6 + 67.5 * t + 22.5 * t * t;
  }
  if (year < 948.0) {
    return 2715.6 + 573.36 * t + 46.5 * t * t;
  }
  if (year <= 2000.0) {
    // Kept on purpose: 1992 to 2000 continue the table's last interval, 62.4 s at the start of 2000
    // where 63.8 s was observed.
    const std::int32_t i = std::min(TruncateToInt32((year - 1620.0) * 0.5), kLastInterval);
    const auto row = static_cast<std::size_t>(i);
    const double here = kDeltaTTenths[row];
    const double next = kDeltaTTenths[row + 1];
    return (here + (next - here) * (year * 0.5 - static_cast<double>(i) - 810.0)) * 0.1;
  }
  // Kept on purpose: the parabola that was current before 2000 begins 39.9 s above the table's end.
  return 102.3 + 123.5 * t + 32.5 * t * t;
}

}  // namespace zenithor
