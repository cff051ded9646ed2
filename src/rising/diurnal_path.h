#pragma once

#include "numerics/angles.h"
#include "numerics/arcs.h"
#include "numerics/sine_cosine.h"
#include "rising/interpolation.h"
#include "rising/rise_set_problem.h"
#include "time/sidereal_time.h"

namespace zenithor {

// The way of a body over the sky on the day of a problem. Moments m are fractions of a day after
// T0; angles in radians.
class DiurnalPath {
 public:
  explicit DiurnalPath(const RiseSetProblem& problem)
      : problem_(problem),
        alpha_{
            problem.alpha.middle + ReduceAngleSigned(problem.alpha.before - problem.alpha.middle),
            problem.alpha.middle,
            problem.alpha.middle + ReduceAngleSigned(problem.alpha.after - problem.alpha.middle)},
        // Kept on purpose: mean sidereal time, where the book takes apparent; up to 0.02 minute.
        theta0_(
            ReduceAngle(SiderealTimeFromDays(problem.day_start_days, problem.day_start_centuries))),
        sin_phi_(Sine(problem.latitude)),
        cos_phi_(Cosine(problem.latitude)) {}

  // Local hour angle, [-pi, pi).
  double HourAngle(double m) const {
    constexpr double kSiderealRate = 6.300388092591991;  // [rad/day], 360.985647 degrees
    const double theta = theta0_ + kSiderealRate * m;
    return ReduceAngleSigned(theta - problem_.longitude - Interpolate(alpha_, Steps(m)));
  }

  double Declination(double m) const { return Interpolate(problem_.delta, Steps(m)); }

  // Altitude of the centre, geocentric and without refraction.
  double Altitude(double declination, double hour_angle) const {
    const CosineSine of_declination = CosineAndSine(declination);
    return Arcsine(sin_phi_ * of_declination.sine +
                   cos_phi_ * of_declination.cosine * Cosine(hour_angle));
  }

  double SiderealTimeAtStart() const { return theta0_; }
  double CosLatitude() const { return cos_phi_; }

 private:
  // Kept on purpose: Delta T once more, though the middle place stands at the day's start in
  // dynamical time already; in 2026, up to latitude 50, up to 0.16 minute for the Moon, 0.021 for
  // other bodies.
  double Steps(double m) const {
    constexpr double kSecondsPerDay = 86400.0;
    return m + problem_.delta_t / kSecondsPerDay;
  }

  const RiseSetProblem& problem_;
  const ThreeValues alpha_;
  const double theta0_;
  const double sin_phi_;
  const double cos_phi_;
};

}  // namespace zenithor
