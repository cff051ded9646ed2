#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "entry/answers.h"
#include "host/process_state.h"
#include "host/thread_state.h"
#include "positions/position.h"
#include "rising/rising.h"
#include "support/full_store.h"
#include "support/linked_exports.h"
#include "support/untouched.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::UntouchedRecord;

// Other tests of this program fill the process's own store, so it is emptied for a moment.
TEST(Answers, ComeFromTheStoreOfTheProcess) {
  const EphemerisStore kept = process_state.store;
  BodyPositionRecord record = UntouchedRecord();
  process_state.store = EphemerisStore{};
  EXPECT_EQ(AnswerPosition(2451545.0, 0.0, 0.0, ZENITHOR_MARS, &record), 0.0);
  EXPECT_EQ(AnswerRising(14245.0, 0.0, 0.0, 0.0, 50.0, ZENITHOR_MARS, ZENITHOR_RISE), 0.0);
  process_state.store = FullStore();
  EXPECT_EQ(AnswerPosition(2451545.0, 0.0, 0.0, ZENITHOR_MARS, &record), ZENITHOR_DONE);
  EXPECT_GT(AnswerRising(14245.0, 0.0, 0.0, 0.0, 50.0, ZENITHOR_MARS, ZENITHOR_RISE), 0.0);
  process_state.store = kept;
}

// A call in which no argument can stand for another: every one of them moves the answer, and each
// has a value that would be ordinary in its neighbour's place.
struct RisingCall {
  double day_number = 9941.0;  // 1988 March 20
  double minutes = 75.0;
  double zone_hours = 5.0;
  double longitude_west = 71.0;
  double latitude = 42.0;
  BodyCode code = ZENITHOR_VENUS;  // 2, a selector too
  std::int32_t selector = ZENITHOR_SET;
};

double Answer(const RisingCall& call) {
  return AnswerRising(call.day_number, call.minutes, call.zone_hours, call.longitude_west,
                      call.latitude, call.code, call.selector);
}

double AnswerOfTheRoutine(const RisingCall& call) {
  MomentCache cache;
  return ComputeRising(FullStore(), cache,
                       {call.day_number, call.minutes, call.zone_hours, call.longitude_west,
                        call.latitude, call.code},
                       call.selector);
}

double AnswerOfTheExport(const RisingCall& call) {
  return GEO_RISE(call.day_number, call.minutes, call.zone_hours, call.longitude_west,
                  call.latitude, call.code, call.selector);
}

TEST(Answers, OfARisingTakeEachArgumentInItsPlace) {
  testing::FillProcessStore();
  // Meeus, example 15.a: Venus sets at Boston 0.1213 day after 0h universal time, five hours less
  // by zone time, and a minute later every evening.
  const RisingCall call;
  EXPECT_NEAR(Answer(call), 0.1213 * 1440.0 - 300.0 + 1440.0, 3.0);
  EXPECT_EQ(Answer(call), AnswerOfTheRoutine(call));
  EXPECT_EQ(AnswerOfTheExport(call), AnswerOfTheRoutine(call));

  RisingCall moon = call;  // whose times move with the minutes, too: its parallax is of the instant
  moon.code = ZENITHOR_MOON;
  EXPECT_EQ(Answer(moon), AnswerOfTheRoutine(moon));
  EXPECT_EQ(AnswerOfTheExport(moon), AnswerOfTheRoutine(moon));
  const double ordinary = Answer(moon);
  using Argument = double RisingCall::*;
  for (const Argument argument :
       {&RisingCall::day_number, &RisingCall::minutes, &RisingCall::zone_hours,
        &RisingCall::longitude_west, &RisingCall::latitude}) {
    RisingCall moved = moon;
    moved.*argument += 1.0;
    EXPECT_NE(Answer(moved), ordinary);
    EXPECT_EQ(Answer(moved), AnswerOfTheRoutine(moved));
  }
  RisingCall swapped = call;
  std::swap(swapped.code, swapped.selector);
  EXPECT_NE(Answer(swapped), Answer(call));
}

TEST(Answers, OfAPositionTakeEachArgumentInItsPlace) {
  testing::FillProcessStore();
  // No export's record depends on the observer: the numbers themselves are looked at, where Pluto's
  // way keeps the longitude.
  BodyPositionRecord record = UntouchedRecord();
  ASSERT_EQ(AnswerPosition(2451000.5, -71.0, 42.0, ZENITHOR_PLUTO, &record), ZENITHOR_DONE);
  EXPECT_EQ(FindThreadState()->position.orbits.observer.longitude, -71.0);
  EXPECT_EQ(FindThreadState()->position.orbits.current_day, 2451000.5);
  BodyPositionRecord exported = UntouchedRecord();
  ASSERT_EQ(ZENITHOR(2451000.5, 1.0, 2.0, -72.0, 43.0, 3.0, ZENITHOR_PLUTO, &exported),
            ZENITHOR_DONE);
  EXPECT_EQ(FindThreadState()->position.orbits.observer.longitude, -72.0);
  EXPECT_TRUE(std::equal(testing::Doubles(record), testing::Doubles(record) + 8,
                         testing::Doubles(exported)));
}

}  // namespace
}  // namespace zenithor
