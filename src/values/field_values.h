#pragma once

#include <cstdint>

#include "ephemeris/store.h"
#include "positions/position.h"

namespace zenithor {

// Writes the values of `field` of `body` at julian_days[0..count-1]; NaN where there is none.
// Fields, units and definitions are those of values.h; a body or field that is none has no values.
// `values` may be `julian_days` itself. The same bits as one by one, in any order.
void FieldValues(const EphemerisStore& store, PositionState& state, int body, int field,
                 const double* julian_days, std::int32_t count, double* values);

}  // namespace zenithor
