#pragma once

#include <cstdint>

namespace zenithor {

// Julian days, Julian centuries and the calendar.
// Source: J. Meeus, Astronomical Algorithms, chapter 7.

// A moment as calendar date and time of day, in the time scale of the Julian day it came from.
// Julian calendar before 1582 October 15, Gregorian calendar from then on.
struct CalendarInstant {
  std::int32_t Year;    // astronomical numbering: 1 BC is 0
  std::int32_t Month;   // 1 to 12
  double Day;           // day of the month with the fraction of the day
  std::int32_t Hour;    // whole hours of the fraction
  std::int32_t Minute;  // whole minutes
  double Second;        // seconds with fraction
};

// T, Julian centuries of 36525 days from J2000.0, of a Julian day [day], and back. Any number is
// answered; NaN and infinities stay what they are.
double JulianCenturies(double julian_day);
double JulianDayFromCenturies(double centuries);

// Julian day of 0 January of `year` (any) at 0h, that is of 31 December of the year before.
// Gregorian calendar from 1583 on, Julian before.
double JulianDayOfYearStart(std::int32_t year);

// Splits a Julian day. Nothing is rounded: 23:59:59.9 stays in its day, with Second 59.9.
// Before day -1401 (4717 BC March) Month and Day leave their ranges. Beyond the days that 32 bits
// can count (about 5.9 million years either way) there is no calendar date: Year and Month are
// those of the last countable day, Day, Hour, Minute and Second what is left over, the integers
// saturated. NaN gives Year -4712, Month 1, Hour and Minute 0, Day and Second NaN.
CalendarInstant JulianDayToCalendar(double julian_day);

}  // namespace zenithor
