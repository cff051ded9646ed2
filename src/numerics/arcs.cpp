#include "numerics/arcs.h"

#include <cmath>
#include <limits>

#include "numerics/pair.h"
#include "numerics/turn_pairs.h"

namespace zenithor {

namespace {

#include "numerics/arcsine_constants.inc"

// arctan(k / 64), k = 8 to 64.
constexpr int kFirstStep = 8;
constexpr double kStepsPerUnit = 64.0;
constexpr Pair kArctangents[] = {
#include "numerics/arctangents.inc"
};

// arctan (y / x) for 0 <= y <= x, x > 0, as high + low, the sides of a size that products may have.
// For a quotient q below 1/8 Taylor's series, whose first missing term is 2^-64 of q; else from the
// nearest step c = k / 64 and
//     arctan q = arctan c + arctan t, t = (y - c x) / (x + c y), |t| <= 1/128 (1 + 2^-6),
// where c times each half of x and the first difference are exact. Low is rounded by less than
// 2^-59 of high.
Pair ArctangentOfSides(double y, double x) {
  const double q = y / x;
  if (q < kFirstStep / kStepsPerUnit) {
    const Pair product = TwoProduct(q, x);
    const double rest = ((y - product.high) - product.low) / x;
    const double z = q * q;
    const double series =
        -1.0 / 3.0 +
        z * (1.0 / 5.0 +
             z * (-1.0 / 7.0 +
                  z * (1.0 / 9.0 +
                       z * (-1.0 / 11.0 +
                            z * (1.0 / 13.0 +
                                 z * (-1.0 / 15.0 + z * (1.0 / 17.0 + z * (-1.0 / 19.0))))))));
    return {q, rest + q * z * series};
  }
  const int step = (static_cast<int>(q * (2.0 * kStepsPerUnit)) + 1) / 2;
  const double c = step / kStepsPerUnit;
  const Pair halves = SplitInHalves(x);
  const double t = ((y - c * halves.high) - c * halves.low) / (x + c * y);
  const double z = t * t;
  const double series = -1.0 / 3.0 + z * (1.0 / 5.0 + z * (-1.0 / 7.0));
  const Pair at = kArctangents[step - kFirstStep];
  return {at.high, at.low + (t + t * z * series)};
}

// turn + angle, |turn| >= |angle|, rounded once.
double Beyond(Pair turn, Pair angle) {
  const Pair sum = QuickTwoSum(turn.high, angle.high);
  return sum.high + (sum.low + (turn.low + angle.low));
}

// The angle of the point (x, y), y >= 0, not both 0, in [0, pi]; the sides of a size that products
// may have.
double AngleOfPoint(double y, double x) {
  const double width = std::fabs(x);
  if (y > width) {
    const Pair angle = ArctangentOfSides(width, y);
    return Beyond(kHalfPiPair, x < 0.0 ? angle : Negative(angle));
  }
  const Pair angle = ArctangentOfSides(y, width);
  return x < 0.0 ? Beyond(kPiPair, Negative(angle)) : Sum(angle);
}

// A0 + A1 z + ... in two chains, of the even and of the odd powers.
double ArcsineSeries(double z) {
  const double square = z * z;
  double even = kArcsine[12];
  double odd = kArcsine[13];
  for (int k = 10; k >= 0; k -= 2) {
    even = even * square + kArcsine[k];
    odd = odd * square + kArcsine[k + 1];
  }
  return even + z * odd;
}

// 2 arcsin s with s^2 = (1 - size) / 2, which is the arccosine of the size, 1/2 < size <= 1, as
// high + low.
Pair ArccosineOfLarge(double size) {
  const double z = 0.5 * (1.0 - size);  // exact
  if (z == 0.0) {
    return {0.0, 0.0};
  }
  const double s = std::sqrt(z);
  const Pair square = TwoProduct(s, s);
  const double rest = ((z - square.high) - square.low) / (s + s);
  return {2.0 * s, 2.0 * (rest + s * z * ArcsineSeries(z))};
}

// Below this size the arctangent of x is x, to 2^-55.
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
  return AngleOfPoint(y, x);
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
  if (size <= 0.5) {
    const double z = x * x;
    return x + x * z * ArcsineSeries(z);
  }
  return std::copysign(Beyond(kHalfPiPair, Negative(ArccosineOfLarge(size))), x);
}

double Arccosine(double x) {
  const double size = std::fabs(x);
  if (!(size <= 1.0)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (size <= 0.5) {
    const double z = x * x;
    return Beyond(kHalfPiPair, {-x, -(x * z * ArcsineSeries(z))});
  }
  const Pair angle = ArccosineOfLarge(size);
  return x < 0.0 ? Beyond(kPiPair, Negative(angle)) : Sum(angle);
}

}  // namespace zenithor
