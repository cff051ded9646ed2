#pragma once

#include <cstdint>
#include <vector>

#include "searches.h"
#include "zenithor/zenithor.h"

namespace zenithor::almanac {

// The events of a span by the exports of the main library, as a host asks for them; the code of
// each is its kind. Throws Trouble where the library lacks an export.
std::vector<Found> LibraryEvents(const ZenithorLibrary& library, const Span& span,
                                 std::uint32_t kinds);

}  // namespace zenithor::almanac
