#pragma once

#include <string>
#include <vector>

namespace zenithor::almanac {

struct AspectName {
  double angle;  // [deg]
  const char* name;
};

// Those that are searched for without --angle.
const std::vector<AspectName>& AspectNames();
std::vector<std::string> AspectWords();

// "square", or "72 degrees" for an angle without a name.
std::string AspectText(double angle);

}  // namespace zenithor::almanac
