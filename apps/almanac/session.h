#pragma once

#include <string>

#include "zenithor/zenithor.h"

namespace zenithor::almanac {

// What the commands share: the main library, loaded when the first of them asks for it, and the
// exit status.
class Session {
 public:
  // Where to load the main library from; empty: beside the program, else where both are installed,
  // else where the system looks.
  std::string library_path;
  int exit_status = 0;

  // Whether --library asks for the main library where the values inside the program would answer.
  bool HasLibrary() const { return !library_path.empty(); }

  // Throws Failure where --library goes with a command that it has nothing to say in.
  void WithoutLibrary(const char* command) const;

  // Throws Trouble where the library cannot be loaded, or the data files that it would read are
  // not whole. Members for functions that the library does not export are null.
  const ZenithorLibrary& Library();

  // The same without a look at the data files.
  const ZenithorLibrary& LibraryAsItIs();

  // The path that is loaded, in UTF-8.
  std::string LibraryPath() const;

 private:
  ZenithorLibrary library_{};
};

}  // namespace zenithor::almanac
