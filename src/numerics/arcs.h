#pragma once

namespace zenithor {

// Arctangent, arcsine and arccosine [rad], the same bits on every platform: the arctangents within
// 0.6 ulp of the true value for every argument, the other two within 0.7.

// In [-pi/2, pi/2]; -0 for -0, NaN for NaN.
double Arctangent(double x);

// The angle of the point (x, y) in [-pi, pi], with the signs of zeros, infinities and NaN as C's
// atan2 has them.
double ArctangentOfPoint(double y, double x);

// In [-pi/2, pi/2] and [0, pi]; NaN for NaN and beyond -1 and 1.
double Arcsine(double x);
double Arccosine(double x);

}  // namespace zenithor
