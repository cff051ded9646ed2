#include "turning_options.h"

namespace zenithor::almanac {

namespace {

constexpr char kNeverTurns[] = "its longitude never turns; write mercury, venus, mars, ... pluto";

}  // namespace

void AddTurningOptions(CLI::App& command, TurningOptions& options) {
  AddSpanOptions(command, options.span, "this year");
  AddBodyOption(command, "--body", options.bodies, TurningBodies(), kNeverTurns,
                "Only these, Mercury to Pluto; with commas or blanks between");
  AddLongitudeOptions(command, options.longitude, false);
  AddCommonOptions(command, options.common);
}

}  // namespace zenithor::almanac
