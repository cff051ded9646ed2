#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#endif
#define ZENITHOR_LOADER

#include "session.h"

#include <algorithm>
#include <string>
#include <vector>

#include "console.h"
#include "data_files.h"
#include "trouble.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace zenithor::almanac {

namespace {

using Path = std::basic_string<ZenithorPathCharacter>;

#ifdef _WIN32

Path Native(const std::string& text) { return PathOf(text).native(); }

Path ProgramPath() {
  Path path(32768, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  path.resize(length);
  return path;
}

constexpr ZenithorPathCharacter kSeparators[] = L"\\/";

bool Exists(const Path& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string Reason() {
  const DWORD error = GetLastError();
  if (error == ERROR_BAD_EXE_FORMAT) {
    return "it is no library for a 32-bit process";
  }
  if (error == ERROR_PROC_NOT_FOUND) {
    return "it does not export ZENITHOR";
  }
  return error == ERROR_MOD_NOT_FOUND ? "it is not there" : fmt::format("Windows error {}", error);
}

#else

Path Native(const std::string& text) { return text; }

Path ProgramPath() {
  Path path(4096, '\0');
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return path;
}

constexpr ZenithorPathCharacter kSeparators[] = "/";

bool Exists(const Path& path) { return access(path.c_str(), F_OK) == 0; }

std::string Reason() {
  const char* const text = dlerror();
  return text == nullptr ? "it does not export ZENITHOR" : text;
}

#endif

// Beside the program, or where it is when both are installed below one folder; else nothing.
Path PathInOwnTree() {
  const Path program = ProgramPath();
  const std::size_t separator = program.find_last_of(kSeparators);
  if (separator == Path::npos) {
    return {};
  }
  const Path folder = program.substr(0, separator + 1);
  std::vector<Path> paths = {folder + ZENITHOR_LIBRARY_NAME};
#ifdef ZENITHOR_LIBRARY_FOLDER
  paths.push_back(folder + ZENITHOR_LIBRARY_FOLDER "/" ZENITHOR_LIBRARY_SONAME);
#endif
  const auto found = std::find_if(paths.begin(), paths.end(), Exists);
  return found == paths.end() ? Path() : *found;
}

std::string Shown(const Path& path) { return std::filesystem::path(path).u8string(); }

}  // namespace

void Session::WithoutLibrary(const char* command) const {
  if (HasLibrary()) {
    throw Failure(
        "--library: {} is answered by the values inside the program; --library goes with "
        "today, events, rise, check and doctor",
        command);
  }
}

std::string Session::LibraryPath() const {
  const Path path = library_path.empty() ? PathInOwnTree() : Native(library_path);
  return Shown(path.empty() ? ZENITHOR_LIBRARY_NAME : path);
}

const ZenithorLibrary& Session::LibraryAsItIs() {
  if (library_.Handle == nullptr) {
    const Path path = library_path.empty() ? PathInOwnTree() : Native(library_path);
    if (ZenithorOpen(&library_, path.empty() ? nullptr : path.c_str()) == 0) {
      throw Trouble("{} cannot be loaded: {}; --library names another one", LibraryPath(),
                    Reason());
    }
  }
  return library_;
}

const ZenithorLibrary& Session::Library() {
  if (library_.Handle == nullptr) {
    RefuseDamagedData();
  }
  return LibraryAsItIs();
}

}  // namespace zenithor::almanac
