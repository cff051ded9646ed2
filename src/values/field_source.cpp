#include "values/field_source.h"

#include <cmath>
#include <limits>

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

}  // namespace

TimeFunction FunctionOfSource(FieldSource& source) { return {Evaluate, &source}; }

FieldBounds BoundsOfDifference(const FieldBounds& a, const FieldBounds& b) {
  return {a.body,
          a.field,
          a.lowest_rate - b.highest_rate,
          a.highest_rate - b.lowest_rate,
          a.bend + b.bend,
          a.bend_rate + b.bend_rate,
          a.noise + b.noise};
}

RootProblem CrossingProblem(FieldSource& source, const FieldBounds& bounds, double target) {
  RootProblem problem{};
  problem.function = FunctionOfSource(source);
  problem.target = target;
  problem.period = SmoothPeriod(source.field);
  problem.bend = bounds.bend;
  problem.noise = bounds.noise;
  const double rate = GreatestRate(bounds);
  const double turn_limit = problem.period > 0.0 ? 0.22 * problem.period / rate : kWidestCell;
  problem.step = std::fmin(std::fmin(0.5 * rate / bounds.bend, turn_limit), kWidestCell);
  problem.tolerance = kMomentTolerance;
  return problem;
}

bool IsSearchableSpan(double from, double to) {
  const auto lies_within = [](double day) {
    return day >= ZENITHOR_FIRST_DAY && day <= ZENITHOR_LAST_DAY;
  };
  return lies_within(from) && lies_within(to);
}

double JustAfter(double day) {
  return std::nextafter(day, std::numeric_limits<double>::infinity());
}

std::int32_t ArrayError(const double* julian_days, std::int32_t capacity) {
  if (capacity < 0) {
    return ZENITHOR_ERROR_COUNT;
  }
  return capacity > 0 && julian_days == nullptr ? ZENITHOR_ERROR_ARRAY : 0;
}

}  // namespace zenithor
