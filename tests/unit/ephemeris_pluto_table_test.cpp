// Pluto from its table of 43 terms.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "ephemeris/pluto_table.h"
#include "ephemeris/series.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "support/text_files.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

constexpr double k1992October13 = 2448908.5;

// The three numbers of a field like "232.74071 14.58782 29.711111".
Spherical Three(const std::string& text) {
  std::istringstream words(text);
  Spherical three{};
  words >> three.longitude >> three.latitude >> three.radius;
  return three;
}

// The published table, read from data/, evaluated as the book has it or with every multiplier -1
// taken as +1; degrees and astronomical units, longitude not reduced.
Spherical TableInDegrees(double centuries, bool minus_one_is_plus_one) {
  const double arguments[] = {34.35 + 3034.9057 * centuries, 50.08 + 1222.1138 * centuries,
                              238.96 + 144.96 * centuries};
  double sums[3] = {};
  int rows = 0;
  for (const std::string& line : testing::LinesOf("data/pluto/table-37a.csv")) {
    const std::vector<std::string> field = testing::Split(line, ',');
    if (field.at(0) == "j") {
      continue;
    }
    double alpha = 0.0;
    for (std::size_t k = 0; k < 3; ++k) {
      const int multiplier = std::stoi(field.at(k));
      alpha += (minus_one_is_plus_one && multiplier == -1 ? 1 : multiplier) * arguments[k];
    }
    alpha *= kRadiansPerDegree;
    for (std::size_t c = 0; c < 3; ++c) {
      sums[c] += std::stod(field.at(3 + 2 * c)) * std::sin(alpha) +
                 std::stod(field.at(4 + 2 * c)) * std::cos(alpha);
    }
    ++rows;
  }
  EXPECT_EQ(rows, 43);
  return {1e-6 * sums[0] + 238.956785 + 144.96 * centuries, 1e-6 * sums[1] - 3.908202,
          1e-7 * sums[2] + 40.7247248};
}

double DegreesApart(double radians, double degrees) {
  return std::fabs(ReduceAngleSigned(radians - degrees * kRadiansPerDegree)) * kDegreesPerRadian;
}

void ExpectTable(double centuries) {
  const Spherical pluto = EvaluatePluto(centuries);
  const Spherical table = TableInDegrees(centuries, true);
  // Rounding of the sum; the longitude itself counts 145 degrees a century.
  EXPECT_LT(DegreesApart(pluto.longitude, table.longitude), 1e-11) << centuries;
  EXPECT_NEAR(pluto.latitude * kDegreesPerRadian, table.latitude, 1e-11) << centuries;
  EXPECT_NEAR(pluto.radius, table.radius, 1e-12 * 50.0) << centuries;
}

TEST(PlutoTable, AtJ2000TakesTheConstantArgumentsAndPlusOneForMinusOne) { ExpectTable(0.0); }

TEST(PlutoTable, IsTheTableWithPlusOneForMinusOneAtOtherMoments) {
  for (const double t : {-1.15, -0.5, -0.0721, 0.3, 0.99}) {
    ExpectTable(t);
  }
}

TEST(PlutoTable, MeetsTheBookWithinWhatTheMinusOneCosts) {
  for (const std::string& line : testing::LinesOf("tests/published/worked-examples.csv")) {
    const auto field = testing::Split(line, ',');
    if (field.at(0) != "37.a" || field.at(1) != "EvaluatePluto") {
      continue;
    }
    const Spherical book = Three(field.at(4));
    const Spherical allowed = Three(field.at(6));
    const Spherical pluto = EvaluatePluto(JulianCenturies(k1992October13));
    EXPECT_NEAR(pluto.longitude * kDegreesPerRadian, book.longitude, allowed.longitude);
    EXPECT_NEAR(pluto.latitude * kDegreesPerRadian, book.latitude, allowed.latitude);
    EXPECT_NEAR(pluto.radius, book.radius, allowed.radius);
    return;
  }
  FAIL() << "the book's example is not in the file";
}

TEST(PlutoTable, LongitudeIsReducedToOneTurn) {
  for (double t = -1.15; t < 1.0; t += 0.05) {
    const double longitude = EvaluatePluto(t).longitude;
    EXPECT_GE(longitude, 0.0);
    EXPECT_LT(longitude, kTwoPi);
  }
}

TEST(PlutoTable, IsServedForCodeNineWithoutFrameCorrectionOrStore) {
  const EphemerisStore empty;
  const Spherical body = EvaluateBody(empty, 9, 0.1);
  const Spherical table = EvaluatePluto(0.1);
  EXPECT_EQ(body.longitude, table.longitude);
  EXPECT_EQ(body.latitude, table.latitude);
  EXPECT_EQ(body.radius, table.radius);
}

TEST(KeptOnPurpose, MinusOneInPlutosTableCountsAsPlusOne) {
  double longitude = 0.0;
  double latitude = 0.0;
  double radius = 0.0;
  for (double t = -1.15; t < 1.0; t += 1.0 / 256.0) {  // the years that the table is made for
    const Spherical pluto = EvaluatePluto(t);
    const Spherical book = TableInDegrees(t, false);
    longitude = std::max(longitude, 3600.0 * DegreesApart(pluto.longitude, book.longitude));
    latitude =
        std::max(latitude, 3600.0 * std::fabs(pluto.latitude * kDegreesPerRadian - book.latitude));
    radius = std::max(radius, std::fabs(pluto.radius - book.radius));
  }
  RecordProperty("longitude_arcsec", std::to_string(longitude));
  RecordProperty("latitude_arcsec", std::to_string(latitude));
  RecordProperty("radius_au", std::to_string(radius));
  EXPECT_GT(longitude, 150.0);
  EXPECT_LT(longitude, 250.0);
}

}  // namespace
}  // namespace zenithor
