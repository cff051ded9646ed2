"""Moments: from what users hand over to Julian days of dynamical time (TT), and back.

Dates and times are clock time (UTC); numbers are Julian days of dynamical time, as the library takes
them. ``scale`` says otherwise.
"""
from __future__ import annotations

from datetime import date, datetime, timezone
from numbers import Real
from typing import Any, Optional, Sequence, Tuple, Union

import numpy as np
import numpy.typing as npt

from ._arrays import FloatArray, listed_floats
from ._library import LIBRARY

MomentLike = Union[float, str, date, np.datetime64, None]
TimesLike = Union[MomentLike, Sequence[Any], npt.NDArray[Any], Any]

_EPOCH = 2440587.5  # Julian day of 1970 January 1, 0h
_PER_DAY = {
    "h": 24,
    "m": 1440,
    "s": 86400,
    "ms": 86400_000,
    "us": 86400_000_000,
    "ns": 86400_000_000_000,
}
_FIRST_LEAP_PERIOD = 2441317.5  # 1972 January 1: from here on UTC, in steps of whole seconds
_leap_table: Optional[Tuple[FloatArray, FloatArray]] = None


def _leap_periods() -> Tuple[FloatArray, FloatArray]:
    """Where TT - UTC steps, and what it is from there on [s], asked from the library once.

    A leap second stands at the end of a month.
    """
    global _leap_table
    if _leap_table is None:
        months = np.arange("1972-01", "2101-01", dtype="M8[M]").astype("M8[D]").astype(np.int64)
        starts: FloatArray = (months + _EPOCH).astype(np.float64)
        seconds = np.array([LIBRARY.DynamicalLessClock(start) for start in listed_floats(starts)])
        steps = np.flatnonzero(np.diff(seconds, prepend=np.nan) != 0)
        _leap_table = starts[steps], seconds[steps]
    return _leap_table


def clock_to_dynamical(days: FloatArray) -> FloatArray:
    """``ZenithorClockToDynamical`` of each day, to the bit."""
    flat = days.ravel()
    answers = np.full_like(flat, np.nan)
    plain = (flat >= _FIRST_LEAP_PERIOD) & (flat <= 1e8)
    if plain.any():
        starts, seconds = _leap_periods()
        chosen = flat[plain]
        periods = np.searchsorted(starts, chosen, side="right") - 1
        answers[plain] = chosen + seconds[periods] / 86400.0
    other = ~plain & ~np.isnan(flat)
    if other.any():
        convert = LIBRARY.ClockToDynamical
        answers[other] = [convert(day) for day in listed_floats(flat[other])]
    return answers.reshape(days.shape)


def dynamical_to_clock(days: FloatArray) -> FloatArray:
    """``ZenithorDynamicalToClock`` of each day."""
    convert = LIBRARY.DynamicalToClock
    answers = np.array([convert(day) for day in listed_floats(days.ravel())], dtype=np.float64)
    return answers.reshape(days.shape)


def days_of_datetime64(times: npt.NDArray[Any]) -> FloatArray:
    """Julian days of ``datetime64`` in the same time scale; NaT becomes NaN.

    The Julian day counts days, so no calendar matters: ``datetime64`` is Gregorian throughout.
    """
    unit = np.datetime_data(times.dtype)[0]
    if unit in ("ps", "fs", "as"):
        unit = "ns"
    elif unit not in _PER_DAY:
        unit = "D"
    missing = np.isnat(times)
    counts = times.astype(f"M8[{unit}]").astype(np.int64)
    if unit == "D":
        days = counts + _EPOCH
    else:
        whole, rest = np.divmod(counts, _PER_DAY[unit])
        days = (whole + _EPOCH) + rest / _PER_DAY[unit]
    return np.where(missing, np.nan, days)


def datetime64_of_days(days: FloatArray) -> npt.NDArray[np.datetime64]:
    """Times in milliseconds of Julian days of the same time scale; NaN becomes NaT.

    A Julian day holds 0.04 ms.
    """
    known = np.abs(days) < 1e11  # some 270 million years, what datetime64[ms] holds
    whole = np.floor(np.where(known, days, 0.0) - 0.5)
    rest = np.where(known, days, 0.5) - 0.5 - whole
    milliseconds = (whole - (_EPOCH - 0.5)) * 86400e3 + np.rint(rest * 86400e3)
    return np.where(known, milliseconds.astype(np.int64).astype("M8[ms]"), np.datetime64("NaT", "ms"))


def _time_of_text(text: str, where: str) -> np.datetime64:
    stripped = text.strip()
    try:
        zoned = stripped[-1:] in "zZ" or "+" in stripped or "-" in stripped.partition("T")[2]
        if stripped and zoned:
            moment = datetime.fromisoformat(stripped[:-1] + "+00:00" if stripped[-1] in "zZ" else stripped)
            return np.datetime64(moment.astimezone(timezone.utc).replace(tzinfo=None))
        if stripped and stripped.lower() not in ("now", "today"):
            return np.datetime64(stripped)
    except ValueError:
        pass
    raise ValueError(f"{where}: {text!r} is not a date or time; write 2026-11-21, 2026-11-21T06:30 or "
                     "2026-11-21T06:30+01:00")


def _day_of_object(value: Any, where: str) -> Tuple[float, bool]:
    """The Julian day of one element, and whether it is a number."""
    if value is None:
        return np.nan, False
    if hasattr(value, "to_datetime64"):  # pandas.Timestamp and NaT, in universal time
        time = value.to_datetime64()
    elif isinstance(value, datetime):
        aware = value.tzinfo is not None
        time = np.datetime64(value.astimezone(timezone.utc).replace(tzinfo=None) if aware else value)
    elif isinstance(value, (date, np.datetime64)):
        time = np.datetime64(value)
    elif isinstance(value, str):
        time = _time_of_text(value, where)
    elif isinstance(value, Real) and not isinstance(value, (bool, np.bool_)):
        return float(value), True
    else:
        raise ValueError(f"{where}: {value!r} is not a moment; a date, a time, an ISO text or a Julian day is")
    return float(days_of_datetime64(np.asarray(time))), False


def _check_scale(scale: Optional[str]) -> None:
    if scale not in (None, "tt", "utc"):
        raise ValueError(f'scale: {scale!r} is neither "tt" (dynamical time) nor "utc" (clock time)')


def _array_of(times: Any) -> npt.NDArray[Any]:
    """The times as an array, without losing a time zone: pandas objects hand out universal time."""
    if isinstance(times, np.ndarray):
        return times
    if hasattr(times, "dtype") and hasattr(times, "values"):  # pandas Index and Series
        return np.asarray(times.values)
    if isinstance(times, (str, date)) or hasattr(times, "to_datetime64"):
        lone = np.empty((), dtype=object)
        lone[()] = times
        return lone
    if isinstance(times, (list, tuple)) and any(
        isinstance(value, (str, date)) or value is None for value in times
    ):
        column = np.empty(len(times), dtype=object)
        column[:] = times
        return column
    return np.asarray(times)


def julian_days(times: Any, scale: Optional[str], argument: str = "times") -> FloatArray:
    """Julian days of dynamical time, in the shape of ``times``."""
    _check_scale(scale)
    array = _array_of(times)
    kind = array.dtype.kind
    if kind == "M":
        days = days_of_datetime64(array)
        return days if scale == "tt" else clock_to_dynamical(days)
    if kind in "fiu":
        days = np.ascontiguousarray(array, dtype=np.float64).reshape(array.shape)
        return clock_to_dynamical(days) if scale == "utc" else days
    if kind in "OU":
        days = np.empty(array.shape)
        clock = np.empty(array.shape, dtype=bool)
        for index in np.ndindex(array.shape):
            where = f"{argument}[{', '.join(map(str, index))}]" if index else argument
            days[index], number = _day_of_object(array[index], where)
            clock[index] = scale == "utc" or (scale is None and not number)
        return np.where(clock, clock_to_dynamical(days), days)
    raise ValueError(f"{argument}: an array of {array.dtype} holds no moments; dates, times, ISO texts and "
                     "Julian days are taken")


def moment(time: Any, scale: Optional[str], argument: str) -> float:
    """The Julian day of a single moment."""
    days = julian_days(time, scale, argument)
    if days.ndim:
        raise ValueError(f"{argument}: one moment is needed, not an array of shape {days.shape}")
    return float(days)


def julian_day(times: TimesLike, *, scale: Optional[str] = None) -> Any:
    """Julian days of dynamical time (TT) of moments.

    Parameters
    ----------
    times
        One moment or an array of any shape: dates, times, ``datetime64``, a pandas ``DatetimeIndex`` or
        ``Series``, ISO texts, Julian days. A time without a zone is UTC.
    scale
        ``"utc"`` or ``"tt"``: what the moments are given in. By default dates and times are clock time (UTC;
        before 1972 universal time) and numbers are Julian days of dynamical time.

    Returns
    -------
    float or float64 array in the shape of ``times``; NaN for NaT, NaN and ``None``, and for clock times
    beyond day 1e8 either way.

    Raises
    ------
    ValueError
        An element is no moment; the message says which.

    >>> import zenithor
    >>> zenithor.julian_day("2000-01-01T11:58:55.816")
    2451545.0
    """
    days = julian_days(times, scale)
    return days if days.ndim else float(days)


def datetime64(julian_days: Any, *, scale: str = "utc") -> Any:
    """Times as ``datetime64[ms]`` of Julian days of dynamical time (TT).

    Parameters
    ----------
    julian_days
        Numbers of any shape.
    scale
        ``"utc"`` gives clock time, ``"tt"`` leaves dynamical time.

    Returns
    -------
    ``datetime64[ms]`` in the same shape, to the nearest millisecond; NaT for NaN and for what clock or
    ``datetime64`` do not reach.

    >>> import zenithor
    >>> print(zenithor.datetime64(2451545.0))
    2000-01-01T11:58:55.816
    """
    _check_scale(scale)
    days = np.asarray(julian_days, dtype=np.float64)
    answer = datetime64_of_days(dynamical_to_clock(days) if scale == "utc" else days)
    return answer if answer.ndim else answer[()]
