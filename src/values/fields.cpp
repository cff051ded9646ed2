#include "values/fields.h"

#include <cstdint>
#include <limits>

namespace zenithor {

namespace {

constexpr const char* kBodyNames[] = {"Sun",    "Mercury", "Venus",   "Earth", "Mars", "Jupiter",
                                      "Saturn", "Uranus",  "Neptune", "Pluto", "Moon"};
static_assert(sizeof kBodyNames / sizeof kBodyNames[0] == ZENITHOR_BODY_COUNT, "one name a body");

// Sets of bodies: bit b stands for body b.
constexpr std::uint32_t kEveryBody = (1U << ZENITHOR_BODY_COUNT) - 1;
constexpr std::uint32_t kSun = 1U << ZENITHOR_BODY_SUN;
constexpr std::uint32_t kEarth = 1U << ZENITHOR_BODY_EARTH;
constexpr std::uint32_t kPluto = 1U << ZENITHOR_BODY_PLUTO;
constexpr std::uint32_t kMoon = 1U << ZENITHOR_BODY_MOON;
constexpr std::uint32_t kAroundTheSun = kEveryBody & ~(kSun | kMoon);
constexpr std::uint32_t kSeenFromEarth = kEveryBody & ~kEarth;

struct FieldRow {
  int field;
  const char* name;
  const char* unit;
  double period;
  std::uint32_t bodies;
};

constexpr FieldRow kFields[] = {
    {ZENITHOR_FIELD_HELIO_LONGITUDE, "heliocentric longitude", "deg", 360.0, kAroundTheSun},
    {ZENITHOR_FIELD_HELIO_LATITUDE, "heliocentric latitude", "deg", 0.0, kAroundTheSun},
    {ZENITHOR_FIELD_HELIO_DISTANCE, "distance from the Sun", "au", 0.0, kAroundTheSun},
    {ZENITHOR_FIELD_GEO_LONGITUDE, "geocentric longitude", "deg", 360.0, kSeenFromEarth},
    {ZENITHOR_FIELD_GEO_LATITUDE, "geocentric latitude", "deg", 0.0, kSeenFromEarth},
    {ZENITHOR_FIELD_GEO_DISTANCE, "distance from the Earth", "au", 0.0, kSeenFromEarth},
    {ZENITHOR_FIELD_RIGHT_ASCENSION, "right ascension", "h", 24.0, kSeenFromEarth},
    {ZENITHOR_FIELD_DECLINATION, "declination", "deg", 0.0, kSeenFromEarth},
    {ZENITHOR_FIELD_MOON_PHASE_ANGLE, "phase angle", "rad", 0.0, kMoon},
    {ZENITHOR_FIELD_MOON_AXIS_ANGLE, "position angle of the axis", "rad", 0.0, kMoon},
    {ZENITHOR_FIELD_MOON_ILLUMINATION, "illuminated fraction", "", 0.0, kMoon},
    {ZENITHOR_FIELD_OBLIQUITY, "mean obliquity", "rad", 0.0, kEveryBody & ~(kPluto | kMoon)},
    {ZENITHOR_FIELD_CENTURIES, "centuries from J2000.0", "century", 0.0,
     kEveryBody & ~(kPluto | kMoon)},
    {ZENITHOR_FIELD_YEAR, "year", "", 0.0, kEveryBody},
    {ZENITHOR_FIELD_MONTH, "month", "", 0.0, kEveryBody},
    {ZENITHOR_FIELD_DAY, "day", "", 0.0, kEveryBody},
    {ZENITHOR_FIELD_HOUR, "hour", "", 0.0, kEveryBody},
    {ZENITHOR_FIELD_MINUTE, "minute", "", 0.0, kEveryBody},
    {ZENITHOR_FIELD_SECOND, "second", "", 0.0, kEveryBody},
    {ZENITHOR_FIELD_APPARENT_LONGITUDE, "apparent longitude", "deg", 360.0, kSeenFromEarth},
    {ZENITHOR_FIELD_APPARENT_LATITUDE, "apparent latitude", "deg", 0.0, kSeenFromEarth},
    {ZENITHOR_FIELD_LONGITUDE_MOTION, "daily motion in longitude", "deg/day", 0.0, kSeenFromEarth},
    {ZENITHOR_FIELD_DECLINATION_MOTION, "daily motion in declination", "deg/day", 0.0,
     kSeenFromEarth},
    {ZENITHOR_FIELD_ELONGATION, "elongation from the Sun", "deg", 0.0, kSeenFromEarth},
    {ZENITHOR_FIELD_DIRECTION, "direct or retrograde", "", 0.0, kSeenFromEarth},
};

constexpr int kFieldEnd = 107;  // behind the last number

// One more than the index of a field's row; 0 for a number that is no field.
struct RowNumbers {
  std::uint8_t of[kFieldEnd];
};

constexpr RowNumbers NumberRows() {
  RowNumbers rows{};
  std::uint8_t number = 0;
  for (const FieldRow& row : kFields) {
    rows.of[row.field] = ++number;
  }
  return rows;
}

constexpr RowNumbers kRows = NumberRows();

const FieldRow* FindField(int field) {
  const bool numbered = field >= 0 && field < kFieldEnd && kRows.of[field] != 0;
  return numbered ? &kFields[kRows.of[field] - 1] : nullptr;
}

}  // namespace

bool IsBody(int body) { return body >= 0 && body < ZENITHOR_BODY_COUNT; }

bool IsField(int field) { return FindField(field) != nullptr; }

bool HasField(int body, int field) {
  const FieldRow* const row = FindField(field);
  return IsBody(body) && row != nullptr && ((row->bodies >> body) & 1U) != 0;
}

double PeriodOfField(int field) {
  const FieldRow* const row = FindField(field);
  return row == nullptr ? std::numeric_limits<double>::quiet_NaN() : row->period;
}

const char* BodyName(int body) { return IsBody(body) ? kBodyNames[body] : nullptr; }

const char* FieldName(int field) {
  const FieldRow* const row = FindField(field);
  return row == nullptr ? nullptr : row->name;
}

const char* FieldUnit(int body, int field) {
  if (!HasField(body, field)) {
    return nullptr;
  }
  const bool kilometres = body == ZENITHOR_BODY_MOON && field == ZENITHOR_FIELD_GEO_DISTANCE;
  return kilometres ? "km" : FindField(field)->unit;
}

}  // namespace zenithor
