#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bodies.h"
#include "report.h"

namespace zenithor::almanac {

// What a table can show of a body, in the words of the command line.
struct FieldWord {
  const char* slug;
  int field;  // of values.h
  const char* unit;
  int decimals;
  int narrow_decimals;
  std::size_t whole;  // digits and sign before the decimal point
  double factor;      // from the unit of values.h, radians, to degrees
  const char* meaning;
};

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr int kZodiac = 0;  // no field: the longitude's sign, as text

const std::vector<FieldWord>& FieldWords();
const FieldWord& FieldOf(std::string_view slug);

Column ColumnOf(const FieldWord& word);

// A value as the table shows it: distances in au also of the Moon, nothing for NaN.
Cell CellOf(const FieldWord& word, std::int32_t body, double value);

// The longitudes that searches take: apparent, geometric or heliocentric.
struct Longitude {
  bool geometric = false;
  bool heliocentric = false;

  std::int32_t Field() const;
  // "Apparent geocentric longitudes, true equinox of date".
  std::string Text() const;
  // Those that have it, but for the Moon.
  Bodies UsualBodies() const;
  // Throws Failure, naming --body, where one of these has it not.
  void Check(const Bodies& bodies) const;
};

// Gives `command` --geometric and --helio, which exclude one another.
void AddLongitudeOptions(CLI::App& command, Longitude& longitude, bool with_helio);

}  // namespace zenithor::almanac
