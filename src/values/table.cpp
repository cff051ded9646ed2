#include "values/table.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "values/field_values.h"
#include "values/fields.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

// Evaluates the places of four days side by side.
void PrepareDays(const EphemerisStore& store, PositionState& state, const TableRequest& request,
                 const double* julian_days) {
  for (std::int32_t b = 0; b < request.body_count; ++b) {
    for (std::int32_t f = 0; f < request.field_count; ++f) {
      PrepareField(store, state, request.bodies[b], request.fields[f], julian_days);
    }
  }
}

}  // namespace

std::int32_t FillTable(const EphemerisStore& store, PositionState& state,
                       const TableRequest& request) {
  std::int64_t numbers = 0;
  bool every_body = true;
  bool every_field = true;
  for (std::int32_t d = 0; d < request.day_count; ++d) {
    if (d % kMomentsAtOnce == 0 && request.day_count - d >= kMomentsAtOnce) {
      PrepareDays(store, state, request, request.julian_days + d);
    }
    for (std::int32_t b = 0; b < request.body_count; ++b) {
      every_body = every_body && IsBody(request.bodies[b]);
      for (std::int32_t f = 0; f < request.field_count; ++f) {
        every_field = every_field && IsField(request.fields[f]);
        double value = 0.0;
        FieldValues(store, state, request.bodies[b], request.fields[f], request.julian_days + d, 1,
                    &value);
        numbers += std::isnan(value) ? 0 : 1;
        const std::int64_t at = std::int64_t{d} * request.day_stride +
                                std::int64_t{b} * request.body_stride +
                                std::int64_t{f} * request.field_stride;
        request.values[static_cast<std::ptrdiff_t>(at)] = value;
      }
    }
  }
  if (!every_body) {
    return ZENITHOR_ERROR_BODY;
  }
  if (!every_field) {
    return ZENITHOR_ERROR_FIELD;
  }
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(numbers < kMost ? numbers : kMost);
}

}  // namespace zenithor
