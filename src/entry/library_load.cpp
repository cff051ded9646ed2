#include "entry/library_load.h"

#include "ephemeris/loader.h"

namespace zenithor {

void LoadEphemeris(EphemerisStore& store, const LoadPlatform& platform) {
  const bool folder_found = platform.index_path != nullptr && platform.data_path != nullptr;
  if (folder_found &&
      !(platform.file_exists(platform.index_path) && platform.file_exists(platform.data_path))) {
    platform.warn_missing_file();
    return;
  }
  SetEphemerisFolder(store, nullptr);
  const char* const index_name = folder_found ? platform.index_path : "";
  const char* const data_name = folder_found ? platform.data_path : "";
  for (int slot = 0; slot < kSlotCount; ++slot) {
    static_cast<void>(LoadBodySeries(store, slot, index_name, data_name));
  }
}

}  // namespace zenithor
