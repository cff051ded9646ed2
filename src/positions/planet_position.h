#pragma once

#include "ephemeris/moment_cache.h"
#include "ephemeris/store.h"
#include "time/nutation.h"
#include "time/transforms.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// How much of a planet's place is wanted; each includes the ones before it.
enum class PlaceDepth { kHeliocentric, kGeometric, kApparent };

// The angles before they are stored [rad]: a longitude or right ascension may lie a little outside
// [0, 2 pi). What is not wanted, or what the body does not have, is 0.
struct PlanetPlace {
  double epsilon0;  // mean obliquity
  NutationAngles nutation;
  Spherical heliocentric;  // its longitude with nutation
  Spherical geometric;     // geocentric
  Equatorial apparent;
};

// The place of a body of code 0 to 9 at T Julian centuries from J2000.0, as far as `depth` says.
PlanetPlace ComputePlanetPlace(const EphemerisStore& store, double centuries, BodyCode code,
                               PlaceDepth depth, MomentCache& cache);

// The same at each of `count` times, 1 to kMomentsAtOnce, to the bit; four cost less than four
// times one.
void ComputePlanetPlaces(const EphemerisStore& store, const double* centuries, int count,
                         BodyCode code, PlaceDepth depth, MomentCache& cache, PlanetPlace* places);

// The place of a body of code 0 to 8 at a Julian day [day, any], written into `record` in degrees,
// hours and astronomical units: heliocentric (fields 1-3, not for the Sun), geometric geocentric
// (4-6) and apparent right ascension and declination (7, 8; 4-8 not for the Earth), obliquity and
// centuries (16, 17). The slots that the code needs must be loaded. Code 9, which the position
// export sends elsewhere, is answered from Pluto's table seen from the Earth of J2000.0.
// The observer's place [deg, any numbers] changes no field.
// Returns the apparent direction as it is before fields 7 and 8 take it; 0 for the Earth.
// Accuracy: that of the heliocentric places (ephemeris/series.h).
// Source: Meeus, Astronomical Algorithms, chapters 22, 23, 32 and 33.
Equatorial ComputePlanetPosition(const EphemerisStore& store, double julian_day,
                                 double observer_longitude, double observer_latitude, BodyCode code,
                                 MomentCache& cache, BodyPositionRecord& record);

// The same at each of `count` Julian days, 1 to kMomentsAtOnce; what it returns goes to `apparent`.
void ComputePlanetPositions(const EphemerisStore& store, const double* julian_days, int count,
                            BodyCode code, MomentCache& cache, BodyPositionRecord* records,
                            Equatorial* apparent);

}  // namespace zenithor
