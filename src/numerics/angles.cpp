#include "numerics/angles.h"

#include <cmath>
#include <limits>

#include "numerics/constants.h"
#include "numerics/extended.h"
#include "numerics/integers.h"
#include "numerics/turns.h"

namespace zenithor {

namespace {

constexpr Extended kTurnsPerRadian = {0x1.45f306dc9c883p-3, -0x1.6bp-57};  // 1 / 2 pi

// x less `whole_turns` turns, then brought into [0, turn) by single turns.
double ReduceBySingleTurns(double x, double turn, double whole_turns) {
  x -= turn * whole_turns;
  // A number below 0 by less than rounding becomes a whole turn, which goes off again.
  x = SubtractTurns(LiftAboveZero(x, turn), turn, turn, true);
  return x < 0.0 || x >= turn ? std::numeric_limits<double>::quiet_NaN() : x;
}

}  // namespace

double ReduceAngle(double angle) {
  const double turns = TimesExtended(angle, kTurnsPerRadian);
  return angle - std::floor(turns) * kTwoPi;
}

double ReduceAngleSigned(double angle) {
  const double turns = TimesExtended(angle, kTurnsPerRadian);
  return angle - std::floor(turns + 0.5) * kTwoPi;
}

double ReduceDegrees(double x) { return ReduceBySingleTurns(x, 360.0, IntegerPart(x / 360.0)); }

double ReduceRadians(double x) { return ReduceBySingleTurns(x, kTwoPi, std::floor(x / kTwoPi)); }

double ReduceArcseconds(double x) {
  return x - kArcsecondsPerTurn * std::floor(x / kArcsecondsPerTurn);
}

}  // namespace zenithor
