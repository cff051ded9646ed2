#pragma once

#include <cstdint>

#include "ephemeris/moment_cache.h"
#include "ephemeris/store.h"
#include "rising/rising_day.h"

namespace zenithor {

// Rising, transit or setting of a body on a day, in minutes after the day's start.
//   request   the day, the observer and the body; with a number that is not finite the answer is
//             NaN
//   selector  1 rising, 2 transit, 3 setting; any other gives 0.0
// 0.0 too for a code beyond 0 to 10 and where a slot that the code needs is not loaded.
// ZENITHOR_ALWAYS_UP or ZENITHOR_NEVER_UP where the body does not cross the horizon, for the
// transit too; NaN for a time that does not settle.
// Source: Meeus, Astronomical Algorithms, chapter 15.
double ComputeRising(const EphemerisStore& store, MomentCache& cache, const RisingRequest& request,
                     std::int32_t selector);

}  // namespace zenithor
