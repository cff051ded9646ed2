// A body's heliocentric place from its record, by series or on a conic.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "numerics/constants.h"
#include "orbits/planet_series.h"
#include "orbits/precession.h"
#include "orbits/propagate_body.h"
#include "orbits/vectors.h"
#include "time/constants.h"

namespace zenithor {
namespace {

void ExpectElements(const OrbitalElementRecord& actual, const OrbitalElementRecord& listed) {
  EXPECT_EQ(actual.epoch, listed.epoch);
  EXPECT_EQ(actual.inclination, listed.inclination);
  EXPECT_EQ(actual.node, listed.node);
  EXPECT_EQ(actual.argument_of_perihelion, listed.argument_of_perihelion);
  EXPECT_EQ(actual.semi_major_axis, listed.semi_major_axis);
  EXPECT_EQ(actual.daily_motion, listed.daily_motion);
  EXPECT_EQ(actual.eccentricity, listed.eccentricity);
  EXPECT_EQ(actual.mean_anomaly, listed.mean_anomaly);
  EXPECT_EQ(actual.equinox, listed.equinox);
  EXPECT_EQ(actual.absolute_magnitude, listed.absolute_magnitude);
  EXPECT_EQ(actual.semidiameter, listed.semidiameter);
  EXPECT_EQ(actual.series, listed.series);
  EXPECT_EQ(actual.mean_longitude, listed.mean_longitude);
  EXPECT_EQ(actual.radius, listed.radius);
  EXPECT_EQ(actual.unused, listed.unused);
}

// Every element, written down once more and by its name.
TEST(ElementRecords, StartAsListed) {
  OrbitalElementRecord earth{};
  earth.epoch = 2446800.5;
  earth.argument_of_perihelion = 102.884;
  earth.semi_major_axis = 0.999999;
  earth.daily_motion = 0.985611;
  earth.eccentricity = 0.016713;
  earth.mean_anomaly = 1.1791;
  earth.equinox = 2446800.5;
  earth.absolute_magnitude = -3.86;
  earth.series = &kEarthMoonBarycentreSeries;
  const OrbitsState state;
  ExpectElements(state.earth, earth);
  EXPECT_STREQ(state.earth.name, "Earth          ");

  OrbitalElementRecord pluto{};
  pluto.epoch = 2446640.5;
  pluto.inclination = 17.1346;
  pluto.node = 110.204;
  pluto.argument_of_perihelion = 114.21;
  pluto.semi_major_axis = 39.4633;
  pluto.daily_motion = 0.0039757;
  pluto.eccentricity = 0.248662;
  pluto.mean_anomaly = 355.0554;
  pluto.equinox = 2446640.5;
  pluto.absolute_magnitude = -1.0;
  pluto.semidiameter = 2.07;
  pluto.series = &kPlutoSeries;
  ExpectElements(state.pluto, pluto);
  EXPECT_STREQ(state.pluto.name, "Pluto          ");
}

TEST(PropagateBody, TheSeriesWayRewritesFourFieldsOfTheRecord) {
  OrbitsState state;
  PropagateBody(2460000.25, state.pluto, state);
  OrbitalElementRecord expected = kPlutoElements;
  SeriesScratch scratch;
  const Spherical place = EvaluatePlanetSeries(2460000.25, kPlutoSeries, scratch);
  expected.epoch = 2460000.25;
  expected.equinox = 2451545.0;
  expected.mean_longitude = place.longitude;
  expected.radius = place.radius;
  EXPECT_EQ(std::memcmp(&state.pluto, &expected, sizeof expected), 0);
}

TEST(PropagateBody, GivesTheSamePlaceTwiceOnTheSeriesWay) {
  OrbitsState state;
  for (OrbitalElementRecord* record : {&state.earth, &state.pluto}) {
    const HeliocentricPlace first = PropagateBody(2433000.5, *record, state);
    PropagateBody(2466000.5, *record, state);
    const HeliocentricPlace second = PropagateBody(2433000.5, *record, state);
    EXPECT_EQ(std::memcmp(&first, &second, sizeof first), 0) << record->name;
  }
}

TEST(PropagateBody, KnowsTheEarthByIdentityNotByName) {
  OrbitsState state;
  const HeliocentricPlace earth = PropagateBody(kJ2000, state.earth, state);
  OrbitalElementRecord copy = kEarthElements;
  const HeliocentricPlace other = PropagateBody(kJ2000, copy, state);
  // The copy is evaluated like any other body's record: by the mean longitudes of the planets, the
  // Moon's arguments at 0, its coefficients unscaled, no share of the Moon removed.
  SeriesScratch scratch;
  const Spherical plain = EvaluatePlanetSeries(kJ2000, kEarthMoonBarycentreSeries, scratch);
  EXPECT_EQ(copy.radius, plain.radius);
  EXPECT_GT(Length(earth.equatorial - other.equatorial), 1e-3);
  std::memcpy(state.earth.name, "Pluto          ", sizeof state.earth.name);
  const HeliocentricPlace renamed = PropagateBody(kJ2000, state.earth, state);
  EXPECT_EQ(std::memcmp(&earth, &renamed, sizeof earth), 0);
}

TEST(PropagateBody, ItsTwoPlacesAreOne) {
  OrbitsState state;
  for (OrbitalElementRecord* record : {&state.earth, &state.pluto}) {
    const HeliocentricPlace place = PropagateBody(2444444.4, *record, state);
    EXPECT_NEAR(place.ecliptic.radius, Length(place.equatorial), 1e-14);
    EXPECT_GE(place.ecliptic.longitude, 0.0);
    EXPECT_LT(place.ecliptic.longitude, kTwoPi);
    const Rectangular back =
        EclipticToEquator(SphericalToRectangular(place.ecliptic), state.obliquity);
    EXPECT_NEAR(Length(back - place.equatorial), 0.0, 2e-14) << record->name;
  }
}

TEST(PropagateBody, MeetsTheBookOnAConic) {
  // Meeus, example 33.b, comet Encke on 1990 October 6.0: a 2.2091404, e 0.8502196, i 11.94524,
  // node 334.75006, perihelion 186.23352 (equinox J2000.0), perihelion passage October 28.54502;
  // X +0.2508066, Y +0.4849175, Z +0.3573373, r 0.6524867. The obliquity here is 0.04" smaller,
  // which turns Y and Z by 1e-7.
  OrbitsState state;
  OrbitalElementRecord comet{};
  comet.epoch = 2448193.04502;
  comet.inclination = 11.94524;
  comet.node = 334.75006;
  comet.argument_of_perihelion = 186.23352;
  comet.semi_major_axis = 2.2091404;
  comet.eccentricity = 0.8502196;
  comet.equinox = kJ2000;
  const OrbitalElementRecord before = comet;
  const HeliocentricPlace place = PropagateBody(2448170.5, comet, state);
  EXPECT_NEAR(place.equatorial.x, 0.2508066, 1e-7);
  EXPECT_NEAR(place.equatorial.y, 0.4849175, 2e-7);
  EXPECT_NEAR(place.equatorial.z, 0.3573373, 2e-7);
  EXPECT_NEAR(place.ecliptic.radius, 0.6524867, 1e-7);
  EXPECT_EQ(std::memcmp(&comet, &before, sizeof comet), 0);  // the conic way rewrites nothing
}

TEST(PropagateBody, PrecessesAConicFromItsEquinox) {
  OrbitsState state;
  OrbitalElementRecord body{};
  body.semi_major_axis = 2.0;
  body.eccentricity = 0.3;
  body.inclination = 8.0;
  body.equinox = 2433282.423;
  Rectangular expected;
  {
    OrbitalElementRecord same = body;
    same.equinox = kJ2000;
    const Rectangular ecliptic = SphericalToRectangular(PropagateBody(100.0, same, state).ecliptic);
    ObliquityCache obliquity;
    CachedObliquity(body.equinox, obliquity);
    expected = EclipticToEquator(ecliptic, obliquity);
    PrecessVector(body.equinox, PrecessionDirection::kToJ2000, obliquity, expected);
  }
  const Rectangular actual = PropagateBody(100.0, body, state).equatorial;
  EXPECT_NEAR(Length(actual - expected), 0.0, 1e-14);
  EXPECT_EQ(body.equinox, 2433282.423);
}

}  // namespace
}  // namespace zenithor
