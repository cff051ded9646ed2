#include "moment.h"

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <regex>

#include "failure.h"
#include "options.h"

namespace zenithor::almanac {

namespace {

constexpr double kUnixEpoch = 2440587.5;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kGregorianReform = 2299160.5;  // 1582 October 15, 0h

constexpr char kWhyThese[] =
    "the library's calendar does not reach back much further, and later its series are off by days";

// Meeus, Astronomical Algorithms, chapter 7.
double JulianDay(long year, int month, double day) {
  const bool gregorian =
      year > 1582 || (year == 1582 && (month > 10 || (month == 10 && day >= 15.0)));
  if (month <= 2) {
    --year;
    month += 12;
  }
  const double y = static_cast<double>(year);
  const double a = std::floor(y / 100.0);
  const double b = gregorian ? 2.0 - a + std::floor(a / 4.0) : 0.0;
  return std::floor(365.25 * (y + 4716.0)) + std::floor(30.6001 * (month + 1)) + day + b - 1524.5;
}

int DaysInMonth(long year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = year % 4 == 0 && (year <= 1582 || year % 100 != 0 || year % 400 == 0);
  return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

// The longest date is far shorter, and std::regex recurses with the length of the text.
constexpr std::size_t kLongestText = 100;

double CheckedDay(const std::string& option, const std::string& text, double julian_day) {
  if (!(julian_day >= YearStart(kFirstYear) && julian_day <= YearStart(kLastYear + 1))) {
    throw Failure("{} \"{}\": dates go from {}-01-01 (JD {:.1f}) to {}-01-01 (JD {:.1f}); {}",
                  option, text, kFirstYear, YearStart(kFirstYear), kLastYear + 1,
                  YearStart(kLastYear + 1), kWhyThese);
  }
  return julian_day;
}

}  // namespace

double MomentOf(const std::string& option, const std::string& text) {
  static const std::regex julian_day(R"(\s*[jJ][dD]\s*([-+]?[0-9]+(\.[0-9]*)?)\s*)");
  static const std::regex calendar(
      R"(\s*([-+]?[0-9]{1,6})-([0-9]{1,2})-([0-9]{1,2})([ T]([0-9]{1,2}):([0-9]{2})(:([0-9]{2}(\.[0-9]*)?))?)?\s*)");
  std::smatch match;
  const bool readable = text.size() <= kLongestText;
  if (readable && std::regex_match(text, match, julian_day)) {
    return CheckedDay(option, text, std::strtod(match[1].str().c_str(), nullptr));
  }
  if (!readable || !std::regex_match(text, match, calendar)) {
    throw Failure(
        "{} \"{}\": not a date; write 2026-11-21, 2026-11-21T06:30:00 or \"jd 2461365.75\"", option,
        text);
  }
  const long year = std::stol(match[1]);
  const int month = std::stoi(match[2]);
  const int day = std::stoi(match[3]);
  const int hour = match[5].matched ? std::stoi(match[5]) : 0;
  const int minute = match[6].matched ? std::stoi(match[6]) : 0;
  const double second = match[8].matched ? std::stod(match[8]) : 0.0;
  if (month < 1 || month > 12) {
    throw Failure("{} \"{}\": there is no month {}", option, text, month);
  }
  if (day < 1 || day > DaysInMonth(year, month)) {
    throw Failure("{} \"{}\": month {} of the year {} has no day {}", option, text, month, year,
                  day);
  }
  if (year == 1582 && month == 10 && day > 4 && day < 15) {
    throw Failure("{} \"{}\": 1582 October 4 was followed by October 15", option, text);
  }
  if (hour > 23 || minute > 59 || second >= 60.0) {
    throw Failure("{} \"{}\": there is no such time of day", option, text);
  }
  return CheckedDay(
      option, text,
      JulianDay(year, month, day) + (hour * 3600.0 + minute * 60.0 + second) / kSecondsPerDay);
}

double YearStart(int year) { return JulianDay(year, 1, 1.0); }

int YearOf(const std::string& option, const std::string& text) {
  const int year = WholeNumberOf(option, text);
  if (year < kFirstYear || year > kLastYear) {
    throw Failure("{} \"{}\": years go from {} to {}; {}", option, text, kFirstYear, kLastYear,
                  kWhyThese);
  }
  return year;
}

double CurrentJulianDay() {
  return kUnixEpoch + static_cast<double>(std::time(nullptr)) / kSecondsPerDay;
}

Instant InstantOf(double julian_day) {
  // To the nearest millisecond first, so that a whole second is not shown as the one before.
  const double milliseconds =
      std::floor((julian_day + 0.5 - std::floor(julian_day + 0.5)) * kSecondsPerDay * 1000.0 + 0.5);
  const double carry = milliseconds >= kSecondsPerDay * 1000.0 ? 1.0 : 0.0;
  const int second_of_day = carry > 0.0 ? 0 : static_cast<int>(milliseconds / 1000.0);
  const double z = std::floor(julian_day + 0.5) + carry;
  double a = z;
  if (z >= kGregorianReform + 0.5) {
    const double alpha = std::floor((z - 1867216.25) / 36524.25);
    a = z + 1.0 + alpha - std::floor(alpha / 4.0);
  }
  const double b = a + 1524.0;
  const double c = std::floor((b - 122.1) / 365.25);
  const double d = std::floor(365.25 * c);
  const double e = std::floor((b - d) / 30.6001);
  const double month = e < 14.0 ? e - 1.0 : e - 13.0;
  const double year = month > 2.0 ? c - 4716.0 : c - 4715.0;
  const double day = b - d - std::floor(30.6001 * e);
  return {static_cast<int>(year), static_cast<int>(month), static_cast<int>(day),
          second_of_day / 3600,   second_of_day / 60 % 60, second_of_day % 60};
}

std::string DateText(const Instant& instant) {
  return fmt::format("{}{:04}-{:02}-{:02}", instant.year < 0 ? "-" : "", std::abs(instant.year),
                     instant.month, instant.day);
}

std::string CalendarText(const Instant& instant) {
  return fmt::format("{} {:02}:{:02}:{:02}", DateText(instant), instant.hour, instant.minute,
                     instant.second);
}

std::string CalendarText(double julian_day) { return CalendarText(InstantOf(julian_day)); }

}  // namespace zenithor::almanac
