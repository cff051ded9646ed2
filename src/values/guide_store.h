#pragma once

#include <cstddef>
#include <cstdint>

#include "ephemeris/store.h"

namespace zenithor {

// The series of the planets cut down to their largest terms: places that are good to some arc
// seconds at a tenth of the cost. Searches use them to find out where the full series have to be
// asked. How far they are off: field_bounds.inc.

constexpr std::int32_t kMostGuideTerms = 192;  // of one body

struct GuideStore {
  EphemerisStore store;  // refers to the rooms below
  SeriesTerm terms[kSlotCount][kMostGuideTerms];
  // Two doubles for each track and an index for each term, a frequency for each term.
  alignas(64) unsigned char arranged[kSlotCount][64 + kMostGuideTerms * 72 + 8 * 200];
};

// Takes of each loaded body the terms A cos(B + C t) t^p whose A 4^p, the amplitude at the far end
// of the searchable days, reaches a threshold: 1e-5 (rad or au), doubled until they fit. The guide
// must stay where it is; the full store is not referred to.
void MakeGuideStore(const EphemerisStore& full, GuideStore& guide);

}  // namespace zenithor
