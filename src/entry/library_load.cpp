#include "entry/library_load.h"

#include <cstdio>

#include "ephemeris/loader.h"

namespace zenithor {

namespace {

// How often the nine slots are loaded where the files change meanwhile. A replacement changes them
// twice, once for each file, so one that is under way is over by the third time.
constexpr int kMostLoads = 4;

// The files that failed loads of slots have left open.
struct LeftOpen {
  std::FILE* files[2 * kSlotCount];
  int count = 0;

  void Take(std::FILE*& file) {
    if (file != nullptr) {
      files[count++] = file;
      file = nullptr;
    }
  }
  void Close() {
    while (count > 0) {
      static_cast<void>(std::fclose(files[--count]));
    }
  }
};

// Loads the nine slots; whether all of them came from the same two files, unchanged.
bool LoadAllSlots(EphemerisStore& store, const char* index_name, const char* data_name,
                  LeftOpen& left_open) {
  FileIdentity index_file;
  FileIdentity data_file;
  bool same = true;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    // The result of a load is ignored: a slot that failed stays null.
    static_cast<void>(LoadBodySeries(store, slot, index_name, data_name));
    left_open.Take(store.index_stream);
    left_open.Take(store.data_stream);
    if (slot == 0) {
      index_file = store.index_file;
      data_file = store.data_file;
    }
    same = same && MayBeTheSame(index_file, store.index_file) &&
           MayBeTheSame(data_file, store.data_file);
  }
  return same;
}

}  // namespace

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
  LeftOpen left_open;
  for (int load = 1; !LoadAllSlots(store, index_name, data_name, left_open) && load < kMostLoads;
       ++load) {
    // Nothing of it stays; on Windows a file that is open could not be replaced, either.
    FreeBodies(store);
    left_open.Close();
  }
}

}  // namespace zenithor
