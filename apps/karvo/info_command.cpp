#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "archive.h"
#include "commands.h"
#include "failure.h"
#include "manifest.h"
#include "sha256.h"

namespace zenithor::karvo {

namespace {

void PrintIndex(const std::string& index) {
  fmt::print("slot  {:<16} {:>6} {:>6}   terms of L0..L5 | B0..B5 | R0..R5\n", "series of", "first",
             "terms");
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const IndexRecord record = DecodeRecord(index, slot);
    fmt::print("{:>4}  {:<16} {:>6} {:>6}  ", slot, kSourceNames[static_cast<std::size_t>(slot)],
               record[0].first_term, TotalTerms(record));
    for (std::size_t series = 0; series < record.size(); ++series) {
      fmt::print("{} {}", series > 0 && series % kPowerCount == 0 ? " |" : "",
                 record[series].term_count);
    }
    fmt::print("\n");
  }
}

void PrintData(const std::string& data) {
  double amplitude = 0.0;
  double frequency = 0.0;
  const std::size_t count = data.size() / kTermBytes;
  for (std::size_t k = 0; k < count; ++k) {
    const SeriesTerm term = DecodeTerm(data, k);
    amplitude = std::max(amplitude, std::fabs(term.amplitude));
    frequency = std::max(frequency, std::fabs(term.frequency));
  }
  fmt::print("{} terms; largest amplitude {}, largest frequency {} rad per millennium\n", count,
             amplitude, frequency);
}

}  // namespace

int Info(const std::string& file) {
  const std::string bytes = ReadBytes(file);
  const std::string kind = std::filesystem::path(file).extension().string();
  if (kind != ".ndx" && kind != ".dat") {
    throw Failure("{}: is neither an index (.ndx) nor a data file (.dat)", file);
  }
  if (kind == ".ndx" && bytes.size() != kSlotCount * kIndexRecordBytes) {
    throw Failure("{}: {} bytes; an index has {}", file, bytes.size(),
                  kSlotCount * kIndexRecordBytes);
  }
  if (kind == ".dat" && bytes.size() % kTermBytes != 0) {
    throw Failure("{}: {} bytes are no whole number of terms of {} bytes", file, bytes.size(),
                  kTermBytes);
  }
  fmt::print("{}: {} bytes, SHA-256 {}\n", file, bytes.size(), Sha256(bytes));
  kind == ".ndx" ? PrintIndex(bytes) : PrintData(bytes);
  return 0;
}

}  // namespace zenithor::karvo
