#pragma once

namespace zenithor {

// Three values at equal steps of time.
struct ThreeValues {
  double before;
  double middle;
  double after;
};

// The value at n steps after the middle one, by second differences.
// Source: Meeus, Astronomical Algorithms, formula 3.3.
inline double Interpolate(const ThreeValues& y, double n) {
  const double a = y.middle - y.before;
  const double b = y.after - y.middle;
  const double c = b - a;
  return y.middle + (n / 2.0) * (a + b + n * c);
}

}  // namespace zenithor
