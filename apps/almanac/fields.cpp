#include "fields.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>

#include "failure.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

constexpr double kKmPerAu = 149597870.7;  // IAU 2012 resolution B2

}  // namespace

const std::vector<FieldWord>& FieldWords() {
  static const std::vector<FieldWord> words = {
      {"longitude", ZENITHOR_FIELD_APPARENT_LONGITUDE, "deg", 6, 4, 3, 1.0,
       "apparent geocentric longitude"},
      {"zodiac", kZodiac, "", 0, 0, 0, 1.0, "the longitude's sign, degrees in it, ', \""},
      {"latitude", ZENITHOR_FIELD_APPARENT_LATITUDE, "deg", 6, 4, 3, 1.0,
       "apparent geocentric latitude"},
      {"motion", ZENITHOR_FIELD_LONGITUDE_MOTION, "deg/day", 6, 4, 3, 1.0,
       "daily motion in longitude"},
      {"direction", ZENITHOR_FIELD_DIRECTION, "", 0, 0, 2, 1.0, "1 direct, -1 retrograde"},
      {"declination", ZENITHOR_FIELD_DECLINATION, "deg", 6, 4, 3, 1.0, "apparent declination"},
      {"declination-motion", ZENITHOR_FIELD_DECLINATION_MOTION, "deg/day", 6, 4, 3, 1.0,
       "daily motion in declination"},
      {"right-ascension", ZENITHOR_FIELD_RIGHT_ASCENSION, "h", 7, 5, 2, 1.0,
       "apparent right ascension"},
      {"distance", ZENITHOR_FIELD_GEO_DISTANCE, "au", 8, 5, 2, 1.0, "from the Earth"},
      {"elongation", ZENITHOR_FIELD_ELONGATION, "deg", 4, 2, 3, 1.0, "angle to the Sun"},
      {"geometric-longitude", ZENITHOR_FIELD_GEO_LONGITUDE, "deg", 6, 4, 3, 1.0,
       "geocentric longitude, field 4 of the record"},
      {"geometric-latitude", ZENITHOR_FIELD_GEO_LATITUDE, "deg", 6, 4, 3, 1.0,
       "geocentric latitude, field 5"},
      {"helio-longitude", ZENITHOR_FIELD_HELIO_LONGITUDE, "deg", 6, 4, 3, 1.0,
       "heliocentric longitude"},
      {"helio-latitude", ZENITHOR_FIELD_HELIO_LATITUDE, "deg", 6, 4, 3, 1.0,
       "heliocentric latitude"},
      {"helio-distance", ZENITHOR_FIELD_HELIO_DISTANCE, "au", 8, 5, 2, 1.0, "from the Sun"},
      {"phase-angle", ZENITHOR_FIELD_MOON_PHASE_ANGLE, "deg", 4, 2, 3, kDegreesPerRadian,
       "of the Moon"},
      {"axis-angle", ZENITHOR_FIELD_MOON_AXIS_ANGLE, "deg", 4, 2, 3, kDegreesPerRadian,
       "position angle of the Moon's axis"},
      {"illumination", ZENITHOR_FIELD_MOON_ILLUMINATION, "", 4, 3, 1, 1.0,
       "part of the Moon's disc that is lit"},
      {"obliquity", ZENITHOR_FIELD_OBLIQUITY, "deg", 6, 4, 2, kDegreesPerRadian,
       "mean obliquity of the ecliptic"},
  };
  return words;
}

const FieldWord& FieldOf(std::string_view slug) {
  const auto& words = FieldWords();
  return *std::find_if(words.begin(), words.end(),
                       [&](const FieldWord& word) { return slug == word.slug; });
}

Column ColumnOf(const FieldWord& word) {
  std::string name = word.slug;
  std::replace(name.begin(), name.end(), '-', '_');
  return word.field == kZodiac
             ? TextColumn(name)
             : NumberColumn(name, word.unit, word.decimals, word.narrow_decimals, word.whole);
}

Cell CellOf(const FieldWord& word, std::int32_t body, double value) {
  if (std::isnan(value)) {
    return {};
  }
  const bool in_km = word.field == ZENITHOR_FIELD_GEO_DISTANCE && body == ZENITHOR_BODY_MOON;
  return value * word.factor / (in_km ? kKmPerAu : 1.0);
}

std::int32_t Longitude::Field() const {
  if (heliocentric) {
    return ZENITHOR_FIELD_HELIO_LONGITUDE;
  }
  return geometric ? ZENITHOR_FIELD_GEO_LONGITUDE : ZENITHOR_FIELD_APPARENT_LONGITUDE;
}

std::string Longitude::Text() const {
  if (heliocentric) {
    return "Heliocentric longitudes, equinox of date.";
  }
  return geometric ? "Geometric geocentric longitudes, field 4 of the record."
                   : "Apparent geocentric longitudes, true equinox of date.";
}

Bodies Longitude::UsualBodies() const {
  return heliocentric ? BodiesWithout({ZENITHOR_BODY_SUN, ZENITHOR_BODY_MOON})
                      : BodiesWithout({ZENITHOR_BODY_EARTH, ZENITHOR_BODY_MOON});
}

void Longitude::Check(const Bodies& bodies) const {
  for (const Body& body : bodies) {
    if (ZenithorHasField(body.code, Field()) == 0) {
      throw Failure("--body {}: has no {} longitude", body.name,
                    heliocentric ? "heliocentric" : "geocentric");
    }
  }
}

void AddLongitudeOptions(CLI::App& command, Longitude& longitude, bool with_helio) {
  CLI::Option* const geometric = command.add_flag(
      "--geometric", longitude.geometric, "Field 4 of the record in place of apparent longitudes");
  if (with_helio) {
    command.add_flag("--helio", longitude.heliocentric, "Heliocentric longitudes")
        ->excludes(geometric);
  }
}

}  // namespace zenithor::almanac
