#pragma once

#include <string>
#include <vector>

#include "clock.h"
#include "report.h"

namespace zenithor::almanac {

// What every command that prints a table takes: the clock and the form of the output.
struct CommonOptions {
  ClockWords clock;
  OutputOptions output;
};

void AddCommonOptions(CLI::App& command, CommonOptions& options);

// The three examples at the end of a command's help.
void SetExamples(CLI::App& command, const std::vector<std::string>& lines);

}  // namespace zenithor::almanac
