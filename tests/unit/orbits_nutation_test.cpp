// The whole 1980 IAU theory of nutation.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "numerics/constants.h"
#include "orbits/whole_nutation.h"
#include "support/expect_published.h"
#include "support/extended.h"
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

// Straight from the published table, one sine and one cosine a term, in extended precision.
NutationAngles Direct(double julian_day) {
  const long double t = (static_cast<long double>(julian_day) - kJ2000) / kDaysPerCentury;
  const long double arcseconds[] = {
      testing::ExtendedPolynomial({485866.733L, 1717915922.633L, 31.31L, 0.064L}, t),
      testing::ExtendedPolynomial({1287099.804L, 129596581.224L, -0.577L, -0.012L}, t),
      testing::ExtendedPolynomial({335778.877L, 1739527263.137L, -13.257L, 0.011L}, t),
      testing::ExtendedPolynomial({1072261.307L, 1602961601.328L, -6.891L, 0.019L}, t),
      testing::ExtendedPolynomial({450160.28L, -6962890.539L, 7.455L, 0.008L}, t)};
  long double dpsi = 0.0L;
  long double deps = 0.0L;
  int rows = 0;
  for (const std::string& line : testing::LinesOf("data/nutation/iau1980-106-terms.csv")) {
    if (line[0] == 'm') {
      continue;
    }
    std::vector<long double> cell;
    for (const std::string& word : testing::Split(line, ',')) {
      cell.push_back(std::stold(word));
    }
    long double angle = 0.0L;
    for (std::size_t k = 0; k < 5; ++k) {
      angle += cell[k] * arcseconds[k];
    }
    angle *= testing::kExtendedDegree / 3600.0L;
    dpsi += (cell[5] + cell[6] * t) * std::sin(angle);
    deps += (cell[7] + cell[8] * t) * std::cos(angle);
    ++rows;
  }
  EXPECT_EQ(rows, 106);
  const long double unit = 1e-4L / 3600.0L * testing::kExtendedDegree;
  return {static_cast<double>(dpsi * unit), static_cast<double>(deps * unit)};
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

TEST(WholeNutation, IsTheDirectSumThirtyThousandYearsAwayToo) {
  // There every coefficient turns its argument by a degree at least. Arguments of 5e11" leave 6e-5"
  // in an angle.
  for (const double t : {-300.0, -100.0, 100.0, 300.0}) {
    const NutationAngles expected = Direct(kJ2000 + kDaysPerCentury * t);
    const NutationAngles actual = At(kJ2000 + kDaysPerCentury * t);
    EXPECT_NEAR(actual.dpsi, expected.dpsi, 2e-14) << t;
    EXPECT_NEAR(actual.deps, expected.deps, 2e-14) << t;
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
