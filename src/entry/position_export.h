#pragma once

#include "ephemeris/store.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// ZENITHOR behind the host boundary, on the process's own store.
double AnswerPosition(double julian_day, double observer_longitude, double observer_latitude,
                      BodyCode code, BodyPositionRecord* record);

// The same on a store that is handed in.
double AnswerPositionFrom(const EphemerisStore& store, double julian_day, double observer_longitude,
                          double observer_latitude, BodyCode code, BodyPositionRecord* record);

}  // namespace zenithor
