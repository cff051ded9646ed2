#include <gtest/gtest.h>

#include "entry/answers.h"
#include "host/process_store.h"
#include "support/full_store.h"
#include "support/untouched.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::UntouchedRecord;

// Other tests of this program fill the process's own store, so it is emptied for a moment.
TEST(Answers, ComeFromTheStoreOfTheProcess) {
  const EphemerisStore kept = ProcessStore();
  BodyPositionRecord record = UntouchedRecord();
  ProcessStore() = EphemerisStore{};
  EXPECT_EQ(AnswerPosition(2451545.0, 0.0, 0.0, ZENITHOR_MARS, &record), 0.0);
  ProcessStore() = FullStore();
  EXPECT_EQ(AnswerPosition(2451545.0, 0.0, 0.0, ZENITHOR_MARS, &record), ZENITHOR_DONE);
  ProcessStore() = kept;
}

}  // namespace
}  // namespace zenithor
