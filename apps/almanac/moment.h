#pragma once

#include <string>

#include "clock.h"

namespace zenithor::almanac {

// Moments as people write them, from -4712-01-01 to 10000-01-01: earlier the calendar of the record
// ends, and later the series are off by days. All answers are Julian days of dynamical time.

constexpr int kFirstYear = -4712;
constexpr int kLastYear = 9999;

// "2026-11-21", "2026-11-21T06", "2026-11-21 06:30:15.5", "2026-11", "2026", years with a sign
// (0 is 1 BC), all in the clock's time, or in that of a "Z" or "+02:00" behind them; "now",
// "today", "tomorrow", "yesterday"; "jd2461365.75", a Julian day of dynamical time. Gregorian
// calendar from 1582 October 15 on, Julian before. Throws Failure, naming the option and what is
// wrong, for anything else.
double MomentOf(const std::string& option, const std::string& text, const Clock& clock);

// A year from kFirstYear to kLastYear; throws Failure.
int YearOf(const std::string& option, const std::string& text);

// When a year begins by the clock.
double YearStart(const Clock& clock, int year);

// The year that the clock shows at a moment.
int YearAt(const Clock& clock, double dynamical_day);

// The Julian day, in the clock's own time, of the midnight that begins the moment's day.
double ShownMidnight(const Clock& clock, double dynamical_day);

// Throws Failure where a moment is none that searches answer, from -2000-01-01 to 4000-01-01.
void CheckSearched(const std::string& option, double dynamical_day);

}  // namespace zenithor::almanac
