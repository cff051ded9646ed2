#pragma once

#include <cstddef>

namespace zenithor {

// c[0] + c[1] x + ... + c[degree] x^degree by Horner's rule from the highest power.
// `coefficients` holds degree + 1 values in rising powers.
double EvaluatePolynomial(const double* coefficients, unsigned degree, double x);

// The same, the degree taken from the size of the table.
template <std::size_t count>
double EvaluatePolynomial(const double (&coefficients)[count], double x) {
  return EvaluatePolynomial(coefficients, count - 1, x);
}

}  // namespace zenithor
