#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zenithor::almanac {

// A library file that lies where programs look for libraries.
struct LibraryFile {
  std::filesystem::path path;
  std::string name;      // zenithor or zenithor_values
  int bits = 0;          // 32, 64; 0 where it is no library of this system
  std::string machine;   // x86, x86-64, ARM64
  std::string version;   // empty: the file does not tell
  bool for_all = false;  // in a folder where every program looks, not only those in the folder
};

// All of them: beside this program, then in the order in which the system searches.
std::vector<LibraryFile> FindLibraryFiles();

// What a file says of itself; `path` must be readable.
LibraryFile DescribeLibraryFile(const std::filesystem::path& path);

}  // namespace zenithor::almanac
