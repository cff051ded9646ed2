#pragma once

#include "orbits/state.h"

namespace zenithor {

// What happens to light on its way from Pluto: the time it takes, the Sun's gravity, the Earth's
// motion. Vectors are equatorial, J2000.0. Nothing is checked.
// Source: Explanatory Supplement to the Astronomical Almanac (1992), section 3.3.

// The change of right ascension, in (-pi, pi), and of declination [rad] between two directions.
struct DirectionChange {
  double alpha;
  double delta;
};

// Vectors of any unit and length; alpha by FullCircleArctan, brought back by one turn.
DirectionChange ChangeOfDirection(const Rectangular& from, const Rectangular& to);

// Light time [day] over the distance p, with the Sun's delay, where the Earth is e and the object q
// from the Sun [au], all above 0. For Pluto 0.16 to 0.29 day.
double LightTime(double p, double e, double q);

// Puts Pluto's vector [au] in `state` back to where the light left it. Keeps the correction dp [au]
// and the rates of right ascension and declination [rad/day] over the light time.
void ApplyLightTime(OrbitsState& state);

// Lengths [au] and cosines of the triangle Earth, Sun, object, from the object's geocentric vector
// p, the Earth's heliocentric e and the object's heliocentric q [au].
Geometry MeasureTriangle(const Rectangular& p, const Rectangular& e, const Rectangular& q);

// The unit vector p bent by the Sun's gravity, at most 1.8" where it grazes the Sun; its length is
// 1 to within the deflection. Not finite for an object exactly behind the Sun.
Rectangular DeflectLight(const Rectangular& p, const Rectangular& e, const Rectangular& q,
                         const Geometry& geometry);

// The unit vector p as an observer sees it who moves with `velocity` [speed of light], below 1; for
// the Earth, 1e-4, up to 21" away.
Rectangular AberrateLight(const Rectangular& p, const Rectangular& velocity);

}  // namespace zenithor
