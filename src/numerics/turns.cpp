#include "numerics/turns.h"

#include <cmath>

namespace zenithor {

double SubtractTurns(double rest, double turn, double limit, bool inclusive) {
  const auto outside = [&](double x) { return x > limit || (inclusive && x == limit); };
  while (outside(rest)) {
    const double next = rest - turn;
    if (next == rest) {
      return rest;
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

double LiftAboveZero(double x, double turn) {
  // Rounding is the same on either side of 0. From 0.0, so that a lift to 0 gives +0.
  return x < 0.0 ? 0.0 - SubtractTurns(-x, turn, 0.0, false) : x;
}

}  // namespace zenithor
