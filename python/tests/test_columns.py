"""Columns of reports with nothing but Python, ctypes and numpy."""

from __future__ import annotations

import _thread
import operator
import os
import subprocess
import sys
import threading
from collections.abc import Callable
from functools import partial
from pathlib import Path

import numpy as np
import pytest
from arrowview import View

from reportgenerator import arrow

_LAKE = (
    b'<ReportBase><Frequency Min="1.00">%.2f</Frequency><Area Version="1.0"><Name>Lake</Name>'
    b"<Coordinate><Longitude>9.5</Longitude><Latitude>47.5</Latitude></Coordinate>"
    b"</Area></ReportBase>"
)


def lakes(count: int) -> list[bytes]:
    return [_LAKE % (i + 0.25) for i in range(count)]


def decoded(column: object, columns: list[str] | None = None) -> View:
    rows = arrow.decode(column, batch_rows=0, columns=columns)
    assert isinstance(rows, arrow.Columns)
    return View(rows)


def test_columns_are_documented() -> None:
    assert View(arrow.decode([])).names() == list(arrow.COLUMNS)
    assert arrow.__doc__ is not None
    for name in ("file", *arrow.COLUMNS):
        assert f"\n{name} " in arrow.__doc__ or f"\n{name}\n" in arrow.__doc__


def test_values_of_a_list_of_bytes() -> None:
    rows = decoded([*lakes(2), None, b"rubbish"])
    assert len(rows) == 4
    assert np.array_equal(rows.numbers("frequency_value")[:2], [0.25, 1.25])
    assert rows.is_there("frequency_value") == [True, True, False, False]
    assert rows.texts("area_name") == ["Lake", "Lake", None, None]
    assert rows.texts("problem") == [
        None,
        None,
        None,
        "UnknownForm: not a report in any known form",
    ]


def test_only_the_columns_that_are_asked_for() -> None:
    assert decoded(lakes(1), columns=["problem", "frequency_min"]).names() == [
        "frequency_min",
        "problem",
    ]
    with pytest.raises(ValueError, match="no column is called 'frequency'"):
        arrow.decode([], columns=["frequency"])


def test_batches_have_so_many_rows() -> None:
    rows = arrow.decode(lakes(10), batch_rows=4)
    assert isinstance(rows, arrow.Columns)
    assert len(rows) == 10
    assert [len(batch) for batch in rows.batches()] == [4, 4, 2]
    assert rows.nbytes > 10 * 8 * len(arrow.COLUMNS) / 2
    with pytest.raises(ValueError, match="3 batches"):
        rows.__arrow_c_array__()


@pytest.mark.parametrize("column", [b"bytes", "text", 5, [1], object()])
def test_what_is_no_column_is_refused(column: object) -> None:
    with pytest.raises(TypeError):
        arrow.decode(column)


def test_reports_come_back_as_they_were() -> None:
    plain = arrow.encode(arrow.decode(lakes(3), batch_rows=0), form="plain")
    again = decoded(plain_values(plain))
    assert np.array_equal(again.numbers("frequency_value"), [0.25, 1.25, 2.25])
    assert again.texts("problem") == [None] * 3


def plain_values(stream: object) -> object:
    """The first batch of a stream."""
    assert isinstance(stream, arrow.Stream)
    batch = next(stream)
    with pytest.raises(StopIteration):
        next(stream)
    return batch


def test_bad_rows_are_refused_or_skipped() -> None:
    rows = arrow.decode([*lakes(1), b"rubbish"], batch_rows=0)
    with pytest.raises(ValueError, match="row 1: it has a problem"):
        plain_values(arrow.encode(rows))
    encoded = plain_values(arrow.encode(rows, skip_refused=True))
    assert decoded(encoded).is_there("frequency_value") == [True, False]


@pytest.mark.parametrize(("form", "level"), [("json", -1), ("plain", 10), ("plain", -2)])
def test_forms_and_levels_are_known(form: str, level: int) -> None:
    with pytest.raises(ValueError, match="form|level"):
        arrow.encode(arrow.decode([]), form=form, level=level)


def test_each_file_is_a_row(tmp_path: Path) -> None:
    (tmp_path / "b").mkdir()
    for name, report in zip(
        ["c.xml", "b/a.xml", "a.xml", ".hidden", "_done"], lakes(5), strict=True
    ):
        (tmp_path / name).write_bytes(report)
    batches = list(arrow.scan([tmp_path, tmp_path / "none"], batch_rows=3))
    files: list[str | None] = []
    for batch in batches:
        files += View(batch).texts("file")
    assert files == [os.path.join(tmp_path, name) for name in ("a.xml", "b/a.xml", "c.xml", "none")]
    assert np.array_equal(View(batches[0]).numbers("frequency_value"), [2.25, 1.25, 0.25])
    assert View(batches[1]).texts("problem") == ["UnusableFile: No such file or directory"]


def test_names_are_those_of_the_system(tmp_path: Path) -> None:
    """Whatever the locale: the files are found, and told of in UTF-8."""
    report = tmp_path / "Zürichsee.xml"
    report.write_bytes(lakes(1)[0])
    program = (
        "import sys; from reportgenerator import arrow; from arrowview import View\n"
        "rows = View(next(arrow.scan(sys.argv[1])))\n"
        "assert rows.texts('problem') == [None], rows.texts('problem')\n"
        "assert rows.texts('file')[0].endswith('Z\\xfcrichsee.xml'), rows.texts('file')\n"
    )
    path = os.pathsep.join([str(Path(__file__).parent), os.environ.get("PYTHONPATH", "")])
    environment = os.environ | {"LC_ALL": "C", "PYTHONPATH": path}
    subprocess.run([sys.executable, "-c", program, tmp_path], check=True, env=environment)


def test_a_stream_can_be_taken_once() -> None:
    stream = arrow.encode(arrow.decode([]))
    assert isinstance(stream, arrow.Stream)
    stream.__arrow_c_stream__()
    with pytest.raises(ValueError, match="taken already"):
        stream.__arrow_c_stream__()
    with pytest.raises(ValueError, match="taken already"):
        next(stream)


def test_threads_share_a_stream(tmp_path: Path) -> None:
    for number, report in enumerate(lakes(200)):
        (tmp_path / f"{number:03d}").write_bytes(report)
    stream = arrow.scan(tmp_path, batch_rows=3)
    found: list[float] = []

    def take() -> None:
        for batch in stream:
            found.extend(View(batch).numbers("frequency_value"))

    threads = [threading.Thread(target=take) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert sorted(found) == [i + 0.25 for i in range(200)]


def interrupted(work: Callable[[], object]) -> bool:
    """Whether Ctrl-C, pressed just before, ends the work. Nothing of Python's own runs between the steps, which would see it."""
    done: list[int] = []
    with pytest.raises(KeyboardInterrupt):
        list(map(operator.call, [_thread.interrupt_main, work, partial(done.append, 1)]))
    return done == []


def test_ctrl_c_ends_the_work(tmp_path: Path) -> None:
    rows = arrow.decode(lakes(10))
    for number, report in enumerate(lakes(10)):
        (tmp_path / f"{number}").write_bytes(report)
    assert not interrupted(partial(len, rows))
    assert interrupted(partial(arrow._columns.decode, lakes(10)))
    encoded = arrow.encode(rows)
    assert isinstance(encoded, arrow.Stream)
    for stream in (arrow.scan(tmp_path), encoded):
        assert interrupted(partial(next, stream))
        assert len(next(stream)) == 10


def test_capsules_that_nobody_takes_are_released() -> None:
    rows = arrow.decode(lakes(1000))
    assert isinstance(rows, arrow.Columns)
    for _ in range(100):
        rows.__arrow_c_array__()
        rows.__arrow_c_stream__()
        rows.__arrow_c_schema__()
    assert len(rows) == 1000
