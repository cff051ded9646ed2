#include "numerics/angles.h"

#include <cmath>

#include "numerics/constants.h"

namespace zenithor {

namespace {

constexpr long double kTurnsPerRadian = 0.159154943091895335768883763372514362L;  // 1 / 2 pi

}  // namespace

double ReduceAngle(double angle) {
  const auto turns = static_cast<double>(angle * kTurnsPerRadian);
  return angle - std::floor(turns) * kTwoPi;
}

double ReduceAngleSigned(double angle) {
  const auto turns = static_cast<double>(angle * kTurnsPerRadian);
  return angle - std::floor(turns + 0.5) * kTwoPi;
}

}  // namespace zenithor
