// The interpolant against functions whose values are known.

#include <gtest/gtest.h>

#include <cmath>

#include "search/interpolant.h"

namespace zenithor {
namespace {

template <class Function>
Interpolant Through(Function f, double first, double step, double period = 0.0) {
  double values[kInterpolantNodes];
  for (int i = 0; i < kInterpolantNodes; ++i) {
    const double x = f(first + i * step);
    values[i] = period > 0.0 ? x - period * std::floor(x / period) : x;
  }
  return InterpolantThrough(values, period);
}

TEST(Interpolant, IsExactForPolynomialsOfDegreeEight) {
  const auto f = [](double x) {
    return 1.0 + x * (2.0 - x * x * (0.5 - x * x * x * x * x * 1e-3));
  };
  const auto rate = [](double x) { return 2.0 - 1.5 * x * x + 8e-3 * std::pow(x, 7.0); };
  const Interpolant interpolant = Through(f, -4.5, 1.0);
  for (double s = 4.0; s <= 5.0; s += 0.0625) {
    EXPECT_NEAR(InterpolantValue(interpolant, s), f(s - 4.5), 1e-11);
    EXPECT_NEAR(InterpolantRate(interpolant, s), rate(s - 4.5), 1e-10);
  }
}

// All derivatives of a sine are at most 1, so that the bound is that of the header. The remainders
// of the two polynomials have different signs; what is left is half the bound, so it is not idle.
TEST(Interpolant, IsAsCloseAsItsRemainderSays) {
  const auto sine = [](double x) { return std::sin(x); };
  for (const double step : {0.5, 0.25}) {
    const double bound = 5.4e-4 * std::pow(step, 9.0);
    double worst = 0.0;
    for (double first = 0.0; first < 6.3; first += 0.01) {
      const Interpolant interpolant = Through(sine, first, step);
      for (double s = 4.0; s <= 5.0; s += 0.125) {
        const double error =
            std::fabs(InterpolantValue(interpolant, s) - std::sin(first + s * step));
        worst = std::fmax(worst, error);
      }
    }
    EXPECT_LE(worst, bound + 1e-14);
    EXPECT_GE(worst, 0.45 * bound);
  }
}

// Where one interval ends and the next begins, value, rate and bend are the same.
TEST(Interpolant, GoesOnSmoothlyFromIntervalToInterval) {
  const auto f = [](double x) { return std::exp(std::sin(3.0 * x)); };
  const Interpolant before = Through(f, 0.0, 0.5);
  const Interpolant after = Through(f, 0.5, 0.5);
  constexpr double kNear = 1e-4;
  EXPECT_NEAR(InterpolantValue(before, 5.0), InterpolantValue(after, 4.0), 1e-13);
  EXPECT_NEAR(InterpolantRate(before, 5.0), InterpolantRate(after, 4.0), 1e-12);
  const double bend_before =
      (InterpolantRate(before, 5.0) - InterpolantRate(before, 5.0 - kNear)) / kNear;
  const double bend_after =
      (InterpolantRate(after, 4.0 + kNear) - InterpolantRate(after, 4.0)) / kNear;
  EXPECT_NEAR(bend_before, bend_after, 2e-2 * std::fabs(bend_before));
}

TEST(Interpolant, RunsOnWhereAnAngleComesRound) {
  const auto angle = [](double x) { return 350.0 + 13.0 * x + 0.1 * x * x; };
  const Interpolant interpolant = Through(angle, -4.0, 1.0, 360.0);
  for (double s = 4.0; s <= 5.0; s += 0.25) {
    EXPECT_NEAR(std::remainder(InterpolantValue(interpolant, s) - angle(s - 4.0), 360.0), 0.0,
                1e-10);
    EXPECT_NEAR(InterpolantRate(interpolant, s), 13.0 + 0.2 * (s - 4.0), 1e-10);
  }
}

}  // namespace
}  // namespace zenithor
