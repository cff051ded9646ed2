#include "aspect_names.h"

#include <fmt/core.h>

namespace zenithor::almanac {

const std::vector<AspectName>& AspectNames() {
  static const std::vector<AspectName> names = {
      {0.0, "conjunction"},     {30.0, "semi-sextile"}, {45.0, "semi-square"},
      {60.0, "sextile"},        {90.0, "square"},       {120.0, "trine"},
      {135.0, "sesqui-square"}, {150.0, "quincunx"},    {180.0, "opposition"}};
  return names;
}

std::vector<std::string> AspectWords() {
  std::vector<std::string> words;
  for (const AspectName& aspect : AspectNames()) {
    words.emplace_back(aspect.name);
  }
  return words;
}

std::string AspectText(double angle) {
  for (const AspectName& aspect : AspectNames()) {
    if (aspect.angle == angle) {
      return aspect.name;
    }
  }
  return fmt::format("{:g} degrees", angle);
}

}  // namespace zenithor::almanac
