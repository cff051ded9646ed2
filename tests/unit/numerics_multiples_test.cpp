// The sines and cosines of an angle's multiples.

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/multiples.h"

namespace zenithor {
namespace {

TEST(FillMultiples, FollowsTheSinesAndCosines) {
  MultiplesRow row;
  for (const double angle : {0.0, 0.3, -2.0, 3.0, 6.1}) {
    FillMultiples(angle, kMultipleLimit, row);
    for (int j = 1; j <= kMultipleLimit; ++j) {
      // Thirty angle additions, each rounded three times.
      EXPECT_NEAR(row.sine[j - 1], std::sin(j * angle), 2e-14);
      EXPECT_NEAR(row.cosine[j - 1], std::cos(j * angle), 2e-14);
    }
  }
}

TEST(FillMultiples, OfZeroAreExactlyZeroAndOne) {
  MultiplesRow row;
  FillMultiples(0.0, kMultipleLimit, row);
  for (int j = 0; j < kMultipleLimit; ++j) {
    EXPECT_EQ(row.sine[j], 0.0);
    EXPECT_EQ(row.cosine[j], 1.0);
  }
}

TEST(AddMultiple, CombinesMultiplesOfEitherSign) {
  MultiplesRow a;
  MultiplesRow b;
  FillMultiples(0.7, 5, a);
  FillMultiples(1.9, 5, b);
  AngleSum sum;
  AddMultiple(0, a, sum);
  EXPECT_TRUE(sum.empty);
  AddMultiple(-3, a, sum);
  AddMultiple(5, b, sum);
  EXPECT_NEAR(sum.sine, std::sin(-3 * 0.7 + 5 * 1.9), 1e-14);
  EXPECT_NEAR(sum.cosine, std::cos(-3 * 0.7 + 5 * 1.9), 1e-14);
}

}  // namespace
}  // namespace zenithor
