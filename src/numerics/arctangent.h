#pragma once

namespace zenithor {

// The angle of a point from the positive x axis, counterclockwise, over the whole circle [rad]. Two
// forms, as the chapters print them; they round differently, and their arguments are in the order
// of their formulas.

// By the arctangent of y / x and the quadrant; 0 to 2 pi: on the axes exactly 0, pi / 2, pi or
// 3 pi / 2, and 0 for the origin. A point below the positive x axis by less than rounding gives
// 2 pi itself. NaN in either argument gives NaN, but where the other is 0: (0, NaN) and (NaN, 0)
// count as points of an axis.
double FullCircleArctan(double x, double y);

// By the arctangent of two arguments; 0 to 2 pi, with 2 pi itself as above, and -0 for a y of -0
// with a positive x. NaN gives NaN.
double PositiveArctan(double y, double x);

}  // namespace zenithor
