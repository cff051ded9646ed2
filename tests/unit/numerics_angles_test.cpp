#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/integers.h"
#include "numerics/polynomials.h"

namespace zenithor {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(IntegerPart, TruncatesTowardZero) {
  EXPECT_EQ(IntegerPart(2.9), 2.0);
  EXPECT_EQ(IntegerPart(-2.9), -2.0);
  EXPECT_EQ(IntegerPart(0.0), 0.0);
}

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

TEST(ReduceAngle, GivesNotANumberForWhatIsNotFinite) {
  EXPECT_TRUE(std::isnan(ReduceAngle(kNan)));
  EXPECT_TRUE(std::isnan(ReduceAngle(kInfinity)));
  EXPECT_TRUE(std::isnan(ReduceAngleSigned(-kInfinity)));
}

TEST(EvaluatePolynomial, OfDegreeZeroIsItsCoefficient) {
  const double c[] = {4.25};
  EXPECT_EQ(EvaluatePolynomial(c, 0, 1e300), 4.25);
  EXPECT_EQ(EvaluatePolynomial(c, 0, -7.0), 4.25);
}

TEST(EvaluatePolynomial, TakesCoefficientsInRisingPowers) {
  const double c[] = {1.0, -2.0, 0.5, 3.0};
  EXPECT_EQ(EvaluatePolynomial(c, 3, 2.0), 1.0 - 4.0 + 2.0 + 24.0);
}

TEST(TruncateToInt32, TruncatesTowardZero) {
  EXPECT_EQ(TruncateToInt32(59.9), 59);
  EXPECT_EQ(TruncateToInt32(-59.9), -59);
  EXPECT_EQ(TruncateToInt32(-0.5), 0);
}

TEST(TruncateToInt32, SaturatesBeyondTheRangeAndIsZeroForNotANumber) {
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(TruncateToInt32(2147483647.0), kMax);
  EXPECT_EQ(TruncateToInt32(2147483646.9), kMax - 1);
  EXPECT_EQ(TruncateToInt32(2147483648.0), kMax);
  EXPECT_EQ(TruncateToInt32(1e300), kMax);
  EXPECT_EQ(TruncateToInt32(kInfinity), kMax);
  EXPECT_EQ(TruncateToInt32(-2147483648.0), kMin);
  EXPECT_EQ(TruncateToInt32(-1e300), kMin);
  EXPECT_EQ(TruncateToInt32(-kInfinity), kMin);
  EXPECT_EQ(TruncateToInt32(kNan), 0);
}

}  // namespace
}  // namespace zenithor
