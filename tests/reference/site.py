#!/usr/bin/env python3
"""Makes the reference and looks whether everything is in it that people look for.

    site.py REFERENCE SCRATCH
"""

import pathlib
import re
import shutil
import sqlite3
import subprocess
import sys

REFERENCE, SCRATCH = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
sys.dont_write_bytecode = True
sys.path.insert(0, str(REFERENCE))
import make  # noqa: E402 pylint: disable=wrong-import-position


def fail(text):
    sys.exit(f"reference: {text}")


def expect(page, *texts):
    content = (SCRATCH / "html" / page).read_text("utf-8")
    for text in texts:
        if text not in content:
            fail(f"{page} doesn't hold {text!r}")


def main():
    for program in ("doxygen", "dot"):
        if not shutil.which(program):
            print(f"not run: {program} is not installed")
            return
    if not make.help_generator():
        print("not run: qhelpgenerator is not installed")
        return
    subprocess.run([sys.executable, REFERENCE / "make.py", SCRATCH], check=True)
    for site in ("html", "help"):
        subprocess.run([sys.executable, REFERENCE / "links.py", "site", SCRATCH / site], check=True)

    # A comment stands at each of the declarations that share it, and a class has its example and its diagram.
    expect("classREPORTGENERATOR_1_1Coordinate.html", "Degrees east, [-180, 180]", "SetLongitude", "ResetLongitude",
           "OutOfRangeException", "Who holds whom")
    expect("classREPORTGENERATOR_1_1Frequency.html", "GetValue", 'class="fragment"')
    expect("classREPORTGENERATOR_1_1ReportModel.html", "Refused")
    expect("aswritten_8h.html", "EqualAsWritten")
    expect("namespaceREPORTGENERATOR.html", "EqualAsWritten", "AnyType", "LoadReport", "IsSafeToInject")
    # Pages lead to pages and to classes; a page that nobody has named is there too.
    expect("page_classes.html", 'href="classREPORTGENERATOR_1_1Area.html"',
           'href="namespaceREPORTGENERATOR_1_1TaskType.html"')
    expect("page_schemas.html", 'href="page_binary.html"')
    for page in (make.ROOT / "docs").glob("*.md"):
        expect(f"{make.label(page.stem, '')}.html", "</html>")
    # Below the pages the side tree has three entries, and not every function.
    tree = re.findall(r'^    \[ "([^"]*)"', (SCRATCH / "html/navtreedata.js").read_text("utf-8"), re.M)
    if tree[tree.index("Changes") + 1:] != ["Classes", "Namespaces", "Headers"]:
        fail(f"the side tree begins with {tree}")
    # It is the same wherever it is made.
    for path in (SCRATCH / "html").rglob("*"):
        if path.is_file() and str(make.ROOT).encode() in path.read_bytes():
            fail(f"{path.name} holds the place of the sources")
    found = "".join(path.read_text("utf-8") for path in (SCRATCH / "html/search").glob("all_*.js"))
    for link in ("classREPORTGENERATOR_1_1Coordinate.html", "page_using.html"):
        if link not in found:
            fail(f"the search doesn't find {link}")

    with sqlite3.connect(SCRATCH / "reportgenerator.qch") as file:
        names = {name for name, in file.execute("SELECT Name FROM FileNameTable")}
        keys = {key for key, in file.execute("SELECT Identifier FROM IndexTable")}
    for name in ("index.html", "page_using.html", "classREPORTGENERATOR_1_1Area.html"):
        if name not in names:
            fail(f"reportgenerator.qch has no {name}")
    for key in ("REPORTGENERATOR::Area", "REPORTGENERATOR::Area::SetScriptID", "RGException"):
        if key not in keys:
            fail(f"reportgenerator.qch doesn't find {key}")


main()
