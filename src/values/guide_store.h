#pragma once

#include <cstddef>
#include <cstdint>

#include "ephemeris/store.h"

namespace zenithor {

// The series of the planets cut down to their largest terms: places that are good to some arc
// seconds at a tenth of the cost. Searches interpolate between them (field_track.h) to find out
// where the full series have to be asked.

constexpr std::int32_t kMostGuideTerms = 320;  // of one body

// Where the terms of a guide lie.
struct GuideRooms {
  SeriesTerm terms[kSlotCount][kMostGuideTerms];
  // Two doubles for each track and an index for each term, a frequency for each term.
  alignas(64) unsigned char arranged[kSlotCount][64 + kMostGuideTerms * 72 + 8 * 200];
};

// Takes of each loaded body the terms A cos(B + C t) t^p whose A 4^p, the amplitude at the far end
// of the searchable days, reaches a threshold: 3e-7 (rad or au), doubled until they fit. The guide
// refers to the rooms, not to the full store.
void MakeGuide(const EphemerisStore& full, EphemerisStore& guide, GuideRooms& rooms);

}  // namespace zenithor
