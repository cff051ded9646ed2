#include "rising/day_start.h"

#include <cmath>

#include "numerics/pair.h"

namespace zenithor {

namespace {

constexpr double kMinutesPerDay = 1440.0;

// floor((p + r) / 1440) for |p|, |r| < 1440, exactly: the sum is kept as three doubles without
// error (Knuth, The Art of Computer Programming 2, section 4.2.2), the first of them nearly all of
// it.
double FloorOfDays(Pair p, double r) {
  const Pair sum = TwoSum(p.high, r);
  const Pair rest = TwoSum(sum.low, p.low);
  const auto reaches = [&sum, &rest](double threshold) {
    // Exact where it is small, and of the right sign where it is not.
    const double beyond = sum.high - threshold;
    const Pair above = TwoSum(beyond, rest.high);
    return above.high > 0.0 || (above.high == 0.0 && above.low + rest.low >= 0.0);
  };
  if (reaches(kMinutesPerDay)) {
    return 1.0;
  }
  if (reaches(0.0)) {
    return 0.0;
  }
  return reaches(-kMinutesPerDay) ? -1.0 : -2.0;
}

}  // namespace

double DaysToDayStart(double day_number, double minutes) {
  // Whole days and the rest, both exact: a fraction keeps the low bits of its number, and the
  // remainder of a division by 1440 is exact by definition.
  const double whole_days = std::trunc(day_number);
  const double fraction = day_number - whole_days;
  const double minutes_rest = std::fmod(minutes, kMinutesPerDay);
  const double days_of_minutes = (minutes - minutes_rest) / kMinutesPerDay;
  const double carry = FloorOfDays(TwoProduct(fraction, kMinutesPerDay), minutes_rest);
  return whole_days + days_of_minutes + carry - 14246.0 + 0.5;
}

}  // namespace zenithor
