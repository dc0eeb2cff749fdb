#!/usr/bin/env python3
"""Holds the XML schemas against all XML of the tests and the pages, and against what the library has written:

    xmlschemas.py SOURCE WRITTEN COUNT SCRATCH

SOURCE is the tree, WRITTEN the folder that written_objects has filled with COUNT objects, SCRATCH one for files.
"""

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


def main():
    if not shutil.which("xmllint"):
        print("not run: libxml2-utils is not installed")
        return
    count = int(sys.argv[3])
    source, written, scratch = (Path(argument).resolve() for argument in (sys.argv[1], sys.argv[2], sys.argv[4]))
    scratch.mkdir(parents=True, exist_ok=True)
    schemas = {}
    for name in SCHEMAS:
        schemas[name] = scratch / name
        schemas[name].write_text(NAMES.format(schema=(source / "schemas" / name).as_uri()), encoding="utf-8")

    vectors = source / "tests/vectors"
    golden = sorted(vectors.glob("*/*.xml"))
    read = sorted(vectors.glob("*/read/*.xml"))
    malformed = sorted(vectors.glob("*/malformed/*.xml"))
    examples = sorted((source / "examples/reports").glob("*.xml"))
    problems = sorted((source / "examples/problems/files").glob("*.xml"))
    shown = blocks_of(source / "docs/xml.md", scratch)
    for files in (golden, read, malformed, examples, problems, shown):
        assert files, "no files of a kind"

    # What is expected of each schema, and of which files.
    failures = []
    unlike = set()
    for name in SCHEMAS:
        good = golden + shown + (read + examples if name == READ else [])
        bad = malformed + (problems if name == READ else [])
        answered = valid_ones(schemas[name], good + bad)
        for file in good + bad:
            if (file in answered) != (file in good):
                base = scratch if file in shown else source
                unlike.add((name, str(file.relative_to(base))))
    listed = listed_exceptions(source / "tests/schemas/xmlschemas.txt")
    failures += [f"{name} is wrong about {file}" for name, file in sorted(unlike - listed)]
    failures += [f"{name} is right about {file}, which is listed" for name, file in sorted(listed - unlike)]

    for name, file in ((WRITTEN_BY_ANY, "written.xml"), (WRITTEN_WITH_VALIDATION, "valid.xml"), (READ, "valid.xml")):
        objects = len(re.findall(rb"^<[A-Z]", (written / file).read_bytes(), re.MULTILINE)) - 1
        print(f"{name}: {objects} objects")
        # A measurement time is written so that it cannot be read.
        answer = validate(schemas[name], [written / file])
        of_modes = [line for line in answer if "element MeasurementMode: Schemas validity error" in line]
        verdict = " fails to validate" if name == READ else " validates"
        failures += [f"{name}: {line[:300]}" for line in answer[:-1] if name != READ or line not in of_modes]
        if not answer[-1].endswith(verdict) or bool(of_modes) != (name == READ):
            failures.append(f"{name}: {answer[-1]}")
        if objects != count:
            failures.append(f"{file}: {objects} objects")

    print("\n".join(failures[:50]))
    if failures:
        sys.exit(1)


if __name__ == "__main__":
    main()
