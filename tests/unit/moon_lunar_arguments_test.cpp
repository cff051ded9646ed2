#include <gtest/gtest.h>

#include <cmath>

#include "moon/lunar_arguments.h"
#include "numerics/constants.h"
#include "support/extended.h"

namespace zenithor {
namespace {

// a - b in degrees, turned to within half a turn of 0.
double DifferenceDegrees(double a, double b) {
  return std::remainder(a - b, kTwoPi) * kDegreesPerRadian;
}

double CubicDegrees(double c0, double c1, double c2, double c3, double t) {
  return ((c3 * t + c2) * t + c1) * t + c0;
}

TEST(LunarArguments, AreTheConstantTermsAtJ2000) {
  const LunarArguments arguments = ComputeLunarArguments(0.0);
  EXPECT_EQ(arguments.Omega, 125.044555 * kRadiansPerDegree);
  EXPECT_EQ(arguments.D, 297.8502042 * kRadiansPerDegree);
  EXPECT_EQ(arguments.M, 357.5291092 * kRadiansPerDegree);
  EXPECT_EQ(arguments.Mprime, 134.9634114 * kRadiansPerDegree);
  EXPECT_EQ(arguments.F, 93.2720993 * kRadiansPerDegree);
  EXPECT_EQ(arguments.E, 1.0);
}

// Meeus, Astronomical Algorithms, example 47.a (1992 April 12): the arguments as printed, to the
// 1e-6 degree that separates the editions' polynomials 8 years from J2000.0, and E as printed.
TEST(LunarArguments, MeetTheWorkedExample) {
  const LunarArguments arguments = ComputeLunarArguments(-0.077221081451);
  EXPECT_NEAR(arguments.D * kDegreesPerRadian, 113.842304, 3e-5);
  EXPECT_NEAR(arguments.M * kDegreesPerRadian, 97.643514, 1e-6);
  EXPECT_NEAR(arguments.Mprime * kDegreesPerRadian, 5.150833, 3e-5);
  EXPECT_NEAR(arguments.F * kDegreesPerRadian, 219.889721, 3e-5);
  EXPECT_NEAR(arguments.E, 1.000194, 5e-7);
}

TEST(LunarArguments, MeetASecondEvaluationAHundredThousandYearsFromJ2000) {
  // There the smallest coefficient makes a thousand degrees; an angle of 5e8 degrees is known to
  // 6e-8.
  for (const double t : {-1000.0, -300.0, 300.0, 1000.0}) {
    const LunarArguments arguments = ComputeLunarArguments(t);
    const auto expect = [t](double angle, const long double(&degrees)[5]) {
      const long double expected = testing::ExtendedPolynomial(degrees, t);
      EXPECT_NEAR(
          static_cast<double>(std::remainder(angle / testing::kExtendedDegree - expected, 360.0L)),
          0.0, 2e-7)
          << t;
    };
    expect(arguments.Omega, {125.044555L, -1934.1361849L, 0.0020762L, 2.139449e-06L, 1.64973e-08L});
    expect(arguments.D, {297.8502042L, 445267.1115168L, -0.00163L, 1.831945e-06L, 8.84447e-06L});
    expect(arguments.M, {357.5291092L, 35999.0502909L, -0.0001536L, 4.083299e-08L, 0.0L});
    expect(arguments.Mprime,
           {134.9634114L, 477198.8676313L, 0.008997L, 1.434741e-05L, 6.79717e-08L});
    expect(arguments.F, {93.2720993L, 483202.0175273L, -0.0034029L, 2.836075e-07L, 1.15833e-09L});
    EXPECT_NEAR(arguments.E, 1.0 - 0.002516 * t - 0.0000074 * t * t, 1e-15 * t * t);
  }
}

TEST(LunarArguments, AloneAreTheSameBits) {
  for (double t = -1e9; t <= 1e9; t += 12345678.9) {
    const LunarArguments a = ComputeLunarArguments(t);
    EXPECT_EQ(LunarNode(t), a.Omega);
    EXPECT_EQ(LunarSunAnomaly(t), a.M);
    EXPECT_EQ(LunarMoonAnomaly(t), a.Mprime);
    EXPECT_EQ(LunarLatitudeArgument(t), a.F);
  }
}

TEST(LunarArguments, LieWithinOneTurn) {
  for (double t = -50.0; t <= 50.0; t += 0.0078125) {
    const LunarArguments a = ComputeLunarArguments(t);
    for (const double angle : {a.Omega, a.D, a.M, a.Mprime, a.F}) {
      ASSERT_GE(angle, 0.0) << t;
      ASSERT_LT(angle, kTwoPi) << t;
    }
  }
}

// The polynomials below are those of Meeus, chapter 47, up to the cubes. What is left over is the
// quartic. An angle of 1e7 degrees (20 centuries) is known to 2e-9 degree, so 1e-7 is ample.
constexpr double kRounding = 1e-7;  // [deg]

TEST(LunarArguments, KeptOnPurposeElongationQuarticIsAThousandfold) {
  for (const double t : {-20.0, -5.0, 5.0, 20.0}) {
    const double cubic =
        CubicDegrees(297.8502042, 445267.1115168, -0.00163, 1.831945e-06, t) * kRadiansPerDegree;
    const double quartic = DifferenceDegrees(ComputeLunarArguments(t).D, cubic);
    EXPECT_NEAR(quartic, 8.84447e-06 * t * t * t * t, kRounding) << t;
  }
  // 20 centuries away: 1.415 degrees ahead, where the theory falls back by 0.0014.
  const double published =
      (CubicDegrees(297.8502042, 445267.1115168, -0.00163, 1.831945e-06, 20.0) -
       160000.0 / 113065000.0) *
      kRadiansPerDegree;
  EXPECT_NEAR(DifferenceDegrees(ComputeLunarArguments(20.0).D, published), 1.4165, 0.0001);
}

TEST(LunarArguments, KeptOnPurposeQuarticsOfNodeAndAnomalyArePositive) {
  for (const double t : {-20.0, -5.0, 5.0, 20.0}) {
    const double power = t * t * t * t;
    const LunarArguments arguments = ComputeLunarArguments(t);
    const double node =
        CubicDegrees(125.044555, -1934.1361849, 0.0020762, 2.139449e-06, t) * kRadiansPerDegree;
    const double anomaly =
        CubicDegrees(134.9634114, 477198.8676313, 0.008997, 1.434741e-05, t) * kRadiansPerDegree;
    EXPECT_NEAR(DifferenceDegrees(arguments.Omega, node), power / 60616000.0, kRounding) << t;
    EXPECT_NEAR(DifferenceDegrees(arguments.Mprime, anomaly), power / 14712000.0, kRounding) << t;
  }
}

TEST(LunarArguments, KeptOnPurposeCubicOfTheLatitudeArgumentIsPositive) {
  for (const double t : {-20.0, -5.0, 5.0, 20.0}) {
    const double published =
        CubicDegrees(93.2720993, 483202.0175273, -0.0034029, -1.0 / 3526000.0, t) *
        kRadiansPerDegree;
    const double expected = 2.0 * t * t * t / 3526000.0 + t * t * t * t / 863310000.0;
    EXPECT_NEAR(DifferenceDegrees(ComputeLunarArguments(t).F, published), expected, kRounding) << t;
  }
}

TEST(LunarArguments, OfNoNumberAreNoNumbers) {
  const LunarArguments arguments = ComputeLunarArguments(std::nan(""));
  for (const double value :
       {arguments.Omega, arguments.D, arguments.M, arguments.Mprime, arguments.F, arguments.E}) {
    EXPECT_TRUE(std::isnan(value));
  }
}

}  // namespace
}  // namespace zenithor
