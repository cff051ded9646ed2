#pragma once

#include <filesystem>

namespace zenithor::almanac {

// The folder in which the library looks for its data files, there or not. On Windows it lies in the
// user's roaming application data; elsewhere in $XDG_DATA_HOME, which must be absolute, or
// ~/.local/share. Throws Failure where there is no folder for application data.
std::filesystem::path DataFolder();

}  // namespace zenithor::almanac
