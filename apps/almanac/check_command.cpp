#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "failure.h"
#include "golden/check.h"
#include "golden/library_functions.h"

namespace zenithor::almanac {

namespace {

int Check(const ZenithorLibrary& library, const std::string& path) {
  if (path.empty()) {
    throw Failure("check \"\": not a path; write one such as tests/golden/positions.tsv");
  }
  const golden::Summary summary =
      golden::Check(golden::ReadGoldenFile(path), golden::FunctionsOf(library));
  fmt::print("{}: {} cases, {} failed\n", path, summary.cases, summary.failures);
  if (summary.failures > 0) {
    fmt::print("first failure: {}\n", summary.first_failure);
  }
  return summary.failures > 0 ? 1 : 0;
}

}  // namespace

void AddCheckCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand(
      "check", "Compares the library's answers with a file of expected ones");
  const auto path = std::make_shared<std::string>();
  command->add_option("FILE", *path, "Such as tests/golden/positions.tsv")
      ->required()
      ->type_name("");
  command->callback([&session, path] { session.exit_status = Check(session.Library(), *path); });
}

}  // namespace zenithor::almanac
