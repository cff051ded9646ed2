"""``python -m zenithor [today] [--date DATE]``: places of all bodies at a moment, as the almanac prints those of
the main library."""
from __future__ import annotations

import argparse
import ctypes
import math
import re
import sys
import time
from typing import List, Optional, Sequence, Tuple

import numpy as np

from ._codes import Body, Field
from ._library import LIBRARY
from ._positions import table

PLANETS = [Body.SUN, Body.MERCURY, Body.VENUS, Body.EARTH, Body.MARS, Body.JUPITER, Body.SATURN, Body.URANUS,
           Body.NEPTUNE, Body.PLUTO]

# A column: the words of its heading, its unit, its decimals, the field, and what its value is multiplied by.
Column = Tuple[str, str, int, Field, float]

_DEGREES = 57.29577951308232
_GEO_LONGITUDE: Column = ("geo longitude", "deg", 6, Field.GEO_LONGITUDE, 1.0)
_GEO_LATITUDE: Column = ("geo latitude", "deg", 6, Field.GEO_LATITUDE, 1.0)
_RIGHT_ASCENSION: Column = ("right ascension", "h", 7, Field.RIGHT_ASCENSION, 1.0)
_DECLINATION: Column = ("declination", "deg", 6, Field.DECLINATION, 1.0)

PLANET_COLUMNS: List[Column] = [
    ("helio longitude", "deg", 6, Field.HELIO_LONGITUDE, 1.0),
    ("helio latitude", "deg", 6, Field.HELIO_LATITUDE, 1.0),
    ("helio distance", "au", 8, Field.HELIO_DISTANCE, 1.0),
    _GEO_LONGITUDE,
    _GEO_LATITUDE,
    ("geo distance", "au", 8, Field.GEO_DISTANCE, 1.0),
    _RIGHT_ASCENSION,
    _DECLINATION,
]
MOON_COLUMNS: List[Column] = [
    _GEO_LONGITUDE,
    _GEO_LATITUDE,
    _RIGHT_ASCENSION,
    _DECLINATION,
    ("moon distance", "km", 3, Field.GEO_DISTANCE, 1.0),
    ("phase angle", "deg", 5, Field.MOON_PHASE_ANGLE, _DEGREES),
    ("axis angle", "deg", 5, Field.MOON_AXIS_ANGLE, _DEGREES),
    ("illuminated fraction", "", 6, Field.MOON_ILLUMINATION, 1.0),
]

HEAD = """\
Places at {}, dynamical time (TT) (JD {:.6f} TT)
Heliocentric: ecliptic of date, with nutation (Pluto without). Geocentric longitude,
latitude and distance: ecliptic of date; Sun and planets geometric, Pluto and Moon with
nutation, Pluto apparent. Right ascension and declination: apparent, equator of date.
"""
NOTES = """\
Phase angle and position angle of the Moon's axis are shown in degrees; the fields MoonPhaseAngle,
MoonAxisPositionAngle and Obliquity of the record are in radians. The Moon's distance is in km."""

# Within them Pluto keeps to its orbit.
FIRST_PLUTO_YEAR, LAST_PLUTO_YEAR = -3100, 3100
FIRST_YEAR, END_YEAR = -4712, 10000


def _calendar(day: float) -> Tuple[str, int]:
    """The date and time of day to the nearest second, and the year."""
    date = (ctypes.c_int32 * 5)()
    second = ctypes.c_double()
    LIBRARY.Calendar(day, 1.0, ctypes.addressof(date), ctypes.addressof(second))
    year, month, day_of_month, hour, minute = date
    sign = "-" if year < 0 else ""
    shown = f"{sign}{abs(year):04}-{month:02}-{day_of_month:02} {hour:02}:{minute:02}:{int(second.value):02}"
    return shown, year


def _day_of(text: str) -> float:
    """The Julian day of what --date takes."""
    julian = re.fullmatch(r"\s*jd\s*([-+]?[0-9]+(\.[0-9]*)?)\s*", text, re.IGNORECASE)
    calendar = re.fullmatch(
        r"\s*([-+]?[0-9]{1,6})-([0-9]{1,2})-([0-9]{1,2})([ T]([0-9]{1,2}):([0-9]{2})(:([0-9]{2}(\.[0-9]*)?))?)?\s*",
        text,
    )
    if julian:
        day = float(julian.group(1))
    elif calendar:
        year, month, day_of_month, hour, minute = (int(calendar.group(k) or 0) for k in (1, 2, 3, 5, 6))
        second = float(calendar.group(8) or 0)
        day = LIBRARY.JulianDay(year, month, day_of_month, hour, minute, second)
        if math.isnan(day) or second >= 60:
            raise argparse.ArgumentTypeError(f'"{text}": there is no such date or time of day')
    else:
        raise argparse.ArgumentTypeError(
            f'"{text}": not a date; write 2026-11-21, 2026-11-21T06:30:00 or "jd 2461365.75"'
        )
    first, end = (LIBRARY.JulianDay(year, 1, 1, 0, 0, 0.0) for year in (FIRST_YEAR, END_YEAR))
    if not first <= day <= end:
        raise argparse.ArgumentTypeError(f'"{text}": dates go from {FIRST_YEAR}-01-01 to {END_YEAR}-01-01')
    return float(day)


def _table_text(bodies: Sequence[Body], columns: Sequence[Column], day: float) -> str:
    values = table(bodies, [column[3] for column in columns], np.array([day]))[0]
    headings = [["body", ""]] + [column[0].split() + [column[1]] for column in columns]
    height = max(len(heading) for heading in headings)
    rows = [[""] * (height - len(heading)) + heading for heading in headings]
    rows = [list(row) for row in zip(*rows)]
    for body, line in zip(bodies, values):
        cells = [body.name.capitalize()]
        for value, (_, _, decimals, _, factor) in zip(line, columns):
            cells.append("-" if math.isnan(value) else f"{value * factor:.{decimals}f}")
        rows.append(cells)
    widths = [max(len(row[k]) for row in rows) for k in range(len(columns) + 1)]
    lines = []
    for row in rows:
        cells = [row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
        lines.append("  ".join(cells).rstrip())
    return "\n".join(lines) + "\n"


def today(day: float) -> str:
    """The places of all bodies at a Julian day of dynamical time, as text."""
    date, year = _calendar(day)
    parts = [
        HEAD.format(date, day),
        _table_text(PLANETS, PLANET_COLUMNS, day),
        _table_text([Body.MOON], MOON_COLUMNS, day),
    ]
    notes = NOTES
    if not FIRST_PLUTO_YEAR <= year <= LAST_PLUTO_YEAR:
        notes = (f"Pluto's series holds no orbit outside the years {FIRST_PLUTO_YEAR} to {LAST_PLUTO_YEAR}.\n"
                 + notes)
    return "\n".join(parts + [notes])


def main(arguments: Optional[Sequence[str]] = None) -> int:
    parser = argparse.ArgumentParser(prog="python -m zenithor", description="Places of all bodies at a moment.")
    parser.add_argument("command", nargs="?", choices=["today"], default="today")
    parser.add_argument(
        "--date",
        type=_day_of,
        metavar="DATE",
        help='2026-11-21, 2026-11-21T06:30:00 or "jd 2461365.75", in dynamical time; else now',
    )
    words = list(sys.argv[1:] if arguments is None else arguments)
    if "--date" in words[:-1]:  # a date before Christ begins like an option
        k = words.index("--date")
        words[k : k + 2] = [f"--date={words[k + 1]}"]
    options = parser.parse_args(words)
    day = options.date if options.date is not None else LIBRARY.ClockToDynamical(2440587.5 + time.time() / 86400.0)
    print(today(day))
    return 0


if __name__ == "__main__":
    sys.exit(main())
