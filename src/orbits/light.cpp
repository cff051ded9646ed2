#include "orbits/light.h"

#include <cmath>

#include "numerics/arctangent.h"
#include "numerics/constants.h"
#include "numerics/logarithm.h"
#include "orbits/constants.h"
#include "orbits/earth_velocity.h"
#include "orbits/propagate_body.h"
#include "orbits/vectors.h"

namespace zenithor {

namespace {

// Kept on purpose: two values of the Sun's gravitational term, 0.2 % apart: 0.004" for light that
// grazes the Sun, 4e-12 day of light time.
constexpr double kSunInLightTime = 1.97e-8;
constexpr double kSunInDeflection = 1.974e-8;

}  // namespace

DirectionChange ChangeOfDirection(const Rectangular& from, const Rectangular& to) {
  double alpha = FullCircleArctan(to.x, to.y) - FullCircleArctan(from.x, from.y);
  if (alpha < -kPi) {
    alpha += kTwoPi;
  } else if (alpha > kPi) {
    alpha -= kTwoPi;
  }
  return {alpha, Declination(to) - Declination(from)};
}

double LightTime(double p, double e, double q) {
  return (p + kSunInLightTime * Logarithm((e + p + q) / (e - p + q))) * kLightDaysPerAu;
}

void ApplyLightTime(OrbitsState& state) {
  const Rectangular e = state.earth_vector;
  const Rectangular p0 = state.pluto_vector - e;
  const double earth_distance = Length(e);
  double tau = 0.0;
  // Kept on purpose: exactly two iterations, no test of convergence; the third would change the
  // light time by up to 4e-7 s and the place by 1e-10", less than the last bit of a day makes.
  for (int iteration = 0; iteration < 2; ++iteration) {
    tau = LightTime(Length(state.pluto_vector - e), earth_distance, Length(state.pluto_vector));
    const HeliocentricPlace place = PropagateBody(state.current_day - tau, state.pluto, state);
    state.pluto_vector = place.equatorial;
    state.pluto_place = place.ecliptic;
  }
  const Rectangular p = state.pluto_vector - e;
  state.correction = p - p0;

  UpdateEarthVelocity(state.current_day, state);
  const Rectangular p1 = p + tau * state.earth_velocity.velocity;
  const DirectionChange change = ChangeOfDirection(p0, p1);
  state.alpha_rate = change.alpha / tau;
  state.delta_rate = change.delta / tau;
}

Geometry MeasureTriangle(const Rectangular& p, const Rectangular& e, const Rectangular& q) {
  const double eo = Length(p);
  const double se = Length(e);
  const double so = Length(q);
  return {eo, se, so, Dot(p, q) / (eo * so), Dot(e, p) / (se * eo), Dot(q, e) / (so * se)};
}

Rectangular DeflectLight(const Rectangular& p, const Rectangular& e, const Rectangular& q,
                         const Geometry& g) {
  const double c = kSunInDeflection / (g.sun_earth * (1.0 + g.qe));
  return p + c * ((g.pq * e) / g.sun_earth - (g.ep * q) / g.sun_object);
}

Rectangular AberrateLight(const Rectangular& p, const Rectangular& velocity) {
  const double b = std::sqrt(1.0 - Dot(velocity, velocity));
  const double pv = Dot(p, velocity);
  return (b / (1.0 + pv)) * p + ((pv / (1.0 + b) + 1.0) / (1.0 + pv)) * velocity;
}

}  // namespace zenithor
