#include <gtest/gtest.h>

#include <cmath>
#include <deque>
#include <limits>
#include <map>
#include <random>
#include <utility>
#include <vector>

#include "positions/answer_memory.h"
#include "positions/position.h"
#include "support/full_store.h"
#include "support/same_bytes.h"
#include "support/untouched.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::SameBytes;
using testing::UntouchedRecord;

struct Room {
  explicit Room(std::uint32_t answers)
      : doubles(RoomOfAnswers(answers) / sizeof(double)), capacity(answers) {}
  void GiveTo(AnswerMemory& memory) { SetRoom(doubles.data(), capacity, memory); }

  std::vector<double> doubles;
  std::uint32_t capacity;
};

// A record of numbers made up from a day and a body, as a driver would have filled it.
BodyPositionRecord MadeUp(double day, BodyCode code, double salt = 0.0) {
  BodyPositionRecord record = UnwrittenRecord();
  BodyPositionRecord full = UnwrittenRecord();
  double* const numbers = &full.HelioLongitude;
  for (int k = 0; k < 15; ++k) {
    numbers[k] = day * (k + 1) + code + salt;
  }
  full.Year = static_cast<std::int32_t>(day) - 4712;
  full.Month = 12;
  full.Day = 31;
  full.Hour = 23;
  full.Minute = 59;
  full.Second = 58;
  CopyAnswer(code, full, record);
  return record;
}

bool IsKept(AnswerMemory& memory, double day, BodyCode code) {
  BodyPositionRecord record = UntouchedRecord();
  return Recall(memory, day, code, record);
}

TEST(AnswerMemory, RecallsEveryFieldOfEveryBodyAndTouchesNoOther) {
  Room room(16);
  AnswerMemory memory;
  room.GiveTo(memory);
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_MOON; ++code) {
    BodyPositionRecord computed = UntouchedRecord();
    PositionState state;
    ASSERT_EQ(ComputePosition(FullStore(), state, 2461366.75, 0.0, 0.0, code, &computed),
              ZENITHOR_DONE);
    BodyPositionRecord fresh = UnwrittenRecord();
    ASSERT_EQ(ComputePosition(FullStore(), state, 2461366.75, 0.0, 0.0, code, &fresh),
              ZENITHOR_DONE);
    ASSERT_TRUE(IsComplete(code, fresh)) << code;
    Keep(2461366.75, code, fresh, memory);
    BodyPositionRecord recalled = UntouchedRecord();
    ASSERT_TRUE(Recall(memory, 2461366.75, code, recalled)) << code;
    EXPECT_TRUE(SameBytes(recalled, computed)) << code;
    BodyPositionRecord copied = UntouchedRecord();
    CopyAnswer(code, fresh, copied);
    EXPECT_TRUE(SameBytes(copied, computed)) << code;
  }
  EXPECT_EQ(memory.count, 11U);
}

TEST(AnswerMemory, TellsDaysAndBodiesApartToTheBit) {
  Room room(64);
  AnswerMemory memory;
  room.GiveTo(memory);
  const double day = 2451545.0;
  Keep(day, ZENITHOR_MARS, MadeUp(day, ZENITHOR_MARS), memory);
  Keep(0.0, ZENITHOR_MARS, MadeUp(0.0, ZENITHOR_MARS), memory);
  EXPECT_TRUE(IsKept(memory, day, ZENITHOR_MARS));
  EXPECT_FALSE(IsKept(memory, std::nextafter(day, 0.0), ZENITHOR_MARS));
  EXPECT_FALSE(IsKept(memory, day + 1.0, ZENITHOR_MARS));
  EXPECT_FALSE(IsKept(memory, day, ZENITHOR_VENUS));
  EXPECT_TRUE(IsKept(memory, 0.0, ZENITHOR_MARS));
  EXPECT_FALSE(IsKept(memory, -0.0, ZENITHOR_MARS));
}

TEST(AnswerMemory, IsEmptyWithoutRoom) {
  AnswerMemory memory;
  Keep(2451545.0, ZENITHOR_MARS, MadeUp(2451545.0, ZENITHOR_MARS), memory);
  EXPECT_EQ(memory.count, 0U);
  EXPECT_FALSE(IsKept(memory, 2451545.0, ZENITHOR_MARS));
}

TEST(AnswerMemory, ReplacesTheOldestByEveryOtherNewAnswer) {
  constexpr std::uint32_t kCapacity = 64;
  Room room(kCapacity);
  AnswerMemory memory;
  room.GiveTo(memory);
  std::mt19937 random(20261122);
  // What is kept, the oldest first, by a plain model. Days side by side, and days that differ in
  // their last bits, meet in the index.
  std::deque<std::pair<double, BodyCode>> model;
  bool skip = false;
  for (int k = 0; k < 20000; ++k) {
    const double base = 2451545.0 + static_cast<double>(random() % 128);
    const double day = random() % 4 == 0 ? std::nextafter(base, 0.0) : base;
    const BodyCode code = static_cast<BodyCode>(random() % 3);
    bool known = false;
    for (const auto& one : model) {
      known = known || one == std::make_pair(day, code);
    }
    BodyPositionRecord recalled = UntouchedRecord();
    ASSERT_EQ(Recall(memory, day, code, recalled), known) << k;
    if (known) {
      ASSERT_EQ(recalled.Declination,
                code == ZENITHOR_EARTH ? UntouchedRecord().Declination : day * 8 + code);
      continue;
    }
    Keep(day, code, MadeUp(day, code), memory);
    if (model.size() == kCapacity) {
      skip = !skip;
      if (skip) {
        continue;
      }
      model.pop_front();
    }
    model.emplace_back(day, code);
    ASSERT_EQ(memory.count, model.size());
  }
  ASSERT_EQ(model.size(), kCapacity);
  for (const auto& [day, code] : model) {
    EXPECT_TRUE(IsKept(memory, day, code));
  }
}

TEST(AnswerMemory, TakesWhatItKeepsAlongIntoALargerRoom) {
  Room small(32);
  Room large(256);
  AnswerMemory memory;
  small.GiveTo(memory);
  for (int k = 0; k < 32; ++k) {
    Keep(k, ZENITHOR_SATURN, MadeUp(k, ZENITHOR_SATURN), memory);
  }
  large.GiveTo(memory);
  small.doubles.assign(small.doubles.size(), -1.0);
  for (int k = 32; k < 200; ++k) {
    Keep(k, ZENITHOR_SATURN, MadeUp(k, ZENITHOR_SATURN), memory);
  }
  for (int k = 0; k < 200; ++k) {
    BodyPositionRecord record = UntouchedRecord();
    ASSERT_TRUE(Recall(memory, k, ZENITHOR_SATURN, record)) << k;
    EXPECT_EQ(record.Declination, k * 8 + BodyCode{ZENITHOR_SATURN});
  }
  EXPECT_EQ(memory.count, 200U);
}

TEST(AnswerMemory, KeepsNoAnswerThatLeavesAFieldOrHasNoDate) {
  BodyPositionRecord record = MadeUp(2451545.0, ZENITHOR_MARS);
  EXPECT_TRUE(IsComplete(ZENITHOR_MARS, record));
  record.GeoLongitude = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(IsComplete(ZENITHOR_MARS, record));
  record = MadeUp(2451545.0, ZENITHOR_MARS);
  record.Month = 14;
  EXPECT_FALSE(IsComplete(ZENITHOR_MARS, record));
  record.Month = 1;
  record.Second = std::numeric_limits<std::int32_t>::min();
  EXPECT_FALSE(IsComplete(ZENITHOR_MARS, record));

  EXPECT_FALSE(CanBeKept(std::numeric_limits<double>::quiet_NaN(), ZENITHOR_MOON));
  EXPECT_FALSE(CanBeKept(-std::numeric_limits<double>::infinity(), ZENITHOR_MOON));
  EXPECT_FALSE(CanBeKept(-1.0, ZENITHOR_PLUTO));
  EXPECT_TRUE(CanBeKept(-1.0, ZENITHOR_MOON));
  EXPECT_TRUE(CanBeKept(-2.0, ZENITHOR_PLUTO));
  EXPECT_TRUE(CanBeKept(-1401.0, ZENITHOR_MOON));
  EXPECT_FALSE(CanBeKept(std::nextafter(-1401.0, -2000.0), ZENITHOR_MOON));
  EXPECT_TRUE(CanBeKept(2147483647.0, ZENITHOR_MOON));
  EXPECT_FALSE(CanBeKept(std::nextafter(2147483647.0, 3e9), ZENITHOR_MOON));
}

// Every answer with a memory beside the answer without: all bodies and codes that are none, days of
// charts, odd ones, and Pluto's day -1.0 at any place in the order.
TEST(AnswerMemory, ChangesNoBitOfAnyAnswer) {
  Room room(128);
  PositionState with;
  room.GiveTo(with.answers);
  PositionState without;
  const double inf = std::numeric_limits<double>::infinity();
  const double odd[] = {0.0,    -0.0,         -1.0,  1.0,     -1402.5,  -1401.0, 5e-324,
                        1e-300, 1e18,         -1e18, 2.66e17, 1e300,    -1e300,  inf,
                        -inf,   std::nan(""), 2.2e9, -2.2e9,  2299160.5};
  std::mt19937 random(7);
  int recalled = 0;
  for (int k = 0; k < 3000; ++k) {
    const bool chart = random() % 3 != 0;
    const double day = chart ? 2461000.5 + static_cast<double>(random() % 12)
                             : odd[random() % (sizeof odd / sizeof odd[0])];
    const auto code = static_cast<BodyCode>(random() % 13) - 1;
    BodyPositionRecord expected = UntouchedRecord();
    BodyPositionRecord actual = UntouchedRecord();
    const std::uint32_t kept_before = with.answers.count;
    const double done = ComputePosition(FullStore(), without, day, 0.0, 0.0, code, &expected);
    ASSERT_EQ(ComputePosition(FullStore(), with, day, 0.0, 0.0, code, &actual), done);
    ASSERT_TRUE(SameBytes(actual, expected)) << day << " " << code;
    recalled += kept_before > 0 && with.answers.count == kept_before ? 1 : 0;
  }
  EXPECT_GT(recalled, 1500);
  EXPECT_EQ(with.answers.count, 128U);
}

TEST(AnswerMemory, KeepsNothingOfABodyThatIsNotLoaded) {
  Room room(16);
  PositionState state;
  room.GiveTo(state.answers);
  const EphemerisStore nothing;
  BodyPositionRecord record = UntouchedRecord();
  EXPECT_EQ(ComputePosition(nothing, state, 2451545.0, 0.0, 0.0, ZENITHOR_MARS, &record), 0.0);
  EXPECT_TRUE(SameBytes(record, UntouchedRecord()));
  // The Moon without the Earth leaves two fields.
  EXPECT_EQ(ComputePosition(nothing, state, 2451545.0, 0.0, 0.0, ZENITHOR_MOON, &record),
            ZENITHOR_DONE);
  EXPECT_EQ(record.MoonPhaseAngle, UntouchedRecord().MoonPhaseAngle);
  EXPECT_EQ(state.answers.count, 0U);
}

}  // namespace
}  // namespace zenithor
