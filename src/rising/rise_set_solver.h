#pragma once

#include "rising/rise_set_problem.h"
#include "rising/settle.h"

namespace zenithor {

// Rising, transit and setting from three places of a body.
// Source: Meeus, Astronomical Algorithms, chapter 15.

enum class Horizon { kRisesAndSets, kAlwaysAbove, kAlwaysBelow };

struct RiseSetTimes {
  Horizon horizon;
  double rise;     // fractions of a day after T0, times 2 pi [rad]; NaN where the
  double transit;  // iteration does not settle; rise and set are first estimates only when the body
  double set;      // does not cross the horizon
  Refinement rise_run;
  Refinement transit_run;
  Refinement set_run;
};

// Rise and set are brought into the day by at most one day before and one after the iteration; the
// transit is not, and may come out below 0 or above 2 pi. Always returns (rising/settle.h).
RiseSetTimes SolveRiseSet(const RiseSetProblem& problem);

}  // namespace zenithor
