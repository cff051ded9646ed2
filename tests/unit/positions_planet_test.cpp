#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "ephemeris/series.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "positions/planet_position.h"
#include "positions/position.h"
#include "positions/stored_angles.h"
#include "support/expect_published.h"
#include "support/full_store.h"
#include "support/text_files.h"
#include "support/untouched.h"
#include "time/aberration.h"
#include "time/constants.h"
#include "time/julian_day.h"
#include "time/nutation.h"
#include "time/obliquity.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;
using testing::FullStore;
using testing::kUntouchedDouble;
using testing::UntouchedRecord;

BodyPositionRecord PlanetAt(double julian_day, BodyCode code) {
  BodyPositionRecord record = UntouchedRecord();
  MomentCache cache;
  ComputePlanetPosition(FullStore(), julian_day, 0.0, 0.0, code, cache, record);
  return record;
}

// 1992 October 13, 0h dynamical time, with the complete VSOP87.
TEST(PlanetDriver, PlacesTheSunWhereTheBookHasIt) {
  const BodyPositionRecord sun = PlanetAt(2448908.5, ZENITHOR_SUN);
  ExpectPublished("25.b", "RightAscension", sun.RightAscension);
  ExpectPublished("25.b", "Declination", sun.Declination);
  ExpectPublished("25.b", "GeoDistance", sun.GeoDistance);
  ExpectPublished("25.b", "GeoLongitude", sun.GeoLongitude);
}

// 1992 December 20, 0h dynamical time.
TEST(PlanetDriver, PlacesVenusWhereTheBookHasIt) {
  const BodyPositionRecord venus = PlanetAt(2448976.5, ZENITHOR_VENUS);
  const double dpsi = Nutation(JulianCenturies(2448976.5)).dpsi * kDegreesPerRadian;
  ExpectPublished("33.a", "RightAscension", venus.RightAscension);
  ExpectPublished("33.a", "Declination", venus.Declination);
  ExpectPublished("32.a", "HelioLongitude minus nutation", venus.HelioLongitude - dpsi);
  ExpectPublished("32.a", "HelioLatitude", venus.HelioLatitude);
  ExpectPublished("32.a", "HelioDistance", venus.HelioDistance);
}

TEST(PlanetDriver, LeavesTheHeliocentricFieldsOfTheSun) {
  const BodyPositionRecord sun = PlanetAt(2451545.0, ZENITHOR_SUN);
  EXPECT_EQ(sun.HelioLongitude, kUntouchedDouble);
  EXPECT_EQ(sun.HelioLatitude, kUntouchedDouble);
  EXPECT_EQ(sun.HelioDistance, kUntouchedDouble);
  EXPECT_NE(sun.GeoLongitude, kUntouchedDouble);
  EXPECT_EQ(sun.Obliquity, MeanObliquity(0.0));
  EXPECT_EQ(sun.Centuries, 0.0);
}

TEST(PlanetDriver, LeavesTheGeocentricFieldsOfTheEarth) {
  const BodyPositionRecord earth = PlanetAt(2451545.0, ZENITHOR_EARTH);
  EXPECT_NE(earth.HelioLongitude, kUntouchedDouble);
  EXPECT_EQ(earth.GeoLongitude, kUntouchedDouble);
  EXPECT_EQ(earth.GeoLatitude, kUntouchedDouble);
  EXPECT_EQ(earth.GeoDistance, kUntouchedDouble);
  EXPECT_EQ(earth.RightAscension, kUntouchedDouble);
  EXPECT_EQ(earth.Declination, kUntouchedDouble);
  EXPECT_EQ(earth.Centuries, 0.0);
}

TEST(PlanetDriver, WritesNoFieldOfTheMoonAndNoReservedField) {
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_NEPTUNE; ++code) {
    const BodyPositionRecord record = PlanetAt(2453000.25, code);
    EXPECT_EQ(record.MoonPhaseAngle, kUntouchedDouble);
    EXPECT_EQ(record.MoonAxisPositionAngle, kUntouchedDouble);
    EXPECT_EQ(record.MoonIlluminatedFraction, kUntouchedDouble);
    for (const double reserved : record.ReservedA) {
      EXPECT_EQ(reserved, kUntouchedDouble);
    }
  }
}

TEST(PlanetDriver, DoesNotLookAtTheObserver) {
  BodyPositionRecord here = UntouchedRecord();
  BodyPositionRecord there = UntouchedRecord();
  MomentCache cache;
  ComputePlanetPosition(FullStore(), 2453000.25, 0.0, 0.0, ZENITHOR_MARS, cache, here);
  MomentCache fresh;
  ComputePlanetPosition(FullStore(), 2453000.25, 123.0, std::numeric_limits<double>::quiet_NaN(),
                        ZENITHOR_MARS, fresh, there);
  EXPECT_TRUE(
      std::equal(testing::Doubles(here), testing::Doubles(here) + 17, testing::Doubles(there)));
}

// Code 9 comes here only from inside: Pluto's table seen from the Earth of J2000.0.
TEST(PlanetDriver, AnswersPlutoFromItsTableWithTheObliquityOfJ2000) {
  const BodyPositionRecord pluto = PlanetAt(2448908.5, ZENITHOR_PLUTO);
  EXPECT_EQ(pluto.Obliquity, kObliquityJ2000);
  // Meeus, example 37.a (232.74071, 14.58782, 29.711111), within what the multipliers -1 cost.
  const double dpsi = Nutation(JulianCenturies(2448908.5)).dpsi * kDegreesPerRadian;
  EXPECT_NEAR(pluto.HelioLongitude - dpsi, 232.74071, 0.06);
  EXPECT_NEAR(pluto.HelioLatitude, 14.58782, 0.03);
  EXPECT_NEAR(pluto.HelioDistance, 29.711111, 0.014);
  // The same example's astrometric place, 15h31m43.8s and -4d27'29", moved by nutation and
  // aberration (30") and by the equinox of J2000.0 that both share.
  EXPECT_NEAR(pluto.RightAscension, 15.0 + 31.0 / 60.0 + 43.8 / 3600.0, 0.01);
  EXPECT_NEAR(pluto.Declination, -(4.0 + 27.0 / 60.0 + 29.0 / 3600.0), 0.06);
}

TEST(StoreAngle, SubtractsTheLimitOnce) {
  double field = kUntouchedDouble;
  StoreAngle(24.0, 24.0, field);
  EXPECT_EQ(field, 0.0);
  StoreAngle(730.0, 360.0, field);
  EXPECT_EQ(field, 370.0);
}

TEST(KeptOnPurpose, ANegativeAngleIsStoredWithItsSignFlipped) {
  double field = kUntouchedDouble;
  StoreAngle(-0.001, 360.0, field);
  EXPECT_EQ(field, 0.001);
}

TEST(KeptOnPurpose, AnAngleOfZeroOrNotANumberIsNotStored) {
  double field = kUntouchedDouble;
  StoreAngle(0.0, 360.0, field);
  EXPECT_EQ(field, kUntouchedDouble);
  StoreAngle(-0.0, 360.0, field);
  EXPECT_EQ(field, kUntouchedDouble);
  StoreAngle(std::numeric_limits<double>::quiet_NaN(), 24.0, field);
  EXPECT_EQ(field, kUntouchedDouble);
}

// On 2000 February 2 Mercury's series longitude passes 0 while the nutation is -0.0036 degree, so
// that the sum is negative: 0.00367 is stored, not 359.99633.
TEST(KeptOnPurpose, MercuryJustBelowZeroLongitudeIsStoredPositive) {
  const double day = 2451576.6858602376;
  EXPECT_GT(PlanetAt(day - 1e-6, ZENITHOR_MERCURY).HelioLongitude, 359.996);
  EXPECT_NEAR(PlanetAt(day, ZENITHOR_MERCURY).HelioLongitude, 0.00367134, 1e-6);
}

// At the equinox of 2000 March 20 the Sun's right ascension is slightly negative.
TEST(KeptOnPurpose, TheSunsRightAscensionJustBelowZeroIsStoredPositive) {
  const double day = 2451623.8111662063;
  EXPECT_GT(PlanetAt(day - 1e-6, ZENITHOR_SUN).RightAscension, 23.9996);
  EXPECT_NEAR(PlanetAt(day, ZENITHOR_SUN).RightAscension, 0.00034953, 1e-7);
}

TEST(KeptOnPurpose, GeoLongitudeIsGeometricWhileRightAscensionIsApparent) {
  // Largest difference between the stored longitude and the one that right ascension and
  // declination belong to, nutation taken off: light time and aberration.
  double worst = 0.0;
  for (double day = 2451545.0; day < 2451545.0 + 800.0; day += 1.7) {
    const BodyPositionRecord mercury = PlanetAt(day, ZENITHOR_MERCURY);
    const double t = JulianCenturies(day);
    const NutationAngles nutation = Nutation(t);
    const Equatorial place{mercury.RightAscension / kHoursPerRadian,
                           mercury.Declination * kRadiansPerDegree};
    // Back to the true ecliptic of date: the rotation with the opposite obliquity.
    const Equatorial ecliptic =
        EclipticToEquatorial(place.alpha, place.delta, -(MeanObliquity(t) + nutation.deps));
    const double apparent = ecliptic.alpha - nutation.dpsi;
    worst = std::max(
        worst, std::fabs(ReduceAngleSigned(apparent - mercury.GeoLongitude * kRadiansPerDegree)));
  }
  EXPECT_GT(worst / kRadiansPerArcsecond, 35.0);
  EXPECT_LT(worst / kRadiansPerArcsecond, 60.0);
}

// The apparent place of Mercury, with light time and aberration taken in other ways as well.
enum class AberrationObliquity { kMean, kTrue };

Equatorial ApparentMercury(double day, int light_time_iterations, AberrationObliquity obliquity) {
  const double t = JulianCenturies(day);
  const NutationAngles nutation = Nutation(t);
  const double mean = MeanObliquity(t);
  const double true_obliquity = mean + nutation.deps;
  const Spherical observer = EvaluateBody(FullStore(), ZENITHOR_EARTH, t);
  Spherical place = GeocentricPosition(EvaluateBody(FullStore(), ZENITHOR_MERCURY, t), observer);
  for (int k = 0; k < light_time_iterations; ++k) {
    const double left = t - place.radius * kLightTimePerAu;
    place = GeocentricPosition(EvaluateBody(FullStore(), ZENITHOR_MERCURY, left), observer);
  }
  Equatorial apparent =
      EclipticToEquatorial(place.longitude + nutation.dpsi, place.latitude, true_obliquity);
  AnnualAberration(t, obliquity == AberrationObliquity::kMean ? mean : true_obliquity,
                   AberrationTerms::kWithEccentricity, apparent);
  return apparent;
}

// Farthest, over eight years, that the driver's right ascension or declination lies from that
// [rad].
double FarthestFromMercury(int light_time_iterations, AberrationObliquity obliquity) {
  double farthest = 0.0;
  for (double day = 2451545.0; day < 2451545.0 + 2922.0; day += 2.3) {
    const BodyPositionRecord mercury = PlanetAt(day, ZENITHOR_MERCURY);
    const Equatorial other = ApparentMercury(day, light_time_iterations, obliquity);
    farthest = std::max(
        farthest,
        std::fabs(ReduceAngleSigned(mercury.RightAscension / kHoursPerRadian - other.alpha)));
    farthest = std::max(farthest, std::fabs(mercury.Declination * kRadiansPerDegree - other.delta));
  }
  return farthest;
}

TEST(KeptOnPurpose, LightTimeIsTakenOnce) {
  EXPECT_LT(FarthestFromMercury(1, AberrationObliquity::kMean), 1e-13);
  const double twice = FarthestFromMercury(2, AberrationObliquity::kMean) / kRadiansPerArcsecond;
  EXPECT_GT(twice, 0.003);
  EXPECT_LT(twice, 0.0045);
}

TEST(KeptOnPurpose, AberrationTakesTheMeanObliquity) {
  const double by_true_obliquity =
      FarthestFromMercury(1, AberrationObliquity::kTrue) / kRadiansPerArcsecond;
  EXPECT_GT(by_true_obliquity, 0.0003);
  EXPECT_LT(by_true_obliquity, 0.001);
}

}  // namespace
}  // namespace zenithor
