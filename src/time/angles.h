#pragma once

#include <cstdint>

namespace zenithor {

// Angle reduction, polynomials and conversion to integers: the small change of every theory.

// Integer part of x toward zero.
double IntegerPart(double x);

// Angle reduced to [0, 2 pi): a - floor(a / 2 pi) 2 pi, with 1 / 2 pi held in extended precision.
// A value within rounding of a boundary may come out at either end. Not-a-number and infinities
// give not-a-number.
double ReduceAngle(double angle);

// Angle reduced to [-pi, pi).
double ReduceAngleSigned(double angle);

// c[0] + c[1] x + ... + c[degree] x^degree by Horner's rule from the highest power.
// `coefficients` holds degree + 1 values in rising powers.
double EvaluatePolynomial(const double* coefficients, unsigned degree, double x);

// x truncated toward zero; values outside the 32-bit range saturate, not-a-number gives 0.
std::int32_t TruncateToInt32(double x);

// Adds a multiple, known to the compiler, of an angle to a sum of angles; of 0 nothing is left.
template <int multiplier>
void AddMultiple(double angle, double& sum) {
  if constexpr (multiplier != 0) {
    sum += multiplier * angle;
  }
}

}  // namespace zenithor
