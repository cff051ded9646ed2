#pragma once

#include <cmath>
#include <cstdint>

#include "zenithor/values.h"

namespace zenithor {

// What all functions share that fill an array with moments.

inline bool IsDayOfSpan(double day) {
  return day >= ZENITHOR_FIRST_DAY && day <= ZENITHOR_LAST_DAY;
}

// Where the moments of a span go. Counts all of them, writes as many as there is room for.
struct MomentArray {
  double* julian_days;  // may be null when capacity is 0
  std::int32_t* marks;  // what is said of each; may be null
  std::int32_t capacity;
  std::int32_t count = 0;  // all that were added
};

inline void AddMoment(MomentArray& moments, double julian_day, std::int32_t mark) {
  if (moments.count < moments.capacity) {
    moments.julian_days[moments.count] = julian_day;
    if (moments.marks != nullptr) {
      moments.marks[moments.count] = mark;
    }
  }
  ++moments.count;
}

// 0, or the error code of a capacity, an array or a span that is none.
inline std::int32_t SpanError(double from, double to, const double* julian_days,
                              std::int32_t capacity) {
  if (capacity < 0) {
    return ZENITHOR_ERROR_COUNT;
  }
  if (julian_days == nullptr && capacity > 0) {
    return ZENITHOR_ERROR_ARRAY;
  }
  return IsDayOfSpan(from) && IsDayOfSpan(to) ? 0 : ZENITHOR_ERROR_SPAN;
}

}  // namespace zenithor
