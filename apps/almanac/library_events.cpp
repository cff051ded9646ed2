#include "library_events.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "kinds.h"
#include "trouble.h"

namespace zenithor::almanac {

namespace {

template <class Function>
Function Exported(Function function, const char* name) {
  if (function == nullptr) {
    throw Trouble("the library does not export {}; a newer one does", name);
  }
  return function;
}

// Adds the events that a call left in the record: those of the family whose blocks are filled and
// that lie in the span.
void Collect(const EventRecord& record, Family family, const Span& span,
             std::vector<Found>& events) {
  for (const EventKind& kind : EventKinds()) {
    const EventTimeBlock& block = record.Blocks[kind.block];
    if (kind.family == family && block.JulianDay != 0.0 && block.JulianDay >= span.from &&
        block.JulianDay < span.to) {
      events.push_back({block.JulianDay, kind.block});
    }
  }
}

// The exports of the seasons and phases, each with the block that it reads back.
struct SelectedExport {
  ZenithorSeasonOrPhase call;
  int block;
};

constexpr int kSelectors = 4;  // each export of a family has one of its own, in the order of blocks

bool Belongs(int block, Family family) {
  return (block < ZENITHOR_BLOCK_NEW_MOON) == (family == Family::kSeasons);
}

std::vector<SelectedExport> ExportsOf(const ZenithorLibrary& library, Family family) {
  std::vector<SelectedExport> exports;
#define EXPORT_SELECTED_EVENT(name, block)                     \
  if (Belongs(block, family)) {                                \
    exports.push_back({Exported(library.name, #name), block}); \
  }
#include "entry/export_list.inc"
  return exports;
}

// Calls every export of a family for days `step` apart.
void CollectSelected(const ZenithorLibrary& library, Family family, const Span& days, double step,
                     const Span& span, std::vector<Found>& events) {
  const std::vector<SelectedExport> exports = ExportsOf(library, family);
  for (double day = days.from; day < days.to; day += step) {
    for (const SelectedExport& row : exports) {
      EventRecord record{};
      row.call(day, 0, 0, row.block % kSelectors, &record);
      Collect(record, family, span, events);
    }
  }
}

// A season call answers for the calendar year of the day, so steps shorter than a year meet every
// year. It begins a year early: in the Julian calendar of antiquity the December solstice of a year
// can fall into the next.
void CollectSeasons(const ZenithorLibrary& library, const Span& span, std::vector<Found>& events) {
  CollectSelected(library, Family::kSeasons, {span.from - 370.0, span.to + 360.0}, 360.0, span,
                  events);
}

// A phase call answers for one lunation, up to three weeks back and a month ahead; steps of 25 days
// skip none.
void CollectPhases(const ZenithorLibrary& library, const Span& span, std::vector<Found>& events) {
  CollectSelected(library, Family::kPhases, {span.from - 35.0, span.to + 50.0}, 25.0, span, events);
}

// An eclipse call gives the next one, and the same again until nine days after it; 15 days after an
// eclipse it gives the one that follows, at least a lunation later. The filled block tells the
// kind.
void CollectEclipses(ZenithorAnyEclipse call, Family family, const Span& span,
                     std::vector<Found>& events) {
  EventRecord record{};
  for (double day = span.from; day < span.to;) {
    const double eclipse = call(day, 0, 0, &record);
    if (eclipse == 0.0) {
      return;
    }
    Collect(record, family, span, events);
    day = std::fmax(eclipse, day) + 15.0;
  }
}

}  // namespace

std::vector<Found> LibraryEvents(const ZenithorLibrary& library, const Span& span,
                                 std::uint32_t kinds) {
  const auto wanted = [kinds](int block) {
    return (kinds >> static_cast<unsigned>(block) & 1U) != 0;
  };
  const auto any_of = [&](Family family) {
    return std::any_of(EventKinds().begin(), EventKinds().end(), [&](const EventKind& kind) {
      return kind.family == family && wanted(kind.block);
    });
  };
  std::vector<Found> events;
  if (any_of(Family::kSeasons)) {
    CollectSeasons(library, span, events);
  }
  if (any_of(Family::kPhases)) {
    CollectPhases(library, span, events);
  }
  if (any_of(Family::kSolarEclipses)) {
    CollectEclipses(Exported(library.ALL_SE, "ALL_SE"), Family::kSolarEclipses, span, events);
  }
  if (any_of(Family::kLunarEclipses)) {
    CollectEclipses(Exported(library.ALL_LE, "ALL_LE"), Family::kLunarEclipses, span, events);
  }
  events.erase(std::remove_if(events.begin(), events.end(),
                              [&](const Found& event) { return !wanted(event.code); }),
               events.end());
  // Steps shorter than the time between events meet some of them twice, with the same bits.
  std::sort(events.begin(), events.end(), [](const Found& a, const Found& b) {
    return std::tie(a.day, a.code) < std::tie(b.day, b.code);
  });
  events.erase(std::unique(events.begin(), events.end(),
                           [](const Found& a, const Found& b) {
                             return a.code == b.code && a.day == b.day;
                           }),
               events.end());
  return events;
}

}  // namespace zenithor::almanac
