#include "numerics/far_angle.h"

#include <cmath>
#include <cstdint>

#include "numerics/turn_pairs.h"

namespace zenithor {

namespace {

constexpr int kWordBits = 32;
// 2 / pi in words of 32 bits, the first one right of the point.
constexpr std::uint32_t kTwoOverPi[] = {
#include "numerics/two_over_pi.inc"
};
// So many words of it are used at once, from the first that does not make whole turns alone. What
// is left out is below 2^(53 + 33 - 224) quarters, and no double is nearer to an axis than 2^-62.
constexpr int kWindow = 7;
constexpr int kProductWords = kWindow + 2;
// Words of the fraction that are kept.
constexpr int kFractionWords = 5;

// The words of a number, the lowest first.
using Product = std::uint32_t[kProductWords];

// mantissa x the window that begins at word `first`.
void Multiply(std::uint64_t mantissa, int first, Product& product) {
  const std::uint64_t low = mantissa & 0xFFFFFFFFU;
  const std::uint64_t high = mantissa >> kWordBits;
  std::uint64_t carry = 0;
  std::uint64_t before = 0;
  for (int k = 0; k < kProductWords; ++k) {
    const std::uint64_t digit = k < kWindow ? kTwoOverPi[first + kWindow - 1 - k] : 0;
    // Two products and a carry of at most 33 bits; the high product is of 21 + 32 bits.
    const std::uint64_t of_low = digit * low;
    const std::uint64_t sum =
        (of_low & 0xFFFFFFFFU) + (carry & 0xFFFFFFFFU) + (before & 0xFFFFFFFFU);
    product[k] = static_cast<std::uint32_t>(sum);
    carry =
        (of_low >> kWordBits) + (carry >> kWordBits) + (before >> kWordBits) + (sum >> kWordBits);
    before = digit * high;
  }
}

// 32 bits of the product from bit `from` on.
std::uint32_t BitsFrom(const Product& product, int from) {
  const int word = from / kWordBits;
  const int shift = from % kWordBits;
  const std::uint64_t low = product[word];
  const std::uint64_t high = word + 1 < kProductWords ? product[word + 1] : 0;
  return static_cast<std::uint32_t>((low | (high << kWordBits)) >> shift);
}

// The fraction's words, the highest first, as a number.
Pair FractionOf(const std::uint32_t (&words)[kFractionWords]) {
  Pair sum = {0.0, 0.0};
  double weight = 0x1p-32;
  for (const std::uint32_t word : words) {
    sum = Plus(sum, weight * word);
    weight *= 0x1p-32;
  }
  return sum;
}

Pair TimesHalfPi(Pair a) {
  const Pair product = TwoProduct(a.high, kHalfPiPair.high);
  return QuickTwoSum(product.high,
                     product.low + (a.high * kHalfPiPair.low + a.low * kHalfPiPair.high));
}

}  // namespace

QuarterTurns ReduceFarAngle(double angle) {
  constexpr int kMantissaBits = 53;
  int exponent = 0;
  const double fraction = std::frexp(std::fabs(angle), &exponent);
  exponent -= kMantissaBits;
  const auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, kMantissaBits));

  // Words whose product with the mantissa is a multiple of four quarters.
  const int whole = exponent >= 2 ? (exponent - 2) / kWordBits : 0;
  Product product;
  Multiply(mantissa, whole, product);
  const int point = kWindow * kWordBits - (exponent - whole * kWordBits);

  unsigned quarters = BitsFrom(product, point) % 4;
  std::uint32_t words[kFractionWords];
  for (int k = 0; k < kFractionWords; ++k) {
    words[k] = BitsFrom(product, point - (k + 1) * kWordBits);
  }
  // To the nearest axis: from one half on, what is missing to the next.
  const bool beyond_half = words[0] >> (kWordBits - 1) != 0;
  if (beyond_half) {
    ++quarters;
    for (std::uint32_t& word : words) {
      word = ~word;
    }
  }
  Pair rest = TimesHalfPi(FractionOf(words));
  if (beyond_half != (angle < 0.0)) {
    rest = Negative(rest);
  }
  return {angle < 0.0 ? (4 - quarters) % 4 : quarters % 4, rest};
}

}  // namespace zenithor
