#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "time/julian_day.h"
#include "values/civil_time.h"
#include "values/messages.h"
#include "zenithor/values.h"

namespace zenithor {
namespace {

// Meeus, Astronomical Algorithms, chapter 7, and the two sides of the reform.
TEST(CivilTime, KnownDays) {
  EXPECT_EQ(JulianDayOf({2000, 1, 1, 12, 0, 0.0}), 2451545.0);
  EXPECT_EQ(JulianDayOf({1957, 10, 4, 19, 26, 24.0}), 2436116.31);
  EXPECT_EQ(JulianDayOf({333, 1, 27, 12, 0, 0.0}), 1842713.0);
  EXPECT_EQ(JulianDayOf({-1000, 7, 12, 12, 0, 0.0}), 1356001.0);
  EXPECT_EQ(JulianDayOf({-4712, 1, 1, 12, 0, 0.0}), 0.0);
  EXPECT_EQ(JulianDayOf({1582, 10, 4, 0, 0, 0.0}), 2299159.5);
  EXPECT_EQ(JulianDayOf({1582, 10, 15, 0, 0, 0.0}), 2299160.5);
  EXPECT_EQ(JulianDayOf({-2000, 1, 1, 0, 0, 0.0}), ZENITHOR_FIRST_DAY);
  EXPECT_EQ(JulianDayOf({4000, 1, 1, 0, 0, 0.0}), ZENITHOR_LAST_DAY);
}

TEST(CivilTime, RefusesWhatNoCalendarHas) {
  const CivilTime none[] = {{1582, 10, 5, 0, 0, 0.0},
                            {1582, 10, 14, 0, 0, 0.0},
                            {1900, 2, 29, 0, 0, 0.0},
                            {2023, 2, 29, 0, 0, 0.0},
                            {2024, 2, 30, 0, 0, 0.0},
                            {2024, 4, 31, 0, 0, 0.0},
                            {2024, 0, 1, 0, 0, 0.0},
                            {2024, 13, 1, 0, 0, 0.0},
                            {2024, 1, 0, 0, 0, 0.0},
                            {2024, 1, 1, 24, 0, 0.0},
                            {2024, 1, 1, -1, 0, 0.0},
                            {2024, 1, 1, 0, 60, 0.0},
                            {2024, 1, 1, 0, 0, 61.0},
                            {2024, 1, 1, 0, 0, -0.001},
                            {200001, 1, 1, 0, 0, 0.0},
                            {-200001, 1, 1, 0, 0, 0.0},
                            {2024, 1, 1, 0, 0, std::numeric_limits<double>::quiet_NaN()},
                            {std::numeric_limits<std::int32_t>::min(), 1, 1, 0, 0, 0.0},
                            {2024, std::numeric_limits<std::int32_t>::max(), 1, 0, 0, 0.0}};
  for (const CivilTime& time : none) {
    EXPECT_TRUE(std::isnan(JulianDayOf(time)))
        << time.year << " " << time.month << " " << time.day << " " << time.second;
  }
  EXPECT_EQ(JulianDayOf({1500, 2, 29, 0, 0, 0.0}), 2268991.5);  // a leap year of that calendar
}

TEST(CivilTime, LeapSecondsRunIntoTheNextDay) {
  EXPECT_EQ(JulianDayOf({2016, 12, 31, 23, 59, 60.0}), JulianDayOf({2017, 1, 1, 0, 0, 0.0}));
}

TEST(CivilTime, EveryDayComesBack) {
  std::int32_t last_day = 0;
  std::int64_t days = 0;
  for (double day = -71328942.5; day <= 74769999.5; day += 137.0) {
    CivilTime time{};
    ASSERT_TRUE(CivilTimeOf(day, 0.0, time)) << day;
    EXPECT_EQ(JulianDayOf(time), day);
    last_day = time.day;
    ++days;
  }
  EXPECT_GT(last_day, 0);
  EXPECT_GT(days, 1000000);
}

TEST(CivilTime, IsTheRecordsCalendarWhereThatIsMeantToServe) {
  for (double day = 100.5; day < 3e6; day += 17.0) {
    const CalendarInstant record = JulianDayToCalendar(day);
    CivilTime time{};
    ASSERT_TRUE(CivilTimeOf(day, 0.0, time));
    EXPECT_EQ(time.year, record.Year);
    EXPECT_EQ(time.month, record.Month);
    EXPECT_EQ(time.day, static_cast<int>(record.Day));
  }
}

TEST(CivilTime, RoundsIntoTheNextDay) {
  CivilTime time{};
  const double late = JulianDayOf({2023, 12, 31, 23, 59, 59.7});
  ASSERT_TRUE(CivilTimeOf(late, 0.0, time));
  EXPECT_EQ(time.day, 31);
  EXPECT_NEAR(time.second, 59.7, 1e-4);
  ASSERT_TRUE(CivilTimeOf(late, 1.0, time));
  EXPECT_EQ(time.year, 2024);
  EXPECT_EQ(time.month, 1);
  EXPECT_EQ(time.day, 1);
  EXPECT_EQ(time.hour, 0);
  EXPECT_EQ(time.second, 0.0);
  ASSERT_TRUE(CivilTimeOf(JulianDayOf({2024, 3, 1, 11, 29, 31.0}), 60.0, time));
  EXPECT_EQ(time.minute, 30);
  EXPECT_EQ(time.second, 0.0);
}

TEST(CivilTime, SecondsStayBelowSixty) {
  for (int k = 0; k < 100000; ++k) {
    const double day = 2460000.5 + k * 0.00077;
    for (const double round_to : {0.0, 0.001, 1.0, 7.0, 60.0}) {
      CivilTime time{};
      ASSERT_TRUE(CivilTimeOf(day, round_to, time));
      ASSERT_GE(time.second, 0.0);
      ASSERT_LT(time.second, 60.0);
      ASSERT_NEAR(JulianDayOf(time), day, (round_to / 2.0 + 1e-4) / 86400.0);
    }
  }
}

TEST(CivilTime, RefusesDaysWithoutDate) {
  CivilTime time{1, 2, 3, 4, 5, 6.0};
  for (const double day : {1e8, -1e8, 7.6e7, -7.4e7, std::nan(""), HUGE_VAL}) {
    EXPECT_FALSE(CivilTimeOf(day, 0.0, time)) << day;
  }
  for (const double round_to : {-1.0, 86401.0, std::nan("")}) {
    EXPECT_FALSE(CivilTimeOf(2451545.0, round_to, time)) << round_to;
  }
  EXPECT_EQ(time.year, 1);
  EXPECT_EQ(time.second, 6.0);
}

TEST(Messages, AreThereForEveryCode) {
  EXPECT_STREQ(MessageOf(0), "No error.");
  EXPECT_STREQ(MessageOf(17), "No error.");
  for (std::int32_t code = ZENITHOR_ERROR_DAY; code < 0; ++code) {
    EXPECT_STRNE(MessageOf(code), "Unknown error code.") << code;
    for (std::int32_t other = code + 1; other <= 0; ++other) {
      EXPECT_STRNE(MessageOf(code), MessageOf(other));
    }
  }
  EXPECT_STREQ(MessageOf(ZENITHOR_ERROR_DAY - 1), "Unknown error code.");
}

}  // namespace
}  // namespace zenithor
