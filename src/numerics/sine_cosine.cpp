#include "numerics/sine_cosine.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "numerics/far_angle.h"
#include "numerics/pair.h"
#include "numerics/sincos_kernel.h"

namespace zenithor {

namespace {

// What the steps of the circle lost when they were rounded.
struct StepRest {
  float cosine, sine;
};
constexpr StepRest kStepRests[512] = {
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
constexpr int kStepsPerQuarter = 128;
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
  std::uint64_t bits;
  std::memcpy(&bits, &whole, sizeof bits);
  const auto step = static_cast<unsigned>(bits) % kSteps;
  constexpr int kHalf = kStepsPerQuarter / 2;
  return {whole - kRoundToWhole, step, static_cast<int>((step + kHalf) % kStepsPerQuarter) - kHalf};
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
    const Pair next = TwoSum(sum.high, -(k * kStepPieces[piece]));
    sum = QuickTwoSum(next.high, next.low + sum.low);
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

Pair Negative(Pair a) { return {-a.high, -a.low}; }

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

// cos (a + r) = cos a + (cos a (cos r - 1) - sin a sin r), the sine likewise, where both are at
// least 0.12: low is rounded, by less than 2^-59.
Pair CosineAtStep(unsigned step, SmallTurn turn) {
  const CosineSine& at = kCircleSteps[step];
  return {at.cosine, static_cast<double>(kStepRests[step].cosine) +
                         (at.cosine * turn.cosine_less_1 - at.sine * turn.sine)};
}

Pair SineAtStep(unsigned step, SmallTurn turn) {
  const CosineSine& at = kCircleSteps[step];
  return {at.sine, static_cast<double>(kStepRests[step].sine) +
                       (at.sine * turn.cosine_less_1 + at.cosine * turn.sine)};
}

bool IsNearAxis(const Standing& standing) {
  return standing.from_axis >= -kNearAxis && standing.from_axis <= kNearAxis;
}

struct FromAxis {
  unsigned quarters;
  Pair rest;
};

FromAxis RestAndQuarters(double x, const Standing& standing) {
  const unsigned axis =
      (standing.step + kSteps - static_cast<unsigned>(standing.from_axis)) % kSteps;
  return {axis / kStepsPerQuarter,
          RestFromAxis(x, standing.whole_steps - static_cast<double>(standing.from_axis))};
}

SmallTurn TurnFromStep(double x, double whole_steps) {
  return TurnBy(LessTwoPieces(x, whole_steps) - whole_steps * kThirdAndFourth);
}

bool IsWithinKernel(double x) { return std::fabs(x) <= kLargestKernelAngle; }

double Sum(Pair a) { return a.high + a.low; }

// cos x and sin x for kTiny <= |x| <= 2^24 as high + low.
struct CosineSinePairs {
  Pair cosine, sine;
};

CosineSinePairs PairsOf(double x) {
  const Standing standing = StandingOf(x);
  if (IsNearAxis(standing)) {
    const FromAxis at = RestAndQuarters(x, standing);
    return {CosineFromAxis(at.quarters, at.rest), CosineFromAxis(at.quarters + 3, at.rest)};
  }
  const SmallTurn turn = TurnFromStep(x, standing.whole_steps);
  return {CosineAtStep(standing.step, turn), SineAtStep(standing.step, turn)};
}

// The same for any finite |x| > 2^24.
CosineSinePairs PairsOfFar(double x) {
  const QuarterTurns turns = ReduceFarAngle(x);
  const Standing standing = StandingOf(turns.rest.high);
  if (IsNearAxis(standing)) {
    return {CosineFromAxis(turns.quarters, turns.rest),
            CosineFromAxis(turns.quarters + 3, turns.rest)};
  }
  const SmallTurn turn = TurnBy(LessTwoPieces(turns.rest.high, standing.whole_steps) -
                                (standing.whole_steps * kThirdAndFourth - turns.rest.low));
  const unsigned step = (standing.step + turns.quarters * kStepsPerQuarter) % kSteps;
  return {CosineAtStep(step, turn), SineAtStep(step, turn)};
}

CosineSinePairs PairsOfAny(double x) { return IsWithinKernel(x) ? PairsOf(x) : PairsOfFar(x); }

}  // namespace

double Sine(double angle) {
  if (std::fabs(angle) < kTiny) {
    return angle;
  }
  if (!IsWithinKernel(angle)) {
    return std::isfinite(angle) ? Sum(PairsOfFar(angle).sine) : angle - angle;
  }
  const Standing standing = StandingOf(angle);
  if (IsNearAxis(standing)) {
    const FromAxis at = RestAndQuarters(angle, standing);
    return Sum(CosineFromAxis(at.quarters + 3, at.rest));
  }
  return Sum(SineAtStep(standing.step, TurnFromStep(angle, standing.whole_steps)));
}

double Cosine(double angle) {
  if (std::fabs(angle) < kTiny) {
    return 1.0;
  }
  if (!IsWithinKernel(angle)) {
    return std::isfinite(angle) ? Sum(PairsOfFar(angle).cosine) : angle - angle;
  }
  const Standing standing = StandingOf(angle);
  if (IsNearAxis(standing)) {
    const FromAxis at = RestAndQuarters(angle, standing);
    return Sum(CosineFromAxis(at.quarters, at.rest));
  }
  return Sum(CosineAtStep(standing.step, TurnFromStep(angle, standing.whole_steps)));
}

double Tangent(double angle) {
  if (std::fabs(angle) < kTiny) {
    return angle;
  }
  if (!std::isfinite(angle)) {
    return angle - angle;
  }
  const CosineSinePairs pairs = PairsOfAny(angle);
  return Sum(Quotient(QuickTwoSum(pairs.sine.high, pairs.sine.low),
                      QuickTwoSum(pairs.cosine.high, pairs.cosine.low)));
}

CosineSine CosineAndSine(double angle) {
  if (std::fabs(angle) < kTiny) {
    return {1.0, angle};
  }
  if (!std::isfinite(angle)) {
    return {angle - angle, angle - angle};
  }
  const CosineSinePairs pairs = PairsOfAny(angle);
  return {Sum(pairs.cosine), Sum(pairs.sine)};
}

}  // namespace zenithor
