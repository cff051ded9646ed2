"""When a body rises, crosses the meridian and sets on a civil day."""
from __future__ import annotations

from dataclasses import dataclass
from datetime import datetime, timedelta
from typing import TYPE_CHECKING, Any, Literal, Optional, Tuple, Union, overload

import numpy as np
import numpy.typing as npt

from ._arrays import FloatArray, listed_ints
from ._codes import Body, BodyLike, RiseStatus, body_of
from ._library import LIBRARY, raise_for
from ._times import TimesLike, _array_of, datetime64_of_days, days_of_datetime64, julian_days

if TYPE_CHECKING:
    import pandas as pd

NumbersLike = Union[float, "npt.ArrayLike"]


@dataclass(frozen=True, eq=False)
class RiseTransitSet:
    """Rise, transit and set of days: the last axis of each array is these three.

    ``julian_day`` are Julian days of universal time, NaN where there is no time; ``status`` holds numbers of
    :class:`RiseStatus`.
    """

    julian_day: FloatArray
    status: npt.NDArray[np.int32]

    @property
    def time(self) -> "npt.NDArray[np.datetime64]":
        """Universal time, which clocks show (UTC), as ``datetime64[ms]``; NaT where there is no time."""
        return datetime64_of_days(self.julian_day)

    @property
    def rise(self) -> "npt.NDArray[np.datetime64]":
        return self.time[..., 0]

    @property
    def transit(self) -> "npt.NDArray[np.datetime64]":
        return self.time[..., 1]

    @property
    def set(self) -> "npt.NDArray[np.datetime64]":
        return self.time[..., 2]


def _aware_days(array: Any) -> Optional[Tuple[FloatArray, FloatArray]]:
    """Of datetimes with a zone: their civil days, and how far their clocks are ahead [h]."""
    days = np.empty(array.shape)
    zones = np.empty(array.shape)
    for index in np.ndindex(array.shape):
        value = array[index]
        offset = value.utcoffset() if isinstance(value, datetime) else None
        if offset is None:
            return None
        days[index] = days_of_datetime64(np.asarray(np.datetime64(value.replace(tzinfo=None), "us")))
        zones[index] = offset / timedelta(hours=1)
    return days, zones


def _civil_days(days: Any, zone: Any) -> Tuple[FloatArray, FloatArray]:
    """Moments of universal time in the middle of the civil days, and the zones [h]."""
    hours = np.asarray(0.0 if zone is None else zone, dtype=np.float64)
    aware = None
    if zone is None:
        values = days.astype(object) if getattr(getattr(days, "dtype", None), "tz", None) is not None else days
        array = _array_of(values)
        aware = _aware_days(array) if array.dtype.kind == "O" and array.size else None
    if aware is not None:
        local, hours = aware
    else:
        local = julian_days(days, "tt", "days")  # a calendar date as it stands
        if _array_of(days).dtype.kind in "fiu":
            local = local + hours / 24.0
    local, hours = np.broadcast_arrays(local, hours)
    return np.floor(local + 0.5) - hours / 24.0, hours


@overload
def rise(
    body: BodyLike, days: TimesLike, latitude: NumbersLike, longitude: NumbersLike, *,
    zone: Optional[NumbersLike] = ..., frame: Literal[False] = ...,
) -> RiseTransitSet: ...


@overload
def rise(
    body: BodyLike, days: TimesLike, latitude: NumbersLike, longitude: NumbersLike, *,
    zone: Optional[NumbersLike] = ..., frame: Literal[True],
) -> "pd.DataFrame": ...


def rise(
    body: BodyLike,
    days: TimesLike,
    latitude: NumbersLike,
    longitude: NumbersLike,
    *,
    zone: Optional[NumbersLike] = None,
    frame: bool = False,
) -> Any:
    """When a body rises, crosses the meridian and sets on civil days.

    Parameters
    ----------
    body
        Any but the Earth.
    days
        One day or an array: dates (a time of day changes nothing), or Julian days of universal time.
    latitude, longitude
        [deg] of the observer, north and east positive; latitudes from -90 to 90.
    zone
        [h] the day is that of a clock so much ahead of universal time: 1 Berlin in winter, -5 New York. By
        default that of times with a zone, else 0. All of ``days``, ``latitude``, ``longitude`` and ``zone``
        broadcast against one another.
    frame
        Return a ``DataFrame`` with a row for each day; all else is then of one dimension at most.

    Returns
    -------
    :class:`RiseTransitSet` of the broadcast shape and a last axis of three. The centre of the body, the upper
    limb of Sun and Moon, at the horizon with 34' refraction; within 2 minutes of published tables up to latitude
    60. Where an argument is NaN or NaT, NaN with ``RiseStatus.UNSETTLED``.

    Raises
    ------
    ValueError
        No such body, a latitude beyond 90 (the message says which), an infinite longitude or zone.

    >>> import zenithor
    >>> day = zenithor.rise("sun", "2026-11-21", 59.33, 18.07, zone=1)
    >>> print(day.rise.astype("M8[m]"), day.set.astype("M8[m]"))
    2026-11-21T06:55 2026-11-21T14:10
    """
    code = body_of(body)
    if code == Body.EARTH:
        raise ValueError("body: the Earth does not rise")
    moments, zones = _civil_days(days, zone)
    inputs = np.broadcast_arrays(
        moments, zones, np.asarray(longitude, dtype=np.float64), np.asarray(latitude, dtype=np.float64)
    )
    shape = inputs[0].shape
    columns = [np.ascontiguousarray(column, dtype=np.float64).ravel() for column in inputs]
    for name, column in zip(("days", "zone", "longitude", "latitude"), columns):
        wrong = np.flatnonzero(np.isinf(column) if name != "latitude" else np.abs(column) > 90.0)
        if wrong.size:
            where = ", ".join(str(int(k)) for k in np.unravel_index(wrong[0], shape))
            place = f"{name}[{where}]" if shape else name
            limit = "from -90 to 90" if name == "latitude" else "finite"
            raise ValueError(f"{place}: {column[wrong[0]]} is not {limit}")
    julian_day = np.full((len(columns[0]), 3), np.nan)
    status = np.full((len(columns[0]), 3), int(RiseStatus.UNSETTLED), dtype=np.int32)
    known = np.flatnonzero(~np.isnan(np.array(columns)).any(axis=0))
    for k in listed_ints(known):
        answer = LIBRARY.Daily(code, *(float(column[k]) for column in columns), julian_day[k].ctypes.data,
                               status[k].ctypes.data)
        raise_for(answer, "rise")
    found = RiseTransitSet(julian_day.reshape(shape + (3,)), status.reshape(shape + (3,)))
    return _frame(found, days, code) if frame else found


def _frame(found: RiseTransitSet, days: Any, body: Body) -> "pd.DataFrame":
    from ._frames import categories, pandas, row_index, utc_index, with_origin

    rows = found.julian_day.reshape(-1, 3)
    if found.julian_day.ndim > 2:
        raise ValueError("frame: days, latitude, longitude and zone together have one dimension at most")
    pd = pandas()
    index = row_index(days, julian_days(days, "tt", "days").ravel())
    if len(index) != len(rows):
        raise ValueError("frame: there is one row a day; give as many days as places or zones")
    index = index.rename("day") if index.name is None else index
    zone = getattr(index, "tz", None) or "UTC"
    columns = {}
    for k, name in enumerate(("rise", "transit", "set")):
        columns[name] = utc_index(datetime64_of_days(rows[:, k]), name).tz_convert(zone)
        words = [status.name.lower() for status in RiseStatus]
        columns[name + "_status"] = categories(found.status.reshape(-1, 3)[:, k], words)
    frame = pd.DataFrame(columns)
    frame.index = index
    return with_origin(frame, body=body.name.lower())
