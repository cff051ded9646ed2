#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "numerics/constants.h"
#include "numerics/turns.h"

namespace zenithor {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// The loops that SubtractTurns and LiftAboveZero stand for.
double PlainLoop(double rest, double turn, double limit, bool inclusive) {
  while (rest > limit || (inclusive && rest == limit)) {
    rest -= turn;
  }
  return rest;
}

double PlainLift(double x, double turn) {
  while (x < 0.0) {
    x += turn;
  }
  return x;
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
          EXPECT_EQ(SubtractTurns(rest, turn, 0.0, false), rest);
          continue;
        }
        const double limit = rest - 2000.0 * turn;
        EXPECT_EQ(SubtractTurns(rest, turn, limit, false), PlainLoop(rest, turn, limit, false))
            << power << " " << turn;
      }
    }
  }
}

TEST(SubtractTurns, LeavesWhatNoTurnChanges) {
  EXPECT_EQ(SubtractTurns(kInfinity, 360.0, 0.0, false), kInfinity);
  EXPECT_EQ(SubtractTurns(1e300, 360.0, 0.0, false), 1e300);
  EXPECT_TRUE(std::isnan(SubtractTurns(kNan, 360.0, 0.0, false)));
}

TEST(LiftAboveZero, IsThePlainLoopToTheBit) {
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> exponent(-3.0, 22.0);
  for (int k = 0; k < 500; ++k) {
    const double start = -std::exp2(exponent(random));
    for (const double turn : {360.0, kTwoPi}) {
      ASSERT_EQ(LiftAboveZero(start, turn), PlainLift(start, turn)) << start;
    }
  }
}

TEST(LiftAboveZero, GivesAPositiveZeroForWholeTurns) {
  EXPECT_EQ(LiftAboveZero(-720.0, 360.0), 0.0);
  EXPECT_FALSE(std::signbit(LiftAboveZero(-720.0, 360.0)));
}

TEST(LiftAboveZero, EndsForEveryNumber) {
  EXPECT_EQ(LiftAboveZero(0.0, kTwoPi), 0.0);
  EXPECT_EQ(LiftAboveZero(7.0, kTwoPi), 7.0);
  EXPECT_EQ(LiftAboveZero(kInfinity, kTwoPi), kInfinity);
  EXPECT_EQ(LiftAboveZero(-kInfinity, kTwoPi), -kInfinity);
  EXPECT_EQ(LiftAboveZero(-1e300, kTwoPi), -1e300);
  EXPECT_TRUE(std::isnan(LiftAboveZero(kNan, kTwoPi)));
  for (double start = -1.0; start > -1e16; start *= 1.7) {
    const double lifted = LiftAboveZero(start, kTwoPi);
    EXPECT_GE(lifted, 0.0) << start;
    EXPECT_LT(lifted, kTwoPi) << start;
  }
}

}  // namespace
}  // namespace zenithor
