#include "library_files.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>

#include "console.h"
#include "files.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace zenithor::almanac {

namespace fs = std::filesystem;

namespace {

std::uint32_t LittleEndian(const std::string& bytes, std::size_t place, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t k = count; k-- > 0;) {
    value = value << 8U |
            (place + k < bytes.size() ? static_cast<unsigned char>(bytes[place + k]) : 0U);
  }
  return value;
}

struct Machine {
  std::uint32_t number;
  int bits;
  const char* name;
};

constexpr Machine kElfMachines[] = {{3, 32, "x86"}, {62, 64, "x86-64"}, {183, 64, "ARM64"}};
constexpr Machine kPeMachines[] = {
    {0x14c, 32, "x86"}, {0x8664, 64, "x86-64"}, {0xaa64, 64, "ARM64"}};

template <std::size_t count>
void SetMachine(const Machine (&machines)[count], std::uint32_t number, LibraryFile& file) {
  for (const Machine& machine : machines) {
    if (machine.number == number) {
      file.bits = machine.bits;
      file.machine = machine.name;
    }
  }
}

// The fixed part of a version resource begins with these bytes; then come the version of its own
// form, and that of the file in four numbers of 16 bits.
std::string ResourceVersion(const std::string& bytes) {
  const std::size_t place = bytes.find(std::string("\xbd\x04\xef\xfe\x00\x00\x01\x00", 8));
  if (place == std::string::npos) {
    return "";
  }
  return fmt::format("{}.{}.{}", LittleEndian(bytes, place + 10, 2),
                     LittleEndian(bytes, place + 8, 2), LittleEndian(bytes, place + 14, 2));
}

void Describe(const std::string& bytes, LibraryFile& file) {
  if (bytes.compare(0, 4,
                    "\x7f"
                    "ELF") == 0) {
    SetMachine(kElfMachines, LittleEndian(bytes, 18, 2), file);
    // libzenithor.so.1.0.0, to which the names without a version lead.
    std::error_code error;
    const std::string real = fs::canonical(file.path, error).filename().u8string();
    const std::size_t so = real.find(".so.");
    file.version = so == std::string::npos ? "" : real.substr(so + 4);
  } else if (bytes.compare(0, 2, "MZ") == 0) {
    const std::size_t header = LittleEndian(bytes, 0x3c, 4);
    if (bytes.compare(std::min(header, bytes.size()), 4, std::string("PE\0\0", 4)) == 0) {
      SetMachine(kPeMachines, LittleEndian(bytes, header + 4, 2), file);
      file.version = ResourceVersion(bytes);
    }
  }
}

struct Searched {
  fs::path folder;
  bool for_all;
};

void AddListed(const std::string& list, char separator, std::vector<Searched>& folders) {
  std::size_t begin = 0;
  while (begin < list.size()) {
    const std::size_t end = std::min(list.find(separator, begin), list.size());
    if (end > begin) {
      folders.push_back({PathOf(list.substr(begin, end - begin)), true});
    }
    begin = end + 1;
  }
}

#ifdef _WIN32

constexpr const char* kNames[] = {"zenithor.dll", "zenithor_values.dll"};

std::vector<Searched> SearchedFolders() {
  wchar_t path[32768] = L"";
  static_cast<void>(GetModuleFileNameW(nullptr, path, 32767));
  const fs::path beside = fs::path(path).parent_path();
  std::vector<Searched> folders = {
      {beside, false}, {beside / "x64", false}, {beside.parent_path() / "win64", false}};
  const fs::path windows = PathOf(EnvironmentOf("SystemRoot"));
  if (!windows.empty()) {
    // A 32-bit process sees the 64-bit folder by its second name only.
    folders.push_back({windows / "Sysnative", true});
    folders.push_back({windows / "SysWOW64", true});
    folders.push_back({windows, true});
  }
  AddListed(EnvironmentOf("PATH"), ';', folders);
  return folders;
}

#else

constexpr const char* kNames[] = {"libzenithor.so", "libzenithor_values.so"};

std::vector<Searched> SearchedFolders() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  std::vector<Searched> folders = {{program.parent_path(), false}};
  AddListed(EnvironmentOf("LD_LIBRARY_PATH"), ':', folders);
  for (const char* const folder :
       {"/usr/local/lib", "/usr/lib/x86_64-linux-gnu", "/usr/lib/aarch64-linux-gnu",
        "/usr/lib/i386-linux-gnu", "/usr/lib64", "/usr/lib"}) {
    folders.push_back({folder, true});
  }
  return folders;
}

#endif

}  // namespace

LibraryFile DescribeLibraryFile(const fs::path& path) {
  LibraryFile file;
  file.path = path;
  file.name = path.filename().u8string().find("values") == std::string::npos ? "zenithor"
                                                                             : "zenithor_values";
  if (const std::optional<std::string> bytes = BytesOf(path)) {
    Describe(*bytes, file);
  }
  return file;
}

std::vector<LibraryFile> FindLibraryFiles() {
  std::vector<LibraryFile> files;
  for (const Searched& searched : SearchedFolders()) {
    for (const char* const name : kNames) {
      const fs::path path = searched.folder / name;
      std::error_code error;
      const bool known = std::any_of(files.begin(), files.end(), [&](const LibraryFile& file) {
        return fs::equivalent(file.path, path, error);
      });
      if (fs::is_regular_file(path, error) && !known) {
        files.push_back(DescribeLibraryFile(path));
        files.back().for_all = searched.for_all;
      }
    }
  }
  return files;
}

}  // namespace zenithor::almanac
