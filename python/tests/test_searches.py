"""Searches: order, spans, agreement with the values; rise, transit and set."""
import datetime as dt

import numpy as np
import pytest
from hypothesis import given, settings, strategies as st

import zenithor
from zenithor import Body, EventKind, Field, RiseStatus
from zenithor._library import LIBRARY

days = st.floats(2360000.0, 2540000.0)  # the years 1749 to 2242
lengths = st.floats(0.0, 900.0)
turning = st.sampled_from([body for body in Body if body not in (Body.SUN, Body.MOON, Body.EARTH)])
apparent = st.sampled_from([body for body in Body if body != Body.EARTH])


def difference(a, b):
    return (a - b + 180.0) % 360.0 - 180.0


def check_order(found, start, end):
    assert (np.diff(found.julian_day) >= 0).all()
    assert ((found.julian_day >= start) & (found.julian_day < end)).all()
    assert (np.diff(found.time).astype(np.int64) >= 0).all()
    assert len(found) == len(found.julian_day) == len(found.time)


@settings(max_examples=25)
@given(apparent, days, lengths)
def test_ingresses(body, start, length):
    found = zenithor.ingresses(body, start, start + length)
    check_order(found, start, start + length)
    longitudes = zenithor.position(body, found.julian_day)
    assert (np.abs(difference(longitudes, found.target)) < 1e-4).all()
    # From one to the next the body stays within a sign.
    inside = zenithor.position(body, (found.julian_day[1:] + found.julian_day[:-1]) / 2)
    after = found.target[:-1] - np.where(found.direction[:-1] < 0, 30.0, 0.0)
    assert np.array_equal(inside // 30, after % 360 // 30)


@settings(max_examples=25)
@given(turning, days, lengths)
def test_stations(body, start, length):
    found = zenithor.stations(body, start, start + length)
    check_order(found, start, start + length)
    assert (np.abs(np.diff(found.direction)) == 2).all()  # retrograde and direct in turns
    if len(found):
        before, after = zenithor.position(body, found.julian_day + [[-0.25], [0.25]], "direction")
        assert np.array_equal(after, found.direction) and np.array_equal(before, -found.direction)


@settings(max_examples=15)
@given(apparent, apparent, st.sampled_from([0.0, 60.0, 90.0, 120.0, 180.0]), days, lengths)
def test_aspects(body, other, angle, start, length):
    if body == other:
        return
    found = zenithor.aspects(body, other, angle, start, start + length)
    check_order(found, start, start + length)
    values = zenithor.position([body, other], found.julian_day)
    reached = difference(values[:, 0] - values[:, 1], found.direction * angle)
    assert (np.abs(reached) < 1e-4).all()
    other_way = zenithor.aspects(other, body, angle, start, start + length)
    assert np.allclose(other_way.julian_day, found.julian_day, rtol=0, atol=2e-6)


@settings(max_examples=25)
@given(days, lengths, st.floats(0.0, 1.0))
def test_a_span_is_its_parts(start, length, share):
    middle, end = start + share * length, start + length
    for search in (zenithor.events, lambda a, b: zenithor.stations("mercury", a, b)):
        whole = search(start, end).julian_day
        parts = np.concatenate([search(start, middle).julian_day, search(middle, end).julian_day])
        assert np.array_equal(whole, parts)


def test_centuries_are_searched_one_after_another():
    """The library's answer for the whole span at once."""
    start, end = 2305447.5, 2488069.5  # 1600 to 2100
    buffer = np.empty(5000)
    count = LIBRARY.Stations(Body.MERCURY, Field.APPARENT_LONGITUDE, start, end, buffer.ctypes.data, 5000)
    assert 3000 < count < 5000
    assert np.array_equal(zenithor.stations("mercury", start, end).julian_day, buffer[:count])


def test_what_happens_where_two_centuries_meet_is_found_once():
    turn = zenithor.stations("mercury", "2026", "2027").julian_day[2]
    for shift in (0.0, 1e-9, -1e-9, 5e-4, -5e-4):
        found = zenithor.stations("mercury", turn - 36525.0 + shift, turn + 30).julian_day
        assert (found == turn).sum() == 1


def test_no_capacity_is_too_small():
    """Every hour of a year is a crossing of the calendar's minute."""
    found = zenithor.crossings("sun", "minute", 30, 2451544.5, 2451644.5)
    assert len(found) == 2400


def test_events_of_a_kind_and_of_all():
    everything = zenithor.events("1990", "2030")
    check_order(everything, zenithor.julian_day("1990"), zenithor.julian_day("2030"))
    for kind in EventKind:
        alone = zenithor.events("1990", "2030", kind)
        united = {EventKind.SOLAR_ANY: range(8, 14), EventKind.LUNAR_ANY: range(15, 18)}.get(kind, [kind])
        assert np.array_equal(alone.julian_day, everything.julian_day[np.isin(everything.kind, united)])
    for names, count in (("seasons", 160), (["new_moon", "full moon"], 990), ("eclipses", 182)):
        assert len(zenithor.events("1990", "2030", names)) == pytest.approx(count, abs=2)


def test_known_eclipses():
    """Espenak and Meeus, Five Millennium Canon: greatest eclipse 2017 August 21 18:26:40 TD, 1999 August 11
    11:04:09 TD. What the library gives follows Meeus, Astronomical Algorithms, chapter 54: to a minute or two."""
    for day, expected in (("2017-08-21", "2017-08-21T18:26:40"), ("1999-08-11", "1999-08-11T11:04:09")):
        start = np.datetime64(day)
        found = zenithor.events(start, start + 1, "solar_total")
        given_time = zenithor.datetime64(found.julian_day, scale="tt")
        assert len(found) == 1 and abs(given_time[0] - np.datetime64(expected)) < np.timedelta64(2, "m")


def test_several_bodies_are_merged_in_order():
    found = zenithor.stations(["mercury", "mars", "sun"], "2020", "2025")
    assert set(found.body) == {Body.MERCURY, Body.MARS}
    for body in (Body.MERCURY, Body.MARS):
        assert np.array_equal(found.julian_day[found.body == body], zenithor.stations(body, "2020", "2025").julian_day)
    check_order(found, zenithor.julian_day("2020"), zenithor.julian_day("2025"))
    many = zenithor.aspects("mars", ["jupiter", "saturn"], [0, 90], "2020", "2025")
    assert {(other, angle) for other, angle in zip(many.other, many.angle)} == {(5, 0.0), (5, 90.0), (6, 0.0), (6, 90.0)}


@pytest.mark.parametrize("search", [
    lambda a, b: zenithor.events(a, b),
    lambda a, b: zenithor.stations("mars", a, b),
    lambda a, b: zenithor.stations([], a, b + 100),
    lambda a, b: zenithor.ingresses(["mars", "sun"], a, b),
    lambda a, b: zenithor.aspects("mars", [], 0, a, b + 100),
    lambda a, b: zenithor.crossings("mars", "declination", [], a, b + 100),
])
def test_nothing_found_is_empty(search):
    for end in (2451545.0, 2451540.0):
        found = search(2451545.0, end)
        assert len(found) == 0 and found.time.dtype == np.dtype("M8[ms]")


def test_places_broadcast_in_rise():
    dates = np.array(["2026-03-20", "2026-06-21", "NaT"], dtype="M8[D]")
    latitudes = np.array([[0.0], [59.33], [np.nan], [80.0]])
    found = zenithor.rise("sun", dates, latitudes, 18.07)
    assert found.julian_day.shape == found.status.shape == (4, 3, 3)
    assert found.rise.shape == (4, 3)
    alone = zenithor.rise("sun", dates[1], 59.33, 18.07)
    assert np.array_equal(found.julian_day[1, 1], alone.julian_day)
    assert (found.status[2] == RiseStatus.UNSETTLED).all() and (found.status[:, 2] == RiseStatus.UNSETTLED).all()
    assert np.isnat(found.time[2]).all() and np.isnat(found.time[:, 2]).all()
    assert found.status[3, 1].tolist() == [RiseStatus.ALWAYS_UP, RiseStatus.HAPPENS, RiseStatus.ALWAYS_UP]


@given(st.dates(dt.date(1900, 1, 1), dt.date(2100, 1, 1)), st.floats(-60, 60), st.floats(-180, 180),
       st.integers(-12, 14))
def test_rise_of_a_civil_day_lies_in_it(day, latitude, longitude, zone):
    """Whichever way the day is written: as a date, as a time with a zone, as a Julian day."""
    found = zenithor.rise("sun", day, latitude, longitude, zone=zone)
    start = np.datetime64(day, "ms") - np.timedelta64(zone, "h")
    times = found.time[found.status == RiseStatus.HAPPENS]
    assert len(times) >= 2
    assert ((times >= start) & (times <= start + np.timedelta64(1, "D"))).all()
    aware = dt.datetime(day.year, day.month, day.day, 23, 59, tzinfo=dt.timezone(dt.timedelta(hours=zone)))
    julian_day = 2440587.5 + (day - dt.date(1970, 1, 1)).days + 0.5 - zone / 24
    for same_day, hours in ((aware, None), ([aware], None), (julian_day, zone), (np.datetime64(day), zone),
                            (dt.datetime(day.year, day.month, day.day, 22), zone)):
        again = zenithor.rise("sun", same_day, latitude, longitude, zone=hours)
        assert np.array_equal(again.julian_day.reshape(3), found.julian_day, equal_nan=True)
