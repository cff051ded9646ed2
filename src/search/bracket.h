#pragma once

#include <cmath>

namespace zenithor {

// The root of a continuous function between two moments at which its signs differ.

struct BracketEnd {
  double t;
  double y;
};

// Where the chord from a to b is 0, kept within the bracket.
inline double ChordRoot(const BracketEnd& a, const BracketEnd& b) {
  const double t = a.t - a.y * ((b.t - a.t) / (b.y - a.y));
  return t > a.t ? (t < b.t ? t : b.t) : a.t;
}

// Narrows the bracket (a.t < b.t, signs of y different; 0 counts as positive) to 2 `half_width` or
// to two neighbouring numbers, whichever comes first, and returns the moment in it where the chord
// is 0. `y_of(t)` is called at most 4 log2((b.t - a.t) / (2 half_width)) + 4 times whatever the
// function is; smooth ones take about eight calls from some days to 1e-9 day. A value of exactly 0
// ends it at once; NaN gives NaN. A function that jumps across 0 gets the moment of its jump.
// Inverse quadratic interpolation where it can be trusted, else bisection; three calls that do not
// halve the bracket are followed by a bisection.
// Source: T. R. Chandrupatla, A new hybrid quadratic/bisection algorithm for finding the zero of a
// nonlinear function without using derivatives, Advances in Engineering Software 28 (1997).
template <class Callable>
double RootInBracket(BracketEnd a, BracketEnd b, double half_width, Callable y_of) {
  // The newest point, the other end of the bracket, and the point before these.
  BracketEnd p1 = a;
  BracketEnd p2 = b;
  BracketEnd p3{};
  double part = a.y / (a.y - b.y);  // of the way from p1 to p2
  double width = b.t - a.t;
  double halve_to = 0.5 * width;
  int calls_without_halving = 0;
  while (width > 2.0 * half_width) {
    const double least = half_width / width;
    part = part > least ? (part < 1.0 - least ? part : 1.0 - least) : least;
    double t = p1.t + part * (p2.t - p1.t);
    if (!(t > a.t && t < b.t)) {
      t = a.t + 0.5 * width;
      if (!(t > a.t && t < b.t)) {
        break;
      }
    }
    const double y = y_of(t);
    if (std::isnan(y) || y == 0.0) {
      return std::isnan(y) ? y : t;
    }
    if ((y >= 0.0) == (p1.y >= 0.0)) {
      p3 = p1;
    } else {
      p3 = p2;
      p2 = p1;
    }
    p1 = {t, y};
    a = p1.t < p2.t ? p1 : p2;
    b = p1.t < p2.t ? p2 : p1;
    width = b.t - a.t;
    ++calls_without_halving;
    if (width <= halve_to) {
      halve_to = 0.5 * width;
      calls_without_halving = 0;
    }
    const double xi = (p1.t - p2.t) / (p3.t - p2.t);
    const double phi = (p1.y - p2.y) / (p3.y - p2.y);
    const bool trusted = phi * phi < xi && (1.0 - phi) * (1.0 - phi) < 1.0 - xi;
    part = trusted && calls_without_halving < 3
               ? p1.y / (p2.y - p1.y) * (p3.y / (p2.y - p3.y)) +
                     (p3.t - p1.t) / (p2.t - p1.t) * (p1.y / (p3.y - p1.y)) * (p2.y / (p3.y - p2.y))
               : 0.5;
  }
  return ChordRoot(a, b);
}

}  // namespace zenithor
