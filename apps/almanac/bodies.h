#pragma once

#include "zenithor/zenithor.h"

namespace zenithor::almanac {

struct Body {
  BodyCode code;
  const char* name;
};

constexpr Body kPlanets[] = {{ZENITHOR_SUN, "Sun"},         {ZENITHOR_MERCURY, "Mercury"},
                             {ZENITHOR_VENUS, "Venus"},     {ZENITHOR_EARTH, "Earth"},
                             {ZENITHOR_MARS, "Mars"},       {ZENITHOR_JUPITER, "Jupiter"},
                             {ZENITHOR_SATURN, "Saturn"},   {ZENITHOR_URANUS, "Uranus"},
                             {ZENITHOR_NEPTUNE, "Neptune"}, {ZENITHOR_PLUTO, "Pluto"}};
constexpr Body kMoon = {ZENITHOR_MOON, "Moon"};

}  // namespace zenithor::almanac
