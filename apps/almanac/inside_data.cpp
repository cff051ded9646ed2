#include "inside_data.h"

extern "C" {
// Those of the values library, and the manifest (manifest.S).
extern const char zenithor_linked_index[];
extern const char zenithor_linked_index_end[];
extern const char zenithor_linked_terms[];
extern const char zenithor_linked_terms_end[];
extern const char almanac_manifest[];
extern const char almanac_manifest_end[];
}

namespace zenithor::almanac {

namespace {

std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

const InsideFile* InsideFiles() {
  static const InsideFile files[kInsideFiles] = {
      {"karvo.dat", Between(zenithor_linked_terms, zenithor_linked_terms_end)},
      {"karvo.ndx", Between(zenithor_linked_index, zenithor_linked_index_end)},
      {"manifest.json", Between(almanac_manifest, almanac_manifest_end)}};
  return files;
}

}  // namespace zenithor::almanac
