#include <gtest/gtest.h>

#include "numerics/polynomials.h"

namespace zenithor {
namespace {

TEST(EvaluatePolynomial, OfDegreeZeroIsItsCoefficient) {
  const double c[] = {4.25};
  EXPECT_EQ(EvaluatePolynomial(c, 0, 1e300), 4.25);
  EXPECT_EQ(EvaluatePolynomial(c, 0, -7.0), 4.25);
}

TEST(EvaluatePolynomial, TakesCoefficientsInRisingPowers) {
  const double c[] = {1.0, -2.0, 0.5, 3.0};
  EXPECT_EQ(EvaluatePolynomial(c, 3, 2.0), 1.0 - 4.0 + 2.0 + 24.0);
}

TEST(EvaluatePolynomial, TakesTheDegreeFromTheTable) {
  const double c[] = {1.0, -2.0, 0.5, 3.0};
  EXPECT_EQ(EvaluatePolynomial(c, 0.3), EvaluatePolynomial(c, 3, 0.3));
  EXPECT_NE(EvaluatePolynomial(c, 0.3), EvaluatePolynomial(c, 2, 0.3));
}

}  // namespace
}  // namespace zenithor
