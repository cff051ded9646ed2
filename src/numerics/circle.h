#pragma once

namespace zenithor {

// The full circle: an arctangent that knows its quadrant, and reduction by whole turns.

// Angle of the point (x, y) from the positive x axis, counterclockwise [rad], 0 to 2 pi: on the
// axes exactly 0, pi / 2, pi or 3 pi / 2, and 0 for the origin. A point below the positive x axis
// by less than rounding gives 2 pi itself. Elsewhere not-a-number in gives not-a-number out.
double FullCircleArctan(double x, double y);

// `rest` after `turn` was subtracted, each time rounded, while it is above `limit` (or,
// `inclusive`, equal to it): what the plain loop gives to the bit, in a few hundred steps at most.
// Not-a-number when a subtraction no longer changes the number, where the plain loop would never
// end. 0 <= limit, 0 < turn.
double SubtractTurns(double rest, double turn, double limit, bool inclusive);

// x [deg] reduced to [0, 360): a subtraction of whole turns, then single turns while the result is
// outside. Ends for every input; not-a-number for infinities, not-a-number and numbers so large
// that what the first subtraction leaves no longer feels a turn.
double ReduceDegrees(double x);

// x [rad] reduced to [0, 2 pi), in the same way.
double ReduceRadians(double x);

}  // namespace zenithor
