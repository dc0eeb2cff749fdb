"""Turns dates, file paths and free text into the forms that stand in report files."""

from __future__ import annotations

import datetime

from . import _reportgenerator as _native


def to_string(time: datetime.datetime) -> str:
    """The moment in UTC as "yyyy-MM-ddThh:mm:ss.zzzZ". One without a time zone is in local time."""
    return _native.converters_to_string(time)


def to_datetime(text: str) -> datetime.datetime | None:
    """The date-time that a text in ISO 8601 form holds, in UTC.

    A text without an offset is in local time. Seconds and milliseconds may be missing, and a date alone stands for its
    midnight. None when the text holds none.
    """
    return _native.converters_to_datetime(text)


def to_url(path: str) -> str:
    """The URL of a file reference. Nothing is looked up or encoded, and a relative path stays relative.

    Backslashes become slashes. A network path (`//host/share`) gets "file:" in front. A text is taken for a URL when it then
    holds "://" anywhere, or when it starts with the system's own scheme; any other text gets "file:///" in front. An empty
    text stays empty.
    """
    return _native.converters_to_url(path)


def to_valid_xml_string(text: str) -> str:
    """The text without bell (U+0007), vertical tab (U+000B) and form feed (U+000C), which XML 1.0 does not allow."""
    return _native.converters_to_valid_xml_string(text)


__all__ = ["to_datetime", "to_string", "to_url", "to_valid_xml_string"]
