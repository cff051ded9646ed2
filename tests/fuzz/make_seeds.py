#!/usr/bin/env python3
"""Writes the seed corpus of the fuzz targets: tests/fuzz/corpus/<kind>/<name>.

A seed of an export holds six doubles and two 32-bit integers, the arguments in the order of its
prototype; one of the loader the length of the index file in two bytes, that file, and the data file.
"""

import pathlib
import struct

CORPUS = pathlib.Path(__file__).resolve().parent / "corpus"
NAN = float("nan")
INFINITY = float("inf")


def arguments(doubles, integers=()):
    doubles = list(doubles) + [0.0] * (6 - len(doubles))
    integers = list(integers) + [0] * (2 - len(integers))
    return struct.pack("<6d2i", *doubles, *integers)


def write(kind, name, content):
    folder = CORPUS / kind
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(content)


def position_seeds():
    for body in range(11):
        yield f"body-{body}", arguments([2451545.0, 0, 0, -2.35, 48.87], [body])
    yield "body-unknown", arguments([2460000.5], [11])
    yield "first-calendar", arguments([0.0], [3])
    yield "reform", arguments([2299160.5], [10])
    yield "far", arguments([1e10, 0, 0, 1e300, -1e300], [9])
    yield "nan", arguments([NAN] * 6, [10])
    yield "denormal", arguments([5e-324] * 6, [1])


def selected_event_seeds():
    for selector in range(-1, 5):
        yield f"selector-{selector}", arguments([2451545.0], [selector])
    yield "year-999", arguments([2086302.5], [1])
    yield "negative-year", arguments([-1000.5], [2])
    yield "far", arguments([-1e300], [3])
    yield "nan", arguments([NAN], [0])


def event_seeds():
    yield "today", arguments([2460676.5])
    yield "day-zero", arguments([0.0])
    yield "last-counted-day", arguments([2147483647.5])
    yield "cannot-count", arguments([1e18])
    yield "infinite", arguments([-INFINITY])
    yield "nan", arguments([NAN])


def rising_seeds():
    for body in range(11):
        yield f"body-{body}", arguments([10227.0, 0, 4, 71.0833, 42.3333], [body, 1 + body % 3])
    yield "pole", arguments([10227.0, 0, 0, 0, 90.0], [0, 1])
    yield "never-rises", arguments([14965.0, 0, 0, 0, 80.0], [0, 2])
    yield "grazing", arguments([14900.0, 0, 0, 0, 66.5622], [0, 3])
    yield "no-selector", arguments([0.0] * 5, [1, 0])
    yield "nan", arguments([0.0, NAN, 0.0, 0.0, 45.0], [10, 1])
    yield "far", arguments([1e300, -1e300, 1e18, 1e9, -1e9], [5, 2])


def loader_files(index, data):
    return struct.pack("<H", len(index)) + index + data


def index_record(first, counts):
    fields = [(first, counts[0])] + [(0, count) for count in counts[1:]]
    return b"".join(struct.pack("<2h", *field) for field in fields)


def loader_seeds():
    terms = b"".join(struct.pack("<3d", 1.0 / (k + 1), 0.1 * k, 26.0 * k) for k in range(24))
    whole = b"".join(index_record(2 * slot, [1] * 6 + [1, 0, 0, 0, 0, 0] + [1] * 6) for slot in range(9))
    yield "whole", loader_files(whole, terms)
    yield "index-ends-early", loader_files(whole[:100], terms)
    yield "data-ends-early", loader_files(whole, terms[:61])
    yield "no-bytes", loader_files(b"", b"")
    yield "no-terms", loader_files(index_record(0, [0] * 18) * 9, b"")
    yield "negative-counts", loader_files(index_record(0, [-1] * 18) * 9, terms)
    yield "counts-cancel", loader_files(index_record(0, [-5, 5] * 9) * 9, terms)
    yield "counts-disagree", loader_files(index_record(0, [100, -90] + [0] * 16) * 9, terms)
    yield "most-terms", loader_files(index_record(32767, [32767] * 18), terms)
    yield "negative-first", loader_files(index_record(-3, [4] * 18) * 9, terms)


SEEDS = {
    "position": position_seeds,
    "selected_event": selected_event_seeds,
    "framed_event": event_seeds,
    "plain_event": event_seeds,
    "rising": rising_seeds,
    "loader": loader_seeds,
}

for kind, seeds in SEEDS.items():
    for name, content in seeds():
        write(kind, name, content)
