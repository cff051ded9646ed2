#pragma once

#include "orbits/series_sum.h"

namespace zenithor {

// The fundamental arguments of the series: the planets' mean longitudes and the Moon's arguments.

// Places in the argument list, counted from 1 as the argument streams count them.
enum Argument {
  kEarthMeanLongitude = 3,
  kMoonElongation = 10,
  kMoonLatitudeArgument = 11,
  kSunAnomaly = 12,
  kMoonAnomaly = 13,
  kMoonMeanLongitude = 14,  // equinox of date
};

// Mean longitude [rad] of planet 1 (Mercury) to 9 (Pluto) at T, in units of 10 000 Julian years
// from J2000.0, ecliptic J2000.0: reduced to one turn before its phase is added. 0 beyond the
// ninth.
double PlanetMeanLongitude(int planet, double t);

// The Moon's mean longitude [arcsec], equinox of date, not reduced to one turn, at T Julian
// centuries from J2000.0.
double MoonMeanLongitudeArcseconds(double centuries);

// Writes entries 3 and 10 to 14 of the argument list [rad] for a Julian day, and no others.
void FillMeanElements(double julian_day, double (&arguments)[kArgumentLimit]);

}  // namespace zenithor
