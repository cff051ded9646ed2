#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/expect_published.h"
#include "support/text_files.h"
#include "time/delta_t.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;

double AtYear(double year) { return DeltaT((year - 2000.0) / 100.0); }

TEST(DeltaT, MeetsTheBookIn1977) {
  // Meeus, example 10.a: 1977 February 18 (Julian day 2443192.65), +47.6 s.
  ExpectPublished("10.a", "DeltaT", DeltaT(JulianCenturies(2443192.65)));
}

TEST(DeltaT, GoesThroughEveryValueOfTheTable) {
  int rows = 0;
  for (const std::string& line : testing::LinesOf("data/rising/delta-t.csv")) {
    const auto field = testing::Split(line, ',');
    if (field.at(0) == "year") {
      continue;
    }
    // Year and interpolation are rounded at 1e-12; the steepest interval changes 4.5 s a year.
    EXPECT_NEAR(AtYear(std::stod(field.at(0))), std::stod(field.at(1)) * 0.1, 1e-9) << line;
    ++rows;
  }
  EXPECT_EQ(rows, 187);
}

TEST(DeltaT, InterpolatesBetweenTwoValues) {
  // 1960 has 33.1 s and 1962 34.0 s.
  EXPECT_NEAR(AtYear(1960.5), 33.1 + 0.9 * 0.25, 1e-9);
  // 1870 has 1.6 s and 1872 -1.0 s.
  EXPECT_NEAR(AtYear(1871.5), 1.6 - 2.6 * 0.75, 1e-9);
}

TEST(DeltaT, IsAParabolaFrom948To1620AndAnotherBefore) {
  // By hand: T = -10 (year 1000), -5 (1500), -20 (year 0).
  EXPECT_NEAR(DeltaT(-10.0), 50.6 - 675.0 + 2250.0, 1e-9);
  EXPECT_NEAR(DeltaT(-5.0), 50.6 - 337.5 + 562.5, 1e-9);
  EXPECT_NEAR(DeltaT(-20.0), 2715.6 - 11467.2 + 18600.0, 1e-9);
}

TEST(DeltaT, ChangesItsFormulaAtTheStartOf948And1620) {
  // 948 and 1620 themselves belong to the later piece. A ten-thousandth of a year before, the
  // earlier one still holds; it moves by less than 0.001 s in that time.
  EXPECT_NEAR(AtYear(948.0), 50.6 - 67.5 * 10.52 + 22.5 * 10.52 * 10.52, 1e-9);
  EXPECT_NEAR(AtYear(947.9999), 2715.6 - 573.36 * 10.52 + 46.5 * 10.52 * 10.52, 1e-3);
  EXPECT_NEAR(AtYear(948.0) - AtYear(947.9999), 0.558, 0.001);
  EXPECT_NEAR(AtYear(1620.0), 124.0, 1e-9);
  EXPECT_NEAR(AtYear(1619.9999), 50.6 - 67.5 * 3.8 + 22.5 * 3.8 * 3.8, 1e-3);
  EXPECT_NEAR(AtYear(1620.0) - AtYear(1619.9999), 5.0, 0.001);
}

TEST(DeltaT, KeptOnPurposeDeltaTContinuesTheLastIntervalAfter1992) {
  // 56.9 s in 1990 and 58.0 s in 1992: 0.55 s a year. Observed in 2000: 63.8 s.
  EXPECT_NEAR(AtYear(1992.0), 58.0, 1e-9);
  EXPECT_NEAR(AtYear(1996.0), 58.0 + 4.0 * 0.55, 1e-9);
  EXPECT_NEAR(AtYear(2000.0), 58.0 + 8.0 * 0.55, 1e-9);
  EXPECT_EQ(DeltaT(0.0), AtYear(2000.0));
}

TEST(DeltaT, KeptOnPurposeDeltaTJumpsBy40SecondsAfter2000) {
  EXPECT_NEAR(AtYear(2000.0), 62.4, 1e-9);
  EXPECT_NEAR(AtYear(2000.0 + 1e-9), 102.3, 1e-6);
  EXPECT_NEAR(DeltaT(0.26), 102.3 + 123.5 * 0.26 + 32.5 * 0.26 * 0.26, 1e-9);
}

TEST(DeltaT, AnswersAnyArgument) {
  // The squares of the two parabolas; the largest argument whose square is a number is 1e154.
  EXPECT_NEAR(DeltaT(1e100) / (32.5 * 1e200), 1.0, 1e-15);
  EXPECT_NEAR(DeltaT(-1e100) / (46.5 * 1e200), 1.0, 1e-15);
  EXPECT_FALSE(std::isfinite(DeltaT(1e300)));
  EXPECT_FALSE(std::isfinite(DeltaT(std::numeric_limits<double>::infinity())));
  EXPECT_TRUE(std::isnan(DeltaT(std::numeric_limits<double>::quiet_NaN())));
  EXPECT_NEAR(DeltaT(std::numeric_limits<double>::denorm_min()), 62.4, 1e-9);
}

}  // namespace
}  // namespace zenithor
