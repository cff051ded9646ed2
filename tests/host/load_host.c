/* Loads the library in the profile it is started with and says what can be computed.
 *   load_host LIBRARY full|empty [ANSI_CODE_PAGE]
 * full: every planet is answered. empty: none is, and no byte of a record is touched; of the Moon,
 * what needs no data. With a code page, the profile's name must be beyond it. */
#include "host.h"

#define J2000 2451545.0

static const BodyCode planets[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, -1, 11, 2147483647};
enum { PLANET_COUNT = sizeof planets / sizeof planets[0] };

static void CheckFull(const ZenithorLibrary* library) {
  int k;
  for (k = 0; k < PLANET_COUNT; ++k) {
    BodyPositionRecord record;
    memset(&record, HOST_PATTERN, sizeof record);
    CHECK(library->ZENITHOR(J2000, 0.0, 0.0, 0.0, 0.0, 0.0, planets[k], &record) == 323.0);
    CHECK(record.Year == 2000 && record.Month == 1 && record.Day == 1);
    CHECK(record.Hour == 12 && record.Minute == 0 && record.Second == 0);
    CHECK(record.Centuries == 0.0);
    CHECK(planets[k] == 3 || (record.RightAscension >= 0.0 && record.RightAscension < 24.0));
  }
}

/* What of the Moon needs no data: its place and the position angle of its axis. Its phase angle and
 * its illuminated fraction need the Sun. */
static void CheckMoonWithoutSun(const ZenithorLibrary* library) {
  BodyPositionRecord record;
  BodyPositionRecord untouched;
  memset(&record, HOST_PATTERN, sizeof record);
  memset(&untouched, HOST_PATTERN, sizeof untouched);
  CHECK(library->ZENITHOR(J2000, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_MOON, &record) == 323.0);
  CHECK(record.Year == 2000 && record.Second == 0);
  CHECK(record.GeoLongitude > 223.0 && record.GeoLongitude < 224.0);
  CHECK(record.GeoLatitude > 5.0 && record.GeoLatitude < 5.4);
  CHECK(record.GeoDistance > 402000.0 && record.GeoDistance < 403000.0);
  CHECK(record.RightAscension > 14.0 && record.RightAscension < 15.0);
  CHECK(record.Declination < -10.0 && record.Declination > -12.0);
  CHECK(record.MoonAxisPositionAngle != untouched.MoonAxisPositionAngle);
  CHECK(memcmp(&record.MoonPhaseAngle, &untouched.MoonPhaseAngle, sizeof(double)) == 0);
  CHECK(memcmp(&record.MoonIlluminatedFraction, &untouched.MoonIlluminatedFraction,
               sizeof(double)) == 0);
}

/* Pluto, the Moon's risings and the events need no data; other risings do. */
static void CheckWhatNeedsNoData(const ZenithorLibrary* library) {
  const double day_number = 15000.0;
  BodyPositionRecord record;
  EventRecord events;
  memset(&record, HOST_PATTERN, sizeof record);
  CHECK(library->ZENITHOR(J2000, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_PLUTO, &record) == 323.0);
  CHECK(record.GeoLongitude > 250.0 && record.GeoLongitude < 252.0);
  CHECK(library->SPR_EQUX(J2000, 0.0, 0.0, 0, &events) > J2000);
  CHECK(library->GEO_RISE(day_number, 0.0, 0.0, 0.0, 50.0, ZENITHOR_SUN, ZENITHOR_RISE) == 0.0);
  CHECK(library->GEO_RISE(day_number, 0.0, 0.0, 0.0, 50.0, ZENITHOR_MOON, ZENITHOR_RISE) > 0.0);
}

static void CheckEmpty(const ZenithorLibrary* library) {
  int k;
  for (k = 0; k < PLANET_COUNT; ++k) {
    BodyPositionRecord record;
    BodyPositionRecord untouched;
    memset(&record, HOST_PATTERN, sizeof record);
    memset(&untouched, HOST_PATTERN, sizeof untouched);
    CHECK(library->ZENITHOR(J2000, 0.0, 0.0, 0.0, 0.0, 0.0, planets[k], &record) == 0.0);
    CHECK(memcmp(&record, &untouched, sizeof record) == 0);
  }
}

#if defined(_WIN32)
static void CheckProfileIsBeyond(UINT code_page) {
  wchar_t folder[MAX_PATH];
  char narrow[4 * MAX_PATH];
  BOOL lost = FALSE;
  CHECK(GetACP() == code_page);
  CHECK(GetEnvironmentVariableW(L"APPDATA", folder, MAX_PATH) > 0);
  CHECK(WideCharToMultiByte(CP_ACP, 0, folder, -1, narrow, sizeof narrow, NULL, &lost) > 0);
  CHECK(lost);
}
#endif

int main(int count, char** words) {
  ZenithorLibrary library;
  if (count < 3) {
    fprintf(stderr, "usage: load_host LIBRARY full|empty [ANSI_CODE_PAGE]\n");
    return EXIT_FAILURE;
  }
#if defined(_WIN32)
  if (count > 3) {
    CheckProfileIsBeyond((UINT)atoi(words[3]));
  }
#endif
  /* Loading succeeds whether or not there are data. */
  if (!OpenLibrary(&library, words[1])) {
    fprintf(stderr, "load_host: cannot load %s\n", words[1]);
    return EXIT_FAILURE;
  }
  if (strcmp(words[2], "full") == 0) {
    CheckFull(&library);
  } else {
    CheckEmpty(&library);
    CheckMoonWithoutSun(&library);
    CheckWhatNeedsNoData(&library);
  }
  ZenithorClose(&library);
  CHECK(library.Handle == NULL && library.ZENITHOR == NULL);
  return HOST_RESULT;
}
