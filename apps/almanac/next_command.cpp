#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>

#include "commands.h"
#include "common_options.h"
#include "failure.h"
#include "kinds.h"
#include "moment.h"
#include "options.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

struct NextOptions {
  std::string kind;
  std::string after;
  int count = 1;
  CommonOptions common;
};

void PrintNext(const NextOptions& options) {
  const Clock clock = ClockOf(options.common.clock);
  const std::uint32_t kinds = KindSetOf("next", options.kind);
  const double after = options.after.empty() ? Now() : MomentOf("--after", options.after, clock);
  CheckSearched(fmt::format("--after \"{}\"", options.after), after);
  Report report;
  report.head = {fmt::format("Next after {}, {}", MomentText(clock, after), clock.name)};
  Table table{"next",
              {MomentColumn("time"), JulianDayColumn(), NumberColumn("in", "days", 2, 1),
               TextColumn("event")},
              {}};
  double day = after;
  for (int k = 0; k < options.count; ++k) {
    std::int32_t kind = 0;
    day = ZenithorNextEventOfKinds(static_cast<std::int32_t>(kinds), day, &kind);
    if (std::isnan(day)) {
      report.notes.emplace_back("There is no further one before 4000-01-01.");
      break;
    }
    table.rows.push_back({Moment{day}, day, day - after, std::string(EventKindOf(kind).name)});
  }
  report.tables.push_back(std::move(table));
  Print(report, options.common.output, clock);
}

}  // namespace

void AddNextCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("next", "The next event of a kind: full-moon, eclipses, seasons, ...");
  const auto options = std::make_shared<NextOptions>();
  command->add_option("KIND", options->kind, "As --kind of events takes it")
      ->required()
      ->type_name("KIND");
  command->add_option("--after", options->after, "After this moment; else now")
      ->type_name("DATE")
      ->group("Time");
  command
      ->add_option_function<std::string>(
          "--count",
          [options](const std::string& word) {
            options->count = WholeNumberOf("--count", word);
            if (options->count < 1 || options->count > 1000) {
              throw Failure("--count \"{}\": write a number from 1 to 1000", word);
            }
          },
          "So many of them, 1 to 1000; else 1")
      ->type_name("NUMBER");
  AddCommonOptions(*command, options->common);
  SetExamples(*command, {"almanac next full-moon", "almanac next eclipses --count 5 --zone +1",
                         "almanac next solar-total --after 2027 --format json"});
  command->callback([&session, options] {
    session.WithoutLibrary("next");
    PrintNext(*options);
  });
}

}  // namespace zenithor::almanac
