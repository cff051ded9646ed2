#pragma once

#include "ephemeris/moment_cache.h"
#include "ephemeris/store.h"
#include "time/transforms.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// The Moon at a Julian day [day, any], written into `record`: apparent ecliptic place and distance
// (fields 4 to 6, degrees and kilometres), right ascension and declination (7, 8, hours and
// degrees), phase angle and position angle of the axis (9, 10, radians), illuminated fraction (15).
// All geocentric: the observer's place [deg, any numbers] changes no field. No other field is
// touched.
// The phase angle and the fraction need the Earth's slot; without it 9 and 15 are left as they are.
// A longitude that is NaN is not written; every other field is, whatever its value.
// Returns the apparent direction, that of fields 7 and 8.
// Accuracy: moon/lunar_series.h and moon/physical_ephemeris.h.
// Source: Meeus, Astronomical Algorithms, chapters 47, 48 and 53.
Equatorial ComputeMoonPosition(const EphemerisStore& store, double julian_day,
                               double observer_longitude, double observer_latitude,
                               MomentCache& cache, BodyPositionRecord& record);

}  // namespace zenithor
