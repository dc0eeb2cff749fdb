"""What is wrong with a report, and where."""

from __future__ import annotations

from dataclasses import dataclass, field


@dataclass(frozen=True)
class Problem:
    """One thing that is wrong with a report."""

    name: str
    """Name of the library's exception, or of what the library passes over: "TrailingData"."""
    text: str
    """What is wrong, for people."""
    path: str = ""
    """Path of the field or object that it is about: "area.coordinate[17].latitude"; may be empty."""
    value: str | None = None
    """The value that stands there, as it was found."""
    place: str = ""
    """The place in a file: "12:7", "0x1a2", "uncompressed:0x1a2"; may be empty."""
    line: int | None = None
    """Of XML, from 1."""
    column: int | None = None
    """Of XML, in characters, from 1."""
    offset: int | None = None
    """Of a binary form, from the start of the file."""
    is_uncompressed: bool = False
    """Whether the offset counts from the start of the uncompressed data instead."""
    summary: str = field(default="", repr=False, compare=False)
    """All of it in one line."""

    def __str__(self) -> str:
        return self.summary or f"{self.name}: {self.text}"
