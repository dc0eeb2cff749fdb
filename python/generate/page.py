"""Prints the page docs/python-classes.md: what the package offers, in the words of its documentation."""

from __future__ import annotations

import enum
import inspect
import re
import sys
from collections.abc import Iterator

import reportgenerator as rg

SERVICES = (
    rg.CustomObject,
    rg.RegisterCenter,
    rg.SettingsNotifier,
    rg.Connection,
    rg.VersionConverterProxy,
    rg.IXmlConverter,
    rg.MinMax,
)


def cell(text: str) -> str:
    """In a table, where a line break ends the row."""
    return re.sub(r"\s+", " ", text).strip().replace("|", "\\|")


def signature(function: object) -> str:
    whole = inspect.signature(function)  # type: ignore[arg-type]
    parameters = [p.replace(annotation=p.empty) for p in whole.parameters.values()]
    text = str(inspect.Signature(parameters))
    return re.sub(r"^\((self|cls|/)(, )?", "(", text).replace("'", '"')


def members(cls: type) -> Iterator[tuple[str, object]]:
    for name, value in sorted(vars(cls).items()):
        if not name.startswith("_"):
            yield name, value


def table(cls: type) -> Iterator[str]:
    rows = []
    for name, value in members(cls):
        if isinstance(value, property):
            rows.append((f"`{name}`", value.__doc__ or ""))
        elif callable(value) or isinstance(value, classmethod):
            function = getattr(cls, name)
            rows.append((f"`{name}{signature(function)}`", inspect.getdoc(function) or ""))
    if rows:
        yield "| | |"
        yield "|---|---|"
        for name, text in rows:
            yield f"| {name} | {cell(text)} |"
        yield ""


def page() -> str:
    lines = [
        "# The classes in Python",
        "",
        "What [python.md](python.md) introduces, in full. All classes of objects have what `IRGObject` has, beside `copy()` and",
        "`any_data()`. This page is made of the package's own documentation.",
        "",
        "## Functions",
        "",
        "| | |",
        "|---|---|",
    ]
    for function in (rg.read, rg.check):
        parameters = ", ".join(inspect.signature(function).parameters)
        lines.append(
            f"| `{function.__name__}({parameters})` | {cell(inspect.getdoc(function) or '')} |"
        )
    lines.append("")
    classes = [getattr(rg, name) for name in rg.__all__ if isinstance(getattr(rg, name), type)]
    objects = [cls for cls in classes if issubclass(cls, rg.IRGObject)]
    objects.sort(key=lambda cls: (cls is not rg.IRGObject, cls is not rg.ReportBase, cls.__name__))
    for cls in objects:
        lines += [f"## {cls.__name__}", "", *(inspect.getdoc(cls) or "").splitlines(), ""]
        lines += table(cls)
    lines += ["## Settings, files of other versions", ""]
    for cls in SERVICES:
        lines += [f"### {cls.__name__}", "", *(inspect.getdoc(cls) or "").splitlines(), ""]
        lines += table(cls)
    lines += ["## Enumerations", ""]
    for cls in (cls for cls in classes if issubclass(cls, enum.Enum)):
        names = ", ".join(f"`{member.name}` {member.value}" for member in cls)
        lines += [
            f"### {cls.__name__}",
            "",
            *(inspect.getdoc(cls) or "").splitlines(),
            "",
            names,
            "",
        ]
        lines += table(cls)
    lines += ["## Errors", "", "| | | |", "|---|---|---|"]
    for cls in (cls for cls in classes if issubclass(cls, Exception)):
        lines.append(
            f"| `{cls.__name__}` | `{cls._default_name}` | {cell(inspect.getdoc(cls) or '')} |"
        )
    return "\n".join(line.rstrip() for line in lines) + "\n"


if __name__ == "__main__":
    sys.stdout.write(page())
