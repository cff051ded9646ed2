#include "time/angles.h"

#include <cmath>
#include <limits>

#include "time/constants.h"

namespace zenithor {

namespace {

constexpr long double kTurnsPerRadian = 0.159154943091895335768883763372514362L;  // 1 / 2 pi

}  // namespace

double IntegerPart(double x) {
  double whole = 0.0;
  std::modf(x, &whole);
  return whole;
}

double ReduceAngle(double angle) {
  const auto turns = static_cast<double>(angle * kTurnsPerRadian);
  return angle - std::floor(turns) * kTwoPi;
}

double ReduceAngleSigned(double angle) {
  const auto turns = static_cast<double>(angle * kTurnsPerRadian);
  return angle - std::floor(turns + 0.5) * kTwoPi;
}

double EvaluatePolynomial(const double* coefficients, unsigned degree, double x) {
  double sum = coefficients[degree];
  for (unsigned k = degree; k > 0; --k) {
    sum = sum * x + coefficients[k - 1];
  }
  return sum;
}

std::int32_t TruncateToInt32(double x) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(x)) {
    return 0;
  }
  if (x <= static_cast<double>(Limits::min())) {
    return Limits::min();
  }
  if (x >= static_cast<double>(Limits::max())) {
    return Limits::max();
  }
  return static_cast<std::int32_t>(x);
}

}  // namespace zenithor
