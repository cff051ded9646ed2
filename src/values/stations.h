#pragma once

#include <cstdint>

#include "positions/position.h"
#include "values/field_source.h"

namespace zenithor {

// The moments [day] from <= t < to at which a longitude or declination turns: see ZenithorStations
// and ZenithorDirectedStations in values.h. `directions` may be null. Returns how many there are,
// or an error code.
std::int32_t FindStations(const SearchStores& stores, PositionState& state, std::int32_t body,
                          std::int32_t field, double from, double to, double* julian_days,
                          std::int32_t* directions, std::int32_t capacity);

// The first [day] after `after`; NaN when there is none before ZENITHOR_LAST_DAY, or with an error.
double NextStationAfter(const SearchStores& stores, PositionState& state, std::int32_t body,
                        std::int32_t field, double after);

}  // namespace zenithor
