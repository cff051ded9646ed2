#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "common_options.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

std::string VersionText() { return fmt::format("almanac {}", ZenithorVersion()); }

void AddVersionCommand(CLI::App& program, Session& /*session*/) {
  CLI::App* const command =
      program.add_subcommand("version", "The program's version, and which data are inside");
  const auto output = std::make_shared<OutputOptions>();
  AddOutputOptions(*command, *output);
  SetExamples(*command, {"almanac version", "almanac version --format json", "almanac --version"});
  command->callback([output] {
    Report report;
    report.head = {VersionText()};
    report.tables.push_back({"version",
                             {TextColumn("part"), TextColumn("is")},
                             {{std::string("version"), std::string(ZenithorVersion())},
                              {std::string("bits"), fmt::format("{}", sizeof(void*) * 8)},
                              {std::string("data"), std::string(ZenithorDataFingerprint())}}});
    report.notes = {"data: SHA-256 of the index and the data file inside, one after the other."};
    Print(report, *output, Clock());
  });
}

}  // namespace zenithor::almanac
