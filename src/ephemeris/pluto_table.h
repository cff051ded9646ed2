#pragma once

#include "time/transforms.h"

namespace zenithor {

// Pluto's heliocentric place at T Julian centuries from J2000.0 from 43 periodic terms, ecliptic
// and equinox J2000.0; radians, the longitude in [0, 2 pi), and astronomical units. Any T is
// answered. The published table is valid from 1885 to 2099 only, and good there to 0.07" in
// longitude, 0.02" in latitude and 6e-6 au. The multiplier that differs here (docs/deliberate.md)
// puts Pluto up to 183", 93" and 0.013 au off.
// Source: Meeus, Astronomical Algorithms, chapter 37.
Spherical EvaluatePluto(double centuries);

}  // namespace zenithor
