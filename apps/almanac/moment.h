#pragma once

#include <string>

namespace zenithor::almanac {

// Moments as people write them.

// The Julian day of "2026-11-21", "2026-11-21T06:30", "2026-11-21T06:30:15.5" (a space does for the
// T), of a year with a sign ("-1000-07-12"; 0 is 1 BC), or of "jd 2461365.75". Gregorian calendar
// from 1582 October 15 on, Julian before. Throws Failure, naming what is wrong, for anything else.
double ParseMoment(const std::string& text);

// Now, from the computer's clock (UTC).
double CurrentJulianDay();

// "2026-11-21 06:30:15", truncated to the second.
std::string CalendarText(double julian_day);

}  // namespace zenithor::almanac
