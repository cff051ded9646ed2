// The whole 1980 IAU theory of nutation.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "numerics/constants.h"
#include "orbits/whole_nutation.h"
#include "support/expect_published.h"
#include "support/text_files.h"
#include "time/constants.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;

NutationAngles At(double julian_day) {
  NutationCache cache;
  CachedWholeNutation(julian_day, cache);
  return cache.angles;
}

TEST(WholeNutation, MeetsTheBook) {
  // Meeus, example 22.a, computed there with the same theory.
  const NutationAngles nutation = At(2446895.5);
  ExpectPublished("22.a", "dpsi", nutation.dpsi / kRadiansPerArcsecond);
  ExpectPublished("22.a", "deps", nutation.deps / kRadiansPerArcsecond);
}

// Straight from the published table, one sine and one cosine a term.
NutationAngles Direct(double julian_day) {
  const double t = (julian_day - kJ2000) / kDaysPerCentury;
  const double arcseconds[] = {485866.733 + 1717915922.633 * t + 31.31 * t * t + 0.064 * t * t * t,
                               1287099.804 + 129596581.224 * t - 0.577 * t * t - 0.012 * t * t * t,
                               335778.877 + 1739527263.137 * t - 13.257 * t * t + 0.011 * t * t * t,
                               1072261.307 + 1602961601.328 * t - 6.891 * t * t + 0.019 * t * t * t,
                               450160.28 - 6962890.539 * t + 7.455 * t * t + 0.008 * t * t * t};
  NutationAngles sum{0.0, 0.0};
  int rows = 0;
  for (const std::string& line : testing::LinesOf("data/nutation/iau1980-106-terms.csv")) {
    if (line[0] == 'm') {
      continue;
    }
    std::vector<double> cell;
    for (const std::string& word : testing::Split(line, ',')) {
      cell.push_back(std::stod(word));
    }
    double angle = 0.0;
    for (std::size_t k = 0; k < 5; ++k) {
      angle += cell[k] * arcseconds[k];
    }
    angle = std::remainder(angle, 1296000.0) * kRadiansPerArcsecond;
    sum.dpsi += (cell[5] + cell[6] * t) * std::sin(angle);
    sum.deps += (cell[7] + cell[8] * t) * std::cos(angle);
    ++rows;
  }
  EXPECT_EQ(rows, 106);
  return {sum.dpsi * 1e-4 * kRadiansPerArcsecond, sum.deps * 1e-4 * kRadiansPerArcsecond};
}

TEST(WholeNutation, IsTheDirectSumOfThePublishedTable) {
  for (double jd = 2086000.5; jd < 2816800.0; jd += 9137.7) {
    const NutationAngles expected = Direct(jd);
    const NutationAngles actual = At(jd);
    // Arguments of up to 2e10" leave 1e-6" in an angle, and 20" of it 1e-10".
    EXPECT_NEAR(actual.dpsi, expected.dpsi, 1e-14) << jd;
    EXPECT_NEAR(actual.deps, expected.deps, 1e-14) << jd;
  }
}

TEST(WholeNutation, AgreesWithItsSixtyThreeLargestTerms) {
  for (double jd = 2415020.5; jd < 2488000.0; jd += 777.7) {
    const NutationAngles larger = Nutation(JulianCenturies(jd));
    const NutationAngles whole = At(jd);
    // 0.0026" measured: the 43 small terms and the other fundamental arguments.
    EXPECT_NEAR(whole.dpsi / kRadiansPerArcsecond, larger.dpsi / kRadiansPerArcsecond, 0.003);
    EXPECT_NEAR(whole.deps / kRadiansPerArcsecond, larger.deps / kRadiansPerArcsecond, 0.003);
  }
}

TEST(WholeNutation, RecomputesNothingForTheSameDay) {
  NutationCache cache;
  CachedWholeNutation(2440000.5, cache);
  cache.angles.dpsi = 99.0;  // a value that no computation gives
  CachedWholeNutation(2440000.5, cache);
  EXPECT_EQ(cache.angles.dpsi, 99.0);
  CachedWholeNutation(2440001.5, cache);
  EXPECT_LT(std::fabs(cache.angles.dpsi), 1e-4);
}

}  // namespace
}  // namespace zenithor
