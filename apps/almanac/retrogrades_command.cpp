#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>

#include "commands.h"
#include "retrogrades.h"
#include "turning_options.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

Cell MomentOrNothing(double day) { return std::isnan(day) ? Cell() : Cell(Moment{day}); }

void PrintRetrogrades(const TurningOptions& options) {
  const Clock clock = ClockOf(options.common.clock);
  const Span span = SearchedSpanOf(options.span, clock);
  const std::vector<Retrograde> retrogrades = FindEach(
      "retrogrades", options.bodies.size(),
      [&](std::size_t k, const Advanced& advanced) {
        return RetrogradesOf(options.bodies[k], options.longitude.Field(), span, advanced);
      },
      [](const Retrograde& one) { return one.turns_retrograde.day; });
  const std::unique_ptr<Writer> writer = NewWriter(options.common.output, clock);
  writer->Head({fmt::format("Retrograde times {}", SpanText(span, clock)), options.longitude.Text(),
                "The shadow is the stretch of longitude between the two stations."});
  writer->BeginTable("retrogrades", {TextColumn("body"), MomentColumn("shadow_begins"),
                                     MomentColumn("turns_retrograde"), MomentColumn("turns_direct"),
                                     MomentColumn("shadow_ends"),
                                     NumberColumn("retrograde_longitude", "deg", 4, 4, 3),
                                     NumberColumn("direct_longitude", "deg", 4, 4, 3)});
  for (const Retrograde& one : retrogrades) {
    writer->AddRow({std::string(one.body.name), MomentOrNothing(one.shadow_begins),
                    Moment{one.turns_retrograde.day}, Moment{one.turns_direct.day},
                    MomentOrNothing(one.shadow_ends), one.turns_retrograde.longitude,
                    one.turns_direct.longitude});
  }
  writer->EndTable();
  writer->Finish(NoteIf(retrogrades.empty(), "No retrograde time in this span."));
}

}  // namespace

void AddRetrogradesCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "retrogrades", "Retrograde times, each with its shadow's begin and end");
  const auto options = std::make_shared<TurningOptions>();
  AddTurningOptions(*command, *options);
  SetExamples(*command,
              {"almanac retrogrades --body mercury --year 2027", "almanac retrogrades --zone local",
               "almanac retrogrades --from 2000 --to 2030 --body mars --format csv"});
  command->callback([&session, options] {
    session.WithoutLibrary("retrogrades");
    PrintRetrogrades(*options);
  });
}

}  // namespace zenithor::almanac
