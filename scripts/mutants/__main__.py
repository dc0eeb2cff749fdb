#!/usr/bin/env python3
"""Puts small faults into the library, one at a time, and tells which of them its tests don't notice.

The library is compiled once, with all faults behind a question for their number, and takes the place of the ordinary one
beside the ordinary test program. Which suites come by a fault is known from a run without any, and only those are run with it, quick ones first.
"""

import argparse
import hashlib
import json
import os
import pickle
import re
import resource
import shlex
import signal
import subprocess
import sys
import tempfile
import threading
from concurrent.futures import ThreadPoolExecutor, as_completed
from pathlib import Path

import changes as changing
from clang.cindex import Index

ROOT = Path(__file__).resolve().parents[2]
COVERAGE = ROOT / "build/coverage"
WORK = ROOT / "build/mutate"
LIBRARY = Path("framework/reportgenerator/reportbase")
TARGET = WORK / "lib/libreportbase.so.0.1"
LIST = ROOT / "tests/mutants.txt"
PROGRAM = ROOT / "build/dev/bin/reportbase_tests"
SHARE = 0.95
QUICK = 0.3  # seconds that a suite takes which is run with others
MEMORY = 4 << 30
PATIENCE = 60  # seconds of the clock, beside four times what it may take of the processor
JOBS = os.cpu_count() or 1

# What the compiler alone runs; its tests are programs that don't compile.
COMPILED_ONLY = "records/schemarules.h"

# What compares the library with the sources or with time, not with what it does.
LEFT_OUT = ("Guarantees", "Documentation", "Readme", "Interface")


class Problem(Exception):
    """What keeps faults from being tried."""


# --- The library with all faults


def compile_commands():
    """The sources of the library, each with the words that compile it."""
    commands = []
    for entry in json.loads((COVERAGE / "compile_commands.json").read_text()):
        if re.search(rf"{LIBRARY}/CMakeFiles/reportbase(_private)?\.dir/", entry["command"]):
            counting = ("-fprofile-", "-fcoverage-")
            words = [w for w in shlex.split(entry["command"]) if not w.startswith(("-W", "-O", *counting))]
            commands.append((Path(entry["file"]), [*words[: words.index("-o")], "-O1", "-w"]))
    if not commands:
        raise Problem("the coverage build knows no sources of the library")
    return commands


def precompile(commands):
    """The headers of others, which are the greater part of what there is to compile, once. Returns the words for it."""
    names = set()
    for path in (ROOT / LIBRARY).rglob("*"):
        if path.suffix in (".cpp", ".h"):
            names |= set(re.findall(r"(?m)^#include <((?:Qt|[a-z_]+>).*)$", path.read_text()))
    header = WORK / "others.h"
    text = "".join(f"#include <{name}\n" for name in sorted(names))
    compiled = WORK / "others.pch"
    if not compiled.exists() or header.read_text() != text:
        header.write_text(text)
        subprocess.run([*commands[0][1], "-x", "c++-header", str(header), "-o", str(compiled)], cwd=COVERAGE, check=True)
    return ["-include-pch", str(compiled)]


def find_changes(commands):
    """Of sources that were looked at before the outcome is kept, with the library that is made of it."""
    sources = sorted(path for path in (ROOT / LIBRARY).rglob("*") if path.suffix in (".cpp", ".h"))
    state = hashlib.sha256(b"".join(path.read_bytes() for path in [*sources, Path(changing.__file__)])).hexdigest()
    kept = WORK / "changes.pickle"
    if kept.exists():
        before, finder, found = pickle.loads(kept.read_bytes())
        if before == state and TARGET.exists():
            return finder, found
    finder = changing.Finder(ROOT / LIBRARY)
    index = Index.create()
    for source, words in commands:
        if ROOT / LIBRARY in source.parents:
            finder.visit(index.parse(str(source), args=words[1:]).cursor)
    found = {}
    number = 0
    for path in sorted(finder.changes):
        found[path] = [finder.changes[path][place] for place in sorted(finder.changes[path])]
        for change in found[path]:
            change.number = number
            number += 1
    library = Library(finder, found, commands)
    library.leave_out_what_does_not_compile()
    library.link(library.compile_all())
    kept.write_bytes(pickle.dumps((state, finder, found)))
    return finder, found


class Library:
    """Sources with faults in them, and the library made of these."""

    def __init__(self, finder, found, commands):
        self.finder, self.found, self.commands = finder, found, commands
        self.places = {}
        self.objects = WORK / "objects"
        self.objects.mkdir(parents=True, exist_ok=True)
        last = max(change.number for changes in found.values() for change in changes)
        (WORK / "mutants.h").write_text(changing.HEADER % last)
        (WORK / "mutants.cpp").write_text(changing.SOURCE)
        subprocess.run(["rm", "-rf", str(WORK / "framework")], check=True)
        subprocess.run(["cp", "-r", str(ROOT / "framework"), str(WORK / "framework")], check=True)
        for path in found:
            self.write(path)

    def write(self, path):
        writer = changing.Writer(self.finder.text(path), self.found[path])
        target = WORK / Path(path).relative_to(ROOT)
        written = writer.written()
        target.write_bytes(written)
        self.places[path] = (written, writer.places)

    def compile_one(self, command, *how):
        source, words = command
        inside = ROOT / LIBRARY in source.parents
        target = WORK / source.relative_to(ROOT) if inside else source
        out = self.objects / (hashlib.sha256(str(source).encode()).hexdigest()[:16] + ".o")
        words = [w.replace(f"-I{ROOT}/framework", f"-I{WORK}/framework") for w in words]
        how = how or ("-c", "-o", str(out))
        words = [*words, "-ferror-limit=0", f"-I{WORK}", "-include", str(WORK / "mutants.h"), str(target), *how]
        result = subprocess.run(words, cwd=COVERAGE, capture_output=True, text=True)
        return out, result.returncode, result.stderr

    def leave_out_what_does_not_compile(self):
        todo = self.commands
        while todo:
            with ThreadPoolExecutor(JOBS) as pool:
                results = list(pool.map(lambda command: self.compile_one(command, "-fsyntax-only"), todo))
            bad = set()
            for _, code, errors in results:
                culprits = self.culprits(errors)
                if code != 0 and not culprits:
                    raise Problem(errors)
                bad |= culprits
            todo = [command for command, (_, code, _) in zip(todo, results) if code != 0]
            self.drop(bad)

    def compile_all(self):
        with ThreadPoolExecutor(JOBS) as pool:
            results = list(pool.map(self.compile_one, self.commands))
        for _, code, errors in results:
            if code != 0:
                raise Problem(errors)
        return [file for file, _, _ in results]

    def culprits(self, errors):
        """The faults that errors speak of: each has the file, and a place in it."""
        bad = set()
        blocks = re.split(r"(?m)^(?=\S+:\d+:\d+: (?:fatal )?error: )", errors)
        pattern = re.compile(rf"^{re.escape(str(WORK))}/(framework/\S+?):(\d+):(\d+): (?:error|note)", re.M)
        for block in blocks:
            if " error: " not in block:
                continue
            for match in pattern.finditer(block):
                path = str(ROOT / match[1])
                number = self.fault_at(path, int(match[2]), int(match[3])) if path in self.places else None
                if number is not None:
                    bad.add((path, number))
                    break
        return bad

    def fault_at(self, path, line, column):
        written, places = self.places[path]
        lines = written.split(b"\n")
        offset = sum(len(text) + 1 for text in lines[: line - 1]) + column - 1
        around = [(end - start, number) for start, end, number in places if start <= offset < end]
        if around:
            return min(around)[1]
        begin, end = offset - column + 1, offset - column + 1 + len(lines[line - 1])
        on_line = [(stop - start, number) for start, stop, number in places if begin <= start < end]
        return min(on_line)[1] if on_line else None

    def drop(self, bad):
        for path in {path for path, _ in bad}:
            numbers = {number for other, number in bad if other == path}
            self.found[path] = [change for change in self.found[path] if change.number not in numbers]
            self.write(path)

    def link(self, objects):
        TARGET.parent.mkdir(exist_ok=True)
        wendbase = COVERAGE / "framework/wendbase/libwendbase.so"
        qt = subprocess.run(["pkg-config", "--libs", "Qt5Core"], capture_output=True, text=True, check=True).stdout.split()
        subprocess.run(["clang++", "-shared", "-fPIC", "-std=c++17", "-O1", f"-I{WORK}", str(WORK / "mutants.cpp"), *map(str, objects),
                        "-Wl,-soname,libreportbase.so.0.1", str(wendbase), f"-Wl,-rpath,{wendbase.parent}", *qt,
                        "-o", str(TARGET)], check=True)


# --- Running


def run_tests(suites, seconds, **variables):
    """Whether all tests of the suites pass, how, and what processor time they took; they may take so much."""
    def limit():
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))

    patterns = ":".join(f"{suite}.*" for suite in suites)
    environment = dict(os.environ, LD_LIBRARY_PATH=str(TARGET.parent), LC_ALL="C.UTF-8", **variables)
    words = [str(PROGRAM), f"--gtest_filter={patterns}", "--gtest_fail_fast", "--gtest_brief=1"]
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(words, env=environment, stdout=output, stderr=subprocess.DEVNULL,
                                   stdin=subprocess.DEVNULL, preexec_fn=limit, cwd=WORK)
        # Who waits for ever takes no time of the processor.
        timer = threading.Timer(PATIENCE + 4 * seconds, process.kill)
        timer.start()
        _, status, usage = os.wait4(process.pid, 0)
        timer.cancel()
        process.returncode = status
        output.seek(0)
        text = output.read()
    took = usage.ru_utime + usage.ru_stime
    if status == 0:
        return None, took
    failed = re.findall(rb"\[  FAILED  \] ([^ ,\n]+)", text)
    if failed:
        return failed[0].decode(), took
    number = os.WTERMSIG(status) if os.WIFSIGNALED(status) else 0
    if number in (signal.SIGXCPU, signal.SIGKILL):
        return "takes too long", took
    return f"ends with signal {number}" if number else "ends with an error", took


def suites_of_program():
    words = [str(PROGRAM), "--gtest_list_tests", f"--gtest_filter={os.environ.get('MUTANTS_SUITES', '*')}"]
    listing = subprocess.run(words, capture_output=True, text=True, check=True).stdout
    names = re.findall(r"(?m)^([A-Za-z0-9_/]+)\.", listing)
    return [name for name in names if not name.startswith(LEFT_OUT)]


def baseline(state):
    """Of each suite its seconds and the faults that it comes by; kept while library and tests stay."""
    kept = WORK / "suites.pickle"
    if kept.exists():
        before, suites = pickle.loads(kept.read_bytes())
        if before == state:
            return suites

    def one(suite):
        file = WORK / "reached" / suite.replace("/", "-")
        file.unlink(missing_ok=True)
        outcome, took = run_tests([suite], 600, MUTANTS_REACHED=str(file))
        if outcome is not None:
            raise Problem(f"{suite} fails without any fault: {outcome}")
        return suite, (took, set(map(int, file.read_text().split())) if file.exists() else set())

    (WORK / "reached").mkdir(exist_ok=True)
    with ThreadPoolExecutor(JOBS) as pool:
        suites = dict(pool.map(one, suites_of_program()))
    kept.write_bytes(pickle.dumps((state, suites)))
    return suites


def groups_for(number, suites, first):
    """Suites that come by the fault: those that noticed a neighbour, quick ones together, and slow ones each."""
    reaching = sorted((seconds, suite) for suite, (seconds, reached) in suites.items() if number in reached)
    quick = [suite for seconds, suite in reaching if seconds <= QUICK]
    groups = [[first]] if first in quick else []
    return groups + ([quick] if quick else []) + [[suite] for seconds, suite in reaching if seconds > QUICK]


def attempt(number, suites, first):
    for group in groups_for(number, suites, first):
        usual = sum(suites[suite][0] for suite in group)
        outcome, _ = run_tests(group, int(3 + 2 * usual), MUTANT=str(number))
        if outcome is not None:
            return outcome
    return None


# --- Judging


def name_of(finder, path, change):
    """Stays the same while the line does."""
    text = finder.text(path)
    begin = text.rfind(b"\n", 0, change.start) + 1
    line = text[begin:text.find(b"\n", change.start)].decode().strip()
    at = text[change.start:change.end].decode()
    at = re.sub(r"\s+", " ", at)
    return f"{Path(path).relative_to(ROOT / LIBRARY)} | {line} | {at if len(at) <= 60 else at[:57] + '...'} | {change.what}"


def name_all(finder, found):
    """Names by numbers; of those that are alike the later ones are counted."""
    names, times = {}, {}
    for path, changes in found.items():
        for change in changes:
            name = name_of(finder, path, change)
            times[name] = times.get(name, 0) + 1
            names[change.number] = name if times[name] == 1 else f"{name} | {times[name]}"
    return names


def read_list():
    """Of each survivor that is known, whether it is equivalent. A reason follows in the next line, indented."""
    known = {}
    last = None
    for line in LIST.read_text().splitlines() if LIST.exists() else []:
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("    "):
            known[last] = line.strip()
        else:
            last = line.strip()
            known[last] = ""
    for name, reason in known.items():
        if not reason.startswith(("same: ", "kept: ")):
            raise Problem(f"{LIST.name}: no reason, 'same: ' or 'kept: ', for {name}")
    return known


def choose(names, known, arguments):
    numbers = sorted(n for n, name in names.items() if re.search(arguments.only, name) and not name.startswith(COMPILED_ONLY))
    if not arguments.all:
        # By their names, so that a change elsewhere in the library leaves the sample as it is.
        def place(number):
            return hashlib.sha256(f"{arguments.seed} {names[number]}".encode()).digest()

        chosen = sorted(numbers, key=place)[: arguments.sample]
        # What is listed is tried each time, so that the list stays true.
        numbers = sorted({*chosen, *(n for n in numbers if names[n] in known)})
    return numbers


def report(names, outcomes, known, complete):
    survivors = [names[n] for n, outcome in outcomes.items() if outcome is None]
    same = sum(known.get(name, "").startswith("same: ") for name in survivors)
    killed = len(outcomes) - len(survivors)
    counted = len(outcomes) - same
    print(f"{len(outcomes)} faults tried, {killed} noticed, {same} change nothing, {len(survivors) - same} not noticed: "
          f"{killed / max(counted, 1):.1%} of those that change something")
    unknown = [name for name in survivors if name not in known]
    for name in unknown:
        print(f"not listed: {name}")
    gone = set(known) - set(names.values()) if complete else set()
    for name in sorted(gone):
        print(f"listed, but there is no such fault: {name}")
    noticed = [name for name in known if name not in survivors and name in {names[n] for n in outcomes}]
    for name in noticed:
        print(f"listed, but noticed: {name}")
    return killed >= SHARE * counted and not unknown and not gone and not noticed


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--sample", type=int, default=100)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--only", default="", help="a regular expression for the faults' names")
    arguments = parser.parse_args()
    WORK.mkdir(parents=True, exist_ok=True)
    commands = compile_commands()
    others = precompile(commands)
    commands = [(source, words + others) for source, words in commands]
    finder, found = find_changes(commands)
    names = name_all(finder, found)
    state = hashlib.sha256(TARGET.read_bytes() + PROGRAM.read_bytes()).hexdigest()
    cache = WORK / "outcomes.json"
    old = json.loads(cache.read_text()) if cache.exists() else {}
    past = old.get("outcomes", {})
    current = past if old.get("state") == state else {}
    print(f"{len(names)} faults", flush=True)
    suites = baseline(state)
    known = read_list()
    numbers = choose(names, known, arguments)
    outcomes = {}

    def one(number):
        name = names[number]
        if name in current:
            return number, current[name]
        hint = (past.get(name) or "").rsplit(".", 1)[0]
        return number, attempt(number, suites, hint)

    with ThreadPoolExecutor(JOBS) as pool:
        for future in as_completed([pool.submit(one, number) for number in numbers]):
            number, outcome = future.result()
            outcomes[number] = current[names[number]] = outcome
            print(f"{len(outcomes)}/{len(numbers)} {'not noticed' if outcome is None else outcome}: {names[number]}", flush=True)
            cache.write_text(json.dumps({"state": state, "outcomes": current}))
    return 0 if report(names, outcomes, known, not arguments.only) else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Problem as problem:
        sys.exit(f"mutate: {problem}")
