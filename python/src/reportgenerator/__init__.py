"""Reports of a radio-monitoring system: objects, forms, checks."""

from __future__ import annotations

from ._reportgenerator import ReportBase

__all__ = ["ReportBase"]
