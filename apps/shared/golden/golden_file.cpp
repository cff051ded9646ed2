#include "golden/golden_file.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace zenithor::golden {

namespace {

// A cell of the answer that must be left as it was; among the arguments, one that there is not.
constexpr const char* kNothing = "-";

struct Word {
  const char* text;
  std::int32_t value;
};

constexpr Word kBodies[] = {
    {"Sun", ZENITHOR_SUN},       {"Mercury", ZENITHOR_MERCURY}, {"Venus", ZENITHOR_VENUS},
    {"Earth", ZENITHOR_EARTH},   {"Mars", ZENITHOR_MARS},       {"Jupiter", ZENITHOR_JUPITER},
    {"Saturn", ZENITHOR_SATURN}, {"Uranus", ZENITHOR_URANUS},   {"Neptune", ZENITHOR_NEPTUNE},
    {"Pluto", ZENITHOR_PLUTO},   {"Moon", ZENITHOR_MOON},
};

constexpr Word kRisingSelectors[] = {
    {"rise", ZENITHOR_RISE}, {"transit", ZENITHOR_TRANSIT}, {"set", ZENITHOR_SET}};

// Exports of events: 1 where the call has a selector.
constexpr Word kEventExports[] = {
#define EXPORT_SELECTED_EVENT(name, block) {#name, 1},
#define EXPORT_ANY_ECLIPSE(name, block) {#name, 0},
#define EXPORT_ECLIPSE_OF_KIND(name, block) {#name, 0},
#include "entry/export_list.inc"
};

constexpr const char* kDate = "Date";

enum Kind : std::size_t { kPositions, kEvents, kRisings };

const std::vector<Layout>& Layouts() {
  static const std::vector<Layout> layouts = {
      {{"JulianDay [day]", "Ignored1", "Ignored2", "ObserverLongitude [deg]",
        "ObserverLatitude [deg]", "Ignored3", "Body"},
       {"Result", "HelioLongitude [deg]", "HelioLatitude [deg]", "HelioDistance [au]",
        "GeoLongitude [deg]", "GeoLatitude [deg]", "GeoDistance [au, Moon km]",
        "RightAscension [h]", "Declination [deg]", "MoonPhaseAngle [rad]",
        "MoonAxisPositionAngle [rad]", "ReservedA0", "ReservedA1", "ReservedA2", "ReservedA3",
        "MoonIlluminatedFraction", "Obliquity [rad]", "Centuries [36525 day]", kDate}},
      {{"Export", "JulianDay [day]", "Selector"},
       {"Result [day]",
        "MarchEquinox [day, date]",
        "JuneSolstice [day, date]",
        "SeptemberEquinox [day, date]",
        "DecemberSolstice [day, date]",
        "NewMoon [day, date]",
        "FirstQuarter [day, date]",
        "FullMoon [day, date]",
        "LastQuarter [day, date]",
        "SolarTotal [day, date]",
        "SolarAnnular [day, date]",
        "SolarAnnularTotal [day, date]",
        "SolarTotalNoncentral [day, date]",
        "SolarAnnularNoncentral [day, date]",
        "SolarPartial [day, date]",
        "SolarAny [day, date]",
        "LunarTotal [day, date]",
        "LunarPartial [day, date]",
        "LunarPenumbral [day, date]",
        "LunarAny [day, date]"}},
      {{"DayNumber [day]", "Minutes [min]", "ZoneHours [h]", "ObserverLongitude [deg]",
        "ObserverLatitude [deg]", "Body", "Selector"},
       {"Result [min]"}},
  };
  return layouts;
}

// The cells of one row, taken from the left.
class Cells {
 public:
  Cells(const Table& table, const Row& row)
      : path_(table.path), layout_(Layouts()[table.layout]), row_(row) {}

  double Number() { return NumberIn(Next()); }

  // A word of the list, or its number.
  template <std::size_t count>
  std::int32_t Code(const Word (&words)[count], const char* what) {
    const std::string& cell = Next();
    for (const Word& word : words) {
      if (cell == word.text) {
        return word.value;
      }
    }
    int number = 0;
    if (!ReadNumber(cell, number)) {
      Refuse("\"" + cell + "\" is no " + what);
    }
    return number;
  }

  // An export of events; its selector stands in the column after the next.
  std::string EventExport(bool& takes_selector) {
    const std::string& cell = Next();
    for (const Word& word : kEventExports) {
      if (cell == word.text) {
        takes_selector = word.value != 0;
        return cell;
      }
    }
    Refuse("\"" + cell + "\" is no export of events");
  }

  std::int32_t EventSelector(bool takes_selector) {
    const std::string& cell = Next();
    int selector = 0;
    if (takes_selector ? !ReadNumber(cell, selector) : cell != kNothing) {
      Refuse("\"" + cell + "\" is no selector of this export");
    }
    return selector;
  }

  ExpectedNumber Expected() {
    ExpectedNumber expected;
    expected.name = AnswerName();
    const Tolerance tolerance = AnswerTolerance();
    const std::string& cell = Next();
    expected.untouched = cell == kNothing;
    if (!expected.untouched) {
      expected.value = NumberIn(cell);
      expected.allowed = tolerance.For(expected.value);
    }
    return expected;
  }

  ExpectedDate Date() {
    const std::string name = AnswerName();
    const Tolerance tolerance = AnswerTolerance();
    const std::string& cell = Next();
    if (tolerance.absolute != 0.0 || tolerance.relative != 0.0) {
      Refuse("a date is met exactly, so its tolerance is 0");
    }
    return cell == kNothing ? ExpectedDate{name, true, {}} : DateIn(name, cell);
  }

  // "-", "0", or a Julian day and its date.
  ExpectedBlock Block() {
    const std::string name = AnswerName();
    const Tolerance tolerance = AnswerTolerance();
    const std::string& cell = Next();
    ExpectedBlock block;
    if (cell == kNothing) {
      return block;
    }
    if (cell == "0") {
      block.state = BlockState::kZeroed;
      return block;
    }
    const std::size_t space = cell.find(' ');
    if (space == std::string::npos) {
      Refuse("\"" + cell + "\" is not a Julian day and its date");
    }
    const double julian_day = NumberIn(cell.substr(0, space));
    block.state = BlockState::kFilled;
    block.julian_day = {name, false, julian_day, tolerance.For(julian_day)};
    block.date = DateIn(name, cell.substr(space + 1));
    return block;
  }

  // The arguments as the file has them.
  std::string Words() const {
    std::string words = row_.cells[0];
    for (std::size_t k = 1; k < layout_.call.size(); ++k) {
      words += ", " + row_.cells[k];
    }
    return words;
  }

 private:
  [[noreturn]] void Refuse(const std::string& what) const {
    const std::size_t calls = layout_.call.size();
    const std::string& heading =
        next_ <= calls ? layout_.call[next_ - 1] : layout_.answer[next_ - 1 - calls];
    throw Refused(path_, row_.line,
                  "column " + std::to_string(next_) + ", " + NameOf(heading) + ": " + what);
  }

  const std::string& Next() { return row_.cells[next_++]; }

  std::size_t AnswerColumn() const { return next_ - layout_.call.size(); }

  std::string AnswerName() const { return NameOf(layout_.answer[AnswerColumn()]); }

  Tolerance AnswerTolerance() const { return row_.tolerances[AnswerColumn()]; }

  double NumberIn(const std::string& cell) const {
    double number = 0.0;
    if (!ReadNumber(cell, number)) {
      Refuse("\"" + cell + "\" is not a number");
    }
    return number;
  }

  ExpectedDate DateIn(const std::string& name, const std::string& cell) const {
    ExpectedDate date{name, false, {}};
    const char* next = cell.data();
    const char* const end = next + cell.size();
    const char* separator = "-- ::";
    for (std::int32_t& field : date.fields) {
      next = std::from_chars(next, end, field).ptr;
      if (*separator != '\0' && next != end && *next == *separator) {
        ++separator;
        ++next;
      }
    }
    if (TextOf(date.fields) != cell) {
      Refuse("\"" + cell + "\" is not a date such as 2000-01-01 12:00:00");
    }
    return date;
  }

  const std::string& path_;
  const Layout& layout_;
  const Row& row_;
  std::size_t next_ = 0;
};

PositionCase PositionCaseOf(const Row& row, Cells cells) {
  PositionCase position{row.line, cells.Words(), {}, {}, {}, {}};
  PositionCall& call = position.call;
  call.julian_day = cells.Number();
  call.ignored1 = cells.Number();
  call.ignored2 = cells.Number();
  call.observer_longitude = cells.Number();
  call.observer_latitude = cells.Number();
  call.ignored3 = cells.Number();
  call.code = cells.Code(kBodies, "body");
  position.result = cells.Expected();
  for (ExpectedNumber& field : position.doubles) {
    field = cells.Expected();
  }
  position.date = cells.Date();
  return position;
}

EventCase EventCaseOf(const Row& row, Cells cells) {
  EventCase event{row.line, cells.Words(), {}, {}, {}};
  bool takes_selector = false;
  event.call.name = cells.EventExport(takes_selector);
  event.call.julian_day = cells.Number();
  event.call.selector = cells.EventSelector(takes_selector);
  event.result = cells.Expected();
  for (ExpectedBlock& block : event.blocks) {
    block = cells.Block();
  }
  return event;
}

RisingCase RisingCaseOf(const Row& row, Cells cells) {
  RisingCase rising{row.line, cells.Words(), {}, {}};
  RisingCall& call = rising.call;
  call.day_number = cells.Number();
  call.minutes = cells.Number();
  call.zone_hours = cells.Number();
  call.longitude_west = cells.Number();
  call.latitude = cells.Number();
  call.code = cells.Code(kBodies, "body");
  call.selector = cells.Code(kRisingSelectors, "selector");
  rising.result = cells.Expected();
  return rising;
}

}  // namespace

std::string TextOf(const DateFields& date) {
  char text[100];
  static_cast<void>(std::snprintf(text, sizeof text, "%d-%02d-%02d %02d:%02d:%02d", date[0],
                                  date[1], date[2], date[3], date[4], date[5]));
  return text;
}

GoldenFile ReadGoldenFile(std::istream& text, const std::string& path) {
  const Table table = ReadTable(text, path, Layouts());
  GoldenFile file;
  file.path = path;
  for (const Row& row : table.rows) {
    const Cells cells(table, row);
    if (table.layout == kPositions) {
      file.positions.push_back(PositionCaseOf(row, cells));
    } else if (table.layout == kEvents) {
      file.events.push_back(EventCaseOf(row, cells));
    } else {
      file.risings.push_back(RisingCaseOf(row, cells));
    }
  }
  return file;
}

GoldenFile ReadGoldenFile(const std::string& path) {
  std::ifstream text(std::filesystem::u8path(path));
  if (!text) {
    throw std::runtime_error(path + ": cannot be read");
  }
  return ReadGoldenFile(text, path);
}

}  // namespace zenithor::golden
