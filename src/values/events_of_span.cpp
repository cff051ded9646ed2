#include "values/events_of_span.h"

#include <cmath>
#include <limits>

#include "events/event_table.h"
#include "events/lunar_eclipse.h"
#include "events/lunar_phase.h"
#include "events/season.h"
#include "events/solar_eclipse.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

constexpr double kSynodicMonth = 29.530588;  // [day]
constexpr int kSeasons = 4;
constexpr int kPhases = 4;
constexpr int kSourceCount = kSeasons + kPhases + 2;

// The events of one kind of season or phase, or of all solar or lunar eclipses, one after another.
struct Source {
  EventFamily family;
  std::int32_t selector;  // of a season or phase
  double cursor;          // the year, the lunation, or the day from which the next search begins
  double julian_day;      // the event it stands at; infinite after the last
  std::int32_t kind;
};

std::int32_t BlockOf(EventFamily family, std::int32_t kind) {
  for (const BlockContents& row : kBlocks) {
    if (row.family == family && row.kind == kind) {
      return row.block;
    }
  }
  return 0;
}

constexpr double kNoMore = std::numeric_limits<double>::infinity();

double MomentOf(bool found, double julian_day) {
  if (found) {
    return julian_day;
  }
  return kNoMore;
}

// A day in the middle of a lunation, for PhaseInstant: the lunation is the same for all days some
// two weeks around it.
double MiddleOfLunation(double lunation) {
  return kMeanNewMoonOf2000 - 1.0 + (lunation + 0.5) * kSynodicMonth;
}

// Goes on to the next event.
void Advance(Source& source) {
  switch (source.family) {
    case EventFamily::kSeasons:
      source.cursor += 1.0;
      source.julian_day = SeasonInstant(static_cast<std::int32_t>(source.cursor), source.selector);
      return;
    case EventFamily::kPhases:
      source.cursor += 1.0;
      source.julian_day = PhaseInstant(MiddleOfLunation(source.cursor), source.selector);
      return;
    case EventFamily::kSolarEclipses: {
      // The next new moon is 29 days or more away, and none that is nearer than half of that is
      // another.
      const SolarEclipse eclipse = FindSolarEclipse(source.cursor);
      source.julian_day = MomentOf(eclipse.found, eclipse.jde);
      source.kind = BlockOf(source.family, eclipse.kind);
      source.cursor = eclipse.jde + 0.5 * kSynodicMonth;
      return;
    }
    case EventFamily::kLunarEclipses: {
      // A lunar search goes from the first new moon after its day to the full moon after that.
      const LunarEclipse eclipse = FindLunarEclipse(source.cursor);
      source.julian_day = MomentOf(eclipse.found, eclipse.jde);
      source.kind = BlockOf(source.family, eclipse.kind);
      source.cursor = eclipse.jde;
      return;
    }
  }
}

// A source that stands at an event before `from` or at the first one after.
Source SourceFrom(EventFamily family, std::int32_t selector, double from) {
  Source source{family, selector, 0.0, 0.0, 0};
  switch (family) {
    case EventFamily::kSeasons:
      source.kind = BlockOf(family, selector);
      source.cursor = JulianDayToCalendar(from).Year - 2.0;
      break;
    case EventFamily::kPhases:
      source.kind = BlockOf(family, selector);
      source.cursor = std::floor((from - kMeanNewMoonOf2000) / kSynodicMonth) - 4.0;
      break;
    case EventFamily::kSolarEclipses:
    case EventFamily::kLunarEclipses:
      source.cursor = from - 3.0 * kSynodicMonth;
      break;
  }
  Advance(source);
  return source;
}

// The sources of a set of kinds.
struct Sources {
  Source sources[kSourceCount];
  int count = 0;
};

bool Overlap(std::int32_t a, std::int32_t b) {
  return (static_cast<std::uint32_t>(a) & static_cast<std::uint32_t>(b)) != 0;
}

std::int32_t Bit(int kind) { return std::int32_t{1} << kind; }

Sources SourcesOf(std::int32_t kind_set, double from) {
  Sources all;
  const auto add = [&](EventFamily family, std::int32_t selector) {
    all.sources[all.count] = SourceFrom(family, selector, from);
    ++all.count;
  };
  for (std::int32_t season = 0; season < kSeasons; ++season) {
    if (Overlap(kind_set, Bit(BlockOf(EventFamily::kSeasons, season)))) {
      add(EventFamily::kSeasons, season);
    }
  }
  for (std::int32_t phase = 0; phase < kPhases; ++phase) {
    if (Overlap(kind_set, Bit(BlockOf(EventFamily::kPhases, phase)))) {
      add(EventFamily::kPhases, phase);
    }
  }
  if (Overlap(kind_set, ZENITHOR_KINDS_SOLAR_ECLIPSES)) {
    add(EventFamily::kSolarEclipses, 0);
  }
  if (Overlap(kind_set, ZENITHOR_KINDS_LUNAR_ECLIPSES)) {
    add(EventFamily::kLunarEclipses, 0);
  }
  return all;
}

// The source that stands at the earliest event; of two at one moment the one with the lower kind.
Source& Earliest(Sources& all) {
  Source* earliest = &all.sources[0];
  for (int k = 1; k < all.count; ++k) {
    if (all.sources[k].julian_day < earliest->julian_day) {
      earliest = &all.sources[k];
    }
  }
  return *earliest;
}

}  // namespace

std::int32_t KindSetOf(int kind) {
  if (kind == ZENITHOR_KIND_SOLAR_ANY) {
    return ZENITHOR_KINDS_SOLAR_ECLIPSES;
  }
  if (kind == ZENITHOR_KIND_LUNAR_ANY) {
    return ZENITHOR_KINDS_LUNAR_ECLIPSES;
  }
  return kind >= 0 && kind < ZENITHOR_KIND_COUNT ? Bit(kind) : kNoKinds;
}

std::int32_t SingleKinds(std::int32_t kind_set) {
  if (kind_set < 0 || kind_set >= Bit(ZENITHOR_KIND_COUNT)) {
    return kNoKinds;
  }
  std::int32_t singles = 0;
  for (int kind = 0; kind < ZENITHOR_KIND_COUNT; ++kind) {
    if (Overlap(kind_set, Bit(kind))) {
      singles |= KindSetOf(kind);
    }
  }
  return singles;
}

void EventsOfSpan(std::int32_t kind_set, double from, double to, MomentArray& moments) {
  if (kind_set == kNoKinds || !(from < to)) {
    return;
  }
  Sources all = SourcesOf(kind_set, from);
  for (Source* next = &Earliest(all); next->julian_day < to; next = &Earliest(all)) {
    if (next->julian_day >= from && Overlap(kind_set, Bit(next->kind))) {
      AddMoment(moments, next->julian_day, next->kind);
    }
    Advance(*next);
  }
}

NextEvent EventAfter(std::int32_t kind_set, double after) {
  constexpr NextEvent kNone{std::numeric_limits<double>::quiet_NaN(), 0};
  if (kind_set == kNoKinds || !IsDayOfSpan(after)) {
    return kNone;
  }
  Sources all = SourcesOf(kind_set, after);
  for (Source* next = &Earliest(all); next->julian_day < ZENITHOR_LAST_DAY; next = &Earliest(all)) {
    if (next->julian_day > after && Overlap(kind_set, Bit(next->kind))) {
      return {next->julian_day, next->kind};
    }
    Advance(*next);
  }
  return kNone;
}

const char* KindName(int kind) {
  static constexpr const char* kNames[] = {"March equinox",
                                           "June solstice",
                                           "September equinox",
                                           "December solstice",
                                           "new Moon",
                                           "first quarter",
                                           "full Moon",
                                           "last quarter",
                                           "total solar eclipse",
                                           "annular solar eclipse",
                                           "annular-total solar eclipse",
                                           "non-central total solar eclipse",
                                           "non-central annular solar eclipse",
                                           "partial solar eclipse",
                                           "solar eclipse",
                                           "total lunar eclipse",
                                           "partial lunar eclipse",
                                           "penumbral lunar eclipse",
                                           "lunar eclipse"};
  static_assert(sizeof kNames / sizeof kNames[0] == ZENITHOR_KIND_COUNT, "one name a kind");
  return kind >= 0 && kind < ZENITHOR_KIND_COUNT ? kNames[kind] : nullptr;
}

}  // namespace zenithor
