#pragma once

#include <cstdint>

namespace zenithor {

struct SolarEclipse {
  bool found;         // false when the search was given up; the rest is then 0
  double jde;         // Julian Ephemeris Day of greatest eclipse
  std::int32_t kind;  // 1 to 6, see eclipse_core.h
  double magnitude;   // of a partial eclipse; otherwise 0
};

// The kind of a solar eclipse whose shadow has the radius u and passes the Earth's centre at
// |gamma| [Earth radii], |gamma| being small enough for one.
std::int32_t ClassifySolarEclipse(double u, double abs_gamma);

// The first solar eclipse at a mean new moon more than 0.03 lunation after a Julian day [day].
// Gives up at once when lunations cannot be counted from there, and after kLongestSearch lunations.
// Accuracy: eclipse_core.h.
// Source: Meeus, Astronomical Algorithms, chapter 54.
SolarEclipse FindSolarEclipse(double julian_day);

}  // namespace zenithor
