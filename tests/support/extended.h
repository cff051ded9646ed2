#pragma once

#include <cstddef>

namespace zenithor::testing {

// For second evaluations in extended precision.
constexpr long double kExtendedPi = 3.14159265358979323846264338327950288L;
constexpr long double kExtendedDegree = kExtendedPi / 180.0L;  // [rad]

// c0 + c1 x + c2 x^2 + ...
template <std::size_t count>
long double ExtendedPolynomial(const long double (&coefficients)[count], long double x) {
  long double sum = 0.0L;
  long double power = 1.0L;
  for (const long double coefficient : coefficients) {
    sum += coefficient * power;
    power *= x;
  }
  return sum;
}

}  // namespace zenithor::testing
