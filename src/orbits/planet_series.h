#pragma once

#include "orbits/earth_sums.h"
#include "time/transforms.h"

namespace zenithor {

// Heliocentric longitude, latitude [rad] and radius [au], ecliptic and equinox J2000.0, from a
// series table at a Julian day. The longitude is not reduced. Good from -3000 to 3000.

// For a table whose arguments are the planets' mean longitudes (Pluto). Its coefficient scale is
// not read.
Spherical EvaluatePlanetSeries(double julian_day, const PlanetSeriesTable& table,
                               SeriesScratch& scratch);

// For the Earth-Moon barycentre, whose arguments are those of the list: fills the list for the day,
// then adds the mean longitude of `body_index` (3) to the longitude.
Spherical EvaluateEarthSeries(double julian_day, const PlanetSeriesTable& table, int body_index,
                              SeriesScratch& scratch);

}  // namespace zenithor
