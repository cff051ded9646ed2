#pragma once

#include "rising/rising_day.h"

namespace zenithor {

// The three places of the Moon, geocentric and of the mean equinox of date, and its standard
// altitude 0.7275 pi less 0.5667 degree with the horizontal parallax pi of the given instant.
// Source: Meeus, Astronomical Algorithms, chapters 15 and 47.
RiseSetProblem MoonRiseSetProblem(const RisingRequest& request);

}  // namespace zenithor
