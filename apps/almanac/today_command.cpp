#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>

#include "bodies.h"
#include "commands.h"
#include "common_options.h"
#include "fields.h"
#include "kinds.h"
#include "library_places.h"
#include "moment.h"
#include "zenithor/values.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

struct TodayOptions {
  std::string date;  // empty: now
  Bodies bodies = BodiesWithout({ZENITHOR_BODY_EARTH});
  CommonOptions common;
};

constexpr const char* kShown[] = {"longitude", "latitude",        "declination",
                                  "distance",  "right-ascension", "elongation"};

Table PlacesTable(const Bodies& bodies, double day) {
  Table table;
  table.name = "places";
  table.columns = {TextColumn("body"),
                   NotInText(MomentColumn("time")),
                   JulianDayColumn(),
                   TextColumn("zodiac"),
                   NumberColumn("motion", "deg/day", 4, 3, 3),
                   TextColumn("retrograde")};
  table.columns.back().has_heading = false;
  for (const char* const slug : kShown) {
    table.columns.push_back(ColumnOf(FieldOf(slug)));
  }
  for (const Body& body : bodies) {
    const double longitude = ZenithorValue(body.code, ZENITHOR_FIELD_APPARENT_LONGITUDE, day);
    const double motion = ZenithorValue(body.code, ZENITHOR_FIELD_LONGITUDE_MOTION, day);
    Row row = {std::string(body.name),
               Moment{day},
               day,
               std::isnan(longitude) ? Cell() : SignText(longitude),
               std::isnan(motion) ? Cell() : motion,
               std::string(motion < 0.0 ? "R" : "")};
    for (const char* const slug : kShown) {
      const FieldWord& word = FieldOf(slug);
      row.push_back(CellOf(word, body.code, ZenithorValue(body.code, word.field, day)));
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

std::string MoonText(double day) {
  const double lit = ZenithorValue(ZENITHOR_BODY_MOON, ZENITHOR_FIELD_MOON_ILLUMINATION, day);
  const double later =
      ZenithorValue(ZENITHOR_BODY_MOON, ZENITHOR_FIELD_MOON_ILLUMINATION, day + 0.01);
  const double distance = ZenithorValue(ZENITHOR_BODY_MOON, ZENITHOR_FIELD_GEO_DISTANCE, day);
  return fmt::format("The Moon is {:.1f} % lit, {}, {:.0f} km away.", lit * 100.0,
                     later > lit ? "waxing" : "waning", distance);
}

// What the days that come hold: the first of each of these.
Table ComingTable(double day) {
  Table table;
  table.name = "coming";
  table.columns = {MomentColumn("time"), JulianDayColumn(), NumberColumn("in", "days", 1, 1),
                   TextColumn("event")};
  for (const char* const slug : {"phases", "seasons", "solar-eclipses", "lunar-eclipses"}) {
    std::int32_t kind = 0;
    const double next =
        ZenithorNextEventOfKinds(static_cast<std::int32_t>(KindSetOf("", slug)), day, &kind);
    if (!std::isnan(next)) {
      table.rows.push_back({Moment{next}, next, next - day, std::string(EventKindOf(kind).name)});
    }
  }
  std::sort(table.rows.begin(), table.rows.end(), [](const Row& a, const Row& b) {
    return std::get<double>(a[1]) < std::get<double>(b[1]);
  });
  return table;
}

Report TodayReport(const TodayOptions& options, double day, const Clock& clock) {
  Report report;
  report.head = {
      PlacesHead(clock, day),
      "Apparent geocentric places, true equinox of date, as almanacs print them. R: retrograde."};
  report.tables.push_back(PlacesTable(options.bodies, day));
  if (day >= ZENITHOR_FIRST_DAY && day < ZENITHOR_LAST_DAY) {
    Table coming = ComingTable(day);
    if (!coming.rows.empty()) {
      report.tables.push_back(std::move(coming));
    }
  }
  report.notes.push_back(MoonText(day));
  return report;
}

}  // namespace

void AddTodayCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "today", "Places of the Sun, the Moon and the planets, and what is coming");
  const auto options = std::make_shared<TodayOptions>();
  command->add_option("--date", options->date, "The moment; else now")
      ->type_name("DATE")
      ->group("Time");
  AddBodyOption(*command, "--body", options->bodies, AllBodies(), "",
                "Only these, with commas or blanks between");
  AddCommonOptions(*command, options->common);
  SetExamples(*command, {"almanac today", "almanac today --date 2026-11-21T06:30 --zone +1",
                         "almanac today --body mars,venus --format csv"});
  command->callback([&session, options] {
    const Clock clock = ClockOf(options->common.clock);
    const double day = options->date.empty() ? Now() : MomentOf("--date", options->date, clock);
    if (!session.HasLibrary()) {
      Print(TodayReport(*options, day, clock), options->common.output, clock);
      return;
    }
    const PlacesReport places =
        LibraryPlaces(session.Library(), day, options->common.output.format, clock);
    Print(places.report, options->common.output, clock);
    session.exit_status = places.complete ? 0 : 1;
  });
}

}  // namespace zenithor::almanac
