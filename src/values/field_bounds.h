#pragma once

#include <cstdint>

namespace zenithor {

// What searches have to know of a field of a body between ZENITHOR_FIRST_DAY and ZENITHOR_LAST_DAY:
// measured by tests/scan/field_bounds_scan.cpp on SmoothValues, in whose units the numbers are.
// Pluto's hold farther than 3 degrees from the Sun; nearer, the bending of its light, which grows
// as 0.008" / elongation, adds to them, and when it passes behind the disc in its node years a
// contact that this bending alone makes may be missed.
struct FieldBounds {
  std::int32_t body;
  std::int32_t field;
  double lowest_rate;   // [unit/day] as met, without margin
  double highest_rate;  // [unit/day]
  double bend;          // [unit/day^2] greatest second derivative met, and half as much again
  double bend_rate;     // [unit/day^3] greatest third derivative, likewise
  double noise;         // [unit] twice the greatest rounding error met
  // How far the field's track (field_track.h) is off in value, rate and second derivative [unit,
  // unit/day, unit/day^2], with the same margin as the bends; 0 when there is none.
  double guide_error;
  double guide_rate_error;
  double guide_bend_error;
};

// Null when the body has no such field or the field has no smooth form.
const FieldBounds* BoundsOf(std::int32_t body, std::int32_t field);

// The larger of the two rates in magnitude.
double GreatestRate(const FieldBounds& bounds);

}  // namespace zenithor
