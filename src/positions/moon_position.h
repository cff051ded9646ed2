#pragma once

#include "ephemeris/moment_cache.h"
#include "ephemeris/store.h"
#include "time/transforms.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// The Moon at a Julian day, written into `record`: apparent ecliptic place and distance (fields
// 4 to 6, degrees and kilometres), right ascension and declination (7, 8, hours and degrees), phase
// angle and position angle of the axis (9, 10, radians), illuminated fraction (15). All geocentric:
// the observer's place changes no field. No other field is touched.
// The phase angle and the fraction need the Earth's slot; without it 9 and 15 are left as they are.
// A longitude that is not a number is not written; every other field is, whatever its value.
// Returns the apparent direction, that of fields 7 and 8.
// Source: Meeus, Astronomical Algorithms, chapters 47, 48 and 53.
Equatorial ComputeMoonPosition(const EphemerisStore& store, double julian_day,
                               double observer_longitude, double observer_latitude,
                               MomentCache& cache, BodyPositionRecord& record);

}  // namespace zenithor
