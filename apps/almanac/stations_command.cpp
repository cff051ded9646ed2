#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "commands.h"
#include "common_options.h"
#include "progress.h"
#include "stations.h"
#include "zenithor/values.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

struct StationsOptions {
  SpanWords span;
  Bodies bodies = TurningBodies();
  Longitude longitude;
  CommonOptions common;
};

void PrintStations(const StationsOptions& options) {
  const Clock clock = ClockOf(options.common.clock);
  const Span span = SearchedSpanOf(options.span, clock);
  const std::int32_t field = options.longitude.Field();
  std::vector<Station> stations;
  {
    Progress progress("stations");
    double done = 0.0;
    for (const Body& body : options.bodies) {
      const std::vector<Station> some = StationsOf(body, field, span, [&](double part) {
        progress.Show((done + part) / static_cast<double>(options.bodies.size()));
      });
      stations.insert(stations.end(), some.begin(), some.end());
      done += 1.0;
    }
  }
  std::stable_sort(stations.begin(), stations.end(),
                   [](const Station& a, const Station& b) { return a.day < b.day; });
  const std::unique_ptr<Writer> writer = NewWriter(options.common.output, clock);
  writer->Head({fmt::format("Stations {}", SpanText(span, clock)), options.longitude.Text()});
  writer->BeginTable("stations", {MomentColumn("time"), JulianDayColumn(), TextColumn("body"),
                                  TextColumn("turns", 10),
                                  NumberColumn("longitude", "deg", 6, 4, 3), TextColumn("zodiac")});
  for (const Station& station : stations) {
    writer->AddRow({Moment{station.day}, station.day, std::string(station.body.name),
                    std::string(station.direction < 0 ? "retrograde" : "direct"), station.longitude,
                    SignText(station.longitude)});
  }
  writer->EndTable();
  writer->Finish(stations.empty() ? std::vector<std::string>{"No station in this span."}
                                  : std::vector<std::string>());
}

}  // namespace

void AddStationsCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("stations", "When planets turn retrograde and direct");
  const auto options = std::make_shared<StationsOptions>();
  AddSpanOptions(*command, options->span, "this year");
  AddBodyOption(*command, "--body", options->bodies, TurningBodies(), kNeverTurns,
                "Only these, Mercury to Pluto; with commas or blanks between");
  AddLongitudeOptions(*command, options->longitude, false);
  AddCommonOptions(*command, options->common);
  SetExamples(*command,
              {"almanac stations --year 2027", "almanac stations --body mercury --zone +1",
               "almanac stations --from 1900 --to 2000 --body mars --format csv"});
  command->callback([&session, options] {
    session.WithoutLibrary("stations");
    PrintStations(*options);
  });
}

}  // namespace zenithor::almanac
