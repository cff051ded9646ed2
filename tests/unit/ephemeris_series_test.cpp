// Summing the series, the frame correction, and what is derived from them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "ephemeris/loader.h"
#include "ephemeris/series.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "support/archive_files.h"
#include "support/expect_published.h"
#include "support/full_store.h"
#include "support/text_files.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;
using testing::FullStore;

constexpr double kMoments[] = {-40.0, -10.0, -1.0, -0.0721, 0.0, 0.25, 1.0, 10.0, 40.0};

double Separation(double a, double b) { return std::fabs(ReduceAngleSigned(a - b)); }

// A store whose slot 0 holds one term per series, all 1 at every moment.
EphemerisStore StoreOfOnes() {
  const testing::TemporaryFolder folder;
  testing::WriteIndex(folder / "ndx", {testing::RecordWith(0, std::vector<int>(kSeriesCount, 1))});
  testing::WriteData(folder / "dat", std::vector<SeriesTerm>(kSeriesCount, {1.0, 0.0, 0.0}));
  EphemerisStore store;
  LoadBodySeries(store, 0, (folder / "ndx").c_str(), (folder / "dat").c_str());
  return store;
}

TEST(SumStoredSeries, MultipliesTheSeriesOfEachPowerByThatPowerOfMillennia) {
  const EphemerisStore store = StoreOfOnes();
  const double t = 0.5;  // millennia
  const Spherical place = SumStoredSeries(store, 0, 10.0 * t);
  const double expected = 1.0 + t + t * t + t * t * t + t * t * t * t + t * t * t * t * t;
  EXPECT_EQ(place.longitude, expected);
  EXPECT_EQ(place.latitude, expected);
  EXPECT_EQ(place.radius, expected);
}

TEST(SumStoredSeries, AtJ2000IsTheSumOfTheCosinesOfThePhases) {
  const EphemerisStore& store = FullStore();
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const auto s = static_cast<std::size_t>(slot);
    const SeriesTerm* term = store.bodies[s].terms;
    double sums[3] = {};
    for (int series = 0; series < kSeriesCount; ++series) {
      const int count = store.bodies[s].index.series[static_cast<std::size_t>(series)].term_count;
      for (int k = 0; k < count; ++k, ++term) {
        if (series % kPowerCount == 0) {
          sums[series / kPowerCount] += term->amplitude * std::cos(term->phase);
        }
      }
    }
    const Spherical place = SumStoredSeries(store, slot, 0.0);
    // Rounding of a few hundred additions of numbers below 40.
    EXPECT_NEAR(place.longitude, sums[0], 1e-13);
    EXPECT_NEAR(place.latitude, sums[1], 1e-13);
    EXPECT_NEAR(place.radius, sums[2], 1e-13);
  }
}

TEST(SumStoredSeries, MeetsTheCheckValuesOfTheTheory) {
  // P. Bretagnon and G. Francou print them to 1e-10, for the bare series.
  const char* const kPlanets[] = {"",        "mercury", "venus",  "earth",  "mars",
                                  "jupiter", "saturn",  "uranus", "neptune"};
  int checked[kSlotCount] = {};
  double largest = 0.0;
  for (const std::string& line : testing::LinesOf("tests/published/vsop87-check-values.csv")) {
    const auto field = testing::Split(line, ',');
    if (field.at(0) == "theory") {
      continue;
    }
    const auto* const planet = std::find(std::begin(kPlanets), std::end(kPlanets), field.at(1));
    ASSERT_NE(planet, std::end(kPlanets)) << line;
    const int slot = field[0] == "B" ? kEarthJ2000Slot : static_cast<int>(planet - kPlanets);
    const Spherical place =
        SumStoredSeries(FullStore(), slot, JulianCenturies(std::stod(field.at(2))));
    const double errors[] = {Separation(place.longitude, std::stod(field.at(4))),
                             std::fabs(place.latitude - std::stod(field.at(5))),
                             std::fabs(place.radius - std::stod(field.at(6)))};
    for (const double error : errors) {
      EXPECT_LT(error, 1e-10) << line;
      largest = std::max(largest, error);
    }
    ++checked[slot];
  }
  for (const int count : checked) {
    EXPECT_EQ(count, 10);
  }
  RecordProperty("largest_difference", std::to_string(largest * 1e12) + "e-12");
}

TEST(SumStoredSeries, MeetsTheBookForVenusOf1992December20) {
  // Meeus, example 32.a: before the correction to the FK5, from a shortened series.
  const Spherical venus = SumStoredSeries(FullStore(), 2, JulianCenturies(2448976.5));
  ExpectPublished("32.a", "HelioLongitude minus nutation",
                  ReduceAngle(venus.longitude) * kDegreesPerRadian);
  ExpectPublished("32.a", "HelioLatitude", venus.latitude * kDegreesPerRadian);
  ExpectPublished("32.a", "HelioDistance", venus.radius);
}

TEST(SunGeocentric, MeetsTheBookFor1992October13) {
  // Meeus, example 25.b: the geometric place from the complete VSOP87, referred to the FK5.
  const Spherical sun = EvaluateSunGeocentric(FullStore(), kEarthSlot, JulianCenturies(2448908.5));
  ExpectPublished("25.b", "GeoLongitude", sun.longitude * kDegreesPerRadian);
  ExpectPublished("25.b", "GeoDistance", sun.radius);
}

TEST(SunGeocentric, IsOppositeTheEarthSeenFromTheSun) {
  for (const double t : kMoments) {
    const Spherical earth = EvaluateSeries(FullStore(), kEarthSlot, t);
    const Spherical sun = EvaluateSunGeocentric(FullStore(), kEarthSlot, t);
    EXPECT_NEAR(Separation(sun.longitude, earth.longitude), kPi, 1e-15);
    EXPECT_EQ(sun.latitude, -earth.latitude);
    EXPECT_EQ(sun.radius, earth.radius);
    EXPECT_GE(sun.longitude, 0.0);
    EXPECT_LT(sun.longitude, kTwoPi);
  }
}

TEST(EvaluateSeries, OfASlotWithoutTermsIsTheFrameCorrectionOfTheOrigin) {
  const testing::TemporaryFolder folder;
  testing::WriteIndex(folder / "ndx", {testing::RecordWith(0, {})});
  testing::WriteData(folder / "dat", {});
  EphemerisStore store;
  ASSERT_EQ(LoadBodySeries(store, 0, (folder / "ndx").c_str(), (folder / "dat").c_str()),
            LoadStatus::kLoaded);
  const Spherical place = EvaluateSeries(store, 0, 0.0);
  EXPECT_EQ(place.longitude, -0.09033 * kRadiansPerArcsecond);
  EXPECT_EQ(place.latitude, 0.03916 * kRadiansPerArcsecond);
  EXPECT_EQ(place.radius, 0.0);
}

TEST(EvaluateSeries, OfASlotThatIsNotLoadedOrDoesNotExistIsZero) {
  const EphemerisStore empty;
  for (const int slot : {0, 3, 8, 9, 1000, -1, std::numeric_limits<int>::max()}) {
    for (const Spherical& place :
         {EvaluateSeries(empty, slot, 0.1), SumStoredSeries(empty, slot, 0.1)}) {
      EXPECT_EQ(place.longitude, 0.0);
      EXPECT_EQ(place.latitude, 0.0);
      EXPECT_EQ(place.radius, 0.0);
    }
  }
}

TEST(EvaluateSeries, NotANumberAndInfinityGiveNotANumber) {
  for (const double t :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    EXPECT_TRUE(std::isnan(EvaluateSeries(FullStore(), 4, t).longitude));
  }
}

TEST(EvaluateBody, ServesEveryCodeButNineFromItsSlot) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const Spherical body = EvaluateBody(FullStore(), slot, 0.13);
    const Spherical series = EvaluateSeries(FullStore(), slot, 0.13);
    EXPECT_EQ(body.longitude, series.longitude);
    EXPECT_EQ(body.latitude, series.latitude);
    EXPECT_EQ(body.radius, series.radius);
  }
}

// The frame correction as the book has it, with T in centuries (Meeus, formula 32.3).
Spherical CorrectedByTheBook(Spherical place, double centuries) {
  const double lprime =
      place.longitude - (1.397 * centuries + 0.00031 * centuries * centuries) * kRadiansPerDegree;
  place.longitude +=
      (-0.09033 + 0.03916 * (std::cos(lprime) + std::sin(lprime)) * std::tan(place.latitude)) *
      kRadiansPerArcsecond;
  place.latitude += 0.03916 * (std::cos(lprime) - std::sin(lprime)) * kRadiansPerArcsecond;
  return place;
}

// The largest effect, in milliarcseconds, of the millennia over the years -1000 to +3000 and from
// 1900 to 2100.
struct MillenniaEffect {
  double ten_centuries = 0.0;
  double one_century = 0.0;
};

MillenniaEffect MeasureMillenniaEffect() {
  MillenniaEffect largest;
  for (int slot = 1; slot < kSlotCount; ++slot) {
    for (double t = -10.0; t <= 10.0; t += 0.0625) {
      Spherical sum = SumStoredSeries(FullStore(), slot, t);
      sum.longitude = ReduceAngle(sum.longitude);
      const Spherical book = CorrectedByTheBook(sum, t);
      const Spherical ours = EvaluateSeries(FullStore(), slot, t);
      const double effect = 1000.0 / kRadiansPerArcsecond *
                            std::hypot((ours.longitude - book.longitude) * std::cos(ours.latitude),
                                       ours.latitude - book.latitude);
      largest.ten_centuries = std::max(largest.ten_centuries, effect);
      if (std::fabs(t) <= 1.0) {
        largest.one_century = std::max(largest.one_century, effect);
      }
    }
  }
  return largest;
}

TEST(KeptOnPurpose, FrameCorrectionCountsMillenniaWhereTheBookCountsCenturies) {
  const MillenniaEffect effect = MeasureMillenniaEffect();
  RecordProperty("mas_in_ten_centuries", std::to_string(effect.ten_centuries));
  RecordProperty("mas_in_one_century", std::to_string(effect.one_century));
  EXPECT_GT(effect.ten_centuries, 10.0);
  EXPECT_LT(effect.ten_centuries, 13.0);
  EXPECT_GT(effect.one_century, 1.0);
  EXPECT_LT(effect.one_century, 1.3);
}

TEST(KeptOnPurpose, LongitudeIsNotReducedAgainAfterTheFrameCorrection) {
  // One term just above 0: the correction of -0.09033 arcsecond takes it below.
  const testing::TemporaryFolder folder;
  testing::WriteIndex(folder / "ndx", {testing::RecordWith(0, {1})});
  testing::WriteData(folder / "dat", {{1e-8, 0.0, 0.0}});
  EphemerisStore store;
  ASSERT_EQ(LoadBodySeries(store, 0, (folder / "ndx").c_str(), (folder / "dat").c_str()),
            LoadStatus::kLoaded);
  const double longitude = EvaluateSeries(store, 0, 0.0).longitude;
  EXPECT_LT(longitude, 0.0);
  EXPECT_NEAR(longitude, 1e-8 - 0.09033 * kRadiansPerArcsecond, 1e-14);
}

TEST(EclipticRectangular, TurnsTheSunByTheObliquityGiven) {
  const double epsilon = 0.4090;
  const Spherical sun = EvaluateSunGeocentric(FullStore(), kEarthSlot, 0.2);
  const Rectangular r = EclipticRectangular(FullStore(), kEarthSlot, 0.2, epsilon);
  EXPECT_NEAR(r.x, sun.radius * std::cos(sun.latitude) * std::cos(sun.longitude), 1e-15);
  // Turned back, the height above the ecliptic is R sin B.
  EXPECT_NEAR(r.z * std::cos(epsilon) - r.y * std::sin(epsilon),
              sun.radius * std::sin(sun.latitude), 1e-15);
  EXPECT_NEAR(std::hypot(r.x, r.y, r.z), sun.radius, 1e-15);
}

TEST(EclipticRectangular, TakesSlotZeroToTheEquatorOfJ2000WhateverTheObliquity) {
  const Rectangular fixed = EclipticRectangular(FullStore(), kEarthJ2000Slot, 0.2, 0.4090);
  const Rectangular other = EclipticRectangular(FullStore(), kEarthJ2000Slot, 0.2, 1.0);
  EXPECT_EQ(fixed.x, other.x);
  EXPECT_EQ(fixed.y, other.y);
  EXPECT_EQ(fixed.z, other.z);
  // Against the obliquity of J2000.0, 23d26m21.4091s: the fixed matrix adds the frame's offset,
  // below 0.1 arcsecond.
  const Spherical sun = EvaluateSunGeocentric(FullStore(), kEarthJ2000Slot, 0.2);
  const double epsilon = 84381.4091 * kRadiansPerArcsecond;
  const double y = sun.radius * std::cos(sun.latitude) * std::sin(sun.longitude);
  const double z = sun.radius * std::sin(sun.latitude);
  EXPECT_NEAR(fixed.y, y * std::cos(epsilon) - z * std::sin(epsilon), 0.1 * kRadiansPerArcsecond);
  EXPECT_NEAR(fixed.z, y * std::sin(epsilon) + z * std::cos(epsilon), 0.1 * kRadiansPerArcsecond);
}

// Meeus, Astronomical Algorithms, 2nd ed., formula 26.3: rows of the rotation from the ecliptic to
// the equator of the FK5 frame of J2000.0. Around a year each coordinate has its turn to be large.
TEST(EclipticRectangular, TakesSlotZeroThroughThePublishedRotation) {
  const double matrix[3][3] = {{1.0, 4.40360e-7, -1.90919e-7},
                               {-4.79966e-7, 0.917482137087, -0.397776982902},
                               {0.0, 0.397776982902, 0.917482137087}};
  for (const double start : {-40.0, 0.0, 40.0}) {
    for (int month = 0; month < 12; ++month) {
      const double centuries = start + month / 1200.0;
      const Spherical sun = EvaluateSunGeocentric(FullStore(), kEarthJ2000Slot, centuries);
      const double from[3] = {sun.radius * std::cos(sun.latitude) * std::cos(sun.longitude),
                              sun.radius * std::cos(sun.latitude) * std::sin(sun.longitude),
                              sun.radius * std::sin(sun.latitude)};
      const Rectangular r = EclipticRectangular(FullStore(), kEarthJ2000Slot, centuries, 0.4090);
      const double to[3] = {r.x, r.y, r.z};
      for (int row = 0; row < 3; ++row) {
        const double sum =
            matrix[row][0] * from[0] + matrix[row][1] * from[1] + matrix[row][2] * from[2];
        // Rounding alone: the last digit of the least coefficient is worth 1e-14.
        EXPECT_NEAR(to[row], sum, 5e-16) << centuries << " row " << row;
      }
    }
  }
}

}  // namespace
}  // namespace zenithor
