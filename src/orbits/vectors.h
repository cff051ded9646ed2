#pragma once

#include <cmath>

#include "numerics/arcs.h"
#include "time/transforms.h"

namespace zenithor {

// Arithmetic on rectangular vectors, of any unit.

inline Rectangular operator+(const Rectangular& a, const Rectangular& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Rectangular operator-(const Rectangular& a, const Rectangular& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Rectangular operator*(double factor, const Rectangular& v) {
  return {factor * v.x, factor * v.y, factor * v.z};
}

inline Rectangular operator/(const Rectangular& v, double divisor) {
  return {v.x / divisor, v.y / divisor, v.z / divisor};
}

inline double Dot(const Rectangular& a, const Rectangular& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline double Length(const Rectangular& v) { return std::sqrt(Dot(v, v)); }

// [rad], -pi / 2 to pi / 2; NaN for the origin, which has no direction.
inline double Declination(const Rectangular& equatorial) {
  return Arcsine(equatorial.z / Length(equatorial));
}

}  // namespace zenithor
