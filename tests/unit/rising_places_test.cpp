#include <gtest/gtest.h>

#include <cmath>

#include "ephemeris/series.h"
#include "moon/lunar_series.h"
#include "numerics/angles.h"
#include "numerics/constants.h"
#include "rising/rising_moon.h"
#include "rising/rising_planet.h"
#include "support/full_store.h"
#include "time/constants.h"
#include "time/delta_t.h"
#include "time/nutation.h"
#include "time/obliquity.h"

namespace zenithor {
namespace {

using testing::FullStore;

constexpr double kDay = 23800.0;           // 2026 February 28
constexpr double kSecond = kPi / 43200.0;  // of right ascension [rad]

RiseSetProblem Planet(BodyCode code, double minutes = 0.0, double longitude_west = 0.0) {
  MomentCache cache;
  return PlanetRiseSetProblem(FullStore(), {kDay, minutes, 0.0, longitude_west, 45.0, code}, cache);
}

RiseSetResult Times(BodyCode code) { return RiseSetMinutes(Planet(code)); }

TEST(RisingPlanet, TheSunToMarsHaveThreePlacesADayApart) {
  for (const BodyCode code : {ZENITHOR_SUN, ZENITHOR_MERCURY, ZENITHOR_VENUS, ZENITHOR_MARS}) {
    const RiseSetProblem problem = Planet(code);
    // Each moves by half a minute of time to five minutes of it a day.
    const double first = ReduceAngleSigned(problem.alpha.middle - problem.alpha.before);
    const double second = ReduceAngleSigned(problem.alpha.after - problem.alpha.middle);
    EXPECT_GT(std::fabs(first), 30.0 * kSecond) << code;
    EXPECT_LT(std::fabs(first), 300.0 * kSecond) << code;
    // Mercury, near its station, changes its pace by 32 s a day.
    EXPECT_NEAR(first, second, 35.0 * kSecond) << code;
  }
}

TEST(RisingPlanet, KeptOnPurposeJupiterToPlutoHaveOnePlaceForThreeDays) {
  for (BodyCode code = ZENITHOR_JUPITER; code <= ZENITHOR_PLUTO; ++code) {
    const RiseSetProblem problem = Planet(code);
    EXPECT_EQ(problem.alpha.before, problem.alpha.middle) << code;
    EXPECT_EQ(problem.alpha.after, problem.alpha.middle) << code;
    EXPECT_EQ(problem.delta.before, problem.delta.middle) << code;
    EXPECT_EQ(problem.delta.after, problem.delta.middle) << code;
  }
  // The place is that of the given instant: 720 minutes later Jupiter has moved, the day has not.
  const RiseSetProblem morning = Planet(ZENITHOR_JUPITER);
  const RiseSetProblem noon = Planet(ZENITHOR_JUPITER, 720.0);
  EXPECT_EQ(noon.day_start_days, morning.day_start_days);
  EXPECT_NE(noon.alpha.middle, morning.alpha.middle);
}

TEST(RisingPlanet, KeptOnPurposeTheSunToMarsAreGeometric) {
  // The Sun: no aberration (20.5" along the ecliptic) and no nutation.
  const RisingDay day = FindRisingDay({kDay, 0.0, 0.0, 0.0, 45.0, ZENITHOR_SUN});
  const double epsilon = MeanObliquity(day.centuries);
  const Spherical sun = EvaluateSunGeocentric(FullStore(), kEarthSlot, PlaceCenturies(day, 1));
  const Equatorial geometric = EclipticToEquatorial(sun.longitude, sun.latitude, epsilon);
  EXPECT_NEAR(Planet(ZENITHOR_SUN).alpha.middle, geometric.alpha, 1e-12);
  EXPECT_NEAR(Planet(ZENITHOR_SUN).delta.middle, geometric.delta, 1e-12);

  // Mars: the light of the place came from 40" to 60" farther back; its own motion alone moves the
  // apparent place by more than a tenth of a second of time.
  const double t = PlaceCenturies(day, 1);
  const Spherical earth = EvaluateBody(FullStore(), kEarthSlot, t);
  const Spherical now = GeocentricPosition(EvaluateBody(FullStore(), ZENITHOR_MARS, t), earth);
  const Spherical then = GeocentricPosition(
      EvaluateBody(FullStore(), ZENITHOR_MARS, t - now.radius * kLightTimePerAu), earth);
  const Equatorial seen = EclipticToEquatorial(then.longitude, then.latitude, epsilon);
  const Equatorial geometric_mars = EclipticToEquatorial(now.longitude, now.latitude, epsilon);
  EXPECT_NEAR(Planet(ZENITHOR_MARS).alpha.middle, geometric_mars.alpha, 1e-12);
  EXPECT_GT(std::fabs(seen.alpha - geometric_mars.alpha), 0.1 * kSecond);
}

TEST(RisingPlanet, TheObserverMovesSlowPlanetsByThousandthsOfAMinuteOnly) {
  const RiseSetProblem here = Planet(ZENITHOR_JUPITER, 0.0, 0.0);
  const RiseSetProblem there = Planet(ZENITHOR_JUPITER, 0.0, 120.0);
  const double moved = std::fabs(here.alpha.middle - there.alpha.middle);
  // The parallax of Jupiter is 1.4" to 2.2": 0.15 s of time, 0.0025 minute.
  EXPECT_GT(moved, 0.01 * kSecond);
  EXPECT_LT(moved, 0.3 * kSecond);
}

TEST(RisingPlanet, KeptOnPurposePlutoHasTheEquinoxOfJ2000) {
  // Against Pluto's own longitude with 26 years of precession added: 1.4 minutes of time, the
  // longitude being near 303 degrees, where right ascension gains 3.6 s a year.
  const RiseSetProblem problem = Planet(ZENITHOR_PLUTO);
  const double t = FindRisingDay({kDay, 0.0, 0.0, 0.0, 45.0, ZENITHOR_PLUTO}).centuries;
  const Spherical earth = EvaluateBody(FullStore(), kEarthJ2000Slot, t);
  const Spherical pluto = GeocentricPosition(EvaluateBody(FullStore(), ZENITHOR_PLUTO, t), earth);
  const Equatorial j2000 = EclipticToEquatorial(pluto.longitude, pluto.latitude, kObliquityJ2000);
  const double precession = 5029.0966 * t * kRadiansPerArcsecond;
  const Equatorial of_date =
      EclipticToEquatorial(pluto.longitude + precession, pluto.latitude, MeanObliquity(t));
  // Nutation, aberration and light time move it by up to 5 s.
  EXPECT_NEAR(problem.alpha.middle, j2000.alpha, 5.0 * kSecond);
  EXPECT_GT(of_date.alpha - problem.alpha.middle, 80.0 * kSecond);
}

TEST(RisingPlanet, ReadsOnlyTheSlotsThatABodyNeeds) {
  EphemerisStore store = FullStore();
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_PLUTO; ++code) {
    EXPECT_TRUE(HasSlotsForRising(store, code));
  }
  store.bodies[kEarthJ2000Slot].terms = nullptr;
  EXPECT_FALSE(HasSlotsForRising(store, ZENITHOR_PLUTO));
  EXPECT_TRUE(HasSlotsForRising(store, ZENITHOR_SUN));
  EXPECT_TRUE(HasSlotsForRising(store, ZENITHOR_EARTH));
  store.bodies[ZENITHOR_MARS].terms = nullptr;
  EXPECT_FALSE(HasSlotsForRising(store, ZENITHOR_MARS));
  EXPECT_TRUE(HasSlotsForRising(store, ZENITHOR_VENUS));
  store = FullStore();
  store.bodies[kEarthSlot].terms = nullptr;
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_NEPTUNE; ++code) {
    EXPECT_FALSE(HasSlotsForRising(store, code));
  }
  EXPECT_TRUE(HasSlotsForRising(store, ZENITHOR_PLUTO));
}

TEST(RisingPlanet, StandardAltitudes) {
  EXPECT_NEAR(Planet(ZENITHOR_SUN).h0 * kDegreesPerRadian, -0.8333, 1e-12);
  EXPECT_NEAR(Planet(ZENITHOR_VENUS).h0 * kDegreesPerRadian, -0.5667, 1e-12);
  EXPECT_NEAR(Planet(ZENITHOR_PLUTO).h0 * kDegreesPerRadian, -0.5667, 1e-12);
}

RiseSetProblem Moon(double minutes) {
  return MoonRiseSetProblem({kDay, minutes, 0.0, 0.0, 45.0, ZENITHOR_MOON});
}

TEST(RisingMoon, KeptOnPurposeTheParallaxIsOfTheGivenInstant) {
  const RiseSetProblem morning = Moon(0.0);
  const RiseSetProblem evening = Moon(1439.0);
  EXPECT_EQ(morning.day_start_days, evening.day_start_days);
  EXPECT_NE(morning.h0, evening.h0);
  for (const double minutes : {0.0, 1439.0}) {
    const double t = FindRisingDay({kDay, minutes, 0.0, 0.0, 45.0, ZENITHOR_MOON}).centuries;
    const double parallax = std::asin(6378.14 / ComputeLunarPosition(t).distance_km);
    EXPECT_NEAR(Moon(minutes).h0, 0.7275 * parallax - 0.5667 * kRadiansPerDegree, 1e-12);
  }
  // The Moon's standard altitude is near +0.125 degree.
  EXPECT_NEAR(morning.h0 * kDegreesPerRadian, 0.125, 0.06);
}

TEST(RisingMoon, KeptOnPurposeTheMoonIsWithoutNutation) {
  const RisingDay day = FindRisingDay({kDay, 0.0, 0.0, 0.0, 45.0, ZENITHOR_MOON});
  const LunarPosition moon = ComputeLunarPosition(PlaceCenturies(day, 1));
  const double epsilon = MeanObliquity(day.centuries);
  const NutationAngles nutation = Nutation(day.centuries);
  const Equatorial mean = EclipticToEquatorial(moon.lambda, moon.beta, epsilon);
  const Equatorial apparent =
      EclipticToEquatorial(moon.lambda + nutation.dpsi, moon.beta, epsilon + nutation.deps);
  EXPECT_NEAR(Moon(0.0).alpha.middle, mean.alpha, 1e-12);
  EXPECT_GT(std::fabs(apparent.alpha - mean.alpha), 0.05 * kSecond);
}

// How far the Moon's transit moves, in minutes, when the places are those of `seconds` later.
double LaterBy(double seconds, const RiseSetProblem& moon) {
  const double rate =
      ReduceAngleSigned(moon.alpha.after - moon.alpha.before) / 2.0;  // [rad per day]
  const double turned = 360.985647 * kRadiansPerDegree;               // by the Earth in a day
  return seconds / 86400.0 * rate / (turned - rate) * 1440.0;
}

TEST(RisingDay, KeptOnPurposeDeltaTCountsTwice) {
  // Once in the instants of the three places, and once more when they are interpolated.
  const RisingRequest request{23800.0, 0.0, 0.0, 0.0, 45.0, ZENITHOR_MOON};
  const RiseSetProblem moon = MoonRiseSetProblem(request);
  const RisingDay day = FindRisingDay(request);
  EXPECT_EQ(moon.delta_t, DeltaT(day.centuries));
  EXPECT_NEAR((PlaceCenturies(day, 1) - day.start_centuries) * kDaysPerCentury * 86400.0,
              moon.delta_t, 1e-5);
  RiseSetProblem once = moon;
  once.delta_t = 0.0;
  const double moved = (SolveRiseSet(moon).transit - SolveRiseSet(once).transit) / kTwoPi * 1440.0;
  // 136.8 s more: 0.08 minute for the Moon. A tenth of it for the change of pace and the 0.0002
  // day.
  EXPECT_NEAR(moved, LaterBy(moon.delta_t, moon), 0.008);
  EXPECT_GT(moved, 0.05);
}

TEST(RisingDay, TheJumpOfDeltaTAt2000MovesTheMoonsTimes) {
  // 2000 January 1, 12h universal time (day 14245, minute 720) is year 2000.0 exactly: still the
  // table. A minute later Delta T is 39.9 s more, which counts twice.
  const RisingRequest before{14245.0, 720.0, 0.0, 0.0, 45.0, ZENITHOR_MOON};
  RisingRequest after = before;
  after.minutes = 721.0;
  EXPECT_NEAR(FindRisingDay(before).delta_t, 62.4, 1e-6);
  EXPECT_NEAR(FindRisingDay(after).delta_t, 102.3, 1e-3);
  const RiseSetProblem problem = MoonRiseSetProblem(before);
  const double moved =
      RiseSetMinutes(MoonRiseSetProblem(after)).Transit - RiseSetMinutes(problem).Transit;
  EXPECT_NEAR(moved, LaterBy(2.0 * 39.9, problem), 0.004);
}

TEST(RisingDay, OutsideTheTableTheDaysOf948And1620TakeTheirOwnPieces) {
  // Years count 36525 / 100 days from 2000.0: day number 14245.5 less 365.25 (2000 - year).
  const auto delta_t = [](double year, double days_later) {
    const double day = 14245.5 - 365.25 * (2000.0 - year) + days_later;
    return FindRisingDay({day, 0.0, 0.0, 0.0, 45.0, ZENITHOR_SUN}).delta_t;
  };
  EXPECT_NEAR(delta_t(1620.0, 1.0), 124.0 - 4.5 / 365.25, 1e-3);
  EXPECT_NEAR(delta_t(1620.0, -1.0), 119.0, 5e-3);
  EXPECT_NEAR(delta_t(948.0, 1.0), 1830.584, 0.02);
  EXPECT_NEAR(delta_t(948.0, -1.0), 1830.026, 0.02);
}

TEST(RisingPlanet, AllBodiesHaveTheirTimesInMinutes) {
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_PLUTO; ++code) {
    if (code == ZENITHOR_EARTH) {
      continue;
    }
    const RiseSetResult result = Times(code);
    EXPECT_EQ(result.Status, 0.0) << code;
    EXPECT_GE(result.Rise, 0.0) << code;
    EXPECT_LE(result.Rise, 1440.0) << code;
    // Rise, transit, set follow each other, day or no day: an arc between 8 and 16 hours.
    const double arc = std::fmod(result.Set - result.Rise + 1440.0, 1440.0);
    EXPECT_GT(arc, 480.0) << code;
    EXPECT_LT(arc, 960.0) << code;
  }
}

}  // namespace
}  // namespace zenithor
