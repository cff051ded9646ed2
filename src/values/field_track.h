#pragma once

#include <cstdint>

#include "ephemeris/store.h"
#include "positions/position.h"
#include "search/interpolant.h"
#include "values/smooth_values.h"

namespace zenithor {

// A field of a body, cheaply: computed at the multiples of a step of some days and interpolated
// between them (search/interpolant.h). Searches use it to find out where the full series have to be
// asked. At a multiple itself the value is the computed one. How far off it is: field_bounds.inc.
//
// The nodes are those of the guide (guide_store.h), of the full places for the Moon and Pluto, and
// they are kept in the thread's NodeMemory: all searches over the same years share them. The value
// of a moment depends on the stores and the moment alone.
//
// Within 5 degrees of the Sun the bending of Pluto's light makes its fields too crooked. Where one
// of the ten nodes is so near, the place itself is computed.

// [day] between the nodes of a body, a power of two.
double NodeSpacing(std::int32_t body);

// Whether a place may be one of the nodes of an interpolation; its elongation must be there.
bool IsSmoothNode(std::int32_t body, const SmoothPlace& place);

struct FieldTrack {
  const EphemerisStore* store;  // of the nodes
  PositionState* state;
  std::uint64_t function;  // the key of its nodes; 0 when they cannot be kept
  double spacing;
  double period;
  std::int32_t body;
  std::int32_t field;  // of the nodes; for motions the field whose rate they are
  bool is_motion;

  // The interval that was asked last.
  double interval;  // its number, counted from day 0; NaN when there is none
  bool smooth;
  Interpolant interpolant;
};

FieldTrack TrackOf(const EphemerisStore& store, PositionState& state, std::int32_t body,
                   std::int32_t field);

// In the unit of SmoothValues; of motions (103, 104) TrackRate of their field. Longitudes run on
// within an interval and may be a turn apart between two of them.
double TrackValue(FieldTrack& track, double day);

// [unit/day] The derivative of the interpolant. At a multiple of the step it is the quotient of the
// two nodes beside it, which costs less and is off by up to step^2 / 6 of the third derivative, and
// where there is no interpolant that of two places an eighth of a day apart.
double TrackRate(FieldTrack& track, double day);

// What the quotient of two values `reach` [day] before and after `day` lacks to the derivative
// [unit/day]: by the interpolant that holds at `day`. 0 where there is none.
double TrackQuotientError(FieldTrack& track, double day, double reach);

}  // namespace zenithor
