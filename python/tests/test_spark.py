"""Reports in Spark: on a local cluster of several worker processes, one of which is killed in the middle."""

from __future__ import annotations

import os
import re
import signal
import sys
import threading
import time
from collections.abc import Iterator
from pathlib import Path
from typing import Any

import pytest
from pagesections import Page
from test_columns import lakes

pytest.importorskip("pyspark")
pytest.importorskip("pyarrow")

from pyspark.sql import SparkSession

from reportgenerator import spark as reports

_COUNT = 60


@pytest.fixture(scope="module")
def spark() -> Iterator[Any]:
    """Two worker processes of a core each."""
    os.environ["PYSPARK_PYTHON"] = sys.executable
    os.environ["SPARK_LOCAL_IP"] = "127.0.0.1"
    os.environ["PYTHONPATH"] = os.pathsep.join(path for path in sys.path if path)
    builder = SparkSession.builder.master("local-cluster[2,1,1024]")
    settings = {
        "spark.driver.host": "127.0.0.1",
        "spark.driver.bindAddress": "127.0.0.1",
        "spark.ui.enabled": "false",
        "spark.executor.memory": "512m",
        "spark.executorEnv.PYTHONPATH": os.environ["PYTHONPATH"],
        "spark.sql.shuffle.partitions": "2",
    }
    for name, value in settings.items():
        builder = builder.config(name, value)
    session = builder.getOrCreate()
    session.sparkContext.setLogLevel("OFF")
    reports.register(session)
    yield session
    session.stop()


@pytest.fixture
def folder(tmp_path: Path) -> Path:
    below = tmp_path / "reports"
    below.mkdir()
    for number, report in enumerate(lakes(_COUNT)):
        (below / f"{number:03d}.xml").write_bytes(report)
    return below


def expected() -> list[float]:
    return [i + 0.25 for i in range(_COUNT)]


def test_reads_a_row_for_each_file(spark: Any, folder: Path) -> None:
    frame = spark.read.format("reports").option("filesPerPartition", 7).load(str(folder))
    assert frame.rdd.getNumPartitions() == 9
    rows = frame.orderBy("file").collect()
    assert [row.frequency_value for row in rows] == expected()
    assert rows[3].file == str(folder / "003.xml")
    assert [(point.longitude, point.latitude) for point in rows[3].points] == [(9.5, 47.5)]
    assert rows[3].problem is None


def test_only_the_columns_that_are_asked_for(spark: Any, folder: Path) -> None:
    load = spark.read.format("reports").option("columns", "frequency_value,file").load
    frame = load(str(folder))
    assert frame.columns == ["frequency_value", "file"]
    assert frame.count() == _COUNT
    frame = (
        spark.read.schema("problem string, area_name string").format("reports").load(str(folder))
    )
    assert frame.distinct().collect() == [(None, "Lake")]


def test_modes_are_those_of_other_readers(spark: Any, folder: Path) -> None:
    (folder / "bad.xml").write_bytes(b"rubbish")

    def load(mode: str) -> Any:
        columns = "file,frequency_value"
        read = spark.read.format("reports").option("mode", mode).option("columns", columns)
        return read.load(str(folder)).collect()

    assert sum(row.frequency_value is None for row in load("permissive")) == 1
    assert len(load("permissive")) == _COUNT + 1
    assert len(load("dropMalformed")) == _COUNT
    with pytest.raises(Exception, match=r"bad\.xml: UnknownForm"):
        load("FAILFAST")
    with pytest.raises(Exception, match="no mode is called"):
        load("lenient")


def test_what_is_written_can_be_read(spark: Any, folder: Path, tmp_path: Path) -> None:
    frame = spark.read.format("reports").option("filesPerPartition", 25).load(str(folder))
    target = tmp_path / "copy"
    write = frame.write.format("reports").option("form", "compressed")
    write.mode("append").save(str(target))
    assert len(list(target.iterdir())) == 3

    def found() -> list[float]:
        rows = spark.read.format("reports").load(str(target)).collect()
        return sorted(row.frequency_value for row in rows)

    assert found() == expected()
    write.mode("append").save(str(target))
    assert found() == sorted(2 * expected())
    write.mode("overwrite").save(str(target))
    assert found() == expected()


def test_rows_that_are_no_report_fail_the_writing(spark: Any, folder: Path, tmp_path: Path) -> None:
    (folder / "bad.xml").write_bytes(b"rubbish")
    frame = spark.read.format("reports").option("filesPerPartition", 10).load(str(folder))
    with pytest.raises(Exception, match="it has a problem"):
        frame.write.format("reports").mode("append").save(str(tmp_path / "copy"))
    assert not [path for path in (tmp_path / "copy").rglob("*") if path.is_file()]


def test_decodes_a_table_of_bytes(spark: Any, folder: Path) -> None:
    (folder / "bad.xml").write_bytes(b"rubbish")
    files = spark.read.format("binaryFile").load(str(folder))
    rows = reports.decode(files, keep=["length"], columns=["frequency_value", "problem"])
    assert rows.columns == ["length", "frequency_value", "problem"]
    assert rows.where("problem IS NULL").count() == _COUNT
    good = reports.decode(files, columns=["frequency_value"], mode="dropmalformed")
    assert sorted(row.frequency_value for row in good.collect()) == expected()


def test_the_page_is_true(spark: Any, tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    page = Page(tmp_path, monkeypatch)
    page.names["spark"] = spark
    # The workers stay in the folder that they were started in.
    page.text = re.sub(r'\b(load|parquet|save)\("(\w+)"', rf'\1("{tmp_path}/\2"', page.text)
    assert page.run("Spark") == 2
    assert page.names["highest"] == 121500000.0
    assert len(list((tmp_path / "copy").rglob("*.zbin"))) == 3


# --- With a worker killed


_PAUSE = 0.5


def executor_of(worker: int) -> int:
    """The process of Spark that a worker of Python belongs to."""
    process = Path("/proc") / str(worker)
    while b"CoarseGrainedExecutorBackend" not in (process / "cmdline").read_bytes():
        process = process.parent / (process / "stat").read_text().rpartition(")")[2].split()[1]
    return int(process.name)


class Killer(threading.Thread):
    """Kills one worker process while it pauses within a task."""

    def __init__(self, marks: Path) -> None:
        super().__init__(daemon=True)
        self.marks = marks
        self.killed = 0

    def run(self) -> None:
        deadline = time.monotonic() + 120
        while time.monotonic() < deadline:
            for mark in self.marks.iterdir():
                worker, begun = map(int, mark.name.split("-"))
                if time.monotonic_ns() - begun < _PAUSE / 2 * 1e9:
                    os.kill(executor_of(worker), signal.SIGKILL)
                    self.killed += 1
                    return
            time.sleep(0.01)


def slowed(frame: Any, marks: Path) -> Any:
    """The same rows, each batch of which takes its time, so that there is a middle."""
    folder = str(marks)

    def slowly(batches: Iterator[Any]) -> Iterator[Any]:
        for batch in batches:
            Path(folder, f"{os.getpid()}-{time.monotonic_ns()}").touch()
            time.sleep(_PAUSE)
            yield batch

    return frame.mapInArrow(slowly, frame.schema)


@pytest.fixture
def marks(tmp_path: Path) -> Path:
    below = tmp_path / "marks"
    below.mkdir()
    return below


def test_reading_survives_a_worker(spark: Any, folder: Path, marks: Path) -> None:
    frame = spark.read.format("reports").option("filesPerPartition", 5).load(str(folder))
    killer = Killer(marks)
    killer.start()
    rows = slowed(frame, marks).select("frequency_value").collect()
    killer.join()
    assert killer.killed == 1
    # More was begun than there are partitions: what the killed one had under way came again.
    assert len(list(marks.iterdir())) > 12
    assert sorted(row.frequency_value for row in rows) == expected()


def test_writing_survives_a_worker(spark: Any, folder: Path, tmp_path: Path, marks: Path) -> None:
    frame = spark.read.format("reports").option("filesPerPartition", 5).load(str(folder))
    target = tmp_path / "copy"
    killer = Killer(marks)
    killer.start()
    slowed(frame, marks).write.format("reports").mode("append").save(str(target))
    killer.join()
    assert killer.killed == 1
    assert len(list(marks.iterdir())) > 12
    assert sorted(path.name[:10] for path in target.iterdir()) == [
        f"part-{i:05d}" for i in range(12)
    ]
    again = spark.read.format("reports").load(str(target))
    assert sorted(row.frequency_value for row in again.collect()) == expected()
