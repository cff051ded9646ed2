#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "entry/position_export.h"
#include "support/full_store.h"
#include "support/position_golden.h"

namespace zenithor {
namespace {

using testing::FullStore;

TEST(PositionExport, MeetsTheGoldenAnswersOfEveryBody) {
  const testing::GoldenSummary summary = testing::CheckGoldenPositions(
      [](const testing::PositionCall& call, BodyPositionRecord* record) {
        return AnswerPositionFrom(FullStore(), call.julian_day, call.observer_longitude,
                                  call.observer_latitude, call.code, record);
      });
  EXPECT_GT(summary.cases, 0);
  EXPECT_EQ(summary.failures, 0) << summary.first_failure;
}

}  // namespace
}  // namespace zenithor
