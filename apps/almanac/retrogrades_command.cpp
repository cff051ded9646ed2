#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>

#include "commands.h"
#include "common_options.h"
#include "progress.h"
#include "retrogrades.h"
#include "zodiac.h"

namespace zenithor::almanac {

namespace {

struct RetrogradesOptions {
  SpanWords span;
  Bodies bodies = TurningBodies();
  Longitude longitude;
  CommonOptions common;
};

Cell MomentOrNothing(double day) { return std::isnan(day) ? Cell() : Cell(Moment{day}); }

void PrintRetrogrades(const RetrogradesOptions& options) {
  const Clock clock = ClockOf(options.common.clock);
  const Span span = SearchedSpanOf(options.span, clock);
  std::vector<Retrograde> retrogrades;
  {
    Progress progress("retrogrades");
    double done = 0.0;
    for (const Body& body : options.bodies) {
      const std::vector<Retrograde> some =
          RetrogradesOf(body, options.longitude.Field(), span, [&](double part) {
            progress.Show((done + part) / static_cast<double>(options.bodies.size()));
          });
      retrogrades.insert(retrogrades.end(), some.begin(), some.end());
      done += 1.0;
    }
  }
  std::stable_sort(retrogrades.begin(), retrogrades.end(),
                   [](const Retrograde& a, const Retrograde& b) {
                     return a.turns_retrograde.day < b.turns_retrograde.day;
                   });
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
  writer->Finish(retrogrades.empty() ? std::vector<std::string>{"No retrograde time in this span."}
                                     : std::vector<std::string>());
}

}  // namespace

void AddRetrogradesCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "retrogrades", "Retrograde times, each with its shadow's begin and end");
  const auto options = std::make_shared<RetrogradesOptions>();
  AddSpanOptions(*command, options->span, "this year");
  AddBodyOption(*command, "--body", options->bodies, TurningBodies(), kNeverTurns,
                "Only these, Mercury to Pluto; with commas or blanks between");
  AddLongitudeOptions(*command, options->longitude, false);
  AddCommonOptions(*command, options->common);
  SetExamples(*command,
              {"almanac retrogrades --body mercury --year 2027", "almanac retrogrades --zone local",
               "almanac retrogrades --from 2000 --to 2030 --body mars --format csv"});
  command->callback([&session, options] {
    session.WithoutLibrary("retrogrades");
    PrintRetrogrades(*options);
  });
}

}  // namespace zenithor::almanac
