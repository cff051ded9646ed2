#include <gtest/gtest.h>

#include <string>

#include "events/event_answer.h"
#include "events/event_table.h"
#include "support/event_golden.h"

namespace zenithor {
namespace {

int BlockOfExport(const std::string& name) {
  for (const EventExport& row : kEventExports) {
    if (name == row.name) {
      return row.block;
    }
  }
  ADD_FAILURE() << "no export " << name;
  return 0;
}

TEST(EventExports, MeetTheGoldenAnswers) {
  const testing::GoldenSummary summary =
      testing::CheckGoldenEvents([](const testing::EventCall& call, EventRecord* record) {
        return AnswerEvent(BlockOfExport(call.name), call.julian_day, call.selector, record);
      });
  EXPECT_EQ(summary.cases, 768);
  EXPECT_EQ(summary.failures, 0) << summary.first_failure;
}

}  // namespace
}  // namespace zenithor
