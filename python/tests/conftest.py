"""What the tests have in common."""

from __future__ import annotations

import os
from pathlib import Path

import pytest

TREE = Path(os.environ.get("REPORTGENERATOR_TEST_TREE", Path(__file__).resolve().parents[2]))


@pytest.fixture
def tree() -> Path:
    """The folder of the project's sources."""
    return TREE
