#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>

#include "bodies.h"
#include "commands.h"
#include "moment.h"
#include "report.h"

namespace zenithor::almanac {

namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;

using Field = double BodyPositionRecord::*;

// A column and the field of the record that it shows.
struct FieldColumn {
  Column column;
  Field field;
  double factor = 1.0;
  enum { kEveryBody, kPlanetsOnly, kMoonOnly } shown_for = kEveryBody;
};

using Columns = std::vector<FieldColumn>;

const FieldColumn kGeoLongitude = {{"geo_longitude", "deg", 6}, &BodyPositionRecord::GeoLongitude};
const FieldColumn kGeoLatitude = {{"geo_latitude", "deg", 6}, &BodyPositionRecord::GeoLatitude};
const FieldColumn kDistanceAu = {
    {"geo_distance", "au", 8}, &BodyPositionRecord::GeoDistance, 1.0, FieldColumn::kPlanetsOnly};
const FieldColumn kRightAscension = {{"right_ascension", "h", 7},
                                     &BodyPositionRecord::RightAscension};
const FieldColumn kDeclination = {{"declination", "deg", 6}, &BodyPositionRecord::Declination};

Columns PlanetColumns() {
  return {{{"helio_longitude", "deg", 6}, &BodyPositionRecord::HelioLongitude},
          {{"helio_latitude", "deg", 6}, &BodyPositionRecord::HelioLatitude},
          {{"helio_distance", "au", 8}, &BodyPositionRecord::HelioDistance},
          kGeoLongitude,
          kGeoLatitude,
          kDistanceAu,
          kRightAscension,
          kDeclination};
}

Columns MoonOnlyColumns() {
  constexpr auto kMoonOnly = FieldColumn::kMoonOnly;
  return {{{"moon_distance", "km", 3}, &BodyPositionRecord::GeoDistance, 1.0, kMoonOnly},
          {{"phase_angle", "deg", 5},
           &BodyPositionRecord::MoonPhaseAngle,
           kDegreesPerRadian,
           kMoonOnly},
          {{"axis_angle", "deg", 5},
           &BodyPositionRecord::MoonAxisPositionAngle,
           kDegreesPerRadian,
           kMoonOnly},
          {{"illuminated_fraction", "", 6},
           &BodyPositionRecord::MoonIlluminatedFraction,
           1.0,
           kMoonOnly}};
}

Columns MoonColumns() {
  Columns columns = {kGeoLongitude, kGeoLatitude, kRightAscension, kDeclination};
  const Columns more = MoonOnlyColumns();
  columns.insert(columns.end(), more.begin(), more.end());
  return columns;
}

Columns AllColumns() {
  Columns columns = PlanetColumns();
  const Columns more = MoonOnlyColumns();
  columns.insert(columns.end(), more.begin(), more.end());
  return columns;
}

// A record in which a field that is still NaN was not written.
BodyPositionRecord EmptyRecord() {
  constexpr double kUnwritten = std::numeric_limits<double>::quiet_NaN();
  BodyPositionRecord record{};
  for (const Field field :
       {&BodyPositionRecord::HelioLongitude, &BodyPositionRecord::HelioLatitude,
        &BodyPositionRecord::HelioDistance, &BodyPositionRecord::GeoLongitude,
        &BodyPositionRecord::GeoLatitude, &BodyPositionRecord::GeoDistance,
        &BodyPositionRecord::RightAscension, &BodyPositionRecord::Declination,
        &BodyPositionRecord::MoonPhaseAngle, &BodyPositionRecord::MoonAxisPositionAngle,
        &BodyPositionRecord::MoonIlluminatedFraction}) {
    record.*field = kUnwritten;
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
    not_available.push_back(body.name);
  }
  std::vector<Cell> row = {std::string(body.name)};
  for (const FieldColumn& shown : columns) {
    row.push_back(answered ? FieldCell(shown, body, record) : Cell());
  }
  table.rows.push_back(std::move(row));
}

Table NewTable(const char* name, const Columns& columns) {
  Table table;
  table.name = name;
  table.columns.push_back({"body", "", 0});
  for (const FieldColumn& shown : columns) {
    table.columns.push_back(shown.column);
  }
  return table;
}

std::vector<std::string> Head(double julian_day) {
  return {fmt::format("Places at {} (JD {:.6f}), taken as dynamical time", CalendarText(julian_day),
                      julian_day),
          "Heliocentric: ecliptic of date, with nutation (Pluto without). Geocentric longitude,",
          "latitude and distance: ecliptic of date; Sun and planets geometric, Pluto and Moon with",
          "nutation, Pluto apparent. Right ascension and declination: apparent, equator of date."};
}

// Between them Pluto keeps within 29 and 50.5 au, as it does in the sky; a century outside it does
// not, and at the ends of the calendar it is thousands of au away.
constexpr int kFirstPlutoYear = -3100;
constexpr int kLastPlutoYear = 3100;

Report PlacesReport(const ZenithorLibrary& library, double julian_day, Format format) {
  Report report;
  report.head = Head(julian_day);
  std::vector<std::string> not_available;
  const bool two_tables = format == Format::kText;
  const Columns columns = two_tables ? PlanetColumns() : AllColumns();
  report.tables.push_back(NewTable("places", columns));
  for (const Body& body : kPlanets) {
    AddRow(library, julian_day, body, columns, report.tables[0], not_available);
  }
  if (two_tables) {
    report.tables.push_back(NewTable("moon", MoonColumns()));
    AddRow(library, julian_day, kMoon, MoonColumns(), report.tables[1], not_available);
  } else {
    AddRow(library, julian_day, kMoon, columns, report.tables[0], not_available);
  }
  AddNotAvailable(not_available, report);
  const int year = InstantOf(julian_day).year;
  if (year < kFirstPlutoYear || year > kLastPlutoYear) {
    report.notes.push_back(fmt::format("Pluto's series holds no orbit outside the years {} to {}.",
                                       kFirstPlutoYear, kLastPlutoYear));
  }
  report.notes.push_back(
      "Phase angle and position angle of the Moon's axis are shown in degrees; the fields "
      "MoonPhaseAngle,");
  report.notes.push_back(
      "MoonAxisPositionAngle and Obliquity of the record are in radians. The Moon's distance is in "
      "km.");
  return report;
}

struct TodayOptions {
  std::optional<double> julian_day;  // nothing: now
  Format format = Format::kText;
};

}  // namespace

void AddTodayCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("today", "Places of the Sun, the planets, Pluto and the Moon");
  const auto options = std::make_shared<TodayOptions>();
  command
      ->add_option_function<std::string>(
          "--date",
          [options](const std::string& text) { options->julian_day = MomentOf("--date", text); },
          "2026-11-21, 2026-11-21T06:30:00 or \"jd 2461365.75\"; else now")
      ->type_name("DATE");
  AddFormatOption(*command, options->format);
  command->callback([&session, options] {
    const double julian_day = options->julian_day.value_or(CurrentJulianDay());
    fmt::print("{}", Render(PlacesReport(session.Library(), julian_day, options->format),
                            options->format));
  });
}

}  // namespace zenithor::almanac
