"""Objects that several threads use: correct results or errors, and nothing else."""

from __future__ import annotations

import sys
import threading
import time
from collections.abc import Callable, Iterator

import numpy as np
import pytest

import reportgenerator as rg


@pytest.fixture(autouse=True)
def often_switching() -> Iterator[None]:
    before = sys.getswitchinterval()
    sys.setswitchinterval(1e-6)
    yield
    sys.setswitchinterval(before)


def together(*works: Callable[[], None], seconds: float = 0.5) -> None:
    """Runs each again and again in a thread of its own; what one throws is thrown here."""
    stop = time.monotonic() + seconds
    thrown: list[Exception] = []

    def run(work: Callable[[], None]) -> None:
        try:
            while time.monotonic() < stop and not thrown:
                work()
        except Exception as error:  # noqa: BLE001 - thrown again
            thrown.append(error)

    threads = [threading.Thread(target=run, args=(work,)) for work in works]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if thrown:
        raise thrown[0]


def test_a_report_that_changes_is_written_as_it_was_at_one_moment() -> None:
    small = np.zeros((3, 2))
    large = np.ones((500, 2))
    report = rg.ReportBase(area=rg.Area(name="a", coordinates=small))

    def change() -> None:
        area = report.area
        assert area is not None
        area.coordinates = small
        area.coordinates = large

    def write(form: str) -> Callable[[], None]:
        def work() -> None:
            area = rg.ReportBase.from_bytes(report.to_bytes(form)).area  # type: ignore[arg-type]
            assert area is not None and area.coordinates is not None
            expected = small if len(area.coordinates) == 3 else large
            assert np.array_equal(area.coordinates, expected)

        return work

    def look() -> None:
        area = report.area
        assert area is not None and area.coordinates is not None
        assert len(area.coordinates) in (3, 500)
        assert report.check() == []

    together(change, change, write("xml"), write("compressed"), look)


def test_parts_that_come_and_go() -> None:
    report = rg.ReportBase()

    def come() -> None:
        report.area = rg.Area(name="a", coordinates=[[1.0, 2.0]])

    def go() -> None:
        del report.area

    def reset() -> None:
        report.reset()

    def parse() -> None:
        try:
            report.parse_xml("<ReportBase><Frequency>1.00</Frequency></ReportBase>")
        except RuntimeError:
            pass  # somebody else was faster

    def use() -> None:
        area = report.area
        if area is None:
            return
        try:
            assert area.name == "a"
            area.append(rg.Coordinate(longitude=1.0, latitude=2.0))
            repr(area)
            area.to_bytes()
        except (ReferenceError, AssertionError) as error:
            if isinstance(error, AssertionError) and area.name not in (None, "a"):
                raise
        except rg.ReportError:
            pass  # a new one without coordinates

    together(come, go, reset, parse, use, use)


def test_what_another_thread_changes_meanwhile_is_not_overwritten() -> None:
    points = np.random.default_rng(1).uniform(-80, 80, (20_000, 2))
    other = rg.ReportBase(area=rg.Area(name="a", coordinates=points))
    report = rg.ReportBase(frequency=rg.Frequency(value=1.0))
    outcomes = []
    begun = threading.Event()

    def merge() -> None:
        begun.set()
        try:
            outcomes.append(report.merge(other))
        except RuntimeError as error:
            outcomes.append(str(error))

    thread = threading.Thread(target=merge)
    thread.start()
    begun.wait()
    while thread.is_alive():
        report.frequency = rg.Frequency(value=2.0)
    thread.join()
    assert report.frequency is not None and report.frequency.value == 2.0
    assert outcomes in ([True], ["another thread has changed the object meanwhile"])
    assert (report.area is not None) == (outcomes == [True])


def test_reading_one_file_s_bytes_in_many_threads() -> None:
    report = rg.ReportBase(area=rg.Area(name="a", coordinates=np.zeros((100, 2))))
    data = {form: report.to_bytes(form) for form in ("xml", "plain", "compressed")}  # type: ignore[arg-type]

    def read(form: str) -> Callable[[], None]:
        return lambda: check(rg.ReportBase.from_bytes(data[form]))

    def check(read: rg.ReportBase) -> None:
        assert read == report

    together(read("xml"), read("plain"), read("compressed"), lambda: check(report.copy()))


def test_what_takes_time_lets_other_threads_run() -> None:
    points = np.random.default_rng(1).uniform(-80, 80, (20_000, 2))
    report = rg.ReportBase(area=rg.Area(name="a", coordinates=points))
    # A thread that holds the lock isn't asked for it.
    sys.setswitchinterval(3600.0)
    turns = []
    done = threading.Event()

    def count() -> None:
        while not done.is_set():
            turns.append(time.monotonic())
            time.sleep(0.0005)

    thread = threading.Thread(target=count)
    thread.start()
    data = report.to_bytes("xml")
    try:
        for work in (
            lambda: report.to_bytes("compressed", level=9),
            lambda: report.to_xml(),
            lambda: rg.ReportBase.from_bytes(data),
            lambda: rg.check(data),
            lambda: report.check(),
        ):
            # On a busy machine the other thread may get its turn late.
            end = time.monotonic() + 60.0
            has_run = False
            while not has_run and time.monotonic() < end:
                del turns[:]
                work()
                has_run = bool(turns)
            assert has_run
    finally:
        done.set()
        thread.join()
