#include "values/data.h"

#include <cstddef>

#include "ephemeris/memory_loader.h"
#include "host/process_state.h"
#include "values/guide_store.h"
#include "values/values_state.h"

extern "C" {
extern const char zenithor_linked_index[];
extern const char zenithor_linked_index_end[];
extern const zenithor::SeriesTerm zenithor_linked_terms[];
extern const char zenithor_linked_terms_end[];
}

namespace zenithor {

namespace {

constexpr char kFingerprint[] =
#include "data_fingerprint.inc"
    ;
static_assert(sizeof kFingerprint == 64 + 1, "32 bytes in hexadecimal digits");

}  // namespace

void LoadLinkedData() {
  const EphemerisImage image{
      zenithor_linked_index,
      static_cast<std::size_t>(zenithor_linked_index_end - zenithor_linked_index),
      zenithor_linked_terms,
      static_cast<std::size_t>(zenithor_linked_terms_end -
                               reinterpret_cast<const char*>(zenithor_linked_terms)),
      values_rooms.full,
      sizeof values_rooms.full};
  LoadFromMemory(process_state.store, image);
  MakeGuide(process_state.store, values_state.guide, values_rooms.guide);
  process_state.keeps_values = true;
}

const char* LinkedDataFingerprint() { return kFingerprint; }

}  // namespace zenithor
