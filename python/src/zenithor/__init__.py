"""Where the Sun, the Moon and the planets stand, and when something happens in the sky: arrays in, arrays out.

>>> import zenithor
>>> print(zenithor.position("moon", ["2026-11-21", "2026-11-22"], "declination").round(3))
[ 7.291 13.305]
"""
from ._codes import Body, EventKind, Field, RiseStatus, has_field, unit
from ._daily import RiseTransitSet, rise
from ._library import LIBRARY, text
from ._positions import position
from ._searches import (
    Aspects,
    Crossings,
    Events,
    Moments,
    Stations,
    aspects,
    crossings,
    events,
    ingresses,
    kind_name,
    stations,
)
from ._times import datetime64, julian_day

__version__ = text(LIBRARY.Version())
data_fingerprint = text(LIBRARY.DataFingerprint())

__all__ = [
    "Aspects",
    "Body",
    "Crossings",
    "EventKind",
    "Events",
    "Field",
    "Moments",
    "RiseStatus",
    "RiseTransitSet",
    "Stations",
    "aspects",
    "crossings",
    "data_fingerprint",
    "datetime64",
    "events",
    "has_field",
    "ingresses",
    "julian_day",
    "kind_name",
    "position",
    "rise",
    "stations",
    "unit",
]
