#pragma once

#include "zenithor/zenithor.h"

namespace zenithor {

// What the exports answer behind the host boundary, on the process's own store and the thread's own
// state. The event exports keep nothing and read no store: theirs is AnswerEvent of the events.

// ZENITHOR.
double AnswerPosition(double julian_day, double observer_longitude, double observer_latitude,
                      BodyCode code, BodyPositionRecord* record);

// GEO_RISE.
double AnswerRising(double day_number, double minutes, double zone_hours, double longitude_west,
                    double latitude, BodyCode code, int32_t selector);

}  // namespace zenithor
