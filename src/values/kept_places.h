#pragma once

#include "ephemeris/store.h"
#include "positions/place_memory.h"
#include "positions/position.h"

namespace zenithor {

// The places that fields are made from, from the memory of the thread where it has them. `spare`
// serves callers who keep nothing. Moments are finite Julian days.

// The place of a moment. Where there are no data its fields are NaN and has_place is false.
KeptPlace& PlaceAt(const EphemerisStore& store, PositionState& state, int body, double julian_day,
                   KeptPlace& spare);

// PlaceAt with the apparent longitude and latitude.
KeptPlace& EclipticPlaceAt(const EphemerisStore& store, PositionState& state, int body,
                           double julian_day, KeptPlace& spare);

// PlaceAt with the motions, which need not have the place itself.
KeptPlace& MotionAt(const EphemerisStore& store, PositionState& state, int body, double julian_day,
                    KeptPlace& spare);

// Evaluates side by side what PlaceAt will be asked for at kMomentsAtOnce moments, any numbers.
// Does nothing where that is no gain: for Pluto, where fewer moments are new, or where nothing is
// kept.
void PreparePlaces(const EphemerisStore& store, PositionState& state, int body,
                   const double* julian_days);

}  // namespace zenithor
