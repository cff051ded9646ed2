#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "numerics/integers.h"

namespace zenithor {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(IntegerPart, TruncatesTowardZero) {
  EXPECT_EQ(IntegerPart(2.9), 2.0);
  EXPECT_EQ(IntegerPart(-2.9), -2.0);
  EXPECT_EQ(IntegerPart(0.0), 0.0);
}

TEST(TruncateToInt32, TruncatesTowardZero) {
  EXPECT_EQ(TruncateToInt32(59.9), 59);
  EXPECT_EQ(TruncateToInt32(-59.9), -59);
  EXPECT_EQ(TruncateToInt32(-0.5), 0);
}

TEST(TruncateToInt32, SaturatesBeyondTheRangeAndIsZeroForNotANumber) {
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(TruncateToInt32(2147483647.0), kMax);
  EXPECT_EQ(TruncateToInt32(2147483646.9), kMax - 1);
  EXPECT_EQ(TruncateToInt32(2147483648.0), kMax);
  EXPECT_EQ(TruncateToInt32(1e300), kMax);
  EXPECT_EQ(TruncateToInt32(kInfinity), kMax);
  EXPECT_EQ(TruncateToInt32(-2147483648.0), kMin);
  EXPECT_EQ(TruncateToInt32(-1e300), kMin);
  EXPECT_EQ(TruncateToInt32(-kInfinity), kMin);
  EXPECT_EQ(TruncateToInt32(kNan), 0);
}

}  // namespace
}  // namespace zenithor
