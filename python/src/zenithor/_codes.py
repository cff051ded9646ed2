"""Bodies, fields, kinds of events: enumerations with the numbers of ``values.h``."""
from __future__ import annotations

from enum import IntEnum
from typing import Any, Optional, Sequence, Tuple, Type, TypeVar, Union

import numpy as np

from ._library import LIBRARY, text


class Body(IntEnum):
    """A body. Wherever one is taken, its name in any case (``"mars"``) or its number does as well."""

    SUN = 0
    MERCURY = 1
    VENUS = 2
    EARTH = 3
    MARS = 4
    JUPITER = 5
    SATURN = 6
    URANUS = 7
    NEPTUNE = 8
    PLUTO = 9
    MOON = 10


class Field(IntEnum):
    """A value of a body at a moment.

    Wherever one is taken, its name in any case (``"apparent_longitude"``, ``"apparent longitude"``) or its
    number does as well. :func:`unit` and :func:`has_field` say what it is measured in and whether a body has it.

    ``GEO_LONGITUDE`` and ``GEO_LATITUDE`` are geometric for the Sun and the planets: where they were when
    nothing but geometry counts. Almanacs print ``APPARENT_LONGITUDE`` and ``APPARENT_LATITUDE``: light time,
    aberration and nutation are in.
    """

    HELIO_LONGITUDE = 1  # [deg] 0 to 360
    HELIO_LATITUDE = 2  # [deg]
    HELIO_DISTANCE = 3  # [au]
    GEO_LONGITUDE = 4  # [deg] 0 to 360
    GEO_LATITUDE = 5  # [deg]
    GEO_DISTANCE = 6  # [au], the Moon [km]
    RIGHT_ASCENSION = 7  # [h] apparent, 0 to 24
    DECLINATION = 8  # [deg] apparent
    MOON_PHASE_ANGLE = 9  # [rad] 0 to pi
    MOON_AXIS_ANGLE = 10  # [rad] position angle of the axis
    MOON_ILLUMINATION = 15  # illuminated fraction of the disc, 0 to 1
    OBLIQUITY = 16  # [rad] mean obliquity of the ecliptic of date
    CENTURIES = 17  # [Julian centuries] from J2000.0
    YEAR = 18  # of the moment's date in dynamical time; year 0 is 1 BC
    MONTH = 19
    DAY = 20
    HOUR = 21
    MINUTE = 22
    SECOND = 23
    APPARENT_LONGITUDE = 101  # [deg] 0 to 360
    APPARENT_LATITUDE = 102  # [deg]
    LONGITUDE_MOTION = 103  # [deg/day] of the apparent longitude
    DECLINATION_MOTION = 104  # [deg/day]
    ELONGATION = 105  # [deg] from the Sun, 0 to 180
    DIRECTION = 106  # 1 direct, -1 retrograde


class EventKind(IntEnum):
    """A kind of event. Its name in any case (``"full_moon"``) or its number does as well."""

    MARCH_EQUINOX = 0
    JUNE_SOLSTICE = 1
    SEPTEMBER_EQUINOX = 2
    DECEMBER_SOLSTICE = 3
    NEW_MOON = 4
    FIRST_QUARTER = 5
    FULL_MOON = 6
    LAST_QUARTER = 7
    SOLAR_TOTAL = 8
    SOLAR_ANNULAR = 9
    SOLAR_ANNULAR_TOTAL = 10
    SOLAR_TOTAL_NONCENTRAL = 11
    SOLAR_ANNULAR_NONCENTRAL = 12
    SOLAR_PARTIAL = 13
    SOLAR_ANY = 14
    LUNAR_TOTAL = 15
    LUNAR_PARTIAL = 16
    LUNAR_PENUMBRAL = 17
    LUNAR_ANY = 18


# Kinds that are asked for together.
KIND_SETS = {
    "seasons": 0x0000F,
    "phases": 0x000F0,
    "solar_eclipses": 0x03F00,
    "lunar_eclipses": 0x38000,
    "eclipses": 0x3BF00,
    "all": 0x3BFFF,
}


class RiseStatus(IntEnum):
    """What there is to say of a rise, transit or set on a day."""

    HAPPENS = 0  # its time is given
    ALWAYS_UP = 1  # the body stays above the horizon
    NEVER_UP = 2  # it stays below, the transit too
    NONE = 3  # not on this day, but on the days before and after
    UNSETTLED = 4  # no time can be told: an argument is not a number, or the places are none


BodyLike = Union[Body, int, str]
FieldLike = Union[Field, int, str]
KindLike = Union[EventKind, int, str]
Code = TypeVar("Code", bound=IntEnum)


def _plain(name: str) -> str:
    return "_".join(name.replace("-", " ").replace("_", " ").lower().split())


def code_of(codes: Type[Code], what: str, value: Any, where: str, names: Sequence[str] = ()) -> Code:
    """The code that is meant. ``where`` names the argument or element in the message."""
    if isinstance(value, codes):
        return value
    if isinstance(value, str):
        found = codes.__members__.get(_plain(value).upper())
        if found is not None:
            return found
    elif isinstance(value, (int, np.integer)) and not isinstance(value, (bool, IntEnum)):
        try:
            return codes(int(value))
        except ValueError:
            pass
    known = list(names) + [name.lower() for name in codes.__members__]
    raise ValueError(f"{where}: there is no {what} {value!r}; there are {', '.join(known)}")


def is_single(value: Any) -> bool:
    """Whether one code is given and not a sequence of them."""
    return isinstance(value, (str, int, np.integer)) or np.ndim(value) == 0


def codes_of(codes: Type[Code], what: str, values: Any, argument: str) -> Tuple[Tuple[Code, ...], bool]:
    """The codes of one or of several, and whether it is one alone."""
    if is_single(values):
        return (code_of(codes, what, values, argument),), True
    if np.ndim(values) > 1:
        raise ValueError(f"{argument}: one {what} or a list of them, not {np.ndim(values)} dimensions")
    found = tuple(code_of(codes, what, value, f"{argument}[{k}]") for k, value in enumerate(values))
    return found, False


def body_of(value: Any, argument: str = "body") -> Body:
    return code_of(Body, "body", value, argument)


def field_of(value: Any, argument: str = "field") -> Field:
    return code_of(Field, "field", value, argument)


def kind_set_of(kinds: Any) -> int:
    """The bits of the kinds that are meant; ``None`` means all."""
    if kinds is None:
        return KIND_SETS["all"]
    single = is_single(kinds)
    bits = 0
    for k, kind in enumerate([kinds] if single else kinds):
        named = KIND_SETS.get(_plain(kind)) if isinstance(kind, str) else None
        where = "kinds" if single else f"kinds[{k}]"
        bits |= named or 1 << code_of(EventKind, "kind of event", kind, where, list(KIND_SETS))
    if bits == 0:
        raise ValueError("kinds: at least one kind of event is needed")
    return bits


def unit(body: BodyLike, field: FieldLike) -> Optional[str]:
    """The unit of a field of a body: ``"deg"``, ``"rad"``, ``"h"``, ``"au"``, ``"km"``, ``"deg/day"``,
    ``"century"``, ``""`` for a plain number, ``None`` when the body has not the field.

    >>> import zenithor
    >>> zenithor.unit("mars", "geo_distance"), zenithor.unit("moon", "geo_distance")
    ('au', 'km')
    """
    answer = LIBRARY.FieldUnit(body_of(body), field_of(field))
    return None if answer is None else text(answer)


def has_field(body: BodyLike, field: FieldLike) -> bool:
    """Whether a body has a field; where it has not, the values are NaN.

    >>> import zenithor
    >>> zenithor.has_field("earth", "apparent_longitude")
    False
    """
    return bool(LIBRARY.HasField(body_of(body), field_of(field)))
