#include "numerics/circle.h"

#include <cmath>
#include <limits>

#include "numerics/constants.h"
#include "numerics/integers.h"

namespace zenithor {

double SubtractTurns(double rest, double turn, double limit, bool inclusive) {
  const auto outside = [&](double x) { return x > limit || (inclusive && x == limit); };
  while (outside(rest)) {
    const double next = rest - turn;
    if (next == rest) {
      return std::numeric_limits<double>::quiet_NaN();
    }
    rest = next;
    const double power_of_two = std::ldexp(1.0, std::ilogb(rest));
    if (power_of_two > 4.0 * turn) {
      // Between one power of two and the next every subtraction rounds to the same change, once a
      // subtraction made there has left the last bit even: a run of them is one exact product.
      const double settled = rest - turn;
      const double change = settled - (settled - turn);
      const double steps = std::floor((settled - std::fmax(power_of_two, limit)) / change) - 2.0;
      if (steps > 0.0) {
        rest = settled - steps * change;
      }
    }
  }
  return rest;
}

double FullCircleArctan(double x, double y) {
  if (x == 0.0) {
    return y < 0.0 ? 1.5 * kPi : y > 0.0 ? 0.5 * kPi : 0.0;
  }
  if (y == 0.0) {
    return x < 0.0 ? kPi : 0.0;
  }
  const double quadrant = x < 0.0 ? kPi : y < 0.0 ? kTwoPi : 0.0;
  return std::atan(y / x) + quadrant;
}

namespace {

double ReduceTurns(double x, double turn, double whole_turns) {
  x -= turn * whole_turns;
  if (x < 0.0) {
    // A number below 0 by less than rounding becomes a whole turn, which goes off again.
    x = 0.0 - SubtractTurns(-x, turn, 0.0, false);
  }
  return SubtractTurns(x, turn, turn, true);
}

}  // namespace

double ReduceDegrees(double x) { return ReduceTurns(x, 360.0, IntegerPart(x / 360.0)); }

double ReduceRadians(double x) { return ReduceTurns(x, kTwoPi, std::floor(x / kTwoPi)); }

}  // namespace zenithor
