#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "moon/lunar_arguments.h"
#include "moon/lunar_series.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/polynomials.h"
#include "support/expect_published.h"
#include "support/text_files.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;
using testing::Published;

LunarPosition MoonAt(double julian_day) {
  return ComputeLunarPosition(JulianCenturies(julian_day));
}

// Meeus, chapter 47, formula 47.1 in the theory's first version, with the sign of the quartic that
// this library has; [deg], in [0, 360).
double MeanLongitudeDegrees(double julian_day) {
  const double t = JulianCenturies(julian_day);
  const double degrees =
      (((1.53388e-08 * t + 1.855835e-06) * t - 0.0013268) * t + 481267.88134236) * t + 218.3164591;
  return degrees - 360.0 * std::floor(degrees / 360.0);
}

TEST(LunarSeries, MeetsTheWorkedExample) {
  const LunarPosition moon = MoonAt(2448724.5);
  ExpectPublished("47.a", "lambda mean equinox", moon.lambda * kDegreesPerRadian);
  ExpectPublished("47.a", "GeoLatitude", moon.beta * kDegreesPerRadian);
  ExpectPublished("47.a", "GeoDistance", moon.distance_km);
}

// The example is printed with the mean longitude of the theory's second version.
TEST(LunarSeries, KeptOnPurposeMeanLongitudeIsThatOfTheFirstVersion) {
  const double printed = Published("47.a", "lambda mean equinox").value;
  EXPECT_NEAR(MoonAt(2448724.5).lambda * kDegreesPerRadian - printed, 0.000005, 0.000001);
}

// The same tables read from their text, summed in long double.
struct TableRow {
  long double d, m, mprime, f, coefficient;
};

std::vector<TableRow> Table(const std::string& name, std::size_t column, long double unit) {
  std::vector<TableRow> rows;
  const std::vector<std::string> lines = testing::LinesOf(name);
  for (std::size_t k = 1; k < lines.size(); ++k) {  // line 0 names the columns
    const std::vector<std::string> field = testing::Split(lines[k], ',');
    rows.push_back({std::stold(field.at(0)), std::stold(field.at(1)), std::stold(field.at(2)),
                    std::stold(field.at(3)), std::stold(field.at(column)) * unit});
  }
  return rows;
}

template <class Function>
double NaiveSum(const std::vector<TableRow>& rows, const LunarSeriesState& s, Function function) {
  long double sum = 0.0L;
  for (const TableRow& row : rows) {
    const long double argument =
        row.d * static_cast<long double>(s.D) + row.m * static_cast<long double>(s.M) +
        row.mprime * static_cast<long double>(s.Mprime) + row.f * static_cast<long double>(s.F);
    long double term = row.coefficient * function(argument);
    for (long double power = std::fabs(row.m); power > 0.0L; power -= 1.0L) {
      term *= static_cast<long double>(s.E);
    }
    sum += term;
  }
  return static_cast<double>(sum);
}

// A double angle of up to 2 pi times a multiplier of up to 6 is good to 4e-15, which the leading
// term (6.3 degrees, 20905 km) makes 3e-14 degree and 1e-10 km; twenty times that is still far
// below the last digit of any coefficient.
TEST(LunarSeries, AgreesWithALongDoubleSumOverThePublishedTables) {
  const auto longitude = Table("data/lunar/table-47a.csv", 4, 1e-6L);
  const auto distance = Table("data/lunar/table-47a.csv", 5, 1e-3L);
  const auto latitude = Table("data/lunar/table-47b.csv", 4, 1e-6L);
  const auto sine = [](long double x) { return std::sin(x); };
  const auto cosine = [](long double x) { return std::cos(x); };
  std::mt19937_64 random(47);
  std::uniform_real_distribution<double> angle(0.0, kTwoPi);
  std::uniform_real_distribution<double> factor(0.8, 1.2);
  for (int k = 0; k < 2000; ++k) {
    LunarSeriesState state{angle(random), angle(random),  angle(random),
                           angle(random), factor(random), 0.0};
    state.E_squared = state.E * state.E;
    ASSERT_NEAR(SumLunarLongitudeTerms(state), NaiveSum(longitude, state, sine), 6e-13);
    ASSERT_NEAR(SumLunarLatitudeTerms(state), NaiveSum(latitude, state, sine), 6e-13);
    ASSERT_NEAR(SumLunarDistanceTerms(state), NaiveSum(distance, state, cosine), 2e-9);
  }
}

// The additive terms as printed [deg], the pair in A1 and F as two sines.
double AddedLongitude(double t, double lprime, double f) {
  const double a1 = (119.75 + 131.849 * t) * kRadiansPerDegree;
  const double a2 = (53.09 + 479264.290 * t) * kRadiansPerDegree;
  return 3958e-6 * std::sin(a1) + 1962e-6 * std::sin(lprime - f) + 318e-6 * std::sin(a2);
}

double AddedLatitude(double t, double lprime, double mprime, double f) {
  const double a1 = (119.75 + 131.849 * t) * kRadiansPerDegree;
  const double a3 = (313.45 + 481266.484 * t) * kRadiansPerDegree;
  return -2235e-6 * std::sin(lprime) + 382e-6 * std::sin(a3) + 175e-6 * std::sin(a1 - f) +
         175e-6 * std::sin(a1 + f) + 127e-6 * std::sin(lprime - mprime) -
         115e-6 * std::sin(lprime + mprime);
}

// The whole position from long double: tables, additive terms as printed, mean longitude of the
// first version with a positive quartic. Sines of arguments near 1e5 radians (A2, A3 at 20
// centuries) keep 1e-11, the mean longitude 2e-9 degree; five times that is allowed.
TEST(LunarSeries, KeptOnPurposeMeanLongitudeQuarticIsPositive) {
  const auto longitude = Table("data/lunar/table-47a.csv", 4, 1e-6L);
  const auto distance = Table("data/lunar/table-47a.csv", 5, 1e-3L);
  const auto latitude = Table("data/lunar/table-47b.csv", 4, 1e-6L);
  const auto sine = [](long double x) { return std::sin(x); };
  const auto cosine = [](long double x) { return std::cos(x); };
  for (double t = -20.0; t <= 20.0; t += 0.40625) {
    const LunarArguments a = ComputeLunarArguments(t);
    const LunarSeriesState state{a.D, a.M, a.Mprime, a.F, a.E, a.E * a.E};
    const double cubic = ((1.855835e-06 * t - 0.0013268) * t + 481267.88134236) * t + 218.3164591;
    const double lprime_degrees = cubic + t * t * t * t / 65194000.0;
    const double lprime = std::fmod(lprime_degrees, 360.0) * kRadiansPerDegree;
    const LunarPosition moon = ComputeLunarPosition(t);
    const double expected =
        lprime_degrees + NaiveSum(longitude, state, sine) + AddedLongitude(t, lprime, a.F);
    ASSERT_NEAR(std::remainder(moon.lambda * kDegreesPerRadian - expected, 360.0), 0.0, 1e-8) << t;
    const double expected_latitude =
        NaiveSum(latitude, state, sine) + AddedLatitude(t, lprime, a.Mprime, a.F);
    ASSERT_NEAR(moon.beta * kDegreesPerRadian, expected_latitude, 1e-8) << t;
    ASSERT_NEAR(moon.distance_km, 385000.56 + NaiveSum(distance, state, cosine), 2e-9) << t;
  }
}

// Instants found by scanning eighths of a day from J2000.0 on.
TEST(LunarSeries, LongitudeBelowZeroIsLiftedByOneTurn) {
  for (const double julian_day : {2451583.125, 2451637.75, 2451665.125}) {
    ASSERT_LT(MeanLongitudeDegrees(julian_day), 1.2);
    const double lambda = MoonAt(julian_day).lambda * kDegreesPerRadian;
    EXPECT_GT(lambda, 354.0) << julian_day;
    EXPECT_LT(lambda, 355.0) << julian_day;
  }
}

TEST(LunarSeries, KeptOnPurposeLongitudeAboveAFullTurnIsNotReduced) {
  for (const double julian_day : {2452430.0, 2452512.0, 2452539.25}) {
    ASSERT_GT(MeanLongitudeDegrees(julian_day), 358.0);
    const double lambda = MoonAt(julian_day).lambda * kDegreesPerRadian;
    EXPECT_GT(lambda, 360.0) << julian_day;
    EXPECT_LT(lambda, 361.0) << julian_day;
  }
  // The furthest above a turn among the half days of 1900 to 2099.
  EXPECT_NEAR(MoonAt(2459779.5).lambda * kDegreesPerRadian, 367.126566, 1e-6);
}

TEST(LunarSeries, LongitudeStaysWithinEightDegreesOfOneTurn) {
  double furthest = 0.0;
  for (double t = -40.0; t <= 40.0; t += 0.0009765625) {
    const double lambda = ComputeLunarPosition(t).lambda;
    ASSERT_GE(lambda, 0.0) << t;
    furthest = std::fmax(furthest, lambda - kTwoPi);
  }
  EXPECT_LT(furthest * kDegreesPerRadian, 7.8);
  EXPECT_GT(furthest * kDegreesPerRadian, 7.0);
}

// The arguments of the theory [deg], rising powers of T.
struct Arguments {
  double lprime[5], d[5], m[5], mprime[5], f[5];
};

// As published in the theory's first version.
constexpr Arguments kFirstVersion = {
    {218.3164591, 481267.88134236, -0.0013268, 1.0 / 538841.0, -1.0 / 65194000.0},
    {297.8502042, 445267.1115168, -0.00163, 1.0 / 545868.0, -1.0 / 113065000.0},
    {357.5291092, 35999.0502909, -0.0001536, 1.0 / 24490000.0, 0.0},
    {134.9634114, 477198.8676313, 0.008997, 1.0 / 69699.0, -1.0 / 14712000.0},
    {93.2720993, 483202.0175273, -0.0034029, -1.0 / 3526000.0, 1.0 / 863310000.0}};

// The second version, Meeus, Astronomical Algorithms, second edition, formulas 47.1 to 47.5, up to
// T^2; the higher powers are those of this library, so that the version alone makes the difference.
constexpr Arguments kSecondVersion = {
    {218.3164477, 481267.88123421, -0.0015786, 1.855835e-06, 1.53388e-08},
    {297.8501921, 445267.1114034, -0.0018819, 1.831945e-06, 8.84447e-06},
    {357.5291092, 35999.0502909, -0.0001536, 4.083299e-08, 0.0},
    {134.9633964, 477198.8675055, 0.0087414, 1.434741e-05, 6.79717e-08},
    {93.2720950, 483202.0175233, -0.0036539, 2.836075e-07, 1.15833e-09}};

LunarPosition PositionFrom(const Arguments& arguments, double t) {
  const auto value = [t](const double(&coefficients)[5]) {
    return ReduceAngle(EvaluatePolynomial(coefficients, 4, t) * kRadiansPerDegree);
  };
  const double e = ComputeLunarArguments(t).E;
  const LunarSeriesState state{value(arguments.d),
                               value(arguments.m),
                               value(arguments.mprime),
                               value(arguments.f),
                               e,
                               e * e};
  const double lprime = value(arguments.lprime);
  const double longitude = SumLunarLongitudeTerms(state) + AddedLongitude(t, lprime, state.F);
  const double latitude =
      SumLunarLatitudeTerms(state) + AddedLatitude(t, lprime, state.Mprime, state.F);
  return {lprime + longitude * kRadiansPerDegree, latitude * kRadiansPerDegree,
          385000.56 + SumLunarDistanceTerms(state)};
}

struct Difference {
  double seconds;     // of longitude
  double kilometres;  // of distance
};

// The largest of the four years about a moment.
Difference LargestDifference(const Arguments& arguments, double centre) {
  Difference largest{0.0, 0.0};
  for (int k = -2000; k <= 2000; ++k) {
    const double t = centre + k * 1e-5;
    const LunarPosition ours = ComputeLunarPosition(t);
    const LunarPosition theirs = PositionFrom(arguments, t);
    const double longitude = std::remainder(ours.lambda - theirs.lambda, kTwoPi);
    largest.seconds = std::fmax(largest.seconds, std::fabs(longitude) * kDegreesPerRadian * 3600.0);
    largest.kilometres =
        std::fmax(largest.kilometres, std::fabs(ours.distance_km - theirs.distance_km));
  }
  return largest;
}

// Five small coefficients have another sign than the published ones, and one another size.
TEST(LunarSeries, KeptOnPurposePlaceDepartsFarFromJ2000) {
  const struct {
    double centuries;
    double seconds, kilometres;
    double allowed;  // of either, relative: what differs between before and after J2000.0
  } moments[] = {
      {0.0, 0.0, 0.0, 0.0},       {1.0, 0.00275, 0.0022, 0.05}, {5.0, 1.615, 1.33, 0.01},
      {10.0, 26.26, 21.33, 0.01}, {20.0, 419.0, 342.0, 0.01},   {40.0, 6558.0, 5300.0, 0.01},
  };
  for (const auto& moment : moments) {
    for (const double t : {-moment.centuries, moment.centuries}) {
      const Difference largest = LargestDifference(kFirstVersion, t);
      EXPECT_NEAR(largest.seconds, moment.seconds, moment.seconds * moment.allowed + 1e-6) << t;
      EXPECT_NEAR(largest.kilometres, moment.kilometres, moment.kilometres * moment.allowed + 1e-6)
          << t;
    }
  }
}

TEST(LunarSeries, KeptOnPurposeArgumentsAreThoseOfTheFirstVersion) {
  EXPECT_NEAR(LargestDifference(kSecondVersion, 0.0).seconds, 0.06, 0.005);
  EXPECT_NEAR(LargestDifference(kSecondVersion, 1.0).seconds, 1.6, 0.05);
  EXPECT_NEAR(LargestDifference(kSecondVersion, 5.0).seconds, 29.0, 0.2);
}

TEST(LunarSeries, AnswersAnyMoment) {
  for (double t = 1.0; t < 1e308; t *= 9.7) {
    for (const double centuries : {t, -t}) {
      const LunarPosition moon = ComputeLunarPosition(centuries);
      if (std::fabs(t) < 1e4) {
        EXPECT_TRUE(std::isfinite(moon.lambda) && std::isfinite(moon.beta)) << t;
      }
    }
  }
  for (const double t : {std::nan(""), std::numeric_limits<double>::infinity()}) {
    const LunarPosition moon = ComputeLunarPosition(t);
    EXPECT_TRUE(std::isnan(moon.lambda));
    EXPECT_TRUE(std::isnan(moon.beta));
    EXPECT_TRUE(std::isnan(moon.distance_km));
  }
}

TEST(LunarSeries, ThreadsDoNotDisturbEachOther) {
  constexpr int kMoments = 2000;
  const auto moment = [](int k) { return -10.0 + 0.01 * k; };
  std::vector<LunarPosition> alone;
  for (int k = 0; k < kMoments; ++k) {
    alone.push_back(ComputeLunarPosition(moment(k)));
  }
  std::array<int, 3> differing{};
  std::vector<std::thread> threads;
  for (std::size_t id = 0; id < differing.size(); ++id) {
    threads.emplace_back([&, id] {
      for (int k = 0; k < kMoments; ++k) {
        const int own = (k + static_cast<int>(id) * 700) % kMoments;
        const LunarPosition moon = ComputeLunarPosition(moment(own));
        const LunarPosition& expected = alone[static_cast<std::size_t>(own)];
        const bool same = moon.lambda == expected.lambda && moon.beta == expected.beta &&
                          moon.distance_km == expected.distance_km;
        differing[id] += same ? 0 : 1;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (const int count : differing) {
    EXPECT_EQ(count, 0);
  }
}

}  // namespace
}  // namespace zenithor
