"""Lines over time: longitudes, declinations, the graphic ephemeris."""
from __future__ import annotations

from typing import Any, List, Optional, Sequence, Tuple, Union

import numpy as np

from .._arrays import FloatArray, evenly, listed_floats, listed_ints
from .._codes import Body, BodyLike, Field, FieldLike, codes_of, field_of
from .._library import LIBRARY
from .._positions import table
from .._searches import _span, stations
from .._times import MomentLike, datetime64
from ._look import (
    DPI,
    PIXEL,
    SIGNS,
    Tokens,
    end_labels,
    figure_of,
    halo,
    line_style,
    say,
    span_text,
    time_axis,
    title,
    tokens,
)

BodiesLike = Union[BodyLike, Sequence[BodyLike]]
_SIZE = (1200.0, 620.0)
_CROWDED = 40  # from so many stations on, dates stand only where nothing is covered

_FRAMES = {
    Field.HELIO_LONGITUDE: "Heliocentric, ecliptic of date",
    Field.GEO_LONGITUDE: "Geocentric and geometric, ecliptic of date",
    Field.APPARENT_LONGITUDE: "Geocentric, true ecliptic and equinox of date",
    Field.DECLINATION: "Geocentric, true equator of date",
}
_NAMES = {
    Field.HELIO_LONGITUDE: "Heliocentric longitude",
    Field.GEO_LONGITUDE: "Geocentric longitude",
    Field.APPARENT_LONGITUDE: "Apparent longitude",
    Field.DECLINATION: "Declination",
}


def _sampled(body: Body, field: Field, start: float, end: float) -> Tuple[FloatArray, FloatArray]:
    """Days and values, close enough for a smooth line: the Moon takes a step of a day at most up to a century."""
    least = 1200
    if body in (Body.MOON, Body.MERCURY):
        least = max(least, min(int((end - start) * 2), 40000))
    days = evenly(start, end, least + 1)
    return days, table([body], [field], days)[:, 0, 0]


def wrapped(days: FloatArray, values: FloatArray, period: float) -> Tuple[FloatArray, FloatArray]:
    """The line of an angle that counts modulo `period` (values in any range), in pieces that end at the edge: NaN
    stands between them. Steps are shorter than half of 360 degrees."""
    known = np.isfinite(values)
    days, values = days[known], values[known]
    if len(values) < 2:
        return days, values % period
    steps = (np.diff(values) + 180.0) % 360.0 - 180.0
    level = values[0] + np.concatenate(([0.0], np.cumsum(steps)))
    turns = np.floor(level / period)
    xs: List[float] = []
    ys: List[float] = []
    for k, (day, value, turn) in enumerate(zip(days, level, turns)):
        xs.append(day)
        ys.append(value - turn * period)
        if k + 1 == len(days):
            break
        rises = turns[k + 1] > turn
        for crossed in range(int(abs(turns[k + 1] - turn))):
            edge = (turn + 1 + crossed) if rises else (turn - crossed)
            share = (edge * period - value) / (level[k + 1] - value)
            at = day + share * (days[k + 1] - day)
            xs += [at, at, at]
            ys += [period if rises else 0.0, np.nan, 0.0 if rises else period]
    return np.array(xs), np.array(ys)


def _retrograde_spans(body: Body, field: Field, start: float, end: float) -> List[Tuple[float, float]]:
    """The spans in which the longitude falls, cut at start and end."""
    if body in (Body.SUN, Body.MOON, Body.EARTH) or field == Field.HELIO_LONGITUDE:
        return []
    found = stations(body, start, end, field=field)
    turns = list(zip(listed_floats(found.julian_day), listed_ints(found.direction)))
    if turns:
        falls = turns[0][1] > 0
    else:
        before, after = table([body], [field], np.array([start, start + 0.01]))[:, 0, 0]
        falls = (after - before + 180.0) % 360.0 < 180.0
    spans = []
    began = start
    for day, direction in turns + [(end, 1)]:
        if direction < 0:
            began, falls = day, True
        elif falls:
            spans.append((began, day))
            falls = False
    return spans


def _shade_and_mark(
    ax: Any, look: Tokens, bodies: Sequence[Body], field: Field, start: float, end: float, period: float
) -> bool:
    """Shades the spans in which bodies are retrograde, and marks the stations with their dates; whether there are any.

    A body alone is shaded over the whole height, of several each along its line.
    """
    marks: List[Tuple[Any, float, bool]] = []  # time, longitude, whether the line bulges upward there
    shaded = False
    for body in bodies:
        for first, last in _retrograde_spans(body, field, start, end):
            shaded = True
            if len(bodies) == 1:
                ax.axvspan(datetime64(first), datetime64(last), color=look.retrograde, linewidth=0, zorder=0.6)
            else:
                days = evenly(first, last, 60)
                xs, ys = wrapped(days, table([body], [field], days)[:, 0, 0], period)
                ax.plot(datetime64(xs), ys, color=look.retrograde[:3], alpha=look.retrograde[3] * 1.8,
                        linewidth=12 * PIXEL, solid_capstyle="butt", zorder=0.8, label="_retrograde")
            for day in (first, last):
                if day in (start, end):
                    continue
                time = datetime64(day)
                value = float(table([body], [field], np.array([day]))[0, 0, 0] % period)
                ax.plot([time], [value], marker="o", markersize=6 * PIXEL, markerfacecolor=look.background,
                        markeredgecolor=look.bodies[body], markeredgewidth=1.3 * PIXEL, linestyle="none", zorder=4,
                        label="_station")
                marks.append((time, value, (day == first) != ax.yaxis_inverted()))
    _date_marks(ax, look, marks)
    return shaded


def _date_marks(ax: Any, look: Tokens, marks: Sequence[Tuple[Any, float, bool]]) -> None:
    """Dates beside the marks, where they cover no line, no mark and no other date; else where they cover no mark
    and no date; else none."""
    scale = ax.figure.dpi / DPI
    box = ax.get_window_extent()
    points = [_pixels(ax, line) for line in ax.get_lines() if line.get_transform() == ax.transData]
    lines = np.concatenate(points) if points else np.empty((0, 2))
    circles = [ax.transData.transform((ax.convert_xunits(time), value)) for time, value, _ in marks]
    taken: List[FloatArray] = []

    def covers(centre: FloatArray, others: Any, width: float, height: float) -> bool:
        away = np.abs(np.asarray(others).reshape(-1, 2) - centre)
        return bool(((away[:, 0] < width * scale) & (away[:, 1] < height * scale)).any())

    for (time, value, upward), circle in zip(marks, circles):
        side = 1 if upward else -1
        offsets = [(0, 14 * side), (0, -14 * side), (0, 26 * side), (0, -26 * side), (30, 10 * side), (-30, 10 * side),
                   (30, -10 * side), (-30, -10 * side)]
        places = []
        for dx, dy in offsets:
            centre = circle + np.array([dx, dy]) * scale
            inside = box.y0 + 8 < centre[1] < box.y1 - 8 and box.x0 + 24 < centre[0] < box.x1 - 24
            rest = [other for other in circles if other is not circle]
            if inside and not covers(centre, taken, 46, 14) and not covers(centre, rest, 26, 12):
                places.append((centre, dx, dy))
        if not places:
            continue
        clear = [place for place in places if not covers(place[0], lines, 24, 8)]
        if not clear and len(marks) > _CROWDED:
            continue
        centre, dx, dy = (clear or places)[0]
        taken.append(centre)
        date = np.datetime64(time, "D").astype(object)
        ax.annotate(f"{date.day} {date:%b}", (time, value), (dx * PIXEL, dy * PIXEL), textcoords="offset points",
                    ha="center", va="center", fontsize=11 * PIXEL, color=look.quiet, zorder=5,
                    path_effects=halo(look))


def _pixels(ax: Any, line: Any) -> FloatArray:
    """The points of a line on the figure [px], close together."""
    if line.get_label() in ("_retrograde", "_station"):
        return np.empty((0, 2))
    points = ax.transData.transform(np.column_stack([ax.convert_xunits(line.get_xdata()), line.get_ydata()]))
    share = np.linspace(0, 1, 9)[:, None, None]
    between = points[:-1] * (1 - share) + points[1:] * share
    return np.asarray(between.reshape(-1, 2), dtype=np.float64)


def _chart(
    bodies: BodiesLike, field: Field, start: MomentLike, end: MomentLike, period: float, ax: Any, dark: bool,
) -> Tuple[Any, Tokens, Tuple[Body, ...], float, float]:
    look = tokens(dark)
    chosen, _ = codes_of(Body, "body", bodies, "bodies")
    first, last = _span(start, end, None)
    if not last > first:
        raise ValueError(f"end: {end!r} is not after the start, {start!r}")
    ax = figure_of(ax, look, _SIZE)
    time_axis(ax, look, datetime64(first), datetime64(last))
    return ax, look, chosen, first, last


def _lines(ax: Any, look: Tokens, bodies: Sequence[Body], field: Field, start: float, end: float, period: float,
           ) -> None:
    ends = []
    for body in bodies:
        days, values = _sampled(body, field, start, end)
        if not np.isfinite(values).any():
            continue
        xs, ys = wrapped(days, values, period) if period else (days, values)
        ax.plot(datetime64(xs), ys, color=look.bodies[body], zorder=3, label=body.name.capitalize(),
                **line_style(body))
        known = np.isfinite(values)
        ends.append((body, float(values[known][-1] % period if period else values[known][-1])))
    if ends:
        end_labels(ax, look, ends)
    elif bodies:
        say(ax, look, "None of these bodies has this field: choose other bodies.")
    else:
        say(ax, look, "No bodies are given: name one or more.")


def longitudes(
    bodies: BodiesLike,
    start: MomentLike,
    end: MomentLike,
    *,
    field: FieldLike = Field.APPARENT_LONGITUDE,
    ax: Optional[Any] = None,
    dark: bool = False,
) -> Any:
    """Longitudes over time, retrograde spans shaded and their ends dated.

    Parameters
    ----------
    bodies
        One body or a list.
    start, end
        The span, as :func:`zenithor.julian_day` takes moments; years -2000 to 4000, and 1 to 9999 as Matplotlib
        draws no others.
    field
        ``apparent_longitude``, ``geo_longitude`` or ``helio_longitude``.
    ax
        Axes to draw into; by default those of a new figure.
    dark
        Light on dark.

    Returns
    -------
    The axes.

    Raises
    ------
    ValueError
        No such body or field, or a span that is none.
    """
    code = field_of(field)
    if LIBRARY.FieldPeriod(code) != 360.0:
        raise ValueError(f"field: {code.name.lower()} is no longitude")
    axes, look, chosen, first, last = _chart(bodies, code, start, end, 360.0, ax, dark)
    axes.set_ylim(0, 360)
    axes.set_yticks(range(0, 361, 30))
    axes.set_yticklabels([f"{SIGNS[k % 12]} {30 * k:3d}°" for k in range(13)])
    span = span_text(datetime64(first), datetime64(last))
    _lines(axes, look, chosen, code, first, last, 360.0)
    shaded = _shade_and_mark(axes, look, chosen, code, first, last, 360.0)
    frame = f"{_FRAMES[code]}; time in UTC"
    title(axes, look, f"{_NAMES[code]}, {span}", f"{frame}. Shaded: retrograde" if shaded else frame)
    return axes


def declinations(
    bodies: BodiesLike, start: MomentLike, end: MomentLike, *, ax: Optional[Any] = None, dark: bool = False
) -> Any:
    """Apparent declinations over time, with the limits that the Sun reaches.

    Arguments, answer and errors are those of :func:`longitudes`.
    """
    axes, look, chosen, first, last = _chart(bodies, Field.DECLINATION, start, end, 0.0, ax, dark)
    span = span_text(datetime64(first), datetime64(last))
    title(axes, look, f"Declination, {span}",
          f"{_FRAMES[Field.DECLINATION]}; time in UTC. Dotted: obliquity of the ecliptic, the Sun's limit")
    middle = np.array([(first + last) / 2])
    obliquity = float(np.degrees(table([Body.SUN], [Field.OBLIQUITY], middle)[0, 0, 0]))
    values = table(chosen, [Field.DECLINATION], evenly(first, last, 400))
    reach = np.nanmax(np.abs(values), initial=24.0) if np.isfinite(values).any() else 24.0
    limit = float(np.ceil(reach / 5 + 0.2) * 5)
    axes.set_ylim(-limit, limit)
    ticks = np.arange(-np.floor(limit / 10) * 10, limit + 1, 10)
    axes.set_yticks(ticks)
    axes.set_yticklabels([f"{tick:+.0f}°".replace("-", "\N{MINUS SIGN}") if tick else "0°" for tick in ticks])
    axes.axhline(0, color=look.quiet, linewidth=PIXEL, zorder=1)
    for level in (-obliquity, obliquity):
        axes.axhline(level, color=look.quiet, linewidth=PIXEL, linestyle=(0, (1, 3)), zorder=1)
    _lines(axes, look, chosen, Field.DECLINATION, first, last, 0.0)
    return axes


def graphic_ephemeris(
    bodies: BodiesLike,
    start: MomentLike,
    end: MomentLike,
    *,
    modulus: float = 90.0,
    field: FieldLike = Field.APPARENT_LONGITUDE,
    ax: Optional[Any] = None,
    dark: bool = False,
) -> Any:
    """Longitudes modulo an angle: where two lines cross, the bodies stand at a multiple of it.

    Parameters
    ----------
    modulus
        [deg] 45 or 90 commonly; any that divides 360. Zero is at the top, as these sheets are drawn.

    The others, answer and errors are those of :func:`longitudes`.
    """
    code = field_of(field)
    if LIBRARY.FieldPeriod(code) != 360.0:
        raise ValueError(f"field: {code.name.lower()} is no longitude")
    if not (0 < modulus <= 360 and abs(360 / modulus - round(360 / modulus)) < 1e-9):
        raise ValueError(f"modulus: {modulus!r} does not divide 360")
    axes, look, chosen, first, last = _chart(bodies, code, start, end, modulus, ax, dark)
    axes.set_ylim(modulus, 0)
    step = next((width for width in (30, 15, 10, 5, 2.5, 1) if modulus / width >= 6), modulus / 6)
    ticks = np.arange(0, modulus + step / 2, step)
    axes.set_yticks(ticks)
    axes.set_yticklabels([f"{tick:g}°" for tick in ticks])
    span = span_text(datetime64(first), datetime64(last))
    title(axes, look, f"{_NAMES[code]} modulo {modulus:g}°, {span}",
          f"{_FRAMES[code]}; time in UTC. Lines cross where bodies stand at a multiple of {modulus:g}°")
    _lines(axes, look, chosen, code, first, last, modulus)
    _shade_and_mark(axes, look, chosen, code, first, last, modulus)
    return axes
