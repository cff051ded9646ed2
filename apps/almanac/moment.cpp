#include "moment.h"

#include <cmath>
#include <cstdlib>
#include <regex>

#include "failure.h"
#include "options.h"
#include "words.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

constexpr char kWrite[] = "write 2026-11-21, 2026-11-21T06:30, now, today or jd2461365.75";

// The longest date is far shorter, and std::regex recurses with the length of the text.
constexpr std::size_t kLongestText = 60;

int DaysInMonth(long year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = year % 4 == 0 && (year <= 1582 || year % 100 != 0 || year % 400 == 0);
  return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

double YearStartDay(int year) { return ZenithorJulianDay(year, 1, 1, 0, 0, 0.0); }

double CheckedDay(const std::string& option, const std::string& text, double julian_day) {
  constexpr double kZone = 1.0;  // of the first day and the last any zone's
  if (!(julian_day >= YearStartDay(kFirstYear) - kZone &&
        julian_day <= YearStartDay(kLastYear + 1) + kZone)) {
    throw Failure("{} \"{}\": dates go from {}-01-01 (JD {:.1f}) to {}-01-01 (JD {:.1f})", option,
                  text, kFirstYear, YearStartDay(kFirstYear), kLastYear + 1,
                  YearStartDay(kLastYear + 1));
  }
  return julian_day;
}

int Part(const std::smatch& match, std::size_t place, int missing) {
  return match[place].matched ? std::stoi(match[place]) : missing;
}

// Which part of a date that has the right form is wrong; empty where none is.
std::string WrongPart(long year, int month, int day) {
  if (month < 1 || month > 12) {
    return fmt::format("there is no month {}", month);
  }
  if (day < 1 || day > DaysInMonth(year, month)) {
    return fmt::format("month {} of the year {} has no day {}", month, year, day);
  }
  if (year == 1582 && month == 10 && day > 4 && day < 15) {
    return "1582 October 4 was followed by October 15";
  }
  return "";
}

double CalendarMoment(const std::string& option, const std::string& text, const std::smatch& match,
                      const Clock& clock) {
  const std::string where = fmt::format("{} \"{}\"", option, text);
  const int year = std::stoi(match[1]);
  const int month = Part(match, 2, 1);
  const int day = Part(match, 3, 1);
  const int hour = Part(match, 4, 0);
  const int minute = Part(match, 5, 0);
  const double second = match[6].matched ? std::strtod(match[6].str().c_str(), nullptr) : 0.0;
  const std::string wrong = WrongPart(year, month, day);
  if (!wrong.empty()) {
    throw Failure("{}: {}", where, wrong);
  }
  const bool may_be_leap_second = clock.kind != Clock::Kind::kDynamical && minute == 59;
  if (hour > 23 || minute > 59 || second >= (may_be_leap_second ? 61.0 : 60.0)) {
    throw Failure("{}: there is no such time of day; hours go to 23, minutes and seconds to 59",
                  where);
  }
  const double shown = ZenithorJulianDay(year, month, day, hour, minute, second);
  CheckedDay(option, text, shown);
  if (!match[7].matched) {
    return DynamicalOf(clock, shown, where);
  }
  int offset = 0;
  if (!OffsetOfWord(match[7], offset)) {
    throw Failure("{}: \"{}\" is no zone; write Z, +01:00 or -0330", where, match[7].str());
  }
  return ZenithorClockToDynamical(shown - offset / 86400.0);
}

}  // namespace

double MomentOf(const std::string& option, const std::string& text, const Clock& clock) {
  static const std::regex julian_day(R"(\s*[jJ][dD]\s*([-+]?[0-9]{1,12}(\.[0-9]*)?)\s*)");
  static const std::regex calendar(
      R"(\s*([-+]?[0-9]{1,6})(?:-([0-9]{1,2})(?:-([0-9]{1,2})(?:[ Tt]([0-9]{1,2})(?::([0-9]{2})(?::([0-9]{2}(?:\.[0-9]*)?))?)?\s*([zZ]|[uU][tT][cC]|[-+][0-9:]+)?)?)?)?\s*)");
  const std::string word = Plain(text);
  const double midnight = ShownMidnight(clock, Now());
  if (word == "now") {
    return Now();
  }
  if (word == "today" || word == "tomorrow" || word == "yesterday") {
    return NearestDynamicalOf(clock, midnight + (word == "tomorrow"    ? 1.0
                                                 : word == "yesterday" ? -1.0
                                                                       : 0.0));
  }
  std::smatch match;
  const bool readable = text.size() <= kLongestText;
  if (readable && std::regex_match(text, match, julian_day)) {
    return CheckedDay(option, text, std::strtod(match[1].str().c_str(), nullptr));
  }
  if (readable && std::regex_match(text, match, calendar)) {
    return CalendarMoment(option, text, match, clock);
  }
  const std::string nearest = NearestOf(word, {"now", "today", "tomorrow", "yesterday"});
  if (!nearest.empty()) {
    throw Failure("{} \"{}\": did you mean {}?", option, text, nearest);
  }
  static const std::regex plain_number(R"(\s*[0-9]{7}(\.[0-9]*)?\s*)");
  if (readable && std::regex_match(text, match, plain_number)) {
    throw Failure("{} \"{}\": a Julian day begins with jd; write jd{}", option, text, word);
  }
  throw Failure("{} \"{}\": not a date; {}", option, text, kWrite);
}

int YearOf(const std::string& option, const std::string& text) {
  const int year = WholeNumberOf(option, text);
  if (year < kFirstYear || year > kLastYear) {
    throw Failure("{} \"{}\": years go from {} to {}, 0 is 1 BC", option, text, kFirstYear,
                  kLastYear);
  }
  return year;
}

double YearStart(const Clock& clock, int year) {
  return NearestDynamicalOf(clock, YearStartDay(year));
}

int YearAt(const Clock& clock, double dynamical_day) {
  std::int32_t date[5] = {};
  static_cast<void>(ZenithorCalendar(ShownOf(clock, dynamical_day), 1.0, date, nullptr));
  return date[0];
}

double ShownMidnight(const Clock& clock, double dynamical_day) {
  return std::floor(ShownOf(clock, dynamical_day) + 0.5) - 0.5;
}

void CheckSearched(const std::string& option, double dynamical_day) {
  if (!(dynamical_day >= ZENITHOR_FIRST_DAY && dynamical_day <= ZENITHOR_LAST_DAY)) {
    throw Failure("{}: searches go from -2000-01-01 to 4000-01-01", option);
  }
}

}  // namespace zenithor::almanac
