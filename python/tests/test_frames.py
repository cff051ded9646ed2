"""Data frames, and pandas objects as arguments."""
import numpy as np
import pytest

import zenithor

pd = pytest.importorskip("pandas")
PANDAS_2 = int(pd.__version__.split(".")[0]) >= 2  # holds times in other units than nanoseconds

HOURS = pd.date_range("2026-03-28", "2026-03-31", freq="6h", tz="Europe/Stockholm")


def test_times_of_pandas_are_their_universal_time():
    expected = zenithor.position("mars", HOURS.tz_convert("UTC").tz_localize(None).to_numpy())
    naive = HOURS.tz_convert("UTC").tz_localize(None)
    for times in (HOURS, pd.Series(HOURS), list(HOURS), naive, pd.Series(naive), naive.to_list(), HOURS.to_pydatetime(),
                  pd.Series(HOURS, dtype=object), HOURS.strftime("%Y-%m-%dT%H:%M:%S%z").str.replace("00$", ":00", regex=True)):
        assert np.array_equal(zenithor.position("mars", times), expected), type(times)
    assert zenithor.position("mars", HOURS[0]) == expected[0]
    missing = zenithor.position("mars", pd.DatetimeIndex(["2026-01-01", pd.NaT]))
    assert np.isfinite(missing[0]) and np.isnan(missing[1])
    assert np.isnan(zenithor.position("mars", pd.NaT))


def test_frame_of_one_body():
    frame = zenithor.position("moon", HOURS, ["declination", "geo_distance"], frame=True)
    assert frame.index.equals(HOURS)
    assert list(frame.columns) == ["declination", "geo_distance"]
    assert frame.attrs["units"] == {"declination": "deg", "geo_distance": "km"}
    assert frame.attrs["data_fingerprint"] == zenithor.data_fingerprint
    assert np.array_equal(frame.to_numpy(), zenithor.position("moon", HOURS, ["declination", "geo_distance"]))


def test_frame_of_several_bodies():
    frame = zenithor.position(["moon", "mars"], HOURS, ["declination", "geo_distance"], frame=True)
    assert frame.columns.names == ["body", "field"]
    assert frame.attrs["units"][("mars", "geo_distance")] == "au"
    assert np.array_equal(frame["mars"]["declination"], zenithor.position("mars", HOURS, "declination"))


@pytest.mark.parametrize("times, name, kind", [
    ([2451545.0, 2451546.0], "julian_day", "f"),
    (2451545.0, "julian_day", "f"),
    ("2026-01-01", "time", "M"),
    (["2026-01-01", "2026-01-02T12:00+01:00"], "time", "M"),
    (np.array(["2026-01-01"], dtype="M8[D]"), "time", "M"),
    (np.array(["0026-01-01"], dtype="M8[D]"), *(("time", "M") if PANDAS_2 else ("julian_day", "f"))),
])
def test_rows_of_a_frame_are_the_times(times, name, kind):
    frame = zenithor.position("mars", times, frame=True)
    assert frame.index.name == name
    assert np.asarray(frame.index.values).dtype.kind == kind
    assert len(frame) == np.size(times)


def test_frames_have_no_more_than_one_dimension_of_times():
    with pytest.raises(ValueError, match="not 2 dimensions"):
        zenithor.position("mars", [[2451545.0]], frame=True)


def test_frames_of_searches():
    stations = zenithor.stations(["mercury", "venus"], "2026", "2027", frame=True)
    assert list(stations.columns) == ["time", "julian_day", "body", "direction"]
    assert str(stations["time"].dtype) == f"datetime64[{'ms' if PANDAS_2 else 'ns'}, UTC]"
    assert set(stations["body"]) == {"mercury", "venus"}
    events = zenithor.events("2026", "2027", frame=True)
    assert set(events["kind"]) >= {"new_moon", "solar_total", "march_equinox"}
    aspects = zenithor.aspects("mars", "venus", 90, "2026", "2030", frame=True)
    assert list(aspects.columns) == ["time", "julian_day", "body", "other", "angle", "direction"]
    assert set(aspects["other"]) == {"venus"}
    assert list(zenithor.ingresses("sun", "2026", "2027", frame=True)["target"]) == [300, 330, *range(0, 300, 30)]
    assert len(zenithor.crossings("moon", "declination", 0, "2026", "2026", frame=True)) == 0


def test_times_that_pandas_does_not_hold_are_told():
    events = zenithor.events("1500", "1501")
    assert len(events) > 50
    if PANDAS_2:
        frame = zenithor.events("1500", "1501", frame=True)
        assert np.array_equal(frame["time"].dt.tz_convert(None).to_numpy().astype("M8[ms]"), events.time)
    else:
        with pytest.raises(ValueError, match="pandas holds times from 1677"):
            zenithor.events("1500", "1501", frame=True)


def test_frame_of_rises_in_the_zone_of_its_days():
    dates = pd.date_range("2026-03-28", "2026-03-30", tz="Europe/Stockholm")
    frame = zenithor.rise("sun", dates, 59.33, 18.07, frame=True)
    assert frame.index.equals(dates) and frame.index.name == "day"
    assert str(frame["rise"].dt.tz) == "Europe/Stockholm"
    assert (frame["rise"].dt.date == dates.date).all()
    assert (frame["set_status"] == "happens").all()
    utc = zenithor.rise("sun", dates, 59.33, 18.07)
    assert np.array_equal(frame["rise"].dt.tz_convert(None).to_numpy().astype("M8[ms]"), utc.rise)
    polar = zenithor.rise("sun", ["2026-06-21", "2026-12-21"], 80, 0, frame=True)
    assert list(polar["rise_status"]) == ["always_up", "never_up"] and polar["rise"].isna().all()
