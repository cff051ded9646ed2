#pragma once

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>

#include "failure.h"

namespace zenithor {

// What every program's main does: calls `run` and returns the exit status that it returns. What
// `run` throws, and output that cannot be written, is told on standard error behind the program's
// name, and the status is 1.
template <class Run>
int RunProgram(const char* name, const Run& run) {
  try {
    const int exit_status = run();
    if (std::fflush(stdout) != 0) {
      throw Failure("the output cannot be written: {}", std::strerror(errno));
    }
    return exit_status;
  } catch (const std::exception& error) {
    static_cast<void>(std::fprintf(stderr, "%s: %s\n", name, error.what()));
    return 1;
  }
}

}  // namespace zenithor
