"""Makes the tables of the bindings out of the library's public headers.

    generate.py FRAMEWORK FOLDER

writes into FOLDER what is compiled into the module (classes.inc, vocabularies.inc, words.inc), the Python enumerations
(_vocabularies.py) and the types of the module (_reportgenerator.pyi). A class or field is bound because its header declares it
in the way that all do: `GetX` and `SetX`, with `IsXSet` and `ResetX` where it has a flag.
"""

from __future__ import annotations

import re
import sys
import textwrap
from collections.abc import Iterator
from dataclasses import dataclass
from pathlib import Path

import headers
from headers import Declarations, Member

# In the order in which they are bound: what a class holds comes before it.
CLASSES = (
    "Coordinate",
    "Area",
    "Frequency",
    "IFBandwidth",
    "ReportBase",
    "Double",
    "ValueMinMax",
    "FrequencyRangeOld",
    "FrequencyInformation",
    "FrequencyListValue",
    "Ellipse",
    "ChannelSpacing",
    "ScanParameter",
    "MeasurementTime",
)
SHARED = ("BoundedValue", "FrequencyHolder")

# Enumeration in C++, its header, where its functions are declared, and what it is called in Python.
VOCABULARIES = (
    ("ObjectTypes", "objecttypes", "REPORTGENERATOR", "ObjectType"),
    ("TaskTypeValue", "tasktype", "TaskType", "TaskType"),
    ("MeasurementTypeValue", "measurementtype", "MeasurementType", "MeasurementType"),
    ("SubSensorTypeValue", "measurementtype", "MeasurementType", "SubSensorType"),
    ("ResourceTypeValue", "resourcetype", "ResourceType", "ResourceType"),
    ("MeasurementModeType", "measurementtime", "MeasurementTime", "MeasurementMode"),
)

# What begins with "Get" and is no field: the same for all objects of a class, or offered by the base of all.
NO_FIELDS = re.compile(
    r"^Get(Default(?!InvalidValue$).+|Format|Precision|Version|FrequencyMinMax|Invalid.*)$"
)
# Values that are always there.
ALWAYS = {("Double", "Name"), ("Double", "DefaultInvalidValue")}
# The list whose items are objects is an array in Python.
PLURALS = {("Area", "Coordinate"): "coordinates"}

TYPES = {
    "double": ("float", "SupportsFloat"),
    "QString": ("str", "str"),
    "bool": ("bool", "bool"),
    "QVector<Coordinate>": ("NDArray[np.float64]", "ArrayLike"),
    "QVector<double>": ("NDArray[np.float64]", "ArrayLike"),
    "MeasurementModeType": ("MeasurementMode", "int"),
    "QDateTime": ("datetime.datetime", ""),
}


def snake(name: str) -> str:
    """IFBandwidth: if_bandwidth."""
    name = re.sub(r"([A-Z]+)([A-Z][a-z])", r"\1_\2", name)
    return re.sub(r"([a-z0-9])([A-Z])", r"\1_\2", name).lower()


def plain(declared: str) -> str:
    """The type itself, without const and reference."""
    return re.sub(r"^const |&$", "", declared).strip()


def words(comment: str) -> str:
    """A comment as documentation of Python: without the example in C++, and without C++'s rule for threads."""
    paragraphs = [p for p in comment.split("\n\n") if not p.startswith(("    ", "Threads "))]
    text = "\n\n".join(paragraphs).strip()
    # What holds in C++ only: its rule for threads, references that may be written to, numbers that stand for "not set".
    text = re.sub(r"\s*Threads: see\s`IRGObject`\.", "", text)
    text = re.sub(r"\s*[^.]*`std::as_const`[^.]*\.", "", text)
    text = re.sub(r",\s(?:0\.0|true|-1|-111111\.11)\swhen\snot\sset", "", text)
    text = re.sub(
        r";\sa\snull\stext\swhen\snot\sset,\swhereas\san\sempty\stext\sis\sa\sname",
        "; an empty text is one",
        text,
    )
    return text.replace(", reported by `TraceOrThrow`", "").replace(
        "`RGException`", "`ReportError`"
    )


def literal(text: str) -> str:
    """As a literal of C++."""
    escaped = text.replace("\\", "\\\\").replace('"', '\\"')
    return (
        "\n        ".join(f'"{line}\\n"' for line in escaped.split("\n")).removesuffix('\\n"') + '"'
    )


@dataclass
class Field:
    kind: str
    accessor: str
    name: str
    type: str
    comment: str


def fields_of(cls: Declarations, shared: dict[str, Declarations]) -> Iterator[Field]:
    """The fields of a class, in the order of its header; those of what it has in common with others first."""
    for base in SHARED:
        if f"public {base}" in cls.bases:
            yield from fields_of(shared[base], shared)
    seen: set[str] = set()
    for member in cls.members:
        accessor = member.name.removeprefix("Get")
        switch = member.name.removeprefix("Is")
        if member.name == f"Is{switch}" and cls.has(f"Set{switch}") and cls.has(f"IsValid{switch}"):
            yield Field("SWITCH", switch, snake(switch), "bool", member.comment)
        if (
            not member.name.startswith("Get")
            or member.arguments
            or member.is_static
            or accessor in seen
            or NO_FIELDS.match(member.name)
        ):
            continue
        seen.add(accessor)
        declared = plain(member.returns)
        name = PLURALS.get((cls.name, accessor), snake(accessor))
        comment = member.comment
        if not cls.has(f"Set{accessor}"):
            kind = "READ_ONLY"
        elif cls.has(f"Is{accessor}Set") and cls.has(f"Reset{accessor}"):
            kind = "FLAGGED"
        elif (cls.name, accessor) in ALWAYS:
            kind = "ALWAYS"
        elif any(not other.is_const for other in cls.all(member.name)):
            kind = "MEMBER"
        else:
            kind = "BY_VALUE"
        yield Field(kind, accessor, name, declared, comment)


def classes_inc(classes: list[Declarations], shared: dict[str, Declarations]) -> str:
    lines = []
    for cls in classes:
        lines.append(f"REPORT_CLASS({cls.name}, {literal(words(cls.comment))})")
        for f in fields_of(cls, shared):
            text = literal(words(f.comment))
            lines.append(f'REPORT_{f.kind}({cls.name}, {f.accessor}, "{f.name}", {text})')
        lines.append(f"REPORT_CLASS_END({cls.name})\n")
    return "\n".join(lines)


def words_inc(base: Declarations) -> str:
    """The comments of what all classes have, by name: those of the last overload."""
    lines = []
    for name in dict.fromkeys(member.name for member in base.members):
        text = literal(words(base.all(name)[0].comment))
        lines.append(f"constexpr char {name}[] = {text};")
    lines.append(f"constexpr char IRGObject[] = {literal(words(base.comment))};")
    return "\n".join(lines) + "\n"


@dataclass
class VocabularyFunction:
    kind: str
    function: Member
    name: str


def functions_of(scope: Declarations, enumeration: str, label: str) -> Iterator[VocabularyFunction]:
    """The functions that a number of the enumeration goes into or comes out of."""
    stem = enumeration.removesuffix("Value")
    for member in scope.members:
        takes = plain(member.arguments.rsplit(" ", 1)[0]) if member.arguments else ""
        if member.returns == "bool" and takes == enumeration and "Valid" not in member.name:
            yield VocabularyFunction("TEST", member, snake(member.name))
        elif member.returns == "QString" and takes == enumeration:
            yield VocabularyFunction("NAME", member, snake(member.name.removeprefix(stem)))
        elif member.returns == enumeration and takes == "QString":
            stripped = member.name.removesuffix(f"To{stem}")
            yield VocabularyFunction("LOOK_UP", member, f"from_{snake(stripped)}")


def indent(text: str, spaces: int) -> str:
    return textwrap.indent(text, " " * spaces)


def docstring(text: str, spaces: int) -> str:
    text = text.replace("\\", "\\\\").replace('"""', '\\"\\"\\"')
    closing = '"""' if "\n" not in text else '\n"""'
    return indent(f'"""{text}{closing}', spaces)


def vocabularies(found: dict[str, dict[str, Declarations]]) -> tuple[str, str, str]:
    """The enumerations in Python, and the functions behind them for the module, with their types."""
    python = [
        '"""The numbers with names that reports and tasks carry."""',
        "",
        "# Made of the library's headers.",
        "",
        "from __future__ import annotations",
        "",
        "import enum",
        "from typing import TypeVar",
        "",
        "from . import _reportgenerator as _native",
        "",
        '_E = TypeVar("_E", bound=enum.IntEnum)',
        "",
    ]
    native = []
    types = []
    names = []
    for enumeration, header, scope_name, label in VOCABULARIES:
        scope = found[header][scope_name]
        values = next(e for e in scope.enumerations if e.name == enumeration)
        names.append(label)
        python += ["", f"class {label}(enum.IntEnum):", docstring(words(values.comment), 4), ""]
        python += [f"    {name} = {number}" for name, number in values.values]
        if header == "measurementtime":
            continue
        for f in functions_of(scope, enumeration, label):
            native_name = f"{label}_{f.name}"
            prefix = "" if scope_name == "REPORTGENERATOR" else f"{scope_name}::"
            native.append(
                f'REPORT_{f.kind}("{native_name}", {prefix}{f.function.name}, {prefix}{enumeration})'
            )
            argument = "text: str" if f.kind == "LOOK_UP" else "number: int"
            result = {"TEST": "bool", "NAME": "str", "LOOK_UP": "int"}[f.kind]
            types.append(f"def {native_name}({argument}) -> {result}: ...")
            text = words(f.function.comment)
            if f.kind == "TEST":
                python += ["", "    @property", f"    def {f.name}(self) -> bool:"]
                body = f"return _native.{native_name}(self)"
            elif f.kind == "NAME":
                python += ["", f"    def {f.name}(self) -> str:"]
                body = f"return _native.{native_name}(self)"
            else:
                python += [
                    "",
                    "    @classmethod",
                    f"    def {f.name}(cls, text: str) -> {label} | None:",
                ]
                text = re.sub(r"`GetIn\w+\(\)`", "None", text)
                body = f"return _look_up(cls, _native.{native_name}(text))"
            python += [docstring(text, 8), indent(body, 8)]
        python.append("")
    python += [
        "",
        "",
        "def _look_up(cls: type[_E], number: int) -> _E | None:",
        "    return cls(number) if number in cls._value2member_map_ else None",
        "",
    ]
    text = "\n".join(python)
    text += "\n\n__all__ = " + repr(names).replace("'", '"') + "\n"
    return text, "\n".join(native) + "\n", "\n".join(types) + "\n"


def pyi(
    classes: list[Declarations], shared: dict[str, Declarations], template: str, types: str
) -> str:
    lines = []
    for cls in classes:
        own = list(fields_of(cls, shared))
        settable = [f for f in own if f.kind != "READ_ONLY"]
        lines += [f"class {cls.name}(IRGObject):"]
        arguments = "".join(f", {f.name}: {python_type(f)[1]} | None = None" for f in settable)
        lines += [f"    def __init__(self, *{arguments}, validate: bool = True) -> None: ..."]
        for f in own:
            given, taken = python_type(f)
            if f.kind not in ("ALWAYS", "MEMBER"):
                given += " | None"
            if f.kind not in ("ALWAYS", "SWITCH"):
                taken += " | None"
            lines += ["    @property", f"    def {f.name}(self) -> {given}: ..."]
            if f.kind != "READ_ONLY":
                lines += [
                    f"    @{f.name}.setter",
                    f"    def {f.name}(self, value: {taken}) -> None: ...",
                ]
            if f.kind not in ("READ_ONLY", "ALWAYS", "SWITCH"):
                lines += [f"    @{f.name}.deleter", f"    def {f.name}(self) -> None: ..."]
        for section in ("all", cls.name):
            extra = re.search(rf"^# {section}\n((?: .*\n)*)", template, re.MULTILINE)
            if extra:
                lines += [extra[1].rstrip()]
        lines.append("")
    text = template.split("# --- Of single classes")[0]
    return text.replace("# @classes@\n", "\n".join(lines)).replace("# @functions@\n", types)


def python_type(f: Field) -> tuple[str, str]:
    return TYPES.get(f.type, (f.type, f.type))


def main() -> None:
    framework, folder = Path(sys.argv[1]), Path(sys.argv[2])
    base = framework / "reportgenerator" / "reportbase"
    stems = {name: name.lower() for name in (*CLASSES, *SHARED, "IRGObject")}
    stems |= {header: header for _, header, _, _ in VOCABULARIES}
    found = {key: headers.read(base / f"{stem}.h") for key, stem in stems.items()}
    classes = [found[name][name] for name in CLASSES]
    shared = {name: found[name][name] for name in SHARED}
    python, native, types = vocabularies(found)
    template = (Path(__file__).parent / "_reportgenerator.pyi.in").read_text(encoding="utf-8")
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in (
        ("classes.inc", classes_inc(classes, shared)),
        ("words.inc", words_inc(found["IRGObject"]["IRGObject"])),
        ("vocabularies.inc", native),
        ("_vocabularies.py", python),
        ("_reportgenerator.pyi", pyi(classes, shared, template, types)),
    ):
        (folder / name).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
