#pragma once

#include "orbits/element_record.h"
#include "time/transforms.h"

namespace zenithor {

// Motion on an ellipse, a parabola or a hyperbola. Angles in radians but for those of the record,
// distances in astronomical units, times in days.
// Source: Meeus, Astronomical Algorithms, chapters 30, 33 and 34.
//
// The iterations stop at a fixed tolerance of 1e-11 and have no limit. Each ends for every input: a
// NaN ends it, and where it is proven to repeat the same values for ever (numerics/cycle_watch.h)
// the solution is NaN. Nothing is validated: elements that divide by zero give what the arithmetic
// gives.

// s with s^3 + 3 s = W, W = 0.0364911624 dt / q^1.5, dt [day] since perihelion at the distance q
// [au]: the tangent of half the true anomaly on a parabola. The tolerance is relative.
double SolveParabola(double w);

// Eccentric anomaly [rad] from the mean anomaly [rad, 0 to 2 pi], 0 <= e < 1. The tolerance is
// absolute [rad].
double SolveEllipse(double mean_anomaly, double eccentricity);

// H with e sinh H - H = W, W = 0.01720209895 dt / a^1.5, a = q / (e - 1), e > 1. The first guess W
// / (e - 1) overflows beyond 710, and the residual of a large W, which is tested against an
// absolute tolerance, need not come down to it: the solution is then NaN.
double SolveHyperbola(double w, double eccentricity);

// Where the body stands in its orbit.
struct OrbitAngles {
  double u;       // [rad] argument of latitude, not reduced
  double radius;  // [au] from the Sun
};

// At a Julian day [day]; the kind of conic by the eccentricity compared with 1.0 exactly. A
// non-zero mean longitude of an elliptic record is advanced in place.
OrbitAngles MoveOnConic(double julian_day, OrbitalElementRecord& record);

// Heliocentric place [rad, au] at a Julian day from a record without a series, ecliptic and equinox
// of the record's equinox field. The longitude is not reduced after the node is added.
Spherical PropagateConic(double julian_day, OrbitalElementRecord& record);

}  // namespace zenithor
