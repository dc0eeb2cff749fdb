"""What the public headers of the library say of its classes: members, signatures and comments."""

from __future__ import annotations

import re
from dataclasses import dataclass, field
from pathlib import Path


@dataclass
class Member:
    """A function that a class declares."""

    name: str
    returns: str
    arguments: str
    is_const: bool
    is_static: bool
    comment: str


@dataclass
class Enumeration:
    name: str
    comment: str
    values: list[tuple[str, int]]


@dataclass
class Declarations:
    """A class, or a namespace, which has functions and enumerations too."""

    name: str
    bases: str
    comment: str
    members: list[Member] = field(default_factory=list)
    enumerations: list[Enumeration] = field(default_factory=list)

    def all(self, name: str) -> list[Member]:
        return [member for member in self.members if member.name == name]

    def has(self, name: str) -> bool:
        return bool(self.all(name))


_OPENING = re.compile(
    r"^(?:template <.*>\s*)?(?:class|namespace) (?:REPORTBASE_EXPORT )?([\w:]+)\s*(?::\s*(.*))?$"
)
_FUNCTION = re.compile(
    r"^(?P<before>.*?)\b(?P<name>\w+)\((?P<arguments>[^()]*)\)\s*(?P<behind>const\b)?.*$"
)
_WORDS_BEFORE = re.compile(r"\b(REPORTBASE_EXPORT|virtual|explicit|static|inline)\b")


def _function(text: str, comment: str) -> Member | None:
    found = _FUNCTION.match(text)
    if not found or "operator" in text or "~" in text:
        return None
    before = found["before"]
    returns = " ".join(_WORDS_BEFORE.sub(" ", before).split())
    if not returns:
        return None  # a constructor
    return Member(
        name=found["name"],
        returns=returns,
        arguments=found["arguments"].strip(),
        is_const=bool(found["behind"]),
        is_static=bool(re.search(r"\bstatic\b", before)),
        comment=comment,
    )


def read(path: Path) -> dict[str, Declarations]:
    """The classes of a header and its namespaces, by their names without those of outer ones."""
    everything: dict[str, Declarations] = {}
    inside: list[Declarations] = []
    comment: list[str] = []
    public = True
    statement = ""
    enumeration: Enumeration | None = None
    after_comment = False
    for line in path.read_text(encoding="utf-8").splitlines():
        text = line.strip()
        if text.startswith("///"):
            if not after_comment:
                comment = []
            comment.append(text[3:].removeprefix(" "))
            after_comment = True
            continue
        text = re.sub(r"\s*//.*$", "", text)
        after_comment = False
        words = "\n".join(comment)
        if enumeration is not None:
            found = re.match(r"(\w+) = (-?\d+)", text)
            if found:
                enumeration.values.append((found[1], int(found[2])))
            elif text.startswith("}"):
                enumeration = None
            continue
        if not text or text.startswith("#"):
            if not text and not statement:
                comment = []
            continue
        found = re.match(r"^enum (\w+) : int$", text)
        if found:
            enumeration = Enumeration(found[1], words, [])
            if inside:
                inside[-1].enumerations.append(enumeration)
            continue
        if text in ("public:", "protected:", "private:"):
            public = text == "public:"
            continue
        statement = f"{statement} {text}".strip()
        opening = _OPENING.match(statement.removesuffix("{").strip())
        if opening and not statement.endswith(";"):
            if statement.endswith("{") or text == "{" or opening[2]:
                name = opening[1].split("::")[-1]
                current = Declarations(name, opening[2] or "", words)
                everything[name] = current
                inside.append(current)
                public = True
                statement = ""
            continue
        if text == "{":
            statement = ""
            continue
        if text.startswith("}"):
            if inside and text.startswith("};") and not statement.startswith("inline"):
                inside.pop()
            statement = ""
            continue
        if statement.endswith((";", "}")):
            if inside and public:
                member = _function(statement, words)
                if member:
                    inside[-1].members.append(member)
            statement = ""
    return everything
