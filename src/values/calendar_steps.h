#pragma once

#include <cstdint>

#include "search/roots.h"

namespace zenithor {

// The moments at which a calendar field (18 to 23 of values.h) becomes a number: each is the first
// Julian day that has it. They are enumerated, not searched: years, months and days begin at
// midnights, hours, minutes and seconds at the marks of the clock, give or take the rounding of a
// Julian day.

constexpr double kLongestClockSpan = 366.0;  // [day] for hours, minutes and seconds

bool IsCalendarField(std::int32_t field);
bool IsClockField(std::int32_t field);  // hours, minutes, seconds

// An enumeration under way.
struct CalendarWalk {
  std::int32_t field;
  double target;      // the number that the field shall take
  double from;        // [day]
  double to;          // [day]
  double midnight;    // [day] at which the present day begins
  std::int32_t mark;  // of the present day: the next to be looked at
};

// Begins at `from` (included), for a calendar field; `to` is not included. Both within
// ZENITHOR_FIRST_DAY and ZENITHOR_LAST_DAY. An empty or reversed span and a target that the field
// never takes have no moments.
void BeginCalendarSteps(CalendarWalk& walk, std::int32_t field, double target, double from,
                        double to);

// The next moment [day] in the order of time, to the last bit of a Julian day; direction 1 where
// the field was lower before, -1 where it was higher. False when there are no more.
bool NextCalendarStep(CalendarWalk& walk, Root& step);

}  // namespace zenithor
