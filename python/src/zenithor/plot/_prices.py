"""Events on a strip below a price series."""
from __future__ import annotations

from typing import Any, List, Sequence, Tuple, Union

import numpy as np
from matplotlib import dates as mdates
from matplotlib import pyplot as plt

from .._arrays import listed_ints
from .._codes import Body, BodyLike, EventKind, KindLike, codes_of
from .._searches import Events, events, stations
from .._times import _array_of, datetime64, julian_days
from ._look import DPI, GLYPHS, PIXEL, Tokens, dress, margins, say, span_text, time_axis, title, tokens

_SIZE = (1200.0, 680.0)

# The letter of an eclipse's kind; Sun or Moon stands before it.
_LETTERS = {
    EventKind.SOLAR_TOTAL: "T",
    EventKind.SOLAR_ANNULAR: "A",
    EventKind.SOLAR_ANNULAR_TOTAL: "H",
    EventKind.SOLAR_TOTAL_NONCENTRAL: "T",
    EventKind.SOLAR_ANNULAR_NONCENTRAL: "A",
    EventKind.SOLAR_PARTIAL: "P",
    EventKind.LUNAR_TOTAL: "T",
    EventKind.LUNAR_PARTIAL: "P",
    EventKind.LUNAR_PENUMBRAL: "N",
}
_SEASONS = ("Mar equinox", "Jun solstice", "Sep equinox", "Dec solstice")


def _prices(prices: Any) -> Tuple[Any, Any, List[Any]]:
    """Times, closing prices, and open, high, low where they are given."""
    days = julian_days(prices.index, None, "prices.index")
    if hasattr(prices, "columns"):
        named = {str(name).lower(): name for name in prices.columns}
        if "close" not in named:
            raise ValueError('prices: a frame needs a column "close", and for bars "open", "high" and "low"')
        columns = [np.asarray(prices[named[name]], dtype=float) for name in ("open", "high", "low") if name in named]
        close = np.asarray(prices[named["close"]], dtype=float)
    else:
        close, columns = np.asarray(prices, dtype=float), []
    order = np.argsort(days, kind="stable")
    order = order[np.isfinite(days[order])]
    return days[order], close[order], [column[order] for column in columns] if len(columns) == 3 else []


def _draw_bars(ax: Any, look: Tokens, times: Any, close: Any, bars: Sequence[Any], pixels: float) -> None:
    """Bars where there is room for them, else the closing prices as a line. A bar that rose is hollow."""
    room = pixels / max(len(times), 1)
    if not bars or room < 4:
        single = {"marker": "o", "markersize": 5 * PIXEL} if len(times) == 1 else {}
        ax.plot(times, close, color=look.text, linewidth=1.4 * PIXEL, zorder=3, label="_close", **single)
        return
    opened, high, low = bars
    x = mdates.date2num(times)
    step = float(np.min(np.diff(x))) if len(x) > 1 else 1.0
    rose = close >= opened
    for chosen, colour, filled in ((rose, look.up, False), (~rose, look.down, True)):
        ax.vlines(x[chosen], low[chosen], high[chosen], color=colour, linewidth=PIXEL, zorder=2)
        ax.bar(x[chosen], np.abs(close - opened)[chosen], bottom=np.minimum(close, opened)[chosen], width=0.62 * step,
               color=colour if filled else look.background, edgecolor=colour, linewidth=PIXEL, zorder=3)


def _room_of_quarter(pixels: float, days: float) -> float:
    """From a phase of the Moon to the next [px]."""
    return pixels / max(days, 1e-9) * 29.53 / 4


def _draw_phases(ax: Any, look: Tokens, found: Events, row: float, pixels: float, days: float) -> str:
    """The phases as drawn discs; what had to be left out."""
    left_out = ""
    shown = [EventKind.NEW_MOON, EventKind.FIRST_QUARTER, EventKind.FULL_MOON, EventKind.LAST_QUARTER]
    if _room_of_quarter(pixels, days) < 13:
        shown, left_out = [EventKind.NEW_MOON, EventKind.FULL_MOON], "quarters of the Moon"
    lit, dark = ("#ffffff", "#3d4650") if look.background == "#ffffff" else ("#e8ebef", "#313842")
    for kind in shown:
        times = found.time[found.kind == kind]
        style = {
            EventKind.NEW_MOON: {"markerfacecolor": dark},
            EventKind.FULL_MOON: {"markerfacecolor": lit},
            EventKind.FIRST_QUARTER: {"fillstyle": "right", "markerfacecolor": lit, "markerfacecoloralt": dark},
            EventKind.LAST_QUARTER: {"fillstyle": "left", "markerfacecolor": lit, "markerfacecoloralt": dark},
        }[kind]
        ax.plot(times, np.full(len(times), row), linestyle="none", marker="o", markersize=11 * PIXEL,
                markeredgecolor=look.quiet, markeredgewidth=PIXEL, label="_" + kind.name, clip_on=False,
                **style)
    return left_out


def _draw_marks(ax: Any, look: Tokens, marks: List[Tuple[Any, str, str]], row: float) -> int:
    """Texts at times, those that collide left out; how many were left out."""
    scale = ax.figure.dpi / DPI
    end = -np.inf
    left_out = 0
    box = ax.get_window_extent()
    for time, text, colour in sorted(marks):
        x = ax.transData.transform((ax.convert_xunits(time), row))[0]
        half = (3.6 * len(text) + 2) * scale
        if x - half < end or x + half > box.x1 + 60 * scale:
            left_out += 1
            continue
        end = x + half
        ax.text(time, row, text, ha="center", va="center", fontsize=12 * PIXEL, color=colour, label="_mark")
    return left_out


def events_over_prices(
    prices: Any,
    kinds: Union[None, KindLike, Sequence[KindLike]] = None,
    *,
    stations_of: Union[BodyLike, Sequence[BodyLike]] = (),
    name: str = "Price",
    dark: bool = False,
) -> Any:
    """A price series, and below it the events of its span on a strip of their own.

    Parameters
    ----------
    prices
        A pandas ``Series`` of closing prices, or a ``DataFrame`` with the columns open, high, low and close (in
        any case), its index the times (UTC where no zone is said). Bars are drawn where there is room, else
        the closing prices as a line.
    kinds
        Kinds of events as :func:`zenithor.events` takes them; all by default. Phases are drawn as discs, eclipses as
        Sun or Moon with their kind's letter (T total, A annular, H annular-total, P partial, N penumbral),
        seasons as a rule.
    stations_of
        Bodies whose stations are marked: R turns retrograde, D turns direct.
    name
        What the prices are of, for the title.
    dark
        Light on dark.

    Returns
    -------
    The figure.

    Raises
    ------
    ValueError
        A frame without closing prices, or times outside the years -2000 to 4000.
    """
    look = tokens(dark)
    days, close, bars = _prices(prices)
    bodies, _ = codes_of(Body, "body", stations_of, "stations_of")
    figure, (ax, strip) = plt.subplots(
        2, 1, figsize=(_SIZE[0] / DPI, _SIZE[1] / DPI), dpi=DPI, sharex=True,
        gridspec_kw={"height_ratios": [5.2, 1], "hspace": 0.10},
    )
    margins(figure, _SIZE)
    figure.subplots_adjust(left=104 / _SIZE[0], right=1 - 40 / _SIZE[0])
    for axes in (ax, strip):
        dress(axes, look)
    if not len(days):
        title(ax, look, name, "Time in UTC")
        say(ax, look, "There are no prices: give a series whose index is times.")
        for axes in (ax, strip):
            axes.set_xticks([])
            axes.set_yticks([])
        return figure
    first, last = float(days[0]), float(days[-1])
    edge = max((last - first) / max(len(days), 2), 0.5) if last > first else 1.0
    first, last = first - edge, last + edge
    times = datetime64(days)
    time_axis(ax, look, datetime64(first), datetime64(last))
    pixels = ax.get_window_extent().width * DPI / figure.dpi
    _draw_bars(ax, look, times, close, bars, pixels)
    ax.tick_params(labelbottom=False)
    found = events(first, last, kinds)
    rows = _draw_strip(ax, strip, look, found, bodies, first, last, pixels)
    span = span_text(times[0], times[-1] + np.timedelta64(1, "ms"))
    missing = f" Left out for want of room: {', '.join(rows)}." if rows else ""
    title(ax, look, f"{name}, {span}", f"Events below; time in UTC.{missing}")
    return figure


def _draw_strip(
    ax: Any, strip: Any, look: Tokens, found: Events, bodies: Sequence[Body], first: float, last: float,
    pixels: float,
) -> List[str]:
    """The strip; what was left out."""
    kinds = set(listed_ints(found.kind))
    rows: List[Tuple[str, float]] = []
    notes = []
    eclipses = kinds & set(_LETTERS)
    phases = bool(kinds & set(range(4, 8)))
    if phases and _room_of_quarter(pixels, last - first) * 2 < 13:
        phases = False
        notes.append("phases")
    wanted = [("Phases", phases), ("Eclipses", bool(eclipses)), ("Stations", bool(bodies))]
    names = [label for label, there in wanted if there]
    for k, label in enumerate(names):
        rows.append((label, float(len(names) - 1 - k)))
    strip.set_ylim(-0.6, max(len(names), 1) - 0.4)
    strip.set_yticks([row for _, row in rows])
    strip.set_yticklabels([label for label, _ in rows])
    strip.grid(False)
    strip.set_facecolor(look.panel)
    for label, row in rows:
        if label == "Phases":
            notes.append(_draw_phases(strip, look, found, row, pixels, last - first))
        elif label == "Eclipses":
            marks = []
            for time, kind in zip(found.time, listed_ints(found.kind)):
                if kind in _LETTERS:
                    body = Body.SUN if kind < EventKind.SOLAR_ANY else Body.MOON
                    marks.append((time, GLYPHS[body] + _LETTERS[EventKind(kind)], look.text))
            notes.append(_left_out(_draw_marks(strip, look, marks, row), "eclipses"))
        else:
            turns = stations(bodies, first, last)
            turning = zip(turns.time, listed_ints(turns.body), listed_ints(turns.direction))
            marks = [(time, GLYPHS[Body(body)] + ("D" if direction > 0 else "R"), look.text)
                     for time, body, direction in turning]
            notes.append(_left_out(_draw_marks(strip, look, marks, row), "stations"))
    end = -np.inf
    seasons_fit = pixels / max((last - first) / 91.3, 1) > 20
    if kinds & set(range(4)) and not seasons_fit:
        notes.append("seasons")
    for time, kind in zip(found.time, listed_ints(found.kind)):
        if kind < 4 and seasons_fit:
            for axes in (ax, strip):
                axes.axvline(time, color=look.quiet, linewidth=PIXEL, linestyle=(0, (2, 3)), zorder=1)
            x = ax.transData.transform((ax.convert_xunits(time), 0))[0]
            if x - 40 > end and x + 40 < ax.get_window_extent().x1 + 40:
                ax.annotate(_SEASONS[kind], (time, 1), (0, 3), xycoords=("data", "axes fraction"),
                            textcoords="offset points", ha="center", va="bottom", fontsize=11 * PIXEL,
                            color=look.quiet)
                end = x + 40
    if not len(found) and not bodies:
        say(strip, look, "No events of these kinds in this span.")
    return [note for note in notes if note]


def _left_out(count: int, what: str) -> str:
    return f"{count} {what}" if count else ""
