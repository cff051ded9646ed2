#pragma once

#include "orbits/state.h"

namespace zenithor {

// What happens to light on its way from Pluto: the time it takes, the Sun's gravity, the Earth's
// motion.
// Source: Explanatory Supplement to the Astronomical Almanac (1992), section 3.3.

// The change of right ascension, in (-pi, pi), and of declination [rad] between two directions.
struct DirectionChange {
  double alpha;
  double delta;
};

DirectionChange ChangeOfDirection(const Rectangular& from, const Rectangular& to);

// Light time [day] over the distance P, with the Sun's delay, where the Earth is E and the object Q
// from the Sun [au].
double LightTime(double p, double e, double q);

// Puts Pluto's vector in `state` back to where the light left it. Keeps the correction dp and the
// rates of right ascension and declination over the light time.
void ApplyLightTime(OrbitsState& state);

// Lengths and cosines of the triangle Earth, Sun, object.
Geometry MeasureTriangle(const Rectangular& p, const Rectangular& e, const Rectangular& q);

// The unit vector p bent by the Sun's gravity. Not finite for an object exactly behind the Sun.
Rectangular DeflectLight(const Rectangular& p, const Rectangular& e, const Rectangular& q,
                         const Geometry& geometry);

// The unit vector p as an observer sees it who moves with `velocity` [speed of light].
Rectangular AberrateLight(const Rectangular& p, const Rectangular& velocity);

}  // namespace zenithor
