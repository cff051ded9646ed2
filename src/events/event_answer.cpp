#include "events/event_answer.h"

#include <cmath>

#include "events/event_block.h"
#include "events/event_table.h"
#include "events/lunar_eclipse.h"
#include "events/solar_eclipse.h"
#include "time/julian_day.h"

namespace zenithor {

namespace {

struct FoundEvent {
  bool found;
  double jde;
  std::int32_t kind;  // which block of the family it fills
};

// Kept on purpose: the season of the calendar year that the day lies in, also where it is over, up
// to 287.4 days past from 1900 to 2100, 296.5 in 1580.
FoundEvent FindSeason(double julian_day, std::int32_t selector) {
  const std::int32_t year = JulianDayToCalendar(julian_day).Year;
  return {true, SeasonInstant(year, selector), selector};
}

// Kept on purpose: the new moon is looked for from 7 days before the day, so one up to about six
// days past is preferred to the next; the other phases belong to the running lunation and may lie
// up to three weeks back.
FoundEvent FindPhase(double julian_day, std::int32_t selector) {
  const double start = selector == kNewMoon ? julian_day - 7.0 : julian_day;
  return {true, PhaseInstant(start, selector), selector};
}

// Kept on purpose: eclipses are looked for from 10 (solar) and 22 days (lunar) before the day, so
// that one some days past is reported again.
FoundEvent FindEvent(EventFamily family, double julian_day, std::int32_t selector) {
  if (!std::isfinite(julian_day)) {
    return {};
  }
  switch (family) {
    case EventFamily::kSeasons:
      return FindSeason(julian_day, selector);
    case EventFamily::kPhases:
      return FindPhase(julian_day, selector);
    case EventFamily::kSolarEclipses: {
      const SolarEclipse eclipse = FindSolarEclipse(julian_day - 10.0);
      return {eclipse.found, eclipse.jde, eclipse.kind};
    }
    case EventFamily::kLunarEclipses: {
      const LunarEclipse eclipse = FindLunarEclipse(julian_day - 22.0);
      return {eclipse.found, eclipse.jde, eclipse.kind};
    }
  }
  return {};
}

}  // namespace

double AnswerEvent(int block, double julian_day, std::int32_t selector, EventRecord* record) {
  if (record == nullptr) {
    return 0.0;
  }
  const EventFamily family = kBlocks[block].family;
  const FoundEvent event = FindEvent(family, julian_day, selector);
  for (const BlockContents& row : kBlocks) {
    if (row.family == family) {
      const bool fills = event.found && (row.kind == event.kind || row.kind == kAnyKind);
      record->Blocks[row.block] = fills ? EventBlockAt(event.jde) : kZeroBlock;
    }
  }
  return record->Blocks[block].JulianDay;
}

}  // namespace zenithor
