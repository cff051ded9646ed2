"""Colours, line styles, glyphs; axes, titles, labels at the ends of lines."""
from __future__ import annotations

from typing import Any, Dict, List, NamedTuple, Optional, Sequence, Tuple

import numpy as np
from matplotlib import dates as mdates
from matplotlib import patheffects
from matplotlib import pyplot as plt

from .._codes import Body

DPI = 100
PIXEL = 72 / DPI  # [point]


class Tokens(NamedTuple):
    background: str
    panel: str
    text: str
    quiet: str
    rule: str
    accent: str
    retrograde: Tuple[float, float, float, float]
    up: str
    down: str
    bodies: Dict[Body, str]


LIGHT = Tokens(
    background="#ffffff",
    panel="#f6f7f9",
    text="#1b1f24",
    quiet="#5b6470",
    rule="#d9dee5",
    accent="#0b5cad",
    retrograde=(200 / 255, 80 / 255, 60 / 255, 0.10),
    up="#2a7f62",
    down="#b5473c",
    bodies={
        Body.SUN: "#b07d00",
        Body.MOON: "#6b7280",
        Body.MERCURY: "#0072b2",
        Body.VENUS: "#008f68",
        Body.EARTH: "#3b6fb6",
        Body.MARS: "#c2410c",
        Body.JUPITER: "#8a5a00",
        Body.SATURN: "#4b5563",
        Body.URANUS: "#0e7490",
        Body.NEPTUNE: "#4338ca",
        Body.PLUTO: "#9d2b6b",
    },
)
DARK = Tokens(
    background="#14171c",
    panel="#1c2027",
    text="#e8ebef",
    quiet="#9aa4b1",
    rule="#313842",
    accent="#6db3ff",
    retrograde=(1.0, 130 / 255, 110 / 255, 0.14),
    up="#52b788",
    down="#e5786d",
    bodies={
        Body.SUN: "#f0c040",
        Body.MOON: "#c3cad3",
        Body.MERCURY: "#56b4e9",
        Body.VENUS: "#35c79a",
        Body.EARTH: "#8ab4f8",
        Body.MARS: "#ff8a5c",
        Body.JUPITER: "#d9a441",
        Body.SATURN: "#aab4c0",
        Body.URANUS: "#4fd1e5",
        Body.NEPTUNE: "#9d97ff",
        Body.PLUTO: "#f08cc0",
    },
)

GLYPHS = {
    Body.SUN: "\u2609",
    Body.MOON: "\u263d",
    Body.MERCURY: "\u263f",
    Body.VENUS: "\u2640",
    Body.EARTH: "\u2295",
    Body.MARS: "\u2642",
    Body.JUPITER: "\u2643",
    Body.SATURN: "\u2644",
    Body.URANUS: "\u2645",
    Body.NEPTUNE: "\u2646",
    Body.PLUTO: "\u2647",
}
SIGNS = ("Ari", "Tau", "Gem", "Cnc", "Leo", "Vir", "Lib", "Sco", "Sgr", "Cap", "Aqr", "Psc")

# Width and dashes in pixels.
_WIDTHS = {Body.SUN: 2.0, Body.MOON: 1.0}
_DASHES: Dict[Body, Tuple[float, float]] = {
    Body.JUPITER: (8, 3),
    Body.SATURN: (8, 3),
    Body.URANUS: (4, 3),
    Body.NEPTUNE: (4, 3),
    Body.PLUTO: (2, 3),
}


def tokens(dark: bool) -> Tokens:
    return DARK if dark else LIGHT


def line_style(body: Body) -> Dict[str, Any]:
    """Line width [point] and dashes of a body's line."""
    width = _WIDTHS.get(body, 1.6)
    dashes = _DASHES.get(body)
    style: Any = "solid" if dashes is None else (0, tuple(length / width for length in dashes))
    return {"linewidth": width * PIXEL, "linestyle": style}


def halo(look: Tokens) -> List[Any]:
    """An edge in the background's colour around text over lines."""
    return [patheffects.withStroke(linewidth=2.5, foreground=look.background)]


def new_axes(look: Tokens, size: Tuple[float, float]) -> Any:
    """Axes on a new figure of a size in pixels, with room for title and names."""
    figure, ax = plt.subplots(figsize=(size[0] / DPI, size[1] / DPI), dpi=DPI)
    margins(figure, size)
    return ax


def margins(figure: Any, size: Tuple[float, float], below: float = 44) -> None:
    figure.subplots_adjust(left=72 / size[0], right=1 - 104 / size[0], top=1 - 68 / size[1], bottom=below / size[1])


def dress(ax: Any, look: Tokens) -> None:
    """Colours, grid and spines."""
    ax.figure.set_facecolor(look.background)
    ax.set_facecolor(look.background)
    ax.grid(True, color=look.rule, linewidth=PIXEL)
    ax.set_axisbelow(True)
    for side in ("top", "right", "left"):
        ax.spines[side].set_visible(False)
    ax.spines["bottom"].set_color(look.rule)
    ax.tick_params(colors=look.quiet, labelsize=12 * PIXEL, length=0, pad=6)


def title(ax: Any, look: Tokens, what: str, how: str) -> None:
    """What is plotted and for when; below it frame and time scale."""
    ax.annotate(what, (0, 1), (0, 28), xycoords="axes fraction", textcoords="offset points", ha="left", va="bottom",
                fontsize=16 * PIXEL, fontweight="bold", color=look.text, annotation_clip=False)
    ax.annotate(how, (0, 1), (0, 12), xycoords="axes fraction", textcoords="offset points", ha="left", va="bottom",
                fontsize=12 * PIXEL, color=look.quiet, annotation_clip=False)


def span_text(start: Any, end: Any) -> str:
    """A span in words: the year where it is one, else the dates of its first and last day."""
    first = np.datetime64(start, "D")
    before_end: Any = np.datetime64(end, "ms") - np.timedelta64(1, "ms")
    last = before_end.astype("M8[D]")
    whole_years = first == first.astype("M8[Y]") and last + 1 == (last + 1).astype("M8[Y]")
    if whole_years:
        years = str(first.astype("M8[Y]")), str(last.astype("M8[Y]"))
        return years[0] if years[0] == years[1] else f"{years[0]} to {years[1]}"
    return str(first) if first >= last else f"{first} to {last}"


def time_axis(ax: Any, look: Tokens, start: Any, end: Any) -> None:
    locator = mdates.AutoDateLocator(minticks=4, maxticks=13)
    formatter = mdates.ConciseDateFormatter(locator, show_offset=False)
    formatter.zero_formats = ["", "%Y", "%b", "%b %d", "%H:%M", "%H:%M"]
    ax.xaxis.set_major_locator(locator)
    ax.xaxis.set_major_formatter(formatter)
    ax.set_xlim(start, end)
    ax.xaxis.label.set_color(look.quiet)


def spread(places: Sequence[float], gap: float, low: float, high: float) -> List[float]:
    """The places moved apart to be at least `gap` from one another, in their order, between low and high."""
    order = np.argsort(places, kind="stable")
    moved = np.array(places, dtype=float)[order]
    if len(moved) * gap > high - low:
        gap = (high - low) / max(len(moved), 1)
    # Blocks of names that touch stand around the mean of their places.
    blocks: List[List[float]] = []
    for place in moved:
        blocks.append([min(max(place, low), high), 1.0])
        while len(blocks) > 1:
            (above, above_count), (below, below_count) = blocks[-1], blocks[-2]
            if above - below >= gap * (above_count + below_count) / 2:
                break
            blocks.pop()
            count = above_count + below_count
            centre = (above * above_count + below * below_count) / count
            half = gap * (count - 1) / 2
            blocks[-1] = [min(max(centre, low + half), high - half), count]
    answer = np.empty(len(moved))
    k = 0
    for centre, count in blocks:
        for member in range(int(count)):
            answer[order[k]] = centre + gap * (member - (count - 1) / 2)
            k += 1
    return [float(place) for place in answer]


def end_labels(ax: Any, look: Tokens, ends: Sequence[Tuple[Body, float]]) -> None:
    """Names and glyphs at the right end of the lines, moved apart where they collide."""
    if not ends:
        return
    axis_height = ax.get_window_extent().height
    transform = ax.transData.transform
    first = ax.get_xlim()[0]
    base = ax.get_window_extent().y0
    heights = [float(transform((first, value))[1] - base) for _, value in ends]
    scale = ax.figure.dpi / DPI
    places = spread(heights, 16 * scale, 0, axis_height)
    for (body, _), natural, place in zip(ends, heights, places):
        colour = look.bodies[body]
        y, at = natural / axis_height, place / axis_height
        ax.plot([1.003, 1.012, 1.018], [y, at, at], transform=ax.transAxes, color=colour, linewidth=PIXEL,
                clip_on=False, solid_capstyle="butt", label="_end")
        ax.annotate(GLYPHS[body], (1.018, at), (4, 0), xycoords="axes fraction", textcoords="offset points",
                    va="center", fontsize=15 * PIXEL, color=colour, annotation_clip=False)
        ax.annotate(body.name.capitalize(), (1.018, at), (19, 0), xycoords="axes fraction",
                    textcoords="offset points", va="center", fontsize=12 * PIXEL, color=look.text,
                    annotation_clip=False)


def say(ax: Any, look: Tokens, sentence: str) -> None:
    """What is missing and what to do, in the middle of empty axes."""
    ax.text(0.5, 0.5, sentence, transform=ax.transAxes, ha="center", va="center", fontsize=14 * PIXEL,
            color=look.quiet)


def figure_of(ax: Optional[Any], look: Tokens, size: Tuple[float, float]) -> Any:
    """The given axes, or new ones; with our colours."""
    chosen = new_axes(look, size) if ax is None else ax
    dress(chosen, look)
    return chosen
