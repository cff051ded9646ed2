"""The values library, loaded once: its functions as ctypes prototypes.

Calls release the interpreter's lock. What the functions do is told in ``values.h``.
"""
from __future__ import annotations

import ctypes
import sys
from pathlib import Path
from typing import Any

# Result and arguments of each function: d a double, i a 32-bit integer, p a pointer, s a text.
PROTOTYPES = {
    "Value": ("d", "iid"),
    "Values": ("i", "iipip"),
    "Table": ("i", "pipipipiii"),
    "Crossings": ("i", "iidddpi"),
    "Stations": ("i", "iiddpi"),
    "Aspects": ("i", "iiidddpi"),
    "DirectedCrossings": ("i", "iidddppi"),
    "DirectedStations": ("i", "iiddppi"),
    "DirectedAspects": ("i", "iiidddppi"),
    "NextCrossing": ("d", "iidd"),
    "NextStation": ("d", "iid"),
    "NextAspect": ("d", "iiidd"),
    "Events": ("i", "iddpi"),
    "EventsOfKinds": ("i", "iddppi"),
    "NextEvent": ("d", "id"),
    "NextEventOfKinds": ("d", "idp"),
    "Daily": ("i", "iddddpp"),
    "DailyTime": ("d", "iidddd"),
    "DailyStatus": ("i", "iidddd"),
    "ClockToDynamical": ("d", "d"),
    "DynamicalToClock": ("d", "d"),
    "DynamicalLessClock": ("d", "d"),
    "JulianDay": ("d", "iiiiid"),
    "Calendar": ("i", "ddpp"),
    "Version": ("s", ""),
    "VersionNumber": ("i", ""),
    "DataFingerprint": ("s", ""),
    "BodyName": ("s", "i"),
    "FieldName": ("s", "i"),
    "FieldUnit": ("s", "ii"),
    "FieldPeriod": ("d", "i"),
    "HasField": ("i", "ii"),
    "KindName": ("s", "i"),
    "Message": ("s", "i"),
}

TYPES: dict[str, Any] = {
    "d": ctypes.c_double,
    "i": ctypes.c_int32,
    "p": ctypes.c_void_p,
    "s": ctypes.c_char_p,
}

# The first number of the library's version; a library of another one has other contracts.
MAJOR_VERSION = 1

# The days between which events and searches are answered.
FIRST_DAY = 990557.5
LAST_DAY = 3182029.5


def _open() -> Any:
    name = "zenithor_values.dll" if sys.platform == "win32" else "libzenithor_values.so"
    path = Path(__file__).with_name(name)
    if not path.is_file():
        raise ImportError(
            f"{path} is missing: this copy of zenithor came without its library. Install the wheel "
            "of this platform; `make python` builds them in out/dist."
        )
    if sys.platform == "win32":
        return ctypes.WinDLL(str(path))
    return ctypes.CDLL(str(path))


class _Library:
    """The functions by their C names without "Zenithor"."""

    def __init__(self, loaded: Any) -> None:
        for name, (result, arguments) in PROTOTYPES.items():
            function = getattr(loaded, "Zenithor" + name)
            function.restype = TYPES[result]
            function.argtypes = [TYPES[letter] for letter in arguments]
            setattr(self, name, function)
        version = self.VersionNumber()
        if version // 10000 != MAJOR_VERSION:
            raise ImportError(
                f"the library beside {__file__} is of version {version // 10000}, this package "
                f"needs {MAJOR_VERSION}: install zenithor again"
            )

    def __getattr__(self, name: str) -> Any:  # for the type checker: set in __init__
        raise AttributeError(name)


LIBRARY = _Library(_open())


def text(answer: bytes | None) -> str:
    """A text of the library; empty where there is none."""
    return "" if answer is None else answer.decode("ascii")


def raise_for(code: int, question: str) -> int:
    """The count that a function answered with; a ``ValueError`` for one of its error codes."""
    if code < 0:
        raise ValueError(f"{question}: {text(LIBRARY.Message(code))}")
    return code
