#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "entry/position_export.h"
#include "entry/process_store.h"
#include "support/full_store.h"
#include "support/position_golden.h"
#include "time/obliquity.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::kUntouchedDouble;
using testing::kUntouchedInteger;
using testing::UntouchedRecord;

double Position(const EphemerisStore& store, double julian_day, BodyCode code,
                BodyPositionRecord* record) {
  CallState state;
  return AnswerPositionFrom(store, state.Get(), julian_day, 0.0, 0.0, code, record);
}

bool SameBytes(const BodyPositionRecord& a, const BodyPositionRecord& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(PositionExport, MeetsTheGoldenAnswersOfEveryBody) {
  const testing::GoldenSummary summary = testing::CheckGoldenPositions(
      [](const testing::PositionCall& call, BodyPositionRecord* record) {
        CallState state;
        return AnswerPositionFrom(FullStore(), state.Get(), call.julian_day,
                                  call.observer_longitude, call.observer_latitude, call.code,
                                  record);
      },
      [](BodyCode) { return true; });
  EXPECT_GT(summary.cases, 0);
  EXPECT_EQ(summary.failures, 0) << summary.first_failure;
}

TEST(PositionExport, SplitsJ2000IntoItsCalendarFields) {
  BodyPositionRecord record = UntouchedRecord();
  EXPECT_EQ(Position(FullStore(), 2451545.0, ZENITHOR_MARS, &record), ZENITHOR_DONE);
  EXPECT_EQ(record.Year, 2000);
  EXPECT_EQ(record.Month, 1);
  EXPECT_EQ(record.Day, 1);
  EXPECT_EQ(record.Hour, 12);
  EXPECT_EQ(record.Minute, 0);
  EXPECT_EQ(record.Second, 0);
  EXPECT_EQ(record.Centuries, 0.0);
}

TEST(PositionExport, TruncatesTheSecondAndNeverRoundsItToSixty) {
  BodyPositionRecord record = UntouchedRecord();
  Position(FullStore(), 2451544.5 - 0.1 / 86400.0, ZENITHOR_SUN, &record);
  EXPECT_EQ(record.Day, 31);
  EXPECT_EQ(record.Hour, 23);
  EXPECT_EQ(record.Minute, 59);
  EXPECT_EQ(record.Second, 59);
}

TEST(PositionExport, AnswersAnUnknownCodeAsMercury) {
  BodyPositionRecord mercury = UntouchedRecord();
  const double expected = Position(FullStore(), 2453737.75, ZENITHOR_MERCURY, &mercury);
  for (const BodyCode code : {11, -1, 2147483647, -2147483647 - 1}) {
    BodyPositionRecord record = UntouchedRecord();
    EXPECT_EQ(Position(FullStore(), 2453737.75, code, &record), expected);
    EXPECT_TRUE(SameBytes(record, mercury)) << code;
  }
}

TEST(PositionExport, RefusesANullRecord) {
  for (BodyCode code = -1; code <= 11; ++code) {
    EXPECT_EQ(Position(FullStore(), 2451545.0, code, nullptr), 0.0);
  }
}

TEST(PositionExport, WithoutDataRefusesThePlanetsAndLeavesTheRecord) {
  const EphemerisStore empty;
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_NEPTUNE; ++code) {
    BodyPositionRecord record = UntouchedRecord();
    EXPECT_EQ(Position(empty, 2451545.0, code, &record), 0.0);
    EXPECT_TRUE(SameBytes(record, UntouchedRecord())) << code;
  }
}

TEST(PositionExport, WithoutDataAnswersTheMoonButItsPhase) {
  const EphemerisStore empty;
  BodyPositionRecord record = UntouchedRecord();
  EXPECT_EQ(Position(empty, 2448724.5, ZENITHOR_MOON, &record), ZENITHOR_DONE);
  EXPECT_EQ(record.MoonPhaseAngle, kUntouchedDouble);
  EXPECT_EQ(record.MoonIlluminatedFraction, kUntouchedDouble);
  BodyPositionRecord whole = UntouchedRecord();
  EXPECT_EQ(Position(FullStore(), 2448724.5, ZENITHOR_MOON, &whole), ZENITHOR_DONE);
  EXPECT_EQ(whole.Year, 1992);
  EXPECT_EQ(whole.Month, 4);
  EXPECT_EQ(whole.Day, 12);
  record.MoonPhaseAngle = whole.MoonPhaseAngle;
  record.MoonIlluminatedFraction = whole.MoonIlluminatedFraction;
  EXPECT_TRUE(SameBytes(record, whole));
}

TEST(PositionExport, NeedsTheBodysSlotAndTheEarths) {
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_NEPTUNE; ++code) {
    EphemerisStore store = FullStore();
    for (int slot = 0; slot < kSlotCount; ++slot) {
      if (slot != kEarthSlot && (code == ZENITHOR_SUN || slot != code)) {
        store.series[static_cast<std::size_t>(slot)] = nullptr;
      }
    }
    BodyPositionRecord record = UntouchedRecord();
    EXPECT_EQ(Position(store, 2451545.0, code, &record), ZENITHOR_DONE) << code;

    EphemerisStore without_earth = FullStore();
    without_earth.series[kEarthSlot] = nullptr;
    record = UntouchedRecord();
    EXPECT_EQ(Position(without_earth, 2451545.0, code, &record), 0.0) << code;
    EXPECT_TRUE(SameBytes(record, UntouchedRecord())) << code;

    if (code != ZENITHOR_SUN) {
      EphemerisStore without_body = FullStore();
      without_body.series[static_cast<std::size_t>(code)] = nullptr;
      EXPECT_EQ(Position(without_body, 2451545.0, code, &record), 0.0) << code;
      EXPECT_TRUE(SameBytes(record, UntouchedRecord())) << code;
    }
  }
}

// What one thread keeps of a moment and of the moments before changes no bit of an answer.
TEST(PositionExport, AnswersTheBodiesOfOneMomentAsIfEachWereAskedAlone) {
  ThreadState kept;
  for (int call = 0; call < 300; ++call) {
    const double julian_day = 2440000.5 + 400.0 * ((call / 11) % 3) + 7.25 * (call / 33);
    const BodyCode code = (call * 7) % 11;
    ThreadState fresh;
    BodyPositionRecord together = UntouchedRecord();
    BodyPositionRecord alone = UntouchedRecord();
    AnswerPositionFrom(FullStore(), kept, julian_day, 0.0, 0.0, code, &together);
    AnswerPositionFrom(FullStore(), fresh, julian_day, 0.0, 0.0, code, &alone);
    EXPECT_TRUE(SameBytes(together, alone)) << code << " at " << julian_day;
  }
}

// Other tests of this program fill the process's own store, so it is emptied for a moment.
TEST(PositionExport, AnswersFromTheStoreOfTheProcess) {
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
