#pragma once

#include <array>
#include <cstdint>

#include "search/roots.h"

namespace zenithor {

// All moments of a span at which a function turns, found as the roots of a difference quotient with
// the promises of roots.h.
//
// The derivative is taken from six values, three at either side of the moment, `spacing` apart:
// f' = (45 (f1 - f-1) - 9 (f2 - f-2) + (f3 - f-3)) / (60 spacing). It is exact for polynomials of
// degree six; its error is spacing^6 / 140 times the seventh derivative, and twice the noise over
// the spacing. A moment is wrong by that error divided by the second derivative.

struct TurningProblem {
  TimeFunction function;
  double period;     // as in RootProblem; a step of `spacing` moves the function by less than half
  double bend_rate;  // [unit / day^3] no third derivative is larger in magnitude; > 0
  double noise;      // [unit] no value is farther from the smooth function's; >= 0
  double step;       // [day] widest cell; cut down to a power of two
  double spacing;    // [day] of the difference quotient; cut down to a power of two
  double tolerance;  // [day]

  // A cheap function whose derivative is never farther than guide_rate_error [unit/day] from that
  // of `function`; evaluate is null when there is none. The difference of the two then has its
  // derivative taken from two values of `function` only, which is as good when it is small and
  // slow.
  TimeFunction guide;
  double guide_rate_error;
};

// The context of the derivative as a function of time.
struct DifferenceQuotient {
  TimeFunction function;
  TimeFunction guide;  // evaluate may be null
  double period;
  double spacing;
};

// The derivative of the quotient's function at a moment [unit/day].
double DerivativeAt(const DifferenceQuotient& quotient, double t);

// A search under way. Holds addresses of its own members: not to be copied or moved.
struct TurningWalk {
  DifferenceQuotient quotient;
  DifferenceQuotient guide_quotient;
  RootWalk walk;
};

// As BeginRoots.
bool BeginTurningPoints(TurningWalk& walk, const TurningProblem& problem, double from, double to);

// The next turning point; direction 1 where the function begins to rise (a minimum), -1 where it
// begins to fall. Where the derivative touches 0 without changing sign the function does not turn.
bool NextTurningPoint(TurningWalk& walk, Root& turn);

// As FindRoots.
std::int32_t FindTurningPoints(const TurningProblem& problem, double from, double to, Root* turns,
                               std::int32_t capacity);

}  // namespace zenithor
