#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "moon/lunar_series.h"
#include "numerics/constants.h"
#include "positions/moon_position.h"
#include "support/full_store.h"
#include "support/same_bytes.h"
#include "support/text_files.h"
#include "support/untouched.h"
#include "time/constants.h"
#include "time/julian_day.h"
#include "time/nutation.h"
#include "time/parallax.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::kUntouchedDouble;
using testing::Published;
using testing::SameBytes;
using testing::UntouchedRecord;

constexpr double kExampleDay = 2448724.5;  // 1992 April 12, 0h TD

BodyPositionRecord MoonAt(double julian_day) {
  BodyPositionRecord record = UntouchedRecord();
  MomentCache cache;
  ComputeMoonPosition(FullStore(), julian_day, 0.0, 0.0, cache, record);
  return record;
}

TEST(MoonDriver, MeetsTheWorkedExamples) {
  const BodyPositionRecord record = MoonAt(kExampleDay);
  const struct {
    const char* example;
    const char* quantity;
    double value;
  } fields[] = {
      {"47.a", "GeoLongitude", record.GeoLongitude},
      {"47.a", "GeoLatitude", record.GeoLatitude},
      {"47.a", "GeoDistance", record.GeoDistance},
      {"47.a", "RightAscension", record.RightAscension},
      {"47.a", "Declination", record.Declination},
      {"48.a", "MoonPhaseAngle", record.MoonPhaseAngle},
      {"48.a", "MoonIlluminatedFraction", record.MoonIlluminatedFraction},
      {"53.a", "MoonAxisPositionAngle", record.MoonAxisPositionAngle},
  };
  for (const auto& field : fields) {
    const auto published = Published(field.example, field.quantity);
    EXPECT_NEAR(field.value, published.value, published.allowed) << field.quantity;
  }
}

TEST(MoonDriver, LeavesTheFieldsThatAreNotTheMoons) {
  const BodyPositionRecord record = MoonAt(kExampleDay);
  EXPECT_EQ(record.HelioLongitude, kUntouchedDouble);
  EXPECT_EQ(record.HelioLatitude, kUntouchedDouble);
  EXPECT_EQ(record.HelioDistance, kUntouchedDouble);
  for (const double reserved : record.ReservedA) {
    EXPECT_EQ(reserved, kUntouchedDouble);
  }
  EXPECT_EQ(record.Obliquity, kUntouchedDouble);
  EXPECT_EQ(record.Centuries, kUntouchedDouble);
  for (int k = 0; k < 6; ++k) {
    EXPECT_EQ(testing::Integers(record)[k], testing::kUntouchedInteger);  // the export fills them
  }
}

// Angles in radians beside coordinates in degrees: 69.08 degrees and 15.07 degrees at the example.
TEST(MoonDriver, KeptOnPurposePhaseAndAxisAreInRadians) {
  const BodyPositionRecord record = MoonAt(kExampleDay);
  EXPECT_NEAR(record.MoonPhaseAngle * kDegreesPerRadian, 69.0756, 0.006);
  EXPECT_NEAR(record.MoonAxisPositionAngle * kDegreesPerRadian, 15.08, 0.02);
  EXPECT_NEAR(record.MoonIlluminatedFraction, (1.0 + std::cos(record.MoonPhaseAngle)) / 2.0, 1e-15);
}

TEST(MoonDriver, KeptOnPurposeDistanceIsInKilometres) {
  for (double day = 2451545.0; day < 2451645.0; day += 0.71875) {
    const BodyPositionRecord record = MoonAt(day);
    EXPECT_GT(record.GeoDistance, 356000.0);
    EXPECT_LT(record.GeoDistance, 407000.0);
  }
}

TEST(MoonDriver, KeptOnPurposeTheObserverChangesNoField) {
  const BodyPositionRecord centre = MoonAt(kExampleDay);
  const double places[][2] = {{12.5, 48.0}, {-180.0, 90.0}, {1e300, std::nan("")}};
  for (const auto& place : places) {
    BodyPositionRecord record = UntouchedRecord();
    MomentCache cache;
    ComputeMoonPosition(FullStore(), kExampleDay, place[0], place[1], cache, record);
    EXPECT_TRUE(SameBytes(record, centre)) << place[0];
  }
}

// 1912 January 4, the Moon nearest in two centuries, 356 380 km away; and it stands a quarter turn
// from the meridian of an observer on the equator.
TEST(MoonDriver, KeptOnPurposeThePlaceIsThatSeenFromTheEarthsCentre) {
  const double day = 2419406.05;
  const BodyPositionRecord record = MoonAt(day);
  const double t = JulianCenturies(day);
  const double lambda = ComputeLunarPosition(t).lambda + Nutation(t).dpsi;
  EXPECT_NEAR(record.GeoLongitude, lambda * kDegreesPerRadian, 1e-12);

  const double alpha = record.RightAscension / kHoursPerRadian;
  const double delta = record.Declination * kRadiansPerDegree;
  double seen_alpha = alpha;
  double seen_delta = delta;
  double distance = record.GeoDistance;
  ParallaxRectangular(6378.14 / record.GeoDistance, alpha + kPi / 2.0,
                      ObserverGeocentricTerms(0.0, 0.0), seen_alpha, seen_delta, distance);
  const double cos_moved = std::sin(delta) * std::sin(seen_delta) +
                           std::cos(delta) * std::cos(seen_delta) * std::cos(seen_alpha - alpha);
  EXPECT_NEAR(std::acos(cos_moved) * kDegreesPerRadian * 60.0, 61.5, 0.05);
}

// Crossings of 0 degrees between 1903 and 2001 during which the nutation in longitude is negative;
// the series longitude is above 0 by half of it, 0.02" to 9". At the last, in 1945, it is 0 and the
// nutation nearly as large as it becomes.
TEST(MoonDriver, KeptOnPurposeLongitudeJustBelowZeroIsNotWrapped) {
  const struct {
    double julian_day;
    double degrees;
  } moments[] = {
      {2416447.9040174484253, -0.000004535}, {2416557.0504760742188, -0.000057376},
      {2416611.6600847244263, -0.000382449}, {2452211.5941467285156, -0.002582397},
      {2431775.3501119716000, -0.005169174},
  };
  for (const auto& moment : moments) {
    const double lambda = ComputeLunarPosition(JulianCenturies(moment.julian_day)).lambda;
    ASSERT_GT(lambda, 0.0);
    ASSERT_LT(lambda, 1e-4);
    EXPECT_NEAR(MoonAt(moment.julian_day).GeoLongitude, moment.degrees, 1e-8);
  }
}

TEST(MoonDriver, LongitudeLiftedOverATurnByNutationLosesOneTurn) {
  for (const double day : {2415026.4902381896973, 2415053.818305015564, 2415108.7170934677124}) {
    const double lambda = ComputeLunarPosition(JulianCenturies(day)).lambda * kDegreesPerRadian;
    ASSERT_GT(lambda, 359.997);
    ASSERT_LT(lambda, 360.0);
    const double dpsi = Nutation(JulianCenturies(day)).dpsi * kDegreesPerRadian;
    const double degrees = MoonAt(day).GeoLongitude;
    EXPECT_NEAR(degrees, lambda + dpsi - 360.0, 1e-12);
    EXPECT_GT(degrees, 0.0);
    EXPECT_LT(degrees, 0.003);
  }
}

TEST(MoonDriver, LongitudeDegreesAboveATurnLosesOneTurn) {
  EXPECT_NEAR(MoonAt(2459779.5).GeoLongitude, 7.124, 0.003);  // the series gives 367.1266 degrees
  EXPECT_NEAR(MoonAt(2452430.0).GeoLongitude, 0.067, 0.006);
}

TEST(MoonDriver, LongitudeJustAboveATurnFallsBelowItByNutation) {
  // The series gives 360.0010 degrees, the nutation is twice as much and negative.
  EXPECT_NEAR(MoonAt(2416939.2447566986084).GeoLongitude, 359.999009260, 1e-8);
}

TEST(MoonDriver, WithoutTheEarthAnswersAllButPhaseAndFraction) {
  const BodyPositionRecord whole = MoonAt(kExampleDay);
  const EphemerisStore empty;
  BodyPositionRecord record = UntouchedRecord();
  MomentCache cache;
  ComputeMoonPosition(empty, kExampleDay, 0.0, 0.0, cache, record);
  EXPECT_EQ(record.MoonPhaseAngle, kUntouchedDouble);
  EXPECT_EQ(record.MoonIlluminatedFraction, kUntouchedDouble);
  record.MoonPhaseAngle = whole.MoonPhaseAngle;
  record.MoonIlluminatedFraction = whole.MoonIlluminatedFraction;
  EXPECT_TRUE(SameBytes(record, whole));
}

TEST(MoonDriver, AnInstantThatIsNoNumberLeavesTheLongitudeAndWritesTheRest) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double day : {std::nan(""), infinity, -infinity, 1e300}) {
    const BodyPositionRecord record = MoonAt(day);
    EXPECT_EQ(record.GeoLongitude, kUntouchedDouble) << day;
    for (const double value :
         {record.GeoLatitude, record.GeoDistance, record.RightAscension, record.Declination,
          record.MoonPhaseAngle, record.MoonAxisPositionAngle, record.MoonIlluminatedFraction}) {
      EXPECT_TRUE(std::isnan(value)) << day;
    }
  }
}

TEST(MoonDriver, PhaseAngleAndFractionStayInBoundsFromMinus2000To6000) {
  constexpr int kInstants = 100000;
  const double first = kJ2000 - 4000.0 * 365.25;
  const double step = 8000.0 * 365.25 / kInstants;
  double darkest = 1.0;
  double brightest = 0.0;
  for (int k = 0; k <= kInstants; ++k) {
    const BodyPositionRecord record = MoonAt(first + k * step);
    ASSERT_GE(record.MoonPhaseAngle, 0.0) << k;
    ASSERT_LE(record.MoonPhaseAngle, kPi) << k;
    ASSERT_GE(record.MoonIlluminatedFraction, 0.0) << k;
    ASSERT_LE(record.MoonIlluminatedFraction, 1.0) << k;
    ASSERT_GE(record.GeoLongitude, -0.006) << k;
    ASSERT_LT(record.GeoLongitude, 360.0) << k;
    darkest = std::fmin(darkest, record.MoonIlluminatedFraction);
    brightest = std::fmax(brightest, record.MoonIlluminatedFraction);
  }
  EXPECT_LT(darkest, 1e-5);  // the instants do come close to both ends
  EXPECT_GT(brightest, 1.0 - 1e-5);
}

}  // namespace
}  // namespace zenithor
