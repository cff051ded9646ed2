#pragma once

namespace zenithor {

// The natural logarithm, the same bits on every platform, within 0.7 ulp of the true value.
// -infinity for 0, infinity for infinity, NaN for NaN and below 0.
double Logarithm(double x);

}  // namespace zenithor
