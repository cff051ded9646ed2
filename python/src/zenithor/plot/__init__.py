"""Plots with Matplotlib: longitudes, declinations, a graphic ephemeris, events over a price series.

Times are clock time (UTC). Each function draws in light colours, or with ``dark=True`` in dark ones. A line
carries its body's name at its end; colours and line styles are the bodies' own in every plot.

>>> import matplotlib
>>> matplotlib.use("agg")
>>> import zenithor.plot
>>> ax = zenithor.plot.declinations(["sun", "moon"], "2026-11-01", "2026-12-01")
>>> ax.figure.savefig("declinations.png")  # doctest: +SKIP
"""
try:
    import matplotlib as _  # noqa: F401
except ImportError as error:
    raise ImportError("zenithor.plot needs Matplotlib: pip install zenithor[plot]") from error

from ._curves import declinations, graphic_ephemeris, longitudes
from ._prices import events_over_prices

__all__ = ["declinations", "events_over_prices", "graphic_ephemeris", "longitudes"]
