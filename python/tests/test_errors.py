"""Errors and messages."""

from __future__ import annotations

import copy
import logging
import pickle

import pytest

import reportgenerator as rg

FAMILY = [
    rg.OutOfRangeError,
    rg.IncompleteDefinitionError,
    rg.InvalidXmlError,
    rg.ConversionFailure,
    rg.BinaryParsingError,
    rg.InterfaceNotSupportedError,
    rg.InterfaceAlreadyRegisteredError,
    rg.RefusedError,
    rg.FormError,
]


@pytest.mark.parametrize("error", FAMILY)
def test_the_family(error: type[rg.ReportError]) -> None:
    assert issubclass(error, rg.ReportError)
    for made in (error("text"), error("text", "Name")):
        for again in (pickle.loads(pickle.dumps(made)), copy.copy(made)):
            assert type(again) is error
            assert (again.name, again.text, str(again)) == (made.name, "text", "text")


def test_what_a_setter_refuses_is_a_value_error_too() -> None:
    point = rg.Coordinate(longitude=1.0)
    with pytest.raises(ValueError) as refused:
        point.longitude = 181
    error = refused.value
    assert isinstance(error, rg.OutOfRangeError)
    assert error.name == "OutOfRangeException"
    assert error.text == (
        "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'."
    )
    assert point.longitude == 1.0


def test_writing_what_is_not_complete() -> None:
    with pytest.raises(rg.OutOfRangeError, match="Area: Please set Name properly"):
        rg.Area().to_xml()
    with pytest.raises(rg.ReportError, match="Ellipse: Please set MaxRadius!"):
        rg.Ellipse(min_radius=1.0).to_xml()
    assert rg.Area(validate=False).to_xml()


def test_classes_without_a_binary_form() -> None:
    with pytest.raises(rg.ReportError, match="GetBinary is not implemented"):
        rg.Ellipse(min_radius=1.0, max_radius=1.0, rotation=1.0).to_bytes()


def test_warnings_come_out_through_logging(caplog: pytest.LogCaptureFixture) -> None:
    point = rg.Coordinate(validate=False)
    with caplog.at_level(logging.WARNING, logger="reportgenerator"):
        point.latitude = 91
    assert point.latitude == 91.0
    assert [(r.name, r.levelname) for r in caplog.records] == [("reportgenerator", "WARNING")]
    assert "m_latitude" in caplog.records[0].getMessage()


def test_progress_is_told_where_it_is_wanted(caplog: pytest.LogCaptureFixture) -> None:
    frequency = rg.Frequency(value=1.0)
    with caplog.at_level(logging.WARNING, logger="reportgenerator"):
        frequency.to_xml()
    assert not caplog.records
    with caplog.at_level(logging.INFO, logger="reportgenerator"):
        frequency.to_xml()
    assert {record.levelname for record in caplog.records} == {"INFO"}


def test_what_is_thrown_is_not_logged(caplog: pytest.LogCaptureFixture) -> None:
    with caplog.at_level(logging.DEBUG, logger="reportgenerator"):
        with pytest.raises(ValueError):
            rg.Coordinate(longitude=500)
        with pytest.raises(rg.ReportError):
            rg.Area.from_xml("<Area><")
    assert not [record for record in caplog.records if record.levelno > logging.INFO]


def test_what_a_handler_throws_is_passed_on() -> None:
    class Angry(logging.Handler):
        def emit(self, record: logging.LogRecord) -> None:
            raise KeyError(record.getMessage())

    logger = logging.getLogger("reportgenerator")
    angry = Angry(logging.WARNING)
    logger.addHandler(angry)
    try:
        point = rg.Coordinate(validate=False)
        with pytest.raises(KeyError, match="m_latitude"):
            point.latitude = 91
        assert point.latitude == 91.0
    finally:
        logger.removeHandler(angry)


def test_a_handler_may_take_the_object_away() -> None:
    report = rg.ReportBase(validate=False)
    seen = []

    class Taking(logging.Handler):
        def emit(self, record: logging.LogRecord) -> None:
            del report.area
            seen.append(record.getMessage())

    logger = logging.getLogger("reportgenerator")
    taking = Taking(logging.WARNING)
    logger.addHandler(taking)
    try:
        for _ in range(50):
            report.area = rg.Area(coordinates=[[1.0, 2.0]], validate=False)
            area = report.area
            assert area is not None
            area.validate = False
            area.append(rg.Coordinate(validate=False))
            with pytest.raises(ReferenceError):
                area.to_xml()
    finally:
        logger.removeHandler(taking)
    assert len(seen) == 50


def test_check_tells_every_problem_of_a_report_with_its_path() -> None:
    report = rg.ReportBase(frequency=rg.Frequency(min=1.0), area=rg.Area(script_id="x"))
    problems = report.check()
    assert [(p.name, p.path) for p in problems] == [
        ("OutOfRangeException", "frequency.value"),
        ("OutOfRangeException", "area.name"),
        ("OutOfRangeException", "area.coordinate"),
    ]
    assert rg.ReportBase(frequency=rg.Frequency(value=1.0)).check() == []


def test_check_of_other_classes() -> None:
    assert [p.text for p in rg.Area().check()] == [
        "Area: Please set Name properly.",
        "Area: Please set Coordinate properly.",
    ]
    assert [p.text for p in rg.Ellipse(rotation=1.0).check()] == ["Ellipse: Please set MinRadius!"]
    assert rg.Ellipse().check() == []


def test_a_problem_has_its_place() -> None:
    xml = b"<ReportBase>\n  <Frequency>abc</Frequency>\n</ReportBase>"
    assert rg.check(xml) == []
    (problem,) = rg.check(xml, strict=True)
    assert problem.name == "NotANumber"
    assert (problem.path, problem.value) == ("frequency.value", "abc")
    assert (problem.line, problem.column) == (2, 14)
    assert problem.place == "2:14"
    assert str(problem).startswith("2:14: ")
