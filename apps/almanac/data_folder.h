#pragma once

#include <filesystem>
#include <vector>

namespace zenithor::almanac {

// The folders in which the library looks for its data files, there or not, in this order. On
// Windows one, in the user's roaming application data. Elsewhere first the user's, in
// $XDG_DATA_HOME, which must be absolute, or ~/.local/share; then the system's, in the absolute
// ones of $XDG_DATA_DIRS, or /usr/local/share and /usr/share. Throws Failure where there is none.
std::vector<std::filesystem::path> DataFolders();

}  // namespace zenithor::almanac
