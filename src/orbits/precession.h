#pragma once

#include "time/obliquity.h"
#include "time/transforms.h"

namespace zenithor {

enum class PrecessionDirection { kToJ2000, kFromJ2000 };

// Precesses an equatorial rectangular vector (any unit) between the equinox of `julian_day` [day]
// and J2000.0 in place, by rotation of the ecliptic. At J2000.0 exactly nothing is changed. Leaves
// `obliquity` at the equinox arrived at.
// Source: J. Laskar, Secular terms of classical planetary theories using the results of general
// theory, Astronomy and Astrophysics 157 (1986), table 7, the low powers refitted to newer
// observations; within 10 000 years of J2000.0.
void PrecessVector(double julian_day, PrecessionDirection direction, ObliquityCache& obliquity,
                   Rectangular& vector);

// Rotation about the first axis from equator to ecliptic with the obliquity in the cache, and back.
Rectangular EquatorToEcliptic(const Rectangular& vector, const ObliquityCache& obliquity);
Rectangular EclipticToEquator(const Rectangular& vector, const ObliquityCache& obliquity);

}  // namespace zenithor
