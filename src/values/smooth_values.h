#pragma once

#include <cstdint>

#include "ephemeris/store.h"
#include "positions/position.h"

namespace zenithor {

// The fields of values.h as smooth functions of time, for searches. They are the library's own
// places with these differences, which only searches need:
// - Where a record holds an angle just below 0 with its sign lost (stored_angles.h), or nothing at
//   exactly 0, the angle itself is taken. So the fields that are made of right ascension (101 to
//   105) have no jump there either.
// - An angle that turns back at 0 and at half a turn is replaced by the square of the sine of its
//   half, which is smooth there: elongation and phase angle (fields 105 and 9).
// Longitudes count modulo 360, right ascension modulo 24. The calendar fields and field 106 step
// and have no smooth form.
// Writes the values at julian_days[0..count-1] [day], in the units of values.h but for those of
// fields 9 and 105, 0 to 1. What the body does not have is 0 or NaN: callers ask for fields with
// bounds only (field_bounds.h). `values` may be `julian_days` itself.
void SmoothValues(const EphemerisStore& store, PositionState& state, int body, int field,
                  const double* julian_days, std::int32_t count, double* values);

// The fields of one moment at once: longitudes, latitudes [deg], distance, right ascension [h],
// declination, and what they are made of.
struct SmoothPlace {
  double values[18];       // by field number, 1 to 10 and 15 to 17
  double longitude;        // [deg] field 101
  double latitude;         // [deg] field 102
  double half_angle_sine;  // square of the sine of half the elongation, 0 to 1
};

// What part of a SmoothPlace is wanted.
enum class SmoothPart { kHeliocentric, kGeometric, kApparent, kElongation, kWhole };

void ComputeSmoothPlace(const EphemerisStore& store, PositionState& state, int body,
                        double julian_day, SmoothPart part, SmoothPlace& place);

// The field as SmoothValues has it, where the place has that part; NaN for fields that are not of
// one moment (103, 104).
double FieldOfPlace(const SmoothPlace& place, int field);

}  // namespace zenithor
