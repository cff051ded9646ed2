"""Positions on a cluster: the same values, by blocks, also when a worker is lost."""
import subprocess
import sys
from pathlib import Path

import numpy as np
import pytest

import zenithor

pytest.importorskip("dask")
pytest.importorskip("distributed")
pd = pytest.importorskip("pandas")

import dask  # noqa: E402

import zenithor.dask as cluster  # noqa: E402


@pytest.fixture(autouse=True)
def synchronous():
    with dask.config.set(scheduler="synchronous"):
        yield


@pytest.mark.parametrize("block_size", [None, 1, 7, 100, 1000])
def test_blocks_hold_the_values(block_size):
    times = np.arange("2016-12-30", "2017-01-03", np.timedelta64(90, "m"), dtype="M8[m]")
    lazy = cluster.positions(["mars", "earth"], "2016-12-30", "2017-01-03", "90m", ["declination", "helio_longitude"],
                             block_size=block_size)
    assert lazy.shape == (len(times), 2, 2) and lazy.dtype == np.float64
    if block_size:
        assert lazy.numblocks[0] == -(-len(times) // block_size)
    expected = zenithor.position(["mars", "earth"], times, ["declination", "helio_longitude"])
    assert np.array_equal(lazy.compute(), expected, equal_nan=True)
    assert np.array_equal(lazy[5:9, 0].compute(), expected[5:9, 0])


def test_frames_hold_the_values():
    lazy = cluster.positions(["sun", "moon"], "2026-01-01", "2026-01-21", "1h", ["declination", "elongation"],
                             block_size=100, frame=True)
    assert lazy.npartitions == 5
    frame = lazy.compute()
    assert list(frame.columns) == ["sun_declination", "sun_elongation", "moon_declination", "moon_elongation"]
    assert (frame.index == pd.date_range("2026-01-01", "2026-01-21", freq="h", inclusive="left")).all()
    expected = zenithor.position(["sun", "moon"], frame.index, ["declination", "elongation"])
    assert np.array_equal(frame.to_numpy(), expected.reshape(len(frame), 4))
    assert len(lazy.loc["2026-01-05"].compute()) == 24
    assert cluster.units("moon", ["declination", "geo_distance"]) == {"moon_declination": "deg", "moon_geo_distance": "km"}


def test_a_task_is_small_however_long_its_block():
    import pickle

    lazy = cluster.positions("mars", "1900", "2100", "1m", block_size=10**6)
    assert lazy.shape[0] == 73049 * 1440
    tasks = [task for key, task in lazy.dask.items() if "block" in str(key)]
    assert len(tasks) == 106
    assert max(len(pickle.dumps(task)) for task in tasks) < 2000


@pytest.mark.parametrize("frame", [False, True])
def test_an_empty_span_has_no_moments(frame):
    assert len(cluster.positions("mars", "2026", "2026", frame=frame).compute()) == 0
    assert len(cluster.positions("mars", "2027", "2026", frame=frame).compute()) == 0


@pytest.mark.parametrize("arguments, message", [
    (("mars", "2026", "2027", "0h"), "step: '0h' is not a positive"),
    (("mars", "2026", "2027", "often"), "step: 'often' is not a step"),
    (("mars", "2026", "2027", "1M"), "step: '1M' is not a step"),
    (("mars", "2026", "NaT"), "end: 'NaT' is not a moment"),
    (("marz", "2026", "2027"), "bodies: there is no body 'marz'"),
    (("mars", "2026", "2027", "1h", "colour"), "fields: there is no field 'colour'"),
])
def test_what_is_refused(arguments, message):
    with pytest.raises(ValueError, match=message):
        cluster.positions(*arguments)


@pytest.mark.parametrize("form", ["zarr", "csv"])
def test_two_workers_of_which_one_is_lost(form, repository, tmp_path):
    """Processes of a cluster; one is killed when a third of the files is written. Every file is read back."""
    if form == "zarr":
        pytest.importorskip("zarr")
    run = subprocess.run(
        [sys.executable, repository / "python" / "examples" / "cluster_two_centuries.py", tmp_path, "--start", "1999-12-25",
         "--end", "2000-07-01", "--block-size", "250", "--lose-worker", *(["--csv"] if form == "csv" else [])],
        capture_output=True, text=True, timeout=240)
    assert run.returncode == 0, run.stdout + run.stderr
    assert "49896 places in 19 blocks, 2 workers" in run.stdout
    assert "A worker was lost when " in run.stdout
    assert "99792 values read back: the same bits" in run.stdout
    lost_at = int(run.stdout.split("A worker was lost when ")[1].split()[0])
    assert 6 <= lost_at < 19
    assert "Restarting worker" in run.stderr


LOADS = """
from pathlib import Path
from distributed import Client, LocalCluster
import zenithor.dask

def libraries():
    maps = Path("/proc/self/maps").read_text().splitlines()
    return {line.split()[-1] for line in maps if "zenithor_values" in line}, sum(
        "zenithor_values" in line and line.split()[2] == "00000000" for line in maps)

if __name__ == "__main__":
    with LocalCluster(n_workers=2, threads_per_worker=2, processes=True, dashboard_address=":0") as cluster:
        with Client(cluster) as client:
            zenithor.dask.positions("moon", "2026-01-01", "2026-02-01", block_size=20).compute()
            for paths, mappings in client.run(libraries).values():
                print(len(paths), mappings)
"""


@pytest.mark.skipif(not Path("/proc/self/maps").exists(), reason="no /proc")
def test_each_worker_has_loaded_the_library_once(tmp_path):
    script = tmp_path / "loads.py"
    script.write_text(LOADS)
    run = subprocess.run([sys.executable, script], cwd=tmp_path, check=True, capture_output=True, text=True, timeout=240)
    assert run.stdout.splitlines() == ["1 1", "1 1"]
