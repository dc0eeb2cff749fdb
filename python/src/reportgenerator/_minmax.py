"""A pair of bounds."""

from __future__ import annotations

from typing import NamedTuple


class MinMax(NamedTuple):
    """Two bounds, `min` and `max`, in the unit of the object that they are handed to.

    Nothing is checked: the upper may lie below the lower.
    """

    min: float | None = 0.0
    """The lower bound; None where an object has none."""
    max: float | None = 0.0
    """The upper bound."""
