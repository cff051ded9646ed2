"""Positions as lazy Dask arrays and data frames, computed by blocks on a cluster.

A task carries where its block of moments begins and how long it is, not the moments. Each worker process
imports this package, and so loads the library, once. A block depends on nothing but its task: of a worker
that is lost the others compute the blocks again, with the same answers.
"""
from __future__ import annotations

from typing import Any, List, Optional, Sequence, Tuple, Union

import numpy as np

try:
    import dask
    import dask.array as da
except ImportError as error:
    raise ImportError("zenithor.dask needs Dask: pip install zenithor[dask]") from error

from ._arrays import FloatArray
from ._codes import Body, BodyLike, Field, FieldLike, codes_of, unit
from ._positions import table
from ._times import MomentLike, clock_to_dynamical, datetime64_of_days, days_of_datetime64, moment

# Processor time of a block of so many values: about a second.
_VALUES_PER_BLOCK = 1 << 17


def _clock_times(start: Any, step: Any, first: int, count: int) -> Any:
    """Clock times of a block."""
    return start + step * np.arange(first, first + count)


def block(bodies: Tuple[int, ...], fields: Tuple[int, ...], start: Any, step: Any, first: int, count: int
          ) -> FloatArray:
    """The values of one block: moments ``first`` to ``first + count`` of the grid."""
    days = clock_to_dynamical(days_of_datetime64(_clock_times(start, step, first, count)))
    return table([Body(body) for body in bodies], [Field(field) for field in fields], days)


def frame_block(bodies: Tuple[int, ...], fields: Tuple[int, ...], start: Any, step: Any, first: int, count: int
                ) -> Any:
    """The same as a data frame."""
    import pandas as pd

    values = block(bodies, fields, start, step, first, count).reshape(count, len(bodies) * len(fields))
    index = pd.DatetimeIndex(_clock_times(start, step, first, count), name="time")
    return pd.DataFrame(values, index=index, columns=_columns(bodies, fields))


def _columns(bodies: Sequence[int], fields: Sequence[int]) -> List[str]:
    """``mars_declination``: Dask's frames have one level of columns."""
    return [f"{Body(body).name.lower()}_{Field(field).name.lower()}" for body in bodies for field in fields]


def _grid(start: MomentLike, end: MomentLike, step: Any) -> Tuple[Any, Any, int]:
    """The first clock time, the step, and how many there are before the end; in microseconds."""
    times = []
    for argument, value in (("start", start), ("end", end)):
        time = datetime64_of_days(np.asarray(moment(value, "tt", argument)))[()]
        if np.isnat(time):
            raise ValueError(f"{argument}: {value!r} is not a moment")
        times.append(time.astype("M8[us]"))
    width = np.timedelta64(step).astype("m8[us]") if isinstance(step, np.timedelta64) else _step_of_text(step)
    if not width > np.timedelta64(0, "us"):
        raise ValueError(f"step: {step!r} is not a positive time of a microsecond or more")
    span = (times[1] - times[0]).astype(np.int64)
    return times[0], width, max(int(-(-span // width.astype(np.int64))), 0)


def _step_of_text(step: Any) -> Any:
    """``"1h"``, ``"15m"``, ``"1D"``: a whole number and a unit of ``datetime64``."""
    text = str(step)
    digits = text.rstrip("DhmsuW")
    unit: Any = text[len(digits):]
    try:
        return np.timedelta64(int(digits or "1"), unit).astype("m8[us]")
    except (ValueError, TypeError):
        raise ValueError(f'step: {step!r} is not a step; write "1h", "15m", "1D" or a timedelta64') from None


def positions(
    bodies: Union[BodyLike, Sequence[BodyLike]],
    start: MomentLike,
    end: MomentLike,
    step: Any = "1h",
    fields: Union[FieldLike, Sequence[FieldLike]] = Field.APPARENT_LONGITUDE,
    *,
    block_size: Optional[int] = None,
    frame: bool = False,
) -> Any:
    """Values of fields of bodies at equal steps of clock time, lazily and by blocks.

    Parameters
    ----------
    bodies, fields
        As :func:`zenithor.position` takes them.
    start, end
        Clock times (UTC; dates and times, a zone is respected); ``end`` is not included.
    step
        ``"1h"``, ``"15m"``, ``"1D"`` or a ``timedelta64``.
    block_size
        Moments a block; by default so many that a block takes a worker about a second.
    frame
        Return a data frame.

    Returns
    -------
    dask.array.Array
        of float64 and the shape (moments, bodies, fields), in blocks along the moments. The axes are there also
        where one body or field is given.
    dask.dataframe.DataFrame
        with a partition for each block, the clock times as its index, and a column ``mars_declination`` for each
        body and field. Units are those of :func:`zenithor.unit`. pandas 1 holds the years 1678 to 2261.

    Raises
    ------
    ValueError
        An argument is no body, field, moment or step; the message says which.

    >>> import zenithor.dask
    >>> lazy = zenithor.dask.positions(["sun", "moon"], "2026-01-01", "2027-01-01", "1h", "declination")
    >>> lazy.shape
    (8760, 2, 1)
    >>> print(lazy[::2000].compute()[:, :, 0].round(2))
    [[-23.02  26.4 ]
     [  1.86  28.35]
     [ 23.36  25.8 ]
     [  5.76  21.4 ]
     [-21.66  12.49]]
    """
    body_codes, _ = codes_of(Body, "body", bodies, "bodies")
    field_codes, _ = codes_of(Field, "field", fields, "fields")
    first_time, width, count = _grid(start, end, step)
    cells = max(len(body_codes) * len(field_codes), 1)
    size = max(_VALUES_PER_BLOCK // cells, 1) if block_size is None else int(block_size)
    if size < 1:
        raise ValueError(f"block_size: {block_size!r} is not a number of moments")
    body_numbers = tuple(int(code) for code in body_codes)
    field_numbers = tuple(int(code) for code in field_codes)
    bounds = list(range(0, count, size)) or [0]
    blocks = [(first, min(size, count - first)) for first in bounds]
    lazy = dask.delayed(frame_block if frame else block, pure=True)
    tasks = [lazy(body_numbers, field_numbers, first_time, width, first, length) for first, length in blocks]
    if frame:
        import dask.dataframe as dd

        meta = frame_block(body_numbers, field_numbers, first_time, width, 0, 0)
        times = [_clock_times(first_time, width, first, 1)[0].astype("M8[ns]") for first, _ in blocks]
        last = _clock_times(first_time, width, max(count - 1, 0), 1)[0].astype("M8[ns]")
        divisions = [_timestamp(time) for time in times + [last]]
        return dd.from_delayed(tasks, meta=meta, divisions=divisions if count else None)
    shape = (len(body_numbers), len(field_numbers))
    parts = [da.from_delayed(task, (length, *shape), dtype=np.float64) for task, (_, length) in zip(tasks, blocks)]
    return da.concatenate(parts)


def _timestamp(time: Any) -> Any:
    import pandas as pd

    return pd.Timestamp(time)


def units(bodies: Union[BodyLike, Sequence[BodyLike]], fields: Union[FieldLike, Sequence[FieldLike]]) -> Any:
    """The unit of each column of a data frame of :func:`positions`."""
    body_codes, _ = codes_of(Body, "body", bodies, "bodies")
    field_codes, _ = codes_of(Field, "field", fields, "fields")
    names = _columns(body_codes, field_codes)
    return dict(zip(names, [unit(body, field) for body in body_codes for field in field_codes]))
