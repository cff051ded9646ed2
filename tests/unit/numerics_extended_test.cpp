#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>
#include <random>

#include "numerics/extended.h"

namespace zenithor {
namespace {

constexpr Extended kTenth = {0x1.999999999999ap-4, -0x1.998p-58};

TEST(TimesExtended, IsTheProductRoundedToDouble) {
  EXPECT_EQ(TimesExtended(10.0, kTenth), 1.0);
  EXPECT_EQ(TimesExtended(-35.0, kTenth), -3.5);
  EXPECT_EQ(TimesExtended(0.0, kTenth), 0.0);
  EXPECT_TRUE(std::signbit(TimesExtended(-0.0, kTenth)));
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(TimesExtended(-infinity, kTenth), -infinity);
  EXPECT_TRUE(std::isnan(TimesExtended(std::numeric_limits<double>::quiet_NaN(), kTenth)));
}

#if LDBL_MANT_DIG == 64
// Against the processor's own extended precision: random factors, and those whose
// product lies beside the middle of two doubles.
TEST(TimesExtended, IsToTheBitWhatExtendedPrecisionGives) {
  std::mt19937_64 random(20041);
  std::uniform_real_distribution<double> mantissa(1.0, 2.0);
  std::uniform_int_distribution<int> exponent(-800, 1022);
  int ties = 0;
  for (int k = 0; k < 400000; ++k) {
    const double x = std::ldexp(mantissa(random), exponent(random)) * (k % 2 == 0 ? 1.0 : -1.0);
    // A factor of 64 bits; in every second case one that brings the product to the middle of two
    // doubles and then a unit in its own last place or none to the side.
    long double factor = static_cast<long double>(mantissa(random)) +
                         std::ldexp(static_cast<long double>(mantissa(random)), -54);
    if (k % 4 >= 2) {
      const double target = mantissa(random);
      const long double middle = target + std::ldexp(1.0L, -53);
      factor = middle / std::fabs(std::ldexp(x, -std::ilogb(x)));
      factor = std::nextafter(factor, factor + (k % 3 - 1));
    }
    const auto high = static_cast<double>(factor);
    const Extended e = {high, static_cast<double>(factor - high)};
    const auto expected = static_cast<double>(x * factor);
    ASSERT_EQ(TimesExtended(x, e), expected) << x << " " << e.high << " " << e.low;
    ties += expected != static_cast<double>(static_cast<__float128>(x) * factor) ? 1 : 0;
  }
  EXPECT_GT(ties, 100);  // rounded twice, and different for it
}
#endif

}  // namespace
}  // namespace zenithor
