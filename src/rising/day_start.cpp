#include "rising/day_start.h"

#include <cmath>

namespace zenithor {

namespace {

constexpr double kMinutesPerDay = 1440.0;

// floor((p + r) / 1440) for |p|, |r| < 1440, exactly: hi + lo is p + r without error (Knuth, The
// Art of Computer Programming 2, section 4.2.2), and hi is the sum rounded, so a threshold that hi
// passes or misses the sum passes or misses too.
double FloorOfDays(long double p, long double r) {
  const long double hi = p + r;
  const long double of_r = hi - p;
  const long double lo = (p - (hi - of_r)) + (r - of_r);
  const auto reaches = [hi, lo](long double threshold) {
    return hi > threshold || (hi == threshold && lo >= 0.0L);
  };
  const auto day = static_cast<long double>(kMinutesPerDay);
  if (reaches(day)) {
    return 1.0;
  }
  if (reaches(0.0L)) {
    return 0.0;
  }
  return reaches(-day) ? -1.0 : -2.0;
}

}  // namespace

double DaysToDayStart(double day_number, double minutes) {
  // Whole days and the rest, both exact: a fraction keeps the low bits of its number, and the
  // remainder of a division by 1440 is exact by definition.
  const double whole_days = std::trunc(day_number);
  const double fraction = day_number - whole_days;
  const double minutes_rest = std::fmod(minutes, kMinutesPerDay);
  const double days_of_minutes = (minutes - minutes_rest) / kMinutesPerDay;
  // A fraction has 53 bits and 1440 adds 6, so the product fits the 64 of extended precision.
  const long double fraction_minutes =
      static_cast<long double>(fraction) * static_cast<long double>(kMinutesPerDay);
  const double carry = FloorOfDays(fraction_minutes, static_cast<long double>(minutes_rest));
  return whole_days + days_of_minutes + carry - 14246.0 + 0.5;
}

}  // namespace zenithor
