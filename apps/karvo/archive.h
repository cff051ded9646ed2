#pragma once

#include <array>
#include <string>
#include <vector>

#include "body_terms.h"

namespace zenithor::karvo {

// The two ephemeris files as bytes.
//
// karvo.ndx: for each slot 0 to 8 eighteen pairs of signed 16-bit integers, (first term, term
// count) of L0..L5, B0..B5, R0..R5. karvo.dat: terms of three doubles (amplitude, phase,
// frequency), slot after slot, series after series, nothing in between. Both little-endian.
//
// The library reads the first-term field of a slot's first pair only. karvo fills the others too,
// for people who look into the file: each holds the true index of its series' first term where
// that is at most 32767, and -1 where it is not.

constexpr std::size_t kIndexRecordBytes = 72;
constexpr std::size_t kTermBytes = 24;
constexpr int kHighestInt16 = 32767;
constexpr int kBeyondInt16 = -1;

constexpr char kIndexFileName[] = "karvo.ndx";
constexpr char kDataFileName[] = "karvo.dat";

struct Archive {
  std::string index;
  std::string data;
};

struct IndexPair {
  int first_term;
  int term_count;
};
using IndexRecord = std::array<IndexPair, kSeriesCount>;

// Compiles slots 0 to 8. Throws Failure for what the format cannot hold: a series of more than
// 32767 terms, a slot that starts above term 32767, a number that is not finite.
Archive Encode(const std::vector<BodyTerms>& bodies);

// The record of `slot`; the index must be long enough.
IndexRecord DecodeRecord(const std::string& index, int slot);

// Term number `term`; the data must be long enough.
SeriesTerm DecodeTerm(const std::string& data, std::size_t term);

// The number of terms that a record's counts add up to.
long TotalTerms(const IndexRecord& record);

// The folder of the two files: `folder`/archive where that holds an index, else `folder` itself.
std::string ArchiveFolder(const std::string& folder);

Archive ReadArchive(const std::string& archive_folder);

std::string ReadBytes(const std::string& path);

// Writes through a temporary name, so that a reader never sees half a file.
void WriteBytes(const std::string& path, const std::string& bytes);

}  // namespace zenithor::karvo
