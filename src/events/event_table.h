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

// Each block of the record is read back by one export and filled by one kind of event: the selector
// that a season or phase export was given, or the kind of the eclipse that was found.
//
// Kept on purpose: a season or phase export reads its own block back whatever selector it was
// given, so any selector but its own gives 0.0 while the selected event stands in its own block.
// Kept on purpose: an export of one kind does not look beyond the first eclipse of its family, so
// it gives 0.0 when that one is of another kind.
struct BlockContents {
  EventFamily family;
  std::int32_t kind;
  int block;
};

constexpr BlockContents kBlocks[] = {
    {EventFamily::kSeasons, kMarchEquinox, ZENITHOR_BLOCK_MARCH_EQUINOX},
    {EventFamily::kSeasons, kJuneSolstice, ZENITHOR_BLOCK_JUNE_SOLSTICE},
    {EventFamily::kSeasons, kSeptemberEquinox, ZENITHOR_BLOCK_SEPTEMBER_EQUINOX},
    {EventFamily::kSeasons, kDecemberSolstice, ZENITHOR_BLOCK_DECEMBER_SOLSTICE},
    {EventFamily::kPhases, kNewMoon, ZENITHOR_BLOCK_NEW_MOON},
    {EventFamily::kPhases, kFirstQuarter, ZENITHOR_BLOCK_FIRST_QUARTER},
    {EventFamily::kPhases, kFullMoon, ZENITHOR_BLOCK_FULL_MOON},
    {EventFamily::kPhases, kLastQuarter, ZENITHOR_BLOCK_LAST_QUARTER},
    {EventFamily::kSolarEclipses, kTotalEclipse, ZENITHOR_BLOCK_SOLAR_TOTAL},
    {EventFamily::kSolarEclipses, kAnnularEclipse, ZENITHOR_BLOCK_SOLAR_ANNULAR},
    {EventFamily::kSolarEclipses, kAnnularTotalEclipse, ZENITHOR_BLOCK_SOLAR_ANNULAR_TOTAL},
    {EventFamily::kSolarEclipses, kNonCentralTotalEclipse, ZENITHOR_BLOCK_SOLAR_TOTAL_NONCENTRAL},
    {EventFamily::kSolarEclipses, kNonCentralAnnularEclipse,
     ZENITHOR_BLOCK_SOLAR_ANNULAR_NONCENTRAL},
    {EventFamily::kSolarEclipses, kPartialEclipse, ZENITHOR_BLOCK_SOLAR_PARTIAL},
    {EventFamily::kSolarEclipses, kAnyKind, ZENITHOR_BLOCK_SOLAR_ANY},
    {EventFamily::kLunarEclipses, kTotalEclipse, ZENITHOR_BLOCK_LUNAR_TOTAL},
    {EventFamily::kLunarEclipses, kPartialEclipse, ZENITHOR_BLOCK_LUNAR_PARTIAL},
    {EventFamily::kLunarEclipses, kPenumbralEclipse, ZENITHOR_BLOCK_LUNAR_PENUMBRAL},
    {EventFamily::kLunarEclipses, kAnyKind, ZENITHOR_BLOCK_LUNAR_ANY},
};

constexpr bool RowsStandInBlockOrder() {
  for (int block = 0; block < ZENITHOR_BLOCK_COUNT; ++block) {
    if (kBlocks[block].block != block) {
      return false;
    }
  }
  return true;
}

static_assert(std::size(kBlocks) == ZENITHOR_BLOCK_COUNT, "one row per block");
static_assert(RowsStandInBlockOrder(), "a block's row is found by its number");

}  // namespace zenithor
