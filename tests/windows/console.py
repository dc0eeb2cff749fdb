#!/usr/bin/env python3
"""console.py EMULATOR REPORTTOOL WHAT

Runs reporttool on a console, which the emulator shows on a terminal of this script's.

    shows             text beyond any code page is shown as it is, and "convert" to "-" and to CON writes there, but no bytes
    ctrl-c            Ctrl-C while a file is being replaced leaves no other file behind, and the file whole: the old or the new one
    ctrl-c-of-many    Ctrl-C while many files are checked ends that with what was done
"""

import os
import pty
import re
import sys
import tempfile
import time

NAME = "Zürich Ωμέγα 頻率"
OLD = b"old content"


def report(points):
    point = "<Coordinate><Longitude>8.500000</Longitude><Latitude>47.250000</Latitude></Coordinate>"
    return f'<ReportBase><Area Version="1.0"><Name>{NAME}</Name>{point * points}</Area></ReportBase>'


def start(folder, *arguments):
    """Starts the program in the folder, on a terminal of its own."""
    process, terminal = pty.fork()
    if process == 0:
        os.chdir(folder)
        os.execv(sys.argv[1], [sys.argv[1], sys.argv[2], *arguments])
    return process, terminal


def shown(terminal):
    """What is shown until the program has ended."""
    output = b""
    while True:
        try:
            piece = os.read(terminal, 65536)
        except OSError:
            return output.decode("utf-8")
        if not piece:
            return output.decode("utf-8")
        output += piece


def expect(condition, words):
    if not condition:
        sys.exit(words)


def test_shows(folder):
    with open(f"{folder}/in", "w", encoding="utf-8") as file:
        file.write(report(1))
    for arguments in (("show", "in"), ("convert", "in", "-", "--to", "xml"), ("convert", "in", "CON", "--to", "xml")):
        process, terminal = start(folder, *arguments)
        text = shown(terminal)
        code = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
        print(text)
        expect(code == 0, f"{arguments} ended with {code}")
        # A character of twice the width is followed by a blank or by what moves the cursor.
        text = re.sub("\x1b\\[[0-9;?]*[A-Za-z]", "", text)
        expect(NAME in text, f"{arguments} shows no {NAME}")
    for out in ("-", "CON"):
        process, terminal = start(folder, "convert", "in", out, "--to", "plain")
        text = shown(terminal)
        code = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
        expect(code == 2 and "is a terminal" in text, f"bytes for {out} ended with {code}: {text}")
    expect(os.listdir(folder) == ["in"], "CON has become a file")


def test_ctrl_c(folder):
    with open(f"{folder}/in", "w", encoding="utf-8") as file:
        file.write(report(400000))
    process, terminal = start(folder, "convert", "in", "whole", "--to", "plain")
    shown(terminal)
    os.waitpid(process, 0)
    with open(f"{folder}/whole", "rb") as file:
        whole = file.read()
    os.remove(f"{folder}/whole")

    hits = 0
    for _ in range(20):
        with open(f"{folder}/out", "wb") as file:
            file.write(OLD)
        process, terminal = start(folder, "convert", "in", "out", "--to", "plain")
        code = None
        while code is None:
            others = set(os.listdir(folder)) - {"in", "out"}
            if others:
                os.write(terminal, b"\x03")
                hits += 1
                shown(terminal)
                code = os.waitpid(process, 0)[1]
                break
            ended, status = os.waitpid(process, os.WNOHANG)
            code = status if ended else None
            time.sleep(0.0005)
        os.close(terminal)
        left = set(os.listdir(folder)) - {"in", "out"}
        expect(not left, f"left behind: {left}")
        with open(f"{folder}/out", "rb") as file:
            content = file.read()
        expect(content in (OLD, whole), f"out is neither the old nor the new one, but has {len(content)} bytes")
        if hits == 3:
            print(f"ended with {os.waitstatus_to_exitcode(code)}, out has {len(content)} bytes")
            return
    sys.exit("no file was seen while it was being replaced")


def test_ctrl_c_of_many(folder):
    # What is told of each file keeps the console busy for long.
    count = 100000
    with open(f"{folder}/empty", "wb"):
        pass
    with open(f"{folder}/list", "w", encoding="utf-8") as file:
        file.write("empty\n" * count)
    process, terminal = start(folder, "check", "--files-from", "list")
    text = b""
    while b"UnknownForm" not in text:
        text += os.read(terminal, 65536)
    os.write(terminal, b"\x03")
    text = re.sub("\x1b\\[[0-9;?]*[A-Za-z]", "", shown(terminal))
    code = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
    expect(code == 2, f"ended with {code}")
    told = re.search("reporttool: interrupted after ([0-9]+) of 100000 files", text)
    expect(told, f"tells of no interruption: {text[-400:]}")
    print(told.group(0))
    expect(0 < int(told.group(1)) < count, "was not interrupted")


with tempfile.TemporaryDirectory() as scratch:
    {"shows": test_shows, "ctrl-c": test_ctrl_c, "ctrl-c-of-many": test_ctrl_c_of_many}[sys.argv[3]](scratch)
