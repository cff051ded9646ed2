#include "common_options.h"

#include <CLI/CLI.hpp>

namespace zenithor::almanac {

void AddCommonOptions(CLI::App& command, CommonOptions& options) {
  AddClockOptions(command, options.clock);
  AddOutputOptions(command, options.output);
}

void SetExamples(CLI::App& command, const std::vector<std::string>& lines) {
  command.footer(CLI::detail::join(lines, "\n"));
}

}  // namespace zenithor::almanac
