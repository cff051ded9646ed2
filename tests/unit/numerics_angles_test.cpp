#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "numerics/angles.h"
#include "numerics/constants.h"

namespace zenithor {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// One rounding of the product and one of the subtraction: a few 1e-16.
TEST(ReduceAngle, BringsNegativeAnglesIntoTheFullCircle) {
  EXPECT_NEAR(ReduceAngle(-0.1), kTwoPi - 0.1, 1e-15);
  EXPECT_EQ(ReduceAngle(0.0), 0.0);
  EXPECT_EQ(ReduceAngle(1.5), 1.5);
}

TEST(ReduceAngle, StaysWithinTheCircleOverTheLibrarysRange) {
  for (double angle = -3e5; angle < 3e5; angle += 0.731) {
    const double reduced = ReduceAngle(angle);
    ASSERT_GE(reduced, -1e-10) << angle;  // a boundary may come out at either end
    ASSERT_LE(reduced, kTwoPi + 1e-10) << angle;
    ASSERT_NEAR(std::sin(reduced), std::sin(angle), 1e-10) << angle;
  }
}

TEST(ReduceAngleSigned, BringsAnglesIntoTheHalfOpenIntervalAboutZero) {
  EXPECT_NEAR(ReduceAngleSigned(4.0), 4.0 - kTwoPi, 1e-15);
  EXPECT_EQ(ReduceAngleSigned(-1.0), -1.0);
  EXPECT_NEAR(ReduceAngleSigned(-4.0), kTwoPi - 4.0, 1e-15);
  EXPECT_NEAR(std::fabs(ReduceAngleSigned(kPi)), kPi, 1e-15);
}

TEST(ReduceAngle, GivesNanForWhatIsNotFinite) {
  EXPECT_TRUE(std::isnan(ReduceAngle(kNan)));
  EXPECT_TRUE(std::isnan(ReduceAngle(kInfinity)));
  EXPECT_TRUE(std::isnan(ReduceAngleSigned(-kInfinity)));
}

TEST(ReduceDegrees, BringsEveryAngleIntoOneTurn) {
  EXPECT_EQ(ReduceDegrees(-30.0), 330.0);
  EXPECT_EQ(ReduceDegrees(720.0), 0.0);
  EXPECT_EQ(ReduceDegrees(-360.0), 0.0);
  EXPECT_FALSE(std::signbit(ReduceDegrees(-360.0)));
  EXPECT_EQ(ReduceDegrees(359.5), 359.5);
  EXPECT_EQ(ReduceDegrees(-720.25), 359.75);
  EXPECT_EQ(ReduceDegrees(36000123.0), 123.0);
}

TEST(ReduceRadians, BringsEveryAngleIntoOneTurn) {
  EXPECT_EQ(ReduceRadians(0.0), 0.0);
  EXPECT_EQ(ReduceRadians(kTwoPi), 0.0);
  EXPECT_EQ(ReduceRadians(-kTwoPi), 0.0);
  EXPECT_FALSE(std::signbit(ReduceRadians(-kTwoPi)));
  EXPECT_EQ(ReduceRadians(-1.0), kTwoPi - 1.0);
  EXPECT_EQ(ReduceRadians(7.0), 7.0 - kTwoPi);
  // All whole turns go off in one subtraction: two roundings, of the turns and of the difference.
  for (int k = -2000; k <= 2000; ++k) {
    const double x = 9.77 * k * std::fabs(k);
    const double reduced = ReduceRadians(x);
    const double turns = std::floor(x / kTwoPi);
    ASSERT_GE(reduced, 0.0) << x;
    ASSERT_LT(reduced, kTwoPi) << x;
    ASSERT_EQ(reduced, x - kTwoPi * turns) << x;
    ASSERT_NEAR(reduced, static_cast<double>(x - static_cast<long double>(kTwoPi) * turns),
                std::fabs(x) * 0x1p-53 + 0x1p-50)
        << x;
  }
}

TEST(ReduceAngles, BelowZeroByLessThanRoundingIsZero) {
  EXPECT_EQ(ReduceDegrees(-1e-20), 0.0);
  EXPECT_EQ(ReduceDegrees(-2e-14), 0.0);
  EXPECT_LT(ReduceDegrees(-6e-14), 360.0);
  EXPECT_GT(ReduceDegrees(-6e-14), 359.9);
  EXPECT_EQ(ReduceRadians(-5e-324), 0.0);
}

TEST(ReduceAngles, EndForEveryNumber) {
  double x = 1e-300;
  for (int k = 0; k < 3000; ++k, x *= 1.6) {
    for (const double signed_x : {x, -x}) {
      const double degrees = ReduceDegrees(signed_x);
      EXPECT_TRUE(std::isnan(degrees) || (degrees >= 0.0 && degrees < 360.0)) << signed_x;
      const double radians = ReduceRadians(signed_x);
      EXPECT_TRUE(std::isnan(radians) || (radians >= 0.0 && radians < kTwoPi)) << signed_x;
    }
  }
  EXPECT_TRUE(std::isnan(ReduceDegrees(kNan)));
  EXPECT_TRUE(std::isnan(ReduceDegrees(kInfinity)));
  EXPECT_TRUE(std::isnan(ReduceRadians(-kInfinity)));
}

TEST(ReduceArcseconds, BringsEveryAngleIntoOneTurn) {
  EXPECT_EQ(ReduceArcseconds(0.0), 0.0);
  EXPECT_EQ(ReduceArcseconds(1296000.0), 0.0);
  EXPECT_EQ(ReduceArcseconds(1296000.5), 0.5);
  EXPECT_EQ(ReduceArcseconds(-0.5), 1295999.5);
  EXPECT_EQ(ReduceArcseconds(-3 * 1296000.0), 0.0);
  EXPECT_TRUE(std::isnan(ReduceArcseconds(kNan)));
  EXPECT_TRUE(std::isnan(ReduceArcseconds(-kInfinity)));
}

}  // namespace
}  // namespace zenithor
