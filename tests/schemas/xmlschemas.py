#!/usr/bin/env python3
"""Holds the XML schemas against all XML of the tests and the pages, and against what the library has written:

    xmlschemas.py SOURCE WRITTEN COUNT SCRATCH

SOURCE is the tree, WRITTEN the folder that written_objects has filled with COUNT objects, SCRATCH one for files.
"""

import json
import re
import shutil
import subprocess
import sys
from pathlib import Path

WRITTEN_BY_ANY = "report.xsd"
WRITTEN_WITH_VALIDATION = "report-valid.xsd"
READ = "report-read.xsd"
SCHEMAS = (WRITTEN_BY_ANY, WRITTEN_WITH_VALIDATION, READ)

# Elements whose names the tests have chosen, and one around many objects.
NAMES = """<?xml version="1.0" encoding="UTF-8"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
    <xs:include schemaLocation="{schema}"/>
    <xs:element name="Threshold" type="Double"/>
    <xs:element name="Offset" type="Double"/>
    <xs:element name="Ratio" type="Double"/>
    <xs:element name="Level" type="ValueMinMax"/>
    <xs:element name="Objects">
        <xs:complexType>
            <xs:sequence>
                <xs:any processContents="strict" minOccurs="0" maxOccurs="unbounded"/>
            </xs:sequence>
        </xs:complexType>
    </xs:element>
</xs:schema>
"""


def validate(schema, files):
    """The lines that xmllint prints."""
    command = ["xmllint", "--noout", "--nonet", "--huge", "--schema", str(schema), *map(str, files)]
    lines = subprocess.run(command, stderr=subprocess.PIPE, check=False).stderr.decode("utf-8", "replace").splitlines()
    if any("Schemas parser error" in line or "failed to compile" in line for line in lines):
        sys.exit("\n".join(lines))
    return lines


def valid_ones(schema, files):
    """Those of the files that are valid."""
    validated = {line[: -len(" validates")] for line in validate(schema, files) if line.endswith(" validates")}
    return {file for file in files if str(file) in validated}


def listed_exceptions(path):
    """Schema and file of each line, where a schema's answer is another one than that of the library."""
    entries = [line.split("#")[0].split() for line in path.read_text(encoding="utf-8").splitlines()]
    return {tuple(entry) for entry in entries if entry}


def blocks_of(page, folder):
    """The XML of a page, each block in a file."""
    blocks = re.findall(r"^```xml\n(.*?)^```$", page.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL)
    files = []
    for number, block in enumerate(blocks, 1):
        files.append(folder / f"{page.stem}-{number}.xml")
        files[-1].write_text(block, encoding="utf-8")
    return files


def spoilt_files(path, folder):
    """A file for each line, and whether the library reads it."""
    files = {}
    for line in map(json.loads, path.read_text(encoding="utf-8").splitlines()):
        file = folder / line["name"].replace(":", "-")
        file.write_text(line["xml"], encoding="utf-8")
        files[file] = line["read"]
    return files


def files_of(source, written, scratch):
    """All XML by kind. Of what is spoilt some is read."""
    vectors = source / "tests/vectors"
    files = {
        "golden": sorted(vectors.glob("*/*.xml")),
        "read": sorted(vectors.glob("*/read/*.xml")),
        "malformed": sorted(vectors.glob("*/malformed/*.xml")),
        "examples": sorted((source / "examples/reports").glob("*.xml")),
        "problems": sorted((source / "examples/problems/files").glob("*.xml")),
        "shown": blocks_of(source / "docs/xml.md", scratch),
    }
    spoilt = spoilt_files(written / "spoilt.jsonl", scratch)
    files["spoilt, read"] = [file for file, is_read in spoilt.items() if is_read]
    files["spoilt, refused"] = [file for file, is_read in spoilt.items() if not is_read]
    files["not as written"] = [file for file in spoilt if file.name.endswith(("-renamed", "-earlier"))]
    for kind, some in files.items():
        assert some, f"no files: {kind}"
    return files


GOOD = {
    WRITTEN_BY_ANY: ("golden", "shown"),
    WRITTEN_WITH_VALIDATION: ("golden", "shown"),
    READ: ("golden", "shown", "read", "examples", "spoilt, read"),
}
BAD = {
    WRITTEN_BY_ANY: ("malformed", "not as written"),
    WRITTEN_WITH_VALIDATION: ("malformed", "not as written"),
    READ: ("malformed", "problems", "spoilt, refused"),
}


def wrong_answers(schemas, files, source, scratch):
    """Schema and file, where a schema's answer is not the expected one."""
    wrong = set()
    for name, schema in schemas.items():
        good = [file for kind in GOOD[name] for file in files[kind]]
        bad = [file for kind in BAD[name] for file in files[kind]]
        answered = valid_ones(schema, good + bad)
        for file in answered.symmetric_difference(good):
            wrong.add((name, file.name if file.parent == scratch else str(file.relative_to(source))))
    return wrong


def failures_of_objects(name, schema, file, count):
    """What the schema says against the objects of a file. A measurement time is written so that it cannot be read."""
    objects = len(re.findall(rb"^<[A-Z]", file.read_bytes(), re.MULTILINE)) - 1
    print(f"{name}: {objects} objects")
    failures = [] if objects == count else [f"{file.name}: {objects} objects"]
    *problems, verdict = validate(schema, [file])
    if name == READ:
        of_modes = [line for line in problems if "element MeasurementMode: Schemas validity error" in line]
        problems = [line for line in problems if line not in of_modes]
        if not of_modes:
            failures.append(f"{name}: takes measurement times without a mode")
    elif not verdict.endswith(" validates"):
        failures.append(f"{name}: {verdict}")
    return failures + [f"{name}: {line[:300]}" for line in problems]


def main():
    if not shutil.which("xmllint"):
        print("not run: libxml2-utils is not installed")
        return
    count = int(sys.argv[3])
    source, written, scratch = (Path(argument).resolve() for argument in (sys.argv[1], sys.argv[2], sys.argv[4]))
    scratch.mkdir(parents=True, exist_ok=True)
    schemas = {name: scratch / name for name in SCHEMAS}
    for name, schema in schemas.items():
        schema.write_text(NAMES.format(schema=(source / "schemas" / name).as_uri()), encoding="utf-8")

    wrong = wrong_answers(schemas, files_of(source, written, scratch), source, scratch)
    listed = listed_exceptions(source / "tests/schemas/xmlschemas.txt")
    failures = [f"{name} is wrong about {file}" for name, file in sorted(wrong - listed)]
    failures += [f"{name} is right about {file}, which is listed" for name, file in sorted(listed - wrong)]
    for name, file in ((WRITTEN_BY_ANY, "written.xml"), (WRITTEN_WITH_VALIDATION, "valid.xml"), (READ, "valid.xml")):
        failures += failures_of_objects(name, schemas[name], written / file, count)

    print("\n".join(failures[:50]))
    if failures:
        sys.exit(1)


if __name__ == "__main__":
    main()
