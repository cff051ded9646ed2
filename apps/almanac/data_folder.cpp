#include "data_folder.h"

#ifdef _WIN32
#include <shlobj.h>
#else
#include <cstdlib>
#endif

#include "failure.h"

namespace zenithor::almanac {

#ifdef _WIN32

std::filesystem::path DataFolder() {
  wchar_t folder[MAX_PATH];
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, folder))) {
    throw Failure("this account has no folder for application data; the library finds no files");
  }
  return std::filesystem::path(folder) / L"tavvin_files" / L"archive";
}

#else

std::filesystem::path DataFolder() {
  const std::filesystem::path below = "tavvin_files/archive";
  const char* const data_home = secure_getenv("XDG_DATA_HOME");
  if (data_home != nullptr && data_home[0] == '/') {
    return data_home / below;
  }
  const char* const home = secure_getenv("HOME");
  if (home == nullptr || home[0] == '\0') {
    throw Failure(
        "neither XDG_DATA_HOME nor HOME names a folder; without one the library finds no files");
  }
  return std::filesystem::path(home) / ".local/share" / below;
}

#endif

}  // namespace zenithor::almanac
