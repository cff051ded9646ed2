#pragma once

namespace zenithor {

// Polynomial in x whose coefficients are listed from the highest power down, as the theories of
// this room print them.
template <int n>
double Horner(const double (&falling)[n], double x) {
  double sum = falling[0];
  for (int k = 1; k < n; ++k) {
    sum = sum * x + falling[k];
  }
  return sum;
}

}  // namespace zenithor
