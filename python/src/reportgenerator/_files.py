"""Files by their paths."""

from __future__ import annotations

import errno
import os
from pathlib import Path

from . import _reportgenerator as _native
from ._problems import Problem

_PathLike = str | os.PathLike[str] | os.PathLike[bytes]


def _target(path: _PathLike) -> str:
    """The absolute path of a file to write, by which no name stands for anything else. Refuses what cannot be written to."""
    name = os.path.abspath(os.fsdecode(path))
    folder = os.path.dirname(name)
    if not os.path.isdir(folder):
        raise FileNotFoundError(errno.ENOENT, os.strerror(errno.ENOENT), name)
    if os.path.isdir(name):
        raise IsADirectoryError(errno.EISDIR, os.strerror(errno.EISDIR), name)
    return name


def _source(path: _PathLike) -> str:
    """The absolute path of a file that can be read."""
    name = os.path.abspath(os.fsdecode(path))
    with open(name, "rb"):
        return name


def _contents(path: _PathLike) -> bytes:
    return Path(os.fsdecode(path)).read_bytes()


def read(path: _PathLike, *, validate: bool = True) -> _native.ReportBase:
    """The report of a file in any form; see `ReportBase.from_bytes`."""
    return _native.ReportBase.read(path, validate=validate)


def check(
    source: bytes | bytearray | memoryview | _PathLike, *, strict: bool = False
) -> list[Problem]:
    """All that is wrong with the report of a file, or of its contents as bytes.

    Nothing that is wrong with it is an error here. Each problem is told once, with its place. With `strict` this takes in
    what the library reads without complaint, but hardly anybody means, such as a text where a number belongs.
    """
    data = source if isinstance(source, bytes | bytearray | memoryview) else _contents(source)
    return _native.check_bytes(data, strict=strict)
