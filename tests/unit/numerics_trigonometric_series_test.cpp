#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "numerics/trigonometric_series.h"

namespace zenithor {
namespace {

struct Row {
  int multipliers[3];
  double sine, cosine;
};

constexpr Row kRows[] = {
    {{1, 0, 0}, 2.0, 0.5},  {{0, -2, 1}, -3.0, 0.25}, {{3, 1, -1}, 0.125, 7.0},
    {{0, 0, 0}, 5.0, 11.0}, {{0, 0, 4}, 1.0, -1.0},
};

struct Sums {
  double sine, cosine;
};

Sums SumCompiledRows(const double (&angles)[3]) {
  return SumRows<Sums, kRows>(angles, [](const Row& row, double cosine, double sine, Sums& sums) {
    sums.sine += row.sine * sine;
    sums.cosine += row.cosine * cosine;
  });
}

TEST(SumRows, IsTheSumOverTheTable) {
  const double angles[] = {0.4, 2.7, 5.9};
  Sums plain{0.0, 0.0};
  for (const Row& row : kRows) {
    double argument = 0.0;
    for (int k = 0; k < 3; ++k) {
      argument += row.multipliers[k] * angles[k];
    }
    plain.sine += row.sine * std::sin(argument);
    plain.cosine += row.cosine * std::cos(argument);
  }
  const Sums sums = SumCompiledRows(angles);
  // Sines and cosines are within 1.3e-16 and those of the C library within an ulp.
  EXPECT_NEAR(sums.sine, plain.sine, 1e-14);
  EXPECT_NEAR(sums.cosine, plain.cosine, 1e-14);
}

TEST(SumRows, LeavesOutWhatIsMultipliedByZero) {
  static constexpr Row kFirstAngleAlone[] = {{{2, 0, 0}, 1.0, 0.0}};
  const double angles[] = {0.5, std::numeric_limits<double>::quiet_NaN(), 1.0};
  const double sum =
      SumRows<double, kFirstAngleAlone>(angles, [](const Row& row, double /*cosine*/, double sine,
                                                   double& total) { total += row.sine * sine; });
  EXPECT_NEAR(sum, std::sin(1.0), 1e-15);
}

}  // namespace
}  // namespace zenithor
