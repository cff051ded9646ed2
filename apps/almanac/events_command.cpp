#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "common_options.h"
#include "kinds.h"
#include "library_events.h"
#include "progress.h"
#include "span.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

struct EventsOptions {
  SpanWords span;
  std::uint32_t kinds = ZENITHOR_KINDS_ALL;
  CommonOptions common;
};

std::vector<Found> EventsOf(std::uint32_t kinds, const Span& span) {
  Progress progress("events");
  return FindAll(
      [kinds](double from, double to, double* days, std::int32_t* codes, std::int32_t capacity) {
        return ZenithorEventsOfKinds(static_cast<std::int32_t>(kinds), from, to, days, codes,
                                     capacity);
      },
      span, [&progress](double done) { progress.Show(done); });
}

}  // namespace

void AddEventsCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("events", "Seasons, phases of the Moon and eclipses of a span");
  const auto options = std::make_shared<EventsOptions>();
  AddSpanOptions(*command, options->span, "this year");
  AddKindOption(*command, options->kinds);
  AddCommonOptions(*command, options->common);
  SetExamples(*command, {"almanac events --year 2027 --kind eclipses",
                         "almanac events --from today --to +30d --zone Europe/Berlin",
                         "almanac events --from -0044 --to -0043 --kind seasons --format json"});
  command->callback([&session, options] {
    const Clock clock = ClockOf(options->common.clock);
    const Span span =
        session.HasLibrary() ? SpanOf(options->span, clock) : SearchedSpanOf(options->span, clock);
    const std::vector<Found> events = session.HasLibrary()
                                          ? LibraryEvents(session.Library(), span, options->kinds)
                                          : EventsOf(options->kinds, span);
    const std::unique_ptr<Writer> writer = NewWriter(options->common.output, clock);
    writer->Head(
        {fmt::format("Events {}", SpanText(span, clock)),
         "Eclipses: instants of greatest eclipse. Dates before 1582 October 15 are Julian."});
    writer->BeginTable("events", {MomentColumn("time"), JulianDayColumn(), TextColumn("event")});
    for (const Found& event : events) {
      writer->AddRow({Moment{event.day}, event.day, std::string(EventKindOf(event.code).name)});
    }
    writer->EndTable();
    writer->Finish(NoteIf(events.empty(), "No such event in this span."));
  });
}

}  // namespace zenithor::almanac
