#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "bodies.h"
#include "commands.h"
#include "failure.h"
#include "moment.h"
#include "options.h"
#include "report.h"

namespace zenithor::almanac {

namespace {

constexpr double kMinutesPerDay = 1440.0;

struct RiseOptions {
  std::optional<double> julian_day;  // within the day, in zone time; nothing: today
  double latitude = 0.0;             // [deg]
  double east_longitude = 0.0;       // [deg]
  double east_zone = 0.0;            // [h] ahead of universal time
  std::vector<std::size_t> bodies;   // places in RisingBodies; empty: all
  Format format = Format::kText;
};

// The answers for one body, in the order of the selectors.
struct Answers {
  double rise;
  double transit;
  double set;
};

// "07:41", to the nearest minute; "00:20 +1" on the day after, "23:50 -1" on the day before.
std::string ClockTime(double minutes) {
  const double rounded = std::floor(minutes + 0.5);
  const double day = std::floor(rounded / kMinutesPerDay);
  const auto of_day = static_cast<int>(rounded - day * kMinutesPerDay);
  const std::string clock = fmt::format("{:02}:{:02}", of_day / 60, of_day % 60);
  return day == 0.0 ? clock : fmt::format("{} {:+.0f}", clock, day);
}

// A rise or set outside its day, or a transit more than a day outside, is what an iteration that
// lost its way ended with.
std::string TimeText(double answer, bool is_transit) {
  const double outside = is_transit ? kMinutesPerDay : 0.0;
  if (answer == ZENITHOR_ALWAYS_UP) {
    return "always up";
  }
  if (answer == ZENITHOR_NEVER_UP) {
    return "never up";
  }
  const bool settled = answer >= -outside && answer <= kMinutesPerDay + outside;
  return settled ? ClockTime(answer) : "no settled time";
}

// All that rise: not the Earth.
std::vector<Body> RisingBodies() {
  std::vector<Body> bodies;
  for (const Body& body : kPlanets) {
    if (body.code != ZENITHOR_EARTH) {
      bodies.push_back(body);
    }
  }
  bodies.push_back(kMoon);
  return bodies;
}

std::vector<std::string> RisingNames() {
  std::vector<std::string> names;
  for (const Body& body : RisingBodies()) {
    names.emplace_back(body.name);
  }
  return names;
}

std::vector<Body> ChosenBodies(const std::vector<std::size_t>& places) {
  const std::vector<Body> all = RisingBodies();
  std::vector<Body> chosen;
  chosen.reserve(places.size());
  for (const std::size_t place : places) {
    chosen.push_back(all[place]);
  }
  return chosen.empty() ? all : chosen;
}

Report RiseReport(const ZenithorLibrary& library, const RiseOptions& options, double day_number) {
  Report report;
  report.head = {
      fmt::format("Rise, transit and set on {} at latitude {:+.4f}, longitude {:+.4f} (east is +)",
                  DateText(InstantOf(ZENITHOR_DAY_NUMBER_EPOCH + day_number)), options.latitude,
                  options.east_longitude),
      fmt::format("Clock times of the zone UTC{:+g} h, to the minute", options.east_zone)};
  Table table;
  table.name = "rise";
  table.columns = {{"body", "", 0}, {"rise", "", 0}, {"transit", "", 0}, {"set", "", 0}};
  std::vector<std::string> not_available;
  for (const Body& body : ChosenBodies(options.bodies)) {
    const auto answer = [&](std::int32_t selector) {
      return library.GEO_RISE(day_number, 0.0, ZenithorWestZone(options.east_zone),
                              ZenithorWestLongitude(options.east_longitude), options.latitude,
                              body.code, selector);
    };
    const Answers answers = {answer(ZENITHOR_RISE), answer(ZENITHOR_TRANSIT), answer(ZENITHOR_SET)};
    const std::string name = body.name;
    if (answers.rise == 0.0 && answers.transit == 0.0 && answers.set == 0.0) {
      not_available.push_back(name);
      table.rows.push_back({name, {}, {}, {}});
      continue;
    }
    table.rows.push_back({name, TimeText(answers.rise, false), TimeText(answers.transit, true),
                          TimeText(answers.set, false)});
  }
  report.tables.push_back(std::move(table));
  AddNotAvailable(not_available, report);
  report.notes.push_back(
      "+1 and -1: on the day after or before. A rise or set that falls just outside the day is "
      "shown");
  report.notes.push_back(
      "on it, a day off: about once a month the Moon's, which then is wrong by up to 1.5 hours.");
  return report;
}

// The date on the zone's own calendar; without one, the day that the zone's clocks now show.
double DayNumber(const RiseOptions& options) {
  return options.julian_day
             ? ZenithorDayNumber(*options.julian_day, 0.0)
             : ZenithorDayNumber(CurrentJulianDay(), ZenithorWestZone(options.east_zone));
}

}  // namespace

void AddRiseCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "rise", "When the Sun, the Moon and the planets rise, cross the meridian and set");
  const auto options = std::make_shared<RiseOptions>();
  command
      ->add_option_function<std::string>(
          "--date",
          [options](const std::string& text) { options->julian_day = MomentOf("--date", text); },
          "The day, in zone time: 2026-11-21; else today. A time of day changes nothing")
      ->type_name("DATE");
  AddNumberOption(*command, "--lat", options->latitude, -90.0, 90.0, "DEGREES",
                  "Latitude, north positive, -90 to 90")
      ->required();
  AddNumberOption(*command, "--lon", options->east_longitude, -360.0, 360.0, "DEGREES",
                  "Longitude, EAST positive, -360 to 360")
      ->required();
  AddNumberOption(*command, "--zone", options->east_zone, -24.0, 24.0, "HOURS",
                  "What clocks are ahead of UTC, east positive, -24 to 24; else 0");
  AddChoicesOption(*command, "--body", options->bodies, RisingNames(),
                   "Only these: Sun, Mercury, ... Pluto, Moon; with commas or blanks between");
  AddFormatOption(*command, options->format);
  command->callback([&session, options] {
    const ZenithorLibrary& library = session.Library();
    if (library.GEO_RISE == nullptr) {
      throw Failure("the library has no GEO_RISE; a newer one does");
    }
    fmt::print("{}", Render(RiseReport(library, *options, DayNumber(*options)), options->format));
  });
}

}  // namespace zenithor::almanac
