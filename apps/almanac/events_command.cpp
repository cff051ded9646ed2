#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <optional>
#include <tuple>

#include "commands.h"
#include "failure.h"
#include "moment.h"
#include "options.h"
#include "report.h"

namespace zenithor::almanac {

namespace {

enum class Family { kSeasons, kPhases, kSolarEclipses, kLunarEclipses };

struct EventKind {
  Family family;
  int block;         // of the record
  const char* slug;  // how --kind names it
  const char* name;
};

constexpr EventKind kKinds[] = {
    {Family::kSeasons, ZENITHOR_BLOCK_MARCH_EQUINOX, "march-equinox", "March equinox"},
    {Family::kSeasons, ZENITHOR_BLOCK_JUNE_SOLSTICE, "june-solstice", "June solstice"},
    {Family::kSeasons, ZENITHOR_BLOCK_SEPTEMBER_EQUINOX, "september-equinox", "September equinox"},
    {Family::kSeasons, ZENITHOR_BLOCK_DECEMBER_SOLSTICE, "december-solstice", "December solstice"},
    {Family::kPhases, ZENITHOR_BLOCK_NEW_MOON, "new-moon", "new moon"},
    {Family::kPhases, ZENITHOR_BLOCK_FIRST_QUARTER, "first-quarter", "first quarter"},
    {Family::kPhases, ZENITHOR_BLOCK_FULL_MOON, "full-moon", "full moon"},
    {Family::kPhases, ZENITHOR_BLOCK_LAST_QUARTER, "last-quarter", "last quarter"},
    {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_TOTAL, "solar-total", "solar eclipse: total"},
    {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR, "solar-annular",
     "solar eclipse: annular"},
    {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR_TOTAL, "solar-annular-total",
     "solar eclipse: annular-total"},
    {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_TOTAL_NONCENTRAL, "solar-total-noncentral",
     "solar eclipse: total, non-central"},
    {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR_NONCENTRAL, "solar-annular-noncentral",
     "solar eclipse: annular, non-central"},
    {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_PARTIAL, "solar-partial",
     "solar eclipse: partial"},
    {Family::kLunarEclipses, ZENITHOR_BLOCK_LUNAR_TOTAL, "lunar-total", "lunar eclipse: total"},
    {Family::kLunarEclipses, ZENITHOR_BLOCK_LUNAR_PARTIAL, "lunar-partial",
     "lunar eclipse: partial"},
    {Family::kLunarEclipses, ZENITHOR_BLOCK_LUNAR_PENUMBRAL, "lunar-penumbral",
     "lunar eclipse: penumbral"},
};

struct FamilyName {
  Family family;
  const char* slug;
};
constexpr FamilyName kFamilies[] = {{Family::kSeasons, "seasons"},
                                    {Family::kPhases, "phases"},
                                    {Family::kSolarEclipses, "solar-eclipses"},
                                    {Family::kLunarEclipses, "lunar-eclipses"}};

struct Period {
  double from;
  double to;  // not included
};

struct Event {
  const EventKind* kind;
  EventTimeBlock at;
};

using Events = std::vector<Event>;

template <class Function>
Function Exported(Function function, const char* name) {
  if (function == nullptr) {
    throw Failure("the library does not export {}; build a newer one with make native or make dll",
                  name);
  }
  return function;
}

// Adds the events that a call left in the record: those of the family whose blocks are filled and
// that lie in the period.
void Collect(const EventRecord& record, Family family, const Period& period, Events& events) {
  for (const EventKind& kind : kKinds) {
    const EventTimeBlock& block = record.Blocks[kind.block];
    if (kind.family == family && block.JulianDay != 0.0 && block.JulianDay >= period.from &&
        block.JulianDay < period.to) {
      events.push_back({&kind, block});
    }
  }
}

// The exports of the seasons and phases, each with the block that it reads back.
struct SelectedExport {
  const char* name;
  ZenithorSeasonOrPhase call;
  int block;
};

constexpr int kSelectors = 4;  // each export of a family has one of its own, in the order of blocks

bool Belongs(int block, Family family) {
  return (block < ZENITHOR_BLOCK_NEW_MOON) == (family == Family::kSeasons);
}

std::vector<SelectedExport> ExportsOf(const ZenithorLibrary& library, Family family) {
  std::vector<SelectedExport> exports;
  const auto add = [&exports](const char* name, ZenithorSeasonOrPhase call, int block) {
    exports.push_back({name, call, block});
  };
#define EXPORT_SELECTED_EVENT(name, block)            \
  if (Belongs(block, family)) {                       \
    add(#name, Exported(library.name, #name), block); \
  }
#include "entry/export_list.inc"
  return exports;
}

// Calls every export of a family for days `step` apart.
void CollectSelected(const ZenithorLibrary& library, Family family, const Period& days, double step,
                     const Period& period, Events& events) {
  const std::vector<SelectedExport> exports = ExportsOf(library, family);
  for (double day = days.from; day < days.to; day += step) {
    for (const SelectedExport& row : exports) {
      EventRecord record{};
      row.call(day, 0, 0, row.block % kSelectors, &record);
      Collect(record, family, period, events);
    }
  }
}

// A season call answers for the calendar year of the day, so steps shorter than a year meet every
// year. It begins a year early: in the Julian calendar of antiquity the December solstice of a year
// can fall into the next.
void CollectSeasons(const ZenithorLibrary& library, const Period& period, Events& events) {
  CollectSelected(library, Family::kSeasons, {period.from - 370.0, period.to + 360.0}, 360.0,
                  period, events);
}

// A phase call answers for one lunation, up to three weeks back and a month ahead; steps of 25 days
// skip none.
void CollectPhases(const ZenithorLibrary& library, const Period& period, Events& events) {
  CollectSelected(library, Family::kPhases, {period.from - 35.0, period.to + 50.0}, 25.0, period,
                  events);
}

// An eclipse call gives the next one, and the same again until nine days after it; 15 days after an
// eclipse it gives the one that follows, at least a lunation later. The filled block tells the
// kind.
void CollectEclipses(ZenithorAnyEclipse call, Family family, const Period& period, Events& events) {
  EventRecord record{};
  for (double day = period.from; day < period.to;) {
    const double eclipse = call(day, 0, 0, &record);
    if (eclipse == 0.0) {
      return;
    }
    Collect(record, family, period, events);
    day = std::fmax(eclipse, day) + 15.0;
  }
}

// The names that --kind knows: the families, then the single kinds, each in the order of its table.
std::vector<std::string> KindNames() {
  std::vector<std::string> names;
  for (const FamilyName& family : kFamilies) {
    names.emplace_back(family.slug);
  }
  for (const EventKind& kind : kKinds) {
    names.emplace_back(kind.slug);
  }
  return names;
}

// Whether --kind asks for it: by its own name or by that of its family; everything without --kind.
// `wanted` holds places in KindNames.
bool IsWanted(const EventKind& kind, const std::vector<std::size_t>& wanted) {
  const auto own_place = std::size(kFamilies) + static_cast<std::size_t>(&kind - kKinds);
  return wanted.empty() || std::any_of(wanted.begin(), wanted.end(), [&](std::size_t place) {
           return place == own_place ||
                  (place < std::size(kFamilies) && kFamilies[place].family == kind.family);
         });
}

bool IsWanted(Family family, const std::vector<std::size_t>& wanted) {
  return std::any_of(std::begin(kKinds), std::end(kKinds), [&](const EventKind& kind) {
    return kind.family == family && IsWanted(kind, wanted);
  });
}

Events EventsOf(const ZenithorLibrary& library, const Period& period,
                const std::vector<std::size_t>& wanted) {
  Events events;
  if (IsWanted(Family::kSeasons, wanted)) {
    CollectSeasons(library, period, events);
  }
  if (IsWanted(Family::kPhases, wanted)) {
    CollectPhases(library, period, events);
  }
  if (IsWanted(Family::kSolarEclipses, wanted)) {
    CollectEclipses(Exported(library.ALL_SE, "ALL_SE"), Family::kSolarEclipses, period, events);
  }
  if (IsWanted(Family::kLunarEclipses, wanted)) {
    CollectEclipses(Exported(library.ALL_LE, "ALL_LE"), Family::kLunarEclipses, period, events);
  }
  events.erase(std::remove_if(events.begin(), events.end(),
                              [&](const Event& event) { return !IsWanted(*event.kind, wanted); }),
               events.end());
  // Steps shorter than the time between events meet some of them twice, with the same bits.
  std::sort(events.begin(), events.end(), [](const Event& a, const Event& b) {
    return std::tie(a.at.JulianDay, a.kind) < std::tie(b.at.JulianDay, b.kind);
  });
  events.erase(std::unique(events.begin(), events.end(),
                           [](const Event& a, const Event& b) {
                             return a.kind == b.kind && a.at.JulianDay == b.at.JulianDay;
                           }),
               events.end());
  return events;
}

Report EventsReport(const Events& events, const Period& period) {
  Report report;
  report.head = {
      fmt::format("Events from {} (JD {:.6f}) until {} (JD {:.6f})", CalendarText(period.from),
                  period.from, CalendarText(period.to), period.to),
      "All instants are dynamical time; universal time is less by Delta T, about 70 s in "
      "the 2020s.",
      "Eclipses: instants of greatest eclipse. Dates before 1582 October 15 are Julian."};
  Table table;
  table.name = "events";
  table.columns = {{"event", "", 0}, {"julian_day", "day", 6}, {"date", "dynamical time", 0}};
  for (const Event& event : events) {
    const EventTimeBlock& at = event.at;
    table.rows.push_back(
        {std::string(event.kind->name), at.JulianDay,
         CalendarText(Instant{at.Year, at.Month, at.Day, at.Hour, at.Minute, at.Second})});
  }
  report.tables.push_back(std::move(table));
  if (events.empty()) {
    report.notes.push_back("No such event in this period.");
  }
  return report;
}

struct EventsOptions {
  std::optional<int> year;
  std::optional<double> from;      // [Julian day]
  std::optional<double> to;        // [Julian day]
  std::vector<std::size_t> kinds;  // places in KindNames; empty: all
  Format format = Format::kText;
};

// The year, this year without options; --from and --to replace its beginning and its end.
Period PeriodOf(const EventsOptions& options) {
  if (!options.year && options.from.has_value() != options.to.has_value()) {
    throw Failure("--from and --to go together, unless --year gives the other end");
  }
  const int year = options.year.value_or(InstantOf(CurrentJulianDay()).year);
  const Period period{options.from.value_or(YearStart(year)),
                      options.to.value_or(YearStart(year + 1))};
  if (!(period.from < period.to)) {
    throw Failure("the period is empty: it would begin on {} and end on {}",
                  CalendarText(period.from), CalendarText(period.to));
  }
  return period;
}

}  // namespace

void AddEventsCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("events", "Seasons, phases of the Moon and eclipses of a year");
  const auto options = std::make_shared<EventsOptions>();
  command
      ->add_option_function<std::string>(
          "--year", [options](const std::string& text) { options->year = YearOf("--year", text); },
          fmt::format("From {} to {}, 0 is 1 BC; else this year", kFirstYear, kLastYear))
      ->type_name("YEAR");
  command
      ->add_option_function<std::string>(
          "--from",
          [options](const std::string& text) { options->from = MomentOf("--from", text); },
          "Begin here instead, such as 2026-11-21")
      ->type_name("DATE");
  command
      ->add_option_function<std::string>(
          "--to", [options](const std::string& text) { options->to = MomentOf("--to", text); },
          "End before this instead")
      ->type_name("DATE");
  AddChoicesOption(*command, "--kind", options->kinds, KindNames(),
                   "Only these: seasons, phases, solar-eclipses, lunar-eclipses, or single kinds "
                   "such as full-moon or solar-total; with commas or blanks between");
  AddFormatOption(*command, options->format);
  command->callback([&session, options] {
    const Period period = PeriodOf(*options);
    const Events events = EventsOf(session.Library(), period, options->kinds);
    fmt::print("{}", Render(EventsReport(events, period), options->format));
  });
}

}  // namespace zenithor::almanac
