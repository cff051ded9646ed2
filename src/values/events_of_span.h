#pragma once

#include <cstdint>

#include "values/span.h"

namespace zenithor {

// Seasons, phases and eclipses one after the other, from the searches of the event exports and to
// the bit with their instants.

constexpr std::int32_t kNoKinds = 0;

// The set of the kinds that one number stands for; kNoKinds when there is no such kind.
std::int32_t KindSetOf(int kind);

// A set with the kinds instead of the numbers that unite them (14, 18); kNoKinds when it has other
// bits.
std::int32_t SingleKinds(std::int32_t kind_set);

// Adds the events of the set (of SingleKinds) from `from` (included) to `to` (not included), in the
// order of time, with their kinds as marks. Both within ZENITHOR_FIRST_DAY and ZENITHOR_LAST_DAY.
void EventsOfSpan(std::int32_t kind_set, double from, double to, MomentArray& moments);

struct NextEvent {
  double julian_day;  // NaN when there is none
  std::int32_t kind;
};

// The first event of the set after a day and before ZENITHOR_LAST_DAY.
NextEvent EventAfter(std::int32_t kind_set, double after);

// "total solar eclipse"; null when there is no such kind.
const char* KindName(int kind);

}  // namespace zenithor
