"""Reports in Spark (pyspark 4, whose workers have this package, pyarrow and the folders).

    from reportgenerator import spark as reports

    reports.register(spark)
    frame = spark.read.format("reports").load("/data/reports")
    frame.where("problem IS NULL").write.format("reports").option("form", "compressed").save("/data/copy")

The columns are those of `reportgenerator.arrow`, `file` in front. Options of reading:

- `mode`: as Spark's own readers have it. "PERMISSIVE" (by default) gives rows whose column `problem` tells why all others
  are null, "DROPMALFORMED" leaves them out, "FAILFAST" fails at the first.
- `columns`: only these, with commas between, "file" among them. So does a schema: `spark.read.schema("file string, problem string")`.
  Spark tells sources in Python of no columns that a query doesn't need.
- `filesPerPartition`: how many files make a partition, 1000 by default.

Options of writing: `form` ("xml", "plain", "compressed"), `level` (of compressed forms). Each row becomes a file, and each
partition a folder, which is there when the whole has been written, and not before. Rows that are no good reports fail it.

For a million small files read a table that holds their bytes instead, with `decode`; docs/data-frames.md tells how to pack them.
"""

from __future__ import annotations

import json
import os
import shutil
import uuid
from collections.abc import Callable, Iterator, Mapping, Sequence
from dataclasses import dataclass
from functools import partial
from pathlib import Path
from typing import Any

import pyarrow
from pyspark.sql import DataFrame, SparkSession
from pyspark.sql.datasource import (
    DataSource,
    DataSourceArrowWriter,
    DataSourceReader,
    InputPartition,
    WriterCommitMessage,
)
from pyspark.sql.pandas.types import from_arrow_schema, to_arrow_schema
from pyspark.sql.types import StructType

from . import _columns, arrow

__all__ = ["ReportsDataSource", "decode", "register"]

_FILE = "file"
_PROBLEM = "problem"
_MODES = ("PERMISSIVE", "DROPMALFORMED", "FAILFAST")
_FILES_PER_PARTITION = 1000
_UNFINISHED = "_unfinished-"
_ENDINGS = {"xml": "xml", "plain": "bin", "compressed": "zbin"}


def register(spark: SparkSession) -> None:
    """Makes the format "reports" known to a session."""
    spark.dataSource.register(ReportsDataSource)


def decode(
    frame: DataFrame,
    column: str = "content",
    *,
    keep: Sequence[str] = (),
    columns: Sequence[str] | None = None,
    mode: str = "PERMISSIVE",
) -> DataFrame:
    """A row of values for each row of a frame whose column holds reports as bytes, as tables and `binaryFile` do.

    keep: columns of the frame that the rows are to have in front.
    columns, mode: as of the format "reports".
    """
    wanted = _wanted(columns)
    kept = frame.select(*keep).schema
    schema = StructType(kept.fields + from_arrow_schema(_schema(wanted)).fields)
    rows = _decoder(column, list(keep), wanted, to_arrow_schema(schema), _mode(mode))
    return frame.select(column, *(name for name in keep if name != column)).mapInArrow(rows, schema)


def _wanted(columns: Sequence[str] | None) -> list[str]:
    wanted = list(columns) if columns is not None else list(arrow.COLUMNS)
    for name in wanted:
        if name not in arrow.COLUMNS:
            raise ValueError(f"no column is called '{name}': there are {', '.join(arrow.COLUMNS)}")
    return wanted


def _mode(given: str) -> str:
    mode = given.upper()
    if mode not in _MODES:
        raise ValueError(f"no mode is called '{given}': there are {', '.join(_MODES)}")
    return mode


def _schema(columns: Sequence[str]) -> Any:
    whole = pyarrow.schema(_columns.schema())
    return pyarrow.schema([whole.field(name) for name in columns])


def _sifted(rows: Any, mode: str, schema: Any, where: Callable[[int], str]) -> Any:
    """The rows that a mode lets through, with the columns of a schema, which Spark wants to the letter."""
    if mode != "PERMISSIVE":
        problems = rows.column(_PROBLEM)
        if mode == "FAILFAST" and problems.null_count < len(problems):
            row = next(i for i, problem in enumerate(problems) if problem.is_valid)
            raise ValueError(f"{where(row)}: {problems[row].as_py()}")
        rows = rows.filter(problems.is_null())
    return rows.select(schema.names).cast(schema)


def _decoder(
    column: str, keep: list[str], wanted: list[str], schema: Any, mode: str
) -> Callable[[Iterator[Any]], Iterator[Any]]:
    needed = sorted({*wanted, _PROBLEM})

    def rows(batches: Iterator[Any]) -> Iterator[Any]:
        for batch in batches:
            # One core belongs to a task.
            decoded = pyarrow.record_batch(
                arrow.decode(batch.column(column), columns=needed, threads=1, batch_rows=0)
            )
            both = pyarrow.RecordBatch.from_arrays(
                [batch.column(name) for name in keep] + decoded.columns,
                names=[*keep, *decoded.schema.names],
            )
            yield _sifted(both, mode, schema, lambda row: f"row {row} of a batch")

    return rows


# --- The format


class ReportsDataSource(DataSource):
    """The format "reports": files of reports, each a row."""

    @classmethod
    def name(cls) -> str:
        return "reports"

    def schema(self) -> StructType:
        given = self.options.get("columns")
        names = [_FILE, *arrow.COLUMNS]
        if given is not None:
            names = [name.strip() for name in given.split(",")]
            _wanted([name for name in names if name != _FILE])
        file = pyarrow.field(_FILE, pyarrow.string())
        fields = [file if name == _FILE else _schema([name]).field(0) for name in names]
        return from_arrow_schema(pyarrow.schema(fields))

    def reader(self, schema: StructType) -> DataSourceReader:
        return _Reader(dict(self.options), schema)

    def writer(self, schema: StructType, overwrite: bool) -> DataSourceArrowWriter:
        return _Writer(dict(self.options), overwrite)


def _option(options: Mapping[str, str], name: str, default: str) -> str:
    """Names of options know no case."""
    found = [value for key, value in options.items() if key.lower() == name.lower()]
    return found[0] if found else default


def _local(path: str) -> str:
    """A path of the file system that all workers share."""
    scheme, separator, rest = path.partition(":")
    if separator and scheme == "file":
        return "/" + rest.lstrip("/")
    if separator and rest.startswith("//"):
        raise ValueError(
            f"{path}: read it by format('binaryFile'), and decode its column 'content'"
        )
    return path


def _paths(options: Mapping[str, str]) -> list[str]:
    several = _option(options, "paths", "")
    if several:
        return [_local(path) for path in json.loads(several)]
    one = _option(options, "path", "")
    if not one:
        raise ValueError("the format 'reports' needs a path")
    return [_local(one)]


@dataclass
class _Files(InputPartition):
    paths: list[str]


class _Reader(DataSourceReader):
    def __init__(self, options: Mapping[str, str], schema: StructType) -> None:
        self._mode = _mode(_option(options, "mode", "PERMISSIVE"))
        self._schema = to_arrow_schema(schema)
        self._columns = _wanted([name for name in schema.names if name != _FILE])
        self._paths = _paths(options)
        self._step = int(_option(options, "filesPerPartition", str(_FILES_PER_PARTITION)))
        if self._step < 1:
            raise ValueError("a partition has one file at least")

    def partitions(self) -> Sequence[InputPartition]:
        files = arrow.files(self._paths)
        parts = [files[begin : begin + self._step] for begin in range(0, len(files), self._step)]
        return [_Files(part) for part in parts or [[]]]

    def read(self, partition: InputPartition) -> Iterator[Any]:
        assert isinstance(partition, _Files)
        if not partition.paths:
            return
        needed = sorted({*self._columns, _PROBLEM})
        # One core belongs to a task.
        for batch in arrow.scan(partition.paths, columns=needed, threads=1):
            rows = pyarrow.record_batch(batch)
            files = rows.column(_FILE)
            yield _sifted(rows, self._mode, self._schema, partial(_name, files))


def _name(files: Any, row: int) -> str:
    return str(files[row])


@dataclass
class _Written(WriterCommitMessage):
    folder: str
    name: str


class _Writer(DataSourceArrowWriter):
    """Each attempt of a task writes into a folder of its own; those of the attempts that count are renamed in the end."""

    def __init__(self, options: Mapping[str, str], overwrite: bool) -> None:
        self._form = _option(options, "form", "plain")
        self._level = int(_option(options, "level", "-1"))
        self._target = Path(_paths(options)[0])
        self._overwrite = overwrite
        self._job = uuid.uuid4().hex
        if self._form not in _ENDINGS:
            raise ValueError(f"no form is called '{self._form}': there are {', '.join(_ENDINGS)}")

    def write(self, iterator: Iterator[Any]) -> WriterCommitMessage:
        from pyspark import TaskContext

        task = TaskContext.get()
        part = task.partitionId() if task else 0
        folder = self._target / f"{_UNFINISHED}{self._job}-{uuid.uuid4().hex}"
        folder.mkdir(parents=True)
        number = 0
        for batch in iterator:
            encoded = arrow.encode(batch, form=self._form, level=self._level, threads=1)
            for report in pyarrow.chunked_array(encoded):
                if report.is_valid:
                    _put(folder / f"{number:08d}.{_ENDINGS[self._form]}", report.as_py())
                    number += 1
        arrow.synchronise(folder)
        return _Written(str(folder), f"part-{part:05d}-{self._job}")

    def commit(self, messages: Sequence[WriterCommitMessage | None]) -> None:
        self._target.mkdir(parents=True, exist_ok=True)
        old = [entry for entry in self._target.iterdir() if not entry.name.startswith(_UNFINISHED)]
        for message in messages:
            if isinstance(message, _Written):
                os.rename(message.folder, self._target / message.name)
        if self._overwrite:
            for entry in old:
                _remove(entry)
        self._remove_unfinished()
        arrow.synchronise(self._target)

    def abort(self, messages: Sequence[WriterCommitMessage | None]) -> None:
        self._remove_unfinished()

    def _remove_unfinished(self) -> None:
        """What attempts that don't count have left."""
        if self._target.is_dir():
            for entry in self._target.glob(f"{_UNFINISHED}{self._job}-*"):
                _remove(entry)


def _put(path: Path, report: bytes) -> None:
    with open(path, "wb") as file:
        file.write(report)
        file.flush()
        os.fsync(file.fileno())


def _remove(entry: Path) -> None:
    if entry.is_dir() and not entry.is_symlink():
        shutil.rmtree(entry, ignore_errors=True)
    else:
        entry.unlink(missing_ok=True)
