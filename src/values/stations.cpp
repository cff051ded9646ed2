#include "values/stations.h"

#include <cmath>
#include <limits>

#include "search/turning_points.h"
#include "values/field_source.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

// [day] of the difference quotient, by body. The seventh derivative makes a moment wrong by less
// than 1e-8 day, rounding by less than 1e-7 day, from Uranus on 1e-6 day: where the outer planets
// stand their longitude bends by 0.0005 degree/day^2 only.
constexpr double kSpacings[ZENITHOR_BODY_COUNT] = {0.25, 0.25, 0.25, 0.25, 0.25,  0.5,
                                                   0.5,  0.5,  0.5,  0.5,  0.0625};

struct StationWalk {
  bool turns;
  FieldSource source;
  TurningWalk turning;
};

std::int32_t BeginStations(StationWalk& walk, const EphemerisStore& store, PositionState& state,
                           std::int32_t body, std::int32_t field, double from, double to) {
  if (body < 0 || body >= ZENITHOR_BODY_COUNT) {
    return ZENITHOR_ERROR_BODY;
  }
  const FieldBounds* const bounds = BoundsOf(body, field);
  if (bounds == nullptr || (SmoothPeriod(field) != 360.0 && field != ZENITHOR_FIELD_DECLINATION)) {
    return ZENITHOR_ERROR_FIELD;
  }
  if (!IsSearchableSpan(from, to)) {
    return ZENITHOR_ERROR_SPAN;
  }
  walk.turns = bounds->lowest_rate < 0.0;
  if (!walk.turns) {
    return 0;
  }
  walk.source = {&store, &state, body, kNoOther, field};
  TurningProblem problem{};
  problem.function = FunctionOfSource(walk.source);
  problem.period = SmoothPeriod(field);
  problem.bend_rate = bounds->bend_rate;
  problem.noise = bounds->noise;
  problem.step = 0.5 * bounds->bend / bounds->bend_rate;
  problem.spacing = kSpacings[body];
  problem.tolerance = kMomentTolerance;
  return BeginTurningPoints(walk.turning, problem, from, to) ? 0 : ZENITHOR_ERROR_SPAN;
}

bool NextStation(StationWalk& walk, Root& turn) {
  return walk.turns && NextTurningPoint(walk.turning, turn);
}

}  // namespace

std::int32_t FindStations(const EphemerisStore& store, PositionState& state, std::int32_t body,
                          std::int32_t field, double from, double to, double* julian_days,
                          std::int32_t* directions, std::int32_t capacity) {
  if (const std::int32_t error = ArrayError(julian_days, capacity); error != 0) {
    return error;
  }
  StationWalk walk;
  const std::int32_t error = BeginStations(walk, store, state, body, field, from, to);
  return error != 0 ? error : FillMoments(walk, NextStation, julian_days, directions, capacity);
}

double NextStationAfter(const EphemerisStore& store, PositionState& state, std::int32_t body,
                        std::int32_t field, double after) {
  StationWalk walk;
  Root turn;
  const bool found =
      BeginStations(walk, store, state, body, field, JustAfter(after), ZENITHOR_LAST_DAY) == 0 &&
      NextStation(walk, turn);
  return found ? turn.moment : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace zenithor
