#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "turning_options.h"
#include "zenithor/values.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

void PrintStations(const TurningOptions& options) {
  const Clock clock = ClockOf(options.common.clock);
  const Span span = SearchedSpanOf(options.span, clock);
  const std::int32_t field = options.longitude.Field();
  const std::vector<Station> stations = FindEach(
      "stations", options.bodies.size(),
      [&](std::size_t k, const Advanced& advanced) {
        return StationsOf(options.bodies[k], field, span, advanced);
      },
      [](const Station& station) { return station.day; });
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
  writer->Finish(NoteIf(stations.empty(), "No station in this span."));
}

}  // namespace

void AddStationsCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("stations", "When planets turn retrograde and direct");
  const auto options = std::make_shared<TurningOptions>();
  AddTurningOptions(*command, *options);
  SetExamples(*command,
              {"almanac stations --year 2027", "almanac stations --body mercury --zone +1",
               "almanac stations --from 1900 --to 2000 --body mars --format csv"});
  command->callback([&session, options] {
    session.WithoutLibrary("stations");
    PrintStations(*options);
  });
}

}  // namespace zenithor::almanac
