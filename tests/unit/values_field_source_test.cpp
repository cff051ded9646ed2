// Fields as the search room takes them.

#include <gtest/gtest.h>

#include "values/field_source.h"

namespace zenithor {
namespace {

// The rates of a difference differ; everything that may be wrong or bend adds up.
TEST(FieldSource, BoundsOfADifferenceHoldWhateverTheTwoBodiesDo) {
  const FieldBounds a{4, 101, -1.0, 3.0, 5.0, 7.0, 11.0, 13.0, 17.0, 19.0};
  const FieldBounds b{5, 101, -0.5, 0.25, 0.125, 2.0, 4.0, 8.0, 16.0, 32.0};
  const FieldBounds difference = BoundsOfDifference(a, b);
  EXPECT_EQ(difference.lowest_rate, -1.25);
  EXPECT_EQ(difference.highest_rate, 3.5);
  EXPECT_EQ(difference.bend, 5.125);
  EXPECT_EQ(difference.bend_rate, 9.0);
  EXPECT_EQ(difference.noise, 15.0);
  EXPECT_EQ(difference.guide_error, 21.0);
  EXPECT_EQ(difference.guide_rate_error, 33.0);
  EXPECT_EQ(difference.guide_bend_error, 51.0);
}

}  // namespace
}  // namespace zenithor
