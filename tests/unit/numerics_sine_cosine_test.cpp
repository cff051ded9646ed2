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

// Beyond the kernel: against quadruple precision as far as that reaches, against values from the
// literature (J.-M. Muller et al., Handbook of Floating-Point Arithmetic, chapter 11, gives the
// double whose cosine is nearest to 0), and by the formulas for the double angle.
TEST(SineAndCosine, AnswerAnglesOfAnySize) {
  std::mt19937_64 random(20013);
  std::uniform_real_distribution<double> size(24.0, 29.0);
  for (int k = 0; k < 2000; ++k) {
    const double x = std::exp2(size(random)) * (k % 2 == 0 ? 1.0 : -1.0);
    EXPECT_NEAR(Cosine(x), static_cast<double>(testing::QuadrupleCosine(x)), 0x1p-53) << x;
  }
  EXPECT_EQ(Cosine(0x1.6ac5b262ca1ffp+849), -4.687165924254627611e-19);
  EXPECT_EQ(Sine(1e22), -0.8522008497671888018);
  EXPECT_EQ(Cosine(1e22), 0.5232147853951389455);
  EXPECT_EQ(Sine(std::numeric_limits<double>::max()), 0.00496195478918406220);

  std::uniform_real_distribution<double> power(24.0, 1022.0);
  for (int k = 0; k < 20000; ++k) {
    const double x = std::exp2(power(random)) * (k % 2 == 0 ? 1.0 : -1.0);
    const CosineSine once = CosineAndSine(x);
    const CosineSine twice = CosineAndSine(2.0 * x);
    ASSERT_NEAR(twice.sine, 2.0 * once.sine * once.cosine, 5e-16) << x;
    ASSERT_NEAR(twice.cosine, (once.cosine - once.sine) * (once.cosine + once.sine), 5e-16) << x;
    ASSERT_EQ(once.sine, Sine(x)) << x;
    ASSERT_EQ(once.cosine, Cosine(x)) << x;
    ASSERT_NEAR(Tangent(x) * once.cosine, once.sine, 4e-16) << x;
  }
}

// Where the kernel's way ends, both ways give the same angle.
TEST(SineAndCosine, GoOnWithoutAStepBeyondTheKernel) {
  const double last = kLargestKernelAngle;
  const double next = std::nextafter(last, 1e9);
  EXPECT_NEAR(Sine(next), Sine(last) + Cosine(last) * (next - last), 3e-16);
  EXPECT_NEAR(Cosine(-next), Cosine(last) - Sine(last) * (next - last), 3e-16);
}

TEST(SineAndCosine, GiveNaNWhereThereIsNoAngle) {
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
