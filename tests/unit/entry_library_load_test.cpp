// What happens when the library is loaded, with a platform made for the test.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "entry/library_load.h"
#include "ephemeris/series.h"
#include "support/archive_files.h"

// What the linker puts in the place of zenithor::OpenForReading: `before_open` first, with the
// number of the opening, from 1.
static int openings;
static std::function<void(int)> before_open;
extern "C" std::FILE* __real__ZN8zenithor14OpenForReadingEPKc(const char* name);
extern "C" std::FILE* __wrap__ZN8zenithor14OpenForReadingEPKc(const char* name) {
  ++openings;
  if (before_open) {
    before_open(openings);
  }
  return __real__ZN8zenithor14OpenForReadingEPKc(name);
}

namespace zenithor {
namespace {

using testing::NumberedTerms;
using testing::RecordWith;
using testing::TemporaryFolder;
using testing::WriteData;
using testing::WriteIndex;

// What the load asked the platform, in order: "exists <path>" and "warn".
std::vector<std::string> asked;
bool index_exists;
bool data_exists;

bool FakeExists(const char* path) {
  asked.push_back(std::string("exists ") + path);
  return std::string(path).find("ndx") != std::string::npos ? index_exists : data_exists;
}

void FakeWarn() { asked.push_back("warn"); }

// Real files for nine slots, of which the platform may say that they do not exist: a load that
// opened one all the same would fill the store.
class LibraryLoad : public ::testing::Test {
 protected:
  LibraryLoad() {
    asked.clear();
    openings = 0;
    before_open = nullptr;
    index_exists = data_exists = true;
    std::vector<BodyIndexRecord> records;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      records.push_back(RecordWith(slot, {1}));
    }
    WriteIndex(index_path_, records);
    WriteData(data_path_, NumberedTerms(kSlotCount));
  }
  void Load() {
    LoadEphemeris(store_, {index_path_.c_str(), data_path_.c_str(), FakeExists, FakeWarn});
  }
  int LoadedSlots() const {
    int count = 0;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      count += IsLoaded(store_, slot) ? 1 : 0;
    }
    return count;
  }
  bool NoFileWasOpened() const {
    return LoadedSlots() == 0 && store_.index_stream == nullptr && store_.data_stream == nullptr;
  }

  TemporaryFolder folder_;
  std::string index_path_ = folder_ / "karvo.ndx";
  std::string data_path_ = folder_ / "karvo.dat";
  EphemerisStore store_;
};

TEST_F(LibraryLoad, LoadsTheNineSlotsWhenBothFilesAreThere) {
  Load();
  EXPECT_EQ(LoadedSlots(), 9);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_EQ(SumStoredSeries(store_, slot, 0.0).longitude, slot);
  }
  EXPECT_EQ(asked, (std::vector<std::string>{"exists " + index_path_, "exists " + data_path_}));
  EXPECT_EQ(store_.index_stream, nullptr);
  EXPECT_EQ(store_.data_stream, nullptr);
}

TEST_F(LibraryLoad, WarnsOnceAndOpensNothingWithoutTheIndexFile) {
  index_exists = false;
  Load();
  // The second test runs only when the first succeeds.
  EXPECT_EQ(asked, (std::vector<std::string>{"exists " + index_path_, "warn"}));
  EXPECT_TRUE(NoFileWasOpened());
}

TEST_F(LibraryLoad, WarnsOnceAndOpensNothingWithoutTheDataFile) {
  data_exists = false;
  Load();
  EXPECT_EQ(asked,
            (std::vector<std::string>{"exists " + index_path_, "exists " + data_path_, "warn"}));
  EXPECT_TRUE(NoFileWasOpened());
}

TEST_F(LibraryLoad, WarnsOnceWithoutEitherFile) {
  index_exists = data_exists = false;
  Load();
  EXPECT_EQ(asked, (std::vector<std::string>{"exists " + index_path_, "warn"}));
  EXPECT_TRUE(NoFileWasOpened());
}

TEST_F(LibraryLoad, NeitherWarnsNorAsksWhenTheFolderIsNotFound) {
  for (const bool index_known : {false, true}) {
    LoadEphemeris(store_, {index_known ? index_path_.c_str() : nullptr,
                           index_known ? nullptr : data_path_.c_str(), FakeExists, FakeWarn});
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(LoadedSlots(), 0);
  }
}

TEST_F(LibraryLoad, SaysNothingWhenAFileThatExistsCannotBeRead) {
  std::filesystem::remove(data_path_);
  Load();
  EXPECT_EQ(asked.size(), 2U);
  EXPECT_EQ(LoadedSlots(), 0);
}

TEST_F(LibraryLoad, KeepsTheOtherSlotsWhenOneFails) {
  std::vector<BodyIndexRecord> records(kSlotCount, RecordWith(0, {1}));
  records[4] = RecordWith(0, {-1});
  WriteIndex(index_path_, records);
  Load();
  EXPECT_EQ(LoadedSlots(), 8);
  EXPECT_FALSE(IsLoaded(store_, 4));
}

// A load opens each file once for each slot.
constexpr int kOpeningsOfALoad = 2 * kSlotCount;

// Replaces a file by one of the same size, as it should be done: written beside it and renamed.
void Replace(const std::string& path, const std::vector<SeriesTerm>& terms) {
  WriteData(path + ".new", terms);
  std::filesystem::rename(path + ".new", path);
}

std::vector<SeriesTerm> TermsFrom(int first) {
  std::vector<SeriesTerm> terms = NumberedTerms(kSlotCount);
  for (SeriesTerm& term : terms) {
    term.amplitude += first;
  }
  return terms;
}

TEST_F(LibraryLoad, ReadsAllSlotsAgainWhenAFileIsReplacedMeanwhile) {
  for (int opening = 3; opening <= kOpeningsOfALoad; ++opening) {
    WriteData(data_path_, NumberedTerms(kSlotCount));
    openings = 0;
    before_open = [&](int number) {
      if (number == opening) {
        Replace(data_path_, TermsFrom(100));
      }
    };
    Load();
    EXPECT_EQ(openings, 2 * kOpeningsOfALoad) << opening;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      EXPECT_EQ(SumStoredSeries(store_, slot, 0.0).longitude, 100.0 + slot) << opening;
    }
  }
}

TEST_F(LibraryLoad, TellsAnotherFileOfTheSameSizeAndTime) {
  before_open = [&](int number) {
    if (number == 9) {
      const auto time = std::filesystem::last_write_time(data_path_);
      WriteData(data_path_ + ".new", TermsFrom(100));
      std::filesystem::last_write_time(data_path_ + ".new", time);
      std::filesystem::rename(data_path_ + ".new", data_path_);
    }
  };
  Load();
  EXPECT_EQ(openings, 2 * kOpeningsOfALoad);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_EQ(SumStoredSeries(store_, slot, 0.0).longitude, 100.0 + slot);
  }
}

TEST_F(LibraryLoad, ReadsAllSlotsAgainWhenTheIndexIsReplacedMeanwhile) {
  std::vector<BodyIndexRecord> records;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    records.push_back(RecordWith(kSlotCount - 1 - slot, {1}));
  }
  before_open = [&](int number) {
    if (number == 7) {
      WriteIndex(index_path_ + ".new", records);
      std::filesystem::rename(index_path_ + ".new", index_path_);
    }
  };
  Load();
  EXPECT_EQ(openings, 2 * kOpeningsOfALoad);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_EQ(SumStoredSeries(store_, slot, 0.0).longitude, kSlotCount - 1.0 - slot);
  }
}

TEST_F(LibraryLoad, ReadsAllSlotsAgainWhenAFileIsWrittenToMeanwhile) {
  before_open = [&](int number) {
    if (number == 9) {
      WriteData(data_path_, TermsFrom(50));
      std::filesystem::last_write_time(
          data_path_, std::filesystem::last_write_time(data_path_) + std::chrono::seconds(2));
    }
  };
  Load();
  EXPECT_EQ(openings, 2 * kOpeningsOfALoad);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_EQ(SumStoredSeries(store_, slot, 0.0).longitude, 50.0 + slot);
  }
}

TEST_F(LibraryLoad, ReadsAllSlotsAgainWhenAFileIsAwayForAMoment) {
  before_open = [&](int number) {
    if (number == 5) {
      std::filesystem::rename(index_path_, index_path_ + ".old");
    } else if (number == 6) {
      std::filesystem::rename(index_path_ + ".old", index_path_);
    }
  };
  Load();
  EXPECT_EQ(LoadedSlots(), kSlotCount);
}

TEST_F(LibraryLoad, TakesTheFilesAsTheyAreWhenTheyChangeTimeAndAgain) {
  before_open = [&](int number) {
    if (number % kOpeningsOfALoad == 9) {
      Replace(data_path_, TermsFrom(100 * (number / kOpeningsOfALoad + 1)));
    }
  };
  Load();
  EXPECT_EQ(openings, 4 * kOpeningsOfALoad);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).longitude, 300.0);
  EXPECT_EQ(SumStoredSeries(store_, 8, 0.0).longitude, 408.0);
  EXPECT_EQ(LoadedSlots(), kSlotCount);
}

TEST_F(LibraryLoad, OpensEachFileNineTimesWhenNothingChanges) {
  Load();
  EXPECT_EQ(openings, kOpeningsOfALoad);
  std::filesystem::resize_file(data_path_, 5 * sizeof(SeriesTerm));  // cut short, but the same
  openings = 0;
  Load();
  EXPECT_EQ(openings, kOpeningsOfALoad);
}

TEST(LibraryLoadTexts, AreTheOnesThatPeopleKnow) {
  EXPECT_STREQ(kMissingFileText, "Ephemeris file is missing");
  EXPECT_STREQ(kMissingFileCaption, "MISSING FILE");
}

}  // namespace
}  // namespace zenithor
