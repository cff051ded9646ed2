#include "values/field_bounds.h"

#include <cmath>

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

}  // namespace zenithor
