#pragma once

#include "numerics/pair.h"

namespace zenithor {

// An angle as quarter turns and what is left of it [rad], |rest| <= pi / 4 (1 + 2^-50).
struct QuarterTurns {
  unsigned quarters;  // 0 to 3, counted modulo 4
  Pair rest;
};

// For finite |angle| >= 2^24 rad, to 2^-70 of the rest: the digits of 2 / pi are multiplied by the
// angle, those alone that neither make whole turns nor are too small to count (M. H. Payne and R.
// N. Hanek, Radian reduction for trigonometric functions, SIGNUM Newsletter 18, 1983). Slow: some
// tens of nanoseconds.
QuarterTurns ReduceFarAngle(double angle);

}  // namespace zenithor
