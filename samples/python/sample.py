# Zenithor from Python through ctypes. (The package zenithor is the easier way: docs/python.md.)
#
# Run on Linux: LD_LIBRARY_PATH=../../linux python3 sample.py
# Run on Windows: python sample.py
#
# Prints what ../expected.txt holds: Mars on five days, the next eclipse of the Sun and sunrise in
# Berlin, first from the records of zenithor, then from the plain values of zenithor_values.
import ctypes
import math
import os
import sys
from ctypes import POINTER, Structure, byref, c_char_p, c_double, c_int32

START = 2461041.5  # Julian day of 2026 January 1, 0h
LONGITUDE, LATITUDE, ZONE = 13.4, 52.5, 1  # Berlin: [deg] positive east, [deg], [h] ahead of UT
SUN, MARS = 0, 4
RISE = 1

if sys.platform == "win32":
    folder = os.path.abspath("../../win64" if sys.maxsize > 2**32 else "../../win32")
    zenithor = ctypes.CDLL(os.path.join(folder, "zenithor.dll"))
    values = ctypes.WinDLL(os.path.join(folder, "zenithor_values.dll"))
else:
    zenithor = ctypes.CDLL("libzenithor.so")
    values = ctypes.CDLL("libzenithor_values.so")


class BodyPositionRecord(Structure):
    _fields_ = [(name, c_double) for name in (
        "HelioLongitude", "HelioLatitude", "HelioDistance", "GeoLongitude", "GeoLatitude",
        "GeoDistance", "RightAscension", "Declination", "MoonPhaseAngle", "MoonAxisPositionAngle",
        "ReservedA1", "ReservedA2", "ReservedA3", "ReservedA4", "MoonIlluminatedFraction",
        "Obliquity", "Centuries")] + [(name, c_int32) for name in (
            "Year", "Month", "Day", "Hour", "Minute", "Second")]


class EventTimeBlock(Structure):
    _fields_ = [("JulianDay", c_double)] + [(name, c_int32) for name in (
        "Year", "Month", "Day", "Hour", "Minute", "Second")]


class EventRecord(Structure):
    _fields_ = [("Blocks", EventTimeBlock * 19)]


def function(library, name, result, *arguments):
    found = getattr(library, name)
    found.restype = result
    found.argtypes = arguments
    return found


# The main library's names have one leading underscore.
position = function(zenithor, "_ZENITHOR", c_double, *[c_double] * 6, c_int32,
                    POINTER(BodyPositionRecord))
any_solar_eclipse = function(zenithor, "_ALL_SE", c_double, *[c_double] * 3, POINTER(EventRecord))
rising = function(zenithor, "_GEO_RISE", c_double, *[c_double] * 5, c_int32, c_int32)

print("Records")
mars = BodyPositionRecord()
for day in range(5):
    if position(START + day, 0, 0, 0, 0, 0, MARS, byref(mars)) != 323:
        sys.exit('No data files: see "Where the data are" in the host guide.')
    print(f"Mars {mars.Year}-{mars.Month:02}-{mars.Day:02} {mars.GeoLongitude:.6f}")

events = EventRecord()
if any_solar_eclipse(START, 0, 0, byref(events)) == 0:
    sys.exit("No eclipse.")
eclipse = events.Blocks[14]
KINDS = {8: "total", 9: "annular", 10: "annular-total", 11: "non-central total",
         12: "non-central annular", 13: "partial"}
kind = next(name for block, name in KINDS.items() if events.Blocks[block].JulianDay != 0)
print(f"{eclipse.Year}-{eclipse.Month:02}-{eclipse.Day:02} {eclipse.Hour:02}:{eclipse.Minute:02}"
      f" {kind} solar eclipse")

# Days are counted from 2437299.5; longitude and zone are positive west here.
sunrise = rising(START - 2437299.5, 0, -ZONE, -LONGITUDE, LATITUDE, SUN, RISE)
if not sunrise > 0 or sunrise in (16, 32):  # 16: up all day, 32: down all day
    sys.exit("No sunrise.")
minutes = int(sunrise + 0.5)
print(f"Berlin {minutes // 60:02}:{minutes % 60:02} sunrise")

values_of_days = function(values, "ZenithorValues", c_int32, c_int32, c_int32, POINTER(c_double),
                          c_int32, POINTER(c_double))
calendar = function(values, "ZenithorCalendar", c_int32, c_double, c_double, POINTER(c_int32),
                    POINTER(c_double))
next_event = function(values, "ZenithorNextEventOfKinds", c_double, c_int32, c_double,
                      POINTER(c_int32))
kind_name = function(values, "ZenithorKindName", c_char_p, c_int32)
daily_time = function(values, "ZenithorDailyTime", c_double, c_int32, c_int32, *[c_double] * 4)
GEO_LONGITUDE = 4
SOLAR_ECLIPSES = 0x03F00  # bits 8 to 13


def date_of(julian_day, round_to=0):
    date = (c_int32 * 5)()
    if calendar(julian_day, round_to, date, None) != 0:
        sys.exit(f"{julian_day} has no calendar date.")
    return list(date)


print("Values")
days = (c_double * 5)(*[START + day for day in range(5)])
places = (c_double * 5)()
if values_of_days(MARS, GEO_LONGITUDE, days, 5, places) != 5:
    sys.exit("Not all values are numbers.")
for day, place in zip(days, places):
    year, month, day_of_month, _, _ = date_of(day)
    print(f"Mars {year}-{month:02}-{day_of_month:02} {place:.6f}")

kind = c_int32()
eclipse = next_event(SOLAR_ECLIPSES, START, byref(kind))
if math.isnan(eclipse):
    sys.exit("No eclipse.")
year, month, day, hour, minute = date_of(eclipse)
print(f"{year}-{month:02}-{day:02} {hour:02}:{minute:02} {kind_name(kind).decode()}")

sunrise = daily_time(SUN, RISE, START + 0.5, ZONE, LONGITUDE, LATITUDE)
if math.isnan(sunrise):
    sys.exit("No sunrise.")
_, _, _, hour, minute = date_of(sunrise + ZONE / 24, 60)
print(f"Berlin {hour:02}:{minute:02} sunrise")
