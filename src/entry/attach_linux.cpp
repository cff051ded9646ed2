// Library load on Linux: the data are looked for in $XDG_DATA_HOME, else in ~/.local/share, with
// the same two levels below it as on Windows; the warning goes to standard error.

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "entry/library_load.h"
#include "ephemeris/file_open.h"
#include "host/boundary.h"
#include "host/process_store.h"

namespace {

constexpr char kIndexFile[] = "/tavvin_files/archive/karvo.ndx";
constexpr char kDataFile[] = "/tavvin_files/archive/karvo.dat";

char* Joined(const char* first, const char* second, const char* third) {
  const std::size_t size = std::strlen(first) + std::strlen(second) + std::strlen(third) + 1;
  auto* const text = static_cast<char*>(std::malloc(size));
  if (text != nullptr) {
    static_cast<void>(std::snprintf(text, size, "%s%s%s", first, second, third));
  }
  return text;
}

// A file below the folder for application data, on the heap; null where there is no such folder.
char* DataPath(const char* file) {
  const char* const data_home = std::getenv("XDG_DATA_HOME");
  if (data_home != nullptr && data_home[0] != '\0') {
    return Joined(data_home, "", file);
  }
  const char* const home = std::getenv("HOME");
  return home == nullptr || home[0] == '\0' ? nullptr : Joined(home, "/.local/share", file);
}

void WarnMissingFile() {
  static_cast<void>(
      std::fprintf(stderr, "%s: %s\n", zenithor::kMissingFileCaption, zenithor::kMissingFileText));
}

__attribute__((constructor)) void LoadFromApplicationData() {
  const zenithor::HostBoundary boundary;
  char* const index_name = DataPath(kIndexFile);
  char* const data_name = DataPath(kDataFile);
  zenithor::LoadEphemeris(zenithor::ProcessStore(),
                          {index_name, data_name, zenithor::FileExists, WarnMissingFile});
  std::free(index_name);
  std::free(data_name);
}

}  // namespace
