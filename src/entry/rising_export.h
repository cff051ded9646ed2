#pragma once

#include "entry/thread_state.h"
#include "ephemeris/store.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// GEO_RISE behind the host boundary, on the process's own store.
double AnswerRising(double day_number, double minutes, double zone_hours, double longitude_west,
                    double latitude, BodyCode code, int32_t selector);

// The same on a store and a thread's state that are handed in.
double AnswerRisingFrom(const EphemerisStore& store, ThreadState& state, double day_number,
                        double minutes, double zone_hours, double longitude_west, double latitude,
                        BodyCode code, int32_t selector);

}  // namespace zenithor
