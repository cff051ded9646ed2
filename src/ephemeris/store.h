#pragma once

#include <array>
#include <cstdint>
#include <cstdio>

#include "ephemeris/file_open.h"
#include "ephemeris/term_tracks.h"

namespace zenithor {

// The periodic series of the Sun's planets, held in memory. Slot numbers are body codes 0 to 8;
// slot 0 holds the Earth referred to J2000.0, the observer that goes with Pluto's series.

constexpr int kSlotCount = 9;
constexpr int kPowerCount = 6;                 // powers of time 0 to 5
constexpr int kSeriesCount = 3 * kPowerCount;  // L0..L5, B0..B5, R0..R5

constexpr int kEarthSlot = 3;
constexpr int kEarthJ2000Slot = 0;

// One term of the data file: A cos(B + C t), t in Julian millennia from J2000.0.
struct SeriesTerm {
  double amplitude;  // [rad] or [au]
  double phase;      // [rad]
  double frequency;  // [rad per Julian millennium]
};
static_assert(sizeof(SeriesTerm) == 24, "a term is 24 bytes in the data file");

struct SeriesRange {
  std::int16_t first_term;  // in the data file; read for the first series of a body only
  std::int16_t term_count;
};

// One slot of the index file.
struct BodyIndexRecord {
  std::array<SeriesRange, kSeriesCount> series;
};
static_assert(sizeof(BodyIndexRecord) == 72, "an index record is 72 bytes");

// The series of one body. Without terms it is not loaded, and the rest is as it stands here.
struct BodySeries {
  const SeriesTerm* terms = nullptr;  // L0..L5, B0..B5, R0..R5, one after the other
  std::int32_t term_count = 0;
  BodyIndexRecord index{};
  std::uint64_t fingerprint = 0;  // of the terms; 0 where they did not come from a file
  TermTracks tracks;              // made from the terms, in the same block of memory
};

struct EphemerisStore {
  BodySeries bodies[kSlotCount];
  const char* path_prefix = "";
  std::FILE* index_stream = nullptr;  // meaningful only during a load
  std::FILE* data_stream = nullptr;
  FileIdentity index_file;  // those that the latest load of a slot opened
  FileIdentity data_file;
};

inline bool IsLoaded(const EphemerisStore& store, int slot) {
  return slot >= 0 && slot < kSlotCount && store.bodies[slot].terms != nullptr;
}

}  // namespace zenithor
