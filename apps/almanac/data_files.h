#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zenithor::almanac {

// The data files that the main library reads: karvo.dat and karvo.ndx, in one folder.

// The folders in which the library looks for its data files, there or not, in this order. On
// Windows one, in the user's roaming application data. Elsewhere first the user's, in
// $XDG_DATA_HOME, which must be absolute, or ~/.local/share; then the system's, in the absolute
// ones of $XDG_DATA_DIRS, or /usr/local/share and /usr/share. Throws Trouble where there is none.
std::vector<std::filesystem::path> DataFolders();

// The folder that the library reads: the first that holds both files; where none does, the first.
std::filesystem::path DataFolder();

// One data file, and whether it is whole.
struct DataFile {
  std::string name;
  std::optional<std::size_t> bytes;  // nothing where it is not there or cannot be read
  std::string sha256;
  bool good = false;
  std::string verdict;
};

struct DataVerdict {
  std::filesystem::path folder;
  std::vector<DataFile> files;
  std::string note;  // on the manifest, where it is missing or is none
  bool there = false;
  bool good = false;
  double max_error_arcsec = 0.0;  // of the manifest: what was given up to make the files smaller
};

// Compares the files with the manifest beside them, without one with the data inside this program.
DataVerdict ExamineData(const std::filesystem::path& folder);

// Throws Trouble where the files are not there or are not whole: the library would load them and
// answer wrong places, or none.
void RefuseDamagedData();

// Writes the two files and their manifest, those inside this program, into the folder. A file with
// other bytes is kept as NAME.old, one that has the same is left alone. The names that were
// written; throws Trouble.
std::vector<std::string> InstallData(const std::filesystem::path& folder);

}  // namespace zenithor::almanac
