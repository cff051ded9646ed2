#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "ephemeris/store.h"

// Ephemeris files made by hand, for tests of the loader.

#ifdef __SANITIZE_ADDRESS__
// A loaded block and a prefix live until the process ends; only these are no leaks.
extern "C" __attribute__((used, visibility("default"))) inline const char*
__lsan_default_suppressions() {
  return "leak:zenithor::LoadBodySeries\nleak:zenithor::SetEphemerisFolder\n";
}
#endif

namespace zenithor::testing {

// A folder of its own that goes when the test ends.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    static int count = 0;
    const auto base = std::filesystem::temp_directory_path();
    do {
      path_ = base / ("zenithor_test_" + std::to_string(++count));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;  // Windows keeps files that a load has left open
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

inline void WriteFile(const std::string& path, const void* bytes, std::size_t size) {
  std::ofstream file(path, std::ios::binary);
  file.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(size));
  if (!file) {
    throw std::runtime_error(path + ": cannot be written");
  }
}

// An index record whose first pair starts at `first`; counts are given series by series.
inline BodyIndexRecord RecordWith(int first, const std::vector<int>& counts) {
  BodyIndexRecord record{};
  record.series[0].first_term = static_cast<std::int16_t>(first);
  for (std::size_t k = 0; k < counts.size(); ++k) {
    record.series[k].term_count = static_cast<std::int16_t>(counts[k]);
  }
  return record;
}

inline void WriteIndex(const std::string& path, const std::vector<BodyIndexRecord>& records) {
  WriteFile(path, records.data(), records.size() * sizeof(BodyIndexRecord));
}

// Terms whose amplitude is their number and whose phase and frequency are 0, so that a sum tells
// which terms were taken.
inline std::vector<SeriesTerm> NumberedTerms(int count) {
  std::vector<SeriesTerm> terms;
  for (int k = 0; k < count; ++k) {
    terms.push_back({static_cast<double>(k), 0.0, 0.0});
  }
  return terms;
}

inline void WriteData(const std::string& path, const std::vector<SeriesTerm>& terms) {
  WriteFile(path, terms.data(), terms.size() * sizeof(SeriesTerm));
}

}  // namespace zenithor::testing
