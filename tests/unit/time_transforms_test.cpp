#include <gtest/gtest.h>

#include <cmath>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "support/expect_published.h"
#include "support/text_files.h"
#include "time/aberration.h"
#include "time/constants.h"
#include "time/transforms.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;

TEST(RectangularToSpherical, PlacesTheAxesInTheFullCircle) {
  EXPECT_EQ(RectangularToSpherical({-1.0, 0.0, 0.0}).longitude, kPi);
  EXPECT_NEAR(RectangularToSpherical({0.0, -1.0, 0.0}).longitude, 1.5 * kPi, 1e-15);
  EXPECT_EQ(RectangularToSpherical({0.0, 0.0, 2.0}).latitude, kPi / 2.0);
  EXPECT_EQ(RectangularToSpherical({0.0, 0.0, 2.0}).radius, 2.0);
}

TEST(RectangularToSpherical, OfTheOriginHasNoLatitude) {
  const Spherical place = RectangularToSpherical({0.0, 0.0, 0.0});
  EXPECT_EQ(place.radius, 0.0);
  EXPECT_TRUE(std::isnan(place.latitude));
}

TEST(SphericalToRectangular, IsUndoneByRectangularToSpherical) {
  for (double longitude = 0.05; longitude < kTwoPi; longitude += 0.3) {
    for (double latitude = -1.5; latitude < 1.55; latitude += 0.25) {
      const Spherical place =
          RectangularToSpherical(SphericalToRectangular({longitude, latitude, 30.0}));
      ASSERT_NEAR(place.longitude, longitude, 1e-14);
      ASSERT_NEAR(place.latitude, latitude, 1e-14);
      ASSERT_NEAR(place.radius, 30.0, 1e-13);
    }
  }
}

TEST(EclipticToEquatorial, WithoutObliquityKeepsTheCoordinates) {
  const Equatorial place = EclipticToEquatorial(4.5, -0.25, 0.0);
  EXPECT_NEAR(place.alpha, 4.5, 1e-15);
  EXPECT_NEAR(place.delta, -0.25, 1e-15);
}

TEST(EclipticToEquatorial, MeetsTheBook) {
  const Equatorial pollux = EclipticToEquatorial(
      113.215630 * kRadiansPerDegree, 6.684170 * kRadiansPerDegree, 23.4392911 * kRadiansPerDegree);
  ExpectPublished("13.a", "alpha", pollux.alpha * kDegreesPerRadian);
  ExpectPublished("13.a", "delta", pollux.delta * kDegreesPerRadian);
}

TEST(GeocentricPosition, OfTheSunIsOppositeToTheObserver) {
  const Spherical sun = GeocentricPosition({0.0, 0.0, 0.0}, {1.25, 0.0001, 0.99});
  EXPECT_NEAR(sun.longitude, 1.25 + kPi, 1e-15);
  EXPECT_NEAR(sun.latitude, -0.0001, 1e-15);
  EXPECT_NEAR(sun.radius, 0.99, 1e-15);
}

TEST(SunTrueLongitude, MeetsTheBook) {
  const SunLongitude sun = SunTrueLongitude(-0.072183436);
  ExpectPublished("25.a", "longitude mod 360", ReduceAngle(sun.longitude) * kDegreesPerRadian);
  ExpectPublished("25.a", "eccentricity", sun.eccentricity);
}

TEST(SunTrueLongitude, IsNotReduced) {
  EXPECT_GT(SunTrueLongitude(1.0).longitude, 600.0);
  EXPECT_LT(SunTrueLongitude(-1.0).longitude, -600.0);
}

// Theta Persei on 2028 November 13, Meeus, example 23.a.
TEST(AnnualAberration, MeetsTheBook) {
  const Equatorial before{41.5472 * kRadiansPerDegree, 49.3485 * kRadiansPerDegree};
  Equatorial star = before;
  AnnualAberration((2462088.69 - kJ2000) / kDaysPerCentury, 23.436 * kRadiansPerDegree,
                   AberrationTerms::kWithEccentricity, star);
  ExpectPublished("23.a", "delta alpha", (star.alpha - before.alpha) / kRadiansPerArcsecond);
  ExpectPublished("23.a", "delta delta", (star.delta - before.delta) / kRadiansPerArcsecond);
}

TEST(AnnualAberration, ItsEccentricityTermsAreUpToAThirdOfAnArcsecond) {
  Equatorial with{1.0, 0.5};
  Equatorial without{1.0, 0.5};
  AnnualAberration(0.1, 0.409, AberrationTerms::kWithEccentricity, with);
  AnnualAberration(0.1, 0.409, AberrationTerms::kCircularOrbit, without);
  const double difference =
      std::hypot((with.alpha - without.alpha) * std::cos(0.5), with.delta - without.delta) /
      kRadiansPerArcsecond;
  EXPECT_GT(difference, 0.1);
  EXPECT_LT(difference, 0.35);  // kappa times the eccentricity is 0.343"
}

TEST(AnnualAberration, IsEnormousWhereTheCosineOfTheDeclinationAlmostVanishes) {
  // No double is exactly 90 degrees; the nearest one gives an enormous right ascension.
  Equatorial pole{1.0, kPi / 2.0};
  AnnualAberration(0.0, 0.409, AberrationTerms::kWithEccentricity, pole);
  EXPECT_GT(std::fabs(pole.alpha), 1e10);
}

}  // namespace
}  // namespace zenithor
