#include "library_places.h"

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <limits>

#include "bodies.h"
#include "fields.h"
#include "moment.h"

namespace zenithor::almanac {

namespace {

using Field = double BodyPositionRecord::*;

// A column and the field of the record that it shows.
struct FieldColumn {
  Column column;
  Field field;
  double factor = 1.0;
  enum { kEveryBody, kPlanetsOnly, kMoonOnly } shown_for = kEveryBody;
};

using Columns = std::vector<FieldColumn>;

FieldColumn Degrees(const char* name, Field field) {
  return {NumberColumn(name, "deg", 6, 4), field};
}

FieldColumn GeoLongitude() { return Degrees("geo_longitude", &BodyPositionRecord::GeoLongitude); }
FieldColumn GeoLatitude() { return Degrees("geo_latitude", &BodyPositionRecord::GeoLatitude); }
FieldColumn RightAscension() {
  return {NumberColumn("right_ascension", "h", 7, 5), &BodyPositionRecord::RightAscension};
}
FieldColumn Declination() { return Degrees("declination", &BodyPositionRecord::Declination); }

Columns PlanetColumns() {
  return {Degrees("helio_longitude", &BodyPositionRecord::HelioLongitude),
          Degrees("helio_latitude", &BodyPositionRecord::HelioLatitude),
          {NumberColumn("helio_distance", "au", 8, 5), &BodyPositionRecord::HelioDistance},
          GeoLongitude(),
          GeoLatitude(),
          {NumberColumn("geo_distance", "au", 8, 5), &BodyPositionRecord::GeoDistance, 1.0,
           FieldColumn::kPlanetsOnly},
          RightAscension(),
          Declination()};
}

Columns MoonOnlyColumns() {
  constexpr auto kMoonOnly = FieldColumn::kMoonOnly;
  return {
      {NumberColumn("moon_distance", "km", 3, 0), &BodyPositionRecord::GeoDistance, 1.0, kMoonOnly},
      {NumberColumn("phase_angle", "deg", 5, 3), &BodyPositionRecord::MoonPhaseAngle,
       kDegreesPerRadian, kMoonOnly},
      {NumberColumn("axis_angle", "deg", 5, 3), &BodyPositionRecord::MoonAxisPositionAngle,
       kDegreesPerRadian, kMoonOnly},
      {NumberColumn("illuminated_fraction", "", 6, 4), &BodyPositionRecord::MoonIlluminatedFraction,
       1.0, kMoonOnly}};
}

Columns Joined(Columns columns, const Columns& more) {
  columns.insert(columns.end(), more.begin(), more.end());
  return columns;
}

Columns MoonColumns() {
  return Joined({GeoLongitude(), GeoLatitude(), RightAscension(), Declination()},
                MoonOnlyColumns());
}

// A record in which a field that is still NaN was not written.
BodyPositionRecord EmptyRecord() {
  constexpr double kUnwritten = std::numeric_limits<double>::quiet_NaN();
  BodyPositionRecord record{};
  for (const FieldColumn& shown : Joined(PlanetColumns(), MoonOnlyColumns())) {
    record.*shown.field = kUnwritten;
  }
  return record;
}

Cell FieldCell(const FieldColumn& shown, const Body& body, const BodyPositionRecord& record) {
  const bool is_moon = body.code == ZENITHOR_MOON;
  const double value = record.*shown.field * shown.factor;
  if (std::isnan(value) || (shown.shown_for == FieldColumn::kPlanetsOnly && is_moon) ||
      (shown.shown_for == FieldColumn::kMoonOnly && !is_moon)) {
    return {};
  }
  return value;
}

// One row a body. A body that the library does not answer is put on the list instead.
void AddRow(const ZenithorLibrary& library, double julian_day, const Body& body,
            const Columns& columns, Table& table, std::vector<std::string>& not_available) {
  BodyPositionRecord record = EmptyRecord();
  const bool answered =
      library.ZENITHOR(julian_day, 0, 0, 0, 0, 0, body.code, &record) == ZENITHOR_DONE;
  if (!answered) {
    not_available.emplace_back(body.name);
  }
  Row row = {std::string(body.name), Moment{julian_day}, julian_day};
  for (const FieldColumn& shown : columns) {
    row.push_back(answered ? FieldCell(shown, body, record) : Cell());
  }
  table.rows.push_back(std::move(row));
}

Table NewTable(const char* name, const Columns& columns) {
  Table table;
  table.name = name;
  table.columns = {TextColumn("body"), NotInText(MomentColumn("time")), JulianDayColumn()};
  for (const FieldColumn& shown : columns) {
    table.columns.push_back(shown.column);
  }
  return table;
}

std::vector<std::string> Head(double julian_day, const Clock& clock) {
  return {PlacesHead(clock, julian_day),
          "Heliocentric: ecliptic of date, with nutation (Pluto without). Geocentric longitude,",
          "latitude and distance: ecliptic of date; Sun and planets geometric, Pluto and Moon with",
          "nutation, Pluto apparent. Right ascension and declination: apparent, equator of date."};
}

// Between them Pluto keeps within 29 and 50.5 au, as it does in the sky; a century outside it does
// not, and at the ends of the calendar it is thousands of au away.
constexpr int kFirstPlutoYear = -3100;
constexpr int kLastPlutoYear = 3100;

}  // namespace

std::string NotAvailableText(const std::vector<std::string>& bodies) {
  return "Not available: " + CLI::detail::join(bodies, ", ") +
         ". The library has no data for them; almanac doctor says why.";
}

PlacesReport LibraryPlaces(const ZenithorLibrary& library, double dynamical_day, Format format,
                           const Clock& clock) {
  Report report;
  report.head = Head(dynamical_day, clock);
  std::vector<std::string> not_available;
  const bool two_tables = format == Format::kText;
  const Columns columns = two_tables ? PlanetColumns() : Joined(PlanetColumns(), MoonOnlyColumns());
  report.tables.push_back(NewTable("places", columns));
  for (const Body& body : kPlanets) {
    AddRow(library, dynamical_day, body, columns, report.tables[0], not_available);
  }
  if (two_tables) {
    report.tables.push_back(NewTable("moon", MoonColumns()));
    AddRow(library, dynamical_day, kMoon, MoonColumns(), report.tables[1], not_available);
  } else {
    AddRow(library, dynamical_day, kMoon, columns, report.tables[0], not_available);
  }
  if (!not_available.empty()) {
    report.notes.push_back(NotAvailableText(not_available));
  }
  const int year = YearAt(clock, dynamical_day);
  if (year < kFirstPlutoYear || year > kLastPlutoYear) {
    report.notes.push_back(fmt::format("Pluto's series holds no orbit outside the years {} to {}.",
                                       kFirstPlutoYear, kLastPlutoYear));
  }
  report.notes.emplace_back(
      "Phase angle and position angle of the Moon's axis are shown in degrees; the fields "
      "MoonPhaseAngle,");
  report.notes.emplace_back(
      "MoonAxisPositionAngle and Obliquity of the record are in radians. The Moon's distance is in "
      "km.");
  return {report, not_available.empty()};
}

}  // namespace zenithor::almanac
