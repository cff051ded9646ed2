#include "library_rise.h"

#include <fmt/core.h>

#include <cmath>

#include "library_places.h"
#include "trouble.h"

namespace zenithor::almanac {

namespace {

constexpr double kMinutesPerDay = 1440.0;

// "07:41", to the nearest minute; "00:20 +1" on the day after, "23:50 -1" on the day before.
std::string ClockTime(double minutes) {
  const double rounded = std::floor(minutes + 0.5);
  const double day = std::floor(rounded / kMinutesPerDay);
  const auto of_day = static_cast<int>(rounded - day * kMinutesPerDay);
  const std::string clock = fmt::format("{:02}:{:02}", of_day / 60, of_day % 60);
  return day == 0.0 ? clock : fmt::format("{} {:+.0f}", clock, day);
}

// A rise or set outside its day, or a transit more than a day outside, is what an iteration that
// lost its way ended with.
std::string TimeText(double answer, bool is_transit) {
  const double outside = is_transit ? kMinutesPerDay : 0.0;
  if (answer == ZENITHOR_ALWAYS_UP) {
    return "always up";
  }
  if (answer == ZENITHOR_NEVER_UP) {
    return "never up";
  }
  const bool settled = answer >= -outside && answer <= kMinutesPerDay + outside;
  return settled ? ClockTime(answer) : "no settled time";
}

}  // namespace

LibraryRise LibraryRiseReport(const ZenithorLibrary& library, double noon, const Clock& clock,
                              const Place& place, const Bodies& bodies) {
  if (library.GEO_RISE == nullptr) {
    throw Trouble("the library has no GEO_RISE; a newer one does");
  }
  const double zone = OffsetAt(clock, NearestDynamicalOf(clock, noon)) / 3600.0;
  const double day_number = ZenithorDayNumber(noon - 0.5, 0.0);
  Report report;
  report.head = {
      fmt::format("Rise, transit and set on {} by GEO_RISE, {}", DateText(noon), clock.name),
      CoordinatesText(place)};
  Table table{"rise",
              {TextColumn("body"), TextColumn("rise"), TextColumn("transit"), TextColumn("set")},
              {}};
  std::vector<std::string> not_available;
  for (const Body& body : bodies) {
    const auto answer = [&](std::int32_t selector) {
      return library.GEO_RISE(day_number, 0.0, ZenithorWestZone(zone),
                              ZenithorWestLongitude(place.east_longitude), place.latitude,
                              body.code, selector);
    };
    const double rise = answer(ZENITHOR_RISE);
    const double transit = answer(ZENITHOR_TRANSIT);
    const double set = answer(ZENITHOR_SET);
    const std::string name = body.name;
    if (rise == 0.0 && transit == 0.0 && set == 0.0) {
      not_available.push_back(name);
      table.rows.push_back({name, {}, {}, {}});
      continue;
    }
    table.rows.push_back(
        {name, TimeText(rise, false), TimeText(transit, true), TimeText(set, false)});
  }
  report.tables.push_back(std::move(table));
  if (!not_available.empty()) {
    report.notes.push_back(NotAvailableText(not_available));
  }
  report.notes.emplace_back(
      "+1 and -1: on the day after or before. A rise or set that falls just outside the day is "
      "shown");
  report.notes.emplace_back(
      "on it, a day off: about once a month the Moon's, which then is wrong by up to 1.5 hours.");
  return {report, not_available.empty()};
}

}  // namespace zenithor::almanac
