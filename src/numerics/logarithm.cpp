#include "numerics/logarithm.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "numerics/bits.h"
#include "numerics/pair.h"
#include "numerics/polynomials.h"

namespace zenithor {

namespace {

#include "numerics/logarithm_constants.inc"

constexpr double kSmallestNormal = 0x1p-1022;

// x = (1 + f) 2^exponent with sqrt(1/2) <= 1 + f < sqrt 2, for a normal x > 0.
struct Parts {
  double f, exponent;
};

Parts PartsOf(double x) {
  auto bits = static_cast<std::int64_t>(BitsOf(x));
  // The high word less that of sqrt(1/2): what is above its exponent field is the exponent.
  constexpr std::int64_t kRootOfHalf = 0x3FE6A09E00000000;
  const std::int64_t exponent = (bits - kRootOfHalf) >> 52;
  bits -= exponent * (std::int64_t{1} << 52);
  return {FromBits(static_cast<std::uint64_t>(bits)) - 1.0, static_cast<double>(exponent)};
}

// ln(1 + f) = 2 s + s R, s = f / (2 + f), and 2 s = f - s f, s f = f^2 / 2 - s f^2 / 2, so that all
// but f - f^2 / 2 is small and may be rounded.
double LogarithmOfNormal(double x) {
  const Parts parts = PartsOf(x);
  const double f = parts.f;
  const double s = f / (2.0 + f);
  const double z = s * s;
  const double series = EvaluatePolynomial(kLogarithm, z);
  Pair half_square = TwoProduct(f, f);
  half_square = {0.5 * half_square.high, 0.5 * half_square.low};
  const double rest = s * (half_square.high + z * series);

  const Pair first = TwoSum(parts.exponent * kLn2High, f);
  const Pair second = TwoSum(first.high, -half_square.high);
  return second.high +
         (((first.low + second.low) - half_square.low) + (parts.exponent * kLn2Low + rest));
}

}  // namespace

double Logarithm(double x) {
  if (!(x > 0.0)) {
    return x == 0.0 ? -std::numeric_limits<double>::infinity()
                    : std::numeric_limits<double>::quiet_NaN();
  }
  if (std::isinf(x)) {
    return x;
  }
  return x < kSmallestNormal ? LogarithmOfNormal(x * 0x1p54) - 54.0 * kLn2High - 54.0 * kLn2Low
                             : LogarithmOfNormal(x);
}

}  // namespace zenithor
