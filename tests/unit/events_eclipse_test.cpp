#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "events/eclipse_core.h"
#include "events/lunar_eclipse.h"
#include "events/lunar_phase.h"
#include "events/solar_eclipse.h"
#include "moon/lunar_arguments.h"
#include "support/text_files.h"
#include "time/julian_day.h"

namespace zenithor {
namespace {

using testing::Published;

// The years -2000 to 4000.
constexpr double kFirstLunation = -49475.0;
constexpr double kLastLunation = 24737.0;

// A day from which the searches look at lunation k first: half a lunation before its mean phase.
double DayBefore(double k) { return MeanPhase(k - 0.5, (k - 0.5) * kCenturiesPerLunation); }

double SinOfLatitudeArgument(double k) {
  const double mean = MeanPhase(k, k * kCenturiesPerLunation);
  return std::sin(ComputeLunarArguments(JulianCenturies(mean)).F);
}

void ExpectPublished(const char* example, const char* quantity, double actual) {
  const testing::PublishedValue book = Published(example, quantity);
  EXPECT_NEAR(actual, book.value, book.allowed) << example << " " << quantity;
}

TEST(SolarEclipse, MeetsThePartialEclipseOf1993May21) {
  // Meeus, example 54.a: lunation -82.
  const EclipseGeometry at = ComputeEclipseGeometry(-82.0);
  ExpectPublished("54.a", "abs gamma", at.abs_gamma);
  ExpectPublished("54.a", "u", at.u);
  const SolarEclipse eclipse = FindSolarEclipse(2449122.5 - 10.0);
  EXPECT_TRUE(eclipse.found);
  ExpectPublished("54.a", "JulianDay", eclipse.jde);
  ExpectPublished("54.a", "kind", eclipse.kind);
  ExpectPublished("54.a", "magnitude", eclipse.magnitude);
}

TEST(SolarEclipse, MeetsTheTotalEclipseOf2009July22) {
  // Meeus, example 54.b: lunation 118.
  const EclipseGeometry at = ComputeEclipseGeometry(118.0);
  ExpectPublished("54.b", "abs gamma", at.abs_gamma);
  ExpectPublished("54.b", "u", at.u);
  const SolarEclipse eclipse = FindSolarEclipse(2455027.5 - 10.0);
  ExpectPublished("54.b", "JulianDay", eclipse.jde);
  ExpectPublished("54.b", "kind", eclipse.kind);
  EXPECT_EQ(eclipse.magnitude, 0.0);  // only a partial eclipse has one
}

TEST(LunarEclipse, MeetsThePenumbralEclipseOf1973June15) {
  // Meeus, example 54.c: lunation -328.5. The instant with the coefficients of solar eclipses.
  ExpectPublished("54.c", "abs gamma", ComputeEclipseGeometry(-328.5).abs_gamma);
  const LunarEclipse eclipse = FindLunarEclipse(2441843.5 - 22.0);
  EXPECT_TRUE(eclipse.found);
  ExpectPublished("54.c", "JulianDay", eclipse.jde);
  ExpectPublished("54.c", "kind", eclipse.kind);
  ExpectPublished("54.c", "magnitude", eclipse.magnitude);
  // The book gives a semiduration of 101 minutes in the penumbra.
  EXPECT_NEAR(eclipse.outer_semiduration * 1440.0, 101.0, 1.0);
  EXPECT_EQ(eclipse.totality_semiduration, 0.0);
}

TEST(LunarEclipse, MeetsTheTotalEclipseOf1997September16) {
  // Meeus, example 54.d: lunation -28.5.
  ExpectPublished("54.d", "abs gamma", ComputeEclipseGeometry(-28.5).abs_gamma);
  const LunarEclipse eclipse = FindLunarEclipse(2450701.5 - 22.0);
  ExpectPublished("54.d", "JulianDay", eclipse.jde);
  ExpectPublished("54.d", "kind", eclipse.kind);
  ExpectPublished("54.d", "magnitude", eclipse.magnitude);
  // The book: partial phase 98 minutes before and after, totality 30 minutes.
  EXPECT_NEAR(eclipse.outer_semiduration * 1440.0, 98.0, 1.0);
  EXPECT_NEAR(eclipse.totality_semiduration * 1440.0, 30.0, 1.0);
}

TEST(LunarEclipse, APartialEclipseHasNoTotality) {
  // 1988 August 27, 11h05m UT in the almanacs: magnitude 0.29 in the umbra.
  const LunarEclipse eclipse = FindLunarEclipse(2447390.5 - 22.0);
  EXPECT_EQ(eclipse.kind, kPartialEclipse);
  EXPECT_NEAR(eclipse.jde, 2447400.962, 0.004);
  EXPECT_NEAR(eclipse.magnitude, 0.29, 0.02);
  EXPECT_GT(eclipse.outer_semiduration, 0.0);
  EXPECT_EQ(eclipse.totality_semiduration, 0.0);
}

TEST(LunarEclipse, MagnitudesAreAboveZeroAndKindsAgreeWithThem) {
  for (double day = DayBefore(-1236.5); day < DayBefore(1237.5);) {
    const LunarEclipse eclipse = FindLunarEclipse(day);
    ASSERT_TRUE(eclipse.found);
    ASSERT_GT(eclipse.magnitude, 0.0);
    // Total when the whole Moon, 0.545 wide, is within 1.0128 - u - 0.545 of the axis.
    ASSERT_EQ(eclipse.kind == kTotalEclipse, eclipse.totality_semiduration > 0.0);
    if (eclipse.kind == kTotalEclipse) {
      ASSERT_GT(eclipse.magnitude, 0.999);
      ASSERT_GT(eclipse.outer_semiduration, eclipse.totality_semiduration);
    } else if (eclipse.kind == kPartialEclipse) {
      ASSERT_LT(eclipse.magnitude, 1.001);
    } else {
      ASSERT_EQ(eclipse.kind, kPenumbralEclipse);
    }
    day = eclipse.jde;
  }
}

TEST(EclipseCore, ALunationTooFarFromANodeHasNoEclipse) {
  // The two numbers next to each other between which |sin F| passes 0.36: lunations near 0.2.
  double eclipse_side = 0.0;
  double other_side = 0.0;
  for (double k = 0.0; k < 1.0; k += 0.01) {
    if (std::fabs(SinOfLatitudeArgument(k)) < 0.36 &&
        std::fabs(SinOfLatitudeArgument(k + 0.01)) >= 0.36) {
      eclipse_side = k;
      other_side = k + 0.01;
    }
  }
  ASSERT_NE(other_side, 0.0);
  for (double middle = 0.5 * (eclipse_side + other_side);
       middle != eclipse_side && middle != other_side; middle = 0.5 * (eclipse_side + other_side)) {
    (std::fabs(SinOfLatitudeArgument(middle)) < 0.36 ? eclipse_side : other_side) = middle;
  }
  EXPECT_LT(ComputeEclipseGeometry(eclipse_side).abs_gamma, 2.0);
  const EclipseGeometry none = ComputeEclipseGeometry(other_side);
  EXPECT_EQ(none.abs_gamma, 2.0);
  EXPECT_EQ(none.u, 0.0);
  EXPECT_EQ(none.jde, MeanPhase(other_side, other_side * kCenturiesPerLunation));
}

TEST(EclipseCore, KeptOnPurposeFullMoonsAreCorrectedLikeNewMoons) {
  // With the book's leading coefficients for lunar eclipses the instant would be later by
  // 0.0010 sin M' + 0.0006 E sin M day: up to 142 s over six thousand years.
  double farthest = 0.0;
  for (double k = kFirstLunation + 0.5; k < kLastLunation; k += 1.0) {
    if (ComputeEclipseGeometry(k).abs_gamma < 1.5573) {
      const double mean = MeanPhase(k, k * kCenturiesPerLunation);
      const LunarArguments lunar = ComputeLunarArguments(JulianCenturies(mean));
      farthest = std::fmax(farthest, std::fabs(0.0010 * std::sin(lunar.Mprime) +
                                               0.0006 * lunar.E * std::sin(lunar.M)));
    }
  }
  EXPECT_NEAR(farthest * 86400.0, 142.5, 1.0);
  // Example 54.d with the book's coefficients: 2450708.2835. Here that much earlier.
  const LunarArguments lunar = ComputeLunarArguments(JulianCenturies(MeanPhase(-28.5, -0.02304)));
  const double difference = 0.0010 * std::sin(lunar.Mprime) + 0.0006 * std::sin(lunar.M);
  EXPECT_NEAR(ComputeEclipseGeometry(-28.5).jde + difference, 2450708.2835, 0.0001);
}

TEST(EclipseCore, KeptOnPurposeTheArgumentsAreThoseOfTheLunarSeries) {
  // Their cubic of F and quartic of M' have the other sign than the book's. In 2000 BC, T = -40, M'
  // is 2 x 6.79717e-8 T^4 = 0.348 degree ahead of the book's and F 2 x 2.836075e-7 T^3 = 0.036
  // degree behind: the instant moves by at most 0.4075 x 0.348 degree = 214 s for that alone.
  const double centuries = -40.0;
  const LunarArguments lunar = ComputeLunarArguments(centuries);
  const auto book = [&](double c0, double c1, double c2, double c3, double c4) {
    return c0 + centuries * (c1 + centuries * (c2 + centuries * (c3 + centuries * c4)));
  };
  const double degree = 0.017453292519943295;
  const double mprime = book(134.9634114, 477198.8676313, 0.008997, 1.434741e-5, -6.79717e-8);
  const double f = book(93.2720993, 483202.0175273, -0.0034029, -2.836075e-7, 1.15833e-9);
  const auto apart = [degree](double angle, double degrees) {
    return std::remainder(angle - degrees * degree, 2.0 * 3.141592653589793) / degree;
  };
  EXPECT_NEAR(apart(lunar.Mprime, mprime), 0.348, 0.001);
  EXPECT_NEAR(apart(lunar.F, f), -0.0363, 0.0001);
}

TEST(SolarEclipse, KeptOnPurposeANonCentralEclipseIsTotalUpToU00047) {
  // 2014 April 29 was annular, non-central: u = 0.0044. Here it is a non-central total one.
  const SolarEclipse eclipse = FindSolarEclipse(DayBefore(177.0));
  EXPECT_NEAR(eclipse.jde, 2456776.753, 0.001);
  const EclipseGeometry at = ComputeEclipseGeometry(177.0);
  EXPECT_GE(at.abs_gamma, 0.9972);
  EXPECT_GT(at.u, 0.0);
  EXPECT_LE(at.u, 0.0047);
  EXPECT_EQ(eclipse.kind, kNonCentralTotalEclipse);

  int non_central = 0;
  int total_with_positive_u = 0;
  for (double k = kFirstLunation; k < kLastLunation; k += 1.0) {
    const EclipseGeometry here = ComputeEclipseGeometry(k);
    if (here.abs_gamma >= 0.9972 && here.abs_gamma < 0.9972 + std::fabs(here.u)) {
      ++non_central;
      const std::int32_t kind = FindSolarEclipse(DayBefore(k)).kind;
      ASSERT_EQ(kind, here.u <= 0.0047 ? kNonCentralTotalEclipse : kNonCentralAnnularEclipse) << k;
      total_with_positive_u += kind == kNonCentralTotalEclipse && here.u >= 0.0 ? 1 : 0;
    }
  }
  EXPECT_EQ(non_central, 122);
  EXPECT_EQ(total_with_positive_u, 4);
}

TEST(SolarEclipse, EveryKindOccursAndAgreesWithItsGeometry) {
  int count[8] = {};
  for (double k = kFirstLunation; k < kLastLunation; k += 1.0) {
    const EclipseGeometry at = ComputeEclipseGeometry(k);
    if (!(at.abs_gamma <= 1.5433 + at.u)) {
      continue;
    }
    const SolarEclipse eclipse = FindSolarEclipse(DayBefore(k));
    ASSERT_EQ(eclipse.jde, at.jde) << k;
    ++count[eclipse.kind];
    const double central_limit = 0.9972;
    if (eclipse.kind == kTotalEclipse) {
      ASSERT_TRUE(at.abs_gamma < central_limit && at.u < 0.0) << k;
    } else if (eclipse.kind == kAnnularEclipse) {
      ASSERT_TRUE(at.abs_gamma < central_limit && at.u > 0.0) << k;
    } else if (eclipse.kind == kAnnularTotalEclipse) {
      ASSERT_TRUE(at.abs_gamma < central_limit && at.u >= 0.0 && at.u < 0.0047) << k;
    } else if (eclipse.kind == kPartialEclipse) {
      ASSERT_GE(at.abs_gamma, central_limit + std::fabs(at.u)) << k;
      ASSERT_GE(eclipse.magnitude, 0.0) << k;
    }
  }
  for (const std::int32_t kind :
       {kTotalEclipse, kAnnularEclipse, kAnnularTotalEclipse, kNonCentralTotalEclipse,
        kNonCentralAnnularEclipse, kPartialEclipse}) {
    EXPECT_GT(count[kind], 0) << kind;
  }
  EXPECT_EQ(count[kPenumbralEclipse], 0);
}

TEST(EclipseSearch, GivesUpAtOnceWhereLunationsCannotBeCounted) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  // 2^54 lunations are 5.3e17 days.
  for (const double day : {infinity, -infinity, nan, 6e17, -6e17, 1e30, 1e308, -1e308}) {
    const SolarEclipse solar = FindSolarEclipse(day);
    EXPECT_FALSE(solar.found) << day;
    EXPECT_EQ(solar.jde, 0.0);
    const LunarEclipse lunar = FindLunarEclipse(day);
    EXPECT_FALSE(lunar.found) << day;
    EXPECT_EQ(lunar.jde, 0.0);
  }
}

TEST(EclipseSearch, GivesUpAfterAMillionLunations) {
  // At 1e15 days nothing is left of the angles: M is 0 after reduction, and E is so large and
  // negative that u stays below zero. For the Moon just that ends the search.
  EXPECT_FALSE(FindSolarEclipse(1e15).found);
  EXPECT_TRUE(FindLunarEclipse(1e15).found);
  EXPECT_TRUE(FindLunarEclipse(-1e12).found);
}

TEST(EclipseSearch, GoesOnForAMillionLunations) {
  // Before lunation -341996354 more than 1.7 million others have no eclipse.
  const auto day_before = [](double k) { return kMeanNewMoonOf2000 + (k - 0.5) * 29.530588853; };
  const double eclipse = FindSolarEclipse(day_before(-341996355.0)).jde;
  EXPECT_EQ(FindSolarEclipse(day_before(-341996354.0 - 200000.0)).jde, eclipse);
  EXPECT_EQ(FindSolarEclipse(day_before(-341996354.0 - 999000.0)).jde, eclipse);
  EXPECT_FALSE(FindSolarEclipse(day_before(-341996354.0 - 1001000.0)).found);
}

TEST(EclipseSearch, EndsForDaysThatHaveACalendarDate) {
  // Up to the ends of the 32-bit day count, among them the longest run known, 20630 lunations near
  // -8.5e8.
  for (const double day : {-2147483000.0, -847547000.0, -1e8, -1e6, 1e7, 1e8, 1e9, 2147483000.0}) {
    EXPECT_TRUE(FindSolarEclipse(day).found) << day;
    EXPECT_TRUE(FindLunarEclipse(day).found) << day;
  }
}

}  // namespace
}  // namespace zenithor
