// The full-circle arctangent, the reduction by whole turns, and the multiples of an angle.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "numerics/circle.h"
#include "numerics/constants.h"
#include "numerics/multiples.h"

namespace zenithor {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
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

// The loop that SubtractTurns stands for.
double PlainLoop(double rest, double turn, double limit, bool inclusive) {
  while (rest > limit || (inclusive && rest == limit)) {
    rest -= turn;
  }
  return rest;
}

TEST(SubtractTurns, IsThePlainLoopToTheBit) {
  for (const double turn : {360.0, kTwoPi, 1.0, 0.1}) {
    double rest = turn / 3.0;
    for (int k = 0; k < 40; ++k, rest *= 1.37) {
      EXPECT_EQ(SubtractTurns(rest, turn, 0.0, false), PlainLoop(rest, turn, 0.0, false));
      EXPECT_EQ(SubtractTurns(rest, turn, turn, true), PlainLoop(rest, turn, turn, true));
    }
  }
}

TEST(SubtractTurns, IsThePlainLoopWhereEverySubtractionRounds) {
  // Between 2^53 and 2^60 a turn is not a multiple of the last place; from 2^57 on 360 lies on the
  // tie between two of them. 2000 turns from each start.
  for (int power = 52; power <= 60; ++power) {
    for (const double turn : {360.0, kTwoPi}) {
      for (int start = 0; start < 5; ++start) {
        const double last_place = std::ldexp(1.0, power - 52);
        const double rest = std::ldexp(1.0, power) + (37.0 * start) * last_place + 1000.0 * turn;
        if (rest - turn == rest) {
          EXPECT_TRUE(std::isnan(SubtractTurns(rest, turn, 0.0, false)));
          continue;
        }
        const double limit = rest - 2000.0 * turn;
        EXPECT_EQ(SubtractTurns(rest, turn, limit, false), PlainLoop(rest, turn, limit, false))
            << power << " " << turn;
      }
    }
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
  EXPECT_TRUE(std::isnan(SubtractTurns(kInfinity, 360.0, 0.0, false)));
}

TEST(FillMultiples, FollowsTheSinesAndCosines) {
  MultiplesRow row;
  for (const double angle : {0.0, 0.3, -2.0, 3.0, 6.1}) {
    FillMultiples(angle, kMultipleLimit, row);
    for (int j = 1; j <= kMultipleLimit; ++j) {
      // Thirty angle additions, each rounded three times.
      EXPECT_NEAR(row.sine[j - 1], std::sin(j * angle), 2e-14);
      EXPECT_NEAR(row.cosine[j - 1], std::cos(j * angle), 2e-14);
    }
  }
}

TEST(FillMultiples, OfZeroAreExactlyZeroAndOne) {
  MultiplesRow row;
  FillMultiples(0.0, kMultipleLimit, row);
  for (int j = 0; j < kMultipleLimit; ++j) {
    EXPECT_EQ(row.sine[j], 0.0);
    EXPECT_EQ(row.cosine[j], 1.0);
  }
}

TEST(AddMultiple, CombinesMultiplesOfEitherSign) {
  MultiplesRow a;
  MultiplesRow b;
  FillMultiples(0.7, 5, a);
  FillMultiples(1.9, 5, b);
  AngleSum sum;
  AddMultiple(0, a, sum);
  EXPECT_TRUE(sum.empty);
  AddMultiple(-3, a, sum);
  AddMultiple(5, b, sum);
  EXPECT_NEAR(sum.sine, std::sin(-3 * 0.7 + 5 * 1.9), 1e-14);
  EXPECT_NEAR(sum.cosine, std::cos(-3 * 0.7 + 5 * 1.9), 1e-14);
}

}  // namespace
}  // namespace zenithor
