// What happens when the library is loaded, with a platform made for the test.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "entry/library_load.h"
#include "ephemeris/series.h"
#include "support/archive_files.h"

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

TEST(LibraryLoadTexts, AreTheOnesThatPeopleKnow) {
  EXPECT_STREQ(kMissingFileText, "Ephemeris file is missing");
  EXPECT_STREQ(kMissingFileCaption, "MISSING FILE");
}

}  // namespace
}  // namespace zenithor
