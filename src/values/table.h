#pragma once

#include <cstdint>

#include "ephemeris/store.h"
#include "positions/position.h"

namespace zenithor {

// The arguments of ZenithorTable, none of them null or negative; the strides as they apply.
struct TableRequest {
  const std::int32_t* bodies;
  std::int32_t body_count;
  const std::int32_t* fields;
  std::int32_t field_count;
  const double* julian_days;
  std::int32_t day_count;
  double* values;
  std::int32_t day_stride, body_stride, field_stride;
};

// Fills the table; returns what ZenithorTable returns.
std::int32_t FillTable(const EphemerisStore& store, PositionState& state,
                       const TableRequest& request);

}  // namespace zenithor
