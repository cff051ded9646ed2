// Where the data are looked for on Linux, in file systems made for the test.

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "entry/data_files.h"

namespace zenithor {
namespace {

std::set<std::string> present;
std::vector<std::string> asked;

bool FakeExists(const char* path) {
  asked.emplace_back(path);
  return present.count(path) != 0;
}

constexpr char kIndex[] = "/tavvin_files/archive/karvo.ndx";
constexpr char kData[] = "/tavvin_files/archive/karvo.dat";

class DataFilesSearch : public ::testing::Test {
 protected:
  DataFilesSearch() {
    present.clear();
    asked.clear();
  }
  static void Put(const std::string& folder) {
    present.insert(folder + kIndex);
    present.insert(folder + kData);
  }
  // The folder whose files are found, the index file first; "none" where no path is given.
  static std::string Found(const DataEnvironment& environment) {
    asked.clear();
    const DataFiles files = FindDataFiles(environment, FakeExists);
    std::string folder = "none";
    if (files.index_path != nullptr && files.data_path != nullptr) {
      const std::string index = files.index_path;
      folder = index.substr(0, index.size() - sizeof kIndex + 1);
      EXPECT_EQ(index, folder + kIndex);
      EXPECT_EQ(files.data_path, folder + kData);
    } else {
      EXPECT_EQ(files.index_path, nullptr);
      EXPECT_EQ(files.data_path, nullptr);
    }
    std::free(files.index_path);
    std::free(files.data_path);
    return folder;
  }
};

TEST_F(DataFilesSearch, TakesTheUsersFolderAndLooksNoFurther) {
  Put("/u");
  Put("/s");
  EXPECT_EQ(Found({"/u", "/house", "/s"}), "/u");
  EXPECT_EQ(asked,
            (std::vector<std::string>{std::string("/u") + kIndex, std::string("/u") + kData}));
}

TEST_F(DataFilesSearch, TakesLocalShareOfHomeWithoutAnAbsoluteDataHome) {
  Put("/house/.local/share");
  for (const char* const data_home : {static_cast<const char*>(nullptr), "", "u", "./u", "~/u"}) {
    EXPECT_EQ(Found({data_home, "/house", "/s"}), "/house/.local/share");
    EXPECT_EQ(asked.size(), 2U);
  }
}

TEST_F(DataFilesSearch, ComposesTheUsersPathsAsTheyStand) {
  EXPECT_EQ(Found({"/u/", nullptr, "-"}), "/u/");  // a slash at the end is doubled
  EXPECT_EQ(Found({"/", nullptr, "-"}), "/");
  EXPECT_EQ(Found({nullptr, "h", "-"}), "h/.local/share");
  EXPECT_EQ(Found({nullptr, "/", "-"}), "//.local/share");
}

TEST_F(DataFilesSearch, GoesThroughTheSystemsFoldersInOrder) {
  Put("/b");
  Put("/c");
  EXPECT_EQ(Found({"/u", nullptr, "/a:/b:/c"}), "/b");
  EXPECT_EQ(asked,
            (std::vector<std::string>{std::string("/u") + kIndex, std::string("/a") + kIndex,
                                      std::string("/b") + kIndex, std::string("/b") + kData}));
  EXPECT_EQ(Found({"/u", nullptr, "/c:/b"}), "/c");
  EXPECT_EQ(Found({"/u", nullptr, "/a:/c"}), "/c");
}

TEST_F(DataFilesSearch, NeverMixesTheFilesOfTwoFolders) {
  present = {std::string("/u") + kIndex, std::string("/a") + kData, std::string("/b") + kIndex};
  EXPECT_EQ(Found({"/u", nullptr, "/a:/b"}), "/u");  // which the warning is about
  Put("/c");
  EXPECT_EQ(Found({"/u", nullptr, "/a:/b:/c"}), "/c");
}

TEST_F(DataFilesSearch, HasTheStandardsFoldersWithoutDataDirs) {
  Put("/usr/share");
  EXPECT_EQ(Found({"/u", nullptr, nullptr}), "/usr/share");
  EXPECT_EQ(Found({"/u", nullptr, ""}), "/usr/share");
  Put("/usr/local/share");
  EXPECT_EQ(Found({"/u", nullptr, nullptr}), "/usr/local/share");
  EXPECT_EQ(Found({"/u", nullptr, "/a"}), "/u");
}

TEST_F(DataFilesSearch, IgnoresRelativeAndEmptyFoldersOfDataDirs) {
  Put("s");
  Put("");
  Put("/usr/share");
  EXPECT_EQ(Found({"/u", nullptr, "s"}), "/u");
  EXPECT_EQ(Found({"/u", nullptr, ":"}), "/u");
  EXPECT_EQ(Found({"/u", nullptr, "::s:./s:"}), "/u");
  EXPECT_EQ(asked.size(), 1U);
  Put("/b");
  EXPECT_EQ(Found({"/u", nullptr, ":s::/b"}), "/b");
  EXPECT_EQ(Found({"/u", nullptr, "/b:"}), "/b");
}

TEST_F(DataFilesSearch, WithoutAUsersFolderHasTheSystemsOnly) {
  for (const char* const home : {static_cast<const char*>(nullptr), ""}) {
    present.clear();
    EXPECT_EQ(Found({nullptr, home, nullptr}), "none");
    Put("/usr/local/share");
    EXPECT_EQ(Found({nullptr, home, nullptr}), "/usr/local/share");
  }
}

}  // namespace
}  // namespace zenithor
