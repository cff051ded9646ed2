#include "numerics/arcs.h"

#include <cmath>
#include <limits>

#include "numerics/pair.h"

namespace zenithor {

namespace {

#include "numerics/turn_constants.inc"

// arctan(k / 64), k = 8 to 64.
constexpr int kFirstStep = 8;
constexpr double kStepsPerUnit = 64.0;
constexpr Pair kArctangents[] = {
#include "numerics/arctangents.inc"
};

// arctan q for 0 <= q <= 1 as high + low: below 1/8 by Taylor's series, whose first missing term is
// 2^-64 of q; else from the nearest step c = k / 64 and
//     arctan q = arctan c + arctan t, t = (q - c) / (1 + c q), |t| <= 1/128 (1 + 2^-6),
// q - c exact. Low is rounded by 2^-60 of high.
Pair ArctangentOfProper(Pair q) {
  const double x = q.high;
  if (x < kFirstStep / kStepsPerUnit) {
    const double z = x * x;
    const double series =
        -1.0 / 3.0 +
        z * (1.0 / 5.0 +
             z * (-1.0 / 7.0 +
                  z * (1.0 / 9.0 +
                       z * (-1.0 / 11.0 +
                            z * (1.0 / 13.0 +
                                 z * (-1.0 / 15.0 + z * (1.0 / 17.0 + z * (-1.0 / 19.0))))))));
    return {x, q.low + x * z * series};
  }
  const int step = static_cast<int>(x * kStepsPerUnit + 0.5);
  const double c = step / kStepsPerUnit;
  const double t = ((x - c) + q.low) / (1.0 + c * x);
  const double z = t * t;
  const double series = -1.0 / 3.0 + z * (1.0 / 5.0 + z * (-1.0 / 7.0));
  const Pair at = kArctangents[step - kFirstStep];
  return {at.high, at.low + (t + t * z * series)};
}

// turn +- angle, where the turn is the larger one.
Pair Beyond(Pair turn, Pair angle) {
  const Pair sum = TwoSum(turn.high, angle.high);
  return {sum.high, sum.low + (turn.low + angle.low)};
}

Pair Negative(Pair a) { return {-a.high, -a.low}; }

double Sum(Pair a) { return a.high + a.low; }

// The angle of the point (x, y), y >= 0, not both 0, each 0 or of a size that Quotient takes: in
// [0, pi].
double AngleOfPoint(Pair y, Pair x) {
  const bool left = x.high < 0.0;
  if (left) {
    x = Negative(x);
  }
  if (y.high > x.high) {
    const Pair angle = ArctangentOfProper(Quotient(x, y));
    return Sum(Beyond(kHalfPiPair, left ? angle : Negative(angle)));
  }
  const Pair angle = ArctangentOfProper(Quotient(y, x));
  return left ? Sum(Beyond(kPiPair, Negative(angle))) : Sum(angle);
}

// The square root of 1 - x^2 for |x| <= 1.
Pair OtherLeg(double x) {
  const Pair more = TwoSum(1.0, x);
  const Pair less = TwoSum(1.0, -x);
  const Pair product = TwoProduct(more.high, less.high);
  const double rest = product.low + (more.high * less.low + more.low * less.high);
  const double square = product.high + rest;
  if (!(square > 0.0)) {
    return {0.0, 0.0};
  }
  const double root = std::sqrt(square);
  const Pair back = TwoProduct(root, root);
  const double missing = ((product.high - back.high) - back.low) + rest;
  return QuickTwoSum(root, missing / (root + root));
}

// Below this size the arctangent and the arcsine of x are x, to 2^-56.
constexpr double kTiny = 0x1p-27;
// Points are brought between these.
constexpr double kLargeSide = 0x1p300;
constexpr double kSmallSide = 0x1p-300;
constexpr double kScale = 0x1p600;
// A side that is so much shorter than the other is left out beside a turn, and its own quotient is
// the angle.
constexpr double kFarShorter = 0x1p-80;

// For finite y > 0 and x, not 0.
double AngleOfAnyPoint(double y, double x) {
  const double width = std::fabs(x);
  const double larger = y > width ? y : width;
  const double smaller = y > width ? width : y;
  if (smaller <= larger * kFarShorter) {
    if (y > width) {
      return kHalfPiPair.high;
    }
    return x < 0.0 ? kPiPair.high : y / x;
  }
  if (larger > kLargeSide) {
    y /= kScale;
    x /= kScale;
  } else if (larger < kSmallSide) {
    y *= kScale;
    x *= kScale;
  }
  return AngleOfPoint({y, 0.0}, {x, 0.0});
}

}  // namespace

double Arctangent(double x) {
  const double size = std::fabs(x);
  if (!(size >= kTiny)) {
    return x;
  }
  return std::copysign(AngleOfAnyPoint(size < kScale ? size : kScale, 1.0), x);
}

double ArctangentOfPoint(double y, double x) {
  if (std::isnan(x) || std::isnan(y)) {
    return x + y;
  }
  double height = std::fabs(y);
  if (std::isinf(x) || std::isinf(y)) {
    height = std::isinf(y) ? 1.0 : 0.0;
    x = std::copysign(std::isinf(x) ? 1.0 : 0.0, x);
  }
  if (height == 0.0) {
    return std::signbit(x) ? std::copysign(kPiPair.high, y) : std::copysign(0.0, y);
  }
  return std::copysign(x == 0.0 ? kHalfPiPair.high : AngleOfAnyPoint(height, x), y);
}

double Arcsine(double x) {
  const double size = std::fabs(x);
  if (!(size <= 1.0)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (size < kTiny) {
    return x;
  }
  return std::copysign(AngleOfPoint({size, 0.0}, OtherLeg(size)), x);
}

double Arccosine(double x) {
  const double size = std::fabs(x);
  if (!(size <= 1.0)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (size < 0x1p-60) {
    return kHalfPiPair.high;
  }
  return AngleOfPoint(OtherLeg(size), {x, 0.0});
}

}  // namespace zenithor
