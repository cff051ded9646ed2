#pragma once

#include "time/transforms.h"

namespace zenithor {

// Pluto's heliocentric place from 43 periodic terms, ecliptic and equinox J2000.0; radians and
// astronomical units. The published table is valid from 1885 to 2099 only.
// Source: Meeus, Astronomical Algorithms, chapter 37.
Spherical EvaluatePluto(double centuries);

}  // namespace zenithor
