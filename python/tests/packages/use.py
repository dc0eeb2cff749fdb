"""Takes reports through every form and into columns, and prints the libraries that are loaded."""

from __future__ import annotations

import sys
import tempfile
from pathlib import Path

import reportgenerator as rg
from reportgenerator import arrow


def main() -> None:
    files = sys.argv[1:]
    assert files
    with tempfile.TemporaryDirectory() as folder:
        for file in files:
            report = rg.read(file)
            assert rg.check(file) == []
            for form in ("xml", "plain", "compressed", "file"):
                target = Path(folder) / form
                report.write(target, form)
                assert rg.read(target).to_xml() == report.to_xml()
    rows = arrow.decode([Path(file).read_bytes() for file in files])
    assert len(rows) == len(files)
    assert sum(len(batch) for batch in arrow.encode(rows)) == len(files)
    for line in Path("/proc/self/maps").read_text().splitlines():
        path = line.split(maxsplit=5)[5:]
        if path and ".so" in path[0]:
            print(path[0])


if __name__ == "__main__":
    main()
