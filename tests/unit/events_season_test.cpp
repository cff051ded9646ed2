#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "events/event_answer.h"
#include "events/season.h"
#include "support/expect_published.h"
#include "support/extended.h"
#include "support/text_files.h"
#include "support/untouched.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;
using testing::IsZeroBits;
using testing::kExtendedDegree;

// The same method straight from data/events, in extended precision and by powers instead of
// Horner's rule. Row: of the table of mean instants, its years' origin beside it.
long double NaiveSeason(std::size_t row, long double origin, int year) {
  const std::vector<std::string> means = testing::LinesOf("data/events/season-means.csv");
  const std::vector<std::string> words = testing::Split(means.at(1 + row), ',');
  const long double y = (static_cast<long double>(year) - origin) / 1000.0L;
  long double jde = 0.0L;
  for (std::size_t power = 0; power <= 4; ++power) {
    jde += std::stold(words.at(2 + power)) * std::pow(y, static_cast<long double>(power));
  }
  const long double t = (jde - 2451545.0L) / 36525.0L;
  const long double w = (35999.373L * t - 2.47L) * kExtendedDegree;
  const long double delta_lambda = 1.0L + 0.0334L * std::cos(w) + 0.0007L * std::cos(2.0L * w);
  long double s = 0.0L;
  const std::vector<std::string> terms = testing::LinesOf("data/events/season-terms.csv");
  for (std::size_t k = 1; k < terms.size(); ++k) {
    const std::vector<std::string> term = testing::Split(terms[k], ',');
    s += std::stold(term.at(0)) *
         std::cos((std::stold(term.at(1)) + std::stold(term.at(2)) * t) * kExtendedDegree);
  }
  return jde + 0.00001L * s / delta_lambda;
}

// Day numbers of 2.4 million carry 5e-10 day; the angles, unreduced, add as much some thousand
// years from 2000.
constexpr double kRoundingDays = 2e-9;

TEST(SeasonInstant, MeetsTheJuneSolsticeOf1962) {
  // Meeus, example 27.a: 2437837.39245 JDE. Same tables, so within its last digit.
  ExpectPublished("27.a", "JulianDay", SeasonInstant(1962, kJuneSolstice));
  // Example 27.b: the complete theory, 1962 June 21, 21h24m42s. The tables are good to a minute.
  ExpectPublished("27.b", "JulianDay", SeasonInstant(1962, kJuneSolstice));
}

TEST(SeasonInstant, MeetsASecondEvaluationOnBothSidesOfTheYear1000) {
  for (std::int32_t season = 0; season < 4; ++season) {
    const auto row = static_cast<std::size_t>(season);
    for (const int year : {-2000, -500, -1, 0, 1, 999}) {
      EXPECT_NEAR(SeasonInstant(year, season), static_cast<double>(NaiveSeason(row, 0.0L, year)),
                  kRoundingDays)
          << season << " " << year;
    }
    for (const int year : {1000, 1582, 2000, 2026, 4000}) {
      EXPECT_NEAR(SeasonInstant(year, season),
                  static_cast<double>(NaiveSeason(row + 4, 2000.0L, year)), kRoundingDays)
          << season << " " << year;
    }
  }
}

TEST(SeasonInstant, ASeasonOutsideItsTableIsNotReadFromIt) {
  for (const std::int32_t season : {-1, 4, 8, 1000, std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(SeasonInstant(2000, season), 0.0);
    EXPECT_EQ(SeasonInstant(-2000, season), 0.0);
  }
}

TEST(SeasonInstant, AnyYearGivesTheDayOfItsPolynomial) {
  // So far away the periodic terms, 0.03 day, are less than the rounding of the powers.
  for (const std::int32_t year : {std::numeric_limits<std::int32_t>::min(), -5000000, 5000000,
                                  std::numeric_limits<std::int32_t>::max()}) {
    for (std::int32_t season = 0; season < 4; ++season) {
      const auto row = static_cast<std::size_t>(season);
      const auto expected = static_cast<double>(year < 1000 ? NaiveSeason(row, 0.0L, year)
                                                            : NaiveSeason(row + 4, 2000.0L, year));
      EXPECT_NEAR(SeasonInstant(year, season), expected, 2e-15 * std::fabs(expected) + 0.04)
          << season << " " << year;
    }
  }
}

TEST(SeasonInstant, TheFourSeasonsOfEveryYearComeInOrder) {
  // Season lengths drift between 88.6 and 94.3 days over these six thousand years.
  double last = SeasonInstant(-2001, kDecemberSolstice);
  for (std::int32_t year = -2000; year <= 4000; ++year) {
    for (std::int32_t season = 0; season < 4; ++season) {
      const double jde = SeasonInstant(year, season);
      ASSERT_GT(jde - last, 88.0) << year << " " << season;
      ASSERT_LT(jde - last, 95.0) << year << " " << season;
      last = jde;
    }
  }
}

TEST(SeasonInstant, ASeasonLiesInItsYear) {
  for (std::int32_t year = -2000; year <= 4000; ++year) {
    for (std::int32_t season = 0; season < 4; ++season) {
      // In the Julian calendar the December solstice drifts into January going back: until the
      // year -1177 it can fall on 1 to 6 January of the year after (774 of 824 years do).
      const CalendarInstant instant = JulianDayToCalendar(SeasonInstant(year, season));
      if (season == kDecemberSolstice && year <= -1177) {
        ASSERT_TRUE((instant.Year == year && instant.Month == 12 && instant.Day >= 31.0) ||
                    (instant.Year == year + 1 && instant.Month == 1 && instant.Day < 8.0))
            << year;
      } else {
        ASSERT_EQ(instant.Year, year) << "season " << season;
      }
    }
  }
}

TEST(SeasonExports, TheMarchEquinoxOf2000FillsItsBlockAlone) {
  EventRecord record = testing::UntouchedEvents();
  const double answer = AnswerEvent(ZENITHOR_BLOCK_MARCH_EQUINOX, 2451700.5, 0, &record);
  // 2000 March 20, 7h35m UT in the almanacs, 64 s less than dynamical time.
  EXPECT_NEAR(answer, 2451623.8165, 0.001);
  const EventTimeBlock& block = record.Blocks[0];
  EXPECT_EQ(block.JulianDay, answer);
  EXPECT_EQ(block.Year, 2000);
  EXPECT_EQ(block.Month, 3);
  EXPECT_EQ(block.Day, 20);
  EXPECT_EQ(block.Hour, 7);
  EXPECT_EQ(block.Minute, 36);
  for (int number = 1; number < 4; ++number) {
    EXPECT_TRUE(IsZeroBits(record.Blocks[number])) << number;
  }
  for (int number = 4; number < ZENITHOR_BLOCK_COUNT; ++number) {
    EXPECT_TRUE(testing::SameBytes(record.Blocks[number], testing::UntouchedBlock())) << number;
  }
}

TEST(SeasonExports, KeptOnPurposeTheLastOfDecemberGivesTheSeasonsOfThatYear) {
  const double new_years_eve = 2451909.5;  // 2000 December 31
  for (std::int32_t season = 0; season < 4; ++season) {
    EventRecord record = testing::UntouchedEvents();
    const double jde = AnswerEvent(season, new_years_eve, season, &record);
    EXPECT_EQ(jde, SeasonInstant(2000, season));
    EXPECT_LE(jde, new_years_eve);
  }
  EventRecord record;
  EXPECT_EQ(AnswerEvent(0, new_years_eve + 0.999, 0, &record), SeasonInstant(2000, 0));
  EXPECT_EQ(AnswerEvent(0, new_years_eve + 1.0, 0, &record), SeasonInstant(2001, 0));
  // The last moments of 2096 and of 1580, the years from 1900 to 2100 and from -2000 to 4000 in
  // which the March equinox is then longest over.
  const double end_of_2096 = 2486974.5 - 0.001;
  const double end_of_1580 = 2298518.5 - 0.001;
  EXPECT_NEAR(end_of_2096 - AnswerEvent(0, end_of_2096, 0, &record), 287.41, 0.005);
  EXPECT_NEAR(end_of_1580 - AnswerEvent(0, end_of_1580, 0, &record), 296.48, 0.005);
}

}  // namespace
}  // namespace zenithor
