#pragma once

#include <cstddef>

#include "ephemeris/store.h"

namespace zenithor {

// The index file and the data file as they stand in memory, and room for what is arranged from
// them. All of it stays in use, and the data stay as they are.
struct EphemerisImage {
  const void* index;
  std::size_t index_size;
  const SeriesTerm* terms;
  std::size_t data_size;  // [byte]
  void* room;
  std::size_t room_size;
};

// Fills the store's nine slots from memory: the same terms, arranged in the same way, as
// LoadBodySeries reads from the two files. Allocates nothing. A slot whose record is not in the
// index, whose terms are not all in the data, or for which the room is too small, is left empty.
// Returns the bytes of the room that were used.
std::size_t LoadFromMemory(EphemerisStore& store, const EphemerisImage& image);

}  // namespace zenithor
