#!/usr/bin/env python3
"""Makes a source file of the code in the comments of the public headers: each piece is a function of its own.

    examples.py REFERENCE OUTPUT
"""

import pathlib
import re
import sys

REFERENCE, OUTPUT = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
sys.dont_write_bytecode = True
sys.path.insert(0, str(REFERENCE))
import make  # noqa: E402 pylint: disable=wrong-import-position

# Declarations, which stand in no function.
GLOBAL = re.compile(r"class |struct |static_assert|Q_DECLARE")


def pieces(path):
    """The indented lines of comments, each with the number of its first line."""
    code, first = [], 0
    for number, line in enumerate([*path.read_text("utf-8").splitlines(), ""], 1):
        match = re.match(r" *///?(?:     (.*))?$", line)
        if match and (match[1] is not None or code):
            first = first or number
            code.append(match[1] or "")
        else:
            if any(code):
                yield first, "\n".join(code).replace("{ ... }", "{}")
            code, first = [], 0


def main():
    # A piece shows what is there, and doesn't use all of it.
    lines = ["// Made of the comments of the headers.", '#include "surroundings.h"',
             '#pragma GCC diagnostic ignored "-Wshadow"', '#pragma GCC diagnostic ignored "-Wunused-variable"',
             "namespace surroundings {"]
    count = 0
    for path in make.public_headers():
        for number, code in pieces(path):
            count += 1
            opening = f"namespace example{count} {{" if GLOBAL.match(code) else f"void Example{count}() {{"
            lines += [opening, f'#line {number} "{path.relative_to(make.ROOT)}"', code, "}"]
    if count == 0:
        sys.exit("no examples")
    lines.append("}")
    OUTPUT.parent.mkdir(parents=True, exist_ok=True)
    OUTPUT.write_text("\n".join(lines) + "\n", "utf-8")


main()
