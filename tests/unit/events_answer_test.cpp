#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "events/event_answer.h"
#include "events/event_block.h"
#include "events/event_table.h"
#include "support/golden.h"
#include "support/untouched.h"

namespace zenithor {
namespace {

using testing::IsZeroBits;
using testing::SameBytes;
using testing::UntouchedBlock;
using testing::UntouchedEvents;

constexpr EventFamily kFamilies[] = {EventFamily::kSeasons, EventFamily::kPhases,
                                     EventFamily::kSolarEclipses, EventFamily::kLunarEclipses};

int BlockOfExport(const std::string& export_name) {
#define EXPORT_SELECTED_EVENT(name, block) \
  if (export_name == #name) {              \
    return block;                          \
  }
#define EXPORT_ANY_ECLIPSE EXPORT_SELECTED_EVENT
#define EXPORT_ECLIPSE_OF_KIND EXPORT_SELECTED_EVENT
#include "entry/export_list.inc"
  ADD_FAILURE() << "no export " << export_name;
  return 0;
}

// Checks that a call wrote nothing outside its family, and in it the one block `filled` (and the
// any-kind block of an eclipse), the rest being zero bits. filled < 0: all zeroed.
void ExpectOnly(const EventRecord& record, EventFamily family, int filled) {
  for (const BlockContents& row : kBlocks) {
    const EventTimeBlock& block = record.Blocks[row.block];
    if (row.family != family) {
      EXPECT_TRUE(SameBytes(block, UntouchedBlock())) << row.block << " was touched";
    } else if (row.block == filled || (filled >= 0 && row.kind == kAnyKind)) {
      EXPECT_TRUE(SameBytes(block, EventBlockAt(block.JulianDay))) << row.block;
      EXPECT_NE(block.JulianDay, 0.0) << row.block;
    } else {
      EXPECT_TRUE(IsZeroBits(block)) << row.block << " is not zeroed";
    }
  }
}

TEST(EventExports, MeetTheGoldenAnswers) {
  golden::Functions functions;
  functions.event = [](const golden::EventCall& call, EventRecord* record) {
    return AnswerEvent(BlockOfExport(call.name), call.julian_day, call.selector, record);
  };
  const golden::Summary summary = testing::CheckGolden("events.tsv", functions);
  EXPECT_EQ(summary.cases, 768);
  EXPECT_EQ(summary.failures, 0) << summary.first_failure;
}

TEST(EventExports, ANullRecordGivesZero) {
  for (const BlockContents& row : kBlocks) {
    EXPECT_EQ(AnswerEvent(row.block, 2451545.0, row.kind, nullptr), 0.0) << row.block;
  }
}

TEST(EventExports, KeptOnPurposeASelectorOtherThanTheExportsOwnGivesZero) {
  for (const BlockContents& row : kBlocks) {
    if (row.kind == kAnyKind || row.block > ZENITHOR_BLOCK_LAST_QUARTER) {
      continue;
    }
    for (std::int32_t selector = 0; selector < 4; ++selector) {
      EventRecord record = UntouchedEvents();
      const double answer = AnswerEvent(row.block, 2451545.0, selector, &record);
      EXPECT_EQ(answer != 0.0, selector == row.kind) << row.block << " " << selector;
      ExpectOnly(record, row.family, row.block - row.kind + selector);
    }
  }
}

TEST(EventExports, ASelectorOutsideItsRangeZeroesTheFamily) {
  for (const BlockContents& row : kBlocks) {
    if (row.block > ZENITHOR_BLOCK_LAST_QUARTER) {
      continue;
    }
    for (const std::int32_t selector : {-2, -1, 4, 5, 8, std::numeric_limits<std::int32_t>::min(),
                                        std::numeric_limits<std::int32_t>::max()}) {
      EventRecord record = UntouchedEvents();
      EXPECT_EQ(AnswerEvent(row.block, 2451545.0, selector, &record), 0.0) << row.block;
      ExpectOnly(record, row.family, -1);
    }
  }
}

TEST(EventExports, EclipsesDoNotReadTheSelector) {
  for (const std::int32_t selector : {-1, 0, 3, 7, 1000}) {
    EventRecord record = UntouchedEvents();
    EXPECT_NEAR(AnswerEvent(ZENITHOR_BLOCK_SOLAR_ANNULAR, 2449400.5, selector, &record),
                2449483.2174, 0.0001);
    ExpectOnly(record, EventFamily::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR);
  }
}

TEST(EventExports, DaysThatAreNotFiniteZeroTheFamily) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double day : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
    for (const BlockContents& row : kBlocks) {
      EventRecord record = UntouchedEvents();
      EXPECT_EQ(AnswerEvent(row.block, day, row.kind, &record), 0.0) << row.block << " " << day;
      ExpectOnly(record, row.family, -1);
    }
  }
}

TEST(EventExports, DaysFromWhichLunationsCannotBeCountedZeroPhasesAndEclipses) {
  for (const double day : {6e17, -6e17, 1e100, std::numeric_limits<double>::max(),
                           std::numeric_limits<double>::lowest()}) {
    for (const BlockContents& row : kBlocks) {
      EventRecord record = UntouchedEvents();
      const double answer = AnswerEvent(row.block, day, row.kind, &record);
      if (row.family == EventFamily::kSeasons) {
        EXPECT_TRUE(std::isfinite(answer)) << row.block;  // of the last year that 32 bits hold
      } else {
        EXPECT_EQ(answer, 0.0) << row.block << " " << day;
        ExpectOnly(record, row.family, -1);
      }
    }
  }
}

TEST(EventExports, AnEclipseSearchThatGivesUpZeroesTheFamily) {
  EventRecord record = UntouchedEvents();
  EXPECT_EQ(AnswerEvent(ZENITHOR_BLOCK_SOLAR_ANY, 1e15, 0, &record), 0.0);
  ExpectOnly(record, EventFamily::kSolarEclipses, -1);
}

TEST(EventExports, OnlyTheFamilysBlocksAreWritten) {
  for (const EventFamily family : kFamilies) {
    for (const BlockContents& row : kBlocks) {
      if (row.family != family) {
        continue;
      }
      EventRecord record = UntouchedEvents();
      AnswerEvent(row.block, 2460000.5, row.kind, &record);
      int filled = -1;
      for (const BlockContents& other : kBlocks) {
        if (other.family == family && other.kind != kAnyKind &&
            record.Blocks[other.block].JulianDay != 0.0) {
          filled = other.block;
        }
      }
      EXPECT_GE(filled, 0) << row.block;
      ExpectOnly(record, family, filled);
    }
  }
}

TEST(EventBlock, DayAndSecondAreTruncated) {
  // 2000 January 1, 23:59:59.9.
  const EventTimeBlock block = EventBlockAt(2451545.5 - 0.1 / 86400.0);
  EXPECT_EQ(block.Year, 2000);
  EXPECT_EQ(block.Month, 1);
  EXPECT_EQ(block.Day, 1);
  EXPECT_EQ(block.Hour, 23);
  EXPECT_EQ(block.Minute, 59);
  EXPECT_EQ(block.Second, 59);
}

TEST(PhaseExports, TheNewMoonOf2000January6) {
  // Lunation 0. The almanacs have 18h14m UT.
  EventRecord record = UntouchedEvents();
  EXPECT_NEAR(AnswerEvent(ZENITHOR_BLOCK_NEW_MOON, 2451550.0, kNewMoon, &record), 2451550.2606,
              0.0005);
  ExpectOnly(record, EventFamily::kPhases, ZENITHOR_BLOCK_NEW_MOON);
}

TEST(PhaseExports, FullMoonAskedForTheNewMoonGivesZeroAndFillsBlock4) {
  EventRecord record = UntouchedEvents();
  EXPECT_EQ(AnswerEvent(ZENITHOR_BLOCK_FULL_MOON, 2451550.0, kNewMoon, &record), 0.0);
  EXPECT_NEAR(record.Blocks[ZENITHOR_BLOCK_NEW_MOON].JulianDay, 2451550.2606, 0.0005);
}

TEST(PhaseExports, KeptOnPurposeANewMoonUpToSixDaysPastComesBeforeTheNext) {
  EventRecord record;
  const double mean = kMeanNewMoonOf2000;
  const auto new_moon = [&](double day) {
    return AnswerEvent(ZENITHOR_BLOCK_NEW_MOON, day, kNewMoon, &record);
  };
  EXPECT_NEAR(new_moon(mean + 5.99), 2451550.2606, 0.0005);
  EXPECT_GT(new_moon(mean + 6.01), mean + 20.0);
}

TEST(PhaseExports, KeptOnPurposeTheOtherPhasesBelongToTheRunningLunation) {
  const double mean = kMeanNewMoonOf2000;
  EventRecord record;
  const auto ahead = [&](int block, double day) {
    return AnswerEvent(block, day, block - ZENITHOR_BLOCK_NEW_MOON, &record) - day;
  };
  // Just after a new moon the last quarter is three weeks ahead, just before the next (by more than
  // a day) it lies a week back, the full moon two weeks and the first quarter three.
  EXPECT_NEAR(ahead(ZENITHOR_BLOCK_LAST_QUARTER, mean + 0.1), 22.0, 1.0);
  EXPECT_NEAR(ahead(ZENITHOR_BLOCK_LAST_QUARTER, mean + 29.53 - 1.1), -6.3, 1.0);
  EXPECT_NEAR(ahead(ZENITHOR_BLOCK_FULL_MOON, mean + 29.53 - 1.1), -13.7, 1.0);
  EXPECT_NEAR(ahead(ZENITHOR_BLOCK_FIRST_QUARTER, mean + 29.53 - 1.1), -21.0, 1.0);
  EXPECT_NEAR(ahead(ZENITHOR_BLOCK_LAST_QUARTER, mean + 29.53 - 0.9), 22.0 + 0.9, 1.0);
}

TEST(EclipseExports, KeptOnPurposeAKindExportDoesNotLookBeyondTheFirstEclipse) {
  // 1994: annular on May 10, total on November 3.
  EventRecord record = UntouchedEvents();
  EXPECT_EQ(AnswerEvent(ZENITHOR_BLOCK_SOLAR_TOTAL, 2449400.5, 0, &record), 0.0);
  const double annular = AnswerEvent(ZENITHOR_BLOCK_SOLAR_ANNULAR, 2449400.5, 0, &record);
  EXPECT_NEAR(annular, 2449483.2174, 0.0001);
  EXPECT_EQ(AnswerEvent(ZENITHOR_BLOCK_SOLAR_ANY, 2449400.5, 0, &record), annular);
  ExpectOnly(record, EventFamily::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR);
  EXPECT_NEAR(AnswerEvent(ZENITHOR_BLOCK_SOLAR_TOTAL, annular + 20.0, 0, &record), 2449660.07,
              0.01);
}

TEST(EclipseExports, KeptOnPurposeASolarEclipseUpToNineDaysPastIsFoundAgain) {
  // 10 days less 0.03 lunation: up to 9.11 days after the mean new moon, lunation 118 (2009 July
  // 22).
  const double mean = MeanPhase(118.0, 118.0 * kCenturiesPerLunation);
  EventRecord record;
  EXPECT_NEAR(AnswerEvent(ZENITHOR_BLOCK_SOLAR_ANY, mean + 9.11, 0, &record), 2455034.6088, 0.001);
  EXPECT_GT(AnswerEvent(ZENITHOR_BLOCK_SOLAR_ANY, mean + 9.12, 0, &record), mean + 100.0);
}

TEST(EclipseExports, KeptOnPurposeALunarEclipseUpToSixDaysPastIsFoundAgain) {
  // 22 days less 0.53 lunation: up to 6.35 days after the mean full moon, lunation -28.5 (1997
  // September 16).
  const double mean = MeanPhase(-28.5, -28.5 * kCenturiesPerLunation);
  EventRecord record;
  EXPECT_NEAR(AnswerEvent(ZENITHOR_BLOCK_LUNAR_ANY, mean + 6.34, 0, &record), 2450708.2835, 0.002);
  EXPECT_GT(AnswerEvent(ZENITHOR_BLOCK_LUNAR_ANY, mean + 6.36, 0, &record), mean + 100.0);
}

}  // namespace
}  // namespace zenithor
