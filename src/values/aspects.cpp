#include "values/aspects.h"

#include <cmath>
#include <limits>

#include "values/field_source.h"
#include "values/fields.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

// The search for one side, `angle` or -`angle`, with the moment that it found last.
struct AspectSide {
  RootWalk roots;
  Root next;
  bool has_next;
};

struct AspectWalk {
  SourcePair sources;
  AspectSide sides[2];
};

// [day] Some four roundings of a Julian day: contacts that never lie farther apart are one.
constexpr double kOneMoment = 2e-9;

// The angle, or 0 or 180 where its two sides could not be told from each other.
double WithoutRounding(double angle, bool longitude, double greatest_rate) {
  const double least = kOneMoment * greatest_rate;
  if (std::fabs(angle) < least) {
    return 0.0;
  }
  return longitude && 180.0 - std::fabs(angle) < least ? 180.0 : angle;
}

void Advance(AspectSide& side) { side.has_next = NextRoot(side.roots, side.next); }

std::int32_t BeginAspects(AspectWalk& walk, const SearchStores& stores, PositionState& state,
                          std::int32_t body, std::int32_t other, std::int32_t field, double angle,
                          double from, double to) {
  if (!IsBody(body) || !IsBody(other) || body == other) {
    return ZENITHOR_ERROR_BODY;
  }
  const bool longitude = PeriodOfField(field) == 360.0;
  const FieldBounds* const a = BoundsOf(body, field);
  const FieldBounds* const b = BoundsOf(other, field);
  if (a == nullptr || b == nullptr || (!longitude && field != ZENITHOR_FIELD_DECLINATION)) {
    return ZENITHOR_ERROR_FIELD;
  }
  if (!std::isfinite(angle)) {
    return ZENITHOR_ERROR_ANGLE;
  }
  if (!IsDayOfSpan(from) || !IsDayOfSpan(to)) {
    return ZENITHOR_ERROR_SPAN;
  }
  MakePair(stores, state, body, other, field, walk.sources);
  const FieldBounds bounds = BoundsOfDifference(*a, *b);
  const double reduced = WithoutRounding(longitude ? std::remainder(angle, 360.0) : angle,
                                         longitude, GreatestRate(bounds));
  const bool both_sides_are_one = reduced == 0.0 || (longitude && reduced == 180.0);
  walk.sides[1].has_next = false;
  for (int side = 0; side < (both_sides_are_one ? 1 : 2); ++side) {
    const RootProblem problem =
        CrossingProblem(walk.sources, bounds, side == 0 ? reduced : -reduced);
    if (!BeginRoots(walk.sides[side].roots, problem, from, to)) {
      return ZENITHOR_ERROR_SPAN;
    }
    Advance(walk.sides[side]);
  }
  return 0;
}

bool NextAspect(AspectWalk& walk, Root& root) {
  AspectSide& plus = walk.sides[0];
  AspectSide& minus = walk.sides[1];
  const bool take_plus =
      plus.has_next && (!minus.has_next || plus.next.moment <= minus.next.moment);
  AspectSide& side = take_plus ? plus : minus;
  if (!side.has_next) {
    return false;
  }
  root = {side.next.moment, take_plus ? 1 : -1};
  Advance(side);
  return true;
}

}  // namespace

std::int32_t FindAspects(const SearchStores& stores, PositionState& state, std::int32_t body,
                         std::int32_t other, std::int32_t field, double angle, double from,
                         double to, double* julian_days, std::int32_t* directions,
                         std::int32_t capacity) {
  if (const std::int32_t error = SpanError(from, to, julian_days, capacity); error != 0) {
    return error;
  }
  AspectWalk walk;
  const std::int32_t error = BeginAspects(walk, stores, state, body, other, field, angle, from, to);
  return error != 0 ? error : FillMoments(walk, NextAspect, {julian_days, directions, capacity});
}

double NextAspectAfter(const SearchStores& stores, PositionState& state, std::int32_t body,
                       std::int32_t other, std::int32_t field, double angle, double after) {
  AspectWalk walk;
  Root root;
  const bool found = BeginAspects(walk, stores, state, body, other, field, angle, JustAfter(after),
                                  ZENITHOR_LAST_DAY) == 0 &&
                     NextAspect(walk, root);
  return found ? root.moment : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace zenithor
