#pragma once

#include <cstdint>

#include "ephemeris/store.h"
#include "positions/position.h"

namespace zenithor {

// Writes the values of `field` of `body` at julian_days[0..count-1]; NaN where there is none.
// Fields, units and definitions are those of values.h; a body or field that is none has no values.
// `values` may be `julian_days` itself. The same bits as one by one, in any order.
// Fields 1 and 7 of the planets mirror what is slightly below 0 (up to 17" and 20"), as the record
// does; field 101 is made from the direction before that, and runs through 360 smoothly.
// Four moments at a time are evaluated side by side.
void FieldValues(const EphemerisStore& store, PositionState& state, int body, int field,
                 const double* julian_days, std::int32_t count, double* values);

// Evaluates side by side what FieldValues will be asked for at kMomentsAtOnce moments, any numbers,
// one by one. Without effect on any answer.
void PrepareField(const EphemerisStore& store, PositionState& state, int body, int field,
                  const double* julian_days);

}  // namespace zenithor
