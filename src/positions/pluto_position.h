#pragma once

#include "orbits/state.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// Pluto's heliocentric and apparent geocentric place at a Julian day, written into fields 1 to 8 of
// `record` in degrees, hours and astronomical units. The day serves unchanged as dynamical and as
// universal time. The observer's place [deg, any number] changes no field. Always answers.
// From 1500 to 2500 right ascension and declination are within 2" of the apparent place, most of it
// the Earth's share; longitude and latitude, which are turned by the mean obliquity, within 3.0"
// and 9.9" of those on the true ecliptic of date. Outside the years -3000 to 3000 the series run
// away. Returns the apparent direction, that of fields 7 and 8. Source: Explanatory Supplement to
// the Astronomical Almanac (1992), section 3.3.
Equatorial ComputePlutoPosition(double julian_day, double observer_longitude,
                                double observer_latitude, OrbitsState& state,
                                BodyPositionRecord& record);

}  // namespace zenithor
