#pragma once

namespace zenithor {

// The host's day: numbers count from 1960 December 31, and a day begins at 0h of the host's zone,
// that is `zone_hours` after 0h of universal time (positive west of Greenwich).

constexpr double kDayNumberEpoch = 2437299.5;  // Julian day of day number 0

// Days from J2000.0 to 0h universal time of the day that holds the instant `minutes` after
// `day_number`: floor(day_number + minutes / 1440) - 14246 + 0.5, with the floor taken of the exact
// sum. A whole day number with 0 minutes is therefore always that day; the same floor of a moment
// in Julian centuries would be a day low for 4 to 13 percent of whole day numbers. Both arguments
// finite. Exact while the day number has at most 52 bits.
double DaysToDayStart(double day_number, double minutes);

}  // namespace zenithor
