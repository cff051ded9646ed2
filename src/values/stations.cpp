#include "values/stations.h"

#include <cmath>
#include <limits>

#include "search/turning_points.h"
#include "values/field_source.h"
#include "values/field_track.h"
#include "values/fields.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

// [day] of the difference quotient, by body. For the fast ones two values of the full series are
// compared with the track: what it lacks is so small that two values tell its rate. The others have
// six values of the full series. The derivatives beyond make a moment wrong by less than 1e-7 day;
// rounding likewise, from Uranus on by 1e-6 day: where the outer planets stand their longitude
// bends by 0.0005 degree/day^2 only.
constexpr double kSpacings[ZENITHOR_BODY_COUNT] = {0.0625, 0.0625, 0.0625, 0.0625, 0.0625, 0.5,
                                                   0.5,    0.5,    0.5,    0.5,    0.0625};
constexpr double kComparedSpacing = 0.0625;

void EvaluateTrackRate(void* context, const double* times, std::int32_t count, double* values) {
  for (std::int32_t i = 0; i < count; ++i) {
    values[i] = TrackRate(*static_cast<FieldTrack*>(context), times[i]);
  }
}

// Holds addresses of its own members.
struct StationWalk {
  bool turns;
  bool compared;
  SourcePair sources;
  DifferenceQuotient rate;
  RootWalk roots;
};

// The rate of two values of the full series, freed by the track of what it lacks to a derivative.
double ComparedRate(StationWalk& walk, double day) {
  const double times[] = {day - kComparedSpacing, day + kComparedSpacing};
  double f[2];
  ValuesAt(walk.rate.function, times, 2, f);
  return Departure(f[1], f[0], walk.rate.period) / (2.0 * kComparedSpacing) +
         TrackQuotientError(walk.sources.guide.track, day, kComparedSpacing);
}

void EvaluateRate(void* context, const double* times, std::int32_t count, double* values) {
  StationWalk& walk = *static_cast<StationWalk*>(context);
  for (std::int32_t i = 0; i < count; ++i) {
    values[i] = walk.compared ? ComparedRate(walk, times[i]) : DerivativeAt(walk.rate, times[i]);
  }
}

std::int32_t BeginStations(StationWalk& walk, const SearchStores& stores, PositionState& state,
                           std::int32_t body, std::int32_t field, double from, double to) {
  if (!IsBody(body)) {
    return ZENITHOR_ERROR_BODY;
  }
  const FieldBounds* const bounds = BoundsOf(body, field);
  if (bounds == nullptr || (PeriodOfField(field) != 360.0 && field != ZENITHOR_FIELD_DECLINATION)) {
    return ZENITHOR_ERROR_FIELD;
  }
  if (!IsDayOfSpan(from) || !IsDayOfSpan(to)) {
    return ZENITHOR_ERROR_SPAN;
  }
  walk.turns = bounds->lowest_rate < 0.0;
  if (!walk.turns) {
    return 0;
  }
  MakePair(stores, state, body, kNoOther, field, walk.sources);
  const double spacing = kSpacings[body];
  walk.compared = walk.sources.guided && spacing == kComparedSpacing;
  walk.rate = {FunctionOfSource(walk.sources.full), {nullptr, nullptr}, PeriodOfField(field), spacing};
  RootProblem problem{};
  problem.function = {EvaluateRate, &walk};
  problem.bend = bounds->bend_rate;
  // The weights of six values add up to 11/3, those of two to 1.
  problem.noise = 4.0 * bounds->noise / spacing;
  problem.step = 0.5 * bounds->bend / bounds->bend_rate;
  problem.tolerance = kMomentTolerance;
  if (walk.sources.guided) {
    problem.guide = {EvaluateTrackRate, &walk.sources.guide.track};
    problem.guide_error = bounds->guide_rate_error;
    problem.guide_rate_error = bounds->guide_bend_error;
  }
  return BeginRoots(walk.roots, problem, from, to) ? 0 : ZENITHOR_ERROR_SPAN;
}

bool NextStation(StationWalk& walk, Root& turn) {
  // A rate that only touches 0 is no turn.
  while (walk.turns && NextRoot(walk.roots, turn)) {
    if (turn.direction != 0) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::int32_t FindStations(const SearchStores& stores, PositionState& state, std::int32_t body,
                          std::int32_t field, double from, double to, double* julian_days,
                          std::int32_t* directions, std::int32_t capacity) {
  if (const std::int32_t error = SpanError(from, to, julian_days, capacity); error != 0) {
    return error;
  }
  StationWalk walk;
  const std::int32_t error = BeginStations(walk, stores, state, body, field, from, to);
  return error != 0 ? error : FillMoments(walk, NextStation, {julian_days, directions, capacity});
}

double NextStationAfter(const SearchStores& stores, PositionState& state, std::int32_t body,
                        std::int32_t field, double after) {
  StationWalk walk;
  Root turn;
  const bool found =
      BeginStations(walk, stores, state, body, field, JustAfter(after), ZENITHOR_LAST_DAY) == 0 &&
      NextStation(walk, turn);
  return found ? turn.moment : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace zenithor
