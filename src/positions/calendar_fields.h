#pragma once

#include "zenithor/zenithor.h"

namespace zenithor {

// Writes the calendar date and the time of day of a Julian day [day, any] into fields 18 to 23 of
// `record`, day and second truncated toward zero (ranges: time/julian_day.h).
void WriteCalendarFields(double julian_day, BodyPositionRecord& record);

}  // namespace zenithor
