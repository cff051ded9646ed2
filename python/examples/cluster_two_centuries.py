#!/usr/bin/env python3
"""Hourly places of eleven bodies over two centuries, computed by a cluster into partitioned files.

    cluster_two_centuries.py FOLDER [--workers 2] [--start 1900-01-01] [--end 2100-01-01] [--csv] [--lose-worker]

Writes FOLDER/places.zarr, an array of moments by bodies by fields in one file a block; with --csv a file
of text a block, in FOLDER/places. --lose-worker ends one worker process when a third of the blocks is written.
At the end random blocks are read back and compared with values that are computed here. Prints what it took.
"""
import argparse
import os
import signal
import sys
import tempfile
import time
from pathlib import Path

import numpy as np

import zenithor
import zenithor.dask

BODIES = list(zenithor.Body)
FIELDS = ["helio_longitude", "declination"]  # each body has at least one of them


def written(folder, csv):
    """How many blocks are there: files, but for those that describe the array."""
    files = (folder / ("places" if csv else "places.zarr")).rglob("*")
    return sum(path.is_file() and path.name[0] != "." and path.name != "zarr.json" for path in files)


def lose_a_worker(client, folder, blocks, csv):
    """Ends the process of one worker when a third of the blocks is written; returns how many were."""
    processes = client.run(os.getpid)
    while written(folder, csv) < max(blocks // 3, 1):
        time.sleep(0.05)
    there = written(folder, csv)
    os.kill(next(iter(processes.values())), signal.SIGKILL)
    return there


def compute(folder, start, end, workers, csv=False, lose=False, block_size=None):
    """Computes and writes; returns the blocks, the seconds it took, the processor time of the workers that were
    there at the end, and the blocks that were written when a worker was lost."""
    import dask
    from distributed import Client, LocalCluster

    lazy = zenithor.dask.positions(BODIES, start, end, "1h", FIELDS, block_size=block_size, frame=csv)
    blocks = lazy.npartitions
    lost_at = None
    with tempfile.TemporaryDirectory() as scratch, LocalCluster(
        n_workers=workers, threads_per_worker=1, processes=True, dashboard_address=":0", local_directory=scratch
    ) as cluster, Client(cluster) as client:
        client.wait_for_workers(workers)
        client.run(__import__, "zenithor.dask")
        before = client.run(time.process_time)
        started = time.perf_counter()
        if csv:
            (folder / "places").mkdir(parents=True, exist_ok=True)
            tasks = lazy.to_csv(str(folder / "places" / "*.csv"), compute=False,
                                name_function=lambda k: f"{k:05d}")
        else:
            tasks = [lazy.to_zarr(str(folder / "places.zarr"), compute=False, overwrite=True)]
        future = client.compute(dask.delayed(len)(tasks))
        if lose:
            lost_at = lose_a_worker(client, folder, blocks, csv)
        future.result()
        seconds = time.perf_counter() - started
        after = client.run(time.process_time)
    # A worker that was started again has another address.
    return blocks, seconds, sum(spent - before.get(worker, 0) for worker, spent in after.items()), lost_at


def compare(folder, start, end, csv=False, samples=20):
    """Reads random blocks back and compares them with values computed here; returns how many were compared."""
    times = np.arange(np.datetime64(start, "h"), np.datetime64(end, "h"))
    random = np.random.default_rng(1)
    if csv:
        import pandas as pd

        parts = sorted((folder / "places").glob("*.csv"))
        frames = [pd.read_csv(part, index_col=0, parse_dates=True, float_precision="round_trip")
                  for part in random.choice(parts, min(samples, len(parts)), replace=False)]
        pieces = [(frame.index.to_numpy(), frame.to_numpy()) for frame in frames]
    else:
        import zarr

        array = zarr.open(str(folder / "places.zarr"), mode="r")
        if array.shape != (len(times), len(BODIES), len(FIELDS)):
            raise SystemExit(f"the array's shape is {array.shape}")
        size = array.chunks[0]
        firsts = random.choice(np.arange(0, len(times), size), min(samples, -(-len(times) // size)), replace=False)
        pieces = [(times[first : first + size], array[first : first + size]) for first in firsts]
    compared = 0
    for moments, values in pieces:
        expected = zenithor.position(BODIES, moments, FIELDS).reshape(values.shape)
        if not np.array_equal(values, expected, equal_nan=True):
            raise SystemExit(f"the block that begins at {moments[0]} differs")
        compared += values.size
    return compared


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=Path)
    parser.add_argument("--workers", type=int, default=2)
    parser.add_argument("--start", default="1900-01-01")
    parser.add_argument("--end", default="2100-01-01")
    parser.add_argument("--csv", action="store_true")
    parser.add_argument("--lose-worker", action="store_true")
    parser.add_argument("--block-size", type=int)
    options = parser.parse_args()
    options.folder.mkdir(parents=True, exist_ok=True)
    blocks, seconds, spent, lost_at = compute(options.folder, options.start, options.end, options.workers, options.csv,
                                       options.lose_worker, options.block_size)
    hours = int((np.datetime64(options.end, "h") - np.datetime64(options.start, "h")).astype(int))
    places = hours * len(BODIES)
    print(f"{places} places in {blocks} blocks, {options.workers} workers: {seconds:.1f} s, "
          f"{places / seconds:.0f} places a second")
    if lost_at is None:
        print(f"{spent:.1f} s of the workers' processor time, {places / spent:.0f} places in each")
    else:
        print(f"A worker was lost when {lost_at} blocks were written")
    print(f"{compare(options.folder, options.start, options.end, options.csv)} values read back: the same bits")
    return 0


if __name__ == "__main__":
    sys.exit(main())
