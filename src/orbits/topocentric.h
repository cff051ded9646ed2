#pragma once

#include "orbits/state.h"

namespace zenithor {

// The observer's geocentric latitude [deg] and radius [equatorial radii] from the geodetic latitude
// [deg, -90 to 90] at height 0, written into `observer`. Ellipsoid WGS 84: equatorial radius
// 6378137 m, inverse flattening 298.257222.
void DeriveObserver(PlutoObserver& observer);

// Right ascension, which is not reduced again after the aberration, and declination [rad] as the
// observer sees them at a Julian day of universal time: mean sidereal time, parallax for the
// distance [au], diurnal aberration to first order. Changes no field of any record.
// Source: Meeus, Astronomical Algorithms, chapters 12 and 40; Explanatory Supplement to the
// Astronomical Almanac (1992), section 3.25.
TopocentricPlace ComputeTopocentric(double alpha, double delta, double distance,
                                    double universal_day, const PlutoObserver& observer);

}  // namespace zenithor
