#!/usr/bin/env python3
"""Measures what reporttool does with many files and with a large one, and makes a table of it.

All take turns, in an order of chance, and a time is that of the whole process, its start and its end included. The library alone reads and checks the same files in one thread, in a loop; cat and xmllint show what reading bytes
and parsing any XML cost.
"""

import argparse
import json
import math
import os
import pathlib
import random
import shutil
import statistics
import subprocess
import tempfile

import figures

GOAL_RATE = 20_000  # files a second
POINTS_OF_SMALL = 17
GOAL_OF_LARGE = 1.5  # to the library's own time

# --- Files ------------------------------------------------------------------------------------------------------------


def outline(points, separator):
    """A ring around 10 degrees east and 50 degrees north."""
    angles = (2 * math.pi * i / points for i in range(points))
    return separator.join(f"<Coordinate><Longitude>{10 + 3 * math.cos(angle):.6f}</Longitude>"
                          f"<Latitude>{50 + 3 * math.sin(angle):.6f}</Latitude></Coordinate>" for angle in angles)


def plain_xml(number, points):
    return ('<ReportBase>'
            f'<Frequency Min="{8_000_000 + number}.00" Max="{9_000_000 + number}.00" Use="true">{8_500_000 + number}.00</Frequency>'
            '<IFBandwidth Min="300.00" Max="500.00">500.00</IFBandwidth>'
            f'<Area Version="1.0"><Name>area {number}</Name>{outline(points, "")}<ScriptID>S-{number}</ScriptID></Area>'
            '</ReportBase>')


def commented_xml(number, points):
    """The same as people write it."""
    indented = plain_xml(number, 0).replace("</Name>", "</Name>\n" + outline(points, "\n        "))
    for tag in ("<Frequency", "<IFBandwidth", "<Area"):
        indented = indented.replace(tag, "\n    <!-- What comes next. -->\n    " + tag)
    return f'<?xml version="1.0" encoding="UTF-8"?>\n<!-- A report of {points} points. -->\n{indented}\n'


class Files:
    """The files of a run, in a folder that vanishes with it."""

    def __init__(self, folder, tool, count, points):
        self.folder = folder
        self.count = count
        self.points = points
        self.lists = {"XML": self.write("xml", plain_xml), "XML with comments": self.write("comments", commented_xml)}
        target = self.make("plain")
        subprocess.run([tool, "convert", "--files-from", self.lists["XML"], target, "--to", "plain"], check=True,
                       stderr=subprocess.DEVNULL)
        self.lists["plain binary"] = self.list("plain", sorted(target.iterdir()))
        self.large = {}
        for kind, write in (("XML", plain_xml), ("XML with comments", commented_xml)):
            self.large[kind] = folder / f"large-{len(self.large)}.xml"
            self.large[kind].write_text(write(0, points), encoding="utf-8")
        self.large["plain binary"] = folder / "large.plain"
        subprocess.run([tool, "convert", self.large["XML"], self.large["plain binary"], "--to", "plain"], check=True)

    def make(self, name):
        path = self.folder / name
        path.mkdir()
        return path

    def write(self, name, text):
        folder = self.make(name)
        paths = [folder / f"{number}.xml" for number in range(self.count)]
        for number, path in enumerate(paths):
            path.write_text(text(number, POINTS_OF_SMALL), encoding="utf-8")
        return self.list(name, paths)

    def list(self, name, paths):
        path = self.folder / f"{name}.list"
        path.write_text("".join(f"{each}\n" for each in paths), encoding="utf-8")
        return path


# --- Measuring --------------------------------------------------------------------------------------------------------


class Job:
    """A command with what it took, each time that it ran."""

    def __init__(self, launch, arguments):
        self.arguments = [str(argument) for argument in [launch, *arguments]]
        self.processor, self.wall, self.memory = [], [], []

    def run(self):
        run = json.loads(subprocess.run(self.arguments, check=True, stdout=subprocess.PIPE).stdout)
        if run["code"] != 0:
            raise RuntimeError(f"{' '.join(self.arguments)} ended with {run['code']}")
        self.processor.append(run["processor"])
        self.wall.append(run["wall"])
        self.memory.append(run["memory"])


def jobs_of(files, programs):
    """By kind of files and name: on many files, and on a large one."""
    tool, loop, launch = programs
    condition = "frequency.value in 8e6..9e6 and area contains 10,50"
    many, large = {}, {}
    target = files.make("converted")
    for kind, names in files.lists.items():
        path = files.large[kind]
        form = "xml" if kind == "plain binary" else "plain"

        def add(name, on_many, on_large):
            many.setdefault(kind, {})[name] = Job(launch, on_many)
            large.setdefault(kind, {})[name] = Job(launch, on_large)

        def add_command(name, *options):
            add(name, [tool, *options, "--files-from", names], [tool, *options, path])

        add("library alone", [loop, 1, f"@{names}"], [loop, 1, path])
        add_command("check", "check")
        if shutil.which("taskset"):
            add("check on one core", ["taskset", "-c", "0", tool, "check", "--files-from", names],
                ["taskset", "-c", "0", tool, "check", path])
        add_command("check --strict", "check", "--strict")
        add_command("grep", "grep", condition)
        add_command("show", "show")
        add_command("export --to geojsonl", "export", "--to", "geojsonl")
        add("convert, to plain or XML", [tool, "convert", "--to", form, "--files-from", names, target],
            [tool, "convert", "--to", form, path, target / "large"])
        add("cat", ["xargs", "-a", names, "cat"], ["cat", path])
        if kind != "plain binary" and shutil.which("xmllint"):
            add("xmllint --noout", ["xargs", "-a", names, "xmllint", "--noout"], ["xmllint", "--noout", "--huge", path])
    return many, large


def measure(many, large, repetitions):
    jobs = [job for kinds in (many, large) for named in kinds.values() for job in named.values()]
    for _ in range(repetitions):
        random.shuffle(jobs)
        for job in jobs:
            job.run()


# --- Tables -----------------------------------------------------------------------------------------------------------


def names_in(kinds):
    """Of all jobs, in their order."""
    return list(dict.fromkeys(name for named in kinds.values() for name in named))


def rates_table(many, count):
    title = f"files a second, of {count:,} (goal)"
    table = figures.Table(title, [title, *many])
    for name in names_in(many):
        cells = []
        for named in many.values():
            rate = count / statistics.median(named[name].wall) if name in named else None
            text = figures.NOTHING if rate is None else f"{rate:,.0f}"
            if rate is not None and name == "check":
                text = f"{'✓ ' if rate >= GOAL_RATE else ''}{text} ({GOAL_RATE:,})"
            cells.append((rate, None, text))
        table.add(name, cells)
    return table


def columns_of(files, many, large):
    """Header and jobs by name."""
    for kind, named in many.items():
        yield f"{files.count:,} of {kind}", named
    for kind, named in large.items():
        yield f"{files.points:,} points, {kind}", named


def ratios_table(files, many, large):
    columns = list(columns_of(files, many, large))
    table = figures.Table("time to the library's", ["processor time to the library's (goal)", *(title for title, _ in columns)])
    for name in names_in(many):
        cells = []
        for title, named in columns:
            library = statistics.median(named["library alone"].processor)
            ratio = statistics.median(named[name].processor) / library if name in named else None
            cells.append(figures.cell(ratio, GOAL_OF_LARGE if name == "check" and "points" in title else None))
        table.add(name, cells)
    return table


def memory_table(files, many, large):
    columns = list(columns_of(files, many, large))
    table = figures.Table("peak of memory, MiB", ["peak of memory, MiB", *(title for title, _ in columns)])
    for name in names_in(many):
        table.add(name, [figures.cell(max(named[name].memory) if name in named else None) for _, named in columns])
    return table


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("tool", type=pathlib.Path, help="the built reporttool")
    parser.add_argument("loop", type=pathlib.Path, help="the program that has the library alone read files")
    parser.add_argument("launch", type=pathlib.Path, help="the program that runs others and tells what they took")
    parser.add_argument("--files", type=int, default=100_000, help="how many small files there are")
    parser.add_argument("--coordinates", type=int, default=200_000, help="how many the large file has")
    parser.add_argument("--repetitions", type=int, default=3)
    parser.add_argument("--json", type=pathlib.Path, metavar="FILE", help="write the figures there, too")
    parser.add_argument("--page", type=pathlib.Path, metavar="FILE", help="put the tables into this page")
    arguments = parser.parse_args()

    memory = pathlib.Path("/dev/shm")
    with tempfile.TemporaryDirectory(prefix="reporttool-bench-", dir=memory if os.access(memory, os.W_OK) else None) as folder:
        programs = [path.resolve() for path in (arguments.tool, arguments.loop, arguments.launch)]
        files = Files(pathlib.Path(folder), programs[0], arguments.files, arguments.coordinates)
        many, large = jobs_of(files, programs)
        measure(many, large, arguments.repetitions)
    tables = [rates_table(many, arguments.files), ratios_table(files, many, large), memory_table(files, many, large)]

    text = (f"{os.cpu_count()} processors, files of about 2 kB and a large one, in memory; {arguments.repetitions} repetitions, "
            "medians. ✓ marks a goal that is reached.\n\n" + "\n\n".join(table.markdown() for table in tables))
    print(text)
    if arguments.json:
        values = [value for table in tables for value in table.values]
        arguments.json.write_text(json.dumps(values, indent=2, ensure_ascii=False) + "\n", encoding="utf-8")
    if arguments.page:
        figures.update_page(arguments.page, text, "files")


if __name__ == "__main__":
    main()
