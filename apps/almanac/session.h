#pragma once

#include <string>

#include "zenithor/zenithor.h"

namespace zenithor::almanac {

// What the commands share: the library, loaded when the first of them asks for it, and the exit
// status.
class Session {
 public:
  // Where to load the library from; empty: beside the program, else where both are installed,
  // else where the system looks.
  std::string library_path;
  int exit_status = 0;

  // Throws Failure where the library cannot be loaded. Members for functions that the library does
  // not export are null.
  const ZenithorLibrary& Library();

 private:
  ZenithorLibrary library_{};
};

}  // namespace zenithor::almanac
