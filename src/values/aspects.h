#pragma once

#include <cstdint>

#include "positions/position.h"
#include "values/field_source.h"

namespace zenithor {

// The moments [day] from <= t < to at which two bodies stand at an angle [deg], either side: see
// ZenithorAspects and ZenithorDirectedAspects in values.h. `directions` may be null. Returns how
// many there are, or an error code.
std::int32_t FindAspects(const SearchStores& stores, PositionState& state, std::int32_t body,
                         std::int32_t other, std::int32_t field, double angle, double from,
                         double to, double* julian_days, std::int32_t* directions,
                         std::int32_t capacity);

// The first [day] after `after`; NaN when there is none before ZENITHOR_LAST_DAY, or with an error.
double NextAspectAfter(const SearchStores& stores, PositionState& state, std::int32_t body,
                       std::int32_t other, std::int32_t field, double angle, double after);

}  // namespace zenithor
