#pragma once

#include <vector>

#include "stations.h"

namespace zenithor::almanac {

// A planet's retrograde time and its shadow: the stretch of longitude between the two stations,
// which it runs through three times.
struct Retrograde {
  Body body;
  double shadow_begins;  // direct, first at the longitude of the later station; NaN where not found
  Station turns_retrograde;
  Station turns_direct;
  double shadow_ends;  // direct again at the longitude of the first station; NaN where not found
};

// Those of which some part between the stations lies in the span.
std::vector<Retrograde> RetrogradesOf(const Body& body, std::int32_t field, const Span& span,
                                      const Advanced& advanced);

}  // namespace zenithor::almanac
