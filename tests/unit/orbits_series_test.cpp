// The fundamental arguments, the Earth that its series gives against VSOP87, the Moon's share and
// Pluto.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "numerics/constants.h"
#include "orbits/mean_elements.h"
#include "orbits/moon_share.h"
#include "orbits/planet_series.h"
#include "orbits/propagate_body.h"
#include "orbits/vectors.h"
#include "support/text_files.h"
#include "support/vsop87b_earth.h"
#include "time/constants.h"

namespace zenithor {
namespace {

using testing::Published;

TEST(MeanElements, WriteTheirOwnEntriesAndNoOthers) {
  double arguments[kArgumentLimit];
  std::fill(std::begin(arguments), std::end(arguments), -777.25);
  FillMeanElements(2460000.5, arguments);
  for (int entry = 1; entry <= kArgumentLimit; ++entry) {
    const bool written = entry == 3 || (entry >= 10 && entry <= 14);
    EXPECT_EQ(arguments[entry - 1] != -777.25, written) << entry;
  }
}

TEST(MeanElements, AgreeWithTheMoonsArgumentsOfTheBook) {
  // Meeus, Astronomical Algorithms, example 47.a (1992 April 12, 0h): mean longitude 134.290182,
  // elongation 113.842304, Sun's anomaly 97.643514, Moon's anomaly 5.150833, argument of latitude
  // 219.889721 degrees, of ELP-2000/82. The present arguments were fitted to another ephemeris: the
  // Moon's mean longitude is free of the light time (0.7") here, the perihelion of the Earth, whose
  // orbit is nearly a circle, is 2" further on.
  double arguments[kArgumentLimit] = {};
  FillMeanElements(2448724.5, arguments);
  const auto expect = [&](Argument argument, double degrees, double arcseconds) {
    EXPECT_NEAR(std::remainder(arguments[argument - 1] * kDegreesPerRadian - degrees, 360.0), 0.0,
                arcseconds / 3600.0);
  };
  expect(kMoonMeanLongitude, 134.290182, 0.7);
  expect(kMoonElongation, 113.842304, 0.7);
  expect(kSunAnomaly, 97.643514, 2.2);
  expect(kMoonAnomaly, 5.150833, 0.1);
  expect(kMoonLatitudeArgument, 219.889721, 0.1);
}

// The remainder of some C libraries has no more digits than a double.
long double WithinHalfATurn(long double arcseconds) {
  return arcseconds - 1296000.0L * std::round(arcseconds / 1296000.0L);
}

// Mean longitude or argument: A + B T + the powers from T^2 up [arcsec].
struct ArgumentPolynomial {
  Argument argument;
  double constant;
  double rate;
  std::vector<long double> higher;
};

TEST(MeanElements, MeetASecondEvaluationTenThousandYearsFromJ2000) {
  // So far away every coefficient is felt: the smallest, of the tenth power, by 1.6".
  const ArgumentPolynomial polynomials[] = {
      {kEarthMeanLongitude, 361679.198, 129597742.283429, {-0.0204411L, -5.23e-6L}},
      {kMoonElongation,
       1072261.2202445078,
       1602961600.9939659,
       {-6.735220237445752L, 0.006949274683605842L, -3.702060118571e-5L, 2.560078201452e-9L,
        2.555243317839e-11L, -3.207663637426e-13L}},
      {kMoonLatitudeArgument,
       335779.5141288474,
       1739527262.8437717,
       {-13.117809789650071L, -0.0007531187848233799L, -2.165750777942e-6L, -2.790392351314e-9L,
        4.189032191814e-11L, 4.474984866301e-13L}},
      {kSunAnomaly,
       1287102.7407441526,
       129596581.0230432,
       {-0.5528130642178309L, 8.74737173673247e-5L, -1.1297037031e-5L, -4.77258489e-8L,
        8.8555011e-11L, 4.237343e-13L, -3.83508e-15L, -1.039e-17L, 1.62e-20L}},
      {kMoonAnomaly,
       485868.17465825332,
       1717915922.8846793,
       {31.501359071894147L, 5.2099641302735818e-02L, -2.536291235258e-04L, -2.506365935364e-08L,
        3.452144225877e-11L, -1.755312760154e-12L}},
      {kMoonMeanLongitude,
       785939.8092105242,
       1732564372.0442266,
       {-5.65504600274714L, 6.901724852838049e-03L, -6.073960534117e-05L, -1.024222633731e-08L,
        2.235210987108e-10L, 7.200592540556e-14L}},
  };
  for (const double t : {-100.0, -37.5, 100.0}) {
    double arguments[kArgumentLimit] = {};
    FillMeanElements(kJ2000 + kDaysPerCentury * t, arguments);
    for (const ArgumentPolynomial& polynomial : polynomials) {
      // The linear part, up to 1.7e11", is a double: its last bit is 3e-5".
      const double linear = polynomial.rate * t + polynomial.constant;
      long double expected = WithinHalfATurn(linear);
      long double power = t;
      for (const long double coefficient : polynomial.higher) {
        power *= t;
        expected += coefficient * power;
      }
      const long double actual =
          static_cast<long double>(arguments[polynomial.argument - 1]) / kRadiansPerArcsecond;
      // The last bit of an argument of up to 3e6", and of the steps to it.
      EXPECT_NEAR(static_cast<double>(WithinHalfATurn(actual - expected)), 0.0, 2e-9)
          << polynomial.argument << " at " << t;
    }
  }
}

TEST(MeanElements, TheEarthsLongitudeIsThatOfTheRateTable) {
  double arguments[kArgumentLimit] = {};
  FillMeanElements(kJ2000 + kDaysPerCentury, arguments);
  const double difference =
      std::remainder(arguments[kEarthMeanLongitude - 1] - PlanetMeanLongitude(3, 0.01), kTwoPi);
  // The phases differ by 0.0466"; after a century the list adds its -0.0204" T^2.
  EXPECT_NEAR(difference / kRadiansPerArcsecond, -0.0670, 0.0001);
}

void FillEveryPlanet(double julian_day, SeriesScratch& scratch) {
  for (int planet = 1; planet <= 9; ++planet) {
    scratch.arguments[planet - 1] =
        PlanetMeanLongitude(planet, (julian_day - kJ2000) / (100.0 * kDaysPerCentury));
  }
}

double ArcsecondsBetween(const Rectangular& a, const Rectangular& b) {
  return 2.0 * std::asin(Length(a / Length(a) - b / Length(b)) / 2.0) / kRadiansPerArcsecond;
}

struct EarthError {
  double arcseconds = 0.0;
  double au = 0.0;
};

// The largest difference from VSOP87B on `count` days over `years` either side of J2000.0.
EarthError WorstEarth(double years, int count, bool filled) {
  EarthError worst;
  for (int k = 0; k < count; ++k) {
    const double jd = kJ2000 + years * 365.25 * (2.0 * (k + 0.37) / count - 1.0);
    OrbitsState state;
    if (filled) {
      FillEveryPlanet(jd, state.scratch);
    }
    const Spherical earth = PropagateBody(jd, state.earth, state).ecliptic;
    const Spherical truth = testing::Vsop87bEarth(jd);
    worst.arcseconds = std::max(worst.arcseconds, ArcsecondsBetween(SphericalToRectangular(earth),
                                                                    SphericalToRectangular(truth)));
    worst.au = std::max(worst.au, std::fabs(earth.radius - truth.radius));
  }
  return worst;
}

TEST(EarthSeries, WithEveryMeanLongitudeFilledIsTheEarthOfVsop87) {
  // 0.14" and 1.0e-7 au over a century, 0.33" and 1.7e-7 au over five, where the two theories
  // begin to part.
  const EarthError century = WorstEarth(100.0, 701, true);
  EXPECT_LT(century.arcseconds, 0.15);
  EXPECT_LT(century.au, 1.2e-7);
  const EarthError five = WorstEarth(500.0, 701, true);
  EXPECT_LT(five.arcseconds, 0.4);
  EXPECT_LT(five.au, 2e-7);
}

TEST(EarthSeries, KeptOnPurposeTheOtherPlanetsStandStillAtZero) {
  // Up to 55" and 7.0e-5 au over five centuries. Were the entries filled it would be below 0.4".
  const EarthError five = WorstEarth(500.0, 1501, false);
  EXPECT_GT(five.arcseconds, 35.0);
  EXPECT_LT(five.arcseconds, 56.0);
  EXPECT_GT(five.au, 5e-5);
  EXPECT_LT(five.au, 7.2e-5);
  OrbitsState state;
  PropagateBody(2460000.5, state.earth, state);
  for (const int entry : {1, 2, 4, 5, 6, 7, 8, 9}) {
    EXPECT_EQ(state.scratch.arguments[entry - 1], 0.0) << entry;
  }
}

TEST(EarthSeries, KeptSumsAreThoseOfANewEvaluation) {
  SeriesScratch scratch;
  double room_of_two[kRoomOfTwo];
  scratch.room_of_two = room_of_two;
  const auto expect_same = [&scratch](double jd) {
    SeriesScratch fresh;  // has no room for two moments, so it sums this one alone
    const Spherical kept = EvaluateEarthSeries(jd, kEarthMoonBarycentreSeries, 3, scratch);
    const Spherical made = EvaluateEarthSeries(jd, kEarthMoonBarycentreSeries, 3, fresh);
    EXPECT_EQ(std::memcmp(&kept, &made, sizeof kept), 0) << jd;
  };
  for (const double jd : {2460000.5, 2460000.5 - kVelocityStepDays, 2460000.5, 2460010.5, 0.0}) {
    expect_same(jd);
  }
  // Where another planet has been written into the list, what was kept does not count.
  expect_same(2460000.5);
  const double before =
      EvaluateEarthSeries(2460000.5, kEarthMoonBarycentreSeries, 3, scratch).longitude;
  FillEveryPlanet(2460000.5, scratch);
  const double after =
      EvaluateEarthSeries(2460000.5, kEarthMoonBarycentreSeries, 3, scratch).longitude;
  EXPECT_GT(std::fabs(after - before), kRadiansPerArcsecond);
}

TEST(MoonShare, TheMoonIsTheBooksWithThePlanetsFilledIn) {
  // Meeus, example 47.a: ELP-2000/82 cut off at some 10" in longitude, 4" in latitude, and with its
  // mean longitude 0.5" from that of DE404.
  SeriesScratch scratch;
  ObliquityCache obliquity;
  FillEveryPlanet(2448724.5, scratch);
  const Rectangular equatorial = GeocentricMoon(2448724.5, scratch, obliquity);
  const Rectangular v{equatorial.x,
                      obliquity.cos_epsilon * equatorial.y + obliquity.sin_epsilon * equatorial.z,
                      -obliquity.sin_epsilon * equatorial.y + obliquity.cos_epsilon * equatorial.z};
  const Spherical moon = RectangularToSpherical(v);
  EXPECT_NEAR(moon.longitude * kDegreesPerRadian, Published("47.a", "lambda mean equinox").value,
              10.0 / 3600.0);
  EXPECT_NEAR(moon.latitude * kDegreesPerRadian, Published("47.a", "GeoLatitude").value,
              4.0 / 3600.0);
  EXPECT_NEAR(moon.radius * 149597870.691, Published("47.a", "GeoDistance").value, 10.0);
}

TEST(MoonShare, KeptOnPurposeALongitudeTurnsAt645000) {
  EXPECT_EQ(TurnLunarLongitude(645000.0), 645000.0);
  EXPECT_EQ(TurnLunarLongitude(646000.0), -650000.0);
  EXPECT_EQ(TurnLunarLongitude(-645000.0), -645000.0);
  EXPECT_EQ(TurnLunarLongitude(-646000.0), 650000.0);
  // The turn is felt by the last bits of a sine only.
  EXPECT_NEAR(std::sin(646000.0 * kRadiansPerArcsecond), std::sin(-650000.0 * kRadiansPerArcsecond),
              1e-15);
}

TEST(MoonShare, MovesTheBarycentreAwayFromTheMoon) {
  SeriesScratch scratch;
  ObliquityCache obliquity;
  Rectangular vector{0.3, -0.8, -0.35};
  const Rectangular barycentre = vector;
  const double radius = RemoveMoonFromBarycentre(kJ2000, scratch, obliquity, vector);
  EXPECT_EQ(radius, Length(vector));
  const Rectangular moon = GeocentricMoon(kJ2000, scratch, obliquity);
  // At J2000.0 precession changes nothing, so the shift is 1 / 82.300585 of the Moon's vector.
  EXPECT_NEAR(Length(barycentre - vector - (1.0 / 82.300585) * moon), 0.0, 1e-15);
  EXPECT_NEAR(Length(moon), 0.0026, 0.0002);
}

TEST(PlanetSeries, PlutoIsTheBooks) {
  // Meeus, example 37.a, 1992 October 13.0: l 232.74071, b 14.58782 degrees, r 29.711111 au,
  // ecliptic J2000.0; the book's series is good to 0.07" about 1990 and was fitted to DE200, some
  // 0.1" from DE404 for Pluto.
  SeriesScratch scratch;
  const Spherical pluto = EvaluatePlanetSeries(2448908.5, kPlutoSeries, scratch);
  EXPECT_NEAR(std::remainder(pluto.longitude * kDegreesPerRadian - 232.74071, 360.0), 0.0, 0.0001);
  EXPECT_NEAR(pluto.latitude * kDegreesPerRadian, 14.58782, 0.0001);
  EXPECT_NEAR(pluto.radius, Published("37.a", "HelioDistance").value, 0.0001);
}

}  // namespace
}  // namespace zenithor
