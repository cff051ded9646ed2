#include "ephemeris/loader.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "ephemeris/cosine_sum.h"
#include "ephemeris/file_open.h"

namespace zenithor {

namespace {

std::int32_t TotalTermCount(const BodyIndexRecord& record) {
  std::int32_t total = 0;
  for (const SeriesRange& range : record.series) {
    total += range.term_count;
  }
  return total;
}

// Opens prefix + name; null when that fails.
std::FILE* OpenJoined(const char* prefix, const char* name) {
  auto* const path = static_cast<char*>(std::malloc(std::strlen(prefix) + std::strlen(name) + 1));
  if (path == nullptr) {
    return nullptr;
  }
  std::strcat(std::strcpy(path, prefix), name);
  std::FILE* const file = OpenForReading(path);
  std::free(path);
  return file;
}

// A number that two different sets of terms do not share, but for one chance in 2^64; not 0.
std::uint64_t Fingerprint(const BodyIndexRecord& record, const SeriesTerm* terms,
                          std::int32_t term_count) {
  std::uint64_t mixed = 1;
  const auto mix = [&mixed](const void* bytes, std::size_t size) {
    for (std::size_t k = 0; k < size; k += sizeof(std::uint64_t)) {
      std::uint64_t word = 0;
      std::memcpy(&word, static_cast<const char*>(bytes) + k, sizeof word);
      mixed = (mixed ^ word) * 0x9E3779B97F4A7C15U;
      mixed ^= mixed >> 29;
    }
  };
  static_assert(sizeof record % sizeof(std::uint64_t) == 0 &&
                sizeof *terms % sizeof(std::uint64_t) == 0);
  mix(&record, sizeof record);
  mix(terms, static_cast<std::size_t>(term_count) * sizeof *terms);
  return mixed == 0 ? 1 : mixed;
}

const char* HeapCopy(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  auto* const copy = static_cast<char*>(std::malloc(size));
  return copy == nullptr ? "" : static_cast<const char*>(std::memcpy(copy, text, size));
}

}  // namespace

void SetEphemerisFolder(EphemerisStore& store, const char* prefix) {
  for (BodySeries& body : store.bodies) {
    body = {};
  }
  store.path_prefix = prefix == nullptr ? "" : HeapCopy(prefix);
}

void FreeBodies(EphemerisStore& store) {
  for (BodySeries& body : store.bodies) {
    // The tracks lie in the same block.
    std::free(const_cast<SeriesTerm*>(body.terms));
    body = {};
  }
}

LoadStatus LoadBodySeries(EphemerisStore& store, int slot, const char* index_name,
                          const char* data_name) {
  if (slot < 0 || slot >= kSlotCount) {
    return LoadStatus::kLoaded;
  }
  BodySeries& body = store.bodies[slot];
  body = {};

  store.index_file = store.data_file = {};
  store.index_stream = OpenJoined(store.path_prefix, index_name);
  if (store.index_stream == nullptr) {
    return LoadStatus::kNoIndexFile;
  }
  // Kept on purpose: a load that fails from here on leaves the files it opened open.
  store.data_stream = OpenJoined(store.path_prefix, data_name);
  if (store.data_stream == nullptr) {
    return LoadStatus::kNoDataFile;
  }
  const bool first_or_last = slot == 0 || slot == kSlotCount - 1;
  store.index_file = IdentityOf(store.index_stream, first_or_last);
  store.data_file = IdentityOf(store.data_stream, first_or_last);

  BodyIndexRecord& record = body.index;
  if (std::fseek(store.index_stream, slot * static_cast<long>(sizeof record), SEEK_SET) == 0) {
    // What an index file that ends early does not give stays zero.
    [[maybe_unused]] const std::size_t read =
        std::fread(&record, 1, sizeof record, store.index_stream);
  }
  const long first = record.series[0].first_term;
  const std::int32_t total = TotalTermCount(record);
  if (total < 0) {
    return LoadStatus::kNoMemory;
  }
  // One block: the terms, zeroed, so that a short data file leaves terms that contribute nothing;
  // one term more than needed, so that an empty series has a block too; behind it the tracks.
  const std::size_t terms_size = (static_cast<std::size_t>(total) + 1) * sizeof(SeriesTerm);
  void* const memory = std::calloc(terms_size + ArrangedSize(record, total), 1);
  if (memory == nullptr) {
    return LoadStatus::kNoMemory;
  }
  auto* const block = static_cast<SeriesTerm*>(memory);
  std::size_t read = 0;
  if (std::fseek(store.data_stream, first * static_cast<long>(sizeof(SeriesTerm)), SEEK_SET) == 0) {
    read =
        std::fread(block, sizeof(SeriesTerm), static_cast<std::size_t>(total), store.data_stream);
  }
  // A term that the file ends in the middle of may have been read in part.
  block[read] = {};
  body.terms = block;
  body.term_count = total;
  body.fingerprint = Fingerprint(record, block, total);
  body.tracks = ArrangeTerms(block, total, record, static_cast<char*>(memory) + terms_size);
  static_cast<void>(std::fclose(store.data_stream));
  static_cast<void>(std::fclose(store.index_stream));
  store.data_stream = nullptr;
  store.index_stream = nullptr;
  return LoadStatus::kLoaded;
}

}  // namespace zenithor
