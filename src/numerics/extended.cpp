#include "numerics/extended.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "numerics/pair.h"

namespace zenithor {

namespace {

constexpr double kSmallestSplit = 0x1p-900;
constexpr double kLargestSplit = 0x1p900;

bool IsEven(double x) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return bits % 2 == 0;
}

}  // namespace

double TimesExtendedPortably(double x, Extended e) {
  const double rough = x * e.high;
  const double size = std::fabs(rough);
  if (!(size >= kSmallestSplit && size <= kLargestSplit)) {
    return rough;
  }
  const Pair product = TwoProduct(x, e.high);
  const Pair sum = QuickTwoSum(product.high, product.low + x * e.low);
  // The nearest double, unless the rounding to 64 bits has made a tie first: then the even one of
  // the two. A 64-bit number beside the middle is 2^-11 of the gap away, so what is nearer than
  // half of that has been moved to the middle.
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double other = std::nextafter(sum.high, sum.low < 0.0 ? -kInfinity : kInfinity);
  const double gap = std::fabs(other - sum.high);
  const bool tied = 0.5 * gap - std::fabs(sum.low) <= gap * 0x1p-12;
  return tied && !IsEven(sum.high) ? other : sum.high;
}

}  // namespace zenithor
