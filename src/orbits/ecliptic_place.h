#pragma once

#include "time/obliquity.h"
#include "time/transforms.h"

namespace zenithor {

// Ecliptic places of equatorial vectors: longitude 0 to 2 pi and latitude [rad], and the length
// [unit of the vector]. The rotation is that of the mean obliquity of the day, to which `obliquity`
// is brought.

// Of a vector of date whose length before any rotation was `radius`.
Spherical EclipticPlace(double julian_day, const Rectangular& vector_of_date, double radius,
                        ObliquityCache& obliquity);

// Of a vector of date, its length as it stands.
Spherical EclipticPlaceOfDate(double julian_day, const Rectangular& vector_of_date,
                              ObliquityCache& obliquity);

// Of a vector that is referred to J2000.0 and is precessed to the equinox of the day first.
Spherical EclipticPlaceFromJ2000(double julian_day, const Rectangular& vector,
                                 ObliquityCache& obliquity);

}  // namespace zenithor
