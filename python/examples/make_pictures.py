#!/usr/bin/env python3
"""Makes the pictures of docs/python.md: make_pictures.py FOLDER [all]."""
import io
import sys
from pathlib import Path

import matplotlib

matplotlib.use("agg")
import numpy as np
import pandas as pd
from PIL import Image

import zenithor.plot

PLANETS = ["sun", "mercury", "venus", "mars", "jupiter", "saturn", "uranus", "neptune", "pluto"]


def made_up_prices():
    """A random walk of daily bars: no market's prices, so that nothing is read into them."""
    random = np.random.default_rng(20261121)
    days = pd.bdate_range("2025-10-01", "2026-09-30")
    close = 100 * np.exp(np.cumsum(random.normal(0, 0.011, len(days))))
    opened = np.concatenate(([100.0], close[:-1])) * np.exp(random.normal(0, 0.003, len(days)))
    high = np.maximum(opened, close) * np.exp(np.abs(random.normal(0, 0.004, len(days))))
    low = np.minimum(opened, close) * np.exp(-np.abs(random.normal(0, 0.004, len(days))))
    return pd.DataFrame({"open": opened, "high": high, "low": low, "close": close}, index=days)


def save(figure, path):
    """As PNG with a palette, a third of the size."""
    whole = io.BytesIO()
    figure.savefig(whole, format="png")
    Image.open(whole).convert("RGB").quantize(256, kmeans=2, dither=Image.Dither.NONE).save(path, optimize=True)


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for dark, suffix in ((False, ""), (True, "-dark")):
        # The documentation shows one in dark colours; with a second argument all are made.
        pictures = {
            "longitudes": zenithor.plot.longitudes(PLANETS, "2026", "2027", dark=dark).figure,
            "mercury": zenithor.plot.longitudes("mercury", "2026", "2027", dark=dark).figure,
            "declinations": zenithor.plot.declinations(["sun", "moon", "mercury", "venus", "mars"], "2026-07",
                                                       "2027", dark=dark).figure,
            "graphic-ephemeris": zenithor.plot.graphic_ephemeris(PLANETS, "2026", "2028", dark=dark).figure,
            "prices": zenithor.plot.events_over_prices(made_up_prices(), stations_of=["mercury", "venus", "mars"],
                                                       name="A random walk", dark=dark),
        }
        for name, figure in pictures.items():
            if not dark or name == "longitudes" or len(sys.argv) > 2:
                save(figure, folder / f"{name}{suffix}.png")
            matplotlib.pyplot.close(figure)


if __name__ == "__main__":
    main()
