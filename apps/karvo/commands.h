#pragma once

#include <optional>
#include <string>

namespace zenithor::karvo {

// The subcommands. Each prints to standard output and returns the exit status; what stops it is
// thrown as Failure.

struct BuildOptions {
  std::string source = "data/vsop87";
  std::string out = "out/data";
  std::optional<double> max_error_arcsec;
};
int Build(const BuildOptions& options);

int Info(const std::string& file);

int Verify(const std::string& folder);

int Dump(const std::string& folder, int slot);

}  // namespace zenithor::karvo
