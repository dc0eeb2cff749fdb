"""What the tests have in common."""

from __future__ import annotations

import os
import signal
from pathlib import Path

import pytest

TREE = Path(os.environ.get("REPORTGENERATOR_TEST_TREE", Path(__file__).resolve().parents[2]))


@pytest.fixture
def tree() -> Path:
    """The folder of the project's sources."""
    return TREE


@pytest.fixture(autouse=True, scope="session")
def _ctrl_c() -> None:
    """As in a terminal: what a shell starts in the background doesn't know it."""
    signal.signal(signal.SIGINT, signal.default_int_handler)
