#pragma once

#include <stdexcept>
#include <string>

#include "ephemeris/loader.h"

namespace zenithor::testing {

// The nine slots of the full data set, loaded once for the test program from out/data/archive.
inline const EphemerisStore& FullStore() {
  static const EphemerisStore store = [] {
    EphemerisStore loaded;
    const std::string folder = ZENITHOR_ARCHIVE;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      const LoadStatus status = LoadBodySeries(loaded, slot, (folder + "/karvo.ndx").c_str(),
                                               (folder + "/karvo.dat").c_str());
      if (status != LoadStatus::kLoaded) {
        throw std::runtime_error("no data in " + folder + ": run make data");
      }
    }
    return loaded;
  }();
  return store;
}

}  // namespace zenithor::testing
