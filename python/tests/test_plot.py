"""Plots: what is drawn where, and that every case draws something."""
import numpy as np
import pytest
from hypothesis import given, strategies as st

import zenithor
from zenithor import Body

pytest.importorskip("matplotlib")
pd = pytest.importorskip("pandas")

import matplotlib  # noqa: E402

matplotlib.use("agg")
from matplotlib import pyplot as plt  # noqa: E402

import zenithor.plot as plot  # noqa: E402
from zenithor.plot import _look  # noqa: E402
from zenithor.plot._curves import _retrograde_spans, wrapped  # noqa: E402

PLANETS = ["sun", "moon", "mercury", "venus", "mars", "jupiter", "saturn", "uranus", "neptune", "pluto"]


@pytest.fixture(autouse=True)
def close_figures():
    yield
    plt.close("all")


def texts(ax):
    return [text.get_text() for text in ax.texts]


@given(st.lists(st.floats(0, 360), min_size=2, max_size=30), st.sampled_from([30.0, 45.0, 90.0, 360.0]))
def test_a_line_never_strokes_across_the_chart(values, period):
    xs, ys = wrapped(np.arange(len(values), dtype=float), np.array(values), period)
    assert np.nanmin(ys) >= 0 and np.nanmax(ys) <= period
    # Between two points that are joined the line takes the short way: less than half a turn of 360 degrees.
    for piece_x, piece_y in zip(np.split(xs, np.flatnonzero(np.isnan(ys))), np.split(ys, np.flatnonzero(np.isnan(ys)))):
        joined = piece_y[~np.isnan(piece_y)]
        assert (np.abs(np.diff(joined)) <= 180.0 + 1e-9).all()
    ends = np.flatnonzero(np.isnan(ys))
    edges = np.concatenate([ys[ends - 1], ys[ends + 1]])
    assert set(np.round(edges, 6)) <= {0.0, period}
    assert np.allclose(ys[0], values[0] % period)


def test_longitudes_have_a_line_and_a_name_for_each_body():
    ax = plot.longitudes(PLANETS, "2026", "2027")
    lines = {line.get_label(): line for line in ax.get_lines() if not line.get_label().startswith("_")}
    assert list(lines) == [body.capitalize() for body in PLANETS]
    assert {body.capitalize() for body in PLANETS} <= set(texts(ax))
    for body, glyph in _look.GLYPHS.items():
        if body != Body.EARTH:
            assert glyph in texts(ax)
    assert lines["Mars"].get_color() == "#c2410c"
    assert lines["Jupiter"].get_linestyle() == "--"
    assert "Apparent longitude, 2026" in texts(ax)
    assert [label.get_text() for label in ax.get_yticklabels()][:2] == ["Ari   0°", "Tau  30°"]


def test_values_on_the_chart_are_the_librarys():
    ax = plot.declinations("mars", "2026", "2027")
    line = next(line for line in ax.get_lines() if line.get_label() == "Mars")
    times, values = line.get_xdata(), line.get_ydata()
    # The chart's times are whole milliseconds, in which a declination moves by less than 1e-7 degree.
    assert np.allclose(zenithor.position("mars", times, "declination"), values, rtol=0, atol=1e-7)


def test_retrograde_spans_end_at_stations():
    start, end = zenithor.julian_day("2026"), zenithor.julian_day("2027")
    spans = _retrograde_spans(Body.MERCURY, zenithor.Field.APPARENT_LONGITUDE, start, end)
    assert np.array_equal(np.ravel(spans), zenithor.stations("mercury", "2026", "2027").julian_day)
    jupiter = _retrograde_spans(Body.JUPITER, zenithor.Field.APPARENT_LONGITUDE, start, end)
    assert jupiter[0][0] == start and jupiter[-1][1] == end
    inside = zenithor.position("jupiter", [start + 1, jupiter[0][1] + 1, end - 1], "direction")
    assert inside.tolist() == [-1, 1, -1]
    # A span without a station is retrograde all through, or not at all.
    middle = sum(spans[0]) / 2
    assert _retrograde_spans(Body.MERCURY, zenithor.Field.APPARENT_LONGITUDE, middle, middle + 2) == [(middle, middle + 2)]
    assert _retrograde_spans(Body.MERCURY, zenithor.Field.APPARENT_LONGITUDE, end - 9, end) == []


def test_stations_are_circles_with_their_dates():
    ax = plot.longitudes("mercury", "2026", "2027")
    circles = [line for line in ax.get_lines() if line.get_label() == "_station"]
    assert len(circles) == 6
    assert {"26 Feb", "20 Mar", "29 Jun", "23 Jul", "24 Oct", "13 Nov"} <= set(texts(ax))
    assert "Shaded: retrograde" in " ".join(texts(ax))
    assert "retrograde" not in " ".join(texts(plot.longitudes("sun", "2026", "2027")))


@given(st.lists(st.floats(-50, 550), min_size=1, max_size=40))
def test_names_are_moved_apart_in_their_order(places):
    moved = np.array(_look.spread(places, 16, 0, 500))
    order = np.argsort(places, kind="stable")
    gap = min(16, 500 / len(places))
    assert (np.diff(moved[order]) >= gap - 1e-6).all()
    assert moved.min() >= -1e-6 and moved.max() <= 500 + 1e-6


def test_names_that_do_not_collide_stay():
    assert _look.spread([400.0, 100.0, 200.0], 16, 0, 500) == [400.0, 100.0, 200.0]


def contrast(one, other):
    def luminance(colour):
        parts = [int(colour[k:k + 2], 16) / 255 for k in (1, 3, 5)]
        linear = [part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
        return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]

    lighter, darker = sorted((luminance(one), luminance(other)), reverse=True)
    return (lighter + 0.05) / (darker + 0.05)


@pytest.mark.parametrize("look", [_look.LIGHT, _look.DARK])
def test_colours_can_be_told_from_the_background(look):
    for text in (look.text, look.quiet):
        assert contrast(text, look.background) >= 4.5 and contrast(text, look.panel) >= 4.5
    for colour in [*look.bodies.values(), look.up, look.down]:
        assert contrast(colour, look.background) >= 3.0


def test_graphic_ephemeris_folds_longitudes():
    ax = plot.graphic_ephemeris(["sun", "mars"], "2026", "2027", modulus=45)
    assert ax.get_ylim() == (45, 0)
    for line in ax.get_lines():
        if not line.get_label().startswith("_"):
            assert np.nanmax(line.get_ydata()) <= 45 and np.nanmin(line.get_ydata()) >= 0


@pytest.mark.parametrize("call, message", [
    (lambda: plot.longitudes("mars", "2027", "2026"), "end: '2026' is not after"),
    (lambda: plot.longitudes("mars", "2026", "2027", field="declination"), "declination is no longitude"),
    (lambda: plot.graphic_ephemeris("mars", "2026", "2027", modulus=50), "modulus: 50 does not divide 360"),
    (lambda: plot.longitudes("marz", "2026", "2027"), "there is no body 'marz'"),
    (lambda: plot.events_over_prices(pd.DataFrame({"open": [1.0]}, index=pd.to_datetime(["2026-01-01"]))), "close"),
])
def test_what_is_refused(call, message):
    with pytest.raises(ValueError, match=message):
        call()


def test_what_is_missing_is_said():
    assert any("None of these bodies" in text for text in texts(plot.longitudes("earth", "2026", "2027")))
    empty = pd.Series([], dtype=float, index=pd.DatetimeIndex([]))
    figure = plot.events_over_prices(empty)
    assert any("There are no prices" in text for text in texts(figure.axes[0]))
    one_hour = pd.Series([1.0, 2.0], index=pd.to_datetime(["2026-11-21 00:00", "2026-11-21 01:00"]))
    assert any("No events" in text for text in texts(plot.events_over_prices(one_hour).axes[1]))


def bars(count):
    random = np.random.default_rng(1)
    close = 100 + np.cumsum(random.normal(size=count))
    return pd.DataFrame({"Open": close + 0.5 * random.normal(size=count), "High": close + 3, "Low": close - 3,
                         "Close": close}, index=pd.date_range("2025-11-01", periods=count))


def test_prices_have_their_events_on_a_strip():
    prices = bars(200)
    figure = plot.events_over_prices(prices, stations_of="mercury", name="Test", dark=True)
    price, strip = figure.axes
    assert len(price.patches) == 200
    phases = {line.get_label(): len(line.get_xdata()) for line in strip.get_lines()}
    expected = zenithor.events(zenithor.julian_day(prices.index[0]) - 1, zenithor.julian_day(prices.index[-1]) + 1)
    for kind in (zenithor.EventKind.NEW_MOON, zenithor.EventKind.FULL_MOON, zenithor.EventKind.LAST_QUARTER):
        assert phases["_" + kind.name] == (expected.kind == kind).sum()
    assert [label.get_text() for label in strip.get_yticklabels()] == ["Phases", "Eclipses", "Stations"]
    assert {"\u2609A", "\u263dT", "\u263fR", "\u263fD"} <= set(texts(strip))
    assert any("Dec solstice" in text for axes in figure.axes for text in texts(axes))


@pytest.mark.parametrize("count", [1, 2, 10000])
def test_few_and_many_prices(count, tmp_path):
    figure = plot.events_over_prices(bars(count), stations_of=["mercury"])
    figure.savefig(tmp_path / "prices.png")
    assert (tmp_path / "prices.png").stat().st_size > 5000
    if count == 10000:
        assert any("Left out for want of room: phases" in text for text in texts(figure.axes[0]))
        assert len(figure.axes[0].patches) == 0


def test_given_axes_are_used():
    _, ax = plt.subplots()
    assert plot.declinations(["moon", "sun"], "2026-11-21", "2026-11-22", ax=ax) is ax
