#pragma once

#include <cstdint>

#include "positions/position.h"
#include "values/field_source.h"

namespace zenithor {

// The moments [day] from <= t < to at which `field` of `body` takes `target` [unit of the field]:
// see ZenithorCrossings and ZenithorDirectedCrossings in values.h. `directions` may be null.
// Returns how many there are, or an error code. Longitudes and right ascension are searched as
// angles that run on through 0, also where a record loses the sign of an angle just below 0
// (smooth_values.h).
std::int32_t FindCrossings(const SearchStores& stores, PositionState& state, std::int32_t body,
                           std::int32_t field, double target, double from, double to,
                           double* julian_days, std::int32_t* directions, std::int32_t capacity);

// The first [day] after `after`; NaN when there is none before ZENITHOR_LAST_DAY, or with an error.
double NextCrossingAfter(const SearchStores& stores, PositionState& state, std::int32_t body,
                         std::int32_t field, double target, double after);

}  // namespace zenithor
