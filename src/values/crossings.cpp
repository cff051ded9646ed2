#include "values/crossings.h"

#include <cmath>
#include <limits>

#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
#include "values/calendar_steps.h"
#include "values/field_source.h"
#include "values/fields.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

enum class Way { kNone, kSmooth, kDirection, kCalendar };

// A search under way; holds addresses of its own members.
struct CrossingWalk {
  Way way;
  SourcePair sources;
  RootWalk roots;
  std::int32_t wanted;  // of field 106: the direction that is asked for
  CalendarWalk calendar;
};

// The square of the sine of half the angle, as SmoothValues has fields 9 and 105; NaN when the
// field never takes the target.
double HalfAngleTarget(double target, double half_turn, double radians_per_unit) {
  if (!(target >= 0.0 && target <= half_turn)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  const double sine = Sine(0.5 * target * radians_per_unit);
  return sine * sine;
}

double SmoothTarget(std::int32_t field, double target) {
  if (field == ZENITHOR_FIELD_ELONGATION) {
    return HalfAngleTarget(target, 180.0, kRadiansPerDegree);
  }
  if (field == ZENITHOR_FIELD_MOON_PHASE_ANGLE) {
    return HalfAngleTarget(target, kPi, 1.0);
  }
  return target;
}

std::int32_t BeginCrossings(CrossingWalk& walk, const SearchStores& stores, PositionState& state,
                            std::int32_t body, std::int32_t field, double target, double from,
                            double to) {
  if (!IsBody(body)) {
    return ZENITHOR_ERROR_BODY;
  }
  const bool direction = field == ZENITHOR_FIELD_DIRECTION;
  const bool calendar = IsCalendarField(field);
  const std::int32_t searched = direction ? ZENITHOR_FIELD_LONGITUDE_MOTION : field;
  const FieldBounds* const bounds = BoundsOf(body, searched);
  if (bounds == nullptr && !calendar) {
    return ZENITHOR_ERROR_FIELD;
  }
  if (!std::isfinite(target)) {
    return ZENITHOR_ERROR_ANGLE;
  }
  if (!IsDayOfSpan(from) || !IsDayOfSpan(to) ||
      (IsClockField(field) && to - from > kLongestClockSpan)) {
    return ZENITHOR_ERROR_SPAN;
  }
  walk.way = Way::kNone;
  if (calendar) {
    walk.way = Way::kCalendar;
    BeginCalendarSteps(walk.calendar, field, target, from, to);
    return 0;
  }
  const double smooth_target = direction ? 0.0 : SmoothTarget(field, target);
  if (std::isnan(smooth_target) || (direction && std::fabs(target) != 1.0)) {
    return 0;
  }
  walk.way = direction ? Way::kDirection : Way::kSmooth;
  walk.wanted = target > 0.0 ? 1 : -1;
  MakePair(stores, state, body, kNoOther, searched, walk.sources);
  const bool begun =
      BeginRoots(walk.roots, CrossingProblem(walk.sources, *bounds, smooth_target), from, to);
  return begun ? 0 : ZENITHOR_ERROR_SPAN;
}

bool NextCrossing(CrossingWalk& walk, Root& root) {
  switch (walk.way) {
    case Way::kNone:
      return false;
    case Way::kCalendar:
      return NextCalendarStep(walk.calendar, root);
    case Way::kSmooth:
      return NextRoot(walk.roots, root);
    case Way::kDirection:
      break;
  }
  while (NextRoot(walk.roots, root)) {
    if (root.direction == walk.wanted) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::int32_t FindCrossings(const SearchStores& stores, PositionState& state, std::int32_t body,
                           std::int32_t field, double target, double from, double to,
                           double* julian_days, std::int32_t* directions, std::int32_t capacity) {
  if (const std::int32_t error = SpanError(from, to, julian_days, capacity); error != 0) {
    return error;
  }
  CrossingWalk walk;
  const std::int32_t error = BeginCrossings(walk, stores, state, body, field, target, from, to);
  return error != 0 ? error : FillMoments(walk, NextCrossing, {julian_days, directions, capacity});
}

double NextCrossingAfter(const SearchStores& stores, PositionState& state, std::int32_t body,
                         std::int32_t field, double target, double after) {
  // Every mark of the clock comes within a day.
  const double last =
      IsClockField(field) ? std::fmin(ZENITHOR_LAST_DAY, after + 2.0) : ZENITHOR_LAST_DAY;
  CrossingWalk walk;
  Root root;
  const bool found =
      BeginCrossings(walk, stores, state, body, field, target, JustAfter(after), last) == 0 &&
      NextCrossing(walk, root);
  return found ? root.moment : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace zenithor
