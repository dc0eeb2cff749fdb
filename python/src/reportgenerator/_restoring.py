"""What the module `pickle` makes objects by."""

from __future__ import annotations

from typing import TypeVar

from ._reportgenerator import IRGObject

_T = TypeVar("_T", bound=IRGObject)


def _restored(cls: type[_T], state: tuple[object, ...]) -> _T:
    restored = cls()
    restored._set_state(state)  # type: ignore[attr-defined]
    return restored
