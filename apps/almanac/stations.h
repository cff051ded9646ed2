#pragma once

#include <vector>

#include "bodies.h"
#include "fields.h"
#include "searches.h"

namespace zenithor::almanac {

// Mercury to Pluto: those whose geocentric longitude turns.
Bodies TurningBodies();

struct Station {
  Body body;
  double day;              // dynamical time
  std::int32_t direction;  // 1 turns direct, -1 turns retrograde
  double longitude;        // [deg]
};

std::vector<Station> StationsOf(const Body& body, std::int32_t field, const Span& span,
                                const Advanced& advanced);

}  // namespace zenithor::almanac
