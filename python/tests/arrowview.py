"""Arrow's C data interface by ctypes and numpy, for tests without any package that knows Arrow."""

from __future__ import annotations

import ctypes
from typing import Any

import numpy as np


class ArrowSchema(ctypes.Structure):
    pass


ArrowSchema._fields_ = [
    ("format", ctypes.c_char_p),
    ("name", ctypes.c_char_p),
    ("metadata", ctypes.c_void_p),
    ("flags", ctypes.c_int64),
    ("n_children", ctypes.c_int64),
    ("children", ctypes.POINTER(ctypes.POINTER(ArrowSchema))),
    ("dictionary", ctypes.c_void_p),
    ("release", ctypes.c_void_p),
    ("private_data", ctypes.c_void_p),
]


class ArrowArray(ctypes.Structure):
    pass


ArrowArray._fields_ = [
    ("length", ctypes.c_int64),
    ("null_count", ctypes.c_int64),
    ("offset", ctypes.c_int64),
    ("n_buffers", ctypes.c_int64),
    ("n_children", ctypes.c_int64),
    ("buffers", ctypes.POINTER(ctypes.c_void_p)),
    ("children", ctypes.POINTER(ctypes.POINTER(ArrowArray))),
    ("dictionary", ctypes.c_void_p),
    ("release", ctypes.c_void_p),
    ("private_data", ctypes.c_void_p),
]

_pointer = ctypes.pythonapi.PyCapsule_GetPointer
_pointer.restype = ctypes.c_void_p
_pointer.argtypes = [ctypes.py_object, ctypes.c_char_p]


class View:
    """The columns of a batch, as long as this lives."""

    def __init__(self, batch: Any) -> None:
        self._capsules = batch.__arrow_c_array__()
        schema = _pointer(self._capsules[0], b"arrow_schema")
        array = _pointer(self._capsules[1], b"arrow_array")
        self.schema = ctypes.cast(schema, ctypes.POINTER(ArrowSchema)).contents
        self.array = ctypes.cast(array, ctypes.POINTER(ArrowArray)).contents

    def __len__(self) -> int:
        return int(self.array.length)

    def names(self) -> list[str]:
        return [
            self.schema.children[i].contents.name.decode() for i in range(self.schema.n_children)
        ]

    def numbers(self, name: str) -> np.ndarray[Any, np.dtype[np.float64]]:
        values: np.ndarray[Any, np.dtype[np.float64]]
        values = self._values(self.column(name), 1, np.float64, len(self))
        return values

    def texts(self, name: str) -> list[str | None]:
        column = self.column(name)
        ends = self._values(column, 1, np.int32, len(self) + 1)
        data = ctypes.string_at(column.buffers[2], int(ends[-1]))
        return [
            data[ends[i] : ends[i + 1]].decode() if self._is_there(column, i) else None
            for i in range(len(self))
        ]

    def is_there(self, name: str) -> list[bool]:
        return [self._is_there(self.column(name), i) for i in range(len(self))]

    def column(self, name: str) -> ArrowArray:
        column: ArrowArray = self.array.children[self.names().index(name)].contents
        return column

    @staticmethod
    def _is_there(column: ArrowArray, row: int) -> bool:
        if not column.buffers[0]:
            return True
        return bool(ctypes.string_at(column.buffers[0], row // 8 + 1)[row // 8] >> row % 8 & 1)

    @staticmethod
    def _values(column: ArrowArray, buffer: int, kind: Any, count: int) -> Any:
        size = count * np.dtype(kind).itemsize
        pointer = ctypes.cast(column.buffers[buffer], ctypes.POINTER(ctypes.c_char * size))
        return np.frombuffer(pointer.contents, kind, count)
