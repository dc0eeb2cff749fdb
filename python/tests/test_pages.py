"""What the pages say is so."""

from __future__ import annotations

import doctest
import importlib.util
import os
import shutil
import subprocess
import sys
from pathlib import Path

import pytest


def test_the_page_of_classes_is_what_the_package_says(tree: Path) -> None:
    made = subprocess.run(
        [sys.executable, "-B", tree / "python" / "generate" / "page.py"],
        check=True,
        capture_output=True,
        text=True,
        env={**os.environ, "PYTHONIOENCODING": "utf-8"},
    ).stdout
    page = tree / "docs" / "python-classes.md"
    assert page.read_text(encoding="utf-8") == made, f"python/generate/page.py > {page}"


def test_what_the_page_runs(tree: Path, tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    shutil.copytree(tree / "examples" / "reports", tmp_path / "reports")
    monkeypatch.chdir(tmp_path)
    text = (tree / "docs" / "python.md").read_text(encoding="utf-8")
    draws = importlib.util.find_spec("matplotlib") is not None
    if not draws:
        # What needs no picture is run all the same.
        text = text[: text.index("    >>> import matplotlib")]
    test = doctest.DocTestParser().get_doctest(text, {}, "python.md", "python.md", 0)
    assert len(test.examples) > 15
    outcome = doctest.DocTestRunner(optionflags=doctest.IGNORE_EXCEPTION_DETAIL).run(test)
    assert outcome.failed == 0
    if draws:
        picture = (tmp_path / "map.png").read_bytes()
        assert picture.startswith(b"\x89PNG") and len(picture) > 10_000
