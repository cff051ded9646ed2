"""Positions and moments: shapes, broadcasting, missing values, what is refused."""
import datetime as dt
import math

import numpy as np
import pytest
from hypothesis import given, strategies as st
from hypothesis.extra import numpy as arrays

import zenithor
from zenithor import Body, EventKind, Field
from zenithor._library import LIBRARY

bodies = st.sampled_from(list(Body))
fields = st.sampled_from(list(Field))
days = st.floats(990557.5, 3182029.5)
shapes = arrays.array_shapes(min_dims=0, max_dims=3, min_side=0, max_side=4)
# Years 1 to 9999, where Python's own datetime can follow.
clock = st.datetimes(dt.datetime(1, 1, 2), dt.datetime(9999, 12, 30))


def same(a, b):
    return np.array_equal(a, b, equal_nan=True)


@given(st.lists(bodies, max_size=3), st.lists(fields, max_size=3),
       shapes.flatmap(lambda shape: arrays.arrays(np.float64, shape, elements=days)))
def test_a_table_is_its_single_values(chosen, asked, times):
    table = zenithor.position(chosen, times, asked)
    assert table.shape == times.shape + (len(chosen), len(asked))
    assert table.dtype == np.float64
    for index in np.ndindex(times.shape):
        for b, body in enumerate(chosen):
            for f, field in enumerate(asked):
                value = zenithor.position(body, times[index], field)
                assert type(value) is float
                assert same(table[index + (b, f)], value)
                assert same(value, LIBRARY.Value(body, field, times[index]))


@given(bodies, fields, arrays.arrays(np.float64, st.integers(0, 20), elements=days))
def test_a_single_body_and_field_have_no_axis(body, field, times):
    column = zenithor.position(body, times, field)
    assert column.shape == times.shape
    assert same(column, zenithor.position([body], times, [field])[:, 0, 0])
    assert same(column, zenithor.position(body.name.lower(), list(times), int(field)))
    assert same(column[::-1], zenithor.position(body, times[::-1], field))


def test_long_arrays_are_the_same_as_short_ones():
    times = np.linspace(2451545, 2451645, 70000)
    whole = zenithor.position("moon", times, "declination")
    assert same(whole[65530:65550], zenithor.position("moon", times[65530:65550], "declination"))
    table = zenithor.position(["moon", "sun"], times[:40000], ["declination", "centuries"])
    assert same(table[:, 0, 0], whole[:40000])
    assert same(table[32767:32770], zenithor.position(["moon", "sun"], times[32767:32770], ["declination", "centuries"]))


@pytest.mark.parametrize("missing", [np.nan, np.inf, -np.inf])
def test_numbers_that_are_no_moments_are_nan(missing):
    values = zenithor.position(["mars", "moon"], [2451545.0, missing, 2451546.0], ["declination", "elongation"])
    assert np.isnan(values[1]).all() and np.isfinite(values[[0, 2]]).all()


@pytest.mark.parametrize("times", [
    np.array(["2026-11-21", "NaT"], dtype="M8[D]"),
    [dt.date(2026, 11, 21), None],
    ["2026-11-21", "NaT"],
    np.array([dt.datetime(2026, 11, 21), np.datetime64("NaT")], dtype=object),
])
def test_missing_times_are_nan(times):
    values = zenithor.position("mars", times)
    assert values[0] == zenithor.position("mars", "2026-11-21T00:00:00Z") and np.isnan(values[1])


def test_what_a_body_has_not_is_nan_and_the_rest_is_given():
    values = zenithor.position(["earth", "mars"], 2451545.0, ["helio_longitude", "apparent_longitude"])
    assert np.isnan(values[0, 1]) and np.isfinite(values).sum() == 3
    assert not zenithor.has_field("earth", "apparent_longitude")


@given(clock)
def test_every_way_to_write_a_time_is_the_same_moment(time):
    expected = LIBRARY.ClockToDynamical(
        2440587.5 + (time - dt.datetime(1970, 1, 1)) // dt.timedelta(1)
        + ((time - dt.datetime(1970, 1, 1)) % dt.timedelta(1)) / dt.timedelta(1))
    zone = dt.timezone(dt.timedelta(hours=5, minutes=45))
    for given_time in (time, time.isoformat(), time.isoformat() + "Z", np.datetime64(time, "us"),
                       time.replace(tzinfo=dt.timezone.utc).astimezone(zone),
                       time.replace(tzinfo=dt.timezone.utc).astimezone(zone).isoformat()):
        assert zenithor.julian_day(given_time) == expected
        assert zenithor.julian_day([given_time])[0] == expected
    assert zenithor.julian_day(time, scale="tt") == pytest.approx(expected, abs=1.6)


@given(st.lists(st.integers(-(2**37), 2**34), max_size=30))
def test_times_as_arrays_are_the_times_one_by_one(seconds):
    times = np.array(seconds, dtype=np.int64).astype("M8[s]")
    assert same(zenithor.julian_day(times), [zenithor.julian_day(time) for time in times])
    clock_days = zenithor.julian_day(times, scale="tt")
    assert same(zenithor.julian_day(times), [LIBRARY.ClockToDynamical(day) for day in clock_days])


def test_every_leap_second_is_the_librarys():
    """Around each month's beginning since 1970 the array's way and the library's are one."""
    starts = np.arange("1970-01", "2060-01", dtype="M8[M]").astype("M8[us]")
    times = (starts[:, None] + np.array([-1_000_000, -1, 0, 1, 1_000_000], dtype="m8[us]")).ravel()
    clock_days = zenithor.julian_day(times, scale="tt")
    expected = [LIBRARY.ClockToDynamical(day) for day in clock_days]
    assert same(zenithor.julian_day(times), expected)
    assert len(zenithor._times._leap_periods()[0]) == 28


@pytest.mark.parametrize("unit", ["Y", "M", "W", "D", "h", "m", "s", "ms", "us", "ns", "ps"])
def test_units_of_datetime64(unit):
    time = np.datetime64("1970-01-01", unit)
    assert zenithor.julian_day(time, scale="tt") == 2440587.5
    assert zenithor.julian_day(np.array([time, "NaT"], dtype=f"M8[{unit}]"), scale="tt")[0] == 2440587.5
    many = np.array([-3, -2, -1, 0, 1, 2]).astype(f"M8[{unit}]")
    assert (np.diff(zenithor.julian_day(many, scale="tt")) >= 0).all()


@given(st.lists(st.integers(-(2**46), 2**45) | st.none(), max_size=20))
def test_times_come_back_to_the_millisecond(milliseconds):
    times = np.array(milliseconds, dtype="M8[ms]")
    back = zenithor.datetime64(zenithor.julian_day(times))
    assert back.dtype == np.dtype("M8[ms]") and back.shape == times.shape
    assert np.array_equal(np.isnat(back), np.isnat(times))
    known = ~np.isnat(times)
    # Where one polynomial of universal time meets the next, up to 0.26 s are lost.
    assert (np.abs(back[known] - times[known]) <= np.timedelta64(261, "ms")).all()
    later = known & (times >= np.datetime64("1972-01-01"))
    assert (back[later] == times[later]).all()


def test_days_that_no_datetime_holds_are_nat():
    assert np.isnat(zenithor.datetime64([np.nan, np.inf, -np.inf, 1e300, -1e12])).all()
    assert np.isnat(zenithor.datetime64(np.nan, scale="tt"))


def test_integers_are_julian_days():
    assert zenithor.position("mars", 2451545) == zenithor.position("mars", np.int32(2451545))
    assert same(zenithor.position("mars", np.array([2451545], dtype=np.uint32)), [zenithor.position("mars", 2451545.0)])


def test_scales():
    day = 2460000.5
    assert zenithor.position("moon", day, scale="tt") == zenithor.position("moon", day)
    assert zenithor.position("moon", day, scale="utc") == zenithor.position("moon", "2023-02-25")
    assert zenithor.position("moon", "2023-02-25", scale="tt") == zenithor.position("moon", day)
    assert zenithor.julian_day("2023-02-25") - day == pytest.approx(69.184 / 86400, abs=1e-9)


@pytest.mark.parametrize("call, message", [
    (lambda: zenithor.position("marz", 2451545.0), r"bodies: there is no body 'marz'; there are sun, "),
    (lambda: zenithor.position(["mars", 11], 2451545.0), r"bodies\[1\]: there is no body 11"),
    (lambda: zenithor.position([["mars"]], 2451545.0), r"bodies: one body or a list"),
    (lambda: zenithor.position(True, 2451545.0), r"bodies: there is no body True"),
    (lambda: zenithor.position(Field.YEAR, 2451545.0), r"bodies: there is no body"),
    (lambda: zenithor.position("mars", 2451545.0, ["declination", "colour"]), r"fields\[1\]: there is no field 'colour'"),
    (lambda: zenithor.position("mars", 2451545.0, 12), r"fields: there is no field 12"),
    (lambda: zenithor.position("mars", ["2026-01-01", "yesterday"]), r"times\[1\]: 'yesterday' is not a date"),
    (lambda: zenithor.position("mars", "now"), r"times: 'now' is not a date"),
    (lambda: zenithor.position("mars", ""), r"times: '' is not a date"),
    (lambda: zenithor.position("mars", "2026-02-30"), r"times: '2026-02-30' is not a date"),
    (lambda: zenithor.position("mars", np.array([[None, "x"]], dtype=object)), r"times\[0, 1\]: 'x' is not a date"),
    (lambda: zenithor.position("mars", [2451545.0, True, None]), r"times\[1\]: True is not a moment"),
    (lambda: zenithor.position("mars", [True, False]), r"times: an array of bool holds no moments"),
    (lambda: zenithor.position("mars", 1j), r"times: an array of complex128 holds no moments"),
    (lambda: zenithor.position("mars", 2451545.0, scale="ut1"), r"scale: 'ut1' is neither"),
    (lambda: zenithor.stations("mars", 2451545.0, "4001"), r"end: '4001' is not a moment between the years"),
    (lambda: zenithor.stations("mars", np.nan, "2000"), r"start: nan is not a moment"),
    (lambda: zenithor.stations("mars", ["2000"], "2001"), r"start: one moment is needed"),
    (lambda: zenithor.stations("earth", "2000", "2001"), r"stations of earth, apparent_longitude: "),
    (lambda: zenithor.stations("mars", "2000", "2001", field="elongation"), r"stations of mars, elongation: "),
    (lambda: zenithor.ingresses("mars", "2000", "2001", field="declination"), r"field: declination is no longitude"),
    (lambda: zenithor.crossings("mars", "declination", [0, math.inf], "2000", "2001"), r"targets\[1\]: inf is not a finite"),
    (lambda: zenithor.aspects("mars", "mars", 0, "2000", "2001"), r"aspects of mars and mars"),
    (lambda: zenithor.aspects("mars", "venus", "square", "2000", "2001"), r"angles: 'square' is not a finite"),
    (lambda: zenithor.events("2000", "2001", "comet"), r"kinds: there is no kind of event 'comet'; there are seasons, "),
    (lambda: zenithor.events("2000", "2001", ["phases", 19]), r"kinds\[1\]: there is no kind of event 19"),
    (lambda: zenithor.events("2000", "2001", []), r"kinds: at least one"),
    (lambda: zenithor.rise("earth", "2000-01-01", 0, 0), r"body: the Earth does not rise"),
    (lambda: zenithor.rise("sun", "2000-01-01", [0, 95], 0), r"latitude\[1\]: 95.0 is not from -90 to 90"),
    (lambda: zenithor.rise("sun", "2000-01-01", 0, math.inf), r"longitude: inf is not finite"),
])
def test_what_is_refused(call, message):
    with pytest.raises(ValueError, match=message):
        call()


def test_values_are_refused_before_anything_is_computed():
    with pytest.raises(ValueError, match=r"times\[2\]"):
        zenithor.position("mars", ["2026-01-01", None, "31/12/2026"])


def test_codes_by_name_and_number():
    for codes, take in ((Body, zenithor._codes.body_of), (Field, zenithor._codes.field_of)):
        for code in codes:
            spoken = code.name.lower().replace("_", " ")
            assert {take(code), take(int(code)), take(np.int32(code)), take(code.name), take(spoken),
                    take(spoken.title()), take(spoken.replace(" ", "-"))} == {code}
    assert zenithor.kind_name(EventKind.FULL_MOON) == "full Moon"
