#pragma once

#include "ephemeris/store.h"
#include "time/transforms.h"

namespace zenithor {

// Heliocentric places: longitude L and latitude B in radians, radius vector R in astronomical
// units, ecliptic and mean equinox of date. T is in Julian centuries from J2000.0. Source: P.
// Bretagnon, G. Francou, Planetary theories in rectangular and spherical variables: VSOP87
// solutions, Astronomy and Astrophysics 202 (1988); Meeus, chapters 32 and 37. `room` is working
// memory for the sum; without it the same bits take several times as long.

// The place of the body `code`: 9 is Pluto from its table, any other the series of that slot.
Spherical EvaluateBody(const EphemerisStore& store, int code, double centuries,
                       SumRoom* room = nullptr);

// The stored series of `slot` (0 to 8) corrected to the FK5 frame. A slot that is not loaded, or
// does not exist, gives zeros. L may lie a few milliarcseconds outside [0, 2 pi).
Spherical EvaluateSeries(const EphemerisStore& store, int slot, double centuries,
                         SumRoom* room = nullptr);

// The stored series alone, before any reduction or frame correction.
Spherical SumStoredSeries(const EphemerisStore& store, int slot, double centuries,
                          SumRoom* room = nullptr);

// The Sun as seen from the body of `slot`, geometric.
Spherical EvaluateSunGeocentric(const EphemerisStore& store, int slot, double centuries);

// The Sun as seen from a body at that heliocentric place.
Spherical SunSeenFrom(const Spherical& body);

// EvaluateSunGeocentric in rectangular coordinates [au], rotated to the equator by `epsilon` [rad],
// or, for slot 0, by the fixed rotation to the equator of J2000.0 in the FK5 frame.
Rectangular EclipticRectangular(const EphemerisStore& store, int slot, double centuries,
                                double epsilon);

}  // namespace zenithor
