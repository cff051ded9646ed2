#pragma once

#include <string>

namespace zenithor::almanac {

// The tropical signs, each 30 degrees of ecliptic longitude from the March equinox on.

constexpr int kSigns = 12;

// "Aries" of 0, round and round.
const char* SignName(int sign);

// "28 Sco 42'07\"" of a longitude in degrees, to the nearest second of arc.
std::string SignText(double longitude);

}  // namespace zenithor::almanac
