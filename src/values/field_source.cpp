#include "values/field_source.h"

#include <cmath>
#include <limits>

#include "values/fields.h"
#include "values/smooth_values.h"

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
    SmoothValues(*source.other_store, *source.state, source.other, source.field, &times[i], 1, &b);
    values[i] = a - b;
  }
}

}  // namespace

SourcePair PairOf(const SearchStores& stores, PositionState& state, std::int32_t body,
                  std::int32_t other, std::int32_t field) {
  const auto has_guide = [&](std::int32_t number) {
    const FieldBounds* const bounds = BoundsOf(number, field);
    return stores.guide != nullptr && bounds != nullptr && bounds->guide_error > 0.0;
  };
  const FieldSource full{stores.full, stores.full, &state, body, other, field};
  SourcePair pair{full, full, false};
  if (has_guide(body)) {
    pair.guide.store = stores.guide;
    pair.guided = true;
  }
  if (has_guide(other)) {
    pair.guide.other_store = stores.guide;
    pair.guided = true;
  }
  return pair;
}

TimeFunction FunctionOfSource(FieldSource& source) { return {Evaluate, &source}; }

FieldBounds BoundsOfDifference(const FieldBounds& a, const FieldBounds& b) {
  return {a.body,
          a.field,
          a.lowest_rate - b.highest_rate,
          a.highest_rate - b.lowest_rate,
          a.bend + b.bend,
          a.bend_rate + b.bend_rate,
          a.noise + b.noise,
          a.guide_error + b.guide_error,
          a.guide_rate_error + b.guide_rate_error};
}

RootProblem CrossingProblem(SourcePair& sources, const FieldBounds& bounds, double target) {
  RootProblem problem{};
  problem.function = FunctionOfSource(sources.full);
  if (sources.guided) {
    problem.guide = FunctionOfSource(sources.guide);
    problem.guide_error = bounds.guide_error;
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
