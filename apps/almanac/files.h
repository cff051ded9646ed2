#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace zenithor::almanac {

// Nothing where the file is not there or cannot be read.
std::optional<std::string> BytesOf(const std::filesystem::path& path);

// Puts a file in place in one step, so that a reader has the old bytes or the new. Throws Failure.
void PutFile(const std::filesystem::path& path, const std::string& bytes);

}  // namespace zenithor::almanac
