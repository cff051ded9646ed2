#include "numerics/sine_cosine.h"

#include <cmath>

#include "numerics/bits.h"
#include "numerics/far_angle.h"
#include "numerics/pair.h"
#include "numerics/sincos_kernel.h"

namespace zenithor {

namespace {

// What the cosines of the steps of the circle lost when they were rounded.
constexpr float kCosineRests[512] = {
#include "numerics/sincos_step_rests.inc"
};

// h = 2 pi / 512 in pieces of 22 bits: their products with a count of steps are exact.
constexpr int kPieceCount = 7;
constexpr double kStepPieces[kPieceCount] = {
#include "numerics/step_pieces.inc"
};
// Two pieces in one double.
constexpr double kThirdAndFourth = kStepPieces[2] + kStepPieces[3];

constexpr unsigned kSteps = 512;
constexpr unsigned kStepsPerQuarter = 128;
// So near an axis (less than 0.13 rad) the function that is 0 there has a series of its own.
constexpr int kNearAxis = 10;
// A rest below this size is too near to an axis for the first four pieces.
constexpr double kSmallRest = 0x1p-14;
// Below this size sin x is x, and cos x is 1, to 2^-56.
constexpr double kTiny = 0x1p-27;

// Where an angle stands: the nearest step, and how many steps that is beyond the nearest axis.
struct Standing {
  double whole_steps;
  unsigned step;  // 0 to 511
  int from_axis;  // -64 to 63
};

Standing StandingOf(double x) {
  const double whole = x * kStepsPerRadian + kRoundToWhole;
  const auto step = static_cast<unsigned>(BitsOf(whole)) % kSteps;
  constexpr unsigned kHalf = kStepsPerQuarter / 2;
  return {whole - kRoundToWhole, step,
          static_cast<int>((step + kHalf) % kStepsPerQuarter) - static_cast<int>(kHalf)};
}

// x less the first two pieces of k steps. Exact for |x| <= 2^24: both differences are multiples of
// 2^-51 or of ulp(x), and small (the kernel's derivation holds for the first).
double LessTwoPieces(double x, double k) { return (x - k * kStepPieces[0]) - k * kStepPieces[1]; }

// x less the k steps of an axis, |x| <= 2^24, |result| < 0.13.
//
// With four pieces 2^-73 is missing, which is 2^-59 of the smallest rest that takes them. With
// seven pieces, whose products are exact, 2^-118 is missing; no double up to 2^24 is nearer to an
// axis than 2^-62.
Pair RestFromAxis(double x, double k) {
  if (k == 0.0) {
    return {x, 0.0};
  }
  const double first = LessTwoPieces(x, k);
  const Pair rest = TwoSum(first, -(k * kThirdAndFourth));
  if (std::fabs(rest.high) >= kSmallRest) {
    return rest;
  }
  Pair sum = TwoSum(first, -(k * kStepPieces[2]));
  for (int piece = 3; piece < kPieceCount; ++piece) {
    sum = Plus(sum, -(k * kStepPieces[piece]));
  }
  return sum;
}

// Sine and cosine of |r| < 0.13 as high + low: Taylor's series, whose first missing terms are 2^-68
// of the sine and 2^-64. Low is rounded, by 2^-60 of high.
Pair SineOfSmall(Pair r) {
  const double x = r.high;
  const double z = x * x;
  const double series =
      -1.0 / 6.0 +
      z * (1.0 / 120.0 + z * (-1.0 / 5040.0 + z * (1.0 / 362880.0 + z * (-1.0 / 39916800.0))));
  return {x, r.low + x * z * series};
}

Pair CosineOfSmall(Pair r) {
  const double z = r.high * r.high;
  const double series =
      1.0 / 24.0 + z * (-1.0 / 720.0 + z * (1.0 / 40320.0 + z * (-1.0 / 3628800.0)));
  return {1.0, z * (-0.5 + z * series) - r.high * r.low};
}

// cos (quarters pi / 2 + r) for |r| < 0.13, quarters 0 to 3 turning right.
Pair CosineFromAxis(unsigned quarters, Pair r) {
  switch (quarters % 4) {
    case 0:
      return CosineOfSmall(r);
    case 1:
      return Negative(SineOfSmall(r));
    case 2:
      return Negative(CosineOfSmall(r));
    default:
      return SineOfSmall(r);
  }
}

// Sine and cosine less 1 of |r| <= pi / 512 (1 + 2^-20), to 2^-61 and 2^-66.
struct SmallTurn {
  double sine, cosine_less_1;
};

SmallTurn TurnBy(double r) {
  const double z = r * r;
  return {r + (r * z) * (kS1 + z * kS2), z * (-0.5 + z * (1.0 / 24.0 + z * (-1.0 / 720.0)))};
}

// cos (a + r) = cos a + (cos a (cos r - 1) - sin a sin r) where it is at least 0.12: low is
// rounded, by less than 2^-59.
Pair CosineAtStep(unsigned step, SmallTurn turn) {
  const CosineSine& at = kCircleSteps[step];
  return {at.cosine, static_cast<double>(kCosineRests[step]) +
                         (at.cosine * turn.cosine_less_1 - at.sine * turn.sine)};
}

bool IsNearAxis(const Standing& standing) {
  return standing.from_axis >= -kNearAxis && standing.from_axis <= kNearAxis;
}

// An angle beside an axis, |x| <= 2^24.
QuarterTurns QuarterTurnsOf(double x, const Standing& standing) {
  const unsigned axis =
      (standing.step + kSteps - static_cast<unsigned>(standing.from_axis)) % kSteps;
  return {axis / kStepsPerQuarter,
          RestFromAxis(x, standing.whole_steps - static_cast<double>(standing.from_axis))};
}

bool IsWithinKernel(double x) { return std::fabs(x) <= kLargestKernelAngle; }

// An angle of any finite size but a tiny one, reduced once for all that is asked of it: beside an
// axis its quarters and the rest, elsewhere a step of the circle and a small turn from there.
struct ReducedAngle {
  bool near_axis;
  QuarterTurns from_axis;
  unsigned step;
  SmallTurn turn;
};

[[gnu::always_inline]] inline ReducedAngle Reduce(double x) {
  if (IsWithinKernel(x)) {
    const Standing standing = StandingOf(x);
    if (IsNearAxis(standing)) {
      return {true, QuarterTurnsOf(x, standing), 0, {}};
    }
    const double k = standing.whole_steps;
    return {false, {}, standing.step, TurnBy(LessTwoPieces(x, k) - k * kThirdAndFourth)};
  }
  const QuarterTurns turns = ReduceFarAngle(x);
  const Standing standing = StandingOf(turns.rest.high);
  if (IsNearAxis(standing)) {
    return {true, turns, 0, {}};
  }
  const double k = standing.whole_steps;
  return {false,
          {},
          standing.step + turns.quarters * kStepsPerQuarter,
          TurnBy(LessTwoPieces(turns.rest.high, k) - (k * kThirdAndFourth - turns.rest.low))};
}

// The cosine of an angle that is turned on by quarters, as high + low; three quarters give the
// sine.
constexpr unsigned kSineQuarters = 3;
[[gnu::always_inline]] inline Pair CosineOf(const ReducedAngle& angle, unsigned quarters) {
  return angle.near_axis
             ? CosineFromAxis(angle.from_axis.quarters + quarters, angle.from_axis.rest)
             : CosineAtStep((angle.step + quarters * kStepsPerQuarter) % kSteps, angle.turn);
}

}  // namespace

double Sine(double angle) {
  if (std::fabs(angle) < kTiny) {
    return angle;
  }
  return std::isfinite(angle) ? Sum(CosineOf(Reduce(angle), kSineQuarters)) : angle - angle;
}

double Cosine(double angle) {
  if (std::fabs(angle) < kTiny) {
    return 1.0;
  }
  return std::isfinite(angle) ? Sum(CosineOf(Reduce(angle), 0)) : angle - angle;
}

double Tangent(double angle) {
  if (std::fabs(angle) < kTiny) {
    return angle;
  }
  if (!std::isfinite(angle)) {
    return angle - angle;
  }
  const ReducedAngle reduced = Reduce(angle);
  const Pair sine = CosineOf(reduced, kSineQuarters);
  const Pair cosine = CosineOf(reduced, 0);
  return Sum(Quotient(QuickTwoSum(sine.high, sine.low), QuickTwoSum(cosine.high, cosine.low)));
}

CosineSine CosineAndSine(double angle) {
  if (std::fabs(angle) < kTiny) {
    return {1.0, angle};
  }
  if (!std::isfinite(angle)) {
    return {angle - angle, angle - angle};
  }
  const ReducedAngle reduced = Reduce(angle);
  return {Sum(CosineOf(reduced, 0)), Sum(CosineOf(reduced, kSineQuarters))};
}

}  // namespace zenithor
