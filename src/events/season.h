#pragma once

#include <cstdint>

namespace zenithor {

constexpr std::int32_t kMarchEquinox = 0;
constexpr std::int32_t kJuneSolstice = 1;
constexpr std::int32_t kSeptemberEquinox = 2;
constexpr std::int32_t kDecemberSolstice = 3;

// Julian Ephemeris Day of an equinox or solstice of a calendar year: the mean instant and 24
// periodic terms, without iteration on the Sun's place. Meant for the years -1000 to 3000, where
// the formula is good to about a minute; any year gives a value.
//   year    astronomical numbering: year 0 is 1 BC
//   season  0 to 3 as above; anything else gives 0.0
// Source: Meeus, Astronomical Algorithms, chapter 27, tables 27.A, 27.B and 27.C.
double SeasonInstant(std::int32_t year, std::int32_t season);

}  // namespace zenithor
