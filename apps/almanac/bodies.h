#pragma once

#include <string>
#include <vector>

#include "zenithor/zenithor.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace zenithor::almanac {

struct Body {
  BodyCode code;
  const char* name;
};

// Both libraries number them alike, and this is their order in tables.
constexpr Body kPlanets[] = {{ZENITHOR_SUN, "Sun"},         {ZENITHOR_MERCURY, "Mercury"},
                             {ZENITHOR_VENUS, "Venus"},     {ZENITHOR_EARTH, "Earth"},
                             {ZENITHOR_MARS, "Mars"},       {ZENITHOR_JUPITER, "Jupiter"},
                             {ZENITHOR_SATURN, "Saturn"},   {ZENITHOR_URANUS, "Uranus"},
                             {ZENITHOR_NEPTUNE, "Neptune"}, {ZENITHOR_PLUTO, "Pluto"}};
constexpr Body kMoon = {ZENITHOR_MOON, "Moon"};

using Bodies = std::vector<Body>;

// All eleven, the Moon behind the Sun.
Bodies AllBodies();

// Without those of these codes.
Bodies BodiesWithout(const std::vector<int>& codes);

// Gives `command` --body: several of `allowed`, or "all". `refused` says why another body is none
// of them, such as "the Earth does not rise". `chosen` holds the usual ones and keeps them without
// the option.
CLI::Option* AddBodyOption(CLI::App& command, const std::string& option, Bodies& chosen,
                           const Bodies& allowed, const std::string& refused,
                           const std::string& description);

}  // namespace zenithor::almanac
