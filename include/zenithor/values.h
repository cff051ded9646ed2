/* values.h: astronomical values and events as plain numbers and arrays, from one file.
 *
 * The library zenithor_values holds its data inside. It reads no file, starts no thread, shows no
 * message and needs nothing installed beside it.
 *
 * Link with the import library, or define ZENITHOR_VALUES_LOADER before including this header and
 * load the library at run time with ZenithorValuesOpen (at the end).
 *
 * Conventions of every function here
 *   - Arguments and answers are numbers, arrays of numbers and texts that the library keeps. 32-bit
 *     Windows: stdcall, undecorated names. Elsewhere the C calling convention.
 *   - A moment is a Julian day of dynamical time (TT) where nothing else is said; the clock's time
 *     is what ZenithorClockToDynamical takes. Angles are in degrees, east and north positive.
 *   - Arrays are the caller's, and nothing is kept of them after the call. A function writes as far
 *     as its contract says and nowhere else, allocates nothing that the caller must free, throws
 *     nothing and prints nothing.
 *   - A double that has no answer is NaN. An integer that is negative is one of the error codes.
 *   - Every call ends, whatever its arguments are.
 *   - Any number of threads may call at once; each gets the answers that a lone caller gets.
 *   - The caller's processor state does not matter and comes back as it was, as zenithor.h says.
 *   - A call needs ZENITHOR_VALUES_STACK_BYTES of stack. It never ends the process for want of
 *     memory.
 *
 * Stands by itself, and beside zenithor.h in either order. Takes C from C89 (with stdint.h) and C++
 * from C++98 on. */
#ifndef ZENITHOR_VALUES_H
#define ZENITHOR_VALUES_H

#include <stddef.h>
#include <stdint.h>

#define ZENITHOR_VALUES_VERSION_MAJOR 1
#define ZENITHOR_VALUES_VERSION_MINOR 0
#define ZENITHOR_VALUES_VERSION_PATCH 0
#define ZENITHOR_VALUES_VERSION_STRING "1.0.0"

/* Stack that a call needs; what the thread touches of it is less. */
#define ZENITHOR_VALUES_STACK_BYTES 32768

#if defined(_WIN32) && !defined(_WIN64)
#define ZENITHOR_VALUES_CALL __stdcall
#else
#define ZENITHOR_VALUES_CALL
#endif

#if defined(__cplusplus) || (defined(__STDC_VERSION__) && __STDC_VERSION__ >= 199901L)
#define ZENITHOR_VALUES_INLINE static inline
#else
#define ZENITHOR_VALUES_INLINE static __inline
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Bodies, numbered as in zenithor.h. Unlike there, another number is no body. */
enum {
  ZENITHOR_BODY_SUN = 0,
  ZENITHOR_BODY_MERCURY = 1,
  ZENITHOR_BODY_VENUS = 2,
  ZENITHOR_BODY_EARTH = 3,
  ZENITHOR_BODY_MARS = 4,
  ZENITHOR_BODY_JUPITER = 5,
  ZENITHOR_BODY_SATURN = 6,
  ZENITHOR_BODY_URANUS = 7,
  ZENITHOR_BODY_NEPTUNE = 8,
  ZENITHOR_BODY_PLUTO = 9,
  ZENITHOR_BODY_MOON = 10,
  ZENITHOR_BODY_COUNT = 11
};

/* Fields. 1 to 23 are those of a BodyPositionRecord (zenithor.h), to the bit what the function
 * ZENITHOR writes there for the body and moment; 11 to 14 are never written. What it does not write
 * is NaN here: 4 to 8 of the Earth, 1 to 3 of the Sun and the Moon, 9, 10 and 15 of all but the
 * Moon, 16 and 17 of Pluto and the Moon; and a longitude or right ascension of exactly 0 of the Sun
 * and the planets. 101 to 106 are of all bodies but the Earth. */
enum {
  ZENITHOR_FIELD_HELIO_LONGITUDE = 1,      /* [deg] heliocentric longitude, 0 to 360 */
  ZENITHOR_FIELD_HELIO_LATITUDE = 2,       /* [deg] heliocentric latitude */
  ZENITHOR_FIELD_HELIO_DISTANCE = 3,       /* [au] */
  ZENITHOR_FIELD_GEO_LONGITUDE = 4,        /* [deg] geocentric longitude, geometric for the Sun and
                                              the planets, 0 to 360; see zenithor.h */
  ZENITHOR_FIELD_GEO_LATITUDE = 5,         /* [deg] geocentric latitude, as field 4 */
  ZENITHOR_FIELD_GEO_DISTANCE = 6,         /* [au], the Moon [km] */
  ZENITHOR_FIELD_RIGHT_ASCENSION = 7,      /* [h] apparent, 0 to 24 */
  ZENITHOR_FIELD_DECLINATION = 8,          /* [deg] apparent */
  ZENITHOR_FIELD_MOON_PHASE_ANGLE = 9,     /* [rad] 0 to pi */
  ZENITHOR_FIELD_MOON_AXIS_ANGLE = 10,     /* [rad] position angle of the axis */
  ZENITHOR_FIELD_MOON_ILLUMINATION = 15,   /* illuminated fraction of the disc, 0 to 1 */
  ZENITHOR_FIELD_OBLIQUITY = 16,           /* [rad] mean obliquity of the ecliptic of date */
  ZENITHOR_FIELD_CENTURIES = 17,           /* [Julian centuries] from J2000.0 */
  ZENITHOR_FIELD_YEAR = 18,                /* the moment's calendar date; year 0 is 1 BC */
  ZENITHOR_FIELD_MONTH = 19,               /* 1 to 12 */
  ZENITHOR_FIELD_DAY = 20,                 /* 1 to 31 */
  ZENITHOR_FIELD_HOUR = 21,                /* 0 to 23 */
  ZENITHOR_FIELD_MINUTE = 22,              /* 0 to 59 */
  ZENITHOR_FIELD_SECOND = 23,              /* 0 to 59, truncated */
  ZENITHOR_FIELD_APPARENT_LONGITUDE = 101, /* [deg] apparent geocentric longitude, 0 to 360:
                                              fields 7 and 8 turned into the true ecliptic and
                                              equinox of date. Light time, aberration and nutation
                                              are in, as almanacs print it. */
  ZENITHOR_FIELD_APPARENT_LATITUDE = 102,  /* [deg] apparent geocentric latitude, likewise */
  ZENITHOR_FIELD_LONGITUDE_MOTION = 103,   /* [deg/day] how fast field 101 changes at the moment:
                                              (8 (f1 - f-1) - (f2 - f-2)) * 16 / 12 of its values
                                              1/16 day (f1, f-1) and 1/8 day (f2, f-2) away */
  ZENITHOR_FIELD_DECLINATION_MOTION = 104, /* [deg/day] how fast field 8 changes, likewise */
  ZENITHOR_FIELD_ELONGATION = 105,         /* [deg] angle between the apparent directions of the
                                              body and the Sun, 0 to 180; 0 for the Sun */
  ZENITHOR_FIELD_DIRECTION = 106           /* 1 while direct (field 103 is not negative), -1 while
                                              retrograde */
};

/* Kinds of events, numbered as the blocks of an EventRecord (zenithor.h). */
enum {
  ZENITHOR_KIND_MARCH_EQUINOX = 0,
  ZENITHOR_KIND_JUNE_SOLSTICE = 1,
  ZENITHOR_KIND_SEPTEMBER_EQUINOX = 2,
  ZENITHOR_KIND_DECEMBER_SOLSTICE = 3,
  ZENITHOR_KIND_NEW_MOON = 4,
  ZENITHOR_KIND_FIRST_QUARTER = 5,
  ZENITHOR_KIND_FULL_MOON = 6,
  ZENITHOR_KIND_LAST_QUARTER = 7,
  ZENITHOR_KIND_SOLAR_TOTAL = 8,
  ZENITHOR_KIND_SOLAR_ANNULAR = 9,
  ZENITHOR_KIND_SOLAR_ANNULAR_TOTAL = 10,
  ZENITHOR_KIND_SOLAR_TOTAL_NONCENTRAL = 11,
  ZENITHOR_KIND_SOLAR_ANNULAR_NONCENTRAL = 12,
  ZENITHOR_KIND_SOLAR_PARTIAL = 13,
  ZENITHOR_KIND_SOLAR_ANY = 14, /* any of 8 to 13 */
  ZENITHOR_KIND_LUNAR_TOTAL = 15,
  ZENITHOR_KIND_LUNAR_PARTIAL = 16,
  ZENITHOR_KIND_LUNAR_PENUMBRAL = 17,
  ZENITHOR_KIND_LUNAR_ANY = 18, /* any of 15 to 17 */
  ZENITHOR_KIND_COUNT = 19
};

/* Sets of kinds, for ZenithorEventsOfKinds: bit k stands for kind k. */
#define ZENITHOR_KINDS_SEASONS 0x0000F
#define ZENITHOR_KINDS_PHASES 0x000F0
#define ZENITHOR_KINDS_SOLAR_ECLIPSES 0x03F00
#define ZENITHOR_KINDS_LUNAR_ECLIPSES 0x38000
#define ZENITHOR_KINDS_ALL 0x3BFFF

/* What a function that answers with an integer says instead of a count. ZenithorMessage has a
 * sentence for each. */
enum {
  ZENITHOR_ERROR_ARRAY = -1, /* an array is null that has to be read or written */
  ZENITHOR_ERROR_COUNT = -2, /* a count, capacity or stride is negative */
  ZENITHOR_ERROR_BODY = -3,  /* no such body, or none that the question makes sense for */
  ZENITHOR_ERROR_FIELD =
      -4,                   /* no such field, or the body has it not, or it cannot be searched so */
  ZENITHOR_ERROR_KIND = -5, /* no such kind of event, or no kind at all in a set */
  ZENITHOR_ERROR_SPAN = -6, /* a bound of the span is not a number from ZENITHOR_FIRST_DAY to
                               ZENITHOR_LAST_DAY */
  ZENITHOR_ERROR_ANGLE = -7, /* a target, angle, longitude, latitude or zone is not finite, or a
                                latitude is beyond 90 */
  ZENITHOR_ERROR_DAY = -8    /* a day is not finite or has no calendar date */
};

/* ---- Values ---------------------------------------------------------------------------------- */

/* The value of a field of a body at a Julian day. NaN where there is none: no such body or field, a
 * field that the body does not have, a Julian day that is not finite. Fields of one body and moment
 * that are asked one after another cost one evaluation: each thread that calls keeps the latest
 * four moments of every body, and room to sum in, 140 KB in all, until it ends. */
double ZENITHOR_VALUES_CALL ZenithorValue(int32_t body, int32_t field, double julianDay);

/* The same at julianDays[0] to julianDays[count - 1], into values[0] to values[count - 1]; the two
 * arrays may be one, or must not overlap. The same bits as single calls, and faster: four moments
 * are evaluated side by side. Returns how many of the values are numbers: count when all are.
 * Without a body or field of that number the values are NaN and the answer is ZENITHOR_ERROR_BODY
 * or ZENITHOR_ERROR_FIELD. */
int32_t ZENITHOR_VALUES_CALL ZenithorValues(int32_t body, int32_t field, const double* julianDays,
                                            int32_t count, double* values);

/* Several fields of several bodies at several moments. The value of fields[f] of bodies[b] at
 * julianDays[d] goes to
 *   values[d * dayStride + b * bodyStride + f * fieldStride]
 * The strides count doubles. All three 0 stand for the dense table day by day: bodyCount *
 * fieldCount, fieldCount, 1. With other strides the elements between are left as they are, and
 * cells must not share an element. `values` must not overlap `julianDays`. Returns how many of the
 * values are numbers (at most 2147483647). When one of the bodies or fields is none, its values are
 * NaN, all others are computed, and the answer is ZENITHOR_ERROR_BODY or ZENITHOR_ERROR_FIELD. */
int32_t ZENITHOR_VALUES_CALL ZenithorTable(const int32_t* bodies, int32_t bodyCount,
                                           const int32_t* fields, int32_t fieldCount,
                                           const double* julianDays, int32_t dayCount,
                                           double* values, int32_t dayStride, int32_t bodyStride,
                                           int32_t fieldStride);

/* ---- Searches -------------------------------------------------------------------------------- */

/* The days between which events and searches are answered: year -2000 January 1 to year 4000
 * January 1, 0h. */
#define ZENITHOR_FIRST_DAY 990557.5
#define ZENITHOR_LAST_DAY 3182029.5

/* All functions that fill an array with moments
 *   from, to    [day] the span; it holds `from` and not `to`. Empty when `to` is not after `from`.
 *   julianDays  the moments found, in the order of time; may be null when capacity is 0
 *   capacity    how many the array holds; further ones are counted and not written
 * Return how many there are in the span, also when that is more than the capacity, or an error
 * code. None is missed and none given twice. A moment has the same bits in whichever span it is
 * found. So a long search can be taken up again: with a span that begins 1e-6 day after the last
 * moment that the array took (two contacts closer together than the values can tell, some seconds,
 * are one). */

/* The moments at which a field takes a value: ingresses (field 101, target 0, 30, 60, ...), nodes
 * (field 2 or 102, target 0), equator crossings (field 8, target 0), any value of any field.
 *   body, field  as ZenithorValue; not fields 11 to 14
 *   target       [unit of the field] longitudes count modulo 360, right ascension modulo 24
 * Contacts that only just happen are found: a field that turns exactly at the target, as far as the
 * rounding of its values can tell, gives one moment. Moments are good to 1e-6 day of
 * the library's own values, where the field changes by more than 1e-4 of its unit per day. A field
 * that steps (106 and the calendar's 18 to 23) takes a value at the first moment that has it; of
 * the calendar a span of at most 366 days is searched for hours, minutes and seconds
 * (ZENITHOR_ERROR_SPAN). The wrap from 360 to 0 is no crossing of 180. Angles run on
 * through 0 for a search, also where fields 1 and 7 lose the sign of an angle just below 0.
 * Rounding is 1e-10 degree in our centuries, up to 1e-8 (the Moon) 4000 years away; a contact
 * closer than that to a turn is one moment. When Pluto passes behind the Sun the bending of its
 * light grows without limit: of contacts that this alone makes some may be missed. */
int32_t ZENITHOR_VALUES_CALL ZenithorCrossings(int32_t body, int32_t field, double target,
                                               double from, double to, double* julianDays,
                                               int32_t capacity);

/* The moments at which a longitude or a declination turns: planetary stations (field 101 as
 * almanacs have them, field 4 for the record's), standstills of declination.
 *   field  1, 4, 101, 8; a longitude that never turns (the Sun's, the Moon's) has none
 * Good to 1e-6 day of where the rate of the library's own values changes sign; Uranus, Neptune and
 * Pluto to 1e-5 day. */
int32_t ZENITHOR_VALUES_CALL ZenithorStations(int32_t body, int32_t field, double from, double to,
                                              double* julianDays, int32_t capacity);

/* The moments at which two bodies stand at an angle: field(body) - field(otherBody) is `angle` or
 * -`angle`, longitudes modulo 360.
 *   field  1 (heliocentric), 4 or 101 (geocentric longitude); 8 (declination)
 *   angle  [deg] 0 conjunction, 90 square, 120 trine, 180 opposition, ...; for declinations 0 is
 *          the parallel, another angle a difference of declinations
 * Contacts that only just happen, before a station, are found. Good as crossings are. */
int32_t ZENITHOR_VALUES_CALL ZenithorAspects(int32_t body, int32_t otherBody, int32_t field,
                                             double angle, double from, double to,
                                             double* julianDays, int32_t capacity);

/* The same three, saying for each moment what happens there. `directions` takes as many as
 * julianDays does, and may be null.
 *   crossings  1 the value rises through the target, -1 it falls, 0 it touches it
 *   stations   1 the value begins to rise (a planet turns direct), -1 it begins to fall (turns
 *              retrograde)
 *   aspects    1 where field(body) - field(otherBody) is `angle`, -1 where it is -`angle`; 1 where
 *              the two are the same, as for 0 and 180 */
int32_t ZENITHOR_VALUES_CALL ZenithorDirectedCrossings(int32_t body, int32_t field, double target,
                                                       double from, double to, double* julianDays,
                                                       int32_t* directions, int32_t capacity);
int32_t ZENITHOR_VALUES_CALL ZenithorDirectedStations(int32_t body, int32_t field, double from,
                                                      double to, double* julianDays,
                                                      int32_t* directions, int32_t capacity);
int32_t ZENITHOR_VALUES_CALL ZenithorDirectedAspects(int32_t body, int32_t otherBody, int32_t field,
                                                     double angle, double from, double to,
                                                     double* julianDays, int32_t* directions,
                                                     int32_t capacity);

/* The first of these moments after a day (not at it); NaN when there is none before
 * ZENITHOR_LAST_DAY, or where the functions above would answer with an error. */
double ZENITHOR_VALUES_CALL ZenithorNextCrossing(int32_t body, int32_t field, double target,
                                                 double after);
double ZENITHOR_VALUES_CALL ZenithorNextStation(int32_t body, int32_t field, double after);
double ZENITHOR_VALUES_CALL ZenithorNextAspect(int32_t body, int32_t otherBody, int32_t field,
                                               double angle, double after);

/* ---- Seasons, phases, eclipses --------------------------------------------------------------- */

/* All events of a kind in a span, to the bit those that the functions of zenithor.h give (its
 * accuracy is stated there), without their gaps and repetitions. Moments, capacity and answer as
 * for searches.
 *   kind  0 to 18; 14 and 18 stand for solar and lunar eclipses of any kind */
int32_t ZENITHOR_VALUES_CALL ZenithorEvents(int32_t kind, double from, double to,
                                            double* julianDays, int32_t capacity);

/* All events of several kinds in the order of time.
 *   kindSet  bit k set: events of kind k. Bits 14 and 18 stand for the kinds that they unite.
 *   kinds    takes the kind of each event, 0 to 13 and 15 to 17; may be null
 * An eclipse and the new or full moon of that day are two events. */
int32_t ZENITHOR_VALUES_CALL ZenithorEventsOfKinds(int32_t kindSet, double from, double to,
                                                   double* julianDays, int32_t* kinds,
                                                   int32_t capacity);

/* The first event of a kind after a day (not at it); NaN when there is none before
 * ZENITHOR_LAST_DAY, or no such kind or day. */
double ZENITHOR_VALUES_CALL ZenithorNextEvent(int32_t kind, double after);

/* The first event of several kinds after a day; its kind goes to `kind`, which may be null and is
 * left as it is when the answer is NaN. */
double ZENITHOR_VALUES_CALL ZenithorNextEventOfKinds(int32_t kindSet, double after, int32_t* kind);

/* ---- Rise, transit, set ---------------------------------------------------------------------- */

enum { ZENITHOR_DAILY_RISE = 1, ZENITHOR_DAILY_TRANSIT = 2, ZENITHOR_DAILY_SET = 3 };

/* What there is to say of one of the three on a day. */
enum {
  ZENITHOR_DAILY_HAPPENS = 0,   /* its time is given */
  ZENITHOR_DAILY_ALWAYS_UP = 1, /* no rise, no set: the body stays above the horizon */
  ZENITHOR_DAILY_NEVER_UP = 2,  /* it stays below, the transit too */
  ZENITHOR_DAILY_NONE = 3,      /* not on this day, but on the days before and after: once a month
                                   the Moon does not rise, and does not set */
  ZENITHOR_DAILY_UNSETTLED = 4  /* the places are no numbers, so no time can be told */
};

/* When a body rises, crosses the meridian and sets on a civil day.
 *   body           0 to 10, not the Earth
 *   julianDay      [day] of universal time: any moment of the day that is meant
 *   zoneHours      [h] the day is that of a clock so much ahead of universal time: +1 Berlin in
 *                  winter, -5 New York; 0 the day of universal time
 *   longitude      [deg] of the observer, east positive
 *   latitude       [deg] north positive, -90 to 90
 *   julianDays[3]  rise, transit, set as Julian days of universal time, NaN where there is none.
 *                  Each lies in the day. Of a planet that rises twice on a day, as happens once a
 *                  year, the first is given.
 *   statuses[3]    what there is to say of each: ZENITHOR_DAILY_...; may be null
 * Returns how many times are given, 0 to 3, or an error code. The centre of the body, the Sun's and
 * the Moon's upper limb, at the horizon with 34' refraction. To 2 minutes of published tables up to
 * latitude 60. Universal time is taken for what clocks show: it differs from UTC by less than 0.9 s
 * since 1972. */
int32_t ZENITHOR_VALUES_CALL ZenithorDaily(int32_t body, double julianDay, double zoneHours,
                                           double longitude, double latitude, double* julianDays,
                                           int32_t* statuses);

/* One of the three alone, for callers that pass numbers only. NaN where there is no time. */
double ZENITHOR_VALUES_CALL ZenithorDailyTime(int32_t body, int32_t riseTransitOrSet,
                                              double julianDay, double zoneHours, double longitude,
                                              double latitude);

/* What there is to say of it: ZENITHOR_DAILY_..., or an error code (ZENITHOR_ERROR_KIND when it is
 * none of the three). */
int32_t ZENITHOR_VALUES_CALL ZenithorDailyStatus(int32_t body, int32_t riseTransitOrSet,
                                                 double julianDay, double zoneHours,
                                                 double longitude, double latitude);

/* ---- Clock and calendar ---------------------------------------------------------------------- */

/* From the clock's time to dynamical time and back, both as Julian days. The clock's time is UTC
 * from 1972 on, with the leap seconds up to that of 2017 January 1, whose 69.184 s hold for ever
 * after; before 1972 it is universal time by the polynomials of Espenak and Meeus (Five Millennium
 * Canon of Solar Eclipses). There and back is the same within 1e-9 day. During a leap second, which
 * a day of 86400 s does not show, dynamical time gives the midnight that ends it; where two
 * polynomials meet up to 0.26 s are lost likewise. Days -1e8 to 1e8; NaN beyond. (The rise, transit
 * and set functions have the difference built in that zenithor.h states.) */
double ZENITHOR_VALUES_CALL ZenithorClockToDynamical(double clockDay);
double ZENITHOR_VALUES_CALL ZenithorDynamicalToClock(double dynamicalDay);

/* Dynamical time less the clock's time [s] at a moment of the clock's time; NaN as above. */
double ZENITHOR_VALUES_CALL ZenithorDynamicalLessClock(double clockDay);

/* The Julian day of a calendar date and time of day, in whichever time the date is. Julian calendar
 * until 1582 October 4, Gregorian calendar from 1582 October 15 on; year 0 is 1 BC.
 *   year, month, day  a date that the calendar has, in the years -200000 to 200000
 *   hour, minute      0 to 23, 0 to 59
 *   second            0 to 61, 61 not included: 60 and more, a leap second, runs into the next day
 * NaN when there is no such date (1582 October 10, February 30) or time. */
double ZENITHOR_VALUES_CALL ZenithorJulianDay(int32_t year, int32_t month, int32_t day,
                                              int32_t hour, int32_t minute, double second);

/* The calendar date of a Julian day, in the same calendars.
 *   roundTo  [s] 0: nothing is rounded. Otherwise the moment is first rounded to a multiple of so
 *            many seconds of its day, which may be the next midnight: 60 for minutes, 1 for
 *            seconds, 0.001. A Julian day holds 0.00004 s.
 *   date[5]  year, month, day, hour, minute
 *   second   0 to 60, 60 not included; may be null
 * Returns 0; ZENITHOR_ERROR_ARRAY when `date` is null; ZENITHOR_ERROR_DAY, and nothing is written,
 * when the day is not finite or beyond the years -200000 to 200000, or roundTo not 0 to 86400. */
int32_t ZENITHOR_VALUES_CALL ZenithorCalendar(double julianDay, double roundTo, int32_t* date,
                                              double* second);

/* ---- About the library ----------------------------------------------------------------------- */

/* Texts are English, in ASCII, end with a zero, belong to the library and stay as long as it is
 * loaded. */

/* "1.0.0", and 10000 times its first number plus 100 times its second plus its third. A header of
 * the same first number works with every library of the same or a later second number. */
const char* ZENITHOR_VALUES_CALL ZenithorVersion(void);
int32_t ZENITHOR_VALUES_CALL ZenithorVersionNumber(void);

/* Which data are inside: the SHA-256 of the index and the data file one after the other, 64
 * hexadecimal digits. Libraries with the same fingerprint and version give the same answers. */
const char* ZENITHOR_VALUES_CALL ZenithorDataFingerprint(void);

/* "Mars"; null when there is no such body. */
const char* ZENITHOR_VALUES_CALL ZenithorBodyName(int32_t body);

/* "apparent longitude"; null when there is no such field. */
const char* ZENITHOR_VALUES_CALL ZenithorFieldName(int32_t field);

/* "deg", "rad", "h", "au", "km", "deg/day", "century" or "" for a plain number; null when there is
 * no such field or the body has it not. The Moon's distance is in km, other distances in au. */
const char* ZENITHOR_VALUES_CALL ZenithorFieldUnit(int32_t body, int32_t field);

/* What a field counts modulo, in its unit: 360 for longitudes, 24 for right ascension, 0 for what
 * does not come round; NaN when there is no such field. */
double ZENITHOR_VALUES_CALL ZenithorFieldPeriod(int32_t field);

/* 1 when the body has the field, 0 when not. */
int32_t ZENITHOR_VALUES_CALL ZenithorHasField(int32_t body, int32_t field);

/* "total solar eclipse"; null when there is no such kind. */
const char* ZENITHOR_VALUES_CALL ZenithorKindName(int32_t kind);

/* A sentence for an answer: what an error code means, "No error." for 0 and above, "Unknown error
 * code." for others. Never null. */
const char* ZENITHOR_VALUES_CALL ZenithorMessage(int32_t code);

/* ---- Loading at run time --------------------------------------------------------------------- */

/* The functions of a loaded library, each null where the library does not export it: an older one
 * may lack the later ones. */
typedef struct ZenithorValuesLibrary {
  void* Handle; /* HMODULE, or what dlopen returned */
  double(ZENITHOR_VALUES_CALL* Value)(int32_t, int32_t, double);
  int32_t(ZENITHOR_VALUES_CALL* Values)(int32_t, int32_t, const double*, int32_t, double*);
  int32_t(ZENITHOR_VALUES_CALL* Table)(const int32_t*, int32_t, const int32_t*, int32_t,
                                       const double*, int32_t, double*, int32_t, int32_t, int32_t);
  int32_t(ZENITHOR_VALUES_CALL* Crossings)(int32_t, int32_t, double, double, double, double*,
                                           int32_t);
  int32_t(ZENITHOR_VALUES_CALL* Stations)(int32_t, int32_t, double, double, double*, int32_t);
  int32_t(ZENITHOR_VALUES_CALL* Aspects)(int32_t, int32_t, int32_t, double, double, double, double*,
                                         int32_t);
  int32_t(ZENITHOR_VALUES_CALL* DirectedCrossings)(int32_t, int32_t, double, double, double,
                                                   double*, int32_t*, int32_t);
  int32_t(ZENITHOR_VALUES_CALL* DirectedStations)(int32_t, int32_t, double, double, double*,
                                                  int32_t*, int32_t);
  int32_t(ZENITHOR_VALUES_CALL* DirectedAspects)(int32_t, int32_t, int32_t, double, double, double,
                                                 double*, int32_t*, int32_t);
  double(ZENITHOR_VALUES_CALL* NextCrossing)(int32_t, int32_t, double, double);
  double(ZENITHOR_VALUES_CALL* NextStation)(int32_t, int32_t, double);
  double(ZENITHOR_VALUES_CALL* NextAspect)(int32_t, int32_t, int32_t, double, double);
  int32_t(ZENITHOR_VALUES_CALL* Events)(int32_t, double, double, double*, int32_t);
  int32_t(ZENITHOR_VALUES_CALL* EventsOfKinds)(int32_t, double, double, double*, int32_t*, int32_t);
  double(ZENITHOR_VALUES_CALL* NextEvent)(int32_t, double);
  double(ZENITHOR_VALUES_CALL* NextEventOfKinds)(int32_t, double, int32_t*);
  int32_t(ZENITHOR_VALUES_CALL* Daily)(int32_t, double, double, double, double, double*, int32_t*);
  double(ZENITHOR_VALUES_CALL* DailyTime)(int32_t, int32_t, double, double, double, double);
  int32_t(ZENITHOR_VALUES_CALL* DailyStatus)(int32_t, int32_t, double, double, double, double);
  double(ZENITHOR_VALUES_CALL* ClockToDynamical)(double);
  double(ZENITHOR_VALUES_CALL* DynamicalToClock)(double);
  double(ZENITHOR_VALUES_CALL* DynamicalLessClock)(double);
  double(ZENITHOR_VALUES_CALL* JulianDay)(int32_t, int32_t, int32_t, int32_t, int32_t, double);
  int32_t(ZENITHOR_VALUES_CALL* Calendar)(double, double, int32_t*, double*);
  const char*(ZENITHOR_VALUES_CALL* Version)(void);
  int32_t(ZENITHOR_VALUES_CALL* VersionNumber)(void);
  const char*(ZENITHOR_VALUES_CALL* DataFingerprint)(void);
  const char*(ZENITHOR_VALUES_CALL* BodyName)(int32_t);
  const char*(ZENITHOR_VALUES_CALL* FieldName)(int32_t);
  const char*(ZENITHOR_VALUES_CALL* FieldUnit)(int32_t, int32_t);
  double(ZENITHOR_VALUES_CALL* FieldPeriod)(int32_t);
  int32_t(ZENITHOR_VALUES_CALL* HasField)(int32_t, int32_t);
  const char*(ZENITHOR_VALUES_CALL* KindName)(int32_t);
  const char*(ZENITHOR_VALUES_CALL* Message)(int32_t);
} ZenithorValuesLibrary;

#ifdef ZENITHOR_VALUES_LOADER

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
typedef wchar_t ZenithorValuesPathCharacter; /* paths are UTF-16 */
#define ZENITHOR_VALUES_LIBRARY_NAME L"zenithor_values.dll"
#else
typedef char ZenithorValuesPathCharacter;
#define ZENITHOR_VALUES_LIBRARY_NAME "libzenithor_values.so"
/* What linked programs ask for, and the one name that there is where no developer's files are. */
#define ZENITHOR_VALUES_LIBRARY_SONAME "libzenithor_values.so.1"
#endif

/* Sets the function pointer at `function`, `size` bytes wide, to the export of that name. */
ZENITHOR_VALUES_INLINE void ZenithorValuesFind(void* handle, const char* exported_name,
                                               void* function, size_t size) {
#if defined(_WIN32)
  const FARPROC address = GetProcAddress((HMODULE)handle, exported_name);
#else
  void* const address = dlsym(handle, exported_name);
#endif
  memcpy(function, &address, size);
}

/* Forgets the functions and closes the library. */
ZENITHOR_VALUES_INLINE void ZenithorValuesClose(ZenithorValuesLibrary* library) {
  if (library->Handle != NULL) {
#if defined(_WIN32)
    FreeLibrary((HMODULE)library->Handle);
#else
    dlclose(library->Handle);
#endif
  }
  memset(library, 0, sizeof *library);
}

/* Loads the library from `path` (null: ZENITHOR_VALUES_LIBRARY_NAME, by the system's search order;
 * on Linux first ZENITHOR_VALUES_LIBRARY_SONAME) and finds its functions. Returns 1, or 0 with
 * every member null where the library cannot be loaded (GetLastError or dlerror says why) or does
 * not export ZenithorValue. A 32-bit process loads the 32-bit library. */
ZENITHOR_VALUES_INLINE int ZenithorValuesOpen(ZenithorValuesLibrary* library,
                                              const ZenithorValuesPathCharacter* path) {
  void* handle;
  memset(library, 0, sizeof *library);
#if defined(_WIN32)
  handle = (void*)LoadLibraryW(path == NULL ? ZENITHOR_VALUES_LIBRARY_NAME : path);
#else
  handle = dlopen(path == NULL ? ZENITHOR_VALUES_LIBRARY_SONAME : path, RTLD_NOW | RTLD_LOCAL);
  if (handle == NULL && path == NULL) {
    handle = dlopen(ZENITHOR_VALUES_LIBRARY_NAME, RTLD_NOW | RTLD_LOCAL);
  }
#endif
  if (handle == NULL) {
    return 0;
  }
  library->Handle = handle;
#define ZENITHOR_VALUES_FIND(name) \
  ZenithorValuesFind(handle, "Zenithor" #name, &library->name, sizeof library->name)
  ZENITHOR_VALUES_FIND(Value);
  ZENITHOR_VALUES_FIND(Values);
  ZENITHOR_VALUES_FIND(Table);
  ZENITHOR_VALUES_FIND(Crossings);
  ZENITHOR_VALUES_FIND(Stations);
  ZENITHOR_VALUES_FIND(Aspects);
  ZENITHOR_VALUES_FIND(DirectedCrossings);
  ZENITHOR_VALUES_FIND(DirectedStations);
  ZENITHOR_VALUES_FIND(DirectedAspects);
  ZENITHOR_VALUES_FIND(NextCrossing);
  ZENITHOR_VALUES_FIND(NextStation);
  ZENITHOR_VALUES_FIND(NextAspect);
  ZENITHOR_VALUES_FIND(Events);
  ZENITHOR_VALUES_FIND(EventsOfKinds);
  ZENITHOR_VALUES_FIND(NextEvent);
  ZENITHOR_VALUES_FIND(NextEventOfKinds);
  ZENITHOR_VALUES_FIND(Daily);
  ZENITHOR_VALUES_FIND(DailyTime);
  ZENITHOR_VALUES_FIND(DailyStatus);
  ZENITHOR_VALUES_FIND(ClockToDynamical);
  ZENITHOR_VALUES_FIND(DynamicalToClock);
  ZENITHOR_VALUES_FIND(DynamicalLessClock);
  ZENITHOR_VALUES_FIND(JulianDay);
  ZENITHOR_VALUES_FIND(Calendar);
  ZENITHOR_VALUES_FIND(Version);
  ZENITHOR_VALUES_FIND(VersionNumber);
  ZENITHOR_VALUES_FIND(DataFingerprint);
  ZENITHOR_VALUES_FIND(BodyName);
  ZENITHOR_VALUES_FIND(FieldName);
  ZENITHOR_VALUES_FIND(FieldUnit);
  ZENITHOR_VALUES_FIND(FieldPeriod);
  ZENITHOR_VALUES_FIND(HasField);
  ZENITHOR_VALUES_FIND(KindName);
  ZENITHOR_VALUES_FIND(Message);
#undef ZENITHOR_VALUES_FIND
  if (library->Value == NULL) {
    ZenithorValuesClose(library);
    return 0;
  }
  return 1;
}

#endif /* ZENITHOR_VALUES_LOADER */

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* ZENITHOR_VALUES_H */
