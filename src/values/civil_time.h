#pragma once

#include <cstdint>

namespace zenithor {

// The calendar in whole numbers, for any date of the years -200000 to 200000 (time/julian_day.h has
// the record's, which is not meant for days before -1401). Julian calendar until 1582 October 4,
// Gregorian from 1582 October 15 on; year 0 is 1 BC.

struct CivilTime {
  std::int32_t year, month, day, hour, minute;
  double second;  // 0 to 60, 60 not included; to 61 when a Julian day is made of it
};

// NaN when there is no such date or time.
double JulianDayOf(const CivilTime& time);

// The date of a Julian day, rounded first to a multiple of `round_to` seconds of its day (0: not
// rounded). False, and nothing is written, for a day beyond the years, or when round_to is not 0 to
// 86400.
bool CivilTimeOf(double julian_day, double round_to, CivilTime& time);

}  // namespace zenithor
