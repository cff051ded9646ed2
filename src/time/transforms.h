#pragma once

namespace zenithor {

// Rotations and translations between ecliptic, equatorial, heliocentric and geocentric coordinates.
// Angles in radians; distances in the unit of their input.
// Source: Meeus, Astronomical Algorithms, chapters 13 and 33.

struct Spherical {
  double longitude;  // [rad]
  double latitude;   // [rad] -pi / 2 to pi / 2
  double radius;     // any unit
};

// Any unit.
struct Rectangular {
  double x;
  double y;
  double z;
};

struct Equatorial {
  double alpha;  // [rad] right ascension, 0 to 2 pi
  double delta;  // [rad] declination, -pi / 2 to pi / 2
};

Rectangular SphericalToRectangular(const Spherical& place);

// Longitude 0 to 2 pi, as PositiveArctan gives it. The origin itself has no direction: its latitude
// is NaN.
Spherical RectangularToSpherical(const Rectangular& place);

// The body as seen from the observer, both heliocentric; longitude 0 to 2 pi.
Spherical GeocentricPosition(const Spherical& body, const Spherical& observer);

// A vector's coordinates in axes turned about the first one by an angle given by its cosine and
// sine, and back. By the obliquity that leads from the equator to the ecliptic, and back.
inline Rectangular TurnAboutFirstAxis(const Rectangular& v, double cosine, double sine) {
  return {v.x, cosine * v.y + sine * v.z, -sine * v.y + cosine * v.z};
}
inline Rectangular TurnBackAboutFirstAxis(const Rectangular& v, double cosine, double sine) {
  return {v.x, cosine * v.y - sine * v.z, sine * v.y + cosine * v.z};
}

// Longitude lambda, latitude beta and obliquity epsilon [rad] to right ascension and declination.
Equatorial EclipticToEquatorial(double lambda, double beta, double epsilon);

}  // namespace zenithor
