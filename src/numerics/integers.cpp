#include "numerics/integers.h"

#include <cmath>
#include <limits>

namespace zenithor {

double IntegerPart(double x) {
  double whole = 0.0;
  std::modf(x, &whole);
  return whole;
}

std::int32_t TruncateToInt32(double x) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(x)) {
    return 0;
  }
  if (x <= static_cast<double>(Limits::min())) {
    return Limits::min();
  }
  if (x >= static_cast<double>(Limits::max())) {
    return Limits::max();
  }
  return static_cast<std::int32_t>(x);
}

}  // namespace zenithor
