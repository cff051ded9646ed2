// Motion on ellipse, parabola and hyperbola.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
#include "orbits/conic.h"
#include "time/constants.h"

namespace zenithor {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// A record without a series, epoch 0, equinox J2000.0, that lies in the ecliptic with its
// perihelion at longitude 0. `size` is a for an ellipse, q otherwise.
OrbitalElementRecord Conic(double size, double eccentricity) {
  OrbitalElementRecord record{};
  record.semi_major_axis = size;
  record.eccentricity = eccentricity;
  record.equinox = kJ2000;
  return record;
}

double TrueAnomalyDegrees(double days, OrbitalElementRecord record) {
  return MoveOnConic(days, record).u * kDegreesPerRadian;
}

TEST(SolveEllipse, MeetsTheBook) {
  // Meeus, chapter 30: example 30.b, the two difficult cases of its table, and the value that
  // programs must give for e = 0.99, M = 0.2 radian. Tolerances are the printed digits.
  const double d = kRadiansPerDegree;
  EXPECT_NEAR(SolveEllipse(5.0 * d, 0.1) / d, 5.554589254, 1e-9);
  EXPECT_NEAR(SolveEllipse(2.0 * d, 0.99) / d, 32.361007, 1e-6);
  EXPECT_NEAR(SolveEllipse(7.0 * d, 0.999) / d, 52.2702615, 1e-7);
  EXPECT_NEAR(SolveEllipse(0.2, 0.99), 1.066997365282, 1e-12);
}

TEST(SolveEllipse, KeptOnPurposeMakesOneMoreStep) {
  // The first guess, E = M, is already within the tolerance here; the step is still made.
  const double e = 5e-12;
  EXPECT_NE(SolveEllipse(1.0, e), 1.0);
  EXPECT_NEAR(SolveEllipse(1.0, e), 1.0 + e * std::sin(1.0), 2e-16);
}

TEST(MoveOnConic, MeetsTheBookOnAParabola) {
  // Meeus, example 34.a: q = 1.487469, 112.5642 days after perihelion.
  OrbitalElementRecord record = Conic(1.487469, 1.0);
  const OrbitAngles place = MoveOnConic(112.5642, record);
  EXPECT_NEAR(place.u * kDegreesPerRadian, 66.78862, 5e-6);
  EXPECT_NEAR(place.radius, 2.133911, 5e-7);
  record = Conic(0.921326, 1.0);
  EXPECT_NEAR(TrueAnomalyDegrees(138.4783, record), 102.74426, 5e-6);
}

TEST(MoveOnConic, MeetsTheBookOnAHyperbola) {
  // Meeus, chapter on near-parabolic motion, table of cases: q = 3.363943, e = 1.05731, 1237.1
  // days: v = 109.40598 degrees, r = 10.668551 au.
  OrbitalElementRecord record = Conic(3.363943, 1.05731);
  const OrbitAngles place = MoveOnConic(1237.1, record);
  EXPECT_NEAR(place.u * kDegreesPerRadian, 109.40598, 5e-6);
  EXPECT_NEAR(place.radius, 10.668551, 5e-7);
  EXPECT_EQ(record.semi_major_axis, 3.363943);  // the field keeps q
}

TEST(MoveOnConic, MeetsTheBookOnLongEllipses) {
  // The same table; a = q / (1 - e).
  OrbitalElementRecord record = Conic(0.1 / (1.0 - 0.987), 0.987);
  const OrbitAngles place = MoveOnConic(254.9, record);
  EXPECT_NEAR(place.u * kDegreesPerRadian, 164.50029, 5e-6);
  EXPECT_NEAR(place.radius, 4.063777, 5e-7);
  EXPECT_NEAR(TrueAnomalyDegrees(-30.47, Conic(0.123456 / (1.0 - 0.99997), 0.99997)), 221.91190,
              2e-5);
}

TEST(MoveOnConic, ChoosesTheCurveByTheEccentricityExactly) {
  // Field 6 is the perihelion distance on a parabola and the semi-major axis on an ellipse, so the
  // same number makes orbits that differ by a factor of 1e7 in size.
  OrbitalElementRecord parabola = Conic(1.0, 1.0);
  EXPECT_EQ(MoveOnConic(0.0, parabola).radius, 1.0);
  OrbitalElementRecord ellipse = Conic(1.0, 0.9999999);
  EXPECT_NEAR(MoveOnConic(0.0, ellipse).radius, 1e-7, 1e-13);
  // On a hyperbola it is the perihelion distance again.
  OrbitalElementRecord hyperbola = Conic(1.0, 1.0000001);
  EXPECT_NEAR(MoveOnConic(0.0, hyperbola).radius, 1.0, 1e-8);
}

TEST(MoveOnConic, KeptOnPurposeTheHyperbolaHasAnAbsoluteTolerance) {
  // W is 5e-11 here, hardly above the tolerance, so H is settled too early. The parabola, which
  // this hyperbola differs from by 1e-7, says how much: 0.0011 au.
  OrbitalElementRecord hyperbola = Conic(1.0, 1.0000001);
  OrbitalElementRecord parabola = Conic(1.0, 1.0);
  const double off = MoveOnConic(100.0, hyperbola).radius - MoveOnConic(100.0, parabola).radius;
  EXPECT_NEAR(off, 0.00112, 0.00001);
}

TEST(MoveOnConic, DerivesTheDailyMotionWhereItIsZero) {
  OrbitalElementRecord derived = Conic(2.5, 0.2);
  OrbitalElementRecord given = derived;
  given.daily_motion = 0.9856076686 / (2.5 * std::sqrt(2.5));
  for (const double days : {-300.0, 10.0, 5000.0}) {
    EXPECT_EQ(MoveOnConic(days, derived).u, MoveOnConic(days, given).u);
  }
  EXPECT_EQ(derived.daily_motion, 0.0);  // the field keeps its zero
  given.daily_motion *= 2.0;
  EXPECT_NE(MoveOnConic(10.0, derived).u, MoveOnConic(10.0, given).u);
}

TEST(MoveOnConic, KeptOnPurposeTheMeanLongitudeAccumulates) {
  OrbitalElementRecord record = Conic(1.0, 0.1);
  record.daily_motion = 0.5;
  record.mean_longitude = 300.0;
  const double first = MoveOnConic(100.0, record).u;
  EXPECT_EQ(record.mean_longitude, 350.0);
  const double second = MoveOnConic(100.0, record).u;
  EXPECT_EQ(record.mean_longitude, 40.0);  // reduced to one turn
  EXPECT_NEAR(ReduceRadians(second - first) * kDegreesPerRadian, 50.0, 1e-12);
}

TEST(MoveOnConic, AMeanLongitudeThatBecomesZeroCountsAsNone) {
  OrbitalElementRecord record = Conic(1.0, 0.0);
  record.daily_motion = 0.5;
  record.argument_of_perihelion = 10.0;
  record.node = 30.0;
  record.mean_longitude = 300.0;
  const double u = MoveOnConic(120.0, record).u * kDegreesPerRadian;
  EXPECT_EQ(record.mean_longitude, 0.0);
  EXPECT_NEAR(u, 10.0 + 60.0, 1e-12);
}

TEST(MoveOnConic, KeptOnPurposeTheMeanAnomalyAtTheEpochIsSubtracted) {
  // Circular, so the true anomaly is the mean anomaly: u is L + (M0 + dt n) - M0 - Omega, and ahead
  // of the argument of latitude L - Omega by the motion since the epoch.
  OrbitalElementRecord record = Conic(1.0, 0.0);
  record.daily_motion = 0.5;
  record.mean_anomaly = 20.0;
  record.node = 30.0;
  record.mean_longitude = 70.0;
  const double u = MoveOnConic(60.0, record).u * kDegreesPerRadian;
  EXPECT_NEAR(u, (70.0 + 30.0) - 30.0 + 30.0, 1e-12);
}

TEST(PropagateConic, TurnsTheOrbitByItsNodeAndInclination) {
  OrbitalElementRecord record = Conic(1.0, 1.0);
  record.inclination = 30.0;
  record.node = 100.0;
  record.argument_of_perihelion = 90.0;
  const Spherical place = PropagateConic(0.0, record);
  EXPECT_NEAR(place.longitude * kDegreesPerRadian, 190.0, 1e-12);
  EXPECT_NEAR(place.latitude * kDegreesPerRadian, 30.0, 1e-12);
  EXPECT_EQ(place.radius, 1.0);
  record.node = 300.0;  // the sum is not reduced
  EXPECT_NEAR(PropagateConic(0.0, record).longitude * kDegreesPerRadian, 390.0, 1e-12);
}

// The bare iterations, given up after some thousand steps: the result, or NaN.
constexpr int kPlainLimit = 5000;

double PlainParabola(double w) {
  double s = 0.0;
  double change = 1.0;
  for (int k = 0; std::fabs(change) > 1e-11; ++k) {
    if (k == kPlainLimit) {
      return kNan;
    }
    const double next = (2.0 * s * s * s + w) / (3.0 * (1.0 + s * s));
    change = next != 0.0 ? (next - s) / next : next - s;
    s = next;
  }
  return s;
}

double PlainEllipse(double m, double e) {
  double anomaly = m;
  for (int k = 0; k < kPlainLimit; ++k) {
    const double f = anomaly - e * Sine(anomaly) - m;
    anomaly = anomaly - f / (1.0 - e * Cosine(anomaly));
    if (std::fabs(f) <= 1e-11) {
      return anomaly;
    }
    if (std::isnan(f)) {
      return kNan;
    }
  }
  return kNan;
}

double PlainHyperbola(double w, double e) {
  double h = w / (e - 1.0);
  double change = 1.0;
  for (int k = 0; std::fabs(change) > 1e-11; ++k) {
    if (k == kPlainLimit) {
      return kNan;
    }
    change = e * std::sinh(h) - h - w;
    h = h + change / (1.0 - e * std::cosh(h));
  }
  return h;
}

bool SameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

std::vector<double> AwkwardNumbers() {
  std::vector<double> numbers = {0.0,  -0.0, 5e-324, 2.2e-308,   1e-11,     1.0,
                                 kPi,  -1.0, 1e308,  -1e308,     kInfinity, -kInfinity,
                                 kNan, 1e16, 355.0,  -710.47586, 710.47586};
  for (double x = 1e-20; x < 1e20; x *= 237.1) {
    numbers.push_back(x);
    numbers.push_back(-x);
  }
  return numbers;
}

TEST(ConicIterations, EndForEveryInputAndSettleWhereTheBareLoopsDo) {
  int unsettled = 0;
  for (const double w : AwkwardNumbers()) {
    EXPECT_TRUE(SameNumber(SolveParabola(w), PlainParabola(w))) << w;
    for (const double e : AwkwardNumbers()) {
      const double ellipse = SolveEllipse(w, e);
      EXPECT_TRUE(SameNumber(ellipse, PlainEllipse(w, e))) << w << " " << e;
      const double hyperbola = SolveHyperbola(w, e);
      EXPECT_TRUE(SameNumber(hyperbola, PlainHyperbola(w, e))) << w << " " << e;
      unsettled += std::isnan(ellipse) && std::isfinite(w) && std::isfinite(e);
    }
  }
  EXPECT_GT(unsettled, 0);
}

TEST(ConicIterations, GiveNotANumberWhereTheyCycle) {
  // e sinh H near 50 000 moves in steps of 1e-11, so the residual hops over the tolerance for ever.
  int cycles = 0;
  for (double w = 30000.0; w < 30050.0; w += 1.0) {
    const double h = SolveHyperbola(w, 100.0);
    EXPECT_TRUE(SameNumber(h, PlainHyperbola(w, 100.0))) << w;
    cycles += std::isnan(h);
  }
  EXPECT_GT(cycles, 0);
  // An ellipse of negative eccentricity, which nothing forbids: its root lies near pi, where a last
  // place of E is 4e-7 of the residual.
  EXPECT_TRUE(std::isnan(SolveEllipse(3.0, -1e9)));
}

TEST(ConicIterations, EndForEveryRecord) {
  for (const double size : AwkwardNumbers()) {
    for (const double e : {0.0, 0.5, 0.9999999, 1.0, 1.0000001, 2.0, -3.0, kNan, kInfinity}) {
      for (const double days : {0.0, 1.0, -1e9, 1e300, kInfinity, kNan}) {
        OrbitalElementRecord record = Conic(size, e);
        record.mean_longitude = 1.0;
        record.inclination = 12.0;
        const Spherical place = PropagateConic(days, record);
        EXPECT_TRUE(std::isnan(place.latitude) || std::fabs(place.latitude) < 0.2095);
      }
    }
  }
}

}  // namespace
}  // namespace zenithor
