"""The Python of docs/data-frames.md, section by section, in a folder with the example reports."""

from __future__ import annotations

import os
import re
import shutil
from pathlib import Path
from typing import Any

import pytest

_TREE = Path(os.environ["REPORTGENERATOR_TEST_TREE"])


class Page:
    def __init__(self, folder: Path, monkeypatch: pytest.MonkeyPatch) -> None:
        self.names: dict[str, Any] = {}
        self.text = (_TREE / "docs" / "data-frames.md").read_text(encoding="utf-8")
        shutil.copytree(_TREE / "examples" / "reports", folder / "reports")
        monkeypatch.chdir(folder)

    def run(self, section: str) -> int:
        """Runs the blocks of a section, one after the other; returns how many there are."""
        found = re.search(rf"^## {section}\n(.*?)(?=^## |\Z)", self.text, re.MULTILINE | re.DOTALL)
        assert found, section
        blocks = re.findall(r"^```python\n(.*?)^```$", found.group(1), re.MULTILINE | re.DOTALL)
        for block in blocks:
            exec(block, self.names)  # noqa: S102 (our own page)
        return len(blocks)
