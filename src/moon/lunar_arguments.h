#pragma once

namespace zenithor {

// The fundamental arguments of the lunar theory, and the factor for terms in the Sun's anomaly.
struct LunarArguments {
  double Omega;   // [rad] longitude of the Moon's mean ascending node
  double D;       // [rad] mean elongation of the Moon from the Sun
  double M;       // [rad] mean anomaly of the Sun
  double Mprime;  // [rad] mean anomaly of the Moon
  double F;       // [rad] the Moon's argument of latitude
  double E;       // eccentricity factor of the Earth's orbit, 1 at J2000.0
};

// The arguments at T Julian centuries from J2000.0, the angles in [0, 2 pi). Any T is answered;
// from about a million centuries on an angle is what rounding leaves of it, and NaN where its
// polynomial overflows. Several coefficients differ from the published ones on purpose
// (docs/deliberate.md). Source: M. Chapront-Touze, J. Chapront, ELP-2000/82, as in Meeus,
// Astronomical Algorithms, chapter 47.
LunarArguments ComputeLunarArguments(double centuries);

// The eccentricity factor E at T Julian centuries from J2000.0: the eccentricity of the Earth's
// orbit as a fraction of that of J2000.0. It goes with each multiple of the Sun's anomaly in the
// argument of a term. Source: Meeus, formula 47.6.
double EccentricityFactor(double centuries);

// The argument of the terms that Venus causes [rad], not reduced, at T Julian centuries from
// J2000.0: A1 of the longitude and latitude (Meeus, chapter 47), K1 of the librations (chapter 53).
double VenusArgument(double centuries);

}  // namespace zenithor
