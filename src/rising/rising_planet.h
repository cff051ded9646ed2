#pragma once

#include "ephemeris/moment_cache.h"
#include "ephemeris/store.h"
#include "rising/rising_day.h"

namespace zenithor {

// Whether the slots are loaded that a body of code 0 to 9 is placed with: the Earth's and its own,
// for Pluto slot 0 alone.
bool HasSlotsForRising(const EphemerisStore& store, BodyCode code);

// The three places and the standard altitude (0.8333 degree below the horizon for the Sun, 0.5667
// for any other body) of a body of code 0 to 9. Sun to Mars: geometric places of three successive
// days. Jupiter to Pluto: the apparent topocentric place of the given instant for all three. The
// Earth has no direction from itself: its places are NaN.
// Source: Meeus, Astronomical Algorithms, chapters 15, 23, 33 and 40.
RiseSetProblem PlanetRiseSetProblem(const EphemerisStore& store, const RisingRequest& request,
                                    MomentCache& cache);

}  // namespace zenithor
