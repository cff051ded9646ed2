#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "numerics/constants.h"
#include "numerics/sincos_kernel.h"
#include "numerics/sine_cosine.h"
#include "support/quadruple.h"

namespace zenithor {
namespace {

using testing::QuadrupleCosineTurned;
using testing::UlpsFrom;

constexpr int kSine = 3;  // quarters of a turn ahead of the cosine

// The stated bounds, in ulp.
constexpr double kBound = 0.6;
constexpr double kTangentBound = 0.65;

void ExpectWithinTheBounds(const std::vector<double>& angles) {
  double of_sine = 0.0;
  double of_cosine = 0.0;
  double of_tangent = 0.0;
  for (const double x : angles) {
    const auto cosine = QuadrupleCosineTurned(x, 0);
    const auto sine = QuadrupleCosineTurned(x, kSine);
    of_sine = std::max(of_sine, UlpsFrom(sine, Sine(x)));
    of_cosine = std::max(of_cosine, UlpsFrom(cosine, Cosine(x)));
    of_tangent = std::max(of_tangent, UlpsFrom(sine / cosine, Tangent(x)));
    const CosineSine both = CosineAndSine(x);
    ASSERT_EQ(both.sine, Sine(x)) << x;
    ASSERT_EQ(both.cosine, Cosine(x)) << x;
  }
  EXPECT_LE(of_sine, kBound);
  EXPECT_LE(of_cosine, kBound);
  EXPECT_LE(of_tangent, kTangentBound);
}

TEST(SineAndCosine, AreWithinTheStatedBoundOverTheRangesUsed) {
  std::mt19937_64 random(20011);
  for (const double largest : {0.2, 1.0, 7.0, 1e3, 1e6, kLargestKernelAngle}) {
    SCOPED_TRACE(largest);
    std::uniform_real_distribution<double> angle(-largest, largest);
    std::vector<double> angles(8000);
    for (double& x : angles) {
      x = angle(random);
    }
    ExpectWithinTheBounds(angles);
  }
}

// The doubles that are nearest to the axes: there the value is what the reduction leaves.
TEST(SineAndCosine, AreWithinTheStatedBoundBesideTheAxes) {
  std::mt19937_64 random(20012);
  std::uniform_int_distribution<int> quarter(1, 10680707);
  std::vector<double> angles;
  for (int k = 0; k < 8000; ++k) {
    const double x = (k < 200 ? k + 1 : quarter(random)) * (kPi / 2);
    angles.insert(angles.end(), {std::nextafter(x, 0.0), x, std::nextafter(x, 1e9)});
  }
  ExpectWithinTheBounds(angles);
}

// Where one way of computing ends and the next begins.
TEST(SineAndCosine, AreWithinTheStatedBoundBesideEveryStepAndHalfStepOfTheCircle) {
  std::vector<double> angles;
  for (int half_step = -2100; half_step <= 2100; ++half_step) {
    const double x = half_step * (kPi / 512);
    angles.insert(angles.end(), {std::nextafter(x, -1e9), x, std::nextafter(x, 1e9)});
  }
  for (int power = -40; power < -2; ++power) {
    angles.insert(angles.end(), {std::ldexp(1.1, power), std::ldexp(-1.7, power)});
  }
  ExpectWithinTheBounds(angles);
}

TEST(SineAndCosine, AreExactAtZeroAndKeepTinyAngles) {
  EXPECT_EQ(Cosine(0.0), 1.0);
  for (const double tiny : {0.0, -0.0, 1e-300, -1e-20, std::numeric_limits<double>::denorm_min()}) {
    for (const double value : {Sine(tiny), Tangent(tiny), CosineAndSine(tiny).sine}) {
      EXPECT_EQ(value, tiny);
      EXPECT_EQ(std::signbit(value), std::signbit(tiny));
    }
    EXPECT_EQ(Cosine(tiny), 1.0);
    EXPECT_EQ(CosineAndSine(tiny).cosine, 1.0);
  }
}

TEST(SineAndCosine, TakeTheCLibraryBeyondTheKernelAndGiveNaNWhereThereIsNoAngle) {
  for (const double far : {std::nextafter(kLargestKernelAngle, 1e9), -1e9, 1e300}) {
    EXPECT_EQ(Sine(far), std::sin(far));
    EXPECT_EQ(Cosine(far), std::cos(far));
    EXPECT_EQ(Tangent(far), std::tan(far));
    EXPECT_EQ(CosineAndSine(far).sine, std::sin(far));
    EXPECT_EQ(CosineAndSine(far).cosine, std::cos(far));
  }
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double none : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(std::isnan(Sine(none)));
    EXPECT_TRUE(std::isnan(Cosine(none)));
    EXPECT_TRUE(std::isnan(Tangent(none)));
    EXPECT_TRUE(std::isnan(CosineAndSine(none).sine));
    EXPECT_TRUE(std::isnan(CosineAndSine(none).cosine));
  }
}

}  // namespace
}  // namespace zenithor
