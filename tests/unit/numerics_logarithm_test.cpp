#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "numerics/logarithm.h"
#include "support/quadruple.h"

namespace zenithor {
namespace {

using testing::QuadrupleLogarithm;
using testing::UlpsFrom;

TEST(Logarithm, IsWithinTheStatedBound) {
  constexpr double kBound = 0.7;  // ulp
  std::mt19937_64 random(20031);
  for (const double spread : {1e-9, 1e-3, 0.9, 30.0, 1021.0}) {
    std::uniform_real_distribution<double> power(-spread, spread);
    for (int k = 0; k < 8000; ++k) {
      const double x = std::exp2(power(random));
      ASSERT_LE(UlpsFrom(QuadrupleLogarithm(x), Logarithm(x)), kBound) << x;
    }
  }
  for (const double x : {std::sqrt(0.5), std::nextafter(std::sqrt(0.5), 0.0), std::sqrt(2.0),
                         std::nextafter(std::sqrt(2.0), 9.0), 3e-310, 5e-324}) {
    EXPECT_LE(UlpsFrom(QuadrupleLogarithm(x), Logarithm(x)), kBound) << x;
  }
}

TEST(Logarithm, HasItsEnds) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Logarithm(1.0), 0.0);
  EXPECT_EQ(Logarithm(0.0), -infinity);
  EXPECT_EQ(Logarithm(-0.0), -infinity);
  EXPECT_EQ(Logarithm(infinity), infinity);
  for (const double none : {-1e-300, -1.0, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(std::isnan(Logarithm(none))) << none;
  }
}

}  // namespace
}  // namespace zenithor
