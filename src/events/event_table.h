#pragma once

#include <cstdint>
#include <iterator>

#include "events/eclipse_core.h"
#include "events/lunar_phase.h"
#include "events/season.h"
#include "zenithor/zenithor.h"

namespace zenithor {

// A search and the range of blocks that it writes.
enum class EventFamily { kSeasons, kPhases, kSolarEclipses, kLunarEclipses };

constexpr std::int32_t kAnyKind = -1;

// Each block of the record belongs to one export, which runs the search of its family and reads
// this block back, and to one kind of event, which fills it: the selector that a season or phase
// export was given, or the kind of the eclipse that was found.
//
// Kept on purpose: a season or phase export reads its own block back whatever selector it was
// given, so any selector but its own gives 0.0 while the selected event stands in its own block;
// and a kind export does not look beyond the first eclipse of its family, so it gives 0.0 when that
// one is of another kind.
struct EventExport {
  const char* name;
  EventFamily family;
  std::int32_t kind;
  int block;
};

constexpr EventExport kEventExports[] = {
    {"SPR_EQUX", EventFamily::kSeasons, kMarchEquinox, ZENITHOR_BLOCK_MARCH_EQUINOX},
    {"SUM_SOL", EventFamily::kSeasons, kJuneSolstice, ZENITHOR_BLOCK_JUNE_SOLSTICE},
    {"FALL_EQUX", EventFamily::kSeasons, kSeptemberEquinox, ZENITHOR_BLOCK_SEPTEMBER_EQUINOX},
    {"WIN_SOL", EventFamily::kSeasons, kDecemberSolstice, ZENITHOR_BLOCK_DECEMBER_SOLSTICE},
    {"NEW_MOON", EventFamily::kPhases, kNewMoon, ZENITHOR_BLOCK_NEW_MOON},
    {"FIRST_QTR", EventFamily::kPhases, kFirstQuarter, ZENITHOR_BLOCK_FIRST_QUARTER},
    {"FULL_MOON", EventFamily::kPhases, kFullMoon, ZENITHOR_BLOCK_FULL_MOON},
    {"LAST_QTR", EventFamily::kPhases, kLastQuarter, ZENITHOR_BLOCK_LAST_QUARTER},
    {"TOTAL_SE", EventFamily::kSolarEclipses, kTotalEclipse, ZENITHOR_BLOCK_SOLAR_TOTAL},
    {"ANNULAR_SE", EventFamily::kSolarEclipses, kAnnularEclipse, ZENITHOR_BLOCK_SOLAR_ANNULAR},
    {"ANNULAR_TSE", EventFamily::kSolarEclipses, kAnnularTotalEclipse,
     ZENITHOR_BLOCK_SOLAR_ANNULAR_TOTAL},
    {"TOTAL_NCSE", EventFamily::kSolarEclipses, kNonCentralTotalEclipse,
     ZENITHOR_BLOCK_SOLAR_TOTAL_NONCENTRAL},
    {"ANNULAR_NCSE", EventFamily::kSolarEclipses, kNonCentralAnnularEclipse,
     ZENITHOR_BLOCK_SOLAR_ANNULAR_NONCENTRAL},
    {"PARTIAL_SE", EventFamily::kSolarEclipses, kPartialEclipse, ZENITHOR_BLOCK_SOLAR_PARTIAL},
    {"ALL_SE", EventFamily::kSolarEclipses, kAnyKind, ZENITHOR_BLOCK_SOLAR_ANY},
    {"TOTAL_LE", EventFamily::kLunarEclipses, kTotalEclipse, ZENITHOR_BLOCK_LUNAR_TOTAL},
    {"PARTIAL_LE", EventFamily::kLunarEclipses, kPartialEclipse, ZENITHOR_BLOCK_LUNAR_PARTIAL},
    {"PENUM_LE", EventFamily::kLunarEclipses, kPenumbralEclipse, ZENITHOR_BLOCK_LUNAR_PENUMBRAL},
    {"ALL_LE", EventFamily::kLunarEclipses, kAnyKind, ZENITHOR_BLOCK_LUNAR_ANY},
};

constexpr bool RowsStandInBlockOrder() {
  for (int block = 0; block < ZENITHOR_BLOCK_COUNT; ++block) {
    if (kEventExports[block].block != block) {
      return false;
    }
  }
  return true;
}

static_assert(std::size(kEventExports) == ZENITHOR_BLOCK_COUNT, "one export per block");
static_assert(RowsStandInBlockOrder(), "a block's row is found by its number");

}  // namespace zenithor
