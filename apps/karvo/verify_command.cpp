#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "archive.h"
#include "commands.h"
#include "manifest.h"

namespace zenithor::karvo {

namespace {

// Ranges that the terms of a planetary theory keep to: Mercury's mean motion is the largest
// amplitude (26088 rad per millennium), phases lie in one turn, and the fastest argument is some
// sixteen times Mercury's.
constexpr double kLargestAmplitude = 1e5;
constexpr double kLargestPhase = 6.283185307179586;
constexpr double kLargestFrequency = 1e6;

// Prints what is wrong and counts it.
class Findings {
 public:
  template <class... Arguments>
  void Add(fmt::format_string<Arguments...> text, Arguments&&... arguments) {
    fmt::print(stderr, "karvo: {}\n", fmt::format(text, std::forward<Arguments>(arguments)...));
    ++count_;
  }
  int Count() const { return count_; }

 private:
  int count_ = 0;
};

void CheckTerm(const std::string& path, std::size_t number, const SeriesTerm& term,
               Findings& findings) {
  const struct {
    const char* name;
    double value;
    double limit;
  } fields[] = {{"amplitude", term.amplitude, kLargestAmplitude},
                {"phase", term.phase, kLargestPhase},
                {"frequency", term.frequency, kLargestFrequency}};
  for (const auto& field : fields) {
    if (!std::isfinite(field.value)) {
      findings.Add("{}: term {}: {} is not finite", path, number, field.name);
    } else if (std::fabs(field.value) > field.limit) {
      findings.Add("{}: term {}: {} is {}, beyond {}", path, number, field.name, field.value,
                   field.limit);
    }
  }
}

// The field of the index for a series that starts at `term`.
long FirstTermField(long term) { return term <= kHighestInt16 ? term : kBeyondInt16; }

// The series of `slot` follow one another from `next` on; the term after them. Where one does not
// follow, the check goes on from where it says it is, so that one fault is one finding.
long CheckRecord(const std::string& path, int slot, const IndexRecord& record, long next,
                 Findings& findings) {
  for (std::size_t series = 0; series < record.size(); ++series) {
    const IndexPair& pair = record[series];
    const std::string name = SeriesName(static_cast<int>(series));
    if (pair.first_term != FirstTermField(next)) {
      findings.Add("{}: slot {}: series {} names {} as its first term where {} is next", path, slot,
                   name, pair.first_term, FirstTermField(next));
      next = std::max(pair.first_term, 0);
    }
    if (pair.term_count < 0) {
      findings.Add("{}: slot {}: series {} has {} terms", path, slot, name, pair.term_count);
    }
    next += pair.term_count;
  }
  return next;
}

void CheckStructure(const std::string& folder, const Archive& archive, Findings& findings) {
  const std::string index_path = folder + "/" + kIndexFileName;
  const std::string data_path = folder + "/" + kDataFileName;
  if (archive.data.size() % kTermBytes != 0) {
    findings.Add("{}: {} bytes are no whole number of terms of {} bytes", data_path,
                 archive.data.size(), kTermBytes);
  }
  const std::size_t terms = archive.data.size() / kTermBytes;
  for (std::size_t k = 0; k < terms; ++k) {
    CheckTerm(data_path, k, DecodeTerm(archive.data, k), findings);
  }
  if (archive.index.size() != kSlotCount * kIndexRecordBytes) {
    findings.Add("{}: {} bytes; an index has {}", index_path, archive.index.size(),
                 kSlotCount * kIndexRecordBytes);
    return;
  }
  long next = 0;
  long total = 0;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const IndexRecord record = DecodeRecord(archive.index, slot);
    next = CheckRecord(index_path, slot, record, next, findings);
    total += TotalTerms(record);
  }
  if (total != static_cast<long>(terms)) {
    findings.Add("{}: the counts add up to {} terms; {} holds {}", index_path, total, data_path,
                 terms);
  }
}

void CheckManifest(const std::string& folder, const Archive& archive, Findings& findings) {
  const std::string path = folder + "/" + kManifestFileName;
  if (!std::filesystem::exists(path)) {
    findings.Add("{}: is missing; karvo build writes it", path);
    return;
  }
  const Manifest manifest = ParseManifest(path, ReadBytes(path));
  const ManifestFile actual[] = {Describe(kIndexFileName, archive.index),
                                 Describe(kDataFileName, archive.data)};
  for (const ManifestFile& file : actual) {
    bool listed = false;
    for (const ManifestFile& expected : manifest.files) {
      if (expected.name != file.name) {
        continue;
      }
      listed = true;
      if (expected.sha256 != file.sha256) {
        findings.Add("{}/{}: SHA-256 is {}, the manifest says {}", folder, file.name, file.sha256,
                     expected.sha256);
      }
    }
    if (!listed) {
      findings.Add("{}: does not list {}", path, file.name);
    }
  }
}

}  // namespace

int Verify(const std::string& folder) {
  const std::string archive_folder = ArchiveFolder(folder);
  const Archive archive = ReadArchive(archive_folder);
  Findings findings;
  CheckStructure(archive_folder, archive, findings);
  CheckManifest(archive_folder, archive, findings);
  if (findings.Count() > 0) {
    return 1;
  }
  fmt::print("{}: {} slots, {} terms, all finite and in range, SHA-256 as in the manifest\n",
             archive_folder, kSlotCount, archive.data.size() / kTermBytes);
  return 0;
}

}  // namespace zenithor::karvo
