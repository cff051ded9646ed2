#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "numerics/arcs.h"
#include "support/quadruple.h"

namespace zenithor {
namespace {

using testing::Quadruple;
using testing::QuadrupleArccosine;
using testing::QuadrupleArcsine;
using testing::QuadrupleArctangent;
using testing::QuadrupleSignedAngle;
using testing::UlpsFrom;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The stated bounds, in ulp.
constexpr double kBound = 0.6;
constexpr double kSineBound = 0.7;

std::vector<double> Between(double low, double high, int count, std::mt19937_64& random) {
  std::uniform_real_distribution<double> number(low, high);
  std::vector<double> numbers(static_cast<std::size_t>(count));
  for (double& x : numbers) {
    x = number(random);
  }
  return numbers;
}

// Both signs, sizes from 2^low to 2^high.
std::vector<double> OfSizes(double low, double high, int count, std::mt19937_64& random) {
  std::vector<double> numbers = Between(low, high, count, random);
  for (double& x : numbers) {
    x = (random() % 2 == 0 ? 1.0 : -1.0) * std::exp2(x);
  }
  return numbers;
}

TEST(Arctangent, IsWithinTheStatedBound) {
  std::mt19937_64 random(20021);
  for (const auto& numbers :
       {Between(-2.0, 2.0, 20000, random), OfSizes(-40.0, 60.0, 20000, random)}) {
    for (const double x : numbers) {
      ASSERT_LE(UlpsFrom(QuadrupleArctangent(x), Arctangent(x)), kBound) << x;
    }
  }
  // Where one step of the table ends and the next begins.
  for (int half_step = 1; half_step <= 300; ++half_step) {
    const double x = half_step / 128.0;
    for (const double beside : {std::nextafter(x, 0.0), x, std::nextafter(x, 9.0), 1.0 / x}) {
      ASSERT_LE(UlpsFrom(QuadrupleArctangent(beside), Arctangent(beside)), kBound) << beside;
    }
  }
}

TEST(Arctangent, HasItsEnds) {
  EXPECT_EQ(Arctangent(kInfinity), std::acos(0.0));
  EXPECT_EQ(Arctangent(-kInfinity), -std::acos(0.0));
  EXPECT_EQ(Arctangent(std::numeric_limits<double>::max()), std::acos(0.0));
  EXPECT_TRUE(std::isnan(Arctangent(kNaN)));
  for (const double tiny : {0.0, -0.0, 1e-20, -std::numeric_limits<double>::denorm_min()}) {
    EXPECT_EQ(Arctangent(tiny), tiny);
    EXPECT_EQ(std::signbit(Arctangent(tiny)), std::signbit(tiny));
  }
}

TEST(ArctangentOfPoint, IsWithinTheStatedBoundInAllQuadrants) {
  std::mt19937_64 random(20022);
  const std::vector<double> heights = OfSizes(-45.0, 45.0, 30000, random);
  const std::vector<double> widths = OfSizes(-45.0, 45.0, 30000, random);
  for (std::size_t k = 0; k < heights.size(); ++k) {
    // Every third far beyond what may be squared, every seventh far below.
    const double scale = k % 3 == 0 ? 0x1p900 : k % 7 == 0 ? 0x1p-900 : 1.0;
    const double y = heights[k];
    const double x = widths[k];
    ASSERT_LE(
        UlpsFrom(QuadrupleSignedAngle(y, Quadruple(x)), ArctangentOfPoint(y * scale, x * scale)),
        kBound)
        << y << " " << x << " " << scale;
  }
}

TEST(ArctangentOfPoint, AnswersSidesThatAreFarApartInSize) {
  EXPECT_EQ(ArctangentOfPoint(1e-300, 1e-290), 1e-300 / 1e-290);
  EXPECT_EQ(ArctangentOfPoint(1e-300, 1e300), 0.0);
  EXPECT_EQ(ArctangentOfPoint(1e-30, 1e10), 1e-30 / 1e10);
  EXPECT_EQ(ArctangentOfPoint(-1e-30, -1e10), -std::acos(-1.0));
  EXPECT_EQ(ArctangentOfPoint(1e300, -1e-300), std::acos(0.0));
  const double denormal = std::numeric_limits<double>::denorm_min();
  EXPECT_EQ(ArctangentOfPoint(denormal, denormal), std::atan2(1.0, 1.0));
  EXPECT_EQ(ArctangentOfPoint(-0x1p1023, 0x1p1023), std::atan2(-1.0, 1.0));
}

TEST(ArctangentOfPoint, HasZerosInfinitiesAndNaNAsTheCLibrary) {
  const double numbers[] = {0.0, -0.0, 1.0, -1.0, kInfinity, -kInfinity, kNaN};
  for (const double y : numbers) {
    for (const double x : numbers) {
      const double ours = ArctangentOfPoint(y, x);
      const double theirs = std::atan2(y, x);
      if (std::isnan(theirs)) {
        EXPECT_TRUE(std::isnan(ours)) << y << " " << x;
        continue;
      }
      EXPECT_EQ(ours, theirs) << y << " " << x;
      EXPECT_EQ(std::signbit(ours), std::signbit(theirs)) << y << " " << x;
    }
  }
}

TEST(ArcsineAndArccosine, AreWithinTheStatedBound) {
  std::mt19937_64 random(20023);
  std::vector<double> numbers = Between(-1.0, 1.0, 20000, random);
  for (const double x : OfSizes(-50.0, 0.0, 5000, random)) {
    numbers.push_back(x);
    numbers.push_back(x < 0.0 ? -1.0 - x : 1.0 - x);  // near the ends
  }
  for (const double x : numbers) {
    ASSERT_LE(UlpsFrom(QuadrupleArcsine(x), Arcsine(x)), kSineBound) << x;
    ASSERT_LE(UlpsFrom(QuadrupleArccosine(x), Arccosine(x)), kSineBound) << x;
  }
}

TEST(ArcsineAndArccosine, HaveTheirEnds) {
  EXPECT_EQ(Arcsine(1.0), std::acos(0.0));
  EXPECT_EQ(Arcsine(-1.0), -std::acos(0.0));
  EXPECT_EQ(Arccosine(1.0), 0.0);
  EXPECT_EQ(Arccosine(-1.0), std::acos(-1.0));
  EXPECT_EQ(Arccosine(0.0), std::acos(0.0));
  EXPECT_EQ(Arccosine(-1e-30), std::acos(0.0));
  EXPECT_TRUE(std::signbit(Arcsine(-0.0)));
  EXPECT_EQ(Arcsine(1e-300), 1e-300);
  for (const double none : {std::nextafter(1.0, 2.0), -2.0, kInfinity, -kInfinity, kNaN}) {
    EXPECT_TRUE(std::isnan(Arcsine(none))) << none;
    EXPECT_TRUE(std::isnan(Arccosine(none))) << none;
  }
}

}  // namespace
}  // namespace zenithor
