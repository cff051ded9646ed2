#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>

#include "bodies.h"
#include "commands.h"
#include "common_options.h"
#include "console.h"
#include "data_files.h"
#include "library_files.h"
#include "trouble.h"
#include "words.h"

namespace zenithor::almanac {

namespace {

// Mars at J2000.0: tests/golden/positions.tsv has this, as other programs do.
constexpr double kJ2000 = 2451545.0;
constexpr double kMarsLongitude = 327.9748815659869;  // [deg] geometric, geocentric
constexpr double kTolerance = 5e-9;                   // [deg] where every term is kept

class Checks {
 public:
  Checks()
      : table_{"checks", {TextColumn("check"), TextColumn("verdict"), TextColumn("what")}, {}} {}

  void Add(const std::string& check, bool good, const std::string& what) {
    well_ = well_ && good;
    table_.rows.push_back({check, std::string(good ? "good" : "BAD"), what});
  }
  // What a person may want to know and no verdict depends on.
  void Tell(const std::string& check, const std::string& what) {
    table_.rows.push_back({check, std::string("-"), what});
  }

  bool Well() const { return well_; }
  const Table& Result() const { return table_; }

 private:
  Table table_;
  bool well_ = true;
};

Table LibrariesTable(const std::vector<LibraryFile>& files) {
  Table table{"libraries",
              {TextColumn("library"), NumberColumn("bits", "", 0, 0), TextColumn("version"),
               TextColumn("machine")},
              {}};
  for (const LibraryFile& file : files) {
    table.rows.push_back({file.path.u8string(),
                          file.bits > 0 ? Cell(static_cast<double>(file.bits)) : Cell(),
                          file.version.empty() ? Cell() : Cell(file.version),
                          file.machine.empty() ? Cell("none of this system") : Cell(file.machine)});
  }
  return table;
}

Table FilesTable(const DataVerdict& data) {
  Table table{"files",
              {TextColumn("file"), NumberColumn("size", "bytes", 0, 0), TextColumn("verdict"),
               TextColumn("sha256")},
              {}};
  for (const DataFile& file : data.files) {
    table.rows.push_back({file.name, file.bytes ? Cell(static_cast<double>(*file.bytes)) : Cell(),
                          file.verdict, file.sha256.empty() ? Cell() : Cell(file.sha256)});
  }
  return table;
}

// Which bodies the library answers; the names of those that it does not.
std::string MissingBodies(const ZenithorLibrary& library) {
  std::vector<std::string> missing;
  for (const Body& body : AllBodies()) {
    BodyPositionRecord record{};
    if (library.ZENITHOR(kJ2000, 0, 0, 0, 0, 0, body.code, &record) != ZENITHOR_DONE) {
      missing.emplace_back(body.name);
    }
  }
  return CLI::detail::join(missing, ", ");
}

// Loads the library and asks it. Only where both data files are there: a load without them shows a
// box on Windows.
void AskLibrary(Session& session, const DataVerdict& data, Checks& checks) {
  const ZenithorLibrary* library = nullptr;
  try {
    if (!data.there) {
      checks.Add("library", false, "not loaded: it would find no data files");
      return;
    }
    library = &session.LibraryAsItIs();
  } catch (const Failure& failure) {
    checks.Add("library", false, failure.what());
    return;
  }
  checks.Add("library", true, session.LibraryPath());
  const std::string missing = MissingBodies(*library);
  checks.Add("bodies", missing.empty(),
             missing.empty() ? "all eleven are answered" : "not answered: " + missing);
  BodyPositionRecord mars{};
  static_cast<void>(library->ZENITHOR(kJ2000, 0, 0, 0, 0, 0, ZENITHOR_MARS, &mars));
  const double error = std::fabs(mars.GeoLongitude - kMarsLongitude);
  const double tolerance = std::max(kTolerance, data.max_error_arcsec / 3600.0 * 4.0);
  checks.Add("known position", error <= tolerance,
             fmt::format("Mars, 2000-01-01 12:00 TT: longitude {:.8f} deg, known {:.8f}",
                         mars.GeoLongitude, kMarsLongitude));
}

#ifdef _WIN32
void TellOfHosts(const std::vector<LibraryFile>& files, Checks& checks) {
  for (const int bits : {32, 64}) {
    std::string what =
        fmt::format("none will find a {}-bit zenithor.dll; put it beside the host", bits);
    for (const LibraryFile& file : files) {
      if (file.name == "zenithor" && file.bits == bits) {
        what = file.for_all
                   ? "every one will find " + file.path.u8string()
                   : "those that name it, or lie beside it, will find " + file.path.u8string();
        break;
      }
    }
    checks.Tell(fmt::format("{}-bit hosts", bits), what);
  }
}
#else
void TellOfHosts(const std::vector<LibraryFile>& /*files*/, Checks& /*checks*/) {}
#endif

Report Examine(Session& session, bool& well) {
  Checks checks;
  const DataVerdict data = ExamineData(DataFolder());
  checks.Add("data folder", data.there, data.folder.u8string());
  for (const std::filesystem::path& folder : DataFolders()) {
    if (folder != data.folder) {
      checks.Tell("searched, too", folder.u8string());
    }
  }
  for (const DataFile& file : data.files) {
    checks.Add(file.name, file.good, file.verdict);
  }
  AskLibrary(session, data, checks);
  const std::vector<LibraryFile> files = FindLibraryFiles();
  TellOfHosts(files, checks);
  Report report;
  report.head = {"What the main library sees on this machine"};
  report.tables = {checks.Result()};
  if (!files.empty()) {
    report.tables.push_back(LibrariesTable(files));
  }
  report.tables.push_back(FilesTable(data));
  if (!data.note.empty()) {
    report.notes.push_back(data.note);
  }
  well = checks.Well();
  if (!data.good) {
    report.notes.emplace_back(
        "Do this: almanac doctor --install. It puts the data files in place.");
  } else if (!well) {
    report.notes.emplace_back(
        "Do this: put the library beside the program that loads it, or name it by --library.");
  } else {
    report.notes.emplace_back("All is well: the library answers every body.");
  }
  return report;
}

// Whether the person agrees; asks on standard error.
bool Agrees(const std::filesystem::path& folder) {
  WriteError(
      fmt::format("Write karvo.dat, karvo.ndx and manifest.json into {}? Other files of "
                  "these names are kept as .old. [y/N] ",
                  folder.u8string()));
  const std::string answer = Plain(ReadLine());
  return answer == "y" || answer == "yes";
}

void Install(bool yes) {
  const std::filesystem::path folder = DataFolders().front();
  if (!yes && !Agrees(folder)) {
    throw Trouble("nothing was written; --yes does it without a question");
  }
  const std::vector<std::string> written = InstallData(folder);
  WriteError(written.empty() ? "Everything was in place already.\n"
                             : fmt::format("Written into {}: {}\n", folder.u8string(),
                                           CLI::detail::join(written, ", ")));
}

}  // namespace

void AddDoctorCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "doctor", "What the main library will see on this machine, and what to do");
  struct DoctorOptions {
    bool install = false;
    bool yes = false;
    OutputOptions output;
  };
  const auto options = std::make_shared<DoctorOptions>();
  CLI::Option* const install = command->add_flag(
      "--install", options->install, "Puts the data files in place; asks first, keeps other ones");
  command->add_flag("--yes", options->yes, "Does so without a question")->needs(install);
  AddOutputOptions(*command, options->output);
  SetExamples(*command, {"almanac doctor", "almanac doctor --install --yes",
                         "almanac --library ./libzenithor.so doctor --format json"});
  command->callback([&session, options] {
    if (options->install) {
      Install(options->yes);
    }
    bool well = false;
    Print(Examine(session, well), options->output, Clock());
    session.exit_status = well ? 0 : 1;
  });
}

}  // namespace zenithor::almanac
