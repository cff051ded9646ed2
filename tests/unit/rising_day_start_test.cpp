#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "rising/day_start.h"
#include "rising/rising_day.h"

namespace zenithor {
namespace {

// The start of day `day`, in days from J2000.0: 2000 January 1, 12h is half a day after the start
// of day 14245.
double StartOf(double day) { return day - 14245.5; }

std::int64_t FloorDivide(std::int64_t a, std::int64_t b) {
  return a / b - (a % b != 0 && a % b < 0 ? 1 : 0);
}

TEST(DayStart, WholeDayNumbersAreAlwaysThatDayInEveryZone) {
  // 45 million starts, each compared in whole quarter hours: the nearest is the right one, and the
  // start is within 1e-9 day of it (rounding of the sum: 3e-11).
  std::int64_t wrong = 0;
  for (int day = -200000; day <= 200000; ++day) {
    for (int quarters = -14 * 4; quarters <= 14 * 4; ++quarters) {
      const RisingDay start =
          FindRisingDay({static_cast<double>(day), 0.0, quarters / 4.0, 0.0, 0.0, ZENITHOR_SUN});
      const double in_quarters = start.start_days * 96.0;
      const double expected = static_cast<double>(day) * 96.0 - 14245.5 * 96.0 + quarters;
      if (!(std::fabs(in_quarters - expected) <= 96e-9)) {
        ++wrong;
      }
    }
  }
  EXPECT_EQ(wrong, 0);
}

TEST(DayStart, IsTheFloorOfTheExactSumOfDaysAndMinutes) {
  // Day numbers and minutes with 20 binary places, so that 64-bit integers hold the sum exactly.
  constexpr std::int64_t kScale = std::int64_t{1} << 20;
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> days(-200000 * kScale, 200000 * kScale);
  std::uniform_int_distribution<std::int64_t> minutes(-5000 * kScale, 5000 * kScale);
  for (int k = 0; k < 1000000; ++k) {
    const std::int64_t a = days(random);
    // Every other sum is put next to a whole day.
    std::int64_t b = minutes(random);
    if (k % 2 == 0) {
      b -= (a * 1440 + b) % (1440 * kScale) + k % 3 - 1;
    }
    const double expected = StartOf(static_cast<double>(FloorDivide(a * 1440 + b, 1440 * kScale)));
    const double actual = DaysToDayStart(static_cast<double>(a) / static_cast<double>(kScale),
                                         static_cast<double>(b) / static_cast<double>(kScale));
    ASSERT_EQ(actual, expected) << a << " " << b;
  }
}

TEST(DayStart, TheLastInstantBeforeMidnightIsStillTheDay) {
  // Day number plus minutes / 1440 rounds to the next day here; the exact sum does not reach it.
  EXPECT_EQ(DaysToDayStart(15000.0, std::nextafter(1440.0, 0.0)), StartOf(15000));
  EXPECT_EQ(DaysToDayStart(15000.0, 1440.0), StartOf(15001));
  EXPECT_EQ(DaysToDayStart(15000.0, -1e-300), StartOf(14999));
  EXPECT_EQ(DaysToDayStart(-1e-300, 0.0), StartOf(-1));
  EXPECT_EQ(DaysToDayStart(-1e-300, 1e-290), StartOf(0));
  EXPECT_EQ(DaysToDayStart(0.0, -0.0), StartOf(0));
  const double denormal = std::numeric_limits<double>::denorm_min();
  EXPECT_EQ(DaysToDayStart(-denormal, 0.0), StartOf(-1));
  EXPECT_EQ(DaysToDayStart(-denormal, 1440.0 * denormal), StartOf(0));
  EXPECT_EQ(DaysToDayStart(-denormal, 1439.0 * denormal), StartOf(-1));
  EXPECT_EQ(DaysToDayStart(std::nextafter(7.0, 0.0), 0.0), StartOf(6));
  // Here the sum rounds to a whole day even in extended precision; what rounding takes off tells on
  // which side it lies.
  const double last_fraction = std::nextafter(1.0, 0.0);
  const double rest = 1440.0 * 0x1p-53;
  EXPECT_EQ(DaysToDayStart(last_fraction, rest), StartOf(1));
  EXPECT_EQ(DaysToDayStart(last_fraction, std::nextafter(rest, 0.0)), StartOf(0));
  EXPECT_EQ(DaysToDayStart(last_fraction, std::nextafter(rest, 1.0)), StartOf(1));
  EXPECT_EQ(DaysToDayStart(-last_fraction, -rest), StartOf(-1));
  EXPECT_EQ(DaysToDayStart(-last_fraction, -std::nextafter(rest, 0.0)), StartOf(-1));
  EXPECT_EQ(DaysToDayStart(-last_fraction, -std::nextafter(rest, 1.0)), StartOf(-2));
}

TEST(DayStart, TakesDaysOutOfTheMinutes) {
  EXPECT_EQ(DaysToDayStart(100.75, 360.0), StartOf(101));
  EXPECT_EQ(DaysToDayStart(100.75, std::nextafter(360.0, 0.0)), StartOf(100));
  EXPECT_EQ(DaysToDayStart(100.25, -361.0), StartOf(99));
  EXPECT_EQ(DaysToDayStart(-100.25, -1440.0 * 30.0 - 1080.0), StartOf(-131));
  EXPECT_EQ(DaysToDayStart(-100.25, -1440.0 * 30.0 - 1081.0), StartOf(-132));
}

TEST(DayStart, OfAnEnormousArgumentIsItsDay) {
  // Rounded: a day number of 1e18 is one of whole hundreds.
  const auto expect = [](double actual, double days) {
    EXPECT_NEAR(actual, StartOf(days), 1.0 + 0x1p-51 * std::fabs(days)) << days;
  };
  for (const double extreme : {1e18, -1e18, 1e300, -1e300}) {
    expect(DaysToDayStart(extreme, 0.0), extreme);
    expect(DaysToDayStart(0.0, extreme), extreme / 1440.0);
    expect(DaysToDayStart(extreme, -extreme), extreme - extreme / 1440.0);
  }
}

TEST(DayNumber, OfAJulianDayIsTheZoneDayThatHoldsIt) {
  EXPECT_EQ(ZenithorDayNumber(2437299.5, 0.0), 0.0);
  EXPECT_EQ(ZenithorDayNumber(2437300.4, 0.0), 0.0);
  EXPECT_EQ(ZenithorDayNumber(2437299.4, 0.0), -1.0);
  // 2026 June 21, 3h universal time is still June 20 in New York (4 h west in summer) and already
  // June 21 in Tokyo (9 h east).
  const double moment = 2461212.5 + 3.0 / 24.0;
  EXPECT_EQ(ZenithorDayNumber(moment, 4.0), 23912.0);
  EXPECT_EQ(ZenithorDayNumber(moment, ZenithorWestZone(9.0)), 23913.0);
}

TEST(DayNumber, OfARoundedMidnightIsTheDayThatBegins) {
  for (int day = -200000; day <= 200000; day += 7) {
    for (int quarters = -14 * 4; quarters <= 14 * 4; ++quarters) {
      const double zone = quarters / 4.0;
      const double midnight = 2437299.5 + day + zone / 24.0;
      ASSERT_EQ(ZenithorDayNumber(midnight, zone), day) << zone;
    }
  }
}

TEST(DayNumber, AnswersGoBackToJulianDays) {
  EXPECT_DOUBLE_EQ(ZenithorRisingJulianDay(0.0, 0.0, 720.0), 2437300.0);
  EXPECT_DOUBLE_EQ(ZenithorRisingJulianDay(23912.0, 4.0, 1440.0 - 240.0), 2461212.5);
}

TEST(WestLongitude, TurnsTheSignRound) {
  EXPECT_EQ(ZenithorWestLongitude(-71.0833), 71.0833);
  EXPECT_EQ(ZenithorWestZone(5.5), -5.5);
}

}  // namespace
}  // namespace zenithor
