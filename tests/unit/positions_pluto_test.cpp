// Pluto's apparent place: the pipeline as a whole and its steps.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "numerics/constants.h"
#include "orbits/constants.h"
#include "orbits/earth_velocity.h"
#include "orbits/ecliptic_place.h"
#include "orbits/light.h"
#include "orbits/precession.h"
#include "orbits/propagate_body.h"
#include "orbits/topocentric.h"
#include "orbits/vectors.h"
#include "positions/pluto_position.h"
#include "support/expect_published.h"
#include "support/same_bytes.h"
#include "support/text_files.h"
#include "support/untouched.h"
#include "time/constants.h"

namespace zenithor {
namespace {

using testing::Doubles;
using testing::ExpectPublished;
using testing::kUntouchedDouble;
using testing::SameBytes;
using testing::UntouchedRecord;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kDay = 2448908.5;  // 1992 October 13, 0h

BodyPositionRecord PlutoAt(double julian_day, OrbitsState& state) {
  BodyPositionRecord record = UntouchedRecord();
  ComputePlutoPosition(julian_day, 0.0, 0.0, state, record);
  return record;
}

double Arcseconds(double degrees) { return 3600.0 * degrees; }

TEST(PlutoPosition, FillsFieldsOneToEightAndNoOthers) {
  OrbitsState state;
  const BodyPositionRecord record = PlutoAt(kDay, state);
  for (int field = 1; field <= testing::kDoubleCount; ++field) {
    EXPECT_EQ(Doubles(record)[field - 1] != kUntouchedDouble, field <= 8) << field;
  }
  EXPECT_EQ(record.Year, testing::kUntouchedInteger);
}

TEST(PlutoPosition, HasTheBooksAstrometricPlace) {
  // Meeus, example 37.a: 232.93231, -4.45802 degrees, equinox J2000.0, light time taken off, and
  // 30.528739 au. The Earth's standing planets allow 1.6" and 2.6e-4 au.
  OrbitsState state;
  PlutoAt(kDay, state);
  const Spherical place = RectangularToSpherical(state.pluto_vector - state.earth_vector);
  EXPECT_NEAR(place.longitude * kDegreesPerRadian, 232.93231, 1.6 / 3600.0);
  EXPECT_NEAR(place.latitude * kDegreesPerRadian, -4.45802, 1.6 / 3600.0);
  EXPECT_NEAR(place.radius, 30.528739, 2.6e-4);
}

TEST(PlutoPosition, HasTheBooksHeliocentricDistance) {
  OrbitsState state;
  ExpectPublished("37.a", "HelioDistance", PlutoAt(kDay, state).HelioDistance);
}

TEST(PlutoPosition, TheSameDayTwiceGivesTheSameFieldsAndOneVelocity) {
  OrbitsState state;
  const BodyPositionRecord first = PlutoAt(kDay, state);
  EXPECT_EQ(state.earth_velocity.computations, 1u);
  const BodyPositionRecord second = PlutoAt(kDay, state);
  EXPECT_EQ(state.earth_velocity.computations, 1u);
  EXPECT_TRUE(SameBytes(first, second));
  PlutoAt(kDay + 1.0, state);
  EXPECT_EQ(state.earth_velocity.computations, 2u);
  EXPECT_TRUE(SameBytes(first, PlutoAt(kDay, state)));
  EXPECT_EQ(state.earth_velocity.computations, 3u);
}

TEST(PlutoPosition, DoesNotDependOnEarlierCalls) {
  OrbitsState used;
  for (const double jd : {635487.3, kNan, 2415020.0, kJ2000, 1e300, 2488070.5}) {
    PlutoAt(jd, used);
  }
  for (const double jd : {kDay, kJ2000, 1721057.5}) {
    OrbitsState fresh;
    EXPECT_TRUE(SameBytes(PlutoAt(jd, used), PlutoAt(jd, fresh))) << jd;
  }
}

TEST(PlutoPosition, TheObserverChangesNoField) {
  OrbitsState state;
  const BodyPositionRecord expected = PlutoAt(kDay, state);
  for (const double longitude : {71.083, -1e300, kInfinity, kNan}) {
    for (const double latitude : {42.333, 90.0, -1e300, kNan}) {
      BodyPositionRecord record = UntouchedRecord();
      ComputePlutoPosition(kDay, longitude, latitude, state, record);
      EXPECT_TRUE(SameBytes(record, expected)) << longitude << " " << latitude;
    }
  }
}

TEST(PlutoPosition, KeptOnPurposeTheObserversLatitudeIsOverwritten) {
  OrbitsState state;
  BodyPositionRecord record = UntouchedRecord();
  ComputePlutoPosition(kDay, 10.0, 52.0, state, record);
  EXPECT_EQ(state.observer.longitude, 10.0);
  EXPECT_EQ(state.observer.geodetic_latitude, 0.0);
  EXPECT_EQ(state.observer.geocentric_latitude, 0.0);
  EXPECT_EQ(state.observer.geocentric_radius, 1.0);
}

TEST(PlutoPosition, AnglesStayWithinOneTurn) {
  OrbitsState state;
  for (int k = 0; k < 3000; ++k) {
    const double jd = kJ2000 + 365.25 * 5000.0 * (2.0 * k / 3000.0 - 1.0) + 0.37 * k;
    const BodyPositionRecord record = PlutoAt(jd, state);
    EXPECT_GE(record.RightAscension, 0.0);
    EXPECT_LT(record.RightAscension, 24.0);
    EXPECT_GE(record.GeoLongitude, 0.0);
    EXPECT_LT(record.GeoLongitude, 360.0);
    EXPECT_GE(record.HelioLongitude, 0.0);
    EXPECT_LT(record.HelioLongitude, 360.0);
  }
}

TEST(PlutoPosition, OfADayBeyondItsTheoryIsNoPlace) {
  // A million years away the polynomials of the series have run away: the distance is none of the
  // solar system's. Farther, and without a day, nothing is a number; every field is written all
  // the same.
  for (const double jd : {-1e9, 1e12, 1e300, -1e308, kInfinity, -kInfinity, kNan}) {
    OrbitsState state;
    const BodyPositionRecord record = PlutoAt(jd, state);
    EXPECT_FALSE(record.HelioDistance < 1e20) << jd;
    EXPECT_EQ(std::isnan(record.HelioDistance), !(std::fabs(jd) < 1e13)) << jd;
    for (const double field : {record.GeoLongitude, record.GeoLatitude, record.GeoDistance,
                               record.RightAscension, record.Declination}) {
      EXPECT_TRUE(std::isnan(field)) << jd;
    }
  }
  // Day 0 and the smallest number above it are one day.
  OrbitsState state;
  EXPECT_TRUE(SameBytes(PlutoAt(0.0, state), PlutoAt(5e-324, state)));
}

TEST(PlutoPosition, AtJ2000PrecessionChangesNothing) {
  // So the heliocentric place of date is that of J2000.0 turned by the obliquity alone.
  OrbitsState state;
  const BodyPositionRecord record = PlutoAt(kJ2000, state);
  const Spherical pluto = PropagateBody(kJ2000, state.pluto, state).ecliptic;
  EXPECT_NEAR(record.HelioLongitude, pluto.longitude * kDegreesPerRadian, 1e-13 * 360.0);
  EXPECT_NEAR(record.HelioLatitude, pluto.latitude * kDegreesPerRadian, 1e-13 * 360.0);
}

TEST(PlutoPosition, TheRecordsEndWithTheDaysOfTheirLastEvaluation) {
  OrbitsState state;
  PlutoAt(kDay, state);
  EXPECT_EQ(state.pluto.equinox, 2451545.0);
  EXPECT_EQ(state.earth.epoch, kDay - 0.005);
  const double light_time = LightTime(Length(state.pluto_vector - state.earth_vector),
                                      Length(state.earth_vector), Length(state.pluto_vector));
  EXPECT_NEAR(state.pluto.epoch, kDay - light_time, 1e-9);
  PropagateBody(2451000.5, state.pluto, state);
  EXPECT_EQ(state.pluto.epoch, 2451000.5);
}

TEST(PlutoPosition, KeptOnPurposeTheHeliocentricLongitudeCarriesNoNutation) {
  // 1992 October 13: dpsi is 15.9".
  OrbitsState state;
  const BodyPositionRecord record = PlutoAt(kDay, state);
  const Spherical pluto = PropagateBody(kDay, state.pluto, state).ecliptic;
  Rectangular v =
      PropagateBody(kDay, state.pluto, state).equatorial;  // precessed, and nothing else
  const Spherical of_date = EclipticPlaceFromJ2000(kDay, v, state.obliquity);
  EXPECT_EQ(record.HelioLongitude, of_date.longitude * kDegreesPerRadian);
  EXPECT_GT(std::fabs(state.nutation.angles.dpsi), 15.0 * kRadiansPerArcsecond);
  // Seven years of general precession, 50.3" each, lead back to J2000.0 within half an
  // arcsecond.
  EXPECT_NEAR(Arcseconds(pluto.longitude * kDegreesPerRadian - record.HelioLongitude),
              50.288 * (kJ2000 - kDay) / 365.25, 0.5);
}

TEST(PlutoPosition, KeptOnPurposeTheGeocentricPlaceIsTurnedByTheMeanObliquity) {
  // Against the place turned by the true obliquity: up to 3.0" and 9.9" over 1000 years.
  OrbitsState state;
  double worst_longitude = 0.0;
  double worst_latitude = 0.0;
  for (double jd = 2415020.5; jd < 2488000.0; jd += 131.3) {
    const BodyPositionRecord record = PlutoAt(jd, state);
    CachedObliquity(jd, state.obliquity);
    const double epsilon = state.obliquity.epsilon + state.nutation.angles.deps;
    const double alpha = record.RightAscension / kHoursPerRadian;
    const double delta = record.Declination * kRadiansPerDegree;
    const double latitude = std::asin(std::sin(delta) * std::cos(epsilon) -
                                      std::cos(delta) * std::sin(epsilon) * std::sin(alpha));
    const double longitude = std::atan2(
        std::sin(alpha) * std::cos(epsilon) + std::tan(delta) * std::sin(epsilon), std::cos(alpha));
    worst_longitude = std::max(
        worst_longitude,
        std::fabs(std::remainder(longitude * kDegreesPerRadian - record.GeoLongitude, 360.0)));
    worst_latitude =
        std::max(worst_latitude, std::fabs(latitude * kDegreesPerRadian - record.GeoLatitude));
  }
  EXPECT_GT(Arcseconds(worst_longitude), 2.5);
  EXPECT_LT(Arcseconds(worst_longitude), 3.1);
  EXPECT_GT(Arcseconds(worst_latitude), 9.0);
  EXPECT_LT(Arcseconds(worst_latitude), 10.0);
}

TEST(PlutoPosition, KeptOnPurposeTheDistanceIsThatOfThePlaceWhichTheLightLeft) {
  OrbitsState state;
  double worst = 0.0;
  for (double jd = 2415020.5; jd < 2488000.0; jd += 131.3) {
    const BodyPositionRecord record = PlutoAt(jd, state);
    EXPECT_NEAR(record.GeoDistance, state.geometry.earth_object, 1e-6);
    const Rectangular pluto = PropagateBody(jd, state.pluto, state).equatorial;
    worst = std::max(worst, std::fabs(record.GeoDistance - Length(pluto - state.earth_vector)));
  }
  EXPECT_GT(worst, 1.2e-4);
  EXPECT_LT(worst, 1.8e-4);
}

TEST(PlutoPosition, KeptOnPurposeDayMinusOneCountsAsCachedAtFirst) {
  OrbitsState fresh;
  const BodyPositionRecord first = PlutoAt(-1.0, fresh);
  EXPECT_EQ(fresh.earth_velocity.computations, 0u);
  EXPECT_EQ(Length(fresh.earth_velocity.velocity), 0.0);
  EXPECT_EQ(fresh.nutation.angles.dpsi, 0.0);
  OrbitsState used;
  PlutoAt(kJ2000, used);
  const BodyPositionRecord later = PlutoAt(-1.0, used);
  EXPECT_EQ(used.earth_velocity.computations, 2u);
  EXPECT_NEAR(Arcseconds(first.GeoLongitude - later.GeoLongitude), -39.2, 0.1);
}

TEST(PlutoPosition, KeepsItsDirectionInTheFrameOfB1950) {
  // B1950.0 is Julian day 2433282.423 (Lieske, Astronomy and Astrophysics 73, 1979). The unit
  // vector before gravity and aberration bend it.
  OrbitsState state;
  PlutoAt(kDay, state);
  Rectangular expected = (state.pluto_vector - state.earth_vector) / state.geometry.earth_object;
  PrecessVector(2433282.423, PrecessionDirection::kFromJ2000, state.obliquity, expected);
  EXPECT_EQ(Length(state.direction_b1950 - expected), 0.0);
  EXPECT_NEAR(Length(state.direction_b1950), 1.0, 1e-15);
}

TEST(PlutoPosition, LabelsTheCorrectionThatItDisplays) {
  OrbitsState state;
  PlutoAt(kDay, state);
  EXPECT_STREQ(state.display.label, "nutation");
  EXPECT_LT(std::fabs(state.display.dalpha), 20.0 * kRadiansPerArcsecond);
  EXPECT_GT(std::fabs(state.display.dalpha), 5.0 * kRadiansPerArcsecond);
  EXPECT_EQ(state.body, ZENITHOR_PLUTO);
  EXPECT_EQ(state.dynamical_day, kDay);
  EXPECT_EQ(state.universal_day, kDay);
  EXPECT_NEAR(state.light_speed, 173.14463, 1e-5);  // [au/day]
}

TEST(LightTime, KeptOnPurposeTwoIterations) {
  // A body so fast that each iteration moves it far: Pluto's third would be lost in the last bit of
  // the day.
  OrbitsState state;
  PlutoAt(kDay, state);
  state.pluto.series = nullptr;
  state.pluto.mean_longitude = 0.0;
  state.pluto.epoch = kDay - 10.0;
  state.pluto.daily_motion = 20.0;  // [deg]
  const auto pluto_at = [&](double day) {
    return PropagateBody(day, state.pluto, state).equatorial;
  };
  Rectangular vectors[4] = {pluto_at(kDay)};
  for (int k = 0; k < 3; ++k) {
    const Rectangular& q = vectors[k];
    vectors[k + 1] = pluto_at(
        kDay - LightTime(Length(q - state.earth_vector), Length(state.earth_vector), Length(q)));
  }
  state.pluto_vector = vectors[0];
  ApplyLightTime(state);
  EXPECT_EQ(Length(state.pluto_vector - vectors[2]), 0.0);
  EXPECT_GT(Length(vectors[2] - vectors[1]), 1e-3);  // [au]
  EXPECT_GT(Length(vectors[3] - vectors[2]), 1e-6);
}

// The state that a light-time step starts from: Earth and Pluto where they stand on the day.
void PlaceBodies(double julian_day, OrbitsState& state) {
  state.current_day = julian_day;
  state.earth_vector = PropagateBody(julian_day, state.earth, state).equatorial;
  state.pluto_vector = PropagateBody(julian_day, state.pluto, state).equatorial;
}

double RightAscensionOf(const Rectangular& v) { return std::atan2(v.y, v.x); }
double DeclinationOf(const Rectangular& v) { return std::atan2(v.z, std::hypot(v.x, v.y)); }

Rectangular SeenFromTheEarth(double julian_day) {
  OrbitsState state;
  PlaceBodies(julian_day, state);
  return state.pluto_vector - state.earth_vector;
}

// The first day after `from` on which Pluto, not yet corrected for light time, passes 0h of right
// ascension, to a thousandth of a day.
double PassageOfZeroHours(double from, double direction) {
  double before = from;
  for (; direction * RightAscensionOf(SeenFromTheEarth(before)) >= 0.0 ||
         direction * RightAscensionOf(SeenFromTheEarth(before + 1.0)) < 0.0 ||
         SeenFromTheEarth(before).x < 0.0;
       before += 1.0) {
  }
  double after = before + 1.0;
  while (after - before > 0.001) {
    const double middle = 0.5 * (before + after);
    const bool passed = direction * RightAscensionOf(SeenFromTheEarth(middle)) >= 0.0;
    (passed ? after : before) = middle;
  }
  return after;
}

TEST(LightTime, KeepsTheRatesOfTheApparentMotion) {
  // An ordinary day, and days on which the place that the light left lies on the other side of 0h,
  // of Pluto's direct and of its retrograde motion.
  const double direct = PassageOfZeroHours(2478000.5, 1.0);
  const double retrograde = PassageOfZeroHours(direct, -1.0);
  for (const double day : {kDay, direct, retrograde}) {
    OrbitsState state;
    PlaceBodies(day, state);
    const Rectangular earth = state.earth_vector;
    const Rectangular geometric = state.pluto_vector - earth;
    ApplyLightTime(state);
    const Rectangular left = state.pluto_vector - earth;
    EXPECT_EQ(Length(state.correction - (left - geometric)), 0.0) << day;
    EXPECT_GT(Length(state.correction), 1e-4) << day;  // [au]

    // From the geometric direction to that of the moment when the light left: the motion backward.
    const double light_time = LightTime(Length(left), Length(earth), Length(state.pluto_vector));
    const Rectangular then = left + light_time * state.earth_velocity.velocity;
    const double alpha =
        std::remainder(RightAscensionOf(then) - RightAscensionOf(geometric), kTwoPi);
    const double delta = DeclinationOf(then) - DeclinationOf(geometric);
    // Angles of 1e-16 rad over a sixth of a day.
    EXPECT_NEAR(state.alpha_rate, alpha / light_time, 1e-13) << day;
    EXPECT_NEAR(state.delta_rate, delta / light_time, 1e-13) << day;

    // The Earth went straight on for that time: 1e-5 au off its way.
    const Rectangular seen_then = SeenFromTheEarth(day - light_time);
    const double motion =
        std::remainder(RightAscensionOf(geometric) - RightAscensionOf(seen_then), kTwoPi);
    EXPECT_NEAR(-state.alpha_rate, motion / light_time, 3e-6) << day;
    EXPECT_GT(std::fabs(state.alpha_rate), 1e-4) << day;
  }
  EXPECT_LT(RightAscensionOf(SeenFromTheEarth(direct - 0.1)), 0.0);
  EXPECT_GT(RightAscensionOf(SeenFromTheEarth(retrograde - 0.1)), 0.0);
}

TEST(ChangeOfDirection, GoesTheShortWayAcrossZeroHours) {
  const Rectangular below{std::cos(0.01), -std::sin(0.01), 0.1};
  const Rectangular above{std::cos(0.02), std::sin(0.02), -0.1};
  EXPECT_NEAR(ChangeOfDirection(below, above).alpha, 0.03, 1e-15);
  EXPECT_NEAR(ChangeOfDirection(above, below).alpha, -0.03, 1e-15);
  EXPECT_NEAR(ChangeOfDirection(below, above).delta, -2.0 * std::atan(0.1), 1e-15);
  EXPECT_EQ(ChangeOfDirection(above, above).alpha, 0.0);
}

TEST(LightTime, KeptOnPurposeTheSunsTermIsNotThatOfTheDeflection) {
  // Light that grazes the Sun, from 30 au: its delay in the logarithm's unit is 1.97e-8 au.
  const double e = 1.0;
  const double q = 30.0;
  const double p = std::sqrt(e * e + q * q + 2.0 * e * q * std::cos(0.00465));
  const double logarithm = std::log((e + p + q) / (e - p + q));
  const double delay = LightTime(p, e, q) / kLightDaysPerAu - p;
  EXPECT_NEAR(delay / logarithm, 1.97e-8, 1e-15);
  EXPECT_GT(std::fabs(delay / logarithm - 1.974e-8), 3e-11);
  // Published: the light time is 499.00478 s for the unit distance.
  EXPECT_NEAR(kLightDaysPerAu * 86400.0, 499.00478, 1e-5);
}

TEST(DeflectLight, BendsAGrazingRayBySevenQuartersOfAnArcsecond) {
  // Einstein's 1.75" at the Sun's limb, 959.63" from its centre, for an object far behind it; the
  // term 1.974e-8 makes it 1.7504".
  const double limb = 959.63 * kRadiansPerArcsecond;
  const Rectangular e{1.0, 0.0, 0.0};
  const Rectangular p{-std::cos(limb), std::sin(limb), 0.0};
  const Rectangular q = e + 1e6 * p;
  const Rectangular bent = DeflectLight(p, e, q, MeasureTriangle(1e6 * p, e, q));
  const double angle = (std::atan2(bent.y, -bent.x) - limb) / kRadiansPerArcsecond;
  EXPECT_NEAR(angle, 1.750, 0.001);
}

TEST(AberrateLight, TurnsTowardsTheMotionByTheConstantOfAberration) {
  // 20.4955" for the Earth's mean speed; to first order v / c, with the unit length kept.
  const double v = 20.4955 * kRadiansPerArcsecond;
  const Rectangular seen = AberrateLight({1.0, 0.0, 0.0}, {0.0, v, 0.0});
  EXPECT_NEAR(std::atan2(seen.y, seen.x) / kRadiansPerArcsecond, 20.4955, 1e-6);
  EXPECT_NEAR(Length(seen), 1.0, 1e-15);
  const Rectangular along = AberrateLight({0.0, 1.0, 0.0}, {0.0, v, 0.0});
  EXPECT_EQ(along.x, 0.0);
  EXPECT_NEAR(Length(along), 1.0, 1e-15);
}

TEST(EarthVelocity, KeptOnPurposeIsADifferenceBackwards) {
  OrbitsState state;
  double worst = 0.0;
  for (double jd = 2451545.25; jd < 2455197.0; jd += 61.7) {
    PlutoAt(jd, state);
    const Rectangular backward = state.earth_velocity.velocity;
    const Rectangular after = PropagateBody(jd + 0.005, state.earth, state).equatorial;
    const Rectangular before = PropagateBody(jd - 0.005, state.earth, state).equatorial;
    worst = std::max(worst, Length((after - before) / 0.01 - backward) / state.light_speed);
    EXPECT_NEAR(Length(backward), 0.0172, 0.0004);
  }
  EXPECT_GT(worst / kRadiansPerArcsecond, 0.0005);
  EXPECT_LT(worst / kRadiansPerArcsecond, 0.00095);
}

TEST(TopocentricStep, MovesAnObjectByItsParallaxAndDiurnalAberration) {
  PlutoObserver observer;
  DeriveObserver(observer);
  // On the equator with the object in the meridian only diurnal aberration is left: 0.3200" cos 0.
  const double theta = 4.894961212735793;  // 18.697374558 h, mean sidereal time at J2000.0
  TopocentricPlace place = ComputeTopocentric(theta, 0.0, 30.0, kJ2000, observer);
  EXPECT_NEAR((place.alpha - theta) / kRadiansPerArcsecond, 0.3200, 2e-4);
  EXPECT_NEAR(place.delta, 0.0, 1e-15);
  // Setting, the parallax 8.794" / 30 moves it by 0.293" towards the horizon, the west.
  place = ComputeTopocentric(theta - kPi / 2.0, 0.0, 30.0, kJ2000, observer);
  EXPECT_NEAR((place.alpha - (theta - kPi / 2.0)) / kRadiansPerArcsecond, -8.794 / 30.0, 2e-4);
}

TEST(TopocentricStep, DerivesTheGeocentricLatitude) {
  // Meeus, chapter 11: at 45 degrees the geocentric latitude is 11.5' smaller and the
  // radius 0.9983271 + 0.0000035.
  PlutoObserver observer;
  observer.geodetic_latitude = 45.0;
  DeriveObserver(observer);
  EXPECT_NEAR((45.0 - observer.geocentric_latitude) * 60.0, 11.545, 0.005);
  EXPECT_NEAR(observer.geocentric_radius, 0.9983306, 1e-7);
  observer.geodetic_latitude = -45.0;
  DeriveObserver(observer);
  EXPECT_NEAR((45.0 + observer.geocentric_latitude) * 60.0, 11.545, 0.005);
}

}  // namespace
}  // namespace zenithor
