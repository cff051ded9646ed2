#pragma once

#include "orbits/state.h"

namespace zenithor {

// Brings the Earth's velocity [au/day, equatorial J2000.0] in `state` to `julian_day` [day] from
// the Earth's vector [au] of the current day; nothing is done when it is there already. About
// 0.0172 au/day.
void UpdateEarthVelocity(double julian_day, OrbitsState& state);

}  // namespace zenithor
