"""Reading and writing: texts, bytes and files."""

from __future__ import annotations

import os
import stat
from pathlib import Path

import pytest

import reportgenerator as rg

FORMS = ["xml", "plain", "compressed", "file"]


def a_report() -> rg.ReportBase:
    return rg.ReportBase(
        frequency=rg.Frequency(value=121_500_000.0, use=True),
        area=rg.Area(name="Lake", coordinates=[[9.5, 47.5], [9.625, 47.5], [9.5, 47.625]]),
    )


def test_the_element_as_text() -> None:
    text = rg.Frequency(value=121_500_000.0, min=1.005).to_xml()
    assert text == '\n<Frequency Min="1.00">121500000.00</Frequency>'


@pytest.mark.parametrize("form", FORMS)
def test_every_form_is_read_back(form: str) -> None:
    report = a_report()
    data = report.to_bytes(form)  # type: ignore[arg-type]
    assert rg.ReportBase.from_bytes(data) == report
    assert rg.check(data) == []
    assert rg.Area.from_bytes(report.area.to_bytes(form)) == report.area  # type: ignore[union-attr, arg-type]


@pytest.mark.parametrize("validate", [True, False])
@pytest.mark.parametrize("form", FORMS)
def test_the_parts_of_what_was_read_validate_as_it_does(form: str, validate: bool) -> None:
    data = a_report().to_bytes(form)  # type: ignore[arg-type]
    for read in (
        rg.ReportBase.from_bytes(data, validate=validate),
        rg.ReportBase.from_xml(a_report().to_xml(), validate=validate),
    ):
        assert read.validate is validate
        assert read.frequency is not None and read.frequency.validate is validate
        assert read.area is not None and read.area.validate is validate
        assert read.area.coordinate_at(0).validate is validate


@pytest.mark.parametrize("wrap", [bytes, bytearray, memoryview])
def test_bytes_of_every_kind(wrap: type) -> None:
    assert rg.ReportBase.from_bytes(wrap(a_report().to_bytes())) == a_report()


def test_a_level_is_for_compressed_forms() -> None:
    report = a_report()
    assert len(report.to_bytes("compressed", level=0)) > len(report.to_bytes("compressed", level=9))
    assert len(report.to_bytes("file", level=9)) < len(report.to_bytes("file"))
    for form, level in (("xml", 1), ("plain", 1), ("compressed", 10), ("compressed", -2)):
        with pytest.raises(ValueError):
            report.to_bytes(form, level=level)  # type: ignore[arg-type]
    with pytest.raises(ValueError, match="no form is called 'json'"):
        report.to_bytes("json")  # type: ignore[arg-type]


@pytest.mark.parametrize("form", FORMS)
def test_files(tmp_path: Path, form: str) -> None:
    path = tmp_path / "a report.bin"
    a_report().write(path, form)  # type: ignore[arg-type]
    assert path.read_bytes() == a_report().to_bytes(form)  # type: ignore[arg-type]
    assert rg.read(path) == a_report()
    assert rg.read(str(path)) == a_report()
    assert rg.check(path) == []
    assert os.listdir(tmp_path) == ["a report.bin"]


def test_a_file_is_replaced_as_it_was(tmp_path: Path) -> None:
    path = tmp_path / "report.xml"
    path.write_text("before")
    path.chmod(0o640)
    link = tmp_path / "link.xml"
    link.symlink_to(path)
    a_report().write(link)
    assert link.is_symlink()
    assert stat.S_IMODE(path.stat().st_mode) == 0o640
    assert rg.read(path) == a_report()


def test_a_failure_leaves_the_file_as_it_is(tmp_path: Path) -> None:
    path = tmp_path / "report.xml"
    path.write_text("before")
    with pytest.raises(rg.FormError) as refused:
        rg.ReportBase(area=rg.Area()).write(path)
    assert refused.value.name == "NotWritten"
    # Text that XML has no way to hold.
    with pytest.raises(rg.FormError, match="would not keep the name of the area"):
        rg.ReportBase(area=rg.Area(name="a\ab", coordinates=[[1.0, 2.0]])).write(path)
    assert path.read_text() == "before"
    assert os.listdir(tmp_path) == ["report.xml"]


def test_a_name_stands_for_nothing_else(tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    monkeypatch.chdir(tmp_path)
    a_report().write("-")
    assert rg.read("-") == a_report()


def test_paths_that_cannot_be_used(tmp_path: Path) -> None:
    with pytest.raises(FileNotFoundError) as missing:
        a_report().write(tmp_path / "none" / "report.xml")
    assert missing.value.filename == str(tmp_path / "none" / "report.xml")
    with pytest.raises(IsADirectoryError):
        a_report().write(tmp_path)
    with pytest.raises(FileNotFoundError):
        rg.read(tmp_path / "none.xml")


def test_what_is_wrong_with_a_report_is_an_error_that_tells_all() -> None:
    text = (
        "<ReportBase><Area Version='1.0'><Coordinate><Longitude>200</Longitude>"
        "<Latitude>1</Latitude></Coordinate></Area></ReportBase>"
    )
    with pytest.raises(rg.OutOfRangeError) as wrong:
        rg.ReportBase.from_bytes(text.encode())
    assert len(wrong.value.problems) >= 2
    assert {p.path for p in wrong.value.problems} >= {"area.name", "area.coordinate[1].longitude"}
    report = rg.ReportBase.from_bytes(text.encode(), validate=False)
    assert report.area is not None and report.area.coordinates is not None
    assert report.area.coordinates.tolist() == [[200.0, 1.0]]
    assert not report.validate


@pytest.mark.parametrize(
    ("data", "name"),
    [
        (b"", "UnknownForm"),
        (b"nothing of the kind", "UnknownForm"),
        (b"<Other/>", "NoReport"),
        (a_report().to_bytes()[:-1], "LengthMismatch"),
        (a_report().to_bytes("compressed")[:-3] + b"abc", "DamagedData"),
        (a_report().to_bytes() + b"x", "TrailingData"),
    ],
    ids=["empty", "other", "element", "cut off", "damaged", "more behind"],
)
def test_bytes_without_a_good_report(data: bytes, name: str) -> None:
    with pytest.raises(rg.ReportError) as wrong:
        rg.ReportBase.from_bytes(data)
    assert name in {p.name for p in wrong.value.problems}
    assert wrong.value.name == wrong.value.problems[0].name


def test_bytes_of_another_object() -> None:
    with pytest.raises(rg.FormError, match="this is an object 'Frequency'"):
        rg.Area.from_bytes(rg.Frequency(value=1.0).to_bytes())
    with pytest.raises(rg.FormError, match="there is no element 'Area'"):
        rg.Area.from_xml("<Frequency>1</Frequency>", check_root=False)
    with pytest.raises(rg.ReportError, match="Unsuitable XML for Area!"):
        rg.Area.from_xml("<A><Area/></A>")


def test_reading_into_an_object_that_fails_leaves_it_as_it_was() -> None:
    report = a_report()
    for data in (b"", b"<ReportBase><Area/></ReportBase>", report.to_bytes()[:-1]):
        with pytest.raises(rg.ReportError):
            report.parse_bytes(data)
        assert report == a_report()
    with pytest.raises(rg.ReportError):
        report.parse_xml("<ReportBase><")
    assert report == a_report()


def test_a_named_number() -> None:
    dwell = rg.Double(name="DwellTime", value=0.25, unit="s")
    again = rg.Double(name="DwellTime")
    again.parse_xml(dwell.to_xml())
    assert again == dwell
    level = rg.ValueMinMax(name="Level", value=3.5, max=4.0)
    assert rg.ValueMinMax.from_xml(level.to_xml()) == level


def test_merging() -> None:
    report = rg.ReportBase(frequency=rg.Frequency(value=1.0))
    assert report.merge(a_report())
    assert report == a_report()
    assert report.merge(report)
    assert report.area is not None and report.area.coordinates is not None
    assert len(report.area.coordinates) == 6
    assert not report.merge(rg.Frequency(value=1.0))
