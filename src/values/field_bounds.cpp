#include "values/field_bounds.h"

#include <cmath>

#include "zenithor/values.h"

namespace zenithor {

namespace {

constexpr FieldBounds kBounds[] = {
#include "values/field_bounds.inc"
};

}  // namespace

const FieldBounds* BoundsOf(std::int32_t body, std::int32_t field) {
  for (const FieldBounds& bounds : kBounds) {
    if (bounds.body == body && bounds.field == field) {
      return &bounds;
    }
  }
  return nullptr;
}

double GreatestRate(const FieldBounds& bounds) {
  return std::fmax(std::fabs(bounds.lowest_rate), std::fabs(bounds.highest_rate));
}

double SmoothPeriod(std::int32_t field) {
  switch (field) {
    case ZENITHOR_FIELD_HELIO_LONGITUDE:
    case ZENITHOR_FIELD_GEO_LONGITUDE:
    case ZENITHOR_FIELD_APPARENT_LONGITUDE:
      return 360.0;
    case ZENITHOR_FIELD_RIGHT_ASCENSION:
      return 24.0;
    default:
      return 0.0;
  }
}

}  // namespace zenithor
