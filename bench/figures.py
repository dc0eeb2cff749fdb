#!/usr/bin/env python3
"""Makes tables of what the benchmarks have measured, and a plot of how the cost grows.

All that counts are ratios of medians of one run: its benchmarks took turns in one process.
"""

import argparse
import collections
import json
import math
import pathlib
import re
import statistics

SIZES = {0: "tiny", 100: "100", 20_000: "20,000", 200_000: "200,000"}
NOTHING = "–"


class Times:
    """Medians of the processor time of one call, in nanoseconds, by operation, contender and size."""

    def __init__(self, results):
        runs = collections.defaultdict(list)
        self.written = {}
        for run in results["benchmarks"]:
            if run["run_type"] == "iteration":
                operation, contender, size = run["run_name"].split("/")
                runs[operation, contender, int(size)].append(run["cpu_time"] * UNITS[run["time_unit"]])
                if "bytes" in run:
                    self.written[operation.removesuffix("_read"), int(size)] = run["bytes"]
        self.medians = {key: statistics.median(times) for key, times in runs.items()}
        self.repetitions = max(map(len, runs.values()), default=0)
        self.spread = sorted(relative_spread(times) for times in runs.values())

    def get(self, what, size):
        """The time of OPERATION/CONTENDER, or of the first less the second of two; None if not measured."""
        if isinstance(what, Less):
            whole, part = self.get(what.whole, size), self.get(what.part, size)
            return None if whole is None or part is None else max(whole - part, 0.0)
        operation, contender = what.split("/")
        return self.medians.get((operation, contender, size))

    def ratio(self, what, to, size, size_of_other=None):
        time, other = self.get(what, size), self.get(to, size if size_of_other is None else size_of_other)
        return None if time is None or not other else time / other


UNITS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}

Less = collections.namedtuple("Less", "whole part")


def relative_spread(times):
    """Within which part of the median half of the times lie."""
    median = statistics.median(times)
    return statistics.median(abs(time - median) for time in times) / median if median else 0.0


# --- What is compared ------------------------------------------------------------------------------------------------

# title, operation, contender of the library, goals of the ratio to bare Qt for a tiny report, 100 and 200,000 coordinates
OPERATIONS = [
    ("XML to string", "xml_write", "library", (0.08, 0.03, 0.13)),
    ("XML from string", "xml_read", "library", (0.12, 0.04, 0.06)),
    ("XML file, save *", "file_write", "library", (0.08, 0.03, 0.13)),
    ("XML file, load *", "file_read", "library", (0.12, 0.04, 0.06)),
    ("XML through a caller's writer", "xml_write", "library_stream", (1.0, 0.85, 0.85)),
    ("XML through a caller's reader", "xml_read", "library_stream", (1.0, 0.9, 0.9)),
    ("plain binary array, write", "plain_write", "library", (0.15, 0.06, 0.07)),
    ("plain binary array, read", "plain_read", "library", (0.3, 0.14, 0.13)),
    ("tagged body through a caller's stream, write", "tagged_write", "library", (0.5, 0.2, 0.2)),
    ("tagged body through a caller's stream, read", "tagged_read", "library", (0.6, 0.35, 0.35)),
    ("compressed, level -1, write", "compressed_write", "library", (0.85, 0.56, 0.76)),
    ("compressed, level -1, read", "compressed_read", "library", (0.6, 0.38, 0.40)),
    ("compressed, level 1, write", "compressed_1_write", "library", None),
    ("compressed, level 9, write", "compressed_9_write", "library", None),
    ("raw form, write", "raw_write", "library", None),
    ("raw form, read", "raw_read", "library", None),
]

JOBS = [("building an area", "build"), ("check", "check"), ("comparing", "compare"), ("copying", "copy"),
        ("copying and changing a number", "copy_and_change")]

# contender, form of the library that stands beside it
PEERS = [
    ("pugixml", "xml"),
    ("cereal_xml", "xml"),
    ("qjson", "xml"),
    ("protobuf", "plain"),
    ("flatbuffers", "plain"),
    ("cereal_binary", "plain"),
    ("qcbor", "plain"),
]


def side(operation, contender):
    """An operation of a contender; of a file only what goes beyond writing or reading its bytes."""
    name = f"{operation}/{contender}"
    return Less(name, f"{operation}/bytes") if operation.startswith("file_") else name


# --- Tables ----------------------------------------------------------------------------------------------------------


class Table:
    """Rows of texts; and the values behind them, for programs."""

    def __init__(self, title, header):
        self.title = title
        self.header = header
        self.rows = []
        self.values = []

    def add(self, name, cells):
        """A row of (value, goal, text) or texts."""
        texts = [name]
        for column, cell in zip(self.header[1:], cells):
            if isinstance(cell, str):
                texts.append(cell)
                continue
            value, goal, text = cell
            texts.append(text)
            if value is not None:
                self.values.append({"table": self.title, "row": name, "column": column, "value": value, "goal": goal,
                                    "reached": None if goal is None else reaches(value, goal)})
        if any(text != NOTHING for text in texts[1:]):
            self.rows.append(texts)

    def markdown(self):
        widths = [max(map(len, column)) for column in zip(self.header, *self.rows)]

        def line(cells):
            padded = [cell.ljust(width) if index == 0 else cell.rjust(width)
                      for index, (cell, width) in enumerate(zip(cells, widths))]
            return "| " + " | ".join(padded) + " |"

        rule = "|" + "|".join("-" * (width + 1) + ("-" if index == 0 else ":") for index, width in enumerate(widths)) + "|"
        return "\n".join([line(self.header), rule, *map(line, self.rows)])


def figure(value):
    """Three digits, as far as they tell something."""
    if value is None:
        return NOTHING
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.1f}" if value >= 10 else f"{value:.2f}" if value >= 0.095 else f"{value:.3f}"


def reaches(value, goal):
    return value <= goal


def cell(value, goal=None):
    """A figure with its goal behind it, ticked when reached."""
    if value is None or goal is None:
        return value, goal, figure(value)
    tick = "✓ " if reaches(value, goal) else ""
    return value, goal, f"{tick}{figure(value)} ({goal:g})"


def bare_qt_table(times):
    sizes = [0, 100, 200_000]
    table = Table("ratio to bare Qt (goal)", ["ratio to bare Qt (goal)"] + [SIZES[size] for size in sizes])
    for title, operation, contender, goals in OPERATIONS:
        ratios = [times.ratio(side(operation, contender), side(operation, "bareqt"), size) for size in sizes]
        table.add(title, [cell(ratio, goal) for ratio, goal in zip(ratios, goals or (None,) * 3)])
    return table


def others_table(times):
    table = Table("against the others (goal)", ["against the others (goal)"] + list(SIZES.values()))

    def add(title, what, to, goal):
        table.add(title, [cell(times.ratio(what, to, size), goal) for size in SIZES])

    def add_last(title, value, goal):
        table.add(title, [NOTHING] * 3 + [cell(value, goal)])

    add("plain binary, read : Protocol Buffers", "plain_read/library", "protobuf_read/protobuf", 1.0)
    add("XML to string : pugixml", "xml_write/library", "pugixml_write/pugixml", 1.0)
    add("XML from string : pugixml", "xml_read/library", "pugixml_read/pugixml", 1.0)
    add("compressed, write : zlib alone", "compressed_write/library", "compressed_write/zlib", 1.05)
    add("compressed, read : zlib alone", "compressed_read/library", "compressed_read/zlib", 1.05)
    add("raw form, write : plain loop", "raw_write/library", "raw_write/floor", 3.0)
    add("raw form, read : plain loop", "raw_read/library", "raw_read/floor", 3.0)
    add_last("refusing 1,000,000 characters : memchr", times.ratio("refuse/library", "refuse/memchr", 1_000_000), 4.0)
    for title, job, goal in [("building an area", "build", 0.04), ("check", "check", 0.015),
                             ("comparing", "compare", 0.01)]:
        add_last(f"{title} : bare Qt writes plain binary",
                 times.ratio(f"{job}/library", "plain_write/bareqt", 200_000), goal)
    add_last("copying an untouched report : a tiny one", times.ratio("copy/library", "copy/library", 200_000, 0), 1.1)
    return table


def memory_table(memory):
    table = Table("memory (goal)", ["memory (goal)", "bytes a coordinate", "peak : result", "bare Qt, bytes", "bare Qt, peak"])
    for form in memory["forms"] if memory else []:
        library, bare_qt = form["library"], form["bareqt"]
        table.add(form["title"], [cell(library["bytesPerCoordinate"], 56), cell(library["peakBeyondInput"], 1.25),
                                  cell(bare_qt["bytesPerCoordinate"]), cell(bare_qt["peakBeyondInput"])])
    return table


def floor_table(times):
    table = Table("ratio to the floor", ["ratio to the floor"] + list(SIZES.values()))
    for title, operation, contender, _ in OPERATIONS:
        table.add(title, [cell(times.ratio(side(operation, contender), side(operation, "floor"), size)) for size in SIZES])
    return table


def cost_table(times):
    size = 200_000
    table = Table("cost of a coordinate", ["cost of a coordinate among 200,000", "library", "bare Qt", "floor",
                                           "library, MB/s", "200,000 : 20,000 (goal)"])

    def per_coordinate(what):
        time = times.get(what, size)
        return cell(None if time is None else time / size)

    def add(title, operation, contender):
        own = side(operation, contender)
        form = re.sub("_(write|read)$", "", operation)
        time, written = times.get(own, size), times.written.get((form, size))
        speed = written / time * 1e3 if time and written else None
        growth = times.ratio(own, own, size, 20_000)
        table.add(title, [per_coordinate(own), per_coordinate(side(operation, "bareqt")),
                          per_coordinate(side(operation, "floor")), cell(speed),
                          cell(None if growth is None else growth / 10, 1.5)])

    for title, operation, contender, _ in OPERATIONS:
        if times.get(side(operation, contender), size) is not None:
            add(title, operation, contender)
    for title, job in JOBS:
        add(title, job, "library")
    return table


def peers_table(times):
    directions = [(size, direction) for size in SIZES for direction in ("write", "read")]
    table = Table("the library's time to the peer's",
                  ["the library's time to the peer's"] + [f"{SIZES[size]}, {direction}" for size, direction in directions])
    for peer, form in PEERS:
        table.add(f"{form} : {peer}", [
            cell(times.ratio(f"{form}_{direction}/library", f"{peer}_{direction}/{peer}", size))
            for size, direction in directions
        ])
    return table


def unchecked_table(times):
    table = Table("not validating to validating", ["not validating to validating"] + list(SIZES.values()))
    operations = [(title, operation) for title, operation, contender, _ in OPERATIONS if contender == "library"]
    for title, operation in operations + JOBS:
        table.add(title, [cell(times.ratio(side(operation, "library_unchecked"), side(operation, "library"), size))
                          for size in SIZES])
    return table


# --- Report ----------------------------------------------------------------------------------------------------------


def conditions(times, context):
    """What the figures were measured with, and how far they can be trusted."""
    middle = times.spread[len(times.spread) // 2] if times.spread else 0.0
    worst = times.spread[-1] if times.spread else 0.0
    lines = [
        f"{context['num_cpus']} processors of {context['mhz_per_cpu']} MHz, {context['compiler']}, Qt {context['qt']}, "
        f"zlib {context['zlib']}; {times.repetitions} repetitions, medians of processor time. "
        f"Half of the repetitions lie within {middle:.0%} of the median in the middle benchmark, {worst:.0%} in the worst.",
        "✓ marks a goal that is reached. * less the time that the same bytes take to be written or read.",
    ]
    if context.get("left_out"):
        lines.append(f"Left out since not installed: {context['left_out']}.")
    return "\n".join(lines)


def report(times, memory, context):
    tables = [bare_qt_table(times), others_table(times), memory_table(memory), floor_table(times), cost_table(times),
              peers_table(times), unchecked_table(times)]
    tables = [table for table in tables if table.rows]
    text = "\n\n".join([conditions(times, context)] + [table.markdown() for table in tables])
    return text, [value for table in tables for value in table.values]


# --- Plot ------------------------------------------------------------------------------------------------------------

PANELS = [("XML to string", "xml_write", "pugixml"), ("XML from string", "xml_read", "pugixml"),
          ("plain binary, write", "plain_write", "protobuf"), ("plain binary, read", "plain_read", "protobuf")]
# contender, colour, dashes; None stands for the panel's peer
LINES = [("library", "#0b5fd0", ""), ("bareqt", "#6e6e6e", "6 3"), (None, "#b35900", "2 3"), ("floor", "#1a7f37", "9 3 2 3")]
TITLES = {"library": "library", "bareqt": "bare Qt", "floor": "floor", "pugixml": "pugixml", "protobuf": "Protocol Buffers"}
PANEL_WIDTH, PANEL_HEIGHT, MARGIN = 330, 230, 56


class Panel:
    """A diagram of nanoseconds a coordinate over the number of coordinates, both logarithmic."""

    sizes = [size for size in SIZES if size > 0]
    lowest, highest = 1.0, 10_000.0

    def __init__(self, left, top):
        self.left, self.top = left, top

    def x(self, size):
        first, last = math.log(self.sizes[0]), math.log(self.sizes[-1])
        return self.left + PANEL_WIDTH * (math.log(size) - first) / (last - first)

    def y(self, nanoseconds):
        first, last = math.log(self.lowest), math.log(self.highest)
        return self.top + PANEL_HEIGHT * (last - math.log(nanoseconds)) / (last - first)

    def frame(self, title):
        right, bottom = self.left + PANEL_WIDTH, self.top + PANEL_HEIGHT
        yield text(self.left, self.top - 10, title, weight="bold")
        for exponent in range(round(math.log10(self.highest)) + 1):
            y = self.y(10**exponent)
            yield f'<path d="M{self.left} {y:.1f}H{right}" stroke="#d8d8d8"/>'
            yield text(self.left - 6, y + 4, f"{10**exponent:,} ns", anchor="end")
        for size in self.sizes:
            x = self.x(size)
            yield f'<path d="M{x:.1f} {self.top}V{bottom}" stroke="#d8d8d8"/>'
            yield text(x, bottom + 16, SIZES[size], anchor="middle")

    def line(self, points, colour, dashes):
        path = " ".join(f"{self.x(size):.1f},{self.y(value):.1f}" for size, value in points)
        yield f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2" stroke-dasharray="{dashes}"/>'
        for size, value in points:
            yield f'<circle cx="{self.x(size):.1f}" cy="{self.y(value):.1f}" r="3" fill="{colour}"/>'


def text(x, y, content, anchor="start", weight="normal"):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-weight="{weight}">{content}</text>'


def legend(y):
    x = MARGIN
    for contender, colour, dashes in LINES:
        title = TITLES.get(contender, "pugixml, Protocol Buffers")
        yield f'<path d="M{x} {y}h36" stroke="{colour}" stroke-width="2" stroke-dasharray="{dashes}"/>'
        yield text(x + 44, y + 4, title)
        x += 64 + 8 * len(title)


def plot(times):
    width, height = 2 * (PANEL_WIDTH + 2 * MARGIN), 2 * (PANEL_HEIGHT + 2 * MARGIN) + 24
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
             f'viewBox="0 0 {width} {height}" font-family="sans-serif" font-size="12">',
             f'<rect width="{width}" height="{height}" fill="#ffffff"/>']
    for index, (title, operation, peer) in enumerate(PANELS):
        column, row = index % 2, index // 2
        panel = Panel(MARGIN + 16 + column * (PANEL_WIDTH + 2 * MARGIN), MARGIN + row * (PANEL_HEIGHT + 2 * MARGIN))
        parts += panel.frame(f"{title}, per coordinate")
        for contender, colour, dashes in LINES:
            direction = operation.rsplit("_", 1)[1]
            what = f"{operation}/{contender}" if contender else f"{peer}_{direction}/{peer}"
            points = [(size, times.get(what, size) / size) for size in panel.sizes if times.get(what, size)]
            if points:
                parts += panel.line(points, colour, dashes)
    parts += legend(height - 24)
    return "\n".join(parts + ["</svg>\n"])


# --- Program ---------------------------------------------------------------------------------------------------------


def update_page(page, figures, name="figures"):
    """Puts the figures between the two marks of that name on the page."""
    begin, end = f"<!-- {name}: begin, written by ./dev bench --update-docs -->\n", f"<!-- {name}: end -->"
    head, rest = page.read_text(encoding="utf-8").split(begin)
    tail = rest.split(end)[1]
    page.write_text(f"{head}{begin}\n{figures}\n\n{end}{tail}", encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("times", type=pathlib.Path, help="what the benchmarks wrote")
    parser.add_argument("memory", type=pathlib.Path, nargs="?", help="what the memory program wrote")
    parser.add_argument("--json", type=pathlib.Path, metavar="FILE", help="write the ratios there, too")
    parser.add_argument("--plot", type=pathlib.Path, metavar="FILE", help="draw the growth there, as SVG")
    parser.add_argument("--page", type=pathlib.Path, metavar="FILE", help="put the tables into this page")
    arguments = parser.parse_args()

    results = json.loads(arguments.times.read_text(encoding="utf-8"))
    memory = json.loads(arguments.memory.read_text(encoding="utf-8")) if arguments.memory else None
    times = Times(results)
    figures, values = report(times, memory, results["context"])

    print(figures)
    if arguments.json:
        arguments.json.write_text(json.dumps(values, indent=2, ensure_ascii=False) + "\n", encoding="utf-8")
    if arguments.plot:
        arguments.plot.write_text(plot(times), encoding="utf-8")
    if arguments.page:
        update_page(arguments.page, figures)


if __name__ == "__main__":
    main()
