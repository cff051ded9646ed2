#include <fmt/core.h>

#include <cstdlib>

#include "archive.h"
#include "commands.h"
#include "failure.h"

namespace zenithor::karvo {

namespace {

// With eleven decimals, like the coefficient files, where that is the same number; else with as
// many digits as it takes.
std::string Decimal(double value) {
  const std::string published = fmt::format("{:.11f}", value);
  return std::strtod(published.c_str(), nullptr) == value ? published : fmt::format("{}", value);
}

}  // namespace

int Dump(const std::string& folder, int slot) {
  if (slot < 0 || slot >= kSlotCount) {
    throw Failure("--slot {}: there are slots 0 to {}", slot, kSlotCount - 1);
  }
  const std::string archive_folder = ArchiveFolder(folder);
  const Archive archive = ReadArchive(archive_folder);
  const auto record_end = (static_cast<std::size_t>(slot) + 1) * kIndexRecordBytes;
  if (archive.index.size() < record_end) {
    throw Failure("{}/{}: {} bytes; slot {} ends at byte {}", archive_folder, kIndexFileName,
                  archive.index.size(), slot, record_end);
  }
  const IndexRecord record = DecodeRecord(archive.index, slot);
  long term = record[0].first_term;
  const long end = term + TotalTerms(record);
  if (term < 0 || end < term || static_cast<std::size_t>(end) > archive.data.size() / kTermBytes) {
    throw Failure("{}/{}: slot {} takes terms {} to {}; {} holds {}", archive_folder,
                  kIndexFileName, slot, term, end - 1, kDataFileName,
                  archive.data.size() / kTermBytes);
  }
  fmt::print("coordinate,power,amplitude,phase,frequency\n");
  for (int series = 0; series < kSeriesCount; ++series) {
    const std::string name = SeriesName(series);
    for (int k = 0; k < record[static_cast<std::size_t>(series)].term_count; ++k, ++term) {
      if (term >= end) {
        throw Failure("{}/{}: slot {}: the counts of the series disagree with their sum",
                      archive_folder, kIndexFileName, slot);
      }
      const SeriesTerm t = DecodeTerm(archive.data, static_cast<std::size_t>(term));
      fmt::print("{},{},{},{},{}\n", name[0], name[1], Decimal(t.amplitude), Decimal(t.phase),
                 Decimal(t.frequency));
    }
  }
  return 0;
}

}  // namespace zenithor::karvo
