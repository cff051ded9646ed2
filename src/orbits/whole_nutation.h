#pragma once

#include "orbits/state.h"

namespace zenithor {

// Brings `cache` [rad] to `julian_day` [day]; returns at once when it is there already. The whole
// 1980 IAU theory, 106 terms, the leading one added last; at most 20" in longitude and 10" in
// obliquity.
// Source: P. K. Seidelmann, 1980 IAU theory of nutation, Celestial Mechanics 27 (1982).
void CachedWholeNutation(double julian_day, NutationCache& cache);

}  // namespace zenithor
