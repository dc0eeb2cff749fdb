#!/usr/bin/env python3
"""Which lines and branches of a library its tests don't reach, held against a list of those that are known.

Reads what `llvm-cov export` says, which counts regions of the source: what a compiler adds to it, such as edges for
exceptions, is none. Instances of a template count together. What is `constexpr` and only ever run by the compiler counts
as if it weren't there.
"""

import argparse
import json
import os
import re
import sys
from collections import defaultdict
from pathlib import Path


# Begins the reason of what is reached only where two threads meet, in one run and not in the next.
RACE = "race: "


class Coverage:
    """By file: how often each line ran, and how often each condition was true and false."""

    def __init__(self, exported, folder):
        self.lines = defaultdict(dict)
        self.branches = defaultdict(lambda: defaultdict(lambda: [0, 0]))
        compiled = self._run_by_compiler(exported, folder)
        for function in exported["data"][0]["functions"]:
            for branch in function["branches"]:
                path = os.path.normpath(function["filenames"][branch[6]])
                if path.startswith(folder) and branch[0] not in compiled[path]:
                    counts = self.branches[path][tuple(branch[:4])]
                    counts[0] += branch[4]
                    counts[1] += branch[5]
        for file in exported["data"][0]["files"]:
            path = os.path.normpath(file["filename"])
            if path.startswith(folder):
                self._count_lines(path, file)
                for line in compiled[path] & self.lines[path].keys():
                    del self.lines[path][line]

    def _run_by_compiler(self, exported, folder):
        """By file: the lines of functions that are `constexpr` and that the program never ran."""
        ran, lines = defaultdict(int), defaultdict(set)
        for function in exported["data"][0]["functions"]:
            begin, column, end = function["regions"][0][:3]
            ran[os.path.normpath(function["filenames"][0]), begin, column, end] += function["count"]
        for (path, begin, column, end), count in ran.items():
            if count == 0 and path.startswith(folder):
                text = Path(path).read_text().split("\n")
                before = "\n".join([*text[max(begin - 8, 0) : begin - 1], text[begin - 1][: column - 1]])
                if re.search(r"\bconstexpr\b[^;{}]*(\{[^{}]*\}[^;{}]*)?$", before):
                    lines[path] |= set(range(begin, end + 1))
        return lines

    def _count_lines(self, path, file):
        """A line ran as often as the region that runs most of those in it, and the one that it begins in."""
        by_line = defaultdict(list)
        for segment in file["segments"]:
            by_line[segment[0]].append(segment)
        wrapping = None
        last = max(by_line, default=0)
        lines = self.lines[path]
        for number in range(1, last + 1):
            entries = [s for s in by_line[number] if s[3] and s[4] and not s[5]]
            counts = [s[2] for s in entries]
            starts_skipped = by_line[number] and not by_line[number][0][3] and by_line[number][0][4]
            if wrapping is not None and wrapping[3]:
                counts.append(wrapping[2])
            if counts and not (starts_skipped and not entries):
                lines[number] = max(counts)
            if by_line[number]:
                wrapping = by_line[number][-1]


def text_between(lines, line, column, end_line, end_column):
    if line == end_line:
        return lines[line - 1][column - 1 : end_column - 1]
    pieces = [lines[line - 1][column - 1 :], *lines[line : end_line - 1], lines[end_line - 1][: end_column - 1]]
    return " ".join(piece.strip() for piece in pieces)


def misses(coverage, folder):
    """What isn't reached, by names that stay while the source does, with the places; and how much there is of it all."""
    found, totals = defaultdict(list), {"lines": [0, 0], "branches": [0, 0]}
    for path in sorted(coverage.lines):
        source = Path(path).read_text().split("\n")
        name = path[len(folder) :].lstrip("/")
        for line, count in coverage.lines[path].items():
            totals["lines"][0] += 1
            if count == 0:
                totals["lines"][1] += 1
                found[f"{name} | {source[line - 1].strip()}"].append(f"{name}:{line}")
        for place, counts in coverage.branches[path].items():
            text = re.sub(r"\s+", " ", text_between(source, *place))
            for outcome, count in zip(("never true", "never false"), counts):
                totals["branches"][0] += 1
                if count == 0:
                    totals["branches"][1] += 1
                    found[f"{name} | {text} | {outcome}"].append(f"{name}:{place[0]}")
    return found, totals


def read_list(path):
    """Each miss that is known; its reason follows in the next line, indented."""
    known, last = {}, None
    for line in path.read_text().splitlines() if path.exists() else []:
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("    ") and last is not None:
            known[last] = line.strip()
        else:
            last = line.strip()
            known[last] = ""
    return known


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("exported", type=Path)
    parser.add_argument("--folder", required=True, help="the library's sources")
    parser.add_argument("--known", type=Path, required=True)
    parser.add_argument("--lines", type=float, default=100.0, help="share of lines that must run, but for those known")
    parser.add_argument("--branches", type=float, default=98.0)
    arguments = parser.parse_args()
    coverage = Coverage(json.loads(arguments.exported.read_text()), arguments.folder)
    found, totals = misses(coverage, arguments.folder)
    known = read_list(arguments.known)

    good = True
    for name, places in found.items():
        if name not in known:
            print(f"not reached: {name}   ({', '.join(places)})")
            good = False
    for name, reason in known.items():
        if name not in found and not reason.startswith(RACE):
            print(f"listed, but reached or gone: {name}")
            good = False
        elif not reason:
            print(f"listed without a reason: {name}")
            good = False
    listed_lines = sum(len(places) for name, places in found.items() if name in known and name.count(" | ") == 1)
    for what, least in (("lines", arguments.lines), ("branches", arguments.branches)):
        count, missed = totals[what]
        share = 100.0 * (count - missed) / max(count, 1)
        print(f"{what}: {count - missed} of {count}, {share:.2f} %")
        counted = share if what == "branches" else 100.0 * (count - missed + listed_lines) / max(count, 1)
        good = good and counted >= least
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
