#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "entry/rising_export.h"
#include "support/full_store.h"
#include "support/rising_golden.h"

namespace zenithor {
namespace {

using testing::FullStore;

TEST(RisingExport, MeetsTheGoldenAnswersOfEveryBody) {
  const testing::RisingSummary summary =
      testing::CheckGoldenRisings([](const testing::RisingCall& call) {
        return AnswerRisingFrom(FullStore(), call.day_number, call.minutes, call.zone_hours,
                                call.longitude_west, call.latitude, call.code, call.selector);
      });
  EXPECT_GT(summary.cases, 0);
  EXPECT_EQ(summary.failures, 0) << summary.first_failure;
  RecordProperty("largest_difference_minutes", std::to_string(summary.largest_difference));
}

}  // namespace
}  // namespace zenithor
