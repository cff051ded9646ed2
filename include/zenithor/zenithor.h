/* zenithor.h: astronomical positions and events, one exported function per value.
 *
 * Link with the import library, or load the library at run time with ZenithorOpen (below).
 *
 * Conventions of every function here
 *   - C calling convention. Instants are Julian days as doubles; no difference between dynamical and
 *     universal time is applied, except by GEO_RISE, which takes a day number of its own.
 *   - Records are the caller's. A function writes the fields listed at its name and no others; it
 *     keeps no pointer after it returns, allocates nothing that the caller must free, throws
 *     nothing and prints nothing. A null record gives 0.0.
 *   - 0.0 means "no answer": the record is untouched, or (event functions) the block read back was
 *     not filled by this call.
 *   - Any number of threads may call at once; each gets the answers that a lone caller gets.
 *   - The caller's floating-point environment does not matter and is left exactly as it was.
 */
#ifndef ZENITHOR_ZENITHOR_H
#define ZENITHOR_ZENITHOR_H

#include <stddef.h>
#include <stdint.h>

#define ZENITHOR_VERSION_MAJOR 1
#define ZENITHOR_VERSION_MINOR 0
#define ZENITHOR_VERSION_PATCH 0
#define ZENITHOR_VERSION_STRING "1.0.0"

#if defined(_WIN32)
#define ZENITHOR_CALL __cdecl
#else
#define ZENITHOR_CALL
#endif

/* The library exports every name with one leading underscore on every platform. */
#if !defined(_WIN32) && (defined(__GNUC__) || defined(__clang__))
#define ZENITHOR_EXPORTED_AS(name) __asm__(name)
#else
#define ZENITHOR_EXPORTED_AS(name)
#endif

#ifdef __cplusplus
#define ZENITHOR_STATIC_ASSERT(condition, text) static_assert(condition, text)
extern "C" {
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define ZENITHOR_STATIC_ASSERT(condition, text) _Static_assert(condition, text)
#else
#define ZENITHOR_STATIC_ASSERT(condition, text)
#endif

/* ---- Bodies ------------------------------------------------------------------------------- */

/* BodyCode: any value outside 0 to 10 is answered by ZENITHOR as 1 (Mercury). */
typedef int32_t BodyCode;
enum {
  ZENITHOR_SUN = 0,
  ZENITHOR_MERCURY = 1,
  ZENITHOR_VENUS = 2,
  ZENITHOR_EARTH = 3,
  ZENITHOR_MARS = 4,
  ZENITHOR_JUPITER = 5,
  ZENITHOR_SATURN = 6,
  ZENITHOR_URANUS = 7,
  ZENITHOR_NEPTUNE = 8,
  ZENITHOR_PLUTO = 9,
  ZENITHOR_MOON = 10
};

/* ---- Positions ---------------------------------------------------------------------------- */

/* ZENITHOR returns this once the record is written; 0.0 says that nothing was written. */
#define ZENITHOR_DONE 323.0

/* The answer of ZENITHOR. Fields that a body does not fill keep what the caller left in them:
 *   Sun                      4-8, 16-23         Pluto   1-8, 18-23
 *   Mercury, Venus, Mars to
 *   Neptune                  1-8, 16-23         Moon    4-10, 15, 18-23
 *   Earth                    1-3, 16-23
 * A longitude or a right ascension of exactly 0, or not a number, is not written either. */
typedef struct BodyPositionRecord {
  double HelioLongitude;          /*  1 [deg] heliocentric ecliptic longitude of date, nutation
                                          included, 0 to 360 */
  double HelioLatitude;           /*  2 [deg] heliocentric ecliptic latitude */
  double HelioDistance;           /*  3 [au] heliocentric distance */
  double GeoLongitude;            /*  4 [deg] geocentric ecliptic longitude: geometric for the Sun
                                          and the planets; with nutation for the Moon, where a value
                                          just below 0 stays negative */
  double GeoLatitude;             /*  5 [deg] geocentric ecliptic latitude */
  double GeoDistance;             /*  6 [au], the Moon [km]: distance from the Earth */
  double RightAscension;          /*  7 [h] apparent right ascension, 0 to 24 */
  double Declination;             /*  8 [deg] apparent declination */
  double MoonPhaseAngle;          /*  9 [rad] Moon: phase angle, 0 to pi */
  double MoonAxisPositionAngle;   /* 10 [rad] Moon: position angle of the axis */
  double ReservedA[4];            /* 11-14 never written */
  double MoonIlluminatedFraction; /* 15 Moon: illuminated fraction of the disc, 0 to 1 */
  double Obliquity;               /* 16 [rad] mean obliquity of the ecliptic of date */
  double Centuries;               /* 17 [Julian centuries] the moment, counted from J2000.0 */
  int32_t Year;                   /* 18 calendar year of the moment; year 0 is 1 BC */
  int32_t Month;                  /* 19 1 to 12 */
  int32_t Day;                    /* 20 day of the month, truncated */
  int32_t Hour;                   /* 21 0 to 23 */
  int32_t Minute;                 /* 22 0 to 59 */
  int32_t Second;                 /* 23 0 to 59, truncated, never rounded */
} BodyPositionRecord;

/* Where a body stands.
 *   JulianDay          [day] the moment
 *   Ignored1, Ignored2 not read
 *   ObserverLongitude  [deg] changes no field
 *   ObserverLatitude   [deg] changes no field
 *   Ignored3           not read
 *   Body               a BodyCode
 *   Record             the caller's record
 * Returns ZENITHOR_DONE, or 0.0 when the record is null or when the data files that the body needs
 * were not loaded; the record is then untouched, calendar fields included. The Moon needs the Earth
 * from the files for fields 9 and 15 only: without it they are left and ZENITHOR_DONE is returned.
 * A Julian day that has no calendar date saturates fields 18 to 23 (host guide, "Any argument"). */
double ZENITHOR_CALL ZENITHOR(double JulianDay, double Ignored1, double Ignored2,
                              double ObserverLongitude, double ObserverLatitude, double Ignored3,
                              BodyCode Body, BodyPositionRecord* Record)
    ZENITHOR_EXPORTED_AS("_ZENITHOR");

/* ---- Events ------------------------------------------------------------------------------- */

/* One event instant. All zero bits when the call did not fill it. */
typedef struct EventTimeBlock {
  double JulianDay; /* [day] Julian Ephemeris Day of the event (dynamical time) */
  int32_t Year;     /* calendar date of JulianDay; year 0 is 1 BC */
  int32_t Month;    /* 1 to 12 */
  int32_t Day;      /* truncated */
  int32_t Hour;     /* 0 to 23 */
  int32_t Minute;   /* 0 to 59 */
  int32_t Second;   /* 0 to 59, truncated */
} EventTimeBlock;

/* The blocks of an EventRecord. A family writes its own range only. */
enum {
  ZENITHOR_BLOCK_MARCH_EQUINOX = 0,
  ZENITHOR_BLOCK_JUNE_SOLSTICE = 1,
  ZENITHOR_BLOCK_SEPTEMBER_EQUINOX = 2,
  ZENITHOR_BLOCK_DECEMBER_SOLSTICE = 3,
  ZENITHOR_BLOCK_NEW_MOON = 4,
  ZENITHOR_BLOCK_FIRST_QUARTER = 5,
  ZENITHOR_BLOCK_FULL_MOON = 6,
  ZENITHOR_BLOCK_LAST_QUARTER = 7,
  ZENITHOR_BLOCK_SOLAR_TOTAL = 8,
  ZENITHOR_BLOCK_SOLAR_ANNULAR = 9,
  ZENITHOR_BLOCK_SOLAR_ANNULAR_TOTAL = 10,
  ZENITHOR_BLOCK_SOLAR_TOTAL_NONCENTRAL = 11,
  ZENITHOR_BLOCK_SOLAR_ANNULAR_NONCENTRAL = 12,
  ZENITHOR_BLOCK_SOLAR_PARTIAL = 13,
  ZENITHOR_BLOCK_SOLAR_ANY = 14,
  ZENITHOR_BLOCK_LUNAR_TOTAL = 15,
  ZENITHOR_BLOCK_LUNAR_PARTIAL = 16,
  ZENITHOR_BLOCK_LUNAR_PENUMBRAL = 17,
  ZENITHOR_BLOCK_LUNAR_ANY = 18,
  ZENITHOR_BLOCK_COUNT = 19
};

typedef struct EventRecord {
  EventTimeBlock Blocks[ZENITHOR_BLOCK_COUNT];
} EventRecord;

/* Layout that compiled hosts rely on. */
ZENITHOR_STATIC_ASSERT(sizeof(BodyPositionRecord) == 160, "BodyPositionRecord is 160 bytes");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, HelioLongitude) == 0, "field 1");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, HelioLatitude) == 8, "field 2");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, HelioDistance) == 16, "field 3");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, GeoLongitude) == 24, "field 4");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, GeoLatitude) == 32, "field 5");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, GeoDistance) == 40, "field 6");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, RightAscension) == 48, "field 7");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Declination) == 56, "field 8");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, MoonPhaseAngle) == 64, "field 9");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, MoonAxisPositionAngle) == 72, "field 10");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, ReservedA) == 80, "fields 11 to 14");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, MoonIlluminatedFraction) == 112, "field 15");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Obliquity) == 120, "field 16");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Centuries) == 128, "field 17");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Year) == 136, "field 18");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Month) == 140, "field 19");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Day) == 144, "field 20");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Hour) == 148, "field 21");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Minute) == 152, "field 22");
ZENITHOR_STATIC_ASSERT(offsetof(BodyPositionRecord, Second) == 156, "field 23");
ZENITHOR_STATIC_ASSERT(sizeof(EventTimeBlock) == 32, "EventTimeBlock is 32 bytes");
ZENITHOR_STATIC_ASSERT(offsetof(EventTimeBlock, JulianDay) == 0, "JulianDay");
ZENITHOR_STATIC_ASSERT(offsetof(EventTimeBlock, Year) == 8, "Year");
ZENITHOR_STATIC_ASSERT(offsetof(EventTimeBlock, Month) == 12, "Month");
ZENITHOR_STATIC_ASSERT(offsetof(EventTimeBlock, Day) == 16, "Day");
ZENITHOR_STATIC_ASSERT(offsetof(EventTimeBlock, Hour) == 20, "Hour");
ZENITHOR_STATIC_ASSERT(offsetof(EventTimeBlock, Minute) == 24, "Minute");
ZENITHOR_STATIC_ASSERT(offsetof(EventTimeBlock, Second) == 28, "Second");
ZENITHOR_STATIC_ASSERT(sizeof(EventRecord) == 608, "EventRecord is 19 blocks of 32 bytes");

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* ZENITHOR_ZENITHOR_H */
