#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "time/clock.h"

namespace zenithor {
namespace {

constexpr double kSecond = 1.0 / 86400.0;
constexpr double kStartOfUtc = 2441317.5;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

double DayOfYear(double year) { return 2451544.5 + (year - 2000.0) * 365.2425; }

// TAI - UTC by IERS Bulletin C, plus 32.184 s.
TEST(DynamicalLessClock, CountsTheLeapSecondsOfUtc) {
  EXPECT_EQ(DynamicalLessClock(kStartOfUtc), 42.184);
  EXPECT_EQ(DynamicalLessClock(2441499.5), 43.184);                      // 1972 July 1
  EXPECT_EQ(DynamicalLessClock(2451178.5 + 86399.0 * kSecond), 63.184);  // 1998 December 31
  EXPECT_EQ(DynamicalLessClock(2451179.5), 64.184);                      // 1999 January 1
  EXPECT_EQ(DynamicalLessClock(2452791.5), 64.184);                      // 2003 June 1, 32 s
  EXPECT_EQ(DynamicalLessClock(2454482.5), 65.184);                      // 2008 January 17, 33 s
  EXPECT_EQ(DynamicalLessClock(2457753.5), 68.184);                      // 2016 December 31
  EXPECT_EQ(DynamicalLessClock(2457754.5), 69.184);                      // 2017 January 1
  EXPECT_EQ(DynamicalLessClock(2461000.5), 69.184);
  EXPECT_EQ(DynamicalLessClock(1e8), 69.184);  // held for ever
}

// Meeus, Astronomical Algorithms, example 10.a: 1977 February 18, 3h37m40s TD is 3h36m52s UT.
TEST(DynamicalToClock, MeetsThePublishedExample) {
  const double dynamical = 2443192.5 + (3.0 * 3600.0 + 37.0 * 60.0 + 40.0) * kSecond;
  const double clock = 2443192.5 + (3.0 * 3600.0 + 36.0 * 60.0 + 52.0) * kSecond;
  EXPECT_NEAR(DynamicalToClock(dynamical), clock, 0.5 * kSecond);
  EXPECT_NEAR(ClockToDynamical(clock), dynamical, 0.5 * kSecond);
}

// L. V. Morrison, F. R. Stephenson, Journal for the History of Astronomy 35 (2004), as printed in
// the Five Millennium Canon of Solar Eclipses: to 10 s before 1600, to a second until 1950, then to
// 0.1 s; PyEphem 4.1.4 has the same values in its table. The tolerance is half of that, from 1700
// on all of it. In -500 the polynomials take the value of the earlier piece, 13.7 s more.
TEST(DynamicalLessClock, MeetsThePublishedTable) {
  struct {
    double year;
    double seconds;
    double tolerance;
  } constexpr kTable[] = {
      {-500.0, 17190.0, 14.0}, {-400.0, 15530.0, 5.0}, {-300.0, 14080.0, 5.0},
      {-200.0, 12790.0, 5.0},  {-100.0, 11640.0, 5.0}, {0.0, 10580.0, 5.0},
      {100.0, 9600.0, 5.0},    {200.0, 8640.0, 5.0},   {300.0, 7680.0, 5.0},
      {400.0, 6700.0, 5.0},    {500.0, 5710.0, 5.0},   {600.0, 4740.0, 5.0},
      {700.0, 3810.0, 5.0},    {800.0, 2960.0, 5.0},   {900.0, 2200.0, 5.0},
      {1000.0, 1570.0, 5.0},   {1100.0, 1090.0, 5.0},  {1200.0, 740.0, 5.0},
      {1300.0, 490.0, 5.0},    {1400.0, 320.0, 5.0},   {1500.0, 200.0, 5.0},
      {1600.0, 120.0, 1.0},    {1700.0, 9.0, 1.0},     {1750.0, 13.0, 1.0},
      {1800.0, 14.0, 1.0},     {1850.0, 7.0, 1.0},     {1900.0, -3.0, 1.0},
      {1950.0, 29.0, 1.0},     {1955.0, 31.1, 0.15},   {1960.0, 33.2, 0.15},
      {1965.0, 35.7, 0.15},    {1970.0, 40.2, 0.15},
  };
  for (const auto& row : kTable) {
    EXPECT_NEAR(DynamicalLessClock(DayOfYear(row.year)), row.seconds, row.tolerance) << row.year;
  }
}

TEST(DynamicalLessClock, IsAParabolaInTheFarPast) {
  EXPECT_NEAR(DynamicalLessClock(DayOfYear(-2000.0)), -20.0 + 32.0 * 38.2 * 38.2, 1e-6);
  EXPECT_NEAR(DynamicalLessClock(DayOfYear(-4000.0)), -20.0 + 32.0 * 58.2 * 58.2, 1e-6);
}

// The pieces meet within 0.26 s, and UTC began 0.07 s from the polynomial.
TEST(DynamicalLessClock, StepsLittleFromPieceToPiece) {
  for (const double year :
       {-500.0, 500.0, 1600.0, 1700.0, 1800.0, 1860.0, 1900.0, 1920.0, 1941.0, 1961.0}) {
    const double seam = DayOfYear(year);
    EXPECT_NEAR(DynamicalLessClock(seam - 1e-6), DynamicalLessClock(seam + 1e-6), 0.26) << year;
  }
  EXPECT_NEAR(DynamicalLessClock(kStartOfUtc - 1e-6) - 42.184, 0.068, 0.001);
}

TEST(Clock, ComesBackWhereItWas) {
  std::mt19937_64 random(1582);
  std::uniform_real_distribution<double> day(990557.5, 3182029.5);  // -2000 to 4000
  int away = 0;
  for (int i = 0; i < 200000; ++i) {
    const double clock = day(random);
    if (std::fabs(DynamicalToClock(ClockToDynamical(clock)) - clock) > 1e-9) {
      ++away;
    }
    const double dynamical = day(random);
    ASSERT_NEAR(ClockToDynamical(DynamicalToClock(dynamical)), dynamical, 1.0 * kSecond + 1e-9);
  }
  // Only within the seconds of a step.
  EXPECT_EQ(away, 0);
  for (const double far : {-99990000.0, -5e7, 99990000.0}) {
    EXPECT_NEAR(DynamicalToClock(ClockToDynamical(far)), far, 3e-8) << far;
  }
}

TEST(Clock, ComesBackAtMidnightAfterALeapSecond) {
  const double midnight = 2457754.5;  // 2017 January 1
  EXPECT_EQ(DynamicalToClock(ClockToDynamical(midnight)), midnight);
  const double before = midnight - 0.5 * kSecond;
  EXPECT_NEAR(DynamicalToClock(ClockToDynamical(before)), before, 1e-9);
}

TEST(DynamicalToClock, ShowsMidnightDuringALeapSecond) {
  const double midnight = 2457754.5;
  const double begins = midnight + 68.184 * kSecond;  // 23:59:60
  EXPECT_NEAR(DynamicalToClock(begins - 0.1 * kSecond), midnight - 0.1 * kSecond, 1e-9);
  EXPECT_EQ(DynamicalToClock(begins + 0.1 * kSecond), midnight);
  EXPECT_EQ(DynamicalToClock(begins + 0.9 * kSecond), midnight);
  EXPECT_NEAR(DynamicalToClock(begins + 1.1 * kSecond), midnight + 0.1 * kSecond, 1e-9);
}

TEST(DynamicalToClock, NeverRunsBackwards) {
  const double seams[] = {DayOfYear(-500.0), DayOfYear(500.0),  DayOfYear(1600.0),
                          DayOfYear(1700.0), DayOfYear(1800.0), DayOfYear(1860.0),
                          DayOfYear(1900.0), DayOfYear(1920.0), DayOfYear(1941.0),
                          DayOfYear(1961.0), kStartOfUtc,       2457754.5};
  for (const double seam : seams) {
    const double start = ClockToDynamical(seam) - 3.0 * kSecond;
    double last = DynamicalToClock(start);
    for (int i = 1; i <= 600; ++i) {
      const double here = DynamicalToClock(start + 0.01 * i * kSecond);
      ASSERT_GE(here, last) << seam << " at " << i;
      ASSERT_LE(here - last, 0.3 * kSecond);
      last = here;
    }
  }
}

TEST(Clock, HasNoTimeWhereThereIsNone) {
  for (const double day : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e300,
                           std::nextafter(1e8, kInfinity), std::nextafter(-1e8, -kInfinity)}) {
    EXPECT_TRUE(std::isnan(ClockToDynamical(day))) << day;
    EXPECT_TRUE(std::isnan(DynamicalToClock(day))) << day;
    EXPECT_TRUE(std::isnan(DynamicalLessClock(day))) << day;
  }
  EXPECT_TRUE(std::isfinite(ClockToDynamical(-1e8)));
}

}  // namespace
}  // namespace zenithor
