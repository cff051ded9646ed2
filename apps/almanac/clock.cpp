#include "clock.h"

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <regex>

#include "failure.h"
#include "words.h"
#include "zenithor/values.h"
#include "zone_names.h"

namespace zenithor::almanac {

namespace {

constexpr double kUnixEpoch = 2440587.5;
constexpr double kSecondsPerDay = 86400.0;

// "+01:00", with seconds where there are any.
std::string OffsetText(int offset) {
  const int size = std::abs(offset);
  std::string text =
      fmt::format("{}{:02}:{:02}", offset < 0 ? '-' : '+', size / 3600, size / 60 % 60);
  if (size % 60 != 0) {
    text += fmt::format(":{:02}", size % 60);
  }
  return text;
}

std::int64_t UnixSeconds(double julian_day) {
  return std::llround((julian_day - kUnixEpoch) * kSecondsPerDay);
}

struct Calendar {
  std::int32_t date[5];
  double second;
};

Calendar CalendarOf(double shown_day, double round_to) {
  Calendar calendar{};
  static_cast<void>(ZenithorCalendar(shown_day, round_to, calendar.date, &calendar.second));
  return calendar;
}

std::string DateText(const Calendar& calendar) {
  return fmt::format("{}{:04}-{:02}-{:02}", calendar.date[0] < 0 ? "-" : "",
                     std::abs(calendar.date[0]), calendar.date[1], calendar.date[2]);
}

}  // namespace

void AddClockOptions(CLI::App& command, ClockWords& words) {
  command
      .add_option("--zone", words.zone,
                  "Clock of moments read and printed: +1, -03:30, Europe/Berlin, local; else UTC")
      ->type_name("ZONE")
      ->group("Time");
  command.add_option("--time", words.time, "utc, or tt for dynamical time; else utc")
      ->type_name("utc|tt")
      ->group("Time");
}

bool OffsetOfWord(const std::string& word, int& offset) {
  static const std::regex parts(R"((?:utc|gmt)?([-+]?)([0-9]{1,2})(?::?([0-5][0-9]))?)",
                                std::regex::icase);
  static const std::regex decimal(R"(([-+]?)([0-9]{1,2})\.([0-9]{1,6}))");
  constexpr std::size_t kLongestWord = 20;
  constexpr int kMost = 24 * 3600;
  std::smatch match;
  if (word.size() > kLongestWord) {
    return false;
  }
  if (Plain(word) == "z" || Plain(word) == "utc") {
    offset = 0;
    return true;
  }
  if (std::regex_match(word, match, parts)) {
    offset = std::stoi(match[2]) * 3600 + (match[3].matched ? std::stoi(match[3]) * 60 : 0);
  } else if (std::regex_match(word, match, decimal)) {
    offset =
        static_cast<int>(std::lround(std::stod(match[2].str() + "." + match[3].str()) * 3600.0));
  } else {
    return false;
  }
  if (match[1] == "-") {
    offset = -offset;
  }
  return std::abs(offset) <= kMost;
}

Clock ClockOf(const ClockWords& words) {
  Clock clock;
  const std::string time = Plain(words.time);
  if (!time.empty() && time != "utc" && time != "tt") {
    throw Failure("--time \"{}\"{}", words.time, Guess(words.time, {"utc", "tt"}));
  }
  if (time == "tt") {
    if (!words.zone.empty()) {
      throw Failure("--time tt: dynamical time has no zones; leave out --zone {}", words.zone);
    }
    clock.kind = Clock::Kind::kDynamical;
    clock.name = "dynamical time (TT)";
    clock.unit = "TT";
    return clock;
  }
  if (words.zone.empty() || (OffsetOfWord(words.zone, clock.offset) && clock.offset == 0)) {
    return clock;
  }
  if (OffsetOfWord(words.zone, clock.offset)) {
    clock.kind = Clock::Kind::kOffset;
    clock.name = clock.unit = "UTC" + OffsetText(clock.offset);
    return clock;
  }
  clock.kind = Clock::Kind::kZone;
  const NamedZone zone = ZoneOfName(words.zone);
  clock.rules = zone.rules;
  clock.name = clock.unit = zone.name;
  return clock;
}

double NearestDynamicalOf(const Clock& clock, double shown_day) {
  int offset = clock.offset;
  switch (clock.kind) {
    case Clock::Kind::kDynamical:
      return shown_day;
    case Clock::Kind::kZone:
      static_cast<void>(OffsetOfLocal(clock.rules, UnixSeconds(shown_day), offset));
      break;
    case Clock::Kind::kUniversal:
    case Clock::Kind::kOffset:
      break;
  }
  return ZenithorClockToDynamical(shown_day - offset / kSecondsPerDay);
}

double DynamicalOf(const Clock& clock, double shown_day, const std::string& where) {
  int offset = 0;
  if (clock.kind == Clock::Kind::kZone &&
      !OffsetOfLocal(clock.rules, UnixSeconds(shown_day), offset)) {
    throw Failure(
        "{}: clocks in {} leave out this time; write an hour later, or the time in UTC "
        "with a Z behind it",
        where, clock.name);
  }
  return NearestDynamicalOf(clock, shown_day);
}

int OffsetAt(const Clock& clock, double dynamical_day) {
  if (clock.kind == Clock::Kind::kZone) {
    return OffsetAt(clock.rules, UnixSeconds(ZenithorDynamicalToClock(dynamical_day)));
  }
  return clock.kind == Clock::Kind::kOffset ? clock.offset : 0;
}

double ShownOf(const Clock& clock, double dynamical_day) {
  if (clock.kind == Clock::Kind::kDynamical) {
    return dynamical_day;
  }
  return ZenithorDynamicalToClock(dynamical_day) + OffsetAt(clock, dynamical_day) / kSecondsPerDay;
}

std::string MomentText(const Clock& clock, double dynamical_day, int round_to) {
  const Calendar calendar = CalendarOf(ShownOf(clock, dynamical_day), round_to);
  std::string text = DateText(calendar);
  text += fmt::format(" {:02}:{:02}", calendar.date[3], calendar.date[4]);
  if (round_to < 60) {
    text += fmt::format(":{:02}", static_cast<int>(calendar.second));
  }
  return text;
}

std::string PlacesHead(const Clock& clock, double dynamical_day) {
  return fmt::format("Places at {}, {} (JD {:.6f} TT)", MomentText(clock, dynamical_day),
                     clock.name, dynamical_day);
}

std::string IsoText(const Clock& clock, double dynamical_day) {
  std::string text = MomentText(clock, dynamical_day);
  text[text.find(' ')] = 'T';
  if (clock.kind == Clock::Kind::kUniversal) {
    text += "Z";
  } else if (clock.kind != Clock::Kind::kDynamical) {
    text += OffsetText(OffsetAt(clock, dynamical_day));
  }
  return text;
}

std::string TimeOfDayText(const Clock& clock, double dynamical_day) {
  const Calendar calendar = CalendarOf(ShownOf(clock, dynamical_day), 60.0);
  return fmt::format("{:02}:{:02}", calendar.date[3], calendar.date[4]);
}

std::string DateText(const Clock& clock, double dynamical_day) {
  return DateText(ShownOf(clock, dynamical_day));
}

std::string DateText(double shown_day) { return DateText(CalendarOf(shown_day, 1.0)); }

double Now() {
  const std::chrono::duration<double> since = std::chrono::system_clock::now().time_since_epoch();
  return ZenithorClockToDynamical(kUnixEpoch + since.count() / kSecondsPerDay);
}

}  // namespace zenithor::almanac
