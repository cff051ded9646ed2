#pragma once

#include "bodies.h"
#include "place.h"
#include "report.h"
#include "zenithor/zenithor.h"

namespace zenithor::almanac {

struct LibraryRise {
  Report report;
  bool complete;  // whether the library answered every body
};

// Rise, transit and set by GEO_RISE of the main library, with what it says of days on which one
// falls outside. `noon` is that of the day in the clock's time. Throws Trouble where the library
// has no GEO_RISE.
LibraryRise LibraryRiseReport(const ZenithorLibrary& library, double noon, const Clock& clock,
                              const Place& place, const Bodies& bodies);

}  // namespace zenithor::almanac
