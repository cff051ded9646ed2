#include "values/civil_time.h"

#include <cmath>
#include <limits>

namespace zenithor {

namespace {

constexpr std::int32_t kLastYear = 200000;
constexpr std::int64_t kFirstGregorianDay = 2299161;  // the day number of 1582 October 15
constexpr double kSecondsPerDay = 86400.0;

// Day number (the Julian day at noon) of March 1 of year 0, from which both calendars count.
constexpr std::int64_t kJulianOrigin = 1721118;
constexpr std::int64_t kGregorianOrigin = 1721120;

std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t quotient = dividend / divisor;
  return dividend % divisor < 0 ? quotient - 1 : quotient;
}

bool IsGregorian(std::int32_t year, std::int32_t month, std::int32_t day) {
  if (year != 1582) {
    return year > 1582;
  }
  return month > 10 || (month == 10 && day >= 15);
}

bool IsLeapYear(std::int32_t year, bool gregorian) {
  return year % 4 == 0 && (!gregorian || year % 100 != 0 || year % 400 == 0);
}

bool IsDate(std::int32_t year, std::int32_t month, std::int32_t day) {
  if (year < -kLastYear || year > kLastYear || month < 1 || month > 12 || day < 1) {
    return false;
  }
  constexpr std::int32_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap_day = month == 2 && IsLeapYear(year, IsGregorian(year, month, day));
  if (day > kDays[month - 1] + (leap_day ? 1 : 0)) {
    return false;
  }
  const bool left_out = year == 1582 && month == 10 && day > 4 && day < 15;
  return !left_out;
}

std::int64_t DayNumber(std::int32_t year, std::int32_t month, std::int32_t day) {
  // Years and months from March on, so that the leap day comes last.
  const std::int64_t y = std::int64_t{year} - (month > 2 ? 0 : 1);
  const std::int64_t m = month > 2 ? month - 3 : month + 9;
  const std::int64_t days = (153 * m + 2) / 5 + day - 1 + 365 * y + FloorDivide(y, 4);
  return IsGregorian(year, month, day)
             ? kGregorianOrigin + days - FloorDivide(y, 100) + FloorDivide(y, 400)
             : kJulianOrigin + days;
}

// The date of a day number.
void WriteDate(std::int64_t day_number, CivilTime& time) {
  std::int64_t y = 0;
  std::int64_t day_of_year = 0;
  if (day_number >= kFirstGregorianDay) {
    const std::int64_t days = day_number - kGregorianOrigin;
    const std::int64_t cycle = FloorDivide(days, 146097);
    const std::int64_t d = days - cycle * 146097;
    const std::int64_t years = (d - d / 1460 + d / 36524 - d / 146096) / 365;
    y = 400 * cycle + years;
    day_of_year = d - (365 * years + years / 4 - years / 100);
  } else {
    const std::int64_t days = day_number - kJulianOrigin;
    const std::int64_t cycle = FloorDivide(days, 1461);
    const std::int64_t d = days - cycle * 1461;
    const std::int64_t years = (d - d / 1460) / 365;
    y = 4 * cycle + years;
    day_of_year = d - 365 * years;
  }
  const std::int64_t m = (5 * day_of_year + 2) / 153;
  time.day = static_cast<std::int32_t>(day_of_year - (153 * m + 2) / 5 + 1);
  time.month = static_cast<std::int32_t>(m < 10 ? m + 3 : m - 9);
  time.year = static_cast<std::int32_t>(m < 10 ? y : y + 1);
}

// A multiple of `round_to`, to the whole second where it is one but for the last bits.
double Rounded(double seconds, double round_to) {
  const double rounded = std::round(seconds / round_to) * round_to;
  const double whole = std::round(rounded);
  return std::fabs(rounded - whole) < 1e-9 ? whole : rounded;
}

}  // namespace

double JulianDayOf(const CivilTime& time) {
  const bool is_time = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 &&
                       time.second >= 0.0 && time.second < 61.0;
  if (!is_time || !IsDate(time.year, time.month, time.day)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  const double seconds = (time.hour * 60.0 + time.minute) * 60.0 + time.second;
  const auto noon = static_cast<double>(DayNumber(time.year, time.month, time.day));
  return noon - 0.5 + seconds / kSecondsPerDay;
}

bool CivilTimeOf(double julian_day, double round_to, CivilTime& time) {
  constexpr double kFarthest = 8e7;  // [day] beyond the last year, and whole numbers are exact
  if (!(std::fabs(julian_day) < kFarthest) || !(round_to >= 0.0 && round_to <= kSecondsPerDay)) {
    return false;
  }
  const double whole = std::floor(julian_day);
  const double fraction = julian_day - whole;
  const bool morning = fraction >= 0.5;
  auto day_number = static_cast<std::int64_t>(whole) + (morning ? 1 : 0);
  double seconds = (morning ? fraction - 0.5 : fraction + 0.5) * kSecondsPerDay;
  if (round_to > 0.0) {
    seconds = Rounded(seconds, round_to);
  }
  if (seconds >= kSecondsPerDay) {
    seconds = 0.0;
    ++day_number;
  }
  CivilTime found{};
  WriteDate(day_number, found);
  if (found.year < -kLastYear || found.year > kLastYear) {
    return false;
  }
  const auto minutes = static_cast<std::int32_t>(seconds / 60.0);
  found.hour = minutes / 60;
  found.minute = minutes % 60;
  found.second = std::fmax(seconds - 60.0 * minutes, 0.0);
  time = found;
  return true;
}

}  // namespace zenithor
