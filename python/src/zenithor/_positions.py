"""Where bodies stand: values of fields of bodies at moments."""
from __future__ import annotations

from typing import TYPE_CHECKING, Any, Dict, Literal, Optional, Sequence, Tuple, Union, overload

import numpy as np

from ._arrays import FloatArray
from ._codes import Body, BodyLike, Field, FieldLike, codes_of, unit
from ._library import LIBRARY
from ._times import MomentLike, TimesLike, julian_days

if TYPE_CHECKING:
    import pandas as pd

BodiesLike = Union[BodyLike, Sequence[BodyLike]]
FieldsLike = Union[FieldLike, Sequence[FieldLike]]

# So many values a call, about half a second: between calls Python handles its signals.
_CELLS_PER_CALL = 1 << 16


def table(bodies: Sequence[Body], fields: Sequence[Field], days: FloatArray) -> FloatArray:
    """The values at each of the days (one dimension), as an array of days by bodies by fields."""
    values = np.empty((len(days), len(bodies), len(fields)))
    cells = len(bodies) * len(fields)
    if cells == 0:
        return values
    step = max(1, _CELLS_PER_CALL // cells)
    if cells == 1:
        body, field = int(bodies[0]), int(fields[0])
        for first in range(0, len(days), step):
            part, target = days[first : first + step], values[first : first + step]
            LIBRARY.Values(body, field, part.ctypes.data, len(part), target.ctypes.data)
        return values
    body_codes = np.array(bodies, dtype=np.int32)
    field_codes = np.array(fields, dtype=np.int32)
    for first in range(0, len(days), step):
        part, target = days[first : first + step], values[first : first + step]
        LIBRARY.Table(body_codes.ctypes.data, len(bodies), field_codes.ctypes.data, len(fields),
                      part.ctypes.data, len(part), target.ctypes.data, 0, 0, 0)
    return values


@overload
def position(  # type: ignore[misc]
    bodies: BodyLike,
    times: MomentLike,
    fields: FieldLike = ...,
    *,
    scale: Optional[str] = ...,
    frame: Literal[False] = ...,
) -> float: ...


@overload
def position(
    bodies: BodiesLike,
    times: TimesLike,
    fields: FieldsLike = ...,
    *,
    scale: Optional[str] = ...,
    frame: Literal[False] = ...,
) -> FloatArray: ...


@overload
def position(
    bodies: BodiesLike,
    times: TimesLike,
    fields: FieldsLike = ...,
    *,
    scale: Optional[str] = ...,
    frame: Literal[True],
) -> "pd.DataFrame": ...


def position(
    bodies: BodiesLike,
    times: TimesLike,
    fields: FieldsLike = Field.APPARENT_LONGITUDE,
    *,
    scale: Optional[str] = None,
    frame: bool = False,
) -> Any:
    """Values of fields of bodies at moments.

    Parameters
    ----------
    bodies
        One body or a list: :class:`Body`, name or number.
    times
        One moment or an array of any shape: dates, times, ``datetime64``, a pandas ``DatetimeIndex`` or
        ``Series``, ISO texts (all clock time: UTC where no zone is said), or Julian days (dynamical time, TT).
    fields
        One field or a list: :class:`Field`, name or number. :func:`unit` gives the units: degrees, hours of
        right ascension, au; the Moon's distance in km.
    scale
        ``"utc"`` or ``"tt"``, where the times are given in another scale than the default above.
    frame
        Return a ``DataFrame``. Times are then of one dimension at most.

    Returns
    -------
    float64 array
        of the shape ``times.shape + bodies.shape + fields.shape``: every body and field at every moment. What is
        given alone has no axis; a float where all three are given alone. NaN where a moment is NaN, NaT or
        infinite, and where a body has not the field (:func:`has_field`).
    DataFrame
        with a row for each time; a column for each field of a body alone, of several bodies two levels of
        columns. ``attrs["units"]`` has the unit of each column, ``attrs["data_fingerprint"]`` the data used.

    Raises
    ------
    ValueError
        An argument or element is no body, field or moment; the message says which.

    Examples
    --------
    >>> import zenithor
    >>> print(round(zenithor.position("mars", "2026-11-21T06:30"), 4))
    148.0623
    >>> zenithor.position(["sun", "moon"], [2451545.0, 2451546.0], ["declination", "elongation"]).round(2)
    array([[[-23.03,   0.  ],
            [-10.9 ,  57.2 ]],
    <BLANKLINE>
           [[-22.95,   0.  ],
            [-14.34,  46.32]]])
    """
    body_codes, one_body = codes_of(Body, "body", bodies, "bodies")
    field_codes, one_field = codes_of(Field, "field", fields, "fields")
    days = julian_days(times, scale)
    values = table(body_codes, field_codes, days.ravel())
    if frame:
        return _frame(values, times, days, body_codes, field_codes, one_body)
    shape: Tuple[int, ...] = days.shape
    if not one_body:
        shape += (len(body_codes),)
    if not one_field:
        shape += (len(field_codes),)
    return values.reshape(shape) if shape else float(values[0, 0, 0])


def _frame(
    values: FloatArray,
    times: Any,
    days: FloatArray,
    bodies: Sequence[Body],
    fields: Sequence[Field],
    one_body: bool,
) -> "pd.DataFrame":
    from ._frames import pandas, row_index, with_origin

    if days.ndim > 1:
        raise ValueError(f"times: a frame has one row for each time, so not {days.ndim} dimensions")
    pd = pandas()
    names = [field.name.lower() for field in fields]
    units: Dict[Any, Optional[str]]
    if one_body:
        columns = pd.Index(names, name="field")
        units = {name: unit(bodies[0], field) for name, field in zip(names, fields)}
    else:
        columns = pd.MultiIndex.from_product(
            [[body.name.lower() for body in bodies], names], names=["body", "field"]
        )
        units = {
            (body.name.lower(), field.name.lower()): unit(body, field) for body in bodies for field in fields
        }
    table_of_values = values.reshape(days.size, len(bodies) * len(fields))
    frame = pd.DataFrame(table_of_values, index=row_index(times, days.ravel()), columns=columns)
    return with_origin(frame, units=units, bodies=[body.name.lower() for body in bodies])
