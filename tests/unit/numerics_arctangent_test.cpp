#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "numerics/arctangent.h"
#include "numerics/constants.h"

namespace zenithor {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(FullCircleArctan, IsExactOnTheAxes) {
  EXPECT_EQ(FullCircleArctan(0.0, 0.0), 0.0);
  EXPECT_EQ(FullCircleArctan(1.0, 0.0), 0.0);
  EXPECT_EQ(FullCircleArctan(0.0, 1.0), kPi / 2.0);
  EXPECT_EQ(FullCircleArctan(-1.0, 0.0), kPi);
  EXPECT_EQ(FullCircleArctan(0.0, -1.0), 1.5 * kPi);
}

TEST(FullCircleArctan, KnowsItsQuadrant) {
  for (int degrees = 1; degrees < 360; ++degrees) {
    const double angle = degrees * kRadiansPerDegree;
    // One rounding of the quotient and one of the sum.
    EXPECT_NEAR(FullCircleArctan(3.0 * std::cos(angle), 3.0 * std::sin(angle)), angle, 2e-15);
  }
}

TEST(FullCircleArctan, GivesTheWholeTurnJustBelowThePositiveAxis) {
  EXPECT_EQ(FullCircleArctan(1.0, -1e-20), kTwoPi);
  EXPECT_LT(FullCircleArctan(1.0, -1e-15), kTwoPi);
}

TEST(FullCircleArctan, CountsPointsOfAnAxisBeforeNan) {
  EXPECT_TRUE(std::isnan(FullCircleArctan(kNan, 1.0)));
  EXPECT_TRUE(std::isnan(FullCircleArctan(1.0, kNan)));
  EXPECT_EQ(FullCircleArctan(0.0, kNan), 0.0);
  EXPECT_EQ(FullCircleArctan(kNan, 0.0), 0.0);
}

TEST(PositiveArctan, IsTheSameAngleWithTheArgumentsOfAtan2) {
  for (int degrees = 1; degrees < 360; ++degrees) {
    const double x = 3.0 * std::cos(degrees * kRadiansPerDegree);
    const double y = 3.0 * std::sin(degrees * kRadiansPerDegree);
    EXPECT_NEAR(PositiveArctan(y, x), FullCircleArctan(x, y), 2e-15);
  }
  EXPECT_EQ(PositiveArctan(-1.0, 0.0), 1.5 * kPi);
  EXPECT_EQ(PositiveArctan(-1e-20, 1.0), kTwoPi);
  EXPECT_TRUE(std::signbit(PositiveArctan(-0.0, 1.0)));
  EXPECT_TRUE(std::isnan(PositiveArctan(0.0, kNan)));
}

}  // namespace
}  // namespace zenithor
