#include "data_files.h"

#ifdef _WIN32
#include <shlobj.h>
#endif

#include <algorithm>
#include <sstream>

#include "console.h"
#include "files.h"
#include "inside_data.h"
#include "manifest.h"
#include "sha256.h"
#include "trouble.h"

namespace zenithor::almanac {

namespace fs = std::filesystem;

#ifdef _WIN32

std::vector<fs::path> DataFolders() {
  wchar_t folder[MAX_PATH];
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, folder))) {
    throw Trouble("this account has no folder for application data; the library finds no files");
  }
  return {fs::path(folder) / L"tavvin_files" / L"archive"};
}

#else

std::vector<fs::path> DataFolders() {
  const fs::path below = "tavvin_files/archive";
  const std::string data_home = EnvironmentOf("XDG_DATA_HOME");
  const std::string home = EnvironmentOf("HOME");
  const std::string data_dirs = EnvironmentOf("XDG_DATA_DIRS");
  std::vector<fs::path> folders;
  if (!data_home.empty() && data_home.front() == '/') {
    folders.push_back(data_home / below);
  } else if (!home.empty()) {
    folders.push_back(fs::path(home) / ".local/share" / below);
  }
  std::istringstream system_folders(data_dirs.empty() ? "/usr/local/share:/usr/share" : data_dirs);
  for (std::string folder; std::getline(system_folders, folder, ':');) {
    if (!folder.empty() && folder.front() == '/') {
      folders.push_back(folder / below);
    }
  }
  if (folders.empty()) {
    throw Trouble(
        "XDG_DATA_HOME, HOME and XDG_DATA_DIRS name no folder; without one the library finds no "
        "files");
  }
  return folders;
}

#endif

namespace {

constexpr const char* kDataFiles[] = {"karvo.dat", "karvo.ndx"};

// The manifest beside the files; nothing where it is missing or is none, which is then a note.
std::optional<Manifest> ReadManifest(const fs::path& folder, std::string& note) {
  const std::optional<std::string> text = BytesOf(folder / kManifestFileName);
  if (!text) {
    note = fmt::format("{} is not there; the files are compared with the data in this program.",
                       kManifestFileName);
    return std::nullopt;
  }
  try {
    return ParseManifest(kManifestFileName, *text);
  } catch (const Failure& failure) {
    note = failure.what();
    return std::nullopt;
  }
}

const InsideFile& InsideFileOf(const std::string& name) {
  const InsideFile* file = InsideFiles();
  while (name != file->name) {
    ++file;
  }
  return *file;
}

void Compare(DataFile& file, const ManifestFile& expected, const char* with) {
  const std::size_t bytes = *file.bytes;
  if (bytes != expected.bytes) {
    file.verdict =
        fmt::format("{}: {} has {} bytes", bytes < expected.bytes ? "cut short" : "too long", with,
                    expected.bytes);
    return;
  }
  file.good = file.sha256 == expected.sha256;
  file.verdict = fmt::format("{} {}", file.good ? "as in" : "other bytes than", with);
}

DataFile ExamineFile(const fs::path& folder, const std::string& name,
                     const std::optional<Manifest>& manifest) {
  DataFile file{name, std::nullopt, "", false, "is not there or cannot be read"};
  const std::optional<std::string> bytes = BytesOf(folder / name);
  if (!bytes) {
    return file;
  }
  file.bytes = bytes->size();
  file.sha256 = Sha256(*bytes);
  if (!manifest) {
    const InsideFile& inside = InsideFileOf(name);
    Compare(file, {name, inside.bytes.size(), Sha256(std::string(inside.bytes))}, "this program");
    return file;
  }
  file.verdict = "not in the manifest";
  for (const ManifestFile& listed : manifest->files) {
    if (listed.name == name) {
      Compare(file, listed, "the manifest");
    }
  }
  return file;
}

bool HasBothFiles(const fs::path& folder) {
  std::error_code ignored;  // what cannot be looked at is not there
  return fs::exists(folder / kDataFiles[0], ignored) && fs::exists(folder / kDataFiles[1], ignored);
}

}  // namespace

fs::path DataFolder() {
  const std::vector<fs::path> folders = DataFolders();
  const auto found = std::find_if(folders.begin(), folders.end(), HasBothFiles);
  return found == folders.end() ? folders.front() : *found;
}

DataVerdict ExamineData(const fs::path& folder) {
  DataVerdict verdict;
  verdict.folder = folder;
  const std::optional<Manifest> manifest = ReadManifest(folder, verdict.note);
  verdict.there = verdict.good = true;
  verdict.max_error_arcsec =
      manifest && manifest->budget ? manifest->budget->max_error_arcsec : 0.0;
  for (const char* const name : kDataFiles) {
    verdict.files.push_back(ExamineFile(folder, name, manifest));
    verdict.there = verdict.there && verdict.files.back().bytes.has_value();
    verdict.good = verdict.good && verdict.files.back().good;
  }
  return verdict;
}

void RefuseDamagedData() {
  const DataVerdict verdict = ExamineData(DataFolder());
  for (const DataFile& file : verdict.files) {
    if (!file.good) {
      throw Trouble("{}: {}; almanac doctor --install puts the data files in place",
                    (verdict.folder / file.name).u8string(), file.verdict);
    }
  }
}

std::vector<std::string> InstallData(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (!fs::is_directory(folder)) {
    throw Trouble("{}: cannot be made: {}", folder.u8string(), error.message());
  }
  std::vector<std::string> written;
  for (int k = 0; k < kInsideFiles; ++k) {
    const InsideFile& file = InsideFiles()[k];
    const fs::path path = folder / file.name;
    if (fs::exists(path, error)) {
      const std::optional<std::string> bytes = BytesOf(path);
      if (bytes && *bytes == file.bytes) {
        continue;
      }
      // An older .old stays, too.
      fs::path old = path;
      old += ".old";
      for (int count = 2; fs::exists(old, error); ++count) {
        old = path;
        old += fmt::format(".old{}", count);
      }
      fs::rename(path, old, error);
      if (error) {
        throw Trouble("{}: cannot be kept as {}: {}", path.u8string(), old.filename().u8string(),
                      error.message());
      }
    }
    PutFile(path, std::string(file.bytes));
    written.emplace_back(file.name);
  }
  return written;
}

}  // namespace zenithor::almanac
