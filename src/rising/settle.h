#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "numerics/cycle_watch.h"

namespace zenithor {

// Repeating m = m + correction(m) until a correction is small, for as long as that takes, and no
// longer when it is certain that it never will be.

constexpr double kSettledCorrection = 0.0002;  // [day], 17 s

// A run that neither settles nor repeats soon can take seconds. Those of a scan that settled later
// (one in eight within 2 000 000 steps) did so 12 days to 34 million days away from the day: no
// time of any event was lost.
constexpr std::int32_t kGiveUpSteps = 100000;

enum class Ending { kNotRun, kSettled, kNotANumber, kRepeats, kGivenUp };

// How an iteration went; tests and the scan read it, no answer depends on it.
struct Refinement {
  std::int32_t steps;  // corrections computed
  Ending ending;
};

struct Settled {
  double value;  // NaN when the iteration does not settle
  Refinement run;
};

// Iterates from `m`. Ends when |correction| <= 0.0002, with the corrected m; when a correction is
// not a number; or when m comes back, to the bit, to a value it has had: the correction depends on
// m alone, so from there the same values follow for ever. Repetition is found by comparing with one
// remembered value, renewed at every power of two steps, which misses no cycle. And after 100 000
// steps (docs/rising.md says how rarely).
// Source: R. P. Brent, An improved Monte Carlo factorization algorithm, BIT 20 (1980), section 2.
template <class Correction>
Settled Settle(double m, Correction correction) {
  constexpr double kNever = std::numeric_limits<double>::quiet_NaN();
  CycleWatch watch{m};
  for (std::int32_t steps = 1; steps <= kGiveUpSteps; ++steps) {
    const double dm = correction(m);
    m += dm;
    if (std::fabs(dm) <= kSettledCorrection) {
      return {m, {steps, Ending::kSettled}};
    }
    if (std::isnan(dm)) {
      return {kNever, {steps, Ending::kNotANumber}};
    }
    if (watch.Repeats(m)) {
      return {kNever, {steps, Ending::kRepeats}};
    }
  }
  return {kNever, {kGiveUpSteps, Ending::kGivenUp}};
}

}  // namespace zenithor
