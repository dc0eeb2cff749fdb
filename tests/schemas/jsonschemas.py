#!/usr/bin/env python3
"""Holds the JSON schemas against what reporttool writes of all files of the tests and examples:

    jsonschemas.py REPORTTOOL SOURCE SCRATCH

SOURCE is the tree, SCRATCH a folder for files. What is written is then spoilt in every place, which a schema has to notice.
"""

import copy
import json
import shutil
import subprocess
import sys
from pathlib import Path

try:
    from jsonschema import Draft202012Validator, RefResolver
except ImportError:
    Draft202012Validator = None


class Schemas:
    def __init__(self, folder):
        self._folder = folder
        self._schemas = {file.name: json.loads(file.read_text(encoding="utf-8")) for file in folder.glob("*.schema.json")}
        self._objects = [list(objects_of(schema)) for schema in self._schemas.values()]
        self._validators = {name: self._validator(name) for name in self._schemas}

    def _validator(self, name):
        schema = self._schemas[name]
        Draft202012Validator.check_schema(schema)
        store = {(self._folder / other).as_uri(): text for other, text in self._schemas.items()}
        resolver = RefResolver((self._folder / name).as_uri(), schema, store)
        return Draft202012Validator(schema, resolver=resolver)

    def names(self):
        return set(self._schemas)

    def errors(self, name, instance):
        return [f"{name}: {error.json_path}: {error.message[:200]}" for error in self._validators[name].iter_errors(instance)]

    def is_valid(self, name, instance):
        return self._validators[name].is_valid(instance)

    def describes(self, keys):
        """Whether some object of the schemas has all these keys, and no other ones that are required."""
        return any(required <= keys <= known for objects in self._objects for required, known in objects)


def objects_of(schema):
    """The required keys and all keys of each object that a schema describes."""
    if isinstance(schema, dict):
        if isinstance(schema.get("properties"), dict) and "required" in schema:
            yield set(schema["required"]), set(schema["properties"])
        schema = list(schema.values())
    if isinstance(schema, list):
        for part in schema:
            yield from objects_of(part)


def objects_in(instance):
    if isinstance(instance, dict):
        yield instance
        instance = list(instance.values())
    if isinstance(instance, list):
        for part in instance:
            yield from objects_in(part)


def spoilt(instance):
    """The instance without each of its keys, and with something of another kind in the place of each; of objects with the same
    keys only the first one is spoilt."""
    seen = set()
    for index, each in enumerate(objects_in(instance)):
        if frozenset(each) in seen:
            continue
        seen.add(frozenset(each))
        for key in each:
            other = copy.deepcopy(instance)
            del list(objects_in(other))[index][key]
            yield f"{key} removed", other
            other = copy.deepcopy(instance)
            list(objects_in(other))[index][key] = [["nothing of this kind"]]
            yield f"{key} replaced", other


def bytes_of_vector(file):
    lines = file.read_text(encoding="utf-8").splitlines()
    return bytes.fromhex("".join(line[6:53] for line in lines if line and not line.startswith("#")))


def all_files(source, scratch):
    """The golden vectors, the examples, and some files that are no reports."""
    files = []
    for file in sorted((source / "tests/vectors").glob("*/**/*")):
        if file.suffix in (".hex", ".zhex"):
            binary = scratch / (str(file.relative_to(source / "tests/vectors")).replace("/", "-") + ".bin")
            binary.write_bytes(bytes_of_vector(file))
            files.append(binary)
        elif file.suffix == ".xml":
            files.append(file)
    files += sorted((source / "examples/reports").glob("*.xml"))
    files += sorted((source / "examples/problems/files").iterdir())
    no_numbers = scratch / "no-numbers.xml"
    no_numbers.write_text("<ReportBase><Frequency Min='-inf' Max='inf'>nan</Frequency></ReportBase>", encoding="utf-8")
    return [*files, no_numbers, scratch / "missing"]


class Test:
    def __init__(self, tool, schemas):
        self._tool = tool
        self._schemas = schemas
        self._checked = {name: 0 for name in schemas.names()}
        self.failures = []

    def output(self, *arguments):
        command = [self._tool, *map(str, arguments)]
        return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout.decode()

    def hold(self, name, instance):
        self._checked[name] += 1
        self.failures += self._schemas.errors(name, instance)
        for each in objects_in(instance):
            if not self._schemas.describes(set(each)):
                self.failures.append(f"{name}: no object has these keys: {', '.join(sorted(each))}")

    def hold_spoilt(self, name, instance):
        for what, other in spoilt(instance):
            if self._schemas.is_valid(name, other):
                self.failures.append(f"{name}: takes it with {what}")

    def end(self):
        print(", ".join(f"{name}: {count}" for name, count in sorted(self._checked.items())))
        self.failures += [f"{name}: nothing is held against it" for name, count in self._checked.items() if count == 0]
        print("\n".join(self.failures[:50]))
        return 1 if self.failures else 0


def main():
    if Draft202012Validator is None:
        print("not run: python3-jsonschema is not installed")
        return 0
    tool = sys.argv[1]
    source, scratch = (Path(argument).resolve() for argument in sys.argv[2:])
    scratch.mkdir(parents=True, exist_ok=True)
    test = Test(tool, Schemas(source / "schemas"))
    files = all_files(source, scratch)

    shown = json.loads(test.output("show", "--json", *files))
    assert len(shown) == len(files) > 300
    test.hold("show.schema.json", shown)
    # One that holds everything, one with problems of each form, one that cannot be read.
    for place in ("hf_dsc_narrow.xml", "OutOfRangeException.xml", "NotANumber.bin", "missing"):
        (each,) = (report for report in shown if report["file"].endswith("/" + place))
        test.hold_spoilt("show.schema.json", [each])

    lines = [json.loads(line) for line in test.output("check", "--json", "--strict", *files).splitlines()]
    assert len({line["file"] for line in lines}) > 100
    for line in lines:
        test.hold("check.schema.json", line)
    for line in (lines[0], lines[-1]):
        test.hold_spoilt("check.schema.json", line)

    counted = json.loads(test.output("show", "--json", "--no-coordinates", *files))
    assert len(counted) == len(files)
    test.hold("show.schema.json", counted)
    (each,) = (report for report in counted if report["file"].endswith("/hf_dsc_narrow.xml"))
    assert each["area"]["points"] == 9
    test.hold_spoilt("show.schema.json", [each])

    lines = [json.loads(line) for line in test.output("list", "--json", *files).splitlines()]
    assert len(lines) == len(files)
    for line in lines:
        test.hold("list.schema.json", line)
    for line in (lines[0], lines[-1]):
        test.hold_spoilt("list.schema.json", line)

    examples = sorted((source / "examples/reports").glob("*.xml"))
    empty = source / "tests/vectors/reportbase/empty.xml"
    for example in examples:
        test.hold("show.schema.json", json.loads(test.output("convert", example, "-", "--to", "json")))
    for a, b in ((examples[0], examples[2]), (empty, examples[2]), (examples[2], empty), (empty, empty)):
        difference = json.loads(test.output("diff", "--json", a, b))
        test.hold("diff.schema.json", difference)
        test.hold_spoilt("diff.schema.json", difference)

    # What only one of them has, what is broken, and what differs within.
    folders = [scratch / "a", scratch / "b"]
    for folder, others in zip(folders, (examples, [empty, *examples[1:]])):
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        (folder / "broken").write_text(str(folder), encoding="utf-8")
        shutil.copy(others[0], folder / "changed")
        shutil.copy(examples[1], folder / "same")
        shutil.copy(examples[1], folder / folder.name)
    lines = [json.loads(line) for line in test.output("diff", "-r", "--json", *folders).splitlines()]
    assert [line["same"] for line in lines] == [False, False, None, False, True]
    for line in lines:
        test.hold("diff-folders.schema.json", line)
        test.hold_spoilt("diff-folders.schema.json", line)

    # Something that is taken, that is taken without data, that is refused and that is left.
    fragment = scratch / "fragment.xml"
    fragment.write_text("<Frequency Colour='red'>5</Frequency><ChannelSpacing/><Ellipse><Tilt/></Ellipse>", encoding="utf-8")
    for file in (fragment, *sorted((source / "tests/vectors").glob("*/*.xml"))):
        outcome = json.loads(test.output("settings", "--dry-run", "--json", file))
        test.hold("settings.schema.json", outcome)
        test.hold_spoilt("settings.schema.json", outcome)
    return test.end()


if __name__ == "__main__":
    sys.exit(main())
