// Precession of a vector between an epoch and J2000.0.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "numerics/constants.h"
#include "orbits/precession.h"
#include "orbits/vectors.h"
#include "support/extended.h"
#include "time/constants.h"

namespace zenithor {
namespace {

Rectangular Towards(double longitude_degrees, double latitude_degrees) {
  return SphericalToRectangular(
      {longitude_degrees * kRadiansPerDegree, latitude_degrees * kRadiansPerDegree, 1.0});
}

TEST(PrecessVector, ChangesNothingAtJ2000) {
  for (const auto direction : {PrecessionDirection::kToJ2000, PrecessionDirection::kFromJ2000}) {
    ObliquityCache obliquity;
    Rectangular v{0.1, -2.0, 30.0};
    PrecessVector(kJ2000, direction, obliquity, v);
    EXPECT_EQ(v.x, 0.1);
    EXPECT_EQ(v.y, -2.0);
    EXPECT_EQ(v.z, 30.0);
    EXPECT_EQ(obliquity.julian_day, -1.0);  // not even the obliquity is computed
  }
}

TEST(PrecessVector, ThereAndBackReturnsTheVectorOverTenThousandYears) {
  ObliquityCache obliquity;
  double worst = 0.0;
  for (int year = -10000; year <= 10000; year += 37) {
    const double jd = kJ2000 + 365.25 * year + 0.3;
    for (const Rectangular& start :
         {Rectangular{1.0, -0.2, 0.1}, Rectangular{0.3, 1.0, 0.1}, Rectangular{0.3, -0.2, 1.0}}) {
      Rectangular v = start;
      PrecessVector(jd, PrecessionDirection::kFromJ2000, obliquity, v);
      EXPECT_NEAR(Length(v), Length(start), 1e-14);
      PrecessVector(jd, PrecessionDirection::kToJ2000, obliquity, v);
      worst = std::max(worst, Length(v - start));
      PrecessVector(jd, PrecessionDirection::kToJ2000, obliquity, v);
      PrecessVector(jd, PrecessionDirection::kFromJ2000, obliquity, v);
      worst = std::max(worst, Length(v - start));
    }
  }
  EXPECT_LT(worst, 1e-12);
}

struct ExtendedVector {
  long double x, y, z;
};

ExtendedVector TurnedAboutFirst(const ExtendedVector& v, long double angle) {
  const long double c = std::cos(angle);
  const long double s = std::sin(angle);
  return {v.x, c * v.y + s * v.z, c * v.z - s * v.y};
}

ExtendedVector TurnedAboutThird(const ExtendedVector& v, long double angle) {
  const long double c = std::cos(angle);
  const long double s = std::sin(angle);
  return {c * v.x + s * v.y, c * v.y - s * v.x, v.z};
}

long double ExtendedObliquity(long double t) {
  return testing::ExtendedPolynomial(
             {84381.406173L, -468.3396L, -0.0175L, 1.9989L, -0.005138L, -0.0024967L, -3.905e-5L,
              7.12e-7L, 2.787e-7L, 5.79e-9L, 2.45e-10L},
             t) /
         3600.0L * testing::kExtendedDegree;
}

TEST(PrecessVector, MeetsASecondEvaluation) {
  // Thirty thousand years away, three times as far as the theory is meant for, every coefficient
  // counts.
  for (const double t : {-30.0, -10.0, -1.0, 0.5, 10.0, 30.0}) {
    const long double general =
        t *
        testing::ExtendedPolynomial({50287.91959L, 110.5414L, 0.076L, -0.235316L, -1.8055e-03L,
                                     1.7451e-04L, 1.3095e-05L, 2.424e-07L, -4.759e-08L, -8.66e-10L},
                                    t) /
        3600.0L * testing::kExtendedDegree;
    const long double node = testing::ExtendedPolynomial(
        {3.052115282424L, -0.04207794833L, 7.436169e-05L, 1.26e-07L, -1.8103e-07L, -3.54e-09L,
         1.9e-10L, 7.521313e-12L, -1.547021e-12L, -2.69151e-15L, 6.6402e-16L},
        t);
    const long double inclination = testing::ExtendedPolynomial(
        {0.0L, 0.00227850649L, -1.62442e-05L, -6.012e-07L, 1.32115526e-09L, -5.4000441e-11L,
         2.4650839e-11L, 2.50341e-13L, -8.26287e-14L, 7.3759e-17L, 1.2147e-16L},
        t);
    ExtendedVector expected = TurnedAboutFirst({0.3L, -0.2L, 1.0L}, ExtendedObliquity(0.0L));
    expected = TurnedAboutThird(expected, node);
    expected = TurnedAboutFirst(expected, inclination);
    expected = TurnedAboutThird(expected, -node - general);
    expected = TurnedAboutFirst(expected, -ExtendedObliquity(t));
    ObliquityCache obliquity;
    Rectangular v{0.3, -0.2, 1.0};
    PrecessVector(kJ2000 + 10.0 * kDaysPerCentury * t, PrecessionDirection::kFromJ2000, obliquity,
                  v);
    EXPECT_NEAR(v.x, static_cast<double>(expected.x), 3e-14) << t;
    EXPECT_NEAR(v.y, static_cast<double>(expected.y), 3e-14) << t;
    EXPECT_NEAR(v.z, static_cast<double>(expected.z), 3e-14) << t;
  }
}

TEST(PrecessVector, BringsThetaPerseiToItsPlaceOf2028) {
  // Meeus, example 21.b: 41.054063, +49.227750 degrees after proper motion become 41.547214,
  // +49.348483 by the theory of 1976. The present rate of general precession is 0.31" a century
  // smaller and the obliquity 0.04" smaller: 0.1" after 28.9 years.
  ObliquityCache obliquity;
  Rectangular v = Towards(41.054063, 49.227750);
  PrecessVector(2462088.69, PrecessionDirection::kFromJ2000, obliquity, v);
  const Spherical star = RectangularToSpherical(v);
  const double arcseconds = 3600.0 * kDegreesPerRadian;
  EXPECT_NEAR(
      (star.longitude - 41.547214 * kRadiansPerDegree) * arcseconds * std::cos(star.latitude), 0.0,
      0.1);
  EXPECT_NEAR((star.latitude - 49.348483 * kRadiansPerDegree) * arcseconds, 0.0, 0.1);
}

TEST(PrecessVector, BringsVenusToTheEclipticOf214BC) {
  // Meeus, example 21.c: longitude 149.48194, latitude +1.76549 of J2000.0 become 118.704, +1.615
  // in -214 June 30.0 (printed to 0.001 degree); 22 centuries of 0.31" make 0.002 degree.
  ObliquityCache obliquity;
  CachedObliquity(kJ2000, obliquity);
  Rectangular v = EclipticToEquator(Towards(149.48194, 1.76549), obliquity);
  PrecessVector(1643074.5, PrecessionDirection::kFromJ2000, obliquity, v);
  const Spherical venus = RectangularToSpherical(EquatorToEcliptic(v, obliquity));
  EXPECT_NEAR(venus.longitude * kDegreesPerRadian, 118.704, 0.0025);
  EXPECT_NEAR(venus.latitude * kDegreesPerRadian, 1.615, 0.0025);
}

TEST(PrecessVector, LeavesTheObliquityOfTheEquinoxArrivedAt) {
  ObliquityCache obliquity;
  Rectangular v{1.0, 0.0, 0.0};
  PrecessVector(2415020.0, PrecessionDirection::kFromJ2000, obliquity, v);
  EXPECT_EQ(obliquity.julian_day, 2415020.0);
  PrecessVector(2415020.0, PrecessionDirection::kToJ2000, obliquity, v);
  EXPECT_EQ(obliquity.julian_day, kJ2000);
}

TEST(EquatorToEcliptic, UndoesEclipticToEquator) {
  ObliquityCache obliquity;
  CachedObliquity(kJ2000, obliquity);
  const Rectangular v{0.4, -1.3, 2.2};
  EXPECT_NEAR(Length(EquatorToEcliptic(EclipticToEquator(v, obliquity), obliquity) - v), 0.0,
              1e-15);
  // The pole of the ecliptic is 23.44 degrees from that of the equator, towards 18h.
  const Rectangular pole = EclipticToEquator({0.0, 0.0, 1.0}, obliquity);
  EXPECT_NEAR(pole.y, -0.39777, 1e-5);
}

}  // namespace
}  // namespace zenithor
