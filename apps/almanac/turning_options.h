#pragma once

#include <string>

#include "common_options.h"
#include "stations.h"

namespace zenithor::almanac {

// What the commands on planets that turn take.
struct TurningOptions {
  SpanWords span;
  Bodies bodies = TurningBodies();
  Longitude longitude;
  CommonOptions common;
};

void AddTurningOptions(CLI::App& command, TurningOptions& options);

}  // namespace zenithor::almanac
