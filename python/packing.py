"""The build backend: that of scikit-build-core, for a package whose C++ sources stand outside of its folder.

A source distribution takes the sources of the library along, in the folder `library`.
"""

from __future__ import annotations

import re
import shutil
from collections.abc import Mapping
from pathlib import Path

from scikit_build_core.build import *
from scikit_build_core.build import build_sdist as _build_sdist

_HERE = Path(__file__).resolve().parent
_ALONG = _HERE / "library"
_PARTS = (
    "CMakeLists.txt",
    "cmake",
    "framework/reportgenerator/reflection",
    "framework/reportgenerator/reportbase",
    "framework/reportgenerator/qt",
    "framework/wendbase",
    "tools/reportcore",
)


def dynamic_metadata(field: str, settings: Mapping[str, object] | None = None) -> str:
    """The version of the project."""
    if field != "version":
        raise ValueError(f"nothing is known of {field}")
    sources = _ALONG if _ALONG.is_dir() else _HERE.parent
    text = (sources / "CMakeLists.txt").read_text(encoding="utf-8")
    found = re.search(r"^ *VERSION ([0-9.]+)$", text, re.MULTILINE)
    if not found:
        raise ValueError("the project's CMakeLists.txt states no version")
    return found.group(1)


def build_sdist(
    sdist_directory: str, config_settings: dict[str, list[str] | str] | None = None
) -> str:
    """A source distribution, with the sources of the library."""
    if _ALONG.is_dir():
        return _build_sdist(sdist_directory, config_settings)
    try:
        for part in _PARTS:
            source, target = _HERE.parent / part, _ALONG / part
            target.parent.mkdir(parents=True, exist_ok=True)
            if source.is_dir():
                shutil.copytree(source, target)
            else:
                shutil.copy2(source, target)
        return _build_sdist(sdist_directory, config_settings)
    finally:
        shutil.rmtree(_ALONG, ignore_errors=True)
