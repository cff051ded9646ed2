#pragma once

#include "ephemeris/moment_cache.h"
#include "ephemeris/store.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// The place of a body of code 0 to 8 at a Julian day [day, any], written into `record` in degrees,
// hours and astronomical units: heliocentric (fields 1-3, not for the Sun), geometric geocentric
// (4-6) and apparent right ascension and declination (7, 8; 4-8 not for the Earth), obliquity and
// centuries (16, 17). The slots that the code needs must be loaded. Code 9, which the position
// export sends elsewhere, is answered from Pluto's table seen from the Earth of J2000.0.
// The observer's place [deg, any numbers] changes no field.
// Accuracy: that of the heliocentric places (ephemeris/series.h).
// Source: Meeus, Astronomical Algorithms, chapters 22, 23, 32 and 33.
void ComputePlanetPosition(const EphemerisStore& store, double julian_day,
                           double observer_longitude, double observer_latitude, BodyCode code,
                           MomentCache& cache, BodyPositionRecord& record);

}  // namespace zenithor
