"""Data frames. pandas is imported when the first one is asked for."""
from __future__ import annotations

from typing import TYPE_CHECKING, Any, Sequence

import numpy as np

from ._library import LIBRARY, text

if TYPE_CHECKING:
    import pandas as pd


def pandas() -> Any:
    try:
        import pandas as module
    except ImportError as error:
        raise ImportError("data frames need pandas: pip install zenithor[frames]") from error
    return module


def with_origin(frame: "pd.DataFrame", **attributes: Any) -> "pd.DataFrame":
    """The frame with what it comes from in its attributes."""
    frame.attrs.update(attributes)
    frame.attrs["version"] = text(LIBRARY.Version())
    frame.attrs["data_fingerprint"] = text(LIBRARY.DataFingerprint())
    return frame


def utc_index(times: Any, name: str) -> Any:
    """``datetime64`` as a ``DatetimeIndex`` in UTC: in its own unit, but before pandas 2 in nanoseconds."""
    pd = pandas()
    try:
        return pd.DatetimeIndex(np.asarray(times), tz="UTC", name=name)
    except pd.errors.OutOfBoundsDatetime as error:
        raise ValueError(
            "this pandas holds times from 1677-09-22 to 2262-04-11 only; ask for arrays (without frame) of "
            "what lies beyond"
        ) from error


def row_index(times: Any, days: Any) -> Any:
    """The index of a frame of values: the times that were given, or the Julian days."""
    pd = pandas()
    if isinstance(times, pd.Index):
        return times
    if isinstance(times, pd.Series):
        return pd.Index(times, name=times.name or "time")
    array = np.asarray(times) if not isinstance(times, (str, bytes)) else np.asarray([times], dtype=object)
    array = array.reshape(-1)
    if array.dtype.kind == "M":
        try:
            return pd.DatetimeIndex(array, name="time")
        except pd.errors.OutOfBoundsDatetime:
            return pd.Index(days, name="julian_day")
    if array.dtype.kind in "OU":
        from ._times import datetime64

        return utc_index(datetime64(days), "time")
    return pd.Index(np.asarray(array, dtype=np.float64), name="julian_day")


def categories(codes: Any, names: Sequence[str]) -> Any:
    """Codes as words."""
    return pandas().Categorical.from_codes(np.asarray(codes, dtype=np.int64), categories=list(names))
