#pragma once

#include "ephemeris/moment_cache.h"
#include "ephemeris/store.h"
#include "orbits/state.h"
#include "positions/answer_memory.h"
#include "positions/node_memory.h"
#include "positions/place_memory.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// What places keep from call to call; one per thread. Constant-initialized.
struct PositionState {
  OrbitsState orbits;             // Pluto's
  MomentCache moment;             // what the bodies of one moment share
  AnswerMemory answers;           // of ComputePosition; without room for any until it has some
  PlaceMemory* places = nullptr;  // where field by field is asked; without it nothing is kept
  NodeMemory* nodes = nullptr;    // of searches; likewise
};

// Where a body stands: the call handed to the driver of its code, with the calendar fields that
// every body has. Writes the fields that the code has (planet_position.h, moon_position.h,
// pluto_position.h) and leaves the others of `record` untouched.
//   julian_day          [day]; any number, NaN and infinities included
//   observer_longitude  [deg] and latitude [deg], any numbers: no field depends on them
//   code                0 to 10; any other is served as Mercury
//   record              the caller's; null gives 0.0
// Returns ZENITHOR_DONE, or 0.0, with nothing written, where a slot that the code needs is not
// loaded. An answer that state.answers holds is taken from there.
double ComputePosition(const EphemerisStore& store, PositionState& state, double julian_day,
                       double observer_longitude, double observer_latitude, BodyCode code,
                       BodyPositionRecord* record);

// The same, for a record that is there; the apparent direction, unreduced, goes to `apparent`. It
// is left as it is where nothing is written.
double ComputePlace(const EphemerisStore& store, PositionState& state, double julian_day,
                    double observer_longitude, double observer_latitude, BodyCode code,
                    BodyPositionRecord& record, Equatorial& apparent);

// The same at each of `count` Julian days, 1 to kMomentsAtOnce, to the bit; four places of a planet
// cost less than four times one. All are answered or none.
double ComputePlaces(const EphemerisStore& store, PositionState& state, const double* julian_days,
                     int count, BodyCode code, BodyPositionRecord* records, Equatorial* apparent);

}  // namespace zenithor
