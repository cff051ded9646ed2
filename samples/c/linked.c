// Zenithor from C, linked with both libraries.
//
// Run on Linux: cc -I../../include linked.c -L../../linux -lzenithor -lzenithor_values -o linked && LD_LIBRARY_PATH=../../linux ./linked
// Run on Windows, 64 bits: x86_64-w64-mingw32-gcc -I../../include linked.c ../../win64/libzenithor.dll.a ../../win64/libzenithor_values.dll.a -o ../../win64/linked.exe && ../../win64/linked.exe
// Run on Windows, 32 bits: i686-w64-mingw32-gcc -I../../include linked.c ../../win32/libzenithor.dll.a ../../win32/libzenithor_values.dll.a -o ../../win32/linked.exe && ../../win32/linked.exe
//
// Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
// Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
#include <math.h>
#include <stdio.h>

#include "zenithor/values.h"
#include "zenithor/zenithor.h"

static const double start = 2461041.5;  // Julian day of 2026 January 1, 0h
static const double longitude = 13.4;   // Berlin [deg], positive east
static const double latitude = 52.5;
static const double zone = 1;  // [h] ahead of universal time

static int PrintRecords(void) {
  static const char* const kinds[] = {
      "total", "annular", "annular-total", "non-central total", "non-central annular", "partial"};
  BodyPositionRecord mars;
  EventRecord events;
  const EventTimeBlock* eclipse = &events.Blocks[ZENITHOR_BLOCK_SOLAR_ANY];
  double sunrise;
  int day, kind = 0;
  puts("Records");
  for (day = 0; day < 5; ++day) {
    if (ZENITHOR(start + day, 0, 0, 0, 0, 0, ZENITHOR_MARS, &mars) != ZENITHOR_DONE) {
      fputs("No data files: see \"Where the data are\" in the host guide.\n", stderr);
      return 0;
    }
    printf("Mars %d-%02d-%02d %.6f\n", mars.Year, mars.Month, mars.Day, mars.GeoLongitude);
  }
  if (ALL_SE(start, 0, 0, &events) == 0) {
    fputs("No eclipse.\n", stderr);
    return 0;
  }
  while (kind < 5 && events.Blocks[ZENITHOR_BLOCK_SOLAR_TOTAL + kind].JulianDay == 0) {
    ++kind;
  }
  printf("%d-%02d-%02d %02d:%02d %s solar eclipse\n", eclipse->Year, eclipse->Month, eclipse->Day,
         eclipse->Hour, eclipse->Minute, kinds[kind]);
  // Longitude and zone are positive west here.
  sunrise = GEO_RISE(start - ZENITHOR_DAY_NUMBER_EPOCH, 0, -zone, -longitude, latitude,
                     ZENITHOR_SUN, ZENITHOR_RISE);
  if (!(sunrise > 0) || sunrise == ZENITHOR_ALWAYS_UP || sunrise == ZENITHOR_NEVER_UP) {
    fputs("No sunrise.\n", stderr);
    return 0;
  }
  printf("Berlin %02d:%02d sunrise\n", (int)(sunrise + 0.5) / 60, (int)(sunrise + 0.5) % 60);
  return 1;
}

static int PrintValues(void) {
  double days[5], places[5], eclipse, sunrise;
  int32_t date[5], kind;
  int day;
  puts("Values");
  for (day = 0; day < 5; ++day) {
    days[day] = start + day;
  }
  if (ZenithorValues(ZENITHOR_BODY_MARS, ZENITHOR_FIELD_GEO_LONGITUDE, days, 5, places) != 5) {
    fputs("Not all values are numbers.\n", stderr);
    return 0;
  }
  for (day = 0; day < 5; ++day) {
    ZenithorCalendar(days[day], 0, date, NULL);
    printf("Mars %d-%02d-%02d %.6f\n", date[0], date[1], date[2], places[day]);
  }
  eclipse = ZenithorNextEventOfKinds(ZENITHOR_KINDS_SOLAR_ECLIPSES, start, &kind);
  if (isnan(eclipse)) {
    fputs("No eclipse.\n", stderr);
    return 0;
  }
  ZenithorCalendar(eclipse, 0, date, NULL);
  printf("%d-%02d-%02d %02d:%02d %s\n", date[0], date[1], date[2], date[3], date[4],
         ZenithorKindName(kind));
  sunrise = ZenithorDailyTime(ZENITHOR_BODY_SUN, ZENITHOR_DAILY_RISE, start + 0.5, zone, longitude,
                              latitude);
  if (isnan(sunrise)) {
    fputs("No sunrise.\n", stderr);
    return 0;
  }
  ZenithorCalendar(sunrise + zone / 24, 60, date, NULL);
  printf("Berlin %02d:%02d sunrise\n", date[3], date[4]);
  return 1;
}

int main(void) { return PrintRecords() && PrintValues() ? 0 : 1; }
