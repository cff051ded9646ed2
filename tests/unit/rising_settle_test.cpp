#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "rising/settle.h"

namespace zenithor {
namespace {

TEST(Settle, EndsWithTheCorrectedValueOfTheFirstSmallCorrection) {
  const Settled exact = Settle(0.5, [](double) { return 0.0002; });
  EXPECT_EQ(exact.value, 0.5 + 0.0002);
  EXPECT_EQ(exact.run.steps, 1);
  EXPECT_EQ(exact.run.ending, Ending::kSettled);

  // Halving the distance to 1 from 0: corrections 1/2, 1/4, ... 1/8192 is the first below 0.0002.
  const Settled halving = Settle(0.0, [](double m) { return (1.0 - m) / 2.0; });
  EXPECT_EQ(halving.value, 1.0 - 1.0 / 8192.0);
  EXPECT_EQ(halving.run.steps, 13);
}

TEST(Settle, EndsAtACorrectionThatIsNotANumber) {
  const Settled now = Settle(0.5, [](double) { return std::nan(""); });
  EXPECT_TRUE(std::isnan(now.value));
  EXPECT_EQ(now.run.steps, 1);
  EXPECT_EQ(now.run.ending, Ending::kNotANumber);

  const Settled start = Settle(std::nan(""), [](double m) { return -m; });
  EXPECT_TRUE(std::isnan(start.value));
  EXPECT_EQ(start.run.ending, Ending::kNotANumber);

  // Infinity less infinity.
  const Settled overflow = Settle(1e308, [](double m) { return m > 1e308 ? -m : m; });
  EXPECT_TRUE(std::isnan(overflow.value));
}

TEST(Settle, FindsCyclesOfAnyLengthAfterAnyApproach) {
  for (const int approach : {0, 1, 2, 7, 100, 1000}) {
    for (const int length : {1, 2, 3, 5, 64, 65, 1000}) {
      // 0, 1, 2, ... to the end of the cycle, then back to its beginning. A cycle of one value: a
      // correction so small beside m that it is lost, yet above the threshold.
      const double start = length == 1 ? 1e20 : 0.0;
      const Settled lost = Settle(start, [=](double m) {
        if (length == 1) {
          return 1.0;
        }
        return m == approach + length - 1 ? static_cast<double>(1 - length) : 1.0;
      });
      EXPECT_TRUE(std::isnan(lost.value));
      EXPECT_EQ(lost.run.ending, Ending::kRepeats) << approach << " " << length;
      // Brent: the remembered value lies in the cycle, and a whole cycle fits before its renewal,
      // at the latest once the power of two has passed both.
      EXPECT_LE(lost.run.steps, 4 * std::max(approach + 1, length) + length);
    }
  }
}

TEST(Settle, WaitsForAnIterationThatSettlesLate) {
  // One step per unit, far from any repetition, to the last step allowed.
  const double last = kGiveUpSteps - 1;
  const auto until = [](double end) { return [end](double m) { return m < end ? 1.0 : 0.0; }; };
  const Settled late = Settle(0.0, until(last));
  EXPECT_EQ(late.value, last);
  EXPECT_EQ(late.run.steps, kGiveUpSteps);
  EXPECT_EQ(late.run.ending, Ending::kSettled);

  const Settled never = Settle(0.0, until(last + 1.0));
  EXPECT_TRUE(std::isnan(never.value));
  EXPECT_EQ(never.run.steps, kGiveUpSteps);
  EXPECT_EQ(never.run.ending, Ending::kGivenUp);
}

}  // namespace
}  // namespace zenithor
