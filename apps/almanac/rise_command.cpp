#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "bodies.h"
#include "commands.h"
#include "common_options.h"
#include "failure.h"
#include "library_rise.h"
#include "moment.h"
#include "place.h"
#include "progress.h"
#include "span.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

constexpr char kDoesNotRise[] = "the Earth does not rise";

struct RiseOptions {
  std::string date;  // empty: today
  SpanWords span;
  PlaceWords place;
  Bodies bodies = BodiesWithout({ZENITHOR_BODY_EARTH});
  CommonOptions common;
};

std::string StatusText(std::int32_t status) {
  switch (status) {
    case ZENITHOR_DAILY_ALWAYS_UP:
      return "always up";
    case ZENITHOR_DAILY_NEVER_UP:
      return "never up";
    case ZENITHOR_DAILY_NONE:
      return "none";
    default:
      return "unknown";
  }
}

// Rise, transit and set on the day of the clock that `noon`, in the clock's time, is the middle of.
void AddRow(const Body& body, double noon, const Clock& clock, const Place& place, Writer& writer) {
  const double middle = NearestDynamicalOf(clock, noon);
  const double zone_hours = OffsetAt(clock, middle) / 3600.0;
  double days[3] = {};
  std::int32_t statuses[3] = {};
  static_cast<void>(ZenithorDaily(body.code, noon - zone_hours / 24.0, zone_hours,
                                  place.east_longitude, place.latitude, days, statuses));
  Row row = {Moment{middle}, std::string(body.name)};
  for (int k = 0; k < 3; ++k) {
    row.emplace_back(statuses[k] == ZENITHOR_DAILY_HAPPENS
                         ? Cell(Moment{ZenithorClockToDynamical(days[k])})
                         : Cell(StatusText(statuses[k])));
  }
  writer.AddRow(row);
}

std::string PlaceText(const Place& place) {
  const std::string numbers = CoordinatesText(place);
  return place.name.empty() ? numbers : fmt::format("{}, {}", place.name, numbers);
}

// The noons of the first day and the last, in the clock's time.
Span NoonsOf(const RiseOptions& options, const Clock& clock) {
  const SpanWords& words = options.span;
  if (words.from.empty() && words.to.empty() && words.year.empty()) {
    const double day = options.date.empty() ? Now() : MomentOf("--date", options.date, clock);
    const double noon = ShownMidnight(clock, day) + 0.5;
    return {noon, noon};
  }
  if (!options.date.empty()) {
    throw Failure("--date is one day; leave it out, or --from, --to and --year");
  }
  const Span span = SpanOf(words, clock);
  // The span does not hold its end, so a midnight there begins no further day.
  constexpr double kMoment = 1e-8;
  return {ShownMidnight(clock, span.from) + 0.5, ShownMidnight(clock, span.to - kMoment) + 0.5};
}

void PrintRise(const RiseOptions& options, const Clock& clock, const Place& place) {
  const Span noons = NoonsOf(options, clock);
  const bool one_day = noons.from == noons.to;
  const std::unique_ptr<Writer> writer = NewWriter(options.common.output, clock);
  const std::string when =
      one_day ? "on " + DateText(noons.from)
              : fmt::format("from {} to {}", DateText(noons.from), DateText(noons.to));
  writer->Head({fmt::format("Rise, transit and set {}, {}", when, clock.name), PlaceText(place)});
  writer->BeginTable(
      "rise", {one_day ? NotInText(DateColumn("date")) : DateColumn("date"), TextColumn("body", 7),
               TimeOfDayColumn("rise"), TimeOfDayColumn("transit"), TimeOfDayColumn("set")});
  Progress progress("rise");
  for (double noon = noons.from; noon <= noons.to; noon += 1.0) {
    for (const Body& body : options.bodies) {
      AddRow(body, noon, clock, place, *writer);
    }
    progress.Show((noon - noons.from) / (noons.to - noons.from));
  }
  progress.Clear();
  writer->EndTable();
  writer->Finish({});
}

}  // namespace

void AddRiseCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "rise", "When the Sun, the Moon and the planets rise, cross the meridian and set");
  const auto options = std::make_shared<RiseOptions>();
  command->add_option("--date", options->date, "One day; else today. A time of day changes nothing")
      ->type_name("DATE")
      ->group("Time");
  AddSpanOptions(*command, options->span, "one day");
  AddPlaceOptions(*command, options->place);
  AddBodyOption(*command, "--body", options->bodies, BodiesWithout({ZENITHOR_BODY_EARTH}),
                kDoesNotRise, "Only these; else all ten");
  AddCommonOptions(*command, options->common);
  SetExamples(*command, {"almanac rise --lat 59.33 --lon 18.07 --zone Europe/Stockholm",
                         "almanac rise --place Boston --year 2027 --body sun --format csv",
                         "almanac rise --lat -33.87 --lon 151.21 --zone +10 --from today --to +7d "
                         "--body moon"});
  command->callback([&session, options] {
    const Place place = PlaceOf(options->place);
    ClockWords words = options->common.clock;
    if (words.zone.empty() && words.time.empty()) {
      words.zone = place.zone;
    }
    const Clock clock = ClockOf(words);
    if (clock.kind == Clock::Kind::kDynamical) {
      throw Failure("--time tt: days and times of rise are the clock's; write --zone, or nothing");
    }
    if (!session.HasLibrary()) {
      PrintRise(*options, clock, place);
      return;
    }
    const Span noons = NoonsOf(*options, clock);
    if (noons.from != noons.to) {
      throw Failure("--library: one day at a time; write --date");
    }
    const LibraryRise rise =
        LibraryRiseReport(session.Library(), noons.from, clock, place, options->bodies);
    Print(rise.report, options->common.output, clock);
    session.exit_status = rise.complete ? 0 : 1;
  });
}

}  // namespace zenithor::almanac
