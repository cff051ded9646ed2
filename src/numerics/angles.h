#pragma once

namespace zenithor {

// Reduction of an angle to one turn, for every unit. The chapters print the reduction each in its
// own form, and the forms round differently, so each is here: none can stand in for another.

// Radians to [0, 2 pi): a - floor(a / 2 pi) 2 pi, with 1 / 2 pi held in extended precision. A value
// within rounding of a boundary may come out at either end. NaN and infinities give NaN.
double ReduceAngle(double angle);

// Radians to [-pi, pi), likewise.
double ReduceAngleSigned(double angle);

// Degrees to [0, 360), as the orbits of small bodies are reduced: x less the whole number of turns
// in x / 360, then single turns while the result is outside. Ends for every input (turns.h); NaN
// for NaN, infinities, and numbers so large that what the first subtraction leaves no longer feels
// a turn.
double ReduceDegrees(double x);

// Radians to [0, 2 pi), in the same way, the whole number of turns taken by a floor.
double ReduceRadians(double x);

// Arcseconds to [0, 1296000), as the orbits' series are reduced: x - 1296000 floor(x / 1296000). A
// value within rounding of a boundary may come out at either end. NaN and infinities give NaN.
double ReduceArcseconds(double x);

}  // namespace zenithor
