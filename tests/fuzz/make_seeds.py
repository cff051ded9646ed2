#!/usr/bin/env python3
"""Writes the seed corpus of the fuzz targets: tests/fuzz/corpus/<kind>/<name>.

A seed of an export holds six doubles and two 32-bit integers, the arguments in the order of its
prototype; one of the loader the length of the index file (12 bits) and the slot (4 bits) in two
bytes, that file, and the data file; one of the values library eight doubles and eight 32-bit integers
(tests/support/value_calls.h).
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


def answers_seeds():
    chart = bytes(byte for day in range(8) for body in range(1, 12) for byte in (day, body))
    yield "chart-twice", chart + chart
    yield "hours", bytes(byte for repeat in range(2) for hour in range(64, 80) for byte in (hour, 5))
    yield "odd-days", bytes(byte for repeat in range(2) for day in range(128, 136) for byte in (day, 10))
    yield "larger-room", chart[:40] + bytes([255, 5]) + chart[:40]
    yield "own-day", (bytes([200, 5]) + struct.pack("<d", 2460000.125)) * 2 + bytes([201, 10])


def rising_seeds():
    for body in range(11):
        yield f"body-{body}", arguments([10227.0, 0, 4, 71.0833, 42.3333], [body, 1 + body % 3])
    yield "pole", arguments([10227.0, 0, 0, 0, 90.0], [0, 1])
    yield "never-rises", arguments([14965.0, 0, 0, 0, 80.0], [0, 2])
    yield "grazing", arguments([14900.0, 0, 0, 0, 66.5622], [0, 3])
    yield "no-selector", arguments([0.0] * 5, [1, 0])
    yield "nan", arguments([0.0, NAN, 0.0, 0.0, 45.0], [10, 1])
    yield "far", arguments([1e300, -1e300, 1e18, 1e9, -1e9], [5, 2])
    # The bodies that need the fewest terms, at the latitudes where the answers change their kind.
    for body, name in ((0, "sun"), (9, "pluto"), (10, "moon")):
        for selector in (1, 2, 3):
            for latitude in (0.0, 51.5, -60.85, 66.56, -67.4, 78.2232, -90.0):
                day = 14000.0 + 37.0 * selector + latitude
                yield f"{name}-{selector}-at-{latitude}", arguments(
                    [float(int(day)), 1.0, selector - 2.0, 165.1, latitude], [body, selector])
    yield "unsettled-moon", arguments([10664, 1, 0, -15.6267, 78.2232], [10, 1])
    yield "unsettled-at-60.85", arguments([-37621, 0, 0, 165.1015840607574, 60.85180517421211], [10, 1])
    yield "minutes-before-midnight", arguments([15000.0, 1439.9999999999998, -14.0, 180.0, 45.0], [0, 1])
    yield "fraction-of-a-day", arguments([15000.25, -0.5, 5.75, -180.0, -45.0], [9, 3])
    yield "jump-of-delta-t", arguments([14245.0, 0, 0, 0, 45.0], [10, 2])
    yield "before-948", arguments([-369700.0, 0, 0, 0, 45.0], [10, 3])


ALL_SLOTS = 15


def loader_files(index, data, slot=0):
    """`slot`: -1 to 9, or ALL_SLOTS."""
    bits = min(slot + 1, 15)
    return struct.pack("<H", len(index) | bits << 12) + index + data


def index_record(first, counts):
    fields = [(first, counts[0])] + [(0, count) for count in counts[1:]]
    return b"".join(struct.pack("<2h", *field) for field in fields)


def loader_pairs():
    terms = b"".join(struct.pack("<3d", 1.0 / (k + 1), 0.1 * k, 26.0 * k) for k in range(24))
    whole = b"".join(index_record(2 * slot, [1] * 6 + [1, 0, 0, 0, 0, 0] + [1] * 6) for slot in range(9))
    yield "whole", whole, terms
    yield "index-ends-early", whole[:100], terms
    yield "data-ends-early", whole, terms[:61]
    yield "no-bytes", b"", b""
    yield "no-terms", index_record(0, [0] * 18) * 9, b""
    yield "negative-counts", index_record(0, [-1] * 18) * 9, terms
    yield "counts-cancel", index_record(0, [-5, 5] * 9) * 9, terms
    yield "counts-disagree", index_record(0, [100, -90] + [0] * 16) * 9, terms
    yield "most-terms", index_record(32767, [32767] * 18), terms
    yield "negative-first", index_record(-3, [4] * 18) * 9, terms


def loader_seeds():
    for name, index, data in loader_pairs():
        yield name, loader_files(index, data)
        yield f"{name}-last-slot", loader_files(index, data, 8)
        yield f"{name}-all-slots", loader_files(index, data, ALL_SLOTS)
    for slot in (-1, 9):
        yield f"no-slot-{slot}", loader_files(b"", b"", slot)
    yield "one-term", loader_files(index_record(0, [1] + [0] * 17), struct.pack("<3d", 1.0, 2.0, 3.0))
    yield "equal-frequencies", loader_files(
        index_record(0, [4] * 6 + [0] * 12), struct.pack("<3d", 1.0, 2.0, 6283.0758) * 24)
    yield "not-numbers", loader_files(
        index_record(0, [2] + [0] * 17), struct.pack("<6d", NAN, INFINITY, -INFINITY, 1e300, 1e308, 5e-324))


def value_seeds():
    def seed(doubles, integers, length=8, nulls=0):
        doubles = list(doubles) + [2451545.0] * (8 - len(doubles))
        integers = list(integers) + [0] * (6 - len(integers))
        return struct.pack("<8d8i", *doubles, *integers, length, nulls)

    yield "mars", seed([2451545.0, 2451910.0, 90.0], [4, 101, 5])
    yield "moon", seed([2460000.5, 2460020.5, 30.0], [10, 8, 0])
    yield "civil-day", seed([2460310.5, 1.0, 13.4, 52.5], [10, 1])
    yield "polar-day", seed([2460482.5, 1.0, 18.9, 90.0], [0, 2])
    yield "table-by-field", seed([2451545.0, 2451546.0], [4, 10, 101, 8, 2])
    yield "date", seed([59.5, 1.0], [2024, 2, 29, 23, 59])
    yield "kinds", seed([2451545.0, 2452000.0], [0x3BFFF])
    yield "no-arrays", seed([2451545.0, 2451555.0], [1, 4], 8, 3)
    yield "not-numbers", seed([NAN, INFINITY, -INFINITY, 1e300], [-1, 999], -1)


SEEDS = {
    "values": value_seeds,
    "position": position_seeds,
    "selected_event": selected_event_seeds,
    "framed_event": event_seeds,
    "plain_event": event_seeds,
    "rising": rising_seeds,
    "loader": loader_seeds,
    "answers": answers_seeds,
}

for kind, seeds in SEEDS.items():
    for name, content in seeds():
        write(kind, name, content)
