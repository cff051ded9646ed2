#pragma once

#include <cstdint>

#include "events/eclipse_core.h"

namespace zenithor {

struct LunarEclipse {
  bool found;                    // false when there is none; the rest is then 0
  double jde;                    // Julian Ephemeris Day of greatest eclipse
  std::int32_t kind;             // 1 total, 6 partial, 7 penumbral, see eclipse_core.h
  double magnitude;              // in the umbra, of a penumbral eclipse in the penumbra
  double outer_semiduration;     // [day] of the partial phase, of a penumbral eclipse of that phase
  double totality_semiduration;  // [day] 0 unless total
};

// The lunar eclipse at a full moon. None where the Moon keeps out of the penumbra, and where it
// just touches the umbra: a magnitude of 0 does not count.
LunarEclipse DescribeLunarEclipse(const EclipseGeometry& at);

// The first lunar eclipse at a mean full moon more than 0.53 lunation after a Julian day [day].
// Gives up at once when lunations cannot be counted from there, and after kLongestSearch lunations.
// Accuracy: eclipse_core.h; the semidurations meet the book's examples within a minute.
// Source: Meeus, Astronomical Algorithms, chapter 54.
LunarEclipse FindLunarEclipse(double julian_day);

}  // namespace zenithor
