#pragma once

namespace zenithor {

// A function of time between equidistant values. At each node stands the polynomial of degree eight
// through the nine values around it; between two nodes one goes over into the other, by a weight
// whose first and second derivative are 0 at both. So value, rate and bend are continuous. The
// interpolant is never farther from a function f than 5.4e-4 h^9 max|f^(9)|, h being the distance
// of the nodes: the remainders are f^(9) / 9! (s - 0) ... (s - 8) h^9 and the like one node later.
// Source: M. Abramowitz, I. A. Stegun, Handbook of Mathematical Functions, 25.2.1 and 25.2.3.

constexpr int kInterpolantNodes = 10;
constexpr int kNodesBefore = 4;  // nodes before the interval of use

// A position s is counted in node distances from the first of the ten: 4 <= s <= 5.
struct Interpolant {
  double differences[kInterpolantNodes];  // Newton's, forward from the first node
};

// Values that are `period` apart count as the same (0: none do); neighbours have to be less than
// half a period apart.
Interpolant InterpolantThrough(const double (&values)[kInterpolantNodes], double period);

double InterpolantValue(const Interpolant& interpolant, double s);

// The derivative [unit per node distance].
double InterpolantRate(const Interpolant& interpolant, double s);

}  // namespace zenithor
