#include "numerics/polynomials.h"

namespace zenithor {

double EvaluatePolynomial(const double* coefficients, unsigned degree, double x) {
  double sum = coefficients[degree];
  for (unsigned k = degree; k > 0; --k) {
    sum = sum * x + coefficients[k - 1];
  }
  return sum;
}

}  // namespace zenithor
