#!/usr/bin/env python3
"""Has the reader that report.ksy gives for Python take apart what written_objects has written, and compares:

    kaitaireader.py WRITTEN EXCEPTIONS COUNT

WRITTEN is the folder of binary.jsonl, which has at least COUNT objects in each form, EXCEPTIONS the list of vectors of which the reader makes something else than the
library. The module report and the package kaitaistruct are found by PYTHONPATH. kaitaireader.js does the same.
"""

import base64
import json
import re
import struct
import sys
import zlib
from io import BytesIO
from pathlib import Path

from kaitaistruct import KaitaiStream, KaitaiStructError
from report import Report

Tag = Report.Tag
NUMBER = re.compile(r"[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?|nan|[+-]?inf")
MODEL_VERSION = 1.0


# --- Values, as written_objects gives them


def number_of_text(text):
    """A text that is no number counts as 0."""
    text = (text or "").strip()
    return float(text) if NUMBER.fullmatch(text) else 0.0


def number_value(number):
    return "nan" if number != number else struct.pack(">d", number).hex()


def text_of_utf8(text):
    """As the library decodes it: without a byte order mark, and up to the first NUL."""
    if text.is_null:
        return None
    return text.text.removeprefix("\ufeff").split("\0")[0].encode("utf-16-be").hex()


def text_of_utf16(text):
    return None if text.is_null else text.units.hex()


# --- Tagged elements, read as classes do


def last(elements, tag):
    contents = [item.content for item in elements.items if item.tag == tag]
    return contents[-1] if contents else None


def tagged_number(elements, tag):
    content = last(elements, tag)
    return None if content is None else number_value(number_of_text(getattr(content, "text", None)))


def tagged_bounds(elements):
    return {name: tagged_number(elements, Tag[name]) for name in ("value", "min", "max")}


def tagged_frequency(elements):
    use = last(elements, Tag.use)
    return {**tagged_bounds(elements), "use": None if use is None else use.is_on}


def tagged_coordinate(elements):
    return {name: tagged_number(elements, Tag[name]) for name in ("longitude", "latitude")}


def tagged_area(elements):
    empty = {"name": None, "coordinates": [], "scriptId": None}
    area = {"version": None, **empty}
    for item in elements.items:
        if item.tag == Tag.version:
            area["version"] = text_of_utf16(item.content)
            # Data of an older version begin with an empty area.
            if number_of_text(None if item.content.is_null else item.content.text) < MODEL_VERSION:
                area.update(empty, coordinates=[])
        elif item.tag == Tag.name:
            area["name"] = text_of_utf8(item.content)
        elif item.tag == Tag.script_id:
            area["scriptId"] = text_of_utf8(item.content)
        elif item.tag == Tag.coordinates:
            area["coordinates"] += [tagged_coordinate(each.elements) for each in item.content.items]
    return area


def tagged_report(elements):
    members = {
        "frequency": (Tag.frequency, tagged_frequency),
        "ifBandwidth": (Tag.if_bandwidth, tagged_bounds),
        "area": (Tag.area, tagged_area),
    }
    contents = {name: (last(elements, tag), read) for name, (tag, read) in members.items()}
    return {name: None if content is None else read(content) for name, (content, read) in contents.items()}


TAGGED = {
    "ReportBase": tagged_report,
    "Frequency": tagged_frequency,
    "IFBandwidth": tagged_bounds,
    "Area": tagged_area,
    "Coordinate": tagged_coordinate,
}


def read_representation(name, data):
    body = getattr(Report(KaitaiStream(BytesIO(data))).representation, "body", None)
    if isinstance(body, Report.CompressedBody):
        body = body.packed.body
    return None if body is None else TAGGED[name](body.elements)


# --- The raw form


def raw_bounds(raw):
    values = {"value": raw.value if raw.is_value_set else None}
    values.update({name: getattr(raw, name, None) for name in ("min", "max")})
    return {name: None if value is None else number_value(value) for name, value in values.items()}


def raw_frequency(raw):
    use = getattr(raw, "use", None)
    return {**raw_bounds(raw), "use": None if use is None else use.is_on}


def raw_coordinate(raw):
    return {
        "longitude": number_value(raw.longitude) if raw.is_longitude_set else None,
        "latitude": number_value(raw.latitude) if raw.is_latitude_set else None,
    }


def raw_area(raw):
    script_id = getattr(raw, "script_id", None)
    return {
        "version": text_of_utf16(raw.version),
        "name": text_of_utf16(raw.name),
        "coordinates": [raw_coordinate(each) for each in raw.coordinates],
        "scriptId": None if script_id is None else text_of_utf16(script_id),
    }


def raw_report(raw):
    members = {"frequency": raw_frequency, "if_bandwidth": raw_bounds, "area": raw_area}
    frequency, bandwidth, area = (
        None if getattr(raw, name, None) is None else read(getattr(raw, name)) for name, read in members.items()
    )
    return {"frequency": frequency, "ifBandwidth": bandwidth, "area": area}


RAW = {
    "ReportBase": (Report.RawReportBase, raw_report),
    "Frequency": (Report.RawFrequency, raw_frequency),
    "IFBandwidth": (Report.RawIfBandwidth, raw_bounds),
    "Area": (Report.RawArea, raw_area),
    "Coordinate": (Report.RawCoordinate, raw_coordinate),
}


def read_raw(name, data):
    reader, values = RAW[name]
    return values(reader(KaitaiStream(BytesIO(data))))


# --- Comparison


def values_of(line):
    """None where the reader refuses the data."""
    read = read_raw if line["form"] == "raw" else read_representation
    try:
        return read(line["class"], base64.b64decode(line["bytes"]))
    except (EOFError, KaitaiStructError, zlib.error, UnicodeDecodeError):
        return None


def main():
    written, exceptions = Path(sys.argv[1]), Path(sys.argv[2])
    listed = {line.split("#")[0].strip() for line in exceptions.read_text(encoding="utf-8").splitlines()} - {""}
    unlike, counts = set(), {}
    with open(written / "binary.jsonl", encoding="ascii") as lines:
        for line in map(json.loads, lines):
            counts[line["form"]] = counts.get(line["form"], 0) + 1
            if values_of(line) != line["values"]:
                unlike.add(line["name"] + (" " + line["form"] if line["name"].startswith("generated") else ""))
    print(", ".join(f"{form}: {count}" for form, count in sorted(counts.items())))
    for name in sorted(unlike - listed):
        print(f"read otherwise than by the library: {name}")
    for name in sorted(listed - unlike):
        print(f"read as by the library, but listed: {name}")
    if unlike != listed or min(counts.values()) < int(sys.argv[3]) or len(counts) != 4:
        sys.exit(1)


if __name__ == "__main__":
    main()
