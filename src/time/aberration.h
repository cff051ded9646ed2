#pragma once

#include "time/transforms.h"

namespace zenithor {

// Annual aberration in equatorial coordinates and the Sun's longitude that it needs.
// Source: Meeus, Astronomical Algorithms, chapters 23 and 25.

struct SunLongitude {
  double longitude;     // [rad] true geometric longitude, not reduced
  double eccentricity;  // of the Earth's orbit
};

// At T Julian centuries from J2000.0, any; good to 0.01 degree over some centuries about it.
SunLongitude SunTrueLongitude(double centuries);

enum class AberrationTerms { kCircularOrbit, kWithEccentricity };

// Corrects `place` for annual aberration, at most 21" of arc, at T Julian centuries from J2000.0;
// epsilon [rad] is the obliquity. At a declination of exactly 90 degrees either way the result is
// not finite. The right ascension is not reduced again.
void AnnualAberration(double centuries, double epsilon, AberrationTerms terms, Equatorial& place);

}  // namespace zenithor
