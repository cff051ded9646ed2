#include "data_folder.h"

#ifdef _WIN32
#include <shlobj.h>
#else
#include <cstdlib>
#include <sstream>
#include <string>
#endif

#include "failure.h"

namespace zenithor::almanac {

#ifdef _WIN32

std::vector<std::filesystem::path> DataFolders() {
  wchar_t folder[MAX_PATH];
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, folder))) {
    throw Failure("this account has no folder for application data; the library finds no files");
  }
  return {std::filesystem::path(folder) / L"tavvin_files" / L"archive"};
}

#else

std::vector<std::filesystem::path> DataFolders() {
  const std::filesystem::path below = "tavvin_files/archive";
  const char* const data_home = secure_getenv("XDG_DATA_HOME");
  const char* const home = secure_getenv("HOME");
  const char* const data_dirs = secure_getenv("XDG_DATA_DIRS");
  std::vector<std::filesystem::path> folders;
  if (data_home != nullptr && data_home[0] == '/') {
    folders.push_back(data_home / below);
  } else if (home != nullptr && home[0] != '\0') {
    folders.push_back(std::filesystem::path(home) / ".local/share" / below);
  }
  const bool given = data_dirs != nullptr && data_dirs[0] != '\0';
  std::istringstream system_folders(given ? data_dirs : "/usr/local/share:/usr/share");
  for (std::string folder; std::getline(system_folders, folder, ':');) {
    if (!folder.empty() && folder[0] == '/') {
      folders.push_back(folder / below);
    }
  }
  if (folders.empty()) {
    throw Failure(
        "XDG_DATA_HOME, HOME and XDG_DATA_DIRS name no folder; without one the library finds no "
        "files");
  }
  return folders;
}

#endif

}  // namespace zenithor::almanac
