#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <system_error>
#include <vector>

#include "bodies.h"
#include "commands.h"
#include "data_folder.h"
#include "failure.h"
#include "manifest.h"
#include "report.h"
#include "sha256.h"

namespace zenithor::almanac {

namespace {

constexpr double kJ2000 = 2451545.0;
constexpr const char* kDataFiles[] = {"karvo.dat", "karvo.ndx"};

// Nothing where the file is not there or cannot be read.
std::optional<std::string> BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    return std::nullopt;
  }
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return file.bad() ? std::nullopt : std::optional(std::move(bytes));
}

// What is written of one data file, and whether it is the one that the manifest names.
struct Verdict {
  bool good;
  std::string text;
};

Verdict Compare(const std::string& bytes, const std::string& digest, const ManifestFile& expected) {
  if (bytes.size() != expected.bytes) {
    return {false,
            fmt::format("{}: the manifest says {} bytes",
                        bytes.size() < expected.bytes ? "cut short" : "too long", expected.bytes)};
  }
  return digest == expected.sha256 ? Verdict{true, "as the manifest says"}
                                   : Verdict{false, "other bytes than the manifest says"};
}

// The row of one data file in the table; whether it is the one of the manifest.
bool AddFile(const std::filesystem::path& folder, const std::string& name,
             const std::optional<Manifest>& manifest, Table& table) {
  const std::optional<std::string> bytes = BytesOf(folder / name);
  if (!bytes) {
    table.rows.push_back({name, {}, {}, std::string("is not there or cannot be read")});
    return false;
  }
  const std::string digest = Sha256(*bytes);
  Verdict verdict = {false, manifest ? "not in the manifest" : "not compared"};
  for (const ManifestFile& file : manifest ? manifest->files : std::vector<ManifestFile>()) {
    if (file.name == name) {
      verdict = Compare(*bytes, digest, file);
    }
  }
  table.rows.push_back({name, static_cast<double>(bytes->size()), digest, verdict.text});
  return verdict.good;
}

// The manifest beside the files; nothing where it is missing or is none, which is then a note.
std::optional<Manifest> ReadManifest(const std::filesystem::path& folder, Report& report) {
  const std::optional<std::string> text = BytesOf(folder / kManifestFileName);
  if (!text) {
    report.notes.push_back(
        fmt::format("{}, with which the files are compared, is not there.", kManifestFileName));
    return std::nullopt;
  }
  try {
    return ParseManifest(kManifestFileName, *text);
  } catch (const Failure& failure) {
    report.notes.emplace_back(failure.what());
    return std::nullopt;
  }
}

// Whether the library answers every body; the notes say so or name those that it does not.
bool AsksForEveryBody(const ZenithorLibrary& library, Report& report) {
  std::vector<std::string> not_available;
  const auto ask = [&](const Body& body) {
    BodyPositionRecord record{};
    if (library.ZENITHOR(kJ2000, 0, 0, 0, 0, 0, body.code, &record) != ZENITHOR_DONE) {
      not_available.emplace_back(body.name);
    }
  };
  for (const Body& body : kPlanets) {
    ask(body);
  }
  ask(kMoon);
  AddNotAvailable(not_available, report);
  return not_available.empty();
}

bool HasBothFiles(const std::filesystem::path& folder) {
  std::error_code ignored;  // what cannot be looked at is not there
  return std::filesystem::exists(folder / kDataFiles[0], ignored) &&
         std::filesystem::exists(folder / kDataFiles[1], ignored);
}

// The folder whose files the library takes: the first that has both; where none has, the first of
// all. The head of the report names all that it looks into.
std::filesystem::path FindFolder(Report& report) {
  const std::vector<std::filesystem::path> folders = DataFolders();
  report.head = {"The library looks for its data files in " + folders.front().u8string()};
  for (std::size_t k = 1; k < folders.size(); ++k) {
    report.head.push_back("then in " + folders[k].u8string());
  }
  const auto found = std::find_if(folders.begin(), folders.end(), HasBothFiles);
  if (found == folders.end()) {
    return folders.front();
  }
  if (found != folders.begin()) {
    report.head.push_back("and takes those in " + found->u8string());
  }
  return *found;
}

// The library is loaded only where both files are there: a load without them shows a box on
// Windows.
bool Examine(Session& session, Report& report) {
  const std::filesystem::path folder = FindFolder(report);
  const std::optional<Manifest> manifest = ReadManifest(folder, report);
  report.tables.push_back(
      {"files",
       {{"file", "", 0}, {"size", "bytes", 0}, {"sha256", "", 0}, {"verdict", "", 0}},
       {}});
  Table& table = report.tables.back();
  bool good = true;
  for (const char* const name : kDataFiles) {
    good = AddFile(folder, name, manifest, table) && good;
  }
  if (!good) {
    report.notes.emplace_back(
        "Copy karvo.dat, karvo.ndx and manifest.json there from data/archive of the SDK, or run "
        "the "
        "installer.");
  }
  if (!HasBothFiles(folder)) {
    return false;
  }
  return AsksForEveryBody(session.Library(), report) && good;
}

}  // namespace

void AddDoctorCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "doctor", "Whether the library's data files are in place and as they should be");
  const auto format = std::make_shared<Format>(Format::kText);
  AddFormatOption(*command, *format);
  command->callback([&session, format] {
    Report report;
    const bool well = Examine(session, report);
    if (well) {
      report.notes.emplace_back("All is well: the library answers every body.");
    }
    fmt::print("{}", Render(report, *format));
    session.exit_status = well ? 0 : 1;
  });
}

}  // namespace zenithor::almanac
