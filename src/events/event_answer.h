#pragma once

#include <cstdint>

#include "zenithor/zenithor.h"

namespace zenithor {

// The nineteen event exports behind the host boundary: runs the search of the family that `block`
// belongs to, writes that family's blocks and no others, and returns the Julian day of `block`,
// which is 0.0 when this call did not fill it.
//   block       0 to 18, names the export (event_table.h)
//   julian_day  [day]; where it is not finite, and where a search finds nothing, the family's
//               blocks are zeroed and 0.0 returned
//   selector    of a season or a phase, 0 to 3; anything else zeroes the family's blocks. Eclipses
//               do not read it
//   record      the caller's; null gives 0.0
double AnswerEvent(int block, double julian_day, std::int32_t selector, EventRecord* record);

}  // namespace zenithor
