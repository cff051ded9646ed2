#pragma once

#include <cstdint>

#include "ephemeris/store.h"

namespace zenithor {

// Reading the index file and the data file into the store.

enum class LoadStatus : std::int32_t {
  kLoaded = 0,  // or the slot number is not below 9, and nothing was done
  kNoIndexFile = 1,
  kNoDataFile = 2,
  kNoMemory = 3,  // or the counts add up to less than nothing
};

// Forgets what is loaded (without freeing it) and sets the prefix put in front of file names; null
// is the empty prefix.
void SetEphemerisFolder(EphemerisStore& store, const char* prefix);

// Releases what is loaded: for whoever loads again and has handed out nothing of it.
void FreeBodies(EphemerisStore& store);

// Loads one slot (0 to 8). The names are joined to the store's prefix; on Windows they are taken in
// the ANSI code page, or in UTF-8 where no file has the ANSI name. The rest of a block that the
// data file is too short for is zero, and so is an index record beyond the end of the index file.
// With any status but kLoaded the slot is null.
LoadStatus LoadBodySeries(EphemerisStore& store, int slot, const char* index_name,
                          const char* data_name);

}  // namespace zenithor
