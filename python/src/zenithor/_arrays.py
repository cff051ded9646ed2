"""Arrays as their readers, and the type checkers of every NumPy, take them."""
from __future__ import annotations

from typing import Any, List, cast

import numpy as np
import numpy.typing as npt

FloatArray = npt.NDArray[np.float64]


def listed_floats(column: npt.NDArray[Any]) -> List[float]:
    """The numbers of a column."""
    return cast(List[float], column.tolist())


def listed_ints(column: npt.NDArray[Any]) -> List[int]:
    """The whole numbers of a column."""
    return cast(List[int], column.tolist())


def evenly(start: float, end: float, count: int) -> FloatArray:
    """``count`` numbers from start to end, both among them."""
    return np.linspace(start, end, count, dtype=np.float64)
