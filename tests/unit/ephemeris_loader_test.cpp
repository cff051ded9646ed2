// Reading the index file and the data file: every status, and files that are not what they should
// be.

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "ephemeris/loader.h"
#include "ephemeris/series.h"
#include "support/archive_files.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <sys/stat.h>
#endif
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#include <sys/resource.h>
#define CAN_LIMIT_MEMORY 1
#endif

namespace zenithor {
namespace {

using testing::NumberedTerms;
using testing::RecordWith;
using testing::TemporaryFolder;
using testing::WriteData;
using testing::WriteFile;
using testing::WriteIndex;

constexpr int kMostPerSeries = 32767;

void ExpectNothingOf(const BodySeries& body) {
  EXPECT_EQ(body.terms, nullptr);
  EXPECT_EQ(body.term_count, 0);
  EXPECT_EQ(body.fingerprint, 0U);
  EXPECT_EQ(body.tracks.frequency_count, 0);
  EXPECT_EQ(body.tracks.end_count, 0);
  for (const SeriesRange& range : body.index.series) {
    EXPECT_EQ(range.term_count, 0);
  }
}

// Two files in a folder of their own, and a store to load them into.
class Loader : public ::testing::Test {
 protected:
  LoadStatus Load(int slot) {
    return LoadBodySeries(store_, slot, index_path_.c_str(), data_path_.c_str());
  }
  // The whole files of nine slots, two terms each: one of L0 and one of R0.
  void WriteNineSlots() {
    std::vector<BodyIndexRecord> records;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      records.push_back(RecordWith(2 * slot, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
    }
    WriteIndex(index_path_, records);
    WriteData(data_path_, NumberedTerms(2 * kSlotCount));
  }

  TemporaryFolder folder_;
  std::string index_path_ = folder_ / "karvo.ndx";
  std::string data_path_ = folder_ / "karvo.dat";
  EphemerisStore store_;
};

TEST_F(Loader, GivesEverySlotItsOwnTerms) {
  WriteNineSlots();
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_EQ(Load(slot), LoadStatus::kLoaded);
    EXPECT_EQ(store_.bodies[slot].term_count, 2);
    const Spherical place = SumStoredSeries(store_, slot, 0.0);
    EXPECT_EQ(place.longitude, 2.0 * slot);
    EXPECT_EQ(place.latitude, 0.0);
    EXPECT_EQ(place.radius, 2.0 * slot + 1.0);
  }
}

TEST_F(Loader, ClosesBothFilesAfterALoad) {
  WriteNineSlots();
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.index_stream, nullptr);
  EXPECT_EQ(store_.data_stream, nullptr);
}

TEST_F(Loader, AnswersZeroForSlotNineAndAboveAndChangesNothing) {
  WriteNineSlots();
  for (const int slot : {9, 10, 1000, std::numeric_limits<int>::max(), -1}) {
    EXPECT_EQ(Load(slot), LoadStatus::kLoaded);
  }
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_FALSE(IsLoaded(store_, slot));
  }
  EXPECT_EQ(store_.index_stream, nullptr);
}

TEST_F(Loader, MissingIndexFileIsStatusOneAndLeavesTheSlotNull) {
  WriteData(data_path_, NumberedTerms(2));
  EXPECT_EQ(static_cast<int>(Load(3)), 1);
  EXPECT_FALSE(IsLoaded(store_, 3));
}

TEST_F(Loader, MissingDataFileIsStatusTwoAndLeavesTheSlotNull) {
  WriteIndex(index_path_, {RecordWith(0, {1})});
  EXPECT_EQ(static_cast<int>(Load(0)), 2);
  EXPECT_FALSE(IsLoaded(store_, 0));
}

TEST_F(Loader, KeptOnPurposeAFailedLoadLeavesTheFilesThatItOpenedOpen) {
  WriteIndex(index_path_, {RecordWith(0, {-1})});
  EXPECT_EQ(Load(0), LoadStatus::kNoDataFile);
  ASSERT_NE(store_.index_stream, nullptr);
  EXPECT_NE(std::fgetc(store_.index_stream), EOF);
  std::fclose(store_.index_stream);

  WriteData(data_path_, NumberedTerms(1));
  EXPECT_EQ(Load(0), LoadStatus::kNoMemory);
  ASSERT_NE(store_.index_stream, nullptr);
  ASSERT_NE(store_.data_stream, nullptr);
  std::fclose(store_.index_stream);
  std::fclose(store_.data_stream);
}

TEST_F(Loader, NegativeTotalIsStatusThreeAndLeavesTheSlotNull) {
  WriteIndex(index_path_, {RecordWith(0, {5, 5, -11})});
  WriteData(data_path_, NumberedTerms(20));
  EXPECT_EQ(static_cast<int>(Load(0)), 3);
  EXPECT_FALSE(IsLoaded(store_, 0));
}

#ifdef CAN_LIMIT_MEMORY
TEST_F(Loader, BlockThatCannotBeAllocatedIsStatusThree) {
  WriteIndex(index_path_, {RecordWith(0, std::vector<int>(kSeriesCount, kMostPerSeries))});
  WriteData(data_path_, NumberedTerms(1));
  const auto load_in_little_memory = [this] {
    const rlimit little{1, 1};  // of new memory: none
    setrlimit(RLIMIT_AS, &little);
    std::_Exit(static_cast<int>(Load(0)));
  };
  EXPECT_EXIT(load_in_little_memory(), ::testing::ExitedWithCode(3), "");
}
#endif

TEST_F(Loader, FailedLoadForgetsWhatTheSlotHeldBefore) {
  WriteNineSlots();
  EXPECT_EQ(Load(4), LoadStatus::kLoaded);
  EXPECT_EQ(LoadBodySeries(store_, 4, (folder_ / "absent").c_str(), data_path_.c_str()),
            LoadStatus::kNoIndexFile);
  EXPECT_FALSE(IsLoaded(store_, 4));
  ExpectNothingOf(store_.bodies[4]);
}

TEST_F(Loader, SlotLoadedAgainFromAShorterIndexTakesTheRestAsZero) {
  const BodyIndexRecord record = RecordWith(0, {2, 3});
  WriteIndex(index_path_, {record});
  WriteData(data_path_, NumberedTerms(5));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[0].term_count, 5);
  WriteFile(index_path_, &record, 6);  // the first pair and half of the second
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[0].term_count, 2);
  EXPECT_EQ(store_.bodies[0].index.series[1].term_count, 0);
  WriteFile(index_path_, "", 0);
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[0].term_count, 0);
}

TEST_F(Loader, DirectoryInPlaceOfAFileCannotBeOpened) {
  WriteNineSlots();
  const std::string directory = folder_ / "directory";
  std::filesystem::create_directory(directory);
  EXPECT_EQ(LoadBodySeries(store_, 0, directory.c_str(), data_path_.c_str()),
            LoadStatus::kNoIndexFile);
  EXPECT_EQ(LoadBodySeries(store_, 0, index_path_.c_str(), directory.c_str()),
            LoadStatus::kNoDataFile);
  EXPECT_FALSE(IsLoaded(store_, 0));
  std::fclose(store_.index_stream);
}

#ifdef _WIN32
// A program that renames a new file over the old one has it open, with the right to delete, until
// the rename returns.
TEST_F(Loader, ReadsFilesThatHaveJustBeenPutInPlace) {
  WriteNineSlots();
  HANDLE renamed[2];
  for (int k = 0; k < 2; ++k) {
    renamed[k] = CreateFileA((k == 0 ? index_path_ : data_path_).c_str(), DELETE | SYNCHRONIZE,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(renamed[k], INVALID_HANDLE_VALUE);
  }
  EXPECT_EQ(Load(3), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[3].term_count, 2);
  for (const HANDLE file : renamed) {
    CloseHandle(file);
  }
}
#else
TEST_F(Loader, PipeInPlaceOfAFileCannotBeOpened) {
  WriteNineSlots();
  const std::string pipe = folder_ / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(LoadBodySeries(store_, 0, pipe.c_str(), data_path_.c_str()), LoadStatus::kNoIndexFile);
}
#endif

TEST_F(Loader, EmptyFilesLoadAsSlotsWithoutTerms) {
  WriteFile(index_path_, "", 0);
  WriteFile(data_path_, "", 0);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_EQ(Load(slot), LoadStatus::kLoaded);
    EXPECT_TRUE(IsLoaded(store_, slot));
    EXPECT_EQ(store_.bodies[slot].term_count, 0);
    EXPECT_EQ(SumStoredSeries(store_, slot, 1.0).radius, 0.0);
  }
}

TEST_F(Loader, IndexThatEndsBeforeTheSlotGivesASlotWithoutTerms) {
  WriteIndex(index_path_, {RecordWith(0, {2})});
  WriteData(data_path_, NumberedTerms(2));
  EXPECT_EQ(Load(8), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[8].term_count, 0);
}

TEST_F(Loader, IndexThatEndsInsideTheRecordTakesTheRestAsZero) {
  const BodyIndexRecord record = RecordWith(0, {2, 3});
  WriteFile(index_path_, &record, 6);  // the first pair and half of the second
  WriteData(data_path_, NumberedTerms(5));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[0].term_count, 2);
}

TEST_F(Loader, DataFileThatEndsEarlyLeavesTheRestOfTheBlockZero) {
  WriteIndex(index_path_, {RecordWith(0, {6})});
  const std::vector<SeriesTerm> terms = NumberedTerms(3);
  WriteFile(data_path_, terms.data(), 2 * sizeof(SeriesTerm) + 9);  // and a third begun
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  ASSERT_EQ(store_.bodies[0].term_count, 6);
  EXPECT_EQ(store_.bodies[0].terms[1].amplitude, 1.0);
  for (int k = 2; k < 6; ++k) {
    EXPECT_EQ(store_.bodies[0].terms[k].amplitude, 0.0);
    EXPECT_EQ(store_.bodies[0].terms[k].phase, 0.0);
    EXPECT_EQ(store_.bodies[0].terms[k].frequency, 0.0);
  }
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.3).longitude, 1.0);
}

TEST_F(Loader, FirstTermBeyondTheDataFileGivesZeros) {
  WriteIndex(index_path_, {RecordWith(32767, {4})});
  WriteData(data_path_, NumberedTerms(4));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.3).longitude, 0.0);
}

TEST_F(Loader, FirstTermReachesToTerm32767AndNoFurther) {
  // 32768 does not fit the signed field: it reads as -32768, and there is no such place in the
  // file.
  WriteIndex(index_path_, {RecordWith(32767, {1}), RecordWith(32768, {1})});
  WriteData(data_path_, NumberedTerms(32769));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).longitude, 32767.0);
  EXPECT_EQ(Load(1), LoadStatus::kLoaded);
  EXPECT_EQ(SumStoredSeries(store_, 1, 0.0).longitude, 0.0);
}

TEST_F(Loader, NegativeFirstTermGivesZeros) {
  WriteIndex(index_path_, {RecordWith(-1, {3})});
  WriteData(data_path_, NumberedTerms(3));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).longitude, 0.0);
}

TEST_F(Loader, CountsAtTheirHighestLoadAndTheMissingTermsAreZero) {
  WriteIndex(index_path_, {RecordWith(0, std::vector<int>(kSeriesCount, kMostPerSeries))});
  WriteData(data_path_, NumberedTerms(4));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[0].term_count, kSeriesCount * kMostPerSeries);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).longitude, 0.0 + 1.0 + 2.0 + 3.0);
}

TEST_F(Loader, EvaluatorStaysInTheBlockWhenSingleCountsDisagreeWithTheirSum) {
  // The sum is 3, the first count alone 1000: only three terms may be read.
  WriteIndex(index_path_, {RecordWith(0, {1000, -997})});
  WriteData(data_path_, NumberedTerms(1000));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[0].term_count, 3);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).longitude, 0.0 + 1.0 + 2.0);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).radius, 0.0);
}

TEST_F(Loader, NegativeCountInTheMiddleContributesNothing) {
  WriteIndex(index_path_, {RecordWith(0, {2, -1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2})});
  WriteData(data_path_, NumberedTerms(10));
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_EQ(store_.bodies[0].term_count, 3);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).longitude, 0.0 + 1.0);
  EXPECT_EQ(SumStoredSeries(store_, 0, 0.0).radius, 2.0);
}

TEST_F(Loader, CountsThatAreAllZeroLoadAnEmptyBlock) {
  WriteIndex(index_path_, {RecordWith(0, {})});
  WriteData(data_path_, {});
  EXPECT_EQ(Load(0), LoadStatus::kLoaded);
  EXPECT_TRUE(IsLoaded(store_, 0));
}

TEST_F(Loader, PrefixStandsInFrontOfBothNames) {
  WriteNineSlots();
  SetEphemerisFolder(store_, (folder_ / "").c_str());
  EXPECT_EQ(LoadBodySeries(store_, 2, "karvo.ndx", "karvo.dat"), LoadStatus::kLoaded);
  EXPECT_EQ(SumStoredSeries(store_, 2, 0.0).longitude, 4.0);
}

TEST_F(Loader, SettingTheFolderForgetsEverySlotAndCopiesThePrefix) {
  WriteNineSlots();
  EXPECT_EQ(Load(5), LoadStatus::kLoaded);
  std::string prefix = folder_ / "";
  SetEphemerisFolder(store_, prefix.c_str());
  prefix.assign(prefix.size(), '?');
  EXPECT_FALSE(IsLoaded(store_, 5));
  ExpectNothingOf(store_.bodies[5]);
  EXPECT_EQ(LoadBodySeries(store_, 5, "karvo.ndx", "karvo.dat"), LoadStatus::kLoaded);
  SetEphemerisFolder(store_, nullptr);
  EXPECT_STREQ(store_.path_prefix, "");
}

}  // namespace
}  // namespace zenithor
