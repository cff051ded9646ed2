#include "numerics/extended.h"

#include <cmath>
#include <limits>

#include "numerics/bits.h"
#include "numerics/pair.h"

namespace zenithor {

namespace {

constexpr double kSmallestSplit = 0x1p-900;
constexpr double kLargestSplit = 0x1p900;

// The double next to x, away from 0 or towards it; x is neither 0 nor at an end of the range.
double Neighbour(double x, bool away_from_zero) {
  return FromBits(away_from_zero ? BitsOf(x) + 1 : BitsOf(x) - 1);
}

}  // namespace

double TimesExtended(double x, Extended e) {
  const double rough = x * e.high;
  const double size = std::fabs(rough);
  if (size > kLargestSplit && size <= std::numeric_limits<double>::max()) {
    constexpr double kScale = 0x1p300;
    return TimesExtended(x / kScale, e) * kScale;
  }
  if (!(size >= kSmallestSplit && size <= kLargestSplit)) {
    return rough;
  }
  const Pair product = TwoProduct(x, e.high);
  const Pair sum = QuickTwoSum(product.high, product.low + x * e.low);
  // The nearest double, unless the rounding to 64 bits has made a tie first: then the even one of
  // the two. A 64-bit number beside the middle is 2^-11 of the gap away, so what is nearer than
  // half of that has been moved to the middle.
  const double other = Neighbour(sum.high, (sum.low < 0.0) == (sum.high < 0.0));
  const double gap = std::fabs(other - sum.high);
  const bool tied = 0.5 * gap - std::fabs(sum.low) <= gap * 0x1p-12;
  return tied && BitsOf(sum.high) % 2 != 0 ? other : sum.high;
}

}  // namespace zenithor
