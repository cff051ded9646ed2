#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "common_options.h"
#include "console.h"
#include "golden/check.h"
#include "golden/library_functions.h"
#include "trouble.h"

namespace zenithor::almanac {

namespace {

int Check(const ZenithorLibrary& library, const std::string& path) {
  if (path.empty()) {
    throw Failure("check \"\": not a path; write one such as tests/golden/positions.tsv");
  }
  golden::Summary summary;
  try {
    summary = golden::Check(golden::ReadGoldenFile(path), golden::FunctionsOf(library));
  } catch (const Failure& failure) {
    throw Trouble("{}", failure.what());
  }
  WriteOut(fmt::format("{}: {} cases, {} failed\n", path, summary.cases, summary.failures));
  if (summary.failures > 0) {
    WriteOut(fmt::format("first failure: {}\n", summary.first_failure));
  }
  return summary.failures > 0 ? 1 : 0;
}

}  // namespace

void AddCheckCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "check", "Compares the main library's answers with a file of expected ones");
  const auto path = std::make_shared<std::string>();
  command->add_option("FILE", *path, "Such as tests/golden/positions.tsv")
      ->required()
      ->type_name("FILE");
  SetExamples(*command,
              {"almanac check tests/golden/positions.tsv", "almanac check tests/golden/events.tsv",
               "almanac --library ./libzenithor.so check tests/golden/rising.tsv"});
  command->callback([&session, path] { session.exit_status = Check(session.Library(), *path); });
}

}  // namespace zenithor::almanac
