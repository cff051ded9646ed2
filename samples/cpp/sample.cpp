// Zenithor from C++, linked with both libraries.
//
// Run on Linux: c++ -I../../include sample.cpp -L../../linux -lzenithor -lzenithor_values -o sample && LD_LIBRARY_PATH=../../linux ./sample
// Run on Windows, 64 bits: x86_64-w64-mingw32-g++ -static -I../../include sample.cpp ../../win64/libzenithor.dll.a ../../win64/libzenithor_values.dll.a -o ../../win64/sample.exe && ../../win64/sample.exe
// Run on Windows, 32 bits: i686-w64-mingw32-g++ -static -I../../include sample.cpp ../../win32/libzenithor.dll.a ../../win32/libzenithor_values.dll.a -o ../../win32/sample.exe && ../../win32/sample.exe
//
// Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
// Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include "zenithor/values.h"
#include "zenithor/zenithor.h"

namespace {

const double start = 2461041.5;  // Julian day of 2026 January 1, 0h
const double longitude = 13.4;   // Berlin [deg], positive east
const double latitude = 52.5;
const double zone = 1;  // [h] ahead of universal time

struct Date {
  int32_t year, month, day, hour, minute;
};

Date Calendar(double julian_day, double round_to) {
  int32_t date[5];
  const int32_t code = ZenithorCalendar(julian_day, round_to, date, nullptr);
  if (code < 0) {
    throw std::runtime_error(ZenithorMessage(code));
  }
  return {date[0], date[1], date[2], date[3], date[4]};
}

void PrintRecords() {
  const char* const kinds[] = {
      "total", "annular", "annular-total", "non-central total", "non-central annular", "partial"};
  std::puts("Records");
  for (int day = 0; day < 5; ++day) {
    BodyPositionRecord mars{};
    if (ZENITHOR(start + day, 0, 0, 0, 0, 0, ZENITHOR_MARS, &mars) != ZENITHOR_DONE) {
      throw std::runtime_error("No data files: see \"Where the data are\" in the host guide.");
    }
    std::printf("Mars %d-%02d-%02d %.6f\n", mars.Year, mars.Month, mars.Day, mars.GeoLongitude);
  }

  EventRecord events{};
  if (ALL_SE(start, 0, 0, &events) == 0) {
    throw std::runtime_error("No eclipse.");
  }
  const EventTimeBlock& eclipse = events.Blocks[ZENITHOR_BLOCK_SOLAR_ANY];
  int kind = 0;
  while (kind < 5 && events.Blocks[ZENITHOR_BLOCK_SOLAR_TOTAL + kind].JulianDay == 0) {
    ++kind;
  }
  std::printf("%d-%02d-%02d %02d:%02d %s solar eclipse\n", eclipse.Year, eclipse.Month, eclipse.Day,
              eclipse.Hour, eclipse.Minute, kinds[kind]);

  // Longitude and zone are positive west here.
  const double sunrise = GEO_RISE(start - ZENITHOR_DAY_NUMBER_EPOCH, 0, -zone, -longitude, latitude,
                                  ZENITHOR_SUN, ZENITHOR_RISE);
  if (!(sunrise > 0) || sunrise == ZENITHOR_ALWAYS_UP || sunrise == ZENITHOR_NEVER_UP) {
    throw std::runtime_error("No sunrise.");
  }
  const int minutes = static_cast<int>(sunrise + 0.5);
  std::printf("Berlin %02d:%02d sunrise\n", minutes / 60, minutes % 60);
}

void PrintValues() {
  std::puts("Values");
  std::vector<double> days;
  for (int day = 0; day < 5; ++day) {
    days.push_back(start + day);
  }
  std::vector<double> places(days.size());
  const int32_t count = static_cast<int32_t>(days.size());
  if (ZenithorValues(ZENITHOR_BODY_MARS, ZENITHOR_FIELD_GEO_LONGITUDE, days.data(), count,
                     places.data()) != count) {
    throw std::runtime_error("Not all values are numbers.");
  }
  for (std::size_t k = 0; k < days.size(); ++k) {
    const Date date = Calendar(days[k], 0);
    std::printf("Mars %d-%02d-%02d %.6f\n", date.year, date.month, date.day, places[k]);
  }

  int32_t kind = 0;
  const double eclipse = ZenithorNextEventOfKinds(ZENITHOR_KINDS_SOLAR_ECLIPSES, start, &kind);
  if (std::isnan(eclipse)) {
    throw std::runtime_error("No eclipse.");
  }
  const Date when = Calendar(eclipse, 0);
  std::printf("%d-%02d-%02d %02d:%02d %s\n", when.year, when.month, when.day, when.hour,
              when.minute, ZenithorKindName(kind));

  const double sunrise = ZenithorDailyTime(ZENITHOR_BODY_SUN, ZENITHOR_DAILY_RISE, start + 0.5,
                                           zone, longitude, latitude);
  if (std::isnan(sunrise)) {
    throw std::runtime_error("No sunrise.");
  }
  const Date clock = Calendar(sunrise + zone / 24, 60);
  std::printf("Berlin %02d:%02d sunrise\n", clock.hour, clock.minute);
}

}  // namespace

int main() {
  try {
    PrintRecords();
    PrintValues();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
