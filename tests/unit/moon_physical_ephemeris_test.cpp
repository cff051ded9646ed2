#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "ephemeris/series.h"
#include "moon/lunar_arguments.h"
#include "moon/lunar_series.h"
#include "moon/physical_ephemeris.h"
#include "moon/physical_libration.h"
#include "numerics/constants.h"
#include "support/expect_published.h"
#include "support/extended.h"
#include "support/full_store.h"
#include "support/text_files.h"
#include "time/julian_day.h"
#include "time/nutation.h"
#include "time/obliquity.h"

namespace zenithor {
namespace {

using testing::ExpectPublished;
using testing::FullStore;
using testing::kExtendedDegree;
using testing::Published;

constexpr double kExampleDay = 2448724.5;  // 1992 April 12, 0h TD
constexpr double kEquatorInclination = 1.54242 * kRadiansPerDegree;
constexpr double kKmPerAu = 149597870.0;

// Everything that the physical ephemeris of a moment is made of.
struct Moment {
  double t;
  LunarArguments arguments;
  LunarPosition moon;
  Spherical sun;
  double epsilon0;
  NutationAngles nutation;
};

Moment At(double julian_day) {
  const double t = JulianCenturies(julian_day);
  return {t,
          ComputeLunarArguments(t),
          ComputeLunarPosition(t),
          EvaluateSunGeocentric(FullStore(), kEarthSlot, t),
          MeanObliquity(t),
          Nutation(t)};
}

MoonPhysicalEphemeris PhysicalOf(const Moment& m) {
  return ComputeMoonPhysicalEphemeris(m.t, m.moon, m.sun, m.epsilon0, m.nutation);
}

// The days that the comparisons run over: irregular in phase, over -1000 to +5000.
std::vector<double> SampleDays(int count = 1000) {
  std::vector<double> days;
  for (int k = 0; k < count; ++k) {
    days.push_back(2451545.0 - 3000.0 * 365.25 + k * (2191718.75 / count));
  }
  return days;
}

// So many of them come close to the largest value that there is.
constexpr int kManyDays = 30000;

TEST(MoonPhysicalEphemeris, MeetsTheWorkedExamples) {
  const MoonPhysicalEphemeris physical = PhysicalOf(At(kExampleDay));
  ExpectPublished("53.a", "optical libration in longitude",
                  physical.optical_libration_longitude * kDegreesPerRadian);
  ExpectPublished("53.a", "optical libration in latitude",
                  physical.optical_libration_latitude * kDegreesPerRadian);
  ExpectPublished("53.a", "physical libration in longitude",
                  physical.physical_libration_longitude * kDegreesPerRadian);
  ExpectPublished("53.a", "physical libration in latitude",
                  physical.physical_libration_latitude * kDegreesPerRadian);
  ExpectPublished("53.a", "libration in longitude",
                  physical.libration_longitude * kDegreesPerRadian);
  ExpectPublished("53.a", "libration in latitude", physical.libration_latitude * kDegreesPerRadian);
  ExpectPublished("48.a", "bright limb", physical.bright_limb_position_angle * kDegreesPerRadian);

  ExpectPublished("53.a", "MoonAxisPositionAngle", physical.axis_position_angle);
  ExpectPublished("48.a", "MoonPhaseAngle", physical.phase_angle);
  ExpectPublished("48.a", "MoonIlluminatedFraction", physical.illuminated_fraction);
}

TEST(MoonPhysicalLibration, MeetsTheWorkedExample) {
  const Moment m = At(kExampleDay);
  const MoonPhysicalLibration libration = ComputeMoonPhysicalLibration(m.t, m.arguments);
  ExpectPublished("53.a", "rho", libration.rho * kDegreesPerRadian);
  ExpectPublished("53.a", "sigma", libration.sigma * kDegreesPerRadian);
  ExpectPublished("53.a", "tau", libration.tau * kDegreesPerRadian);
}

// With the published argument Mprime - M - D in the twelfth term the example comes out as printed,
// to its last digit; with the doubled D it is 0.00006 degree less.
TEST(MoonPhysicalLibration, KeptOnPurposeElongationIsDoubledInTheTwelfthTermOfTau) {
  const Moment m = At(kExampleDay);
  const double tau = ComputeMoonPhysicalLibration(m.t, m.arguments).tau * kDegreesPerRadian;
  const LunarArguments& a = m.arguments;
  const double doubled = -0.00032 * std::sin(a.Mprime - a.M - 2.0 * a.D);
  const double single = -0.00032 * std::sin(a.Mprime - a.M - a.D);
  const double printed = Published("53.a", "tau").value;
  EXPECT_NEAR(tau - doubled + single, printed, 0.000005);
  EXPECT_GT(std::fabs(tau - printed), 0.00005);

  double largest = 0.0;
  for (const double day : SampleDays()) {
    const LunarArguments b = At(day).arguments;
    largest = std::fmax(
        largest, std::fabs(std::sin(b.Mprime - b.M - 2.0 * b.D) - std::sin(b.Mprime - b.M - b.D)));
  }
  EXPECT_NEAR(0.00032 * largest, 0.00064, 0.000002);
}

// The same terms read from their text, in long double. Sums of at most 0.062 degree: 1e-16 rad is
// what double keeps of them, ten times that is allowed.
TEST(MoonPhysicalLibration, AgreesWithALongDoubleSumOverThePublishedTerms) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : testing::LinesOf("data/lunar/physical-libration.csv")) {
    rows.push_back(testing::Split(line, ','));
  }
  for (double t = -30.0; t <= 30.0; t += 0.171875) {
    const LunarArguments a = ComputeLunarArguments(t);
    const long double values[] = {
        static_cast<long double>(a.D),
        static_cast<long double>(a.M),
        static_cast<long double>(a.Mprime),
        static_cast<long double>(a.F),
        static_cast<long double>(a.Omega),
        (119.75L + 131.849L * static_cast<long double>(t)) * kExtendedDegree,
        (72.56L + 20.186L * static_cast<long double>(t)) * kExtendedDegree};
    const auto sum_of = [&](const std::string& quantity) {
      long double sum = 0.0L;
      for (const auto& row : rows) {
        if (row.at(0) != quantity) {
          continue;
        }
        long double argument = 0.0L;
        for (std::size_t k = 0; k < 7; ++k) {
          argument += std::stold(row.at(3 + k)) * values[k];
        }
        const long double function = row.at(2) == "sin" ? std::sin(argument) : std::cos(argument);
        const long double factor = row.at(10) == "1" ? static_cast<long double>(a.E) : 1.0L;
        sum += std::stold(row.at(1)) * function * factor;
      }
      return static_cast<double>(sum * kExtendedDegree);
    };
    const MoonPhysicalLibration libration = ComputeMoonPhysicalLibration(t, a);
    ASSERT_NEAR(libration.rho, sum_of("rho"), 1e-15) << t;
    ASSERT_NEAR(libration.sigma, sum_of("sigma"), 1e-15) << t;
    ASSERT_NEAR(libration.tau, sum_of("tau"), 1e-15) << t;
  }
}

struct Vector {
  double x, y, z;
};

double Dot(const Vector& a, const Vector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

Vector Direction(double longitude, double latitude) {
  return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude),
          std::sin(latitude)};
}

Vector ToEquator(const Vector& v, double epsilon) {
  return {v.x, v.y * std::cos(epsilon) - v.z * std::sin(epsilon),
          v.y * std::sin(epsilon) + v.z * std::cos(epsilon)};
}

// The north pole of the lunar equator: a quarter turn past the node of the orbit, where by
// Cassini's laws the equator descends through the ecliptic.
Vector LunarPole(double node, double inclination) {
  return Direction(node + kPi / 2.0, kPi / 2.0 - inclination);
}

// East and north on the sky at a place given by its direction (equatorial).
struct SkyAxes {
  Vector east, north;
};

SkyAxes AxesAt(const Vector& place) {
  const double across = std::hypot(place.x, place.y);
  const Vector east{-place.y / across, place.x / across, 0.0};
  return {east, {-place.z * east.y, place.z * east.x, across}};
}

// Angles of order 1 from double vectors: 1e-15 a step, and the arcsine of a latitude of up to 7
// degrees loses nothing; a thousandfold is allowed.
constexpr double kVectorTolerance = 1e-12;

Vector MoonOf(const Moment& m) { return Direction(m.moon.lambda, m.moon.beta); }

// The Earth's longitude over the mean lunar globe, counted from the node of its equator [rad].
double EarthFromTheNode(const Moment& m) {
  // Axes of the lunar equator: toward the node, and at right angles to it.
  const double node = m.arguments.Omega;
  const Vector pole = LunarPole(node, kEquatorInclination);
  const Vector to_node = Direction(node, 0.0);
  const Vector across{pole.y * to_node.z - pole.z * to_node.y,
                      pole.z * to_node.x - pole.x * to_node.z,
                      pole.x * to_node.y - pole.y * to_node.x};
  return std::atan2(Dot(MoonOf(m), across), Dot(MoonOf(m), to_node));
}

TEST(MoonPhysicalEphemeris, OpticalLibrationInLatitudeIsTheTiltOfThePole) {
  for (const double day : SampleDays()) {
    const Moment m = At(day);
    const Vector pole = LunarPole(m.arguments.Omega, kEquatorInclination);
    const double tilt = -std::asin(Dot(pole, MoonOf(m)));
    ASSERT_NEAR(PhysicalOf(m).optical_libration_latitude, tilt, kVectorTolerance) << day;
  }
}

TEST(MoonPhysicalEphemeris, OpticalLibrationInLongitudeIsTheEarthsPlaceOverTheMeanMeridian) {
  for (const double day : SampleDays()) {
    const Moment m = At(day);
    const double expected = std::remainder(EarthFromTheNode(m) - m.arguments.F, kTwoPi);
    ASSERT_NEAR(PhysicalOf(m).optical_libration_longitude, expected, kVectorTolerance) << day;
    ASSERT_LT(std::fabs(expected) * kDegreesPerRadian, 9.0) << day;
  }
}

TEST(MoonPhysicalEphemeris, PhysicalLibrationsTurnTheEarthsPlaceOverTheGlobe) {
  for (const double day : SampleDays()) {
    const Moment m = At(day);
    const MoonPhysicalLibration libration = ComputeMoonPhysicalLibration(m.t, m.arguments);
    // Of the Earth over the mean lunar globe: the longitude from the node and the latitude.
    const double from_node = EarthFromTheNode(m);
    const double latitude =
        -std::asin(Dot(LunarPole(m.arguments.Omega, kEquatorInclination), MoonOf(m)));
    const double along =
        libration.rho * std::cos(from_node) + libration.sigma * std::sin(from_node);
    const double across =
        libration.sigma * std::cos(from_node) - libration.rho * std::sin(from_node);
    const MoonPhysicalEphemeris physical = PhysicalOf(m);
    ASSERT_NEAR(physical.physical_libration_longitude, -libration.tau + along * std::tan(latitude),
                kVectorTolerance)
        << day;
    ASSERT_NEAR(physical.physical_libration_latitude, across, kVectorTolerance) << day;
    ASSERT_EQ(physical.libration_longitude,
              physical.optical_libration_longitude + physical.physical_libration_longitude);
    ASSERT_EQ(physical.libration_latitude,
              physical.optical_libration_latitude + physical.physical_libration_latitude);
    // The same from the globe whose node and inclination sigma and rho have moved: the tilt of its
    // pole, but for half the square of the node's motion (2 degrees) times the inclination.
    const double sine = std::sin(kEquatorInclination);
    const Vector pole =
        LunarPole(m.arguments.Omega + libration.sigma / sine, kEquatorInclination + libration.rho);
    ASSERT_NEAR(physical.libration_latitude, -std::asin(Dot(pole, MoonOf(m))), 1.7e-5) << day;
  }
}

// The pole's component toward the east on the sky, and how far the pole is tilted.
struct AxisOnTheSky {
  double east_component;
  double tilt;
};

AxisOnTheSky AxisOf(const Moment& m) {
  const MoonPhysicalLibration libration = ComputeMoonPhysicalLibration(m.t, m.arguments);
  const double epsilon = m.epsilon0 + m.nutation.deps;
  const double node =
      m.arguments.Omega + m.nutation.dpsi + libration.sigma / std::sin(kEquatorInclination);
  const Vector pole = ToEquator(LunarPole(node, kEquatorInclination + libration.rho), epsilon);
  const Vector moon = ToEquator(Direction(m.moon.lambda + m.nutation.dpsi, m.moon.beta), epsilon);
  return {Dot(pole, AxesAt(moon).east), -std::asin(Dot(pole, moon))};
}

TEST(MoonPhysicalEphemeris, KeptOnPurposeAxisIsDividedByTheEclipticLatitude) {
  double largest = 0.0;
  for (const double day : SampleDays(kManyDays)) {
    const Moment m = At(day);
    const AxisOnTheSky axis = AxisOf(m);
    const double kept = PhysicalOf(m).axis_position_angle;
    ASSERT_NEAR(kept, std::asin(axis.east_component / std::cos(m.moon.beta)), kVectorTolerance);
    const double published = std::asin(axis.east_component / std::cos(axis.tilt));
    largest = std::fmax(largest, std::fabs(kept - published) * kDegreesPerRadian);
  }
  EXPECT_NEAR(largest, 0.075, 0.001);
}

TEST(MoonPhysicalEphemeris, BrightLimbPointsTowardTheSun) {
  for (const double day : SampleDays()) {
    const Moment m = At(day);
    const double epsilon = m.epsilon0 + m.nutation.deps;
    const SkyAxes axes =
        AxesAt(ToEquator(Direction(m.moon.lambda + m.nutation.dpsi, m.moon.beta), epsilon));
    const Vector sun = ToEquator(Direction(m.sun.longitude, m.sun.latitude), epsilon);
    const double expected = std::atan2(Dot(sun, axes.east), Dot(sun, axes.north));
    const double chi = PhysicalOf(m).bright_limb_position_angle;
    // Close to new and full moon the direction itself is ill determined.
    const double sine = std::hypot(Dot(sun, axes.east), Dot(sun, axes.north));
    ASSERT_NEAR(std::remainder(chi - expected, kTwoPi), 0.0, kVectorTolerance / sine) << day;
    ASSERT_GE(chi, 0.0);
    ASSERT_LT(chi, kTwoPi);
  }
}

// The angle at the Moon between the Earth and the Sun, from the plane triangle [rad].
double AngleAtTheMoon(const Moment& m, double sun_longitude) {
  const double distance = m.moon.distance_km / kKmPerAu;
  const Vector moon = Direction(m.moon.lambda + m.nutation.dpsi, m.moon.beta);
  const Vector sun = Direction(sun_longitude, 0.0);  // its latitude, below 1", is left out
  const double cos_psi = Dot(moon, sun);
  const double sin_psi = std::sqrt(std::fmax(0.0, (1.0 - cos_psi) * (1.0 + cos_psi)));
  return std::atan2(m.sun.radius * sin_psi, distance - m.sun.radius * cos_psi);
}

TEST(MoonPhysicalEphemeris, KeptOnPurposePhaseAngleTakesTheSunsLongitudeWithoutNutation) {
  double largest = 0.0;
  double largest_with_aberration = 0.0;
  for (const double day : SampleDays(kManyDays)) {
    const Moment m = At(day);
    const double kept = PhysicalOf(m).phase_angle;
    // The arccosine of the elongation is good to 1e-16 / sin psi, and psi is 0.1 degree at least.
    ASSERT_NEAR(kept, AngleAtTheMoon(m, m.sun.longitude), 1e-12) << day;
    const double both = AngleAtTheMoon(m, m.sun.longitude + m.nutation.dpsi);
    largest = std::fmax(largest, std::fabs(kept - both) * kDegreesPerRadian * 3600.0);
    // Meeus, formula 25.10.
    const double aberration = -20.4898 / m.sun.radius / 3600.0 * kRadiansPerDegree;
    const double apparent = AngleAtTheMoon(m, m.sun.longitude + m.nutation.dpsi + aberration);
    largest_with_aberration =
        std::fmax(largest_with_aberration, std::fabs(kept - apparent) * kDegreesPerRadian * 3600.0);
  }
  EXPECT_NEAR(largest, 19.3, 0.2);
  EXPECT_NEAR(largest_with_aberration, 40.0, 0.5);
}

TEST(MoonPhysicalEphemeris, IsNearlyDarkInTheClosestConjunctionOfTwoCenturies) {
  // The smallest and the largest elongation among the eighths of a day of 1900 to 2099.
  const MoonPhysicalEphemeris dark = PhysicalOf(At(2427305.75));
  EXPECT_NEAR(dark.phase_angle, kPi, 0.0021);
  EXPECT_LT(dark.illuminated_fraction, 1.1e-6);
  EXPECT_GT(dark.illuminated_fraction, 0.0);
  const MoonPhysicalEphemeris full = PhysicalOf(At(2419849.0));
  EXPECT_NEAR(full.phase_angle, 0.0, 0.0030);
  EXPECT_GT(full.illuminated_fraction, 1.0 - 2.2e-6);
  EXPECT_LT(full.illuminated_fraction, 1.0);
}

TEST(MoonPhysicalEphemeris, LiftsANegativeArctangentByPi) {
  // Waxing crescent, 1992 April 6: the Sun is nearer to the Moon's direction than a right angle.
  const Moment m = At(2448718.5);
  const double elongation = std::acos(std::cos(m.moon.lambda + m.nutation.dpsi - m.sun.longitude) *
                                      std::cos(m.moon.beta));
  const double distance = m.moon.distance_km / kKmPerAu;
  const double arctangent = std::atan(m.sun.radius * std::sin(elongation) /
                                      (distance - m.sun.radius * std::cos(elongation)));
  ASSERT_LT(arctangent, 0.0);
  EXPECT_NEAR(PhysicalOf(m).phase_angle, arctangent + kPi, kVectorTolerance);
}

}  // namespace
}  // namespace zenithor
