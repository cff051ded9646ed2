#include "ephemeris/memory_loader.h"

#include <cstdint>
#include <cstring>

#include "ephemeris/cosine_sum.h"

namespace zenithor {

namespace {

// Nonzero and different for every slot: the terms of a slot are the same for as long as the store
// stands.
std::uint64_t SlotFingerprint(int slot) { return static_cast<std::uint64_t>(slot) + 1; }

}  // namespace

std::size_t LoadFromMemory(EphemerisStore& store, const EphemerisImage& image) {
  constexpr std::size_t kRecordSize = sizeof(BodyIndexRecord);
  const std::size_t term_count = image.data_size / sizeof(SeriesTerm);
  std::size_t used = 0;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    BodySeries& body = store.bodies[slot];
    body = {};
    const std::size_t at = static_cast<std::size_t>(slot) * kRecordSize;
    if (at + kRecordSize > image.index_size) {
      continue;
    }
    std::memcpy(&body.index, static_cast<const char*>(image.index) + at, kRecordSize);
    std::int32_t total = 0;
    bool counts_hold = true;
    for (const SeriesRange& range : body.index.series) {
      counts_hold = counts_hold && range.term_count >= 0;
      total += range.term_count;
    }
    const std::int32_t first = body.index.series[0].first_term;
    if (!counts_hold || first < 0 ||
        static_cast<std::size_t>(first) + static_cast<std::size_t>(total) > term_count) {
      continue;
    }
    const std::size_t size = ArrangedSize(body.index, total);
    if (size > image.room_size - used) {
      continue;
    }
    body.terms = image.terms + first;
    body.term_count = total;
    body.fingerprint = SlotFingerprint(slot);
    body.tracks =
        ArrangeTerms(body.terms, total, body.index, static_cast<char*>(image.room) + used);
    used += size;
  }
  return used;
}

}  // namespace zenithor
