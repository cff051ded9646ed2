#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "numerics/constants.h"
#include "numerics/sincos.h"
#include "numerics/sincos_kernel.h"
#include "numerics/sine_cosine.h"
#include "support/quadruple.h"

namespace zenithor {
namespace {

using testing::Quadruple;
using testing::QuadrupleCosine;

// pi / 2 as the sum of three doubles.
Quadruple QuarterTurn() {
  return Quadruple(0x1.921fb54442d18p+0) + Quadruple(0x1.1a62633145c07p-54) +
         Quadruple(-0x1.f1976b7ed8fbcp-110);
}

double Distance(double value, Quadruple truth) {
  return std::fabs(static_cast<double>(Quadruple(value) - truth));
}

// The bound that is derived beside the kernel.
double Bound(double angle) { return 1.3e-16 + std::fabs(angle) * 0x1p-75; }

void ExpectWithinTheBound(const std::vector<double>& angles) {
  std::vector<double> result(2 * angles.size());
  CosinesAndSines(angles.data(), static_cast<int>(angles.size()), result.data());
  for (std::size_t k = 0; k < angles.size(); ++k) {
    const double x = angles[k];
    ASSERT_LE(Distance(result[2 * k], QuadrupleCosine(x)), Bound(x)) << "cos " << x;
    ASSERT_LE(Distance(result[2 * k + 1], QuadrupleCosine(Quadruple(x) - QuarterTurn())), Bound(x))
        << "sin " << x;
  }
}

TEST(CosinesAndSines, AreWithinTheDerivedBoundOfTheTrueValue) {
  std::mt19937_64 random(20001);
  for (const double largest : {0.01, 7.0, 1e3, 1e6, kLargestKernelAngle}) {
    std::uniform_real_distribution<double> angle(-largest, largest);
    std::vector<double> angles(4000);
    for (double& x : angles) {
      x = angle(random);
    }
    ExpectWithinTheBound(angles);
  }
}

TEST(CosinesAndSines, AreWithinTheBoundBesideEveryStepAndHalfStepOfTheCircle) {
  std::vector<double> angles;
  for (int half_step = -1100; half_step <= 1100; ++half_step) {
    const double x = half_step * (kPi / 512);
    for (const double beside : {std::nextafter(x, -1e9), x, std::nextafter(x, 1e9)}) {
      angles.push_back(beside);
    }
  }
  ExpectWithinTheBound(angles);
}

TEST(CosinesAndSines, AreExactAtZeroAndKeepTinyAngles) {
  const double angles[] = {0.0, 1e-300, -1e-20, std::numeric_limits<double>::denorm_min()};
  double result[8];
  CosinesAndSines(angles, 4, result);
  for (int k = 0; k < 4; ++k) {
    EXPECT_EQ(result[2 * k], 1.0);
    EXPECT_EQ(result[2 * k + 1], angles[k]);
  }
}

TEST(CosinesAndSines, AreOneByOneForAFourWithAnAngleBeyondTheKernel) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double unsuitable : {std::nextafter(kLargestKernelAngle, 1e9), -1e300, infinity,
                                  std::numeric_limits<double>::quiet_NaN()}) {
    const double angles[] = {1.0, unsuitable, 2.0, 3.0, 4.0};
    double result[10];
    CosinesAndSines(angles, 5, result);
    for (int k = 0; k < 4; ++k) {
      const double expected[] = {Cosine(angles[k]), Sine(angles[k])};
      if (std::isfinite(unsuitable) || k != 1) {
        EXPECT_EQ(result[2 * k], expected[0]) << angles[k];
        EXPECT_EQ(result[2 * k + 1], expected[1]) << angles[k];
      } else {
        EXPECT_TRUE(std::isnan(result[2 * k]) && std::isnan(result[2 * k + 1]));
      }
    }
    EXPECT_LE(Distance(result[8], QuadrupleCosine(4.0)), Bound(4.0));
  }
}

TEST(CosinesAndSines, DoNotDependOnTheirNeighboursAndWriteNothingBeyondTheCount) {
  const double angles[] = {0.1, 10.2, -20.3, 1e5, 7.5, -2.25, 0.7};
  for (int count = 0; count <= 7; ++count) {
    double result[15];
    for (double& x : result) {
      x = -777.25;
    }
    CosinesAndSines(angles, count, result);
    for (int k = 0; k < 7; ++k) {
      double alone[2] = {-777.25, -777.25};
      CosinesAndSines(angles + k, k < count ? 1 : 0, alone);
      EXPECT_EQ(std::memcmp(alone, result + 2 * k, sizeof alone), 0) << k << " of " << count;
    }
    EXPECT_EQ(result[14], -777.25);
  }
}

}  // namespace
}  // namespace zenithor
