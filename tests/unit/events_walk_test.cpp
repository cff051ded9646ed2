// Properties that hold for a host that walks the exports through the years -2000 to 4000.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "events/event_answer.h"
#include "events/event_table.h"
#include "support/untouched.h"

namespace zenithor {
namespace {

constexpr double kFirstDay = 990557.5;  // -2000 January 1
constexpr double kLastDay = 3182395.5;  // 4001 January 1

bool SameDouble(double a, double b) { return std::memcmp(&a, &b, sizeof(a)) == 0; }

// Walks one export through the six thousand years: its answers never go back, and from every start
// within a window the same event comes with the same bits, that is, answers differ by 0 or by more
// than `apart` days. Steps [day] are multiples of 1/64, exact, so that starts fall on all hours.
// Returns how many events it met.
int WalkInOrder(int block, std::int32_t selector, double step, double apart) {
  EventRecord record;
  int events = 0;
  double last = AnswerEvent(block, kFirstDay, selector, &record);
  for (double day = kFirstDay; day < kLastDay; day += step) {
    const double jde = AnswerEvent(block, day, selector, &record);
    if (!SameDouble(jde, last)) {
      EXPECT_GT(jde - last, apart) << "block " << block << " from " << day;
      if (!(jde - last > apart)) {
        return events;
      }
      ++events;
      last = jde;
    }
  }
  return events;
}

TEST(Walk, EveryPhaseComesOnceALunationInOrder) {
  // 6001 years are 74223 lunations; successive equal phases are at least 29.1 days apart.
  for (int block = ZENITHOR_BLOCK_NEW_MOON; block <= ZENITHOR_BLOCK_LAST_QUARTER; ++block) {
    EXPECT_NEAR(WalkInOrder(block, block - ZENITHOR_BLOCK_NEW_MOON, 9.640625, 29.0), 74222, 2);
  }
}

TEST(Walk, SeasonsComeOnceAYearInOrder) {
  for (std::int32_t season = 0; season < 4; ++season) {
    EXPECT_EQ(WalkInOrder(season, season, 60.296875, 365.2), 6000);
  }
}

TEST(Walk, EclipsesComeInOrder) {
  // Eclipses of one family are at least a lunation apart. Per century there are about 238 solar and
  // 240 lunar ones, counting penumbral ones.
  const int solar = WalkInOrder(ZENITHOR_BLOCK_SOLAR_ANY, 0, 13.296875, 29.0);
  EXPECT_NEAR(solar, 60 * 238, 60 * 4);
  const int lunar = WalkInOrder(ZENITHOR_BLOCK_LUNAR_ANY, 0, 13.296875, 29.0);
  EXPECT_NEAR(lunar, 60 * 241, 60 * 4);
}

// From every start exactly one kind export gives what the any-kind export gives, bit for bit, and
// the others 0.0.
void ExpectOneKind(int any, int first, int last) {
  const double step = 97.3125;
  for (double day = kFirstDay; day < kLastDay; day += step) {
    EventRecord record;
    const double jde = AnswerEvent(any, day, 0, &record);
    ASSERT_GT(jde, 0.0);
    int agreeing = 0;
    for (int block = first; block <= last; ++block) {
      EventRecord own;
      const double answer = AnswerEvent(block, day, 0, &own);
      if (SameDouble(answer, jde)) {
        ++agreeing;
        ASSERT_TRUE(testing::SameBytes(own.Blocks[block], record.Blocks[any]));
      } else {
        ASSERT_TRUE(SameDouble(answer, 0.0));
        ASSERT_TRUE(testing::IsZeroBits(own.Blocks[block]));
      }
    }
    ASSERT_EQ(agreeing, 1) << day;
  }
}

TEST(Walk, TheSolarKindExportsAgreeWithTheAnyKindExport) {
  ExpectOneKind(ZENITHOR_BLOCK_SOLAR_ANY, ZENITHOR_BLOCK_SOLAR_TOTAL, ZENITHOR_BLOCK_SOLAR_PARTIAL);
}

TEST(Walk, TheLunarKindExportsAgreeWithTheAnyKindExport) {
  ExpectOneKind(ZENITHOR_BLOCK_LUNAR_ANY, ZENITHOR_BLOCK_LUNAR_TOTAL,
                ZENITHOR_BLOCK_LUNAR_PENUMBRAL);
}

TEST(Walk, AnEclipseLiesAtMostSevenMonthsAhead) {
  for (const int block : {ZENITHOR_BLOCK_SOLAR_ANY, ZENITHOR_BLOCK_LUNAR_ANY}) {
    for (double day = kFirstDay; day < kLastDay; day += 31.0625) {
      EventRecord record;
      const double ahead = AnswerEvent(block, day, 0, &record) - day;
      ASSERT_GT(ahead, -10.0) << day;
      ASSERT_LT(ahead, 7.0 * 30.0) << day;
    }
  }
}

}  // namespace
}  // namespace zenithor
