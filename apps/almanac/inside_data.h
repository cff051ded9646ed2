#pragma once

#include <string_view>

namespace zenithor::almanac {

// The data files and their manifest, byte for byte, as they are linked into the program.
struct InsideFile {
  const char* name;
  std::string_view bytes;
};

constexpr int kInsideFiles = 3;

// karvo.dat, karvo.ndx, manifest.json: the order in which they are put in place.
const InsideFile* InsideFiles();

}  // namespace zenithor::almanac
