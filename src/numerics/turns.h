#pragma once

namespace zenithor {

// Whole turns subtracted or added one by one, each time rounded, as loops in the published methods
// do it. The result is that of the plain loop to the bit, in a few hundred steps at most: runs of
// turns that all round alike are taken at once. A turn may have any unit; 0 < turn.

// `rest` after `turn` was subtracted while it is above `limit` (or, `inclusive`, equal to it). A
// number so large that subtracting a turn does not change it, where the plain loop would never
// end, stays there, above the limit; so does infinity. NaN stays. 0 <= limit.
double SubtractTurns(double rest, double turn, double limit, bool inclusive);

// `x` after `turn` was added while it is negative. A number so far below 0 that adding a turn does
// not change it stays negative; so does minus infinity. NaN stays.
double LiftAboveZero(double x, double turn);

}  // namespace zenithor
