#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "numerics/cycle_watch.h"

namespace zenithor {
namespace {

TEST(SameBits, TellsZerosOfEitherSignAndNeighboursApart) {
  EXPECT_FALSE(SameBits(0.0, -0.0));
  EXPECT_TRUE(SameBits(-0.0, -0.0));
  EXPECT_FALSE(SameBits(1.0, std::nextafter(1.0, 2.0)));
}

TEST(CycleWatch, FindsEveryCycleAndNothingBeforeIt) {
  for (const int approach : {0, 1, 2, 7, 100, 1000}) {
    for (const int length : {1, 2, 3, 5, 64, 65, 1000}) {
      CycleWatch watch;
      int value = 0;
      int seen = 1;
      while (!watch.Repeats(value)) {
        value = value == approach + length - 1 ? approach : value + 1;
        ++seen;
        ASSERT_LT(seen, 10000);
      }
      // The kept value lies in the cycle, and a whole cycle fits before its renewal, at the latest
      // once the power of two has passed both.
      EXPECT_GT(seen, approach + length) << approach << " " << length;
      EXPECT_LE(seen, 4 * std::max(approach + 1, length) + length) << approach << " " << length;
    }
  }
}

TEST(CycleWatch, MayBeginWithTheValueAnIterationStartsFrom) {
  CycleWatch watch{0.25};
  EXPECT_FALSE(watch.Repeats(0.5));
  CycleWatch at_rest{0.25};
  EXPECT_TRUE(at_rest.Repeats(0.25));
}

}  // namespace
}  // namespace zenithor
