#include "values/data.h"

#include <cstddef>

#include "ephemeris/memory_loader.h"

extern "C" {
extern const char zenithor_linked_index[];
extern const char zenithor_linked_index_end[];
extern const zenithor::SeriesTerm zenithor_linked_terms[];
extern const char zenithor_linked_terms_end[];
}

namespace zenithor {

namespace {

constexpr std::size_t kRoomSize = 1U << 20;  // the full data need two thirds of it

alignas(64) char room[kRoomSize];

constexpr char kFingerprint[] =
#include "data_fingerprint.inc"
    ;
static_assert(sizeof kFingerprint == 64 + 1, "32 bytes in hexadecimal digits");

}  // namespace

void LoadLinkedData(EphemerisStore& store) {
  const EphemerisImage image{
      zenithor_linked_index,
      static_cast<std::size_t>(zenithor_linked_index_end - zenithor_linked_index),
      zenithor_linked_terms,
      static_cast<std::size_t>(zenithor_linked_terms_end -
                               reinterpret_cast<const char*>(zenithor_linked_terms)),
      room,
      sizeof room};
  LoadFromMemory(store, image);
}

const char* LinkedDataFingerprint() { return kFingerprint; }

}  // namespace zenithor
