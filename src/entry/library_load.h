#pragma once

#include "ephemeris/store.h"

namespace zenithor {

// What the load asks of the platform. Names are narrow strings in the form that LoadBodySeries
// takes.
struct LoadPlatform {
  // Full paths of the index and the data file, owned by the caller of the load; null where the
  // application-data folder cannot be found.
  const char* index_path;
  const char* data_path;
  bool (*file_exists)(const char* path);
  void (*warn_missing_file)();
};

constexpr char kMissingFileText[] = "Ephemeris file is missing";
constexpr char kMissingFileCaption[] = "MISSING FILE";

// Fills `store` with slots 0 to 8. Where one of the files is missing: one warning, no file opened.
// Where the folder was not found: no warning, and every load is attempted with empty names, fails,
// and leaves its slot null. A slot whose load fails stays null. Where a file is replaced or written
// to while the slots are read, all nine are read once more, up to three times; after that they stay
// as they are.
void LoadEphemeris(EphemerisStore& store, const LoadPlatform& platform);

}  // namespace zenithor
