#include "search/turning_points.h"

#include <cmath>

namespace zenithor {

namespace {

constexpr double kWeights[] = {45.0 / 60.0, -9.0 / 60.0, 1.0 / 60.0};
constexpr double kWeightSum = 2.0 * (45.0 + 9.0 + 1.0) / 60.0;

double Change(const DifferenceQuotient& quotient, double before, double after) {
  return Departure(after, before, quotient.period);
}

double SixPointDerivative(const DifferenceQuotient& quotient, const TimeFunction& function,
                          double t) {
  const double d = quotient.spacing;
  const double times[6] = {t - 3.0 * d, t - 2.0 * d, t - d, t + d, t + 2.0 * d, t + 3.0 * d};
  double f[6];
  ValuesAt(function, times, 6, f);
  double sum = 0.0;
  for (int i = 2; i >= 0; --i) {
    sum += kWeights[i] * Change(quotient, f[2 - i], f[3 + i]);
  }
  return sum / d;
}

// What the guide's derivative lacks.
double ResidualDerivative(const DifferenceQuotient& quotient, double t) {
  const double times[2] = {t - quotient.spacing, t + quotient.spacing};
  double f[2];
  double g[2];
  ValuesAt(quotient.function, times, 2, f);
  ValuesAt(quotient.guide, times, 2, g);
  const double change = Change(quotient, f[0], f[1]) - Change(quotient, g[0], g[1]);
  return change / (2.0 * quotient.spacing);
}

TimeFunction DerivativeOf(DifferenceQuotient& quotient) {
  return {[](void* context, const double* times, std::int32_t count, double* values) {
            for (std::int32_t i = 0; i < count; ++i) {
              values[i] = DerivativeAt(*static_cast<DifferenceQuotient*>(context), times[i]);
            }
          },
          &quotient};
}

}  // namespace

double DerivativeAt(const DifferenceQuotient& quotient, double t) {
  if (quotient.guide.evaluate == nullptr) {
    return SixPointDerivative(quotient, quotient.function, t);
  }
  return SixPointDerivative(quotient, quotient.guide, t) + ResidualDerivative(quotient, t);
}

bool BeginTurningPoints(TurningWalk& walk, const TurningProblem& problem, double from, double to) {
  RootProblem roots{};
  if (problem.function.evaluate == nullptr || !std::isnormal(problem.spacing) ||
      !(problem.spacing > 0.0)) {
    return BeginRoots(walk.walk, roots, from, to);
  }
  const double spacing = PowerOfTwoBelow(problem.spacing);
  const TimeFunction none{nullptr, nullptr};
  walk.quotient = {problem.function, problem.guide, problem.period, spacing};
  roots.function = DerivativeOf(walk.quotient);
  roots.bend = problem.bend_rate;
  roots.noise = kWeightSum * problem.noise / spacing;
  roots.step = problem.step;
  roots.tolerance = problem.tolerance;
  if (problem.guide.evaluate != nullptr) {
    walk.guide_quotient = {problem.guide, none, problem.period, spacing};
    roots.guide = DerivativeOf(walk.guide_quotient);
    roots.guide_error = problem.guide_rate_error;
  }
  return BeginRoots(walk.walk, roots, from, to);
}

bool NextTurningPoint(TurningWalk& walk, Root& turn) {
  while (NextRoot(walk.walk, turn)) {
    if (turn.direction != 0) {
      return true;
    }
  }
  return false;
}

std::int32_t FindTurningPoints(const TurningProblem& problem, double from, double to, Root* turns,
                               std::int32_t capacity) {
  TurningWalk walk;
  if (!BeginTurningPoints(walk, problem, from, to)) {
    return -1;
  }
  std::int32_t count = 0;
  Root turn;
  while (NextTurningPoint(walk, turn)) {
    if (count < capacity) {
      turns[count] = turn;
    }
    ++count;
  }
  return count;
}

}  // namespace zenithor
