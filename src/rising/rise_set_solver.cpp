#include "rising/rise_set_solver.h"

#include <cmath>
#include <limits>

#include "numerics/arcs.h"
#include "numerics/constants.h"
#include "numerics/sine_cosine.h"
#include "rising/diurnal_path.h"
#include "rising/settle.h"

namespace zenithor {

namespace {

// A fraction of a day brought into the day, by one day at most.
double IntoDay(double m) {
  if (m < 0.0) {
    return m + 1.0;
  }
  return m > 1.0 ? m - 1.0 : m;
}

// The two corrections of a time m, a fraction of a day after T0.
class Corrections {
 public:
  Corrections(const DiurnalPath& path, double h0) : path_(path), h0_(h0) {}

  double Transit(double m) const { return -path_.HourAngle(m) / kTwoPi; }

  double RiseOrSet(double m) const {
    const double hour_angle = path_.HourAngle(m);
    const double delta = path_.Declination(m);
    const double h = path_.Altitude(delta, hour_angle);
    // Kept on purpose: the factor cos h, which the published correction does not have. Up to
    // latitude 50 it moves no settled time by more than 0.0001 minute, the Moon's by 0.03.
    return Cosine(h) * (h - h0_) /
           (kTwoPi * Cosine(delta) * path_.CosLatitude() * Sine(hour_angle));
  }

 private:
  const DiurnalPath& path_;
  const double h0_;
};

}  // namespace

RiseSetTimes SolveRiseSet(const RiseSetProblem& problem) {
  const double alpha2 = problem.alpha.middle;
  const double delta2 = problem.delta.middle;
  const double phi = problem.latitude;
  const DiurnalPath path(problem);
  const double theta0 = path.SiderealTimeAtStart();

  const double cos_h0 =
      (Sine(problem.h0) - Sine(phi) * Sine(delta2)) / (Cosine(phi) * Cosine(delta2));
  double m0 = (alpha2 + problem.longitude - theta0) / kTwoPi;
  // Kept on purpose: the transit gains one day at most and is not looked at again, so it can lie up
  // to half a day outside the day that was asked for.
  if (m0 < 0.0) {
    m0 += 1.0;
  }

  double m1 = std::numeric_limits<double>::quiet_NaN();
  double m2 = m1;
  Horizon horizon = Horizon::kRisesAndSets;
  if (std::fabs(cos_h0) <= 1.0) {
    const double half_arc = Arccosine(cos_h0) / kTwoPi;
    m1 = m0 - half_arc;
    m2 = m0 + half_arc;
  } else if (cos_h0 < -1.0) {
    m1 = m0 - 0.5;
    m2 = m0 + 0.5;
    horizon = Horizon::kAlwaysAbove;
  } else if (cos_h0 > 1.0) {
    m1 = m0;
    m2 = m0;
    horizon = Horizon::kAlwaysBelow;
  }
  if (m1 < 0.0) {
    m1 += 1.0;
  }
  if (m2 > 1.0) {
    m2 -= 1.0;
  }

  const Corrections corrections(path, problem.h0);
  const auto rise_or_set = [&](double m) { return corrections.RiseOrSet(m); };
  const Settled transit = Settle(m0, [&](double m) { return corrections.Transit(m); });
  Settled rise{m1, {0, Ending::kNotRun}};
  Settled set{m2, {0, Ending::kNotRun}};
  if (horizon == Horizon::kRisesAndSets) {
    rise = Settle(m1, rise_or_set);
    set = Settle(m2, rise_or_set);
    // Kept on purpose: a time outside the day is shifted by a whole day, not computed again. The
    // Moon comes later every day, up to 93 minutes at latitude 50: it is the other day's time.
    rise.value = IntoDay(rise.value);
    set.value = IntoDay(set.value);
  }
  return {horizon,
          rise.value * kTwoPi,
          transit.value * kTwoPi,
          set.value * kTwoPi,
          rise.run,
          transit.run,
          set.run};
}

}  // namespace zenithor
