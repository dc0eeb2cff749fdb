"""Columns of reports in packages of PyPI: pyarrow, pandas, geopandas, DuckDB, Dask and Ray."""

from __future__ import annotations

import _thread
import operator
import os
import signal
import subprocess
import sys
import time
from functools import partial
from pathlib import Path
from typing import Any

import pytest
from pagesections import Page
from test_columns import lakes

from reportgenerator import arrow

pa = pytest.importorskip("pyarrow")
pytest.importorskip("pyarrow.parquet")

_TREE = Path(os.environ["REPORTGENERATOR_TEST_TREE"])
_EXAMPLES = _TREE / "examples" / "reports"


@pytest.fixture
def folder(tmp_path: Path) -> Path:
    """Ten reports, and a file that is none."""
    reports = tmp_path / "reports"
    reports.mkdir()
    for number, report in enumerate(lakes(10)):
        (reports / f"{number}.xml").write_bytes(report)
    (reports / "bad.xml").write_bytes(b"rubbish")
    return reports


# --- pyarrow


@pytest.mark.parametrize(
    "kind", ["binary", "large_binary", "binary_view", "string", "large_string"]
)
def test_all_layouts_of_bytes_are_taken(kind: str) -> None:
    column = pa.array([*(text.decode() for text in lakes(3)), None, "rubbish"], pa.string())
    column = column.cast(getattr(pa, kind)()) if kind != "binary_view" else column.cast(pa.binary())
    if kind == "binary_view":
        column = pa.array(column.to_pylist(), pa.binary_view())
    table = pa.table(arrow.decode(column.slice(1)))
    assert table["frequency_value"].to_pylist() == [1.25, 2.25, None, None]
    assert [problem is None for problem in table["problem"].to_pylist()] == [
        True,
        True,
        True,
        False,
    ]
    table.validate(full=True)


def test_ctrl_c_is_an_error_of_the_package_that_reads(folder: Path) -> None:
    steps = [_thread.interrupt_main, partial(pa.table, arrow.scan(folder))]
    with pytest.raises(OSError, match="KeyboardInterrupt"):
        list(map(operator.call, steps))


def test_ctrl_c_ends_the_making_of_a_frame(folder: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    record_batch = pa.record_batch

    def taken(batch: object) -> Any:
        _thread.interrupt_main()
        return record_batch(batch)

    monkeypatch.setattr(pa, "record_batch", taken)
    with pytest.raises(KeyboardInterrupt):
        arrow.to_pandas(folder)


def test_streams_are_decoded_as_they_come() -> None:
    taken = 0

    def batches() -> Any:
        nonlocal taken
        for _ in range(100):
            taken += 1
            yield pa.array(lakes(10), pa.binary())

    def records() -> Any:
        for column in batches():
            yield pa.record_batch([column], ["report"])

    reader = pa.RecordBatchReader.from_batches(pa.schema([("report", pa.binary())]), records())
    with pytest.raises(ValueError, match="must be binary"):
        arrow.decode(reader)
    rows = arrow.decode(pa.chunked_array([pa.array(lakes(10), pa.binary())] * 5))
    assert isinstance(rows, arrow.Stream)
    assert [len(batch) for batch in rows] == [10] * 5
    assert taken <= 1


def test_tables_are_encoded_as_the_library_writes() -> None:
    table = pa.table(arrow.decode(lakes(5)))
    for form in ("xml", "plain", "compressed"):
        encoded = pa.chunked_array(arrow.encode(table, form=form))
        assert pa.table(arrow.decode(encoded)).equals(table)
        assert pa.chunked_array(arrow.encode(table.slice(2), form=form)).equals(encoded.slice(2))


def test_made_up_tables_are_encoded() -> None:
    table = pa.table({"frequency_value": [5.0, None], "frequency_use": [True, None]})
    encoded = pa.chunked_array(arrow.encode(table, form="xml")).to_pylist()
    assert encoded == [
        b'\n<ReportBase>\n    <Frequency Use="true">5.00</Frequency>\n</ReportBase>',
        None,
    ]
    with pytest.raises(pa.ArrowInvalid, match="frequency_value"):
        pa.chunked_array(arrow.encode(pa.table({"frequency_value": ["5"]})))


# --- Data frames


def test_pandas(folder: Path) -> None:
    pytest.importorskip("pandas")
    frame = arrow.to_pandas(folder)
    assert frame["frequency_value"].sum() == sum(i + 0.25 for i in range(10))
    assert list(frame["problem"].isna()) == [True] * 10 + [False]
    assert arrow.to_pandas(arrow.decode(lakes(2)))["area_name"].to_list() == ["Lake", "Lake"]


def test_geopandas() -> None:
    pytest.importorskip("geopandas")
    frame = arrow.to_geopandas(_EXAMPLES)
    assert str(frame.crs) == "OGC:CRS84"
    assert frame.geometry.name == "area"
    assert set(frame.geom_type) == {"Polygon"}
    west, south, east, north = frame.set_index("file").bounds.loc[
        str(_EXAMPLES / "airband_emergency_lake.xml")
    ]
    assert (west, south, east, north) == (8.84, 47.44, 9.78, 47.845)


def test_duckdb(folder: Path) -> None:
    duckdb = pytest.importorskip("duckdb")
    reports = pa.RecordBatchReader.from_stream(arrow.scan(folder))
    assert reports is not None
    query = "SELECT count(*), max(frequency_value) FROM reports WHERE problem IS NULL"
    assert duckdb.sql(query).fetchall() == [(10, 9.25)]


# --- docs/data-frames.md


@pytest.fixture
def page(tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> Page:
    return Page(tmp_path, monkeypatch)


@pytest.mark.parametrize(
    ("section", "packages"),
    [
        ("Reading", []),
        ("Data frames", ["pandas", "geopandas"]),
        ("GeoParquet", []),
        ("DuckDB", ["duckdb"]),
        ("Back to bytes", ["pyarrow.compute"]),
    ],
)
def test_sections_of_the_page_are_true(page: Page, section: str, packages: list[str]) -> None:
    for package in packages:
        pytest.importorskip(package)
    page.run("Reading")
    assert page.run(section) > 0


def test_dask(page: Page) -> None:
    dask = pytest.importorskip("dask")
    pytest.importorskip("dask.dataframe")
    page.run("Reading")
    with dask.config.set(scheduler="synchronous"):
        page.run("Dask")
    assert page.names["highest"] == 121500000.0


@pytest.mark.skipif(
    " " in sys.executable, reason="Ray starts no workers of a Python below a folder with a blank"
)
def test_ray(page: Page) -> None:
    ray = pytest.importorskip("ray")
    page.run("Reading")
    path = os.pathsep.join(sys.path)
    ray.init(
        num_cpus=1,
        include_dashboard=False,
        object_store_memory=100_000_000,
        runtime_env={"env_vars": {"PYTHONPATH": path}},
    )
    try:
        page.run("Ray")
    finally:
        ray.shutdown()
    assert page.names["highest"] == 121500000.0


# --- GeoParquet


def values(target: Path) -> list[Any]:
    found = pa.concat_tables(
        pa.parquet.read_table(part) for part in sorted(target.glob("part-*.parquet"))
    )
    return list(found["frequency_value"].to_pylist())


def test_geoparquet(folder: Path, tmp_path: Path) -> None:
    geopandas = pytest.importorskip("geopandas")
    target = tmp_path / "target"
    parts = arrow.to_geoparquet(folder, target, rows_per_file=4)
    assert [part.name for part in parts] == [f"part-0000{i}.parquet" for i in range(3)]
    assert sorted(target.iterdir()) == parts
    assert values(target) == [i + 0.25 for i in range(10)] + [None]
    frame = geopandas.read_parquet(target)
    assert str(frame.crs) == "OGC:CRS84"
    assert len(frame) == 11


def test_geoparquet_makes_only_what_has_changed(folder: Path, tmp_path: Path) -> None:
    target = tmp_path / "target"
    parts = arrow.to_geoparquet(folder, target, rows_per_file=4)
    (target / ".unfinished-1-part-00000.parquet").write_bytes(b"left")
    (folder / "5.xml").write_bytes(lakes(100)[99])
    before = [part.stat().st_mtime_ns for part in parts]
    assert arrow.to_geoparquet(folder, target, rows_per_file=4) == parts
    changed = [part.stat().st_mtime_ns != time for part, time in zip(parts, before, strict=True)]
    assert changed == [False, True, False]
    assert values(target)[5] == 99.25
    assert sorted(target.iterdir()) == parts
    for name in ("bad.xml", "8.xml", "9.xml"):
        (folder / name).unlink()
    assert arrow.to_geoparquet(folder, target, rows_per_file=4) == parts[:2]
    assert sorted(target.iterdir()) == parts[:2]


def test_geoparquet_is_complete_or_not_there(folder: Path, tmp_path: Path) -> None:
    """Killed again and again, it comes to its end, and what is there meanwhile can be read."""
    for number, report in enumerate(lakes(200)):
        (folder / f"{number}.xml").write_bytes(report)
    target = tmp_path / "target"
    program = (
        "import sys; from reportgenerator import arrow\n"
        "arrow.to_geoparquet(sys.argv[1], sys.argv[2], rows_per_file=2)\n"
    )
    words = [sys.executable, "-c", program, str(folder), str(target)]
    killed = 0
    for attempt in range(200):
        process = subprocess.Popen(words)
        begun = len(list(target.glob("part-*")))
        # From the first file on, so that it is within its work.
        while process.poll() is None and len(list(target.glob("part-*"))) <= begun:
            time.sleep(0.001)
        time.sleep(0.001 * (attempt % 7))
        if process.poll() is None and killed < 5:
            process.send_signal(signal.SIGKILL)
            killed += 1
        if process.wait() == 0:
            break
        for part in target.glob("part-*.parquet"):
            assert pa.parquet.read_table(part).num_rows > 0
    else:
        pytest.fail("it came to no end")
    assert killed == 5
    assert sorted(value for value in values(target) if value is not None) == [
        i + 0.25 for i in range(200)
    ]
    assert not list(target.glob(".unfinished-*"))
