"""Whatever the values are: what is written is read back, and whatever the bytes are, they are read or refused."""

from __future__ import annotations

import math
import pickle
from typing import Any

import numpy as np
import pytest

import reportgenerator as rg

pytest.importorskip("hypothesis")

from hypothesis import HealthCheck, given, settings
from hypothesis import strategies as st

settings.register_profile("here", deadline=None, suppress_health_check=[HealthCheck.too_slow])
settings.load_profile("here")

# What XML has no way to hold is left out, and what its readers change.
TEXTS = st.text(
    st.characters(blacklist_categories=["Cs", "Cc"], blacklist_characters="\ufffe\uffff\ufeff"),
    max_size=20,
)
NUMBERS = st.floats(-1e12, 1e12).map(lambda number: round(number, 2) + 0.0)
LONGITUDES = st.floats(-180, 180).map(lambda number: round(number, 6) + 0.0)
LATITUDES = st.floats(-90, 90).map(lambda number: round(number, 6) + 0.0)
MAYBE_NUMBERS = st.none() | NUMBERS

FREQUENCIES = st.builds(
    rg.Frequency, value=NUMBERS, min=MAYBE_NUMBERS, max=MAYBE_NUMBERS, use=st.none() | st.booleans()
)
BANDWIDTHS = st.builds(rg.IFBandwidth, value=NUMBERS, min=MAYBE_NUMBERS, max=MAYBE_NUMBERS)
AREAS = st.builds(
    rg.Area,
    name=TEXTS,
    coordinates=st.lists(st.tuples(LONGITUDES, LATITUDES), min_size=1, max_size=20),
    script_id=st.none() | TEXTS,
)
REPORTS = st.builds(
    rg.ReportBase,
    frequency=st.none() | FREQUENCIES,
    if_bandwidth=st.none() | BANDWIDTHS,
    area=st.none() | AREAS,
)


@given(REPORTS, st.sampled_from(["xml", "plain", "compressed", "file"]))
def test_every_report_is_read_back_in_every_form(report: rg.ReportBase, form: Any) -> None:
    data = report.to_bytes(form)
    read = rg.ReportBase.from_bytes(data)
    assert read == report
    assert read.to_bytes(form) == data
    assert rg.check(data) == []


@given(REPORTS)
def test_reports_are_copied_pickled_and_merged(report: rg.ReportBase) -> None:
    assert pickle.loads(pickle.dumps(report)) == report
    assert report.copy() == report
    merged = rg.ReportBase()
    assert merged.merge(report)
    assert merged == report


ANY_NUMBER = st.floats(allow_nan=True, allow_infinity=True)


@given(st.lists(st.tuples(ANY_NUMBER, ANY_NUMBER), max_size=10), st.booleans())
def test_every_array_is_taken_or_refused(points: list[tuple[float, float]], validate: bool) -> None:
    area = rg.Area(validate=validate)
    good = all(-180 <= x <= 180 and -90 <= y <= 90 for x, y in points)
    try:
        area.coordinates = points
    except ValueError:
        assert validate and not good
        assert area.coordinates is None
        return
    assert good or not validate
    assert area.coordinates is not None
    assert np.array_equal(area.coordinates, np.reshape(points, (-1, 2)), equal_nan=True)


@given(ANY_NUMBER, st.text())
def test_every_value_comes_back(number: float, text: str) -> None:
    frequency = rg.Frequency(value=number)
    assert frequency.value is not None
    assert frequency.value == number or math.isnan(number) and math.isnan(frequency.value)
    assert rg.Area(name=text).name == text
    double = rg.Double(unit=text, validate=False)
    assert double.unit == (text or None)


def use(data: bytes) -> None:
    rg.check(data, strict=True)
    for cls in (rg.ReportBase, rg.Area, rg.Coordinate, rg.Frequency, rg.Ellipse, rg.ValueMinMax):
        for validate in (True, False):
            try:
                read = cls.from_bytes(data, validate=validate)
            except rg.ReportError:
                continue
            repr(read)
            pickle.loads(pickle.dumps(read))


@given(st.binary(max_size=300))
def test_bytes_of_every_kind_are_read_or_refused(data: bytes) -> None:
    use(data)


@given(REPORTS, st.sampled_from(["xml", "plain", "compressed", "file"]), st.data())
def test_damaged_reports_are_read_or_refused(report: rg.ReportBase, form: Any, data: Any) -> None:
    damaged = bytearray(report.to_bytes(form))
    for _ in range(data.draw(st.integers(1, 4))):
        place = data.draw(st.integers(0, max(len(damaged) - 1, 0)))
        what = data.draw(st.sampled_from(["change", "cut", "insert", "double"]))
        if what == "change" and damaged:
            damaged[place] = data.draw(st.integers(0, 255))
        elif what == "cut":
            del damaged[place : place + data.draw(st.integers(1, 20))]
        elif what == "insert":
            damaged[place:place] = data.draw(st.binary(max_size=8))
        else:
            damaged += damaged[place:]
    use(bytes(damaged))


@given(st.text())
def test_texts_of_every_kind_are_read_or_refused(text: str) -> None:
    for xml in (text, f"<ReportBase>{text}</ReportBase>", f"<Area><Name>{text}</Name></Area>"):
        for cls in (rg.ReportBase, rg.Area, rg.ScanParameter):
            try:
                cls.from_xml(xml, validate=False)
            except rg.ReportError:
                continue
