#include <gtest/gtest.h>

#include "rising/interpolation.h"

namespace zenithor {
namespace {

TEST(Interpolate, MeetsTheDistanceOfMarsIn1992) {
  // Meeus, example 3.a: 1992 November 7, 8, 9 at 0h; 4h21m after the middle one: 0.876125 au,
  // printed to six places.
  const ThreeValues distance{0.884226, 0.877366, 0.870531};
  EXPECT_NEAR(Interpolate(distance, 4.35 / 24.0), 0.876125, 5e-7);
}

TEST(Interpolate, GoesThroughTheThreeValues) {
  const ThreeValues values{2.0, -1.0, 7.0};
  EXPECT_EQ(Interpolate(values, -1.0), 2.0);
  EXPECT_EQ(Interpolate(values, 0.0), -1.0);
  EXPECT_EQ(Interpolate(values, 1.0), 7.0);
}

TEST(Interpolate, IsExactForAParabola) {
  // 3 n^2 - 5 n + 2.
  EXPECT_EQ(Interpolate({10.0, 2.0, 0.0}, 1.5), 3.0 * 2.25 - 7.5 + 2.0);
}

}  // namespace
}  // namespace zenithor
