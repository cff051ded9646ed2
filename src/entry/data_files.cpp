#include "entry/data_files.h"

#include <cstdlib>
#include <cstring>

namespace zenithor {

namespace {

constexpr char kIndexFile[] = "/tavvin_files/archive/karvo.ndx";
constexpr char kDataFile[] = "/tavvin_files/archive/karvo.dat";
constexpr char kSystemFolders[] = "/usr/local/share:/usr/share";

// The first `size` bytes of a folder's name, and what follows them.
struct Folder {
  const char* name;
  std::size_t size;
  const char* below;
};

char* Joined(const Folder& folder, const char* file) {
  const std::size_t below_size = std::strlen(folder.below);
  const std::size_t file_size = std::strlen(file);
  auto* const text = static_cast<char*>(std::malloc(folder.size + below_size + file_size + 1));
  if (text != nullptr) {
    std::memcpy(text, folder.name, folder.size);
    std::memcpy(text + folder.size, folder.below, below_size);
    std::memcpy(text + folder.size + below_size, file, file_size + 1);
  }
  return text;
}

DataFiles FilesIn(const Folder& folder) {
  return {Joined(folder, kIndexFile), Joined(folder, kDataFile)};
}

DataFiles UserFiles(const DataEnvironment& environment) {
  const char* const data_home = environment.data_home;
  if (data_home != nullptr && data_home[0] == '/') {
    return FilesIn({data_home, std::strlen(data_home), ""});
  }
  const char* const home = environment.home;
  if (home == nullptr || home[0] == '\0') {
    return {nullptr, nullptr};
  }
  return FilesIn({home, std::strlen(home), "/.local/share"});
}

bool AreThere(const DataFiles& files, bool (*file_exists)(const char* path)) {
  return files.index_path != nullptr && files.data_path != nullptr &&
         file_exists(files.index_path) && file_exists(files.data_path);
}

void Free(const DataFiles& files) {
  std::free(files.index_path);
  std::free(files.data_path);
}

}  // namespace

DataFiles FindDataFiles(const DataEnvironment& environment, bool (*file_exists)(const char* path)) {
  const DataFiles of_user = UserFiles(environment);
  if (AreThere(of_user, file_exists)) {
    return of_user;
  }
  const char* const given = environment.data_dirs;
  const char* folder = given == nullptr || given[0] == '\0' ? kSystemFolders : given;
  for (;;) {
    const std::size_t size = std::strcspn(folder, ":");
    if (folder[0] == '/') {
      const DataFiles of_system = FilesIn({folder, size, ""});
      if (AreThere(of_system, file_exists)) {
        Free(of_user);
        return of_system;
      }
      Free(of_system);
    }
    if (folder[size] == '\0') {
      return of_user;
    }
    folder += size + 1;
  }
}

}  // namespace zenithor
