#pragma once

#include <array>
#include <string>
#include <vector>

#include "ephemeris/store.h"

namespace zenithor::karvo {

// The coefficients as text: data/vsop87/<name>.csv, one term a line.

// The terms of one slot, series by series in the order L0..L5, B0..B5, R0..R5.
struct BodyTerms {
  std::string source;  // the file they came from, as it is named in messages
  std::array<std::vector<SeriesTerm>, kSeriesCount> series;
};

constexpr std::array<const char*, kSlotCount> kSourceNames = {
    "vsop87b-earth",   "vsop87d-mercury", "vsop87d-venus",  "vsop87d-earth",  "vsop87d-mars",
    "vsop87d-jupiter", "vsop87d-saturn",  "vsop87d-uranus", "vsop87d-neptune"};

// "L0" to "R5".
std::string SeriesName(int series);

std::size_t TermCount(const BodyTerms& body);

// Reads one file: a line of headings, then coordinate,power,amplitude,phase,frequency [rad or au;
// rad; rad per Julian millennium]; lines that begin with # are comments. Terms keep the order of
// the file within their series. Throws Failure, naming file and line, for anything it cannot take:
// a missing or surplus field, something that is not a number, a number that is not finite, a
// coordinate other than L, B, R, a power outside 0 to 5.
BodyTerms ReadBodyTerms(const std::string& path);

// Slots 0 to 8 from `folder`.
std::vector<BodyTerms> ReadAllBodies(const std::string& folder);

}  // namespace zenithor::karvo
