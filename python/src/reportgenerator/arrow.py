"""Columns of reports: bytes in, columns out, and back.

`decode` takes a column of bytes, each value a report in any form, and gives a table with the values of the reports;
`scan` does the same with files, and `encode` is the way back. All of them work on whole batches in all cores, and give
objects that every package takes which knows Arrow's PyCapsule protocol: pyarrow, pandas, polars, DuckDB, geopandas and
others. None of these is needed for it.

    import pyarrow as pa
    from reportgenerator import arrow

    table = pa.table(arrow.scan("reports"))

The columns, each null where a report doesn't say it:

==================  =======================================================================================
file                of `scan` only: the name of the file
frequency_value     in Hz, as the others of frequency and bandwidth
frequency_min
frequency_max
frequency_use       bool
ifBandwidth_value
ifBandwidth_min
ifBandwidth_max
area_name           text
area_version        text: the version of the area's format
area_scriptId       text
area                the area as programs for maps take it: well-known binary (GeoArrow `geoarrow.wkb`) in OGC:CRS84,
                    cut where it crosses the antimeridian; a line or a point where it has so few points
points              the points as they stand in the report: a list of structures `longitude`, `latitude`, in degrees
problem             text: null where the report is good. Otherwise it is what `reporttool check` says of it first, and
                    all values of the row are null
==================  =======================================================================================
"""

from __future__ import annotations

import hashlib
import importlib
import json
import os
from collections.abc import Iterable, Iterator, Sequence
from pathlib import Path
from typing import Any

from . import _columns
from ._columns import COLUMNS, Columns, Stream

__all__ = [
    "COLUMNS",
    "Columns",
    "Stream",
    "decode",
    "encode",
    "files",
    "scan",
    "to_geopandas",
    "to_geoparquet",
    "to_pandas",
]

PathLike = str | os.PathLike[str]
Paths = PathLike | Iterable[PathLike]

_BATCH_ROWS = 16384
_FILES_IN_BATCH = 4096


def decode(
    column: object,
    *,
    columns: Sequence[str] | None = None,
    threads: int = 0,
    batch_rows: int = _BATCH_ROWS,
) -> Columns | Stream:
    """A row for each value of a column of bytes, whatever is in it; a null gives a row of nulls.

    Of an array (`__arrow_c_array__`, as `pyarrow.Array` has it) or a sequence of bytes and None all rows come at once.
    Of a stream (`__arrow_c_stream__`: `pyarrow.ChunkedArray`, `pyarrow.RecordBatchReader.from_stream`) each batch comes
    when it is asked for, so that memory is bounded by the batches.

    column: binary, large_binary, binary_view or the same of texts.
    columns: only these, in the order of `COLUMNS`.
    threads: how many work at a time, by default as many as there are cores.
    batch_rows: how many rows a batch has at most; 0 for all in one.
    """
    return _columns.decode(column, columns=columns, threads=threads, batch_rows=batch_rows)


def scan(
    paths: Paths,
    *,
    columns: Sequence[str] | None = None,
    threads: int = 0,
    batch_rows: int = _FILES_IN_BATCH,
) -> Stream:
    """A row for each file, with its name in the column `file`. Folders stand for all files below them, in the order of
    their names. A file that cannot be read has that as its problem. A few batches are in memory at a time."""
    names = [os.fsencode(path) for path in files(paths)]
    return _columns.scan(names, columns=columns, threads=threads, batch_rows=batch_rows)


def encode(
    table: object,
    *,
    form: str = "plain",
    level: int = -1,
    skip_refused: bool = False,
    threads: int = 0,
    batch_rows: int = _BATCH_ROWS,
) -> Columns | Stream:
    """The reports whose values stand in a table, as a column of bytes: what the library writes, byte by byte.

    The table has columns of `COLUMNS`; those that it lacks are null. `points` is what an area is made of, and `area` is not
    read, nor is `area_version`: the library writes its own. A row without any value gives null.

    form: "xml", "plain" or "compressed".
    level: of compressed forms, 0 to 9, or -1 for zlib's default.
    skip_refused: what is no good report, and rows with a problem, give null instead of a `ValueError`.
    """
    return _columns.encode(
        table,
        form=form,
        level=level,
        skip_refused=skip_refused,
        threads=threads,
        batch_rows=batch_rows,
    )


def files(paths: Paths) -> list[str]:
    """The files of the given names: those of a folder and the folders in it, each folder's in the order of their names. Links to
    folders are not followed, and files whose names begin with a dot or an underscore are left out, as engines do."""
    given = [paths] if isinstance(paths, (str, os.PathLike)) else paths
    found: list[str] = []
    for path in given:
        name = os.fspath(path)
        if os.path.isdir(name):
            found.extend(_files_below(name))
        else:
            found.append(name)
    return found


def _files_below(folder: str) -> Iterator[str]:
    with os.scandir(folder) as entries:
        known = sorted(entries, key=lambda entry: entry.name)
    for entry in known:
        if entry.name.startswith((".", "_")):
            continue
        if entry.is_dir(follow_symlinks=False):
            yield from _files_below(entry.path)
        elif entry.is_file():
            yield entry.path


# --- Data frames


def _package(name: str) -> Any:
    """A package that only some functions need."""
    try:
        return importlib.import_module(name)
    except ImportError as missing:
        raise ImportError(f"this needs {name}: pip install 'reportgenerator[frames]'") from missing


def _table(reports: object) -> Any:
    """An Arrow table of decoded reports, or of files."""
    is_table = hasattr(reports, "__arrow_c_stream__") or hasattr(reports, "__arrow_c_array__")
    given = reports if is_table else scan(reports)  # type: ignore[arg-type]
    pyarrow = _package("pyarrow")
    if isinstance(given, Stream):
        # Batch by batch, so that Ctrl-C is a KeyboardInterrupt.
        batches = [pyarrow.record_batch(batch) for batch in given]
        return pyarrow.Table.from_batches(batches, schema=pyarrow.schema(given))
    return pyarrow.table(given)


def to_pandas(reports: object) -> Any:
    """A `pandas.DataFrame` of what `decode` or `scan` gives, or of paths."""
    return _table(reports).to_pandas()


def to_geopandas(reports: object) -> Any:
    """A `geopandas.GeoDataFrame` of what `decode` or `scan` gives, or of paths. Its geometry is `area`."""
    return _package("geopandas").GeoDataFrame.from_arrow(_table(reports))


# --- GeoParquet

_GEO = json.dumps(
    {
        "version": "1.1.0",
        "primary_column": "area",
        "columns": {"area": {"encoding": "WKB", "geometry_types": []}},
    }
)
_MADE_OF = b"reportgenerator:files"
_TEMPORARY = ".unfinished-"


def to_geoparquet(
    paths: Paths,
    target: PathLike,
    *,
    rows_per_file: int = 100_000,
    columns: Sequence[str] | None = None,
    threads: int = 0,
    compression: str = "zstd",
) -> list[Path]:
    """Puts a row for each file into GeoParquet files in the folder `target`, each of so many reports, and gives their paths.

    A file there is complete or not there: it is written beside its place, synchronised and renamed. After an interruption the
    same call goes on where it was: parts whose reports have the same names, sizes and times are left as they are, others
    are made again. Parts that belong to no report any more are removed.
    """
    if rows_per_file < 1:
        raise ValueError("a file has one row at least")
    folder = Path(target)
    folder.mkdir(parents=True, exist_ok=True)
    # Rows tell of reports by the names that they were found by.
    names = files(paths)
    options = json.dumps([list(columns) if columns is not None else None, compression])
    parts: list[Path] = []
    for begin in range(0, len(names), rows_per_file):
        part = folder / f"part-{begin // rows_per_file:05d}.parquet"
        of_part = names[begin : begin + rows_per_file]
        digest = _digest(of_part, options)
        if _made_of(part) != digest:
            _write_part(part, scan(of_part, columns=columns, threads=threads), digest, compression)
        parts.append(part)
    for other in folder.iterdir():
        is_left = other.name.startswith(_TEMPORARY)
        if is_left or (other.match("part-*.parquet") and other not in parts):
            other.unlink()
    return parts


def _digest(names: Sequence[str], options: str) -> bytes:
    """Of what a part is made of."""
    state = hashlib.sha256(options.encode())
    for name in names:
        try:
            known = os.stat(name)
            state.update(b"%d %d " % (known.st_size, known.st_mtime_ns))
        except OSError:
            state.update(b"- ")
        state.update(os.fsencode(name) + b"\0")
    return state.hexdigest().encode()


def _made_of(part: Path) -> bytes | None:
    """The digest that a part has; None where there is none that can be read."""
    parquet = _package("pyarrow.parquet")
    try:
        metadata = parquet.read_schema(part).metadata or {}
    except (OSError, _package("pyarrow").ArrowInvalid):
        return None
    found: bytes | None = metadata.get(_MADE_OF)
    return found


def _write_part(part: Path, reports: Stream, digest: bytes, compression: str) -> None:
    pyarrow = _package("pyarrow")
    parquet = _package("pyarrow.parquet")
    schema = pyarrow.schema(reports)
    schema = schema.with_metadata(
        {_MADE_OF: digest} | ({b"geo": _GEO} if "area" in schema.names else {})
    )
    temporary = part.with_name(f"{_TEMPORARY}{os.getpid()}-{part.name}")
    try:
        with open(temporary, "wb") as file:
            with parquet.ParquetWriter(file, schema, compression=compression) as writer:
                for batch in reports:
                    rows = pyarrow.record_batch(batch)
                    writer.write_batch(rows.replace_schema_metadata(schema.metadata))
            file.flush()
            os.fsync(file.fileno())
        os.replace(temporary, part)
    except BaseException:
        temporary.unlink(missing_ok=True)
        raise
    synchronise(part.parent)


def synchronise(folder: Path) -> None:
    """Makes what was renamed in the folder last, where the system has a way for it."""
    if not hasattr(os, "O_DIRECTORY"):
        return
    handle = os.open(folder, os.O_RDONLY | os.O_DIRECTORY)
    try:
        os.fsync(handle)
    finally:
        os.close(handle)
