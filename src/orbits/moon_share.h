#pragma once

#include "orbits/earth_sums.h"
#include "time/obliquity.h"
#include "time/transforms.h"

namespace zenithor {

// A longitude [arcsec] brought back by one turn, 1296000, where it is beyond 645000 either way.
double TurnLunarLongitude(double arcseconds);

// The Moon's geocentric vector [au], equatorial, equinox of date, from the lunar series. Fills the
// argument list for the day.
Rectangular GeocentricMoon(double julian_day, SeriesScratch& scratch, ObliquityCache& obliquity);

// Turns the heliocentric vector of the Earth-Moon barycentre (equatorial J2000.0, au) into that of
// the Earth's centre; returns its length.
double RemoveMoonFromBarycentre(double julian_day, SeriesScratch& scratch,
                                ObliquityCache& obliquity, Rectangular& vector);

}  // namespace zenithor
