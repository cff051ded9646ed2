#pragma once

#include "report.h"
#include "zenithor/zenithor.h"

namespace zenithor::almanac {

struct PlacesReport {
  Report report;
  bool complete;  // whether the library answered every body
};

// The record of every body at a moment, as a host gets it from the main library. As text the Moon
// has a table of its own.
PlacesReport LibraryPlaces(const ZenithorLibrary& library, double dynamical_day, Format format,
                           const Clock& clock);

// The note that the library answered 0.0 for these bodies, and what to do.
std::string NotAvailableText(const std::vector<std::string>& bodies);

}  // namespace zenithor::almanac
