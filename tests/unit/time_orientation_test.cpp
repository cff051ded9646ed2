// Obliquity, nutation, sidereal time and the observer's parallax.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "support/expect_published.h"
#include "support/extended.h"
#include "support/text_files.h"
#include "time/constants.h"
#include "time/julian_day.h"
#include "time/nutation.h"
#include "time/obliquity.h"
#include "time/parallax.h"
#include "time/sidereal_time.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;

constexpr double k1987April10 = 2446895.5;

TEST(MeanObliquity, OfJ2000IsTheConstantOfThePolynomial) {
  EXPECT_DOUBLE_EQ(MeanObliquity(0.0), 84381.448 * kRadiansPerArcsecond);
}

TEST(MeanObliquity, MeetsTheBook) {
  ExpectPublished("22.a", "epsilon0",
                  MeanObliquity(JulianCenturies(k1987April10)) * kDegreesPerRadian);
}

// Ten times farther than the theory reaches every power of the two polynomials is felt.
TEST(MeanObliquity, MeetsASecondEvaluation) {
  for (const double t : {-1000.0, -100.0, 30.0, 100.0, 1000.0}) {
    const long double arcseconds =
        testing::ExtendedPolynomial({84381.448L, -4680.93L, -1.55L, 1999.25L, -51.38L, -249.67L,
                                     -39.05L, 7.12L, 27.87L, 5.79L, 2.45L},
                                    0.01L * t);
    const auto expected = static_cast<double>(arcseconds / 3600.0L * testing::kExtendedDegree);
    EXPECT_NEAR(MeanObliquity(t), expected, 2e-15 * std::fabs(expected)) << t;
  }
}

TEST(CachedObliquity, MeetsASecondEvaluation) {
  for (const double t : {-1000.0, -100.0, 30.0, 100.0, 1000.0}) {
    const long double arcseconds = testing::ExtendedPolynomial(
        {84381.406173L, -468.3396L, -0.0175L, 1.9989L, -0.005138L, -0.0024967L, -3.905e-5L,
         7.12e-7L, 2.787e-7L, 5.79e-9L, 2.45e-10L},
        0.1L * t);
    const auto expected = static_cast<double>(arcseconds / 3600.0L * testing::kExtendedDegree);
    ObliquityCache cache;
    CachedObliquity(kJ2000 + kDaysPerCentury * t, cache);
    EXPECT_NEAR(cache.epsilon, expected, 2e-15 * std::fabs(expected)) << t;
  }
}

TEST(CachedObliquity, RecomputesNothingForTheSameDay) {
  ObliquityCache cache;
  CachedObliquity(2440000.5, cache);
  EXPECT_NEAR(cache.epsilon * kDegreesPerRadian, 23.4434, 1e-3);
  EXPECT_EQ(cache.cos_epsilon, std::cos(cache.epsilon));
  EXPECT_EQ(cache.sin_epsilon, std::sin(cache.epsilon));
  cache.epsilon = 99.0;  // a value that no computation gives
  CachedObliquity(2440000.5, cache);
  EXPECT_EQ(cache.epsilon, 99.0);
  CachedObliquity(2440001.5, cache);
  EXPECT_NE(cache.epsilon, 99.0);
}

TEST(CachedObliquity, KeptOnPurposeStartsAtTheDayMinusOne) {
  ObliquityCache cache;
  CachedObliquity(-1.0, cache);
  EXPECT_EQ(cache.epsilon, 0.0);
  EXPECT_EQ(cache.cos_epsilon, 0.0);
  EXPECT_EQ(cache.sin_epsilon, 0.0);
  CachedObliquity(kJ2000, cache);
  CachedObliquity(-1.0, cache);
  EXPECT_GT(cache.epsilon, 0.4);
}

TEST(KeptOnPurpose, TheTwoObliquitiesDiffer) {
  // 0.041827 arcsecond at J2000.0: the two polynomials have different constants.
  ObliquityCache cache;
  CachedObliquity(kJ2000, cache);
  EXPECT_NEAR((MeanObliquity(0.0) - cache.epsilon) / kRadiansPerArcsecond, 0.041827, 1e-6);
}

TEST(Nutation, MeetsTheBook) {
  const NutationAngles nutation = Nutation(JulianCenturies(k1987April10));
  ExpectPublished("22.a", "dpsi", nutation.dpsi / kRadiansPerArcsecond);
  ExpectPublished("22.a", "deps", nutation.deps / kRadiansPerArcsecond);
}

TEST(Nutation, OfJ2000IsThatOfTheLaterTheories) {
  // -13.923" and -5.774" by the theory of 2000 (IERS Conventions 2003, chapter 5), which corrects
  // that of 1980 by 0.04" and 0.005" at most.
  const NutationAngles nutation = Nutation(0.0);
  EXPECT_NEAR(nutation.dpsi / kRadiansPerArcsecond, -13.923, 0.04);
  EXPECT_NEAR(nutation.deps / kRadiansPerArcsecond, -5.774, 0.005);
  // Over a period of the node neither exceeds 20" and 10", nor stays far below: 18.6 years.
  double most_longitude = 0.0;
  double most_obliquity = 0.0;
  for (double t = -1.0; t < 1.0; t += 0.0017) {
    const NutationAngles n = Nutation(t);
    most_longitude = std::fmax(most_longitude, std::fabs(n.dpsi) / kRadiansPerArcsecond);
    most_obliquity = std::fmax(most_obliquity, std::fabs(n.deps) / kRadiansPerArcsecond);
  }
  EXPECT_NEAR(most_longitude, 19.0, 1.0);
  EXPECT_NEAR(most_obliquity, 10.0, 0.5);
}

// Straight from the published table, one sine and one cosine a term, in extended precision.
NutationAngles NaiveNutation(long double t) {
  // D, M, M', F and Omega [deg].
  const long double degrees[] = {
      testing::ExtendedPolynomial({297.8503631L, 445267.11148L, -0.0019142L, 5.278e-06L}, t),
      testing::ExtendedPolynomial({357.5277233L, 35999.05034L, -0.0001603L, -3.33e-06L}, t),
      testing::ExtendedPolynomial({134.9629814L, 477198.8673981L, 0.0086972L, 1.778e-05L}, t),
      testing::ExtendedPolynomial({93.2719103L, 483202.0175381L, -0.0036825L, 3.056e-06L}, t),
      testing::ExtendedPolynomial({125.0445222L, -1934.1362608L, 0.00207833L, 2.22e-06L}, t)};
  long double dpsi = 0.0L;
  long double deps = 0.0L;
  const std::vector<std::string> lines = testing::LinesOf("data/nutation/iau1980-63-terms.csv");
  for (std::size_t line = 1; line < lines.size(); ++line) {
    const std::vector<std::string> cell = testing::Split(lines[line], ',');
    long double angle = 0.0L;
    for (std::size_t k = 0; k < 5; ++k) {
      angle += std::stold(cell.at(k)) * degrees[k];
    }
    angle *= testing::kExtendedDegree;
    dpsi += (std::stold(cell.at(5)) + std::stold(cell.at(6)) * t) * std::sin(angle);
    deps += (std::stold(cell.at(7)) + std::stold(cell.at(8)) * t) * std::cos(angle);
  }
  const long double unit = 0.0001L / 3600.0L * testing::kExtendedDegree;
  return {static_cast<double>(dpsi * unit), static_cast<double>(deps * unit)};
}

TEST(Nutation, MeetsASecondEvaluation) {
  // At T = 100 the arguments, up to 5e7 degrees, are known to 1e-10 radian, and the sums to some
  // 1e-14; there the smallest coefficient turns an argument by 2 degrees.
  for (const double t : {-100.0, -20.0, -0.127296372348, 0.0, 1.0, 47.3, 100.0}) {
    const NutationAngles actual = Nutation(t);
    const NutationAngles expected = NaiveNutation(t);
    EXPECT_NEAR(actual.dpsi, expected.dpsi, 1e-13) << t;
    EXPECT_NEAR(actual.deps, expected.deps, 1e-13) << t;
  }
}

TEST(GreenwichMeanSiderealTime, MeetsASecondEvaluation) {
  for (const double t : {-1000.0, -20.0, 0.0, 1.0, 1000.0}) {
    const long double degrees =
        360.98564736629L * 36525.0L * t +
        testing::ExtendedPolynomial({280.46061837L, 0.0L, 0.000387933L, -1.0L / 38710000.0L}, t);
    const double theta = GreenwichMeanSiderealTime(kJ2000 + kDaysPerCentury * t, t);
    // Unreduced: 2e8 radians.
    EXPECT_NEAR(theta, static_cast<double>(degrees * testing::kExtendedDegree),
                4e-16 * std::fabs(theta) + 1e-15)
        << t;
  }
}

TEST(GreenwichMeanSiderealTime, MeetsTheBookAtZeroHours) {
  const double theta = GreenwichMeanSiderealTime(k1987April10, JulianCenturies(k1987April10));
  ExpectPublished("12.a", "mean at 0h UT", ReduceAngle(theta) * kHoursPerRadian);
}

// Meeus, example 12.b: 1987 April 10 at 19h21m00s UT, 8h34m57.0896s.
TEST(GreenwichMeanSiderealTime, MeetsTheBookAtAnyInstant) {
  const double day = 2446896.30625;
  const double theta = GreenwichMeanSiderealTime(day, JulianCenturies(day));
  const double expected_hours = 8.0 + 34.0 / 60.0 + 57.0896 / 3600.0;
  // The day number holds the instant to 4e-5 second.
  EXPECT_NEAR(ReduceAngle(theta) * kHoursPerRadian, expected_hours, 5e-5 / 3600.0);
}

TEST(ObserverGeocentricTerms, MeetTheBook) {
  const double latitude = (33.0 + 21.0 / 60.0 + 22.0 / 3600.0) * kRadiansPerDegree;
  const ObserverTerms observer = ObserverGeocentricTerms(latitude, 1706.0);
  ExpectPublished("11.a", "rho sin phi", observer.rho_sin_phi);
  ExpectPublished("11.a", "rho cos phi", observer.rho_cos_phi);
}

TEST(ObserverGeocentricTerms, OfASatelliteHaveItsHeightInEquatorialRadii) {
  // Meeus, chapter 11, formulas with the IAU ellipsoid of 1976: 6378140 m and 1 / 298.257.
  const long double latitude = 0.75L;
  const long double axes = 1.0L - 1.0L / 298.257L;
  const long double u = std::atan(axes * std::tan(latitude));
  const long double height = 1e6L / 6378140.0L;
  const ObserverTerms observer = ObserverGeocentricTerms(0.75, 1e6);
  EXPECT_NEAR(observer.rho_cos_phi, static_cast<double>(std::cos(u) + height * std::cos(latitude)),
              3e-16);
  EXPECT_NEAR(observer.rho_sin_phi,
              static_cast<double>(axes * std::sin(u) + height * std::sin(latitude)), 3e-16);
}

TEST(ObserverGeocentricTerms, OfTheEquatorAreOneAndZero) {
  const ObserverTerms observer = ObserverGeocentricTerms(0.0, 0.0);
  EXPECT_EQ(observer.rho_cos_phi, 1.0);
  EXPECT_EQ(observer.rho_sin_phi, 0.0);
}

// Mars as in Meeus, example 40.a: 2003 August 28 at 3h17m UT, from Palomar.
struct MarsFromPalomar {
  double parallax_sine = std::sin(23.592 * kRadiansPerArcsecond);
  ObserverTerms observer{0.836339, 0.546861};
  double alpha = 339.530208 * kRadiansPerDegree;
  double delta = -15.771083 * kRadiansPerDegree;
  double sidereal_time;

  MarsFromPalomar() {
    const double day = 2452879.63681;
    const double west = (7.0 + 47.0 / 60.0 + 27.0 / 3600.0) / kHoursPerRadian;
    sidereal_time = ReduceAngle(GreenwichMeanSiderealTime(day, JulianCenturies(day)) - west);
  }
};

TEST(ParallaxRectangular, MeetsTheBook) {
  MarsFromPalomar mars;
  double distance = 1.0;
  ParallaxRectangular(mars.parallax_sine, mars.sidereal_time, mars.observer, mars.alpha, mars.delta,
                      distance);
  ExpectPublished("40.a", "alpha", mars.alpha * kDegreesPerRadian);
  ExpectPublished("40.a", "delta", mars.delta * kDegreesPerRadian);
}

TEST(Parallax, ItsThreeFormsAgreeForMars) {
  const MarsFromPalomar mars;
  double strict_alpha = mars.alpha;
  double strict_delta = mars.delta;
  ParallaxStrict(mars.parallax_sine, mars.sidereal_time, mars.observer, strict_alpha, strict_delta);
  double near_alpha = mars.alpha;
  double near_delta = mars.delta;
  ParallaxApproximate(mars.parallax_sine, mars.sidereal_time, mars.observer, near_alpha,
                      near_delta);
  double alpha = mars.alpha;
  double delta = mars.delta;
  double distance = 1.0;
  ParallaxRectangular(mars.parallax_sine, mars.sidereal_time, mars.observer, alpha, delta,
                      distance);
  EXPECT_NEAR(strict_alpha, alpha, 1e-14);
  EXPECT_NEAR(strict_delta, delta, 1e-14);
  // First order: what is left out is of the order of the parallax squared, (1.1e-4)^2.
  EXPECT_NEAR(near_alpha, alpha, 3e-8);
  EXPECT_NEAR(near_delta, delta, 3e-8);
}

TEST(ParallaxRectangular, OfNoParallaxOnlyReducesTheRightAscension) {
  double alpha = -1.0;
  double delta = 0.3;
  double distance = 5.0;
  ParallaxRectangular(0.0, 2.0, {0.8, 0.6}, alpha, delta, distance);
  EXPECT_NEAR(alpha, kTwoPi - 1.0, 1e-15);
  EXPECT_NEAR(delta, 0.3, 1e-15);
  EXPECT_NEAR(distance, 5.0, 1e-14);
}

TEST(KeptOnPurpose, ParallaxRectangularDividesTheDistance) {
  // A body in the zenith of the equator is nearer by the parallax; the quotient makes it farther.
  double alpha = 1.0;
  double delta = 0.0;
  double distance = 1.0;
  ParallaxRectangular(0.01, 1.0, {1.0, 0.0}, alpha, delta, distance);
  EXPECT_NEAR(distance, 1.0 / 0.99, 1e-15);
}

}  // namespace
}  // namespace zenithor
