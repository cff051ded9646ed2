#pragma once

#include "orbits/state.h"

namespace zenithor {

// Brings the Earth's velocity in `state` to `julian_day` from the Earth's vector of the current
// day; nothing is done when it is there already.
void UpdateEarthVelocity(double julian_day, OrbitsState& state);

}  // namespace zenithor
