/* zenithor.h: astronomical positions and events, one exported function per value.
 *
 * Link with the import library, or define ZENITHOR_LOADER before including this header and load the
 * library at run time with ZenithorOpen (at the end).
 *
 * Conventions of every function here
 *   - C calling convention. Instants are Julian days as doubles; no difference between dynamical
 *     and universal time is applied, except by GEO_RISE, which takes a day number of its own.
 *   - Records are the caller's. A function writes the fields listed at its name and no others; it
 *     keeps no pointer after it returns, allocates nothing that the caller must free, throws
 *     nothing and prints nothing. A null record gives 0.0.
 *   - 0.0 means "no answer": the record is untouched, or (event functions) the block read back was
 *     not filled by this call.
 *   - Any number of threads may call at once; each gets the answers that a lone caller gets.
 *   - A call from a signal or exception handler that interrupted a call on the same thread is not
 *     supported. Both are answered rightly all the same; the host guide says what may go wrong.
 *   - A call needs ZENITHOR_STACK_BYTES of stack. It never ends the process for want of memory.
 *   - The caller's processor state does not matter. x87 control word, MXCSR, direction flag and
 *     errno come back as they were; the x87 register stack comes back empty (but for the result)
 *     and no x87 exception flag is set.
 */
#ifndef ZENITHOR_ZENITHOR_H
#define ZENITHOR_ZENITHOR_H

#include <math.h>
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
#define ZENITHOR_STATIC_ASSERT(condition, text) \
  extern char zenithor_static_assert[(condition) ? 1 : -1]
#endif

#if defined(__cplusplus) || (defined(__STDC_VERSION__) && __STDC_VERSION__ >= 199901L)
#define ZENITHOR_INLINE static inline
#else
#define ZENITHOR_INLINE static __inline
#endif

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

/* A call touches at most so many bytes of the caller's stack, on every platform; what the system
 * puts there for a signal or an exception comes on top. On Linux a thread's own data lie on its
 * stack too: 28 KB for a thread are enough. */
#define ZENITHOR_STACK_BYTES 16384

/* ZENITHOR returns this once the record is written; 0.0 says that nothing was written. */
#define ZENITHOR_DONE 323.0

/* The answer of ZENITHOR. Fields that a body does not fill keep what the caller left in them:
 *   Sun                      4-8, 16-23         Pluto   1-8, 18-23
 *   Mercury, Venus, Mars to
 *   Neptune                  1-8, 16-23         Moon    4-10, 15, 18-23
 *   Earth                    1-3, 16-23
 * Of the Sun and the planets a longitude or a right ascension of exactly 0, or not a number, is not
 * written either; of the Moon a longitude that is not a number. */
typedef struct BodyPositionRecord {
  double HelioLongitude;          /*  1 [deg] heliocentric ecliptic longitude of date, nutation
                                          included but for Pluto, 0 to 360 */
  double HelioLatitude;           /*  2 [deg] heliocentric ecliptic latitude */
  double HelioDistance;           /*  3 [au] heliocentric distance */
  double GeoLongitude;            /*  4 [deg] geocentric ecliptic longitude: geometric for the Sun
                                          and the planets; apparent for Pluto, as are fields 5
                                          and 6; with nutation for the Moon, where a value just
                                          below 0 stays negative */
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
  int32_t Month;                  /* 19 1 to 12; no dates before day -1401: host guide */
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

/* All event functions
 *   JulianDay          [day] the moment to start from
 *   Ignored1, Ignored2 not read
 *   Record             the caller's record; the function writes all blocks of its family (filled or
 *                      zeroed) and leaves every other block as it was
 * Every instant is dynamical time (Julian Ephemeris Day). Each function reads one block of its
 * family back and returns its JulianDay: 0.0 when this call did not fill it; other blocks of the
 * family may then still hold an event. When JulianDay is not finite all its blocks are zeroed, and
 * so they are when a search for an eclipse gives up. */

/* Equinoxes and solstices: blocks 0 to 3.
 *   Selector           the event to compute: 0 March equinox, 1 June solstice, 2 September equinox,
 *                      3 December solstice, that is the number of its block; anything else zeroes
 *                      all four blocks
 * The event is that of the calendar year in which JulianDay lies, also when it is over already. The
 * event selected goes to its own block and the other three are zeroed. Each function reads back its
 * own block (SPR_EQUX 0, SUM_SOL 1, FALL_EQUX 2, WIN_SOL 3) whatever the selector: with another
 * selector than its own it returns 0.0. Good to about a minute over the years -1000 to 3000.
 * Source: Meeus, Astronomical Algorithms, chapter 27. */
double ZENITHOR_CALL SPR_EQUX(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                              EventRecord* Record) ZENITHOR_EXPORTED_AS("_SPR_EQUX");
double ZENITHOR_CALL SUM_SOL(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                             EventRecord* Record) ZENITHOR_EXPORTED_AS("_SUM_SOL");
double ZENITHOR_CALL FALL_EQUX(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                               EventRecord* Record) ZENITHOR_EXPORTED_AS("_FALL_EQUX");
double ZENITHOR_CALL WIN_SOL(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                             EventRecord* Record) ZENITHOR_EXPORTED_AS("_WIN_SOL");

/* Lunar phases: blocks 4 to 7.
 *   Selector           the phase to compute: 0 new moon, 1 first quarter, 2 full moon, 3 last
 *                      quarter, that is its block less 4; anything else zeroes all four blocks
 * Quarters and full moon are those of the lunation whose mean new moon falls at or before
 * JulianDay + 1, so they may lie before JulianDay (the first quarter by about three weeks, the full
 * moon by two, the last quarter by one); the new moon is the first whose mean instant comes after
 * JulianDay - 6. Each function reads back its own block
 * (NEW_MOON 4, FIRST_QTR 5, FULL_MOON 6, LAST_QTR 7) whatever the selector: with another selector
 * than its own it returns 0.0.
 * Source: Meeus, Astronomical Algorithms, chapter 49; what differs stands in docs/deliberate.md. */
double ZENITHOR_CALL NEW_MOON(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                              EventRecord* Record) ZENITHOR_EXPORTED_AS("_NEW_MOON");
double ZENITHOR_CALL FIRST_QTR(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                               EventRecord* Record) ZENITHOR_EXPORTED_AS("_FIRST_QTR");
double ZENITHOR_CALL FULL_MOON(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                               EventRecord* Record) ZENITHOR_EXPORTED_AS("_FULL_MOON");
double ZENITHOR_CALL LAST_QTR(double JulianDay, double Ignored1, double Ignored2, int32_t Selector,
                              EventRecord* Record) ZENITHOR_EXPORTED_AS("_LAST_QTR");

/* Solar eclipses: blocks 8 to 14. Each call finds the first one after JulianDay - 10 (that
 * is, at a mean new moon more than 0.03 lunation after it), fills the block of its kind and
 * the any-kind block 14, and zeroes the others. So an eclipse up to about nine days past is found
 * again. ALL_SE returns the eclipse whatever its kind. The others read the block of one kind and do
 * not look further: 0.0 when the first eclipse is of another kind.
 *   TOTAL_SE      8 total                     TOTAL_NCSE   11 non-central total
 *   ANNULAR_SE    9 annular                   ANNULAR_NCSE 12 non-central annular
 *   ANNULAR_TSE  10 annular-total (hybrid)    PARTIAL_SE   13 partial
 * From every day that has a calendar date an eclipse is found. From about 1e10 days on the angles
 * are too coarse, and the search gives up after 30 000 lunations: 0.0 and all blocks of the family
 * zeroed, within milliseconds. From 2.66e17 days on lunations cannot be counted: the same, at once.
 * Source: Meeus, Astronomical Algorithms, chapter 54. */
double ZENITHOR_CALL ALL_SE(double JulianDay, double Ignored1, double Ignored2, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_ALL_SE");
double ZENITHOR_CALL TOTAL_SE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_TOTAL_SE");
double ZENITHOR_CALL ANNULAR_SE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_ANNULAR_SE");
double ZENITHOR_CALL ANNULAR_TSE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_ANNULAR_TSE");
double ZENITHOR_CALL TOTAL_NCSE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_TOTAL_NCSE");
double ZENITHOR_CALL ANNULAR_NCSE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_ANNULAR_NCSE");
double ZENITHOR_CALL PARTIAL_SE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_PARTIAL_SE");

/* Lunar eclipses: blocks 15 to 18. As for the Sun, from JulianDay - 22, at a mean full moon more
 * than 0.53 lunation after it; one up to about six days past is found again. ALL_LE returns the
 * eclipse whatever its kind, block 18; TOTAL_LE reads block 15 (total), PARTIAL_LE 16 (partial in
 * the umbra), PENUM_LE 17 (penumbral). A search from afar is answered as the formulas have it, up
 * to 2.66e17 days, where lunations cannot be counted: 0.0 and zeroed blocks. Source: Meeus,
 * Astronomical Algorithms, chapter 54; the instants carry the corrections of solar eclipses on
 * purpose, which moves them by up to 142 s. */
double ZENITHOR_CALL ALL_LE(double JulianDay, double Ignored1, double Ignored2, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_ALL_LE");
double ZENITHOR_CALL TOTAL_LE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_TOTAL_LE");
double ZENITHOR_CALL PARTIAL_LE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_PARTIAL_LE");
double ZENITHOR_CALL PENUM_LE(double JulianDay, EventRecord* Record)
    ZENITHOR_EXPORTED_AS("_PENUM_LE");

/* Which of the three times GEO_RISE returns. */
enum { ZENITHOR_RISE = 1, ZENITHOR_TRANSIT = 2, ZENITHOR_SET = 3 };

/* What GEO_RISE returns, for the transit too, when the body does not cross the horizon that day.
 * A time of exactly 16 or 32 minutes could not be told from these. */
#define ZENITHOR_ALWAYS_UP 16.0
#define ZENITHOR_NEVER_UP 32.0

/* The Julian day of day number 0, 1960 December 31, 0h. */
#define ZENITHOR_DAY_NUMBER_EPOCH 2437299.5

/* When a body rises, crosses the meridian or sets.
 *   DayNumber          [day] Julian day less 2437299.5; ZenithorDayNumber makes it
 *   Minutes            [min] added to the instant; 0 for whole days
 *   ZoneHours          [h] universal time less zone time: positive WEST of Greenwich
 *   ObserverLongitude  [deg] positive WEST; ZenithorWestLongitude makes it of an eastern one
 *   ObserverLatitude   [deg] positive north; beyond 90 as the formulas have it
 *   Body               a BodyCode, 0 to 10
 *   Selector           ZENITHOR_RISE, ZENITHOR_TRANSIT or ZENITHOR_SET
 * The day is the one that holds DayNumber plus Minutes, and begins at 0h zone time. Returns
 *   minutes after the day's start [min], up to latitude 50 good to about a minute (but Pluto to two
 *       in 2026 and to 19 in 1736, and the Moon's rise and set once a month to an hour and a half:
 *       docs/deliberate.md). Rise and set are brought into 0 to 1440 by one whole day at most; the
 *       transit is not and can lie up to half a day outside. A rise or set that still lies outside,
 *       which a body that grazes the horizon can get, is no event of that day;
 *   ZENITHOR_ALWAYS_UP or ZENITHOR_NEVER_UP;
 *   not-a-number when the time does not settle (a body that grazes the horizon, above about 60
 *       degrees of latitude; the other two times of that day are answered), when an argument is not
 *       finite, and for the Earth, which has no direction from itself;
 *   0.0 when the selector is not 1 to 3, the body not 0 to 10, or the data files that the body
 *       needs were not loaded (the Moon needs none). This is looked at first.
 * Always returns. Delta T is applied. Method: Meeus, Astronomical Algorithms, chapter 15. */
double ZENITHOR_CALL GEO_RISE(double DayNumber, double Minutes, double ZoneHours,
                              double ObserverLongitude, double ObserverLatitude, BodyCode Body,
                              int32_t Selector) ZENITHOR_EXPORTED_AS("_GEO_RISE");

/* The day number of the zone day that holds a Julian day of universal time: a whole number, to be
 * passed with 0 minutes and the same ZoneHours. A moment within 0.1 ms before midnight, which is
 * where a rounded Julian day of midnight may lie, counts as midnight. */
ZENITHOR_INLINE double ZenithorDayNumber(double JulianDay, double ZoneHours) {
  return floor(JulianDay - ZENITHOR_DAY_NUMBER_EPOCH - ZoneHours / 24.0 + 1e-9);
}

/* The Julian day of universal time, of an answer of GEO_RISE in minutes for a whole day number. */
ZENITHOR_INLINE double ZenithorRisingJulianDay(double DayNumber, double ZoneHours, double Answer) {
  return DayNumber + (ZoneHours / 24.0 + Answer / 1440.0) + ZENITHOR_DAY_NUMBER_EPOCH;
}

/* Longitude and zone as GEO_RISE counts them, of the everyday ones, positive east of Greenwich. */
ZENITHOR_INLINE double ZenithorWestLongitude(double EastLongitude) { return -EastLongitude; }
ZENITHOR_INLINE double ZenithorWestZone(double EastZoneHours) { return -EastZoneHours; }

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

/* The types of the 21 functions. */
typedef double(ZENITHOR_CALL* ZenithorPosition)(double JulianDay, double Ignored1, double Ignored2,
                                                double ObserverLongitude, double ObserverLatitude,
                                                double Ignored3, BodyCode Body,
                                                BodyPositionRecord* Record);
typedef double(ZENITHOR_CALL* ZenithorSeasonOrPhase)(double JulianDay, double Ignored1,
                                                     double Ignored2, int32_t Selector,
                                                     EventRecord* Record);
typedef double(ZENITHOR_CALL* ZenithorAnyEclipse)(double JulianDay, double Ignored1,
                                                  double Ignored2, EventRecord* Record);
typedef double(ZENITHOR_CALL* ZenithorEclipseOfKind)(double JulianDay, EventRecord* Record);
typedef double(ZENITHOR_CALL* ZenithorRise)(double DayNumber, double Minutes, double ZoneHours,
                                            double ObserverLongitude, double ObserverLatitude,
                                            BodyCode Body, int32_t Selector);

/* The functions of a loaded library, each null where the library does not export it. */
typedef struct ZenithorLibrary {
  void* Handle; /* HMODULE, or what dlopen returned */
  ZenithorPosition ZENITHOR;
  ZenithorSeasonOrPhase SPR_EQUX;
  ZenithorSeasonOrPhase SUM_SOL;
  ZenithorSeasonOrPhase FALL_EQUX;
  ZenithorSeasonOrPhase WIN_SOL;
  ZenithorSeasonOrPhase NEW_MOON;
  ZenithorSeasonOrPhase FIRST_QTR;
  ZenithorSeasonOrPhase FULL_MOON;
  ZenithorSeasonOrPhase LAST_QTR;
  ZenithorAnyEclipse ALL_SE;
  ZenithorEclipseOfKind TOTAL_SE;
  ZenithorEclipseOfKind ANNULAR_SE;
  ZenithorEclipseOfKind ANNULAR_TSE;
  ZenithorEclipseOfKind TOTAL_NCSE;
  ZenithorEclipseOfKind ANNULAR_NCSE;
  ZenithorEclipseOfKind PARTIAL_SE;
  ZenithorAnyEclipse ALL_LE;
  ZenithorEclipseOfKind TOTAL_LE;
  ZenithorEclipseOfKind PARTIAL_LE;
  ZenithorEclipseOfKind PENUM_LE;
  ZenithorRise GEO_RISE;
} ZenithorLibrary;

#ifdef ZENITHOR_LOADER

#ifdef __cplusplus
} /* extern "C" */
#endif
#include <string.h>
#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif
#ifdef __cplusplus
extern "C" {
#endif

#if defined(_WIN32)
typedef wchar_t ZenithorPathCharacter; /* paths are UTF-16 */
#define ZENITHOR_LIBRARY_NAME L"zenithor.dll"
#else
typedef char ZenithorPathCharacter;
#define ZENITHOR_LIBRARY_NAME "libzenithor.so"
/* What linked programs ask for, and the one name that there is where no developer's files are. */
#define ZENITHOR_LIBRARY_SONAME "libzenithor.so.1"
#endif

/* Sets the function pointer at `function`, `size` bytes wide, to the export of that name. */
ZENITHOR_INLINE void ZenithorFind(void* handle, const char* exported_name, void* function,
                                  size_t size) {
#if defined(_WIN32)
  const FARPROC address = GetProcAddress((HMODULE)handle, exported_name);
#else
  void* const address = dlsym(handle, exported_name);
#endif
  memcpy(function, &address, size);
}

/* Forgets the functions and closes the library. The data that it loaded stay in the process until
 * its end, so a host opens the library once and keeps it rather than opening it for every call. */
ZENITHOR_INLINE void ZenithorClose(ZenithorLibrary* library) {
  if (library->Handle != NULL) {
#if defined(_WIN32)
    FreeLibrary((HMODULE)library->Handle);
#else
    dlclose(library->Handle);
#endif
  }
  memset(library, 0, sizeof *library);
}

#if defined(_WIN32)
/* The library beside the program. Null where there is none; GetLastError says why. */
ZENITHOR_INLINE HMODULE ZenithorLoadBesideProgram(void) {
  wchar_t path[2048];
  const DWORD capacity = (DWORD)(sizeof path / sizeof path[0]);
  const DWORD name_size = (DWORD)(sizeof ZENITHOR_LIBRARY_NAME / sizeof path[0]);
  DWORD length = GetModuleFileNameW(NULL, path, capacity);
  if (length == 0 || length >= capacity) {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return NULL;
  }
  while (length > 0 && path[length - 1] != L'\\') {
    --length;
  }
  if (length + name_size > capacity) {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return NULL;
  }
  memcpy(path + length, ZENITHOR_LIBRARY_NAME, name_size * sizeof path[0]);
  return LoadLibraryW(path);
}

/* The library by its plain name: in the program's folder, in the folders that the program has named
 * with AddDllDirectory, in the system's. Neither in the current directory, which may be one of
 * chart files that somebody sent, nor in those of PATH. Systems that cannot be told so (Windows 7
 * without its updates) are given the full path beside the program. */
ZENITHOR_INLINE HMODULE ZenithorLoadByName(void) {
  /* LOAD_LIBRARY_SEARCH_APPLICATION_DIR, _USER_DIRS and _SYSTEM32 */
  const HMODULE handle = LoadLibraryExW(ZENITHOR_LIBRARY_NAME, NULL, 0x200 | 0x400 | 0x800);
  if (handle == NULL && GetLastError() == ERROR_INVALID_PARAMETER) {
    return ZenithorLoadBesideProgram();
  }
  return handle;
}
#endif

/* Loads the library from `path`, best a full one, and finds its functions. Null looks for
 * ZENITHOR_LIBRARY_NAME: on Windows in the program's own folder and in the system's (see
 * ZenithorLoadByName), on Linux by the dynamic linker's order, first for ZENITHOR_LIBRARY_SONAME;
 * in neither case in the current directory. Returns 1, or 0 with every member null where the
 * library cannot be loaded (GetLastError or dlerror says why) or does not export ZENITHOR. The data
 * files are read here, and the warning about a missing one is shown here. A 32-bit process loads
 * the 32-bit library. */
ZENITHOR_INLINE int ZenithorOpen(ZenithorLibrary* library, const ZenithorPathCharacter* path) {
  void* handle;
  memset(library, 0, sizeof *library);
#if defined(_WIN32)
  handle = (void*)(path == NULL ? ZenithorLoadByName() : LoadLibraryW(path));
#else
  handle = dlopen(path == NULL ? ZENITHOR_LIBRARY_SONAME : path, RTLD_NOW | RTLD_LOCAL);
  if (handle == NULL && path == NULL) {
    handle = dlopen(ZENITHOR_LIBRARY_NAME, RTLD_NOW | RTLD_LOCAL);
  }
#endif
  if (handle == NULL) {
    return 0;
  }
  library->Handle = handle;
#define ZENITHOR_FIND(name) ZenithorFind(handle, "_" #name, &library->name, sizeof library->name)
  ZENITHOR_FIND(ZENITHOR);
  ZENITHOR_FIND(SPR_EQUX);
  ZENITHOR_FIND(SUM_SOL);
  ZENITHOR_FIND(FALL_EQUX);
  ZENITHOR_FIND(WIN_SOL);
  ZENITHOR_FIND(NEW_MOON);
  ZENITHOR_FIND(FIRST_QTR);
  ZENITHOR_FIND(FULL_MOON);
  ZENITHOR_FIND(LAST_QTR);
  ZENITHOR_FIND(ALL_SE);
  ZENITHOR_FIND(TOTAL_SE);
  ZENITHOR_FIND(ANNULAR_SE);
  ZENITHOR_FIND(ANNULAR_TSE);
  ZENITHOR_FIND(TOTAL_NCSE);
  ZENITHOR_FIND(ANNULAR_NCSE);
  ZENITHOR_FIND(PARTIAL_SE);
  ZENITHOR_FIND(ALL_LE);
  ZENITHOR_FIND(TOTAL_LE);
  ZENITHOR_FIND(PARTIAL_LE);
  ZENITHOR_FIND(PENUM_LE);
  ZENITHOR_FIND(GEO_RISE);
#undef ZENITHOR_FIND
  if (library->ZENITHOR == NULL) {
    ZenithorClose(library);
    return 0;
  }
  return 1;
}

#endif /* ZENITHOR_LOADER */

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* ZENITHOR_ZENITHOR_H */
