#!/usr/bin/env python3
"""The interface of a library as programs that were linked with it see it, and what changed of it since a release.

A description is a text of one fact a line: what the library exports, and of each class and enumeration in its public
headers what is compiled into programs, which is size, bases, fields, virtual table and values. It is taken from the
library's debug information by abidw.
"""

import argparse
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path


class Problem(Exception):
    """What keeps the interface from being looked at."""


# --- Describing


def run(words, **options):
    result = subprocess.run(words, capture_output=True, text=True, **options)
    if result.returncode != 0:
        raise Problem(f"{words[0]}: {result.stderr.strip() or result.stdout.strip()}")
    return result.stdout


class Corpus:
    """What abidw tells about a library, with the names of types and the places of declarations."""

    def __init__(self, root):
        self.root = root
        self.types = {}
        self.scopes = {}
        self.returns = {}
        self.variables = {}
        self._visit(root, "")

    def _visit(self, element, scope):
        for child in element:
            inner = scope
            if child.tag in ("namespace-decl", "class-decl", "union-decl", "enum-decl", "typedef-decl"):
                inner = f"{scope}::{child.get('name')}" if scope else child.get("name")
                self.scopes[child] = inner
            # A class that is only named in one place may be complete in another.
            if child.get("id") and (child.get("id") not in self.types or child.get("is-declaration-only") != "yes"):
                self.types[child.get("id")] = child
            if child.tag == "function-decl" and child.get("mangled-name"):
                self.returns[child.get("mangled-name")] = child
            if child.tag == "var-decl" and child.get("mangled-name"):
                self.variables[child.get("mangled-name")] = child.get("type-id")
            self._visit(child, inner)

    def type_name(self, type_id):
        element = self.types.get(type_id)
        if element is None:
            return "?"
        if element in self.scopes:
            return self.scopes[element]
        if element.tag == "type-decl":
            return element.get("name")
        if element.tag == "function-type":
            parameters = [self.type_name(p.get("type-id")) for p in element.findall("parameter")]
            return f"{self.return_type(element)} ({', '.join(parameters)})"
        if element.tag == "array-type-def":
            sizes = "".join(f"[{s.get('length')}]" for s in element.findall("subrange"))
            return self.type_name(element.get("type-id")) + sizes
        name = self.type_name(element.get("type-id"))
        if element.tag == "qualified-type-def":
            return " ".join([word for word in ("const", "volatile") if element.get(word) == "yes"] + [name])
        if element.tag == "pointer-type-def":
            return f"{name}*"
        if element.tag == "reference-type-def":
            return f"{name}&" if element.get("kind") == "lvalue" else f"{name}&&"
        raise Problem(f"abidw: no name for a {element.tag}")

    def return_type(self, function):
        returned = function.find("return")
        return self.type_name(returned.get("type-id")) if returned is not None else "void"


def demangled(names):
    texts = run(["c++filt"], input="".join(f"{name}\n" for name in names)).splitlines()
    return dict(zip(names, texts))


def own_part(signature):
    """A function's name without the class, with parameters: `Check(bool) const` of `A::B::Check(bool) const`."""
    depth = 0
    start = 0
    for place, letter in enumerate(signature):
        if letter == "<":
            depth += 1
        elif letter == ">":
            depth -= 1
        elif letter == "(" and depth == 0:
            break
        elif signature.startswith("::", place) and depth == 0:
            start = place + 2
    return signature[start:]


def is_life(signature):
    """Whether it is a constructor or destructor, which return nothing."""
    own = own_part(signature)
    enclosing = own_part(signature.removesuffix(own).removesuffix("::")).split("<")[0]
    return own.startswith("~") or (enclosing != "" and own.split("(")[0] == enclosing)


def exported_lines(corpus):
    groups = (("function", "elf-function-symbols"), ("variable", "elf-variable-symbols"))
    symbols = [(kind, symbol) for kind, group in groups for symbol in corpus.root.findall(f"{group}/elf-symbol")]
    texts = demangled([symbol.get("name") for _, symbol in symbols])
    lines = set()
    for kind, symbol in symbols:
        name = symbol.get("name")
        # The name of a version is a symbol too. A type has two symbols that come and go together.
        if name == symbol.get("version") or name.startswith("_ZTS"):
            continue
        line = f"{kind} {texts[name]}"
        if kind == "function" and name in corpus.returns and not is_life(texts[name]):
            line += f" -> {corpus.return_type(corpus.returns[name])}"
        if kind == "variable":
            if name in corpus.variables:
                line += f" -> {corpus.type_name(corpus.variables[name])}"
            # Programs may have copies of variables, and tables are one entry as long as another.
            line += f" [{symbol.get('size')}]"
        lines.add(line)
    return sorted(lines)


def class_lines(corpus, element):
    name = corpus.scopes[element]
    lines = [f"class {name} [{int(element.get('size-in-bits')) // 8}]"]
    for base in element.findall("base-class"):
        kind = "virtual base" if base.get("is-virtual") == "yes" else "base"
        lines.append(f"    {kind} {int(base.get('layout-offset-in-bits')) // 8} {corpus.type_name(base.get('type-id'))}")
    for member in element.findall("data-member"):
        if member.get("static") == "yes":
            continue
        field = member.find("var-decl")
        offset = int(member.get("layout-offset-in-bits"))
        place = f"{offset // 8}" if offset % 8 == 0 else f"{offset // 8}.{offset % 8}"
        lines.append(f"    {member.get('access')} field {place} {corpus.type_name(field.get('type-id'))} {field.get('name')}")

    virtuals = {}
    for member in element.findall("member-function"):
        slot = int(member.get("vtable-offset", "-1"))
        if slot >= 0:
            virtuals[slot] = member.find("function-decl").get("mangled-name")
    texts = demangled(list(virtuals.values()))
    for slot, mangled in sorted(virtuals.items()):
        line = f"    virtual {slot} {own_part(texts[mangled])}"
        if mangled in corpus.returns:
            line += f" -> {corpus.return_type(corpus.returns[mangled])}"
        lines.append(line)
    return lines


def enumeration_lines(corpus, element):
    underlying = corpus.type_name(element.find("underlying-type").get("type-id"))
    # Of an enumeration without an underlying type of its own that name is made up, and tells the size.
    size = corpus.types[element.find("underlying-type").get("type-id")].get("size-in-bits")
    underlying = f"{int(size) // 8} bytes" if underlying.startswith("unnamed") or underlying.startswith("enum-") else underlying
    lines = [f"enum {corpus.scopes[element]}: {underlying}"]
    return lines + [f"    value {v.get('name')} = {v.get('value')}" for v in element.findall("enumerator")]


def describe(library, headers, version):
    """The lines of a library's description. Public headers are those that stand in the folder `headers` itself."""
    text = run(["abidw", "--no-corpus-path", "--drop-undefined-syms", "--no-architecture", "--no-elf-needed",
                "--no-parameter-names", "--exported-interfaces-only", "--drop-private-types",
                "--headers-dir", str(headers), str(library)])
    corpus = Corpus(ElementTree.fromstring(text))
    if not corpus.returns:
        raise Problem(f"{library}: no debug information")
    public = {path.name for path in Path(headers).glob("*.h") if not path.name.endswith("_p.h")}
    if not public:
        raise Problem(f"{headers}: no headers")

    versions = {s.get("version") for s in corpus.root.iter("elf-symbol") if s.get("version")}
    lines = [
        "# What programs that are linked with the library rely on, as of the release named here. ./dev abi compares.",
        f"release {version}",
        f"soname {corpus.root.get('soname')}",
    ]
    lines += [f"symbols {name}" for name in sorted(versions)]

    blocks = {}
    for element, name in corpus.scopes.items():
        path = Path(element.get("filepath") or "/")
        if path.name not in public or path.parent.name != Path(headers).resolve().name or "(anonymous" in name:
            continue
        if element.tag == "class-decl" and element.get("size-in-bits") and element.get("is-declaration-only") != "yes":
            blocks[name] = max(blocks.get(name, []), class_lines(corpus, element), key=len)
        elif element.tag == "enum-decl" and not element.get("name").startswith("__anonymous"):
            blocks[name] = enumeration_lines(corpus, element)
    exported = exported_lines(corpus)
    if not exported:
        raise Problem(f"{library}: exports nothing")
    lines += exported
    for _, block in sorted(blocks.items()):
        lines += block
    return lines


# --- Comparing


class Description:
    """A description taken apart again."""

    def __init__(self, lines):
        self.facts = {}
        self.exports = {}
        self.classes = {}
        self.enumerations = {}
        inner = None
        for number, line in enumerate(lines, 1):
            if line.startswith("#") or not line:
                continue
            if match := re.fullmatch(r"(release|soname|symbols) (.+)", line):
                self.facts.setdefault(match[1], []).append(match[2])
            elif match := re.fullmatch(r"((?:function|variable) .+?)( -> .+?)?(?: \[(\d+)\])?", line):
                self.exports[match[1]] = ((match[2] or "")[4:], match[3])
            elif match := re.fullmatch(r"class (.+) \[(\d+)\]", line):
                inner = {"size": int(match[2]), "bases": [], "fields": {}, "virtuals": {}}
                self.classes[match[1]] = inner
            elif match := re.fullmatch(r"enum (.+?): (.+)", line):
                inner = {"type": match[2], "values": {}}
                self.enumerations[match[1]] = inner
            elif match := re.fullmatch(r"    ((?:virtual )?base \d+ .+)", line):
                inner["bases"].append(match[1])
            elif match := re.fullmatch(r"    (\w+) field ([\d.]+) (.+) (\S*)", line):
                inner["fields"][match[2]] = (match[3], match[4], match[1])
            elif match := re.fullmatch(r"    virtual (\d+) (.+)", line):
                inner["virtuals"][int(match[1])] = match[2]
            elif match := re.fullmatch(r"    value (\w+) = (-?\d+)", line):
                inner["values"][match[1]] = match[2]
            else:
                raise Problem(f"line {number} of a description: {line}")

    def table_length(self, name):
        """How many entries the virtual table of a class has, as far as the description tells."""
        described = self.classes.get(name)
        if described is None:
            return 0
        lengths = [self.table_length(base.split(" ", 3 if base.startswith("virtual") else 2)[-1])
                   for base in described["bases"]]
        return max([slot + 1 for slot in described["virtuals"]] + lengths, default=0)


def compare_exports(old, new, breaks, additions):
    for name, (kind, size) in old.exports.items():
        if name not in new.exports:
            breaks.append(f"the {name} is gone")
            continue
        new_kind, new_size = new.exports[name]
        if kind != new_kind:
            breaks.append(f"the {name} was of type {kind or 'unknown'} and is of type {new_kind or 'unknown'}")
        elif size != new_size:
            breaks.append(f"the {name} took {size} bytes and takes {new_size}")
    additions += [f"the {name} is new" for name in new.exports if name not in old.exports]


def compare_class(name, old, new, breaks, additions):
    before, after = old.classes[name], new.classes[name]
    if before["size"] != after["size"]:
        breaks.append(f"an object of class {name} took {before['size']} bytes and takes {after['size']}")
    if before["bases"] != after["bases"]:
        breaks.append(f"the bases of class {name} were {before['bases']} and are {after['bases']}")

    for place, (kind, field, access) in before["fields"].items():
        now = after["fields"].get(place)
        if now is None:
            breaks.append(f"class {name} has no field at byte {place} any more; it was {kind} {field}")
        elif now[0] != kind:
            breaks.append(f"the field of class {name} at byte {place} was {kind} {field} and is {now[0]} {now[1]}")
        elif now[1] != field and access != "private":
            breaks.append(f"the field {field} of class {name} is called {now[1]} now")
    for place, (kind, field, _) in after["fields"].items():
        if place not in before["fields"]:
            # In a gap that the class has had already; otherwise its size tells too.
            breaks.append(f"class {name} has a new field at byte {place}, {kind} {field}")

    length = old.table_length(name)
    for slot, function in before["virtuals"].items():
        now = after["virtuals"].get(slot)
        if now is None:
            breaks.append(f"class {name} has no {function} in its virtual table any more (entry {slot})")
        elif now != function:
            breaks.append(f"entry {slot} in the virtual table of class {name} was {function} and is {now}")
    for slot, function in after["virtuals"].items():
        if slot not in before["virtuals"]:
            if slot < length:
                additions.append(f"class {name} overrides {function}; programs that name the class call its base's "
                                 "until they are compiled again")
            else:
                breaks.append(f"the virtual table of class {name} has a new entry {slot}, {function}, a place that "
                              "derived classes of programs use for their own")


def compare_enumeration(name, before, after, breaks, additions):
    if before["type"] != after["type"]:
        breaks.append(f"the enumeration {name} was of {before['type']} and is of {after['type']}")
    for value, number in before["values"].items():
        now = after["values"].get(value)
        if now is None:
            breaks.append(f"the enumeration {name} has no {value} any more")
        elif now != number:
            breaks.append(f"{value} of the enumeration {name} was {number} and is {now}")
    additions += [f"{value} of the enumeration {name} is new" for value in after["values"]
                  if value not in before["values"]]


def compare(old, new):
    """What breaks programs that were linked with the old interface, and what is only added."""
    breaks, additions = [], []
    for fact in ("soname", "symbols"):
        if old.facts.get(fact) != new.facts.get(fact):
            breaks.append(f"the {fact} was {' '.join(old.facts.get(fact, ['none']))} and is "
                          f"{' '.join(new.facts.get(fact, ['none']))}")
    compare_exports(old, new, breaks, additions)
    for name in old.classes:
        if name in new.classes:
            compare_class(name, old, new, breaks, additions)
        else:
            breaks.append(f"the class {name} is gone")
    additions += [f"the class {name} is new" for name in new.classes if name not in old.classes]
    for name in old.enumerations:
        if name in new.enumerations:
            compare_enumeration(name, old.enumerations[name], new.enumerations[name], breaks, additions)
        else:
            breaks.append(f"the enumeration {name} is gone")
    additions += [f"the enumeration {name} is new" for name in new.enumerations if name not in old.enumerations]
    return breaks, additions


def interface_version(version):
    """The part of a version that stays while programs need not be linked anew."""
    numbers = [int(number) for number in version.split(".")]
    return tuple(numbers[:2]) if numbers[0] == 0 else tuple(numbers[:1])


def judge(old, new):
    """The verdict in words, and whether the new interface may be given out under its version."""
    released, version = old.facts["release"][0], new.facts["release"][0]
    breaks, additions = compare(old, new)
    words = [f"  {text}" for text in breaks] + [f"  {text}" for text in additions]
    if interface_version(version) < interface_version(released):
        return words + [f"version {version} is older than the described release {released}"], False
    if interface_version(version) > interface_version(released):
        if old.facts["soname"] == new.facts["soname"]:
            return words + [f"version {version} may break programs of {released}, so it needs a soname of its own"], False
        return words + [f"version {version} may break programs of {released}: {len(breaks)} changes do, "
                        f"{len(additions)} are additions"], True
    if breaks:
        return words + [f"{len(breaks)} changes break programs that are linked with {released}, {len(additions)} are "
                        f"additions; take the changes back, or raise the "
                        f"{'minor' if version.startswith('0.') else 'major'} version"], False
    if additions:
        return words + [f"{len(additions)} additions to {released}, nothing that breaks programs; the description "
                        "takes them up at the next release"], True
    return [f"the interface is that of {released}"], True


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--library", required=True, help="with debug information")
    parser.add_argument("--headers", required=True, help="the folder with the public headers")
    parser.add_argument("--description", required=True, help="of the last release")
    parser.add_argument("--version", required=True, help="that the library has")
    parser.add_argument("--update", action="store_true", help="make this the description of a release")
    arguments = parser.parse_args()
    try:
        lines = describe(arguments.library, arguments.headers, arguments.version)
        path = Path(arguments.description)
        good = True
        if path.exists():
            words, good = judge(Description(path.read_text().splitlines()), Description(lines))
            print("\n".join(words))
        elif not arguments.update:
            raise Problem(f"{path} is missing")
        if arguments.update and good:
            path.write_text("".join(f"{line}\n" for line in lines))
        return 0 if good else 1
    except Problem as problem:
        print(f"interface: {problem}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
