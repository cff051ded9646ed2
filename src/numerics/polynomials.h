#pragma once

namespace zenithor {

// c[0] + c[1] x + ... + c[degree] x^degree by Horner's rule from the highest power.
// `coefficients` holds degree + 1 values in rising powers.
double EvaluatePolynomial(const double* coefficients, unsigned degree, double x);

}  // namespace zenithor
