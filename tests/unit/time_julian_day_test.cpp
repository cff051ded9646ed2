#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "time/constants.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

void ExpectDate(double julian_day, int year, int month, double day) {
  const CalendarInstant instant = JulianDayToCalendar(julian_day);
  EXPECT_EQ(instant.Year, year) << julian_day;
  EXPECT_EQ(instant.Month, month) << julian_day;
  EXPECT_NEAR(instant.Day, day, 1e-6) << julian_day;  // six decimals of a day: what is printed
}

TEST(JulianCenturies, CountsFromJ2000) {
  EXPECT_EQ(JulianCenturies(2451545.0), 0.0);
  EXPECT_NEAR(JulianCenturies(2488070.0), 1.0, 2.3e-16);
  EXPECT_NEAR(JulianCenturies(2415020.0), -1.0, 2.3e-16);
  EXPECT_NEAR(JulianDayFromCenturies(0.25), 2451545.0 + 9131.25, 0.0);
}

// One multiplication by a reciprocal held in extended precision rounds like one division.
TEST(JulianCenturies, EqualsTheQuotientForWholeAndHalfDays) {
  for (double day = 1e6; day < 4e6; day += 4999.5) {
    ASSERT_EQ(JulianCenturies(day), (day - kJ2000) / kDaysPerCentury) << day;
  }
}

// Meeus, Astronomical Algorithms, example 7.a and the table of chapter 7.
TEST(JulianDayToCalendar, MeetsThePublishedDates) {
  ExpectDate(2436116.31, 1957, 10, 4.81);
  ExpectDate(1842713.0, 333, 1, 27.5);
  ExpectDate(1507900.13, -584, 5, 28.63);
  ExpectDate(2415020.5, 1900, 1, 1.0);
  ExpectDate(2305447.5, 1600, 1, 1.0);
  ExpectDate(2026871.8, 837, 4, 10.3);
  ExpectDate(1356001.0, -1000, 7, 12.5);
  ExpectDate(1355866.5, -1000, 2, 29.0);
  ExpectDate(1355671.4, -1001, 8, 17.9);
}

TEST(JulianDayToCalendar, SwitchesCalendarsOn1582October15) {
  ExpectDate(2299160.5, 1582, 10, 15.0);
  ExpectDate(2299159.5, 1582, 10, 4.0);
}

TEST(JulianDayToCalendar, GivesNoonOfJ2000) {
  const CalendarInstant instant = JulianDayToCalendar(2451545.0);
  EXPECT_EQ(instant.Year, 2000);
  EXPECT_EQ(instant.Month, 1);
  EXPECT_EQ(instant.Day, 1.5);
  EXPECT_EQ(instant.Hour, 12);
  EXPECT_EQ(instant.Minute, 0);
  EXPECT_EQ(instant.Second, 0.0);
}

TEST(JulianDayToCalendar, BeginsThePeriodInMinus4712) { ExpectDate(0.0, -4712, 1, 1.5); }

TEST(JulianDayToCalendar, NeverRoundsASecondUp) {
  // 23:59:59.9; the day number holds the instant to about 2e-5 second.
  const CalendarInstant instant = JulianDayToCalendar(2451544.5 - 0.1 / 86400.0);
  EXPECT_EQ(instant.Month, 12);
  EXPECT_EQ(std::floor(instant.Day), 31.0);
  EXPECT_EQ(instant.Hour, 23);
  EXPECT_EQ(instant.Minute, 59);
  EXPECT_NEAR(instant.Second, 59.9, 1e-4);
}

TEST(JulianDayToCalendar, IsContinuousFromDayToDay) {
  CalendarInstant before = JulianDayToCalendar(-0.5);
  for (double day = 0.5; day < 2299159.0; day += 1.0) {
    const CalendarInstant now = JulianDayToCalendar(day);
    const bool next_day = now.Day == before.Day + 1.0 && now.Month == before.Month;
    const bool next_month = now.Day == 1.0 && (now.Month == before.Month + 1 ||
                                               (now.Month == 1 && now.Year == before.Year + 1));
    ASSERT_TRUE(next_day || next_month) << day;
    before = now;
  }
}

TEST(JulianDayToCalendar, KeptOnPurposeTruncatesBefore4717BCMarch) {
  ExpectDate(-1400.5, -4716, 3, 2.0);
  ExpectDate(-1402.5, -4715, 2, 31.0);
  ExpectDate(-2000.5, -4716, -4, -19.0);
}

TEST(JulianDayToCalendar, SaturatesWhereThereIsNoCalendarDate) {
  const CalendarInstant late = JulianDayToCalendar(1e300);
  EXPECT_EQ(late.Year, JulianDayToCalendar(2147483646.5).Year);
  EXPECT_EQ(late.Hour, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(late.Minute, 0);
  EXPECT_GT(late.Day, 1e299);
  const CalendarInstant early = JulianDayToCalendar(-1e300);
  EXPECT_EQ(early.Year, JulianDayToCalendar(-2147483648.0).Year);
  EXPECT_EQ(early.Hour, std::numeric_limits<std::int32_t>::min());
  EXPECT_LT(early.Day, -1e299);
  const CalendarInstant endless = JulianDayToCalendar(std::numeric_limits<double>::infinity());
  EXPECT_EQ(endless.Hour, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(endless.Minute, 0);
  EXPECT_TRUE(std::isnan(endless.Second));
}

TEST(JulianDayToCalendar, OfNotANumberIsADayThatIsNotANumber) {
  const CalendarInstant instant = JulianDayToCalendar(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(instant.Year, -4712);
  EXPECT_EQ(instant.Month, 1);
  EXPECT_EQ(instant.Hour, 0);
  EXPECT_EQ(instant.Minute, 0);
  EXPECT_TRUE(std::isnan(instant.Day));
  EXPECT_TRUE(std::isnan(instant.Second));
}

TEST(JulianDayOfYearStart, IsTheLastDayOfTheYearBefore) {
  EXPECT_EQ(JulianDayOfYearStart(2000), 2451543.5);
  EXPECT_EQ(JulianDayOfYearStart(1987), 2446795.5);
}

TEST(JulianDayOfYearStart, TakesTheJulianCalendarUntil1582) {
  // 1581 December 31, Julian calendar, is ten days later than by the Gregorian rule.
  EXPECT_EQ(JulianDayOfYearStart(1582), 2298882.5);
  ExpectDate(JulianDayOfYearStart(1582), 1581, 12, 31.0);
  ExpectDate(JulianDayOfYearStart(1583), 1582, 12, 31.0);
}

TEST(JulianDayOfYearStart, OfTheFarthestYearsIsThatOfTheirCalendars) {
  // Meeus, chapter 7, in whole numbers: 365.25 days a year in the Julian calendar, three leap days
  // in four centuries left out in the Gregorian one.
  const std::int64_t last = std::int64_t{std::numeric_limits<std::int32_t>::max()} - 1;
  EXPECT_EQ(JulianDayOfYearStart(std::numeric_limits<std::int32_t>::max()),
            static_cast<double>(365 * last + last / 4 - last / 100 + last / 400) + 1721424.5);
  EXPECT_NEAR(JulianDayOfYearStart(std::numeric_limits<std::int32_t>::min()),
              -2147483648.0 * 365.25 + 1721056.5, 2.0);
}

}  // namespace
}  // namespace zenithor
