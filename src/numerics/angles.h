#pragma once

namespace zenithor {

// Reduction of an angle to one turn. Radians.

// Angle reduced to [0, 2 pi): a - floor(a / 2 pi) 2 pi, with 1 / 2 pi held in extended precision.
// A value within rounding of a boundary may come out at either end. NaN and infinities give NaN.
double ReduceAngle(double angle);

// Angle reduced to [-pi, pi), likewise.
double ReduceAngleSigned(double angle);

}  // namespace zenithor
