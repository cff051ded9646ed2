#pragma once

#include "entry/thread_state.h"
#include "ephemeris/store.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// ZENITHOR behind the host boundary, on the process's own store and the thread's own
// state.
double AnswerPosition(double julian_day, double observer_longitude, double observer_latitude,
                      BodyCode code, BodyPositionRecord* record);

// The same on a store and a state that are handed in.
double AnswerPositionFrom(const EphemerisStore& store, ThreadState& state, double julian_day,
                          double observer_longitude, double observer_latitude, BodyCode code,
                          BodyPositionRecord* record);

}  // namespace zenithor
