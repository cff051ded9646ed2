#pragma once

#include "orbits/state.h"

namespace zenithor {

// Brings `cache` to `julian_day`; returns at once when it is there already. The whole 1980 IAU
// theory, 106 terms, the leading one added last.
// Source: P. K. Seidelmann, 1980 IAU theory of nutation, Celestial Mechanics 27 (1982).
void CachedWholeNutation(double julian_day, NutationCache& cache);

}  // namespace zenithor
