#pragma once

#include "failure.h"

namespace zenithor::almanac {

// What went wrong though the command line was right: a file, a library, the output.
class Trouble : public Failure {
 public:
  using Failure::Failure;
};

}  // namespace zenithor::almanac
