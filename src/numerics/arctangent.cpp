#include "numerics/arctangent.h"

#include "numerics/arcs.h"
#include "numerics/constants.h"

namespace zenithor {

double FullCircleArctan(double x, double y) {
  if (x == 0.0) {
    return y < 0.0 ? 1.5 * kPi : y > 0.0 ? 0.5 * kPi : 0.0;
  }
  if (y == 0.0) {
    return x < 0.0 ? kPi : 0.0;
  }
  const double quadrant = x < 0.0 ? kPi : y < 0.0 ? kTwoPi : 0.0;
  return Arctangent(y / x) + quadrant;
}

double PositiveArctan(double y, double x) {
  const double angle = ArctangentOfPoint(y, x);
  return angle < 0.0 ? angle + kTwoPi : angle;
}

}  // namespace zenithor
