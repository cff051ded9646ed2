#include "positions/position.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/full_store.h"
#include "support/golden.h"
#include "support/same_bytes.h"
#include "support/untouched.h"
#include "time/obliquity.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::kUntouchedDouble;
using testing::kUntouchedInteger;
using testing::SameBytes;
using testing::UntouchedRecord;

double Position(const EphemerisStore& store, double julian_day, BodyCode code,
                BodyPositionRecord* record) {
  PositionState state;
  return ComputePosition(store, state, julian_day, 0.0, 0.0, code, record);
}

TEST(Position, MeetsTheGoldenAnswersOfEveryBody) {
  golden::Functions functions;
  functions.position = [](const golden::PositionCall& call, BodyPositionRecord* record) {
    PositionState state;
    return ComputePosition(FullStore(), state, call.julian_day, call.observer_longitude,
                           call.observer_latitude, call.code, record);
  };
  const golden::Summary summary = testing::CheckGolden("positions.tsv", functions);
  EXPECT_EQ(summary.cases, 2072);
  EXPECT_EQ(summary.failures, 0) << summary.first_failure;
}

TEST(Position, SplitsJ2000IntoItsCalendarFields) {
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

TEST(Position, TruncatesTheSecondAndNeverRoundsItToSixty) {
  BodyPositionRecord record = UntouchedRecord();
  Position(FullStore(), 2451544.5 - 0.1 / 86400.0, ZENITHOR_SUN, &record);
  EXPECT_EQ(record.Day, 31);
  EXPECT_EQ(record.Hour, 23);
  EXPECT_EQ(record.Minute, 59);
  EXPECT_EQ(record.Second, 59);
}

TEST(Position, AnswersAnUnknownCodeAsMercury) {
  BodyPositionRecord mercury = UntouchedRecord();
  const double expected = Position(FullStore(), 2453737.75, ZENITHOR_MERCURY, &mercury);
  for (const BodyCode code : {11, -1, 2147483647, -2147483647 - 1}) {
    BodyPositionRecord record = UntouchedRecord();
    EXPECT_EQ(Position(FullStore(), 2453737.75, code, &record), expected);
    EXPECT_TRUE(SameBytes(record, mercury)) << code;
  }
}

TEST(Position, RefusesANullRecord) {
  for (BodyCode code = -1; code <= 11; ++code) {
    EXPECT_EQ(Position(FullStore(), 2451545.0, code, nullptr), 0.0);
  }
}

TEST(Position, WithoutDataRefusesThePlanetsAndLeavesTheRecord) {
  const EphemerisStore empty;
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_NEPTUNE; ++code) {
    BodyPositionRecord record = UntouchedRecord();
    EXPECT_EQ(Position(empty, 2451545.0, code, &record), 0.0);
    EXPECT_TRUE(SameBytes(record, UntouchedRecord())) << code;
  }
}

TEST(Position, WithoutDataAnswersTheMoonButItsPhase) {
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

TEST(Position, NeedsTheBodysSlotAndTheEarths) {
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_NEPTUNE; ++code) {
    EphemerisStore store = FullStore();
    for (int slot = 0; slot < kSlotCount; ++slot) {
      if (slot != kEarthSlot && (code == ZENITHOR_SUN || slot != code)) {
        store.bodies[slot].terms = nullptr;
      }
    }
    BodyPositionRecord record = UntouchedRecord();
    EXPECT_EQ(Position(store, 2451545.0, code, &record), ZENITHOR_DONE) << code;

    EphemerisStore without_earth = FullStore();
    without_earth.bodies[kEarthSlot].terms = nullptr;
    record = UntouchedRecord();
    EXPECT_EQ(Position(without_earth, 2451545.0, code, &record), 0.0) << code;
    EXPECT_TRUE(SameBytes(record, UntouchedRecord())) << code;

    if (code != ZENITHOR_SUN) {
      EphemerisStore without_body = FullStore();
      without_body.bodies[code].terms = nullptr;
      EXPECT_EQ(Position(without_body, 2451545.0, code, &record), 0.0) << code;
      EXPECT_TRUE(SameBytes(record, UntouchedRecord())) << code;
    }
  }
}

// What one thread keeps of a moment and of the moments before changes no bit of an answer.
TEST(Position, AnswersTheBodiesOfOneMomentAsIfEachWereAskedAlone) {
  PositionState kept;
  for (int call = 0; call < 300; ++call) {
    const double julian_day = 2440000.5 + 400.0 * ((call / 11) % 3) + 7.25 * (call / 33);
    const BodyCode code = (call * 7) % 11;
    PositionState fresh;
    BodyPositionRecord together = UntouchedRecord();
    BodyPositionRecord alone = UntouchedRecord();
    ComputePosition(FullStore(), kept, julian_day, 0.0, 0.0, code, &together);
    ComputePosition(FullStore(), fresh, julian_day, 0.0, 0.0, code, &alone);
    EXPECT_TRUE(SameBytes(together, alone)) << code << " at " << julian_day;
  }
}

}  // namespace
}  // namespace zenithor
