#pragma once

#include "zenithor/zenithor.h"

namespace zenithor {

// The block of an event at a Julian day: the day itself and its calendar date and time of day, day
// and second truncated toward zero. Used for every block that any export fills.
EventTimeBlock EventBlockAt(double julian_day);

// The block of an event that a call did not find: all zero bits.
constexpr EventTimeBlock kZeroBlock{};

}  // namespace zenithor
