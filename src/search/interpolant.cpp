#include "search/interpolant.h"

#include "search/time_function.h"

namespace zenithor {

namespace {

constexpr int kDegree = 8;
constexpr double kInverse[] = {1.0,       1.0 / 2.0, 1.0 / 3.0, 1.0 / 4.0,
                               1.0 / 5.0, 1.0 / 6.0, 1.0 / 7.0, 1.0 / 8.0};

// A function's value and rate at one position.
struct Jet {
  double value;
  double rate;
};

Jet Product(const Jet& a, const Jet& b) {
  return {a.value * b.value, a.rate * b.value + a.value * b.rate};
}

// The polynomial through the first nine nodes.
Jet FirstPolynomial(const double* differences, double s) {
  Jet jet{differences[kDegree], 0.0};
  for (int k = kDegree - 1; k >= 0; --k) {
    jet = Product({(s - k) * kInverse[k], kInverse[k]}, jet);
    jet.value += differences[k];
  }
  return jet;
}

// What the polynomial through the last nine nodes has more, over the ninth difference:
// (s - 1) ... (s - 8) / 8!.
Jet StepToSecond(double s) {
  Jet jet{1.0, 0.0};
  for (int k = 0; k < kDegree; ++k) {
    jet = Product({(s - (k + 1)) * kInverse[k], kInverse[k]}, jet);
  }
  return jet;
}

// From 0 to 1 while x does the same.
Jet Weight(double x) {
  return {x * x * x * (10.0 + x * (6.0 * x - 15.0)), 30.0 * x * x * (1.0 - x) * (1.0 - x)};
}

Jet At(const Interpolant& interpolant, double s) {
  const double* const d = interpolant.differences;
  const Jet first = FirstPolynomial(d, s);
  const Jet step = Product(Weight(s - kNodesBefore), StepToSecond(s));
  return {first.value + d[kDegree + 1] * step.value, first.rate + d[kDegree + 1] * step.rate};
}

}  // namespace

Interpolant InterpolantThrough(const double (&values)[kInterpolantNodes], double period) {
  Interpolant made{};
  double* const d = made.differences;
  d[0] = values[0];
  for (int i = 1; i < kInterpolantNodes; ++i) {
    d[i] = d[i - 1] + Departure(values[i], values[i - 1], period);
  }
  for (int order = 1; order < kInterpolantNodes; ++order) {
    for (int i = kInterpolantNodes - 1; i >= order; --i) {
      d[i] -= d[i - 1];
    }
  }
  return made;
}

double InterpolantValue(const Interpolant& interpolant, double s) {
  return At(interpolant, s).value;
}

double InterpolantRate(const Interpolant& interpolant, double s) { return At(interpolant, s).rate; }

}  // namespace zenithor
