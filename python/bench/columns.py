"""Measures columns of reports beside the C++ library, JSON, Protocol Buffers and GeoJSON, and in Spark.

`./dev bench --python` runs it. What is compared is run in turns on the same core, and ratios are the medians of those of each turn:
the machine may have other work, and one core of a virtual machine isn't as fast as another. Processor time is that of the process;
clock time counts where cores do.
"""

from __future__ import annotations

import argparse
import gc
import json
import os
import resource
import statistics
import struct
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable, Iterator
from contextlib import contextmanager
from functools import partial
from pathlib import Path
from typing import Any

import numpy as np
import pyarrow as pa
import pyarrow.parquet as pq

from reportgenerator import arrow

FORMS = ("xml", "plain", "compressed")
POINTS = 17
Seconds = tuple[float, float]  # of the clock and of the processor


def made_up(count: int) -> Any:
    """A table of so many reports, each of about 17 points around a place of its own."""
    random = np.random.default_rng(20)
    points = random.integers(POINTS - 5, POINTS + 6, count)
    ends = np.concatenate([[0], np.cumsum(points)]).astype(np.int32)
    report = np.repeat(np.arange(count), points)
    angle = (np.arange(ends[-1]) - ends[report]) / points[report] * 2 * np.pi
    radius = random.uniform(0.3, 0.5, ends[-1])
    longitude = random.uniform(-170, 170, count)[report] + np.cos(angle) * radius
    latitude = random.uniform(-80, 80, count)[report] + np.sin(angle) * radius
    frequency = np.round(random.uniform(3e6, 3e9, count), 2)
    structures = pa.StructArray.from_arrays([longitude, latitude], ["longitude", "latitude"])
    return pa.table(
        {
            "frequency_value": frequency,
            "frequency_min": np.round(frequency * 0.99, 2),
            "frequency_max": np.round(frequency * 1.01, 2),
            "frequency_use": pa.array(random.random(count) < 0.5),
            "ifBandwidth_value": np.round(random.uniform(100, 300000, count), 2),
            "area_name": [f"Region {i}" for i in range(count)],
            "area_scriptId": [f"SCRIPT-{i % 1000}" for i in range(count)],
            "points": pa.ListArray.from_arrays(ends, structures),
        }
    )


def encoded(table: Any, form: str) -> Any:
    """The reports as one array, which may have more bytes than 32 bits count."""
    batches = pa.chunked_array(arrow.encode(table, form=form))
    return pa.concat_arrays(batches.cast(pa.large_binary()).chunks)


def timed(action: Callable[[], object]) -> Seconds:
    gc.collect()
    begin, processor = time.perf_counter(), time.process_time()
    result = action()
    taken = time.perf_counter() - begin, time.process_time() - processor
    del result
    return taken


CORES = sorted(os.sched_getaffinity(0))


@contextmanager
def on_core(core: int, *others: int) -> Iterator[None]:
    """Keeps this process, and others by their numbers, on one core."""
    processes = (0, *others)
    for process in processes:
        os.sched_setaffinity(process, {core})
    try:
        yield
    finally:
        for process in processes:
            os.sched_setaffinity(process, CORES)


class Library:
    """The C++ library, reading a column in a process of its own."""

    def __init__(self, program: str, form: str, column: Any, folder: Path) -> None:
        path = folder / f"column.{form}"
        with open(path, "wb") as file:
            for value in column:
                report = value.as_buffer()
                file.write(struct.pack("<i", report.size))
                file.write(report)
        self._process = subprocess.Popen(
            [program, form, str(path)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
        )

    @property
    def number(self) -> int:
        return self._process.pid

    def read(self) -> Seconds:
        assert self._process.stdin and self._process.stdout
        self._process.stdin.write("\n")
        self._process.stdin.flush()
        clock, processor = self._process.stdout.readline().split()
        return float(clock), float(processor)

    def close(self) -> None:
        self._process.communicate()


def ratios(over: list[Seconds], under: list[Seconds], what: int) -> float:
    """The median of the ratios of each turn; of the clock for 0, of the processor for 1."""
    return statistics.median(a[what] / b[what] for a, b in zip(over, under, strict=True))


# --- Decoding beside the library


def against_library(options: Any, table: Any, folder: Path) -> dict[str, Any]:
    found: dict[str, Any] = {}
    for form in FORMS:
        column = encoded(table, form)
        library = Library(options.reading, form, column, folder)
        read: list[Seconds] = []
        one: list[Seconds] = []
        two_cores: list[float] = []
        for _ in range(options.repetitions):
            for core in CORES[:2]:
                with on_core(core, library.number):
                    read.append(library.read())
                    one.append(timed(partial(arrow.decode, column, threads=1)))
            both = timed(partial(arrow.decode, column, threads=2))
            rates = [1 / turn[0] for turn in one[-2:]]
            two_cores.append(1 / both[0] / statistics.mean(rates))
        library.close()
        rows = arrow.decode(column)
        assert isinstance(rows, arrow.Columns)
        count = len(rows)
        found[form] = {
            "bytes": column.nbytes / count,
            "library_us": 1e6 * statistics.median(turn[1] for turn in read) / count,
            "decode_us": 1e6 * statistics.median(turn[1] for turn in one) / count,
            "decode_to_library": ratios(one, read, 1),
            "two_cores": statistics.median(two_cores),
            "bytes_in_memory": rows.nbytes / count,
        }
    return found


# --- Beside other readers of the same reports


def against_json(options: Any, column: Any, folder: Path) -> dict[str, float]:
    """What the tool tells of files as JSON, and JSON read into columns, beside the files decoded."""
    import pandas

    files = folder / "json"
    files.mkdir()
    for number, value in enumerate(column):
        (files / f"{number:07d}.bin").write_bytes(value.as_buffer())
    names = sorted(str(path) for path in files.iterdir())
    words = [options.tool, "show", "--json", *names]
    text = subprocess.run(words, check=True, capture_output=True).stdout

    def read() -> object:
        return pa.Table.from_pandas(pandas.json_normalize(json.loads(text)))

    turns = [
        (timed(read), timed(partial(arrow.decode, column, threads=1)))
        for _ in range(options.repetitions)
    ]
    tool = timed(lambda: subprocess.run(words, check=True, capture_output=True))[0]
    count = len(column)
    return {
        "json_us": 1e6 * statistics.median(turn[0][1] for turn in turns) / count,
        "tool_us": 1e6 * tool / count,
        "times": statistics.median(turn[0][1] / turn[1][1] for turn in turns),
    }


def against_protobuf(options: Any, table: Any, column: Any, folder: Path) -> dict[str, Any]:
    from google.protobuf import descriptor_pb2, descriptor_pool, message_factory
    from google.protobuf.internal import api_implementation

    described = folder / "report.desc"
    source = Path(options.proto)
    subprocess.run(
        ["protoc", f"-I{source.parent}", f"--descriptor_set_out={described}", str(source)],
        check=True,
    )
    pool = descriptor_pool.DescriptorPool()
    file = descriptor_pb2.FileDescriptorSet.FromString(described.read_bytes()).file[0]
    pool.Add(file)
    package = f"{file.package}." if file.package else ""
    report_class: Any = message_factory.GetMessageClass(
        pool.FindMessageTypeByName(f"{package}Report")
    )
    messages = [packed(report_class, row) for row in table.to_pylist()]

    def read() -> object:
        return unpacked(report_class, messages)

    turns = [
        (timed(read), timed(partial(arrow.decode, column, threads=1)))
        for _ in range(options.repetitions)
    ]
    return {
        "implementation": api_implementation.Type(),
        "protobuf_us": 1e6 * statistics.median(turn[0][1] for turn in turns) / len(column),
        "times": statistics.median(turn[0][1] / turn[1][1] for turn in turns),
    }


def packed(report_class: Any, row: dict[str, Any]) -> bytes:
    report = report_class()
    report.frequency.value = row["frequency_value"]
    report.frequency.min = row["frequency_min"]
    report.frequency.max = row["frequency_max"]
    report.frequency.use = row["frequency_use"]
    report.bandwidth.value = row["ifBandwidth_value"]
    report.area.name = row["area_name"]
    for point in row["points"]:
        report.area.coordinates.add(longitude=point["longitude"], latitude=point["latitude"])
    data: bytes = report.SerializeToString()
    return data


def unpacked(report_class: Any, messages: list[bytes]) -> Any:
    """The columns that these messages have something for, as quickly as Python does it."""
    values: list[list[Any]] = [[] for _ in range(6)]
    longitudes: list[float] = []
    latitudes: list[float] = []
    ends = [0]
    for message in messages:
        report = report_class.FromString(message)
        frequency, area = report.frequency, report.area
        values[0].append(frequency.value)
        values[1].append(frequency.min)
        values[2].append(frequency.max)
        values[3].append(frequency.use)
        values[4].append(report.bandwidth.value)
        values[5].append(area.name)
        longitudes.extend([point.longitude for point in area.coordinates])
        latitudes.extend([point.latitude for point in area.coordinates])
        ends.append(len(longitudes))
    points = pa.StructArray.from_arrays(
        [pa.array(longitudes), pa.array(latitudes)], ["longitude", "latitude"]
    )
    names = [
        "frequency_value",
        "frequency_min",
        "frequency_max",
        "frequency_use",
        "ifBandwidth_value",
        "area_name",
    ]
    columns = [pa.array(column) for column in values]
    return pa.table([*columns, pa.ListArray.from_arrays(ends, points)], [*names, "points"])


def against_geojson(options: Any, column: Any, folder: Path) -> dict[str, float]:
    import pyogrio

    target = folder / "reports.geojson"
    words = [
        options.tool,
        "export",
        "-r",
        str(folder / "json"),
        "--to",
        "geojson",
        "-o",
        str(target),
    ]
    subprocess.run(words, check=True, capture_output=True)

    def read() -> object:
        return pyogrio.read_arrow(target)

    turns = [
        (timed(read), timed(partial(arrow.decode, column, threads=1)))
        for _ in range(options.repetitions)
    ]
    return {
        "pyogrio_us": 1e6 * statistics.median(turn[0][1] for turn in turns) / len(column),
        "times": statistics.median(turn[0][1] / turn[1][1] for turn in turns),
    }


# --- Spark


def in_spark(options: Any, column: Any, folder: Path) -> dict[str, Any]:
    """A packed table of reports decoded on worker processes, and the same bytes only handed through."""
    packed_reports = folder / "packed"
    packed_reports.mkdir()
    step = -(-len(column) // options.partitions)
    for part in range(options.partitions):
        values = column.slice(part * step, step)
        pq.write_table(pa.table({"content": values}), packed_reports / f"{part:04d}.parquet")
    found = {}
    for workers in (1, 2, 4):
        words = [
            sys.executable,
            __file__,
            "--spark-workers",
            str(workers),
            "--packed",
            str(packed_reports),
        ]
        done = subprocess.run(words, check=True, capture_output=True, text=True)
        found[str(workers)] = json.loads(done.stdout.splitlines()[-1])
    return found


def spark_session(workers: int) -> Any:
    from pyspark.sql import SparkSession

    os.environ["PYSPARK_PYTHON"] = sys.executable
    os.environ["SPARK_LOCAL_IP"] = "127.0.0.1"
    builder = SparkSession.builder.master(f"local-cluster[{workers},1,1024]")
    for name, value in {
        "spark.driver.host": "127.0.0.1",
        "spark.driver.bindAddress": "127.0.0.1",
        "spark.ui.enabled": "false",
        "spark.executor.memory": "768m",
        "spark.sql.files.maxPartitionBytes": "8m",
        "spark.sql.files.openCostInBytes": "8m",
    }.items():
        builder = builder.config(name, value)
    session = builder.getOrCreate()
    session.sparkContext.setLogLevel("OFF")
    return session


def measure_spark(workers: int, packed_reports: str) -> None:
    from reportgenerator import spark as reports

    begin = time.perf_counter()
    session = spark_session(workers)
    frame = session.read.parquet(packed_reports)
    count = frame.count()
    start = time.perf_counter() - begin

    def through(batches: Any) -> Any:
        for batch in batches:
            yield pa.record_batch([pa.compute.binary_length(batch.column(0))], ["size"])

    def decoded() -> object:
        return (
            reports.decode(frame).selectExpr("sum(frequency_value)", "sum(length(area))").collect()
        )

    def handed() -> object:
        return frame.mapInArrow(through, "size int").selectExpr("sum(size)").collect()

    decoded(), handed()  # the workers have started and loaded then
    turns = [(timed(decoded)[0], timed(handed)[0]) for _ in range(3)]
    session.stop()
    times = [min(turn[i] for turn in turns) for i in range(2)]
    print(
        json.dumps(
            {
                "start_s": start,
                "reports_a_second": count / times[0],
                "us": 1e6 * times[0] / count,
                "of_that_spark_us": 1e6 * times[1] / count,
            }
        )
    )


# --- All of it


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--reports", type=int, default=1_000_000)
    parser.add_argument("--repetitions", type=int, default=7)
    parser.add_argument("--partitions", type=int, default=16)
    parser.add_argument("--reading", help="the program reportbase_reading")
    parser.add_argument("--tool", help="reporttool")
    parser.add_argument("--proto", help="report.proto")
    parser.add_argument("--json", help="where the figures go")
    parser.add_argument("--spark-workers", type=int, help=argparse.SUPPRESS)
    parser.add_argument("--packed", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.spark_workers:
        measure_spark(options.spark_workers, options.packed)
        return
    # JSON and Protocol Buffers take as long a report, however many there are.
    few = min(options.reports, 20_000)
    figures: dict[str, Any] = {
        "reports": options.reports,
        "repetitions": options.repetitions,
        "few": few,
    }
    with tempfile.TemporaryDirectory(prefix="reports-") as name:
        folder = Path(name)
        table = made_up(options.reports)
        figures["forms"] = against_library(options, table, folder)
        sample = table.slice(0, few)
        column = encoded(sample, "plain")
        with on_core(CORES[0]):
            figures["json"] = against_json(options, column, folder)
            figures["geojson"] = against_geojson(options, column, folder)
            figures["protobuf"] = against_protobuf(options, sample, column, folder)
        plain = pa.chunked_array(arrow.encode(table, form="plain"))
        figures["spark"] = in_spark(options, plain, folder)
    figures["peak_mib"] = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024
    text = json.dumps(figures, indent=2)
    print(text)
    if options.json:
        Path(options.json).write_text(text + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
