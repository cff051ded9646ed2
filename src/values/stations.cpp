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

// [day] of the difference quotient, by body. For some, two values of the full series are compared
// with the track: what it lacks is so small that two values tell its rate. The others have six
// values of the full series, farther apart, because rounding hides where they turn: the outer
// planets' longitudes bend by 0.0005 degree/day^2 only. The derivatives beyond make a moment wrong
// by less than 1e-7 day; rounding by less than 1e-6 day, from Uranus on and in declinations that
// hardly turn by some 1e-6.
constexpr double kSpacings[ZENITHOR_BODY_COUNT] = {0.0625, 0.125, 0.25, 0.25, 0.5,   0.5,
                                                   0.5,    0.5,   0.5,  0.5,  0.0625};
constexpr double kWidestCompared = 0.125;

// [day] Half of it is what a moment may be off before rounding makes its share.
constexpr double kTurnTolerance = 4e-7;

// [day] A planet's longitude, geometric or apparent, was never met to run direct or retrograde for
// a shorter time in all the searchable years (tests/scan/search_scan), less a twentieth of it. In
// that time after a station there is no other. Pluto, whose series have far years without stations,
// and what has no entry are searched throughout.
struct ShortestRun {
  double direct;
  double retrograde;
};
constexpr ShortestRun kShortestRuns[ZENITHOR_BODY_COUNT] = {
    {0.0, 0.0},     {83.3, 18.7},   {510.0, 38.7},  {0.0, 0.0}, {649.0, 56.6}, {258.0, 111.0},
    {222.0, 126.0}, {204.0, 141.0}, {196.0, 148.0}, {0.0, 0.0}, {0.0, 0.0}};

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
  ShortestRun shortest;  // 0 where it is not known
  DifferenceQuotient rate;
  RootWalk roots;
};

// The rate of two values of the full series, freed by the track of what it lacks to a derivative.
double ComparedRate(StationWalk& walk, double day) {
  const double spacing = walk.rate.spacing;
  const double times[] = {day - spacing, day + spacing};
  double f[2];
  ValuesAt(walk.rate.function, times, 2, f);
  return Departure(f[1], f[0], walk.rate.period) / (2.0 * spacing) +
         TrackQuotientError(walk.sources.guide.track, day, spacing);
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
  const bool geocentric_longitude =
      field == ZENITHOR_FIELD_GEO_LONGITUDE || field == ZENITHOR_FIELD_APPARENT_LONGITUDE;
  walk.shortest = geocentric_longitude ? kShortestRuns[body] : ShortestRun{0.0, 0.0};
  const double spacing = kSpacings[body];
  walk.compared = walk.sources.guided && spacing <= kWidestCompared;
  walk.rate = {
      FunctionOfSource(walk.sources.full), {nullptr, nullptr}, PeriodOfField(field), spacing};
  RootProblem problem{};
  problem.function = {EvaluateRate, &walk};
  problem.bend = bounds->bend_rate;
  // The weights of six values add up to 11/3, those of two to 1.
  problem.noise = 4.0 * bounds->noise / spacing;
  // Most of the time a body moves so fast that the rates at the ends of a wide cell say enough.
  problem.step = 2.0 * bounds->bend / bounds->bend_rate;
  problem.tolerance = kTurnTolerance;
  if (walk.sources.guided) {
    problem.guide = {EvaluateTrackRate, &walk.sources.guide.track};
    // At its nodes a track's rate is a quotient.
    const double node_spacing = NodeSpacing(body);
    problem.guide_error =
        bounds->guide_rate_error + node_spacing * node_spacing / 6.0 * bounds->bend_rate;
    problem.guide_rate_error = bounds->guide_bend_error;
  }
  return BeginRoots(walk.roots, problem, from, to) ? 0 : ZENITHOR_ERROR_SPAN;
}

bool NextStation(StationWalk& walk, Root& turn) {
  // A rate that only touches 0 is no turn.
  while (walk.turns && NextRoot(walk.roots, turn)) {
    if (turn.direction != 0) {
      const bool turns_direct = turn.direction > 0;
      SkipRootsBefore(walk.roots, turn.moment + (turns_direct ? walk.shortest.direct
                                                              : walk.shortest.retrograde));
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
