#pragma once

#include <string>

namespace zenithor::almanac {

// Moments as people write them, from -4712-01-01 to 10000-01-01. The library's calendar ends in
// -4716, and a search for events begins up to a year before its period. At the later end its
// seasons are a day away from its own Sun, its phases a third of one from its own Moon; in the year
// 20000 they would be months and days away.

constexpr int kFirstYear = -4712;
constexpr int kLastYear = 9999;

// The Julian day of "2026-11-21", "2026-11-21T06:30", "2026-11-21T06:30:15.5" (a blank does for the
// T), of a year with a sign ("-1000-07-12"; 0 is 1 BC), or of "jd 2461365.75". Gregorian calendar
// from 1582 October 15 on, Julian before. Throws Failure, naming the option and what is wrong, for
// anything else.
double MomentOf(const std::string& option, const std::string& text);

// The Julian day on which `year` begins, from kFirstYear to kLastYear + 1.
double YearStart(int year);

// A year of the calendar from kFirstYear to kLastYear; throws Failure.
int YearOf(const std::string& option, const std::string& text);

// Now, from the computer's clock (UTC).
double CurrentJulianDay();

// A date and a time of day. Year 0 is 1 BC.
struct Instant {
  int year;
  int month;
  int day;
  int hour;
  int minute;
  int second;
};

// To the nearest millisecond, then truncated to the second.
Instant InstantOf(double julian_day);

// "2026-11-21", "-0043-03-15".
std::string DateText(const Instant& instant);

// "2026-11-21 06:30:15".
std::string CalendarText(const Instant& instant);
std::string CalendarText(double julian_day);

}  // namespace zenithor::almanac
