#pragma once

#include <cstddef>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/polynomials.h"

namespace zenithor {

// A mean angle of a theory at T Julian centuries from J2000.0 [rad], reduced to [0, 2 pi) as
// ReduceAngle does, from its polynomial in T: [deg] per rising power.
template <std::size_t count>
double MeanAngle(const double (&degrees)[count], double centuries) {
  return ReduceAngle(EvaluatePolynomial(degrees, centuries) * kRadiansPerDegree);
}

}  // namespace zenithor
