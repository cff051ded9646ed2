#include "orbits/conic.h"

#include <cmath>
#include <limits>

#include "numerics/angles.h"
#include "numerics/arcs.h"
#include "numerics/arctangent.h"
#include "numerics/constants.h"
#include "numerics/cycle_watch.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

constexpr double kTolerance = 1e-11;
constexpr double kNoSolution = std::numeric_limits<double>::quiet_NaN();

constexpr double kParabolicMotion = 0.0364911624;
constexpr double kMeanMotion = 0.9856076686;  // [deg/day] at 1 au
constexpr double kGaussianConstant = 0.01720209895;

OrbitAngles MoveOnParabola(double dt, const OrbitalElementRecord& record) {
  const double q = record.semi_major_axis;
  const double s = SolveParabola(dt * kParabolicMotion / (q * std::sqrt(q)));
  return {record.argument_of_perihelion * kRadiansPerDegree + 2.0 * Arctangent(s),
          q * (1.0 + s * s)};
}

OrbitAngles MoveOnEllipse(double dt, OrbitalElementRecord& record) {
  const double a = record.semi_major_axis;
  const double e = record.eccentricity;
  const double n =
      record.daily_motion == 0.0 ? kMeanMotion / (a * std::sqrt(a)) : record.daily_motion;
  const double dm = dt * n;
  const double m = ReduceRadians((record.mean_anomaly + dm) * kRadiansPerDegree);
  if (record.mean_longitude != 0.0) {
    // Kept on purpose: the motion since the epoch is added to the longitude that the previous call
    // left, so a second call for the same day stands dt n degrees further on.
    record.mean_longitude = ReduceDegrees(record.mean_longitude + dm);
  }
  const double eccentric = SolveEllipse(m, e);
  const double v =
      ReduceRadians(2.0 * Arctangent(std::sqrt((1.0 + e) / (1.0 - e)) * Tangent(eccentric / 2.0)));
  const double radius = a * (1.0 - e * e) / (1.0 + e * Cosine(v));
  // Kept on purpose: the mean anomaly at the epoch is subtracted, not that of the day, so u runs
  // ahead of the body by the motion since the epoch, dt n degrees. A longitude that has just become
  // exactly 0 counts as none.
  const double u = record.mean_longitude == 0.0
                       ? record.argument_of_perihelion * kRadiansPerDegree + v
                       : record.mean_longitude * kRadiansPerDegree + v -
                             record.mean_anomaly * kRadiansPerDegree -
                             record.node * kRadiansPerDegree;
  return {u, radius};
}

OrbitAngles MoveOnHyperbola(double dt, const OrbitalElementRecord& record) {
  const double e = record.eccentricity;
  const double a = record.semi_major_axis / (e - 1.0);
  const double h = SolveHyperbola(dt * kGaussianConstant / (a * std::sqrt(a)), e);
  const double v = 2.0 * Arctangent(std::sqrt((e + 1.0) / (e - 1.0)) * std::tanh(h / 2.0));
  return {record.argument_of_perihelion * kRadiansPerDegree + v, a * (e * std::cosh(h) - 1.0)};
}

}  // namespace

double SolveParabola(double w) {
  CycleWatch watch;
  double s = 0.0;
  double change = 1.0;
  while (std::fabs(change) > kTolerance) {
    const double next = (2.0 * s * s * s + w) / (3.0 * (1.0 + s * s));
    change = next - s;
    if (next != 0.0) {
      change /= next;
    }
    s = next;
    if (std::fabs(change) > kTolerance && watch.Repeats(s)) {
      return kNoSolution;
    }
  }
  return s;
}

double SolveEllipse(double mean_anomaly, double eccentricity) {
  const double e = eccentricity;
  CycleWatch watch;
  double anomaly = mean_anomaly;
  double f = 0.0;
  do {
    if (watch.Repeats(anomaly)) {
      return kNoSolution;
    }
    // Kept on purpose: the step is made before its residual is tested, one more than needed; it
    // changes the anomaly by less than 1e-11 / (1 - e).
    f = anomaly - e * Sine(anomaly) - mean_anomaly;
    anomaly -= f / (1.0 - e * Cosine(anomaly));
  } while (std::fabs(f) > kTolerance);
  return anomaly;
}

double SolveHyperbola(double w, double eccentricity) {
  const double e = eccentricity;
  CycleWatch watch;
  double h = w / (e - 1.0);
  // Kept on purpose: the tolerance is absolute, so near e = 1, where W is tiny, H settles too
  // early: for e = 1.0000001 and q = 1 au the radius is 0.0011 au off after 100 days.
  double change = 1.0;
  while (std::fabs(change) > kTolerance) {
    if (watch.Repeats(h)) {
      return kNoSolution;
    }
    change = e * std::sinh(h) - h - w;
    h += change / (1.0 - e * std::cosh(h));
  }
  return h;
}

OrbitAngles MoveOnConic(double julian_day, OrbitalElementRecord& record) {
  const double dt = julian_day - record.epoch;
  if (record.eccentricity == 1.0) {
    return MoveOnParabola(dt, record);
  }
  if (record.eccentricity < 1.0) {
    return MoveOnEllipse(dt, record);
  }
  return MoveOnHyperbola(dt, record);
}

Spherical PropagateConic(double julian_day, OrbitalElementRecord& record) {
  const OrbitAngles place = MoveOnConic(julian_day, record);
  const double i = record.inclination * kRadiansPerDegree;
  return {FullCircleArctan(Cosine(place.u), Cosine(i) * Sine(place.u)) +
              record.node * kRadiansPerDegree,
          Arcsine(Sine(i) * Sine(place.u)), place.radius};
}

}  // namespace zenithor
