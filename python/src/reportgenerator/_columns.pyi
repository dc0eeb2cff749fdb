from collections.abc import Iterator, Sequence

COLUMNS: tuple[str, ...]

class Columns:
    """Batches of rows in memory, for every package that knows Arrow's PyCapsule protocol."""

    def __len__(self) -> int: ...
    @property
    def nbytes(self) -> int:
        """Bytes of all buffers."""
    def batches(self) -> list[Columns]:
        """Each batch by itself."""
    def __arrow_c_schema__(self) -> object: ...
    def __arrow_c_array__(
        self, requested_schema: object | None = None
    ) -> tuple[object, object]: ...
    def __arrow_c_stream__(self, requested_schema: object | None = None) -> object: ...

class Stream:
    """Batches of rows that come into being when they are asked for, once."""

    def __iter__(self) -> Iterator[Columns]: ...
    def __next__(self) -> Columns: ...
    def __arrow_c_schema__(self) -> object: ...
    def __arrow_c_stream__(self, requested_schema: object | None = None) -> object: ...

def decode(
    column: object,
    *,
    columns: Sequence[str] | None = None,
    threads: int = 0,
    batch_rows: int = 16384,
) -> Columns | Stream: ...
def scan(
    paths: Sequence[bytes],
    *,
    columns: Sequence[str] | None = None,
    threads: int = 0,
    batch_rows: int = 16384,
) -> Stream: ...
def encode(
    table: object,
    *,
    form: str,
    level: int,
    skip_refused: bool,
    threads: int = 0,
    batch_rows: int = 16384,
) -> Columns | Stream: ...
def schema(columns: Sequence[str] | None = None) -> Columns: ...
