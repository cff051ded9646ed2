#include "values/field_source.h"

#include <cmath>
#include <limits>

#include "values/fields.h"
#include "values/smooth_values.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

constexpr double kWidestCell = 1024.0;  // [day]

void Evaluate(void* context, const double* times, std::int32_t count, double* values) {
  const FieldSource& source = *static_cast<FieldSource*>(context);
  if (source.other == kNoOther) {
    SmoothValues(*source.store, *source.state, source.body, source.field, times, count, values);
    return;
  }
  // Moment by moment, so that both bodies are seen from one Earth.
  for (std::int32_t i = 0; i < count; ++i) {
    double a;
    double b;
    SmoothValues(*source.store, *source.state, source.body, source.field, &times[i], 1, &a);
    SmoothValues(*source.store, *source.state, source.other, source.field, &times[i], 1, &b);
    values[i] = a - b;
  }
}

void EvaluateGuide(void* context, const double* times, std::int32_t count, double* values) {
  GuideSource& source = *static_cast<GuideSource*>(context);
  for (std::int32_t i = 0; i < count; ++i) {
    values[i] = TrackValue(source.track, times[i]);
    if (source.has_other) {
      values[i] -= TrackValue(source.other_track, times[i]);
    }
  }
}

bool HasGuide(std::int32_t body, std::int32_t field) {
  const FieldBounds* const bounds = BoundsOf(body, field);
  return bounds != nullptr && bounds->guide_error > 0.0;
}

// The Moon and Pluto have no cheap series.
FieldTrack GuideTrack(const SearchStores& stores, PositionState& state, std::int32_t body,
                      std::int32_t field) {
  const bool series = body <= ZENITHOR_BODY_NEPTUNE;
  return TrackOf(series ? *stores.guide : *stores.full, state, body, field);
}

}  // namespace

void MakePair(const SearchStores& stores, PositionState& state, std::int32_t body,
              std::int32_t other, std::int32_t field, SourcePair& pair) {
  pair.full = {stores.full, &state, body, other, field};
  pair.guide.has_other = other != kNoOther;
  pair.guided = stores.guide != nullptr && HasGuide(body, field) &&
                (!pair.guide.has_other || HasGuide(other, field));
  if (pair.guided) {
    pair.guide.track = GuideTrack(stores, state, body, field);
    if (pair.guide.has_other) {
      pair.guide.other_track = GuideTrack(stores, state, other, field);
    }
  }
}

TimeFunction FunctionOfSource(FieldSource& source) { return {Evaluate, &source}; }

TimeFunction FunctionOfGuide(GuideSource& source) { return {EvaluateGuide, &source}; }

FieldBounds BoundsOfDifference(const FieldBounds& a, const FieldBounds& b) {
  return {a.body,
          a.field,
          a.lowest_rate - b.highest_rate,
          a.highest_rate - b.lowest_rate,
          a.bend + b.bend,
          a.bend_rate + b.bend_rate,
          a.noise + b.noise,
          a.guide_error + b.guide_error,
          a.guide_rate_error + b.guide_rate_error,
          a.guide_bend_error + b.guide_bend_error};
}

RootProblem CrossingProblem(SourcePair& sources, const FieldBounds& bounds, double target) {
  RootProblem problem{};
  problem.function = FunctionOfSource(sources.full);
  if (sources.guided) {
    problem.guide = FunctionOfGuide(sources.guide);
    problem.guide_error = bounds.guide_error;
    problem.guide_rate_error = bounds.guide_rate_error;
    problem.guide_bend_error = bounds.guide_bend_error;
  }
  problem.target = target;
  problem.period = PeriodOfField(sources.full.field);
  problem.bend = bounds.bend;
  problem.noise = bounds.noise;
  const double rate = GreatestRate(bounds);
  const double turn_limit = problem.period > 0.0 ? 0.22 * problem.period / rate : kWidestCell;
  problem.step = std::fmin(std::fmin(0.5 * rate / bounds.bend, turn_limit), kWidestCell);
  problem.tolerance = kMomentTolerance;
  return problem;
}

double JustAfter(double day) {
  return std::nextafter(day, std::numeric_limits<double>::infinity());
}

}  // namespace zenithor
