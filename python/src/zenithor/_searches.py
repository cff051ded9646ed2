"""When something happens: crossings, ingresses, stations, aspects; seasons, phases, eclipses."""
from __future__ import annotations

from dataclasses import dataclass, fields as dataclass_fields
from typing import TYPE_CHECKING, Any, Callable, List, Literal, Optional, Sequence, Tuple, TypeVar, Union, overload

import numpy as np
import numpy.typing as npt

from ._arrays import FloatArray
from ._codes import (
    Body,
    BodyLike,
    EventKind,
    Field,
    FieldLike,
    KindLike,
    body_of,
    codes_of,
    field_of,
    is_single,
    kind_set_of,
)
from ._library import FIRST_DAY, LAST_DAY, LIBRARY, raise_for, text
from ._times import MomentLike, datetime64, moment

if TYPE_CHECKING:
    import pandas as pd

IntArray = npt.NDArray[np.int32]
BodiesLike = Union[BodyLike, Sequence[BodyLike]]

# A search goes on from century to century, so that Python handles its signals in between.
_DAYS_PER_CALL = 36525.0


@dataclass(frozen=True, eq=False)
class Moments:
    """Moments found by a search, in the order of time.

    ``julian_day`` are Julian days of dynamical time (TT), ``time`` the same as clock time (UTC).
    """

    julian_day: FloatArray

    @property
    def time(self) -> "npt.NDArray[np.datetime64]":
        """Clock time (UTC; before 1972 universal time) as ``datetime64[ms]``, to the nearest millisecond."""
        answer: "npt.NDArray[np.datetime64]" = datetime64(self.julian_day)
        return answer

    def __len__(self) -> int:
        return len(self.julian_day)

    def frame(self) -> "pd.DataFrame":
        """A ``DataFrame`` with a row for each moment; bodies and kinds as words, ``time`` in UTC.

        Raises ``ValueError`` where pandas does not hold the time: before 1677 and after 2262, in
        pandas 1.
        """
        from ._frames import categories, pandas, utc_index, with_origin

        columns = {"time": utc_index(self.time, "time")}
        for field in dataclass_fields(self):
            values = getattr(self, field.name)
            if field.name in ("body", "other"):
                values = categories(values, [body.name.lower() for body in Body])
            elif field.name == "kind":
                values = categories(values, [kind.name.lower() for kind in EventKind])
            columns[field.name] = values
        frame = pandas().DataFrame(columns)
        return with_origin(frame, units={"julian_day": "day (TT)"})


@dataclass(frozen=True, eq=False)
class Events(Moments):
    """Seasons, phases, eclipses. ``kind`` holds numbers of :class:`EventKind`."""

    kind: IntArray


@dataclass(frozen=True, eq=False)
class Crossings(Moments):
    """Moments at which a field takes a value.

    ``body`` holds numbers of :class:`Body`, ``target`` the value, ``direction`` 1 where the field rises
    through it, -1 where it falls, 0 where it touches it.
    """

    body: IntArray
    target: FloatArray
    direction: IntArray


@dataclass(frozen=True, eq=False)
class Stations(Moments):
    """Moments at which a field turns. ``direction`` is 1 where it begins to rise (a planet turns direct),
    -1 where it begins to fall (it turns retrograde)."""

    body: IntArray
    direction: IntArray


@dataclass(frozen=True, eq=False)
class Aspects(Moments):
    """Moments at which two bodies stand at an angle: ``body`` less ``other`` is ``angle`` where ``direction``
    is 1, ``-angle`` where it is -1."""

    body: IntArray
    other: IntArray
    angle: FloatArray
    direction: IntArray


Found = TypeVar("Found", bound=Moments)


def _span(start: Any, end: Any, scale: Optional[str]) -> Tuple[float, float]:
    days = []
    for argument, value in (("start", start), ("end", end)):
        day = moment(value, scale, argument)
        if not FIRST_DAY <= day <= LAST_DAY:
            raise ValueError(
                f"{argument}: {value!r} is not a moment between the years -2000 and 4000 (Julian days "
                f"{FIRST_DAY} to {LAST_DAY})"
            )
        days.append(day)
    return days[0], days[1]


def _numbers(values: Any, argument: str) -> List[float]:
    """One finite number, or several, as a list."""
    single = is_single(values)
    numbers = []
    for k, value in enumerate([values] if single else values):
        if not isinstance(value, (int, float, np.number)) or isinstance(value, bool) or not np.isfinite(value):
            raise ValueError(f"{argument if single else f'{argument}[{k}]'}: {value!r} is not a finite number")
        numbers.append(float(value))
    return numbers


def _collect(
    ask: Callable[[float, float, int, int, int], int], start: float, end: float, question: str
) -> Tuple[FloatArray, IntArray]:
    """All moments of a span, and the code of each. ``ask`` calls the library with bounds, arrays, capacity."""
    days: List[FloatArray] = [np.empty(0)]
    codes: List[IntArray] = [np.empty(0, dtype=np.int32)]
    first = start
    while True:
        last = min(first + _DAYS_PER_CALL, end)
        capacity = 64 + int(max(last - first, 0.0) * 0.25)
        while True:
            found = np.empty(capacity)
            code = np.empty(capacity, dtype=np.int32)
            answer = ask(first, last, found.ctypes.data, code.ctypes.data, capacity)
            count = raise_for(answer, question)
            if count <= capacity:
                break
            capacity = count
        days.append(found[:count])
        codes.append(code[:count])
        if last >= end:
            return np.concatenate(days), np.concatenate(codes)
        first = last


def _in_order(kind: Callable[..., Found], parts: Sequence[Sequence[Any]]) -> Found:
    """The moments of several searches as one; of parts the first column is the days."""
    columns = [np.concatenate(column) for column in zip(*parts)]
    order = np.argsort(columns[0], kind="stable")
    return kind(*(column[order] for column in columns))


def _empty(columns: str) -> List[Any]:
    return [np.empty(0, dtype=np.float64 if letter == "d" else np.int32) for letter in columns]


def _same(value: int, like: Any) -> IntArray:
    return np.full(len(like), int(value), dtype=np.int32)


@overload
def events(
    start: MomentLike, end: MomentLike, kinds: Union[None, KindLike, Sequence[KindLike]] = ..., *,
    scale: Optional[str] = ..., frame: Literal[False] = ...,
) -> Events: ...


@overload
def events(
    start: MomentLike, end: MomentLike, kinds: Union[None, KindLike, Sequence[KindLike]] = ..., *,
    scale: Optional[str] = ..., frame: Literal[True],
) -> "pd.DataFrame": ...


def events(
    start: MomentLike,
    end: MomentLike,
    kinds: Union[None, KindLike, Sequence[KindLike]] = None,
    *,
    scale: Optional[str] = None,
    frame: bool = False,
) -> Any:
    """Equinoxes and solstices, phases of the Moon, eclipses of a span.

    Parameters
    ----------
    start, end
        The span: it holds ``start`` and not ``end``. Moments as :func:`julian_day` takes them, in the years
        -2000 to 4000.
    kinds
        One kind or a list: :class:`EventKind`, names, or the sets ``"seasons"``, ``"phases"``,
        ``"solar_eclipses"``, ``"lunar_eclipses"``, ``"eclipses"``, ``"all"``. ``None`` is all.
    frame
        Return a ``DataFrame``.

    Returns
    -------
    :class:`Events` with as many ``julian_day``, ``time`` and ``kind`` as there are events. None is missed and
    none given twice; an eclipse and the new or full moon of that day are two events.

    Raises
    ------
    ValueError
        No such kind, or a bound is no moment of these years.

    >>> import zenithor
    >>> eclipses = zenithor.events("2026", "2027", "solar_eclipses")
    >>> for time, kind in zip(eclipses.time, eclipses.kind):
    ...     print(time, zenithor.EventKind(kind).name)
    2026-02-17T12:12:46.946 SOLAR_ANNULAR
    2026-08-12T17:46:13.476 SOLAR_TOTAL
    """
    bits = kind_set_of(kinds)
    first, last = _span(start, end, scale)

    def ask(a: float, b: float, days: int, codes: int, capacity: int) -> int:
        answer: int = LIBRARY.EventsOfKinds(bits, a, b, days, codes, capacity)
        return answer

    found = Events(*_collect(ask, first, last, "events"))
    return found.frame() if frame else found


@overload
def crossings(
    bodies: BodiesLike, field: FieldLike, targets: Union[float, Sequence[float]], start: MomentLike,
    end: MomentLike, *, scale: Optional[str] = ..., frame: Literal[False] = ...,
) -> Crossings: ...


@overload
def crossings(
    bodies: BodiesLike, field: FieldLike, targets: Union[float, Sequence[float]], start: MomentLike,
    end: MomentLike, *, scale: Optional[str] = ..., frame: Literal[True],
) -> "pd.DataFrame": ...


def crossings(
    bodies: BodiesLike,
    field: FieldLike,
    targets: Union[float, Sequence[float]],
    start: MomentLike,
    end: MomentLike,
    *,
    scale: Optional[str] = None,
    frame: bool = False,
) -> Any:
    """The moments of a span at which a field of a body takes a value.

    Parameters
    ----------
    bodies
        One body or a list.
    field
        Any field that the bodies have: longitude, latitude (nodes: 0), declination (equator: 0), ...
    targets
        One value or a list, in the field's unit. Longitudes count modulo 360, right ascension modulo 24.
    start, end
        The span: it holds ``start`` and not ``end``; in the years -2000 to 4000.
    frame
        Return a ``DataFrame``.

    Returns
    -------
    :class:`Crossings`. Good to 1e-6 day of the library's own values where the field changes by more than 1e-4
    of its unit a day; contacts that only just happen are found.

    Raises
    ------
    ValueError
        No such body or field, one that the body has not, a target that is not finite, or a bound that is no
        moment of these years.

    >>> import zenithor
    >>> print(zenithor.crossings("moon", "declination", 0, "2026-11", "2026-12").time)
    ['2026-11-05T04:42:26.841' '2026-11-19T19:28:23.823']
    """
    found = _crossings(bodies, field_of(field), _numbers(targets, "targets"), _span(start, end, scale))
    return found.frame() if frame else found


def _crossings(
    bodies: Any, field: Field, targets: Sequence[float], span: Tuple[float, float]
) -> Crossings:
    body_codes, _ = codes_of(Body, "body", bodies, "bodies")
    parts: List[Sequence[Any]] = [_empty("didi")]
    for body in body_codes:
        for target in targets:
            days, directions = _crossings_of(body, field, target, *span)
            parts.append((days, _same(body, days), np.full(len(days), target), directions))
    return _in_order(Crossings, parts)


def _crossings_of(
    body: Body, field: Field, target: float, start: float, end: float
) -> Tuple[FloatArray, IntArray]:
    def ask(a: float, b: float, days: int, directions: int, capacity: int) -> int:
        answer: int = LIBRARY.DirectedCrossings(body, field, target, a, b, days, directions, capacity)
        return answer

    return _collect(ask, start, end, f"crossings of {body.name.lower()}, {field.name.lower()}")


@overload
def ingresses(
    bodies: BodiesLike, start: MomentLike, end: MomentLike, *, field: FieldLike = ...,
    scale: Optional[str] = ..., frame: Literal[False] = ...,
) -> Crossings: ...


@overload
def ingresses(
    bodies: BodiesLike, start: MomentLike, end: MomentLike, *, field: FieldLike = ...,
    scale: Optional[str] = ..., frame: Literal[True],
) -> "pd.DataFrame": ...


def ingresses(
    bodies: BodiesLike,
    start: MomentLike,
    end: MomentLike,
    *,
    field: FieldLike = Field.APPARENT_LONGITUDE,
    scale: Optional[str] = None,
    frame: bool = False,
) -> Any:
    """The moments of a span at which a body passes from one sign of the zodiac into another: at which its
    longitude takes a multiple of 30 degrees.

    Arguments, answer and errors are those of :func:`crossings`; ``target`` is the boundary, 0 for Aries, 30
    for Taurus and so on. Where ``direction`` is 1 the body enters the sign that begins there, where it is -1
    (retrograde) the sign before.

    >>> import zenithor
    >>> found = zenithor.ingresses("sun", "2026-01-01", "2026-04-01")
    >>> print(found.target, found.time.astype("M8[s]"))
    [300. 330.   0.] ['2026-01-20T01:44:54' '2026-02-18T15:51:54' '2026-03-20T14:45:56']
    """
    field_code = field_of(field)
    if LIBRARY.FieldPeriod(field_code) != 360.0:
        raise ValueError(f"field: {field_code.name.lower()} is no longitude, so it has no signs")
    found = _crossings(bodies, field_code, [30.0 * sign for sign in range(12)], _span(start, end, scale))
    return found.frame() if frame else found


@overload
def stations(
    bodies: BodiesLike, start: MomentLike, end: MomentLike, *, field: FieldLike = ...,
    scale: Optional[str] = ..., frame: Literal[False] = ...,
) -> Stations: ...


@overload
def stations(
    bodies: BodiesLike, start: MomentLike, end: MomentLike, *, field: FieldLike = ...,
    scale: Optional[str] = ..., frame: Literal[True],
) -> "pd.DataFrame": ...


def stations(
    bodies: BodiesLike,
    start: MomentLike,
    end: MomentLike,
    *,
    field: FieldLike = Field.APPARENT_LONGITUDE,
    scale: Optional[str] = None,
    frame: bool = False,
) -> Any:
    """The moments of a span at which a longitude or a declination turns.

    Parameters
    ----------
    bodies
        One body or a list. The longitudes of the Sun and the Moon never turn.
    start, end
        The span: it holds ``start`` and not ``end``; in the years -2000 to 4000.
    field
        ``apparent_longitude`` (stations as almanacs have them), ``geo_longitude``, ``helio_longitude``,
        ``declination`` (standstills).
    frame
        Return a ``DataFrame``.

    Returns
    -------
    :class:`Stations`. Good to 1e-6 day of where the rate of the library's own values changes sign; Uranus,
    Neptune and Pluto to 1e-5 day.

    Raises
    ------
    ValueError
        No such body or field, a field that cannot be searched so, or a bound that is no moment of these years.

    >>> import zenithor
    >>> found = zenithor.stations("mercury", "2026-01-01", "2026-07-01")
    >>> print(found.time.astype("M8[m]"), found.direction)
    ['2026-02-26T06:48' '2026-03-20T19:32' '2026-06-29T17:35'] [-1  1 -1]
    """
    body_codes, _ = codes_of(Body, "body", bodies, "bodies")
    field_code = field_of(field)
    first, last = _span(start, end, scale)
    parts: List[Sequence[Any]] = [_empty("dii")]
    for body in body_codes:
        days, directions = _stations_of(body, field_code, first, last)
        parts.append((days, _same(body, days), directions))
    found = _in_order(Stations, parts)
    return found.frame() if frame else found


def _stations_of(body: Body, field: Field, start: float, end: float) -> Tuple[FloatArray, IntArray]:
    def ask(a: float, b: float, days: int, directions: int, capacity: int) -> int:
        answer: int = LIBRARY.DirectedStations(body, field, a, b, days, directions, capacity)
        return answer

    return _collect(ask, start, end, f"stations of {body.name.lower()}, {field.name.lower()}")


@overload
def aspects(
    body: BodyLike, others: BodiesLike, angles: Union[float, Sequence[float]], start: MomentLike,
    end: MomentLike, *, field: FieldLike = ..., scale: Optional[str] = ..., frame: Literal[False] = ...,
) -> Aspects: ...


@overload
def aspects(
    body: BodyLike, others: BodiesLike, angles: Union[float, Sequence[float]], start: MomentLike,
    end: MomentLike, *, field: FieldLike = ..., scale: Optional[str] = ..., frame: Literal[True],
) -> "pd.DataFrame": ...


def aspects(
    body: BodyLike,
    others: BodiesLike,
    angles: Union[float, Sequence[float]],
    start: MomentLike,
    end: MomentLike,
    *,
    field: FieldLike = Field.APPARENT_LONGITUDE,
    scale: Optional[str] = None,
    frame: bool = False,
) -> Any:
    """The moments of a span at which a body and another stand at an angle.

    Parameters
    ----------
    body, others
        A body, and one or several others.
    angles
        [deg] one or several: 0 conjunction, 90 square, 120 trine, 180 opposition, any other. Both ways round
        are found: ``body`` less ``other`` is the angle (``direction`` 1) or its negative (-1).
    start, end
        The span: it holds ``start`` and not ``end``; in the years -2000 to 4000.
    field
        ``apparent_longitude``, ``geo_longitude``, ``helio_longitude``, or ``declination``, where 0 is the
        parallel.
    frame
        Return a ``DataFrame``.

    Returns
    -------
    :class:`Aspects`, good to 1e-6 day; contacts that only just happen, before a station, are found.

    Raises
    ------
    ValueError
        No such body or field, a body with itself, an angle that is not finite, or a bound that is no moment of
        these years.

    >>> import zenithor
    >>> print(zenithor.aspects("jupiter", "saturn", 0, "2020", "2021").time.astype("M8[m]"))
    ['2020-12-21T18:20']
    """
    body_code = body_of(body)
    other_codes, _ = codes_of(Body, "body", others, "others")
    field_code = field_of(field)
    values = _numbers(angles, "angles")
    first, last = _span(start, end, scale)
    parts: List[Sequence[Any]] = [_empty("diidi")]
    for other in other_codes:
        for angle in values:
            days, directions = _aspects_of(body_code, other, field_code, angle, first, last)
            parts.append((days, _same(body_code, days), _same(other, days), np.full(len(days), angle), directions))
    found = _in_order(Aspects, parts)
    return found.frame() if frame else found


def _aspects_of(
    body: Body, other: Body, field: Field, angle: float, start: float, end: float
) -> Tuple[FloatArray, IntArray]:
    def ask(a: float, b: float, days: int, directions: int, capacity: int) -> int:
        answer: int = LIBRARY.DirectedAspects(body, other, field, angle, a, b, days, directions, capacity)
        return answer

    question = f"aspects of {body.name.lower()} and {other.name.lower()}, {field.name.lower()}"
    return _collect(ask, start, end, question)


def kind_name(kind: KindLike) -> str:
    """A kind of event in words.

    >>> import zenithor
    >>> zenithor.kind_name("solar_total")
    'total solar eclipse'
    """
    from ._codes import code_of

    return text(LIBRARY.KindName(code_of(EventKind, "kind of event", kind, "kind")))
