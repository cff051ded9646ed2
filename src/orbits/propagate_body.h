#pragma once

#include "orbits/state.h"

namespace zenithor {

// A body's heliocentric place [au].
struct HeliocentricPlace {
  Rectangular equatorial;  // equinox J2000.0
  Spherical ecliptic;      // ecliptic and equinox J2000.0; longitude in [0, 2 pi)
};

// The place at a Julian day: from the record's series where it has one, else on its conic. The
// series way rewrites the record's epoch (to the day), equinox (to J2000.0), mean longitude [rad]
// and radius; the conic way may advance the mean longitude. For the Earth's own record in `state`,
// told by its identity, the barycentre is brought to the Earth's centre.
HeliocentricPlace PropagateBody(double julian_day, OrbitalElementRecord& record,
                                OrbitsState& state);

}  // namespace zenithor
