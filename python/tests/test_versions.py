"""Files that another version of a class has written."""

from __future__ import annotations

import gc
import logging
import threading
import weakref
from collections.abc import Callable
from pathlib import Path
from xml.etree import ElementTree

import pytest

import reportgenerator as rg


class OldReport(rg.CustomObject):
    """A report as it was: one number in megahertz."""

    object_name = "ReportBase"

    def __init__(self) -> None:
        self.megahertz: float | None = None
        self.on_read: Callable[[], object] = lambda: None

    def reset(self) -> None:
        self.megahertz = None

    def read_element(self, element: ElementTree.Element) -> None:
        self.on_read()
        text = element.findtext("MHz")
        if text is None:
            raise rg.ReportError("there is no MHz")
        self.megahertz = float(text)

    def has_data(self) -> bool:
        return self.megahertz is not None


class Converter(rg.IXmlConverter):
    def __init__(self) -> None:
        self.on_upgrade: Callable[[], object] = lambda: None

    def upgrade(self, source: object, target: object) -> bool:
        self.on_upgrade()
        assert isinstance(source, OldReport) and isinstance(target, rg.ReportBase)
        assert source.megahertz is not None
        target.frequency = rg.Frequency(value=source.megahertz * 1e6)
        return True

    def downgrade(self, source: object, target: object) -> bool:
        assert isinstance(source, rg.ReportBase) and isinstance(target, OldReport)
        assert source.frequency is not None and source.frequency.value is not None
        target.megahertz = source.frequency.value / 1e6
        return True


OLD = '<ReportBase Version="0.9"><MHz>121.5</MHz></ReportBase>'
NEW = '<ReportBase Version="1.0"><Frequency>98000000.00</Frequency></ReportBase>'


class Setting:
    """Both versions, registered, and a file of the old one."""

    def __init__(self, folder: Path) -> None:
        self.converter = Converter()
        self.proxy = rg.VersionConverterProxy(self.converter)
        self.old = OldReport()
        self.report = rg.ReportBase()
        self.proxy.register_root_class("ReportBase", "0.9", self.old)
        self.proxy.register_root_class("ReportBase", "1.0", self.report)
        self.path = folder / "old.xml"
        self.path.write_text(OLD, encoding="utf-8")


@pytest.fixture
def setting(tmp_path: Path) -> Setting:
    return Setting(tmp_path)


def test_a_file_of_an_older_version(setting: Setting) -> None:
    assert setting.proxy.can_use_proxy(setting.path, setting.report)
    assert setting.proxy.load(setting.path, setting.report)
    assert setting.report == rg.ReportBase(frequency=rg.Frequency(value=121_500_000.0))


def test_a_file_of_a_newer_version(setting: Setting) -> None:
    setting.path.write_text(NEW, encoding="utf-8")
    assert setting.proxy.load(setting.path, setting.old)
    assert setting.old.megahertz == 98.0


def test_a_file_of_its_own_version_is_read_as_ever(setting: Setting) -> None:
    setting.proxy.inject_xml_converter(None)
    setting.path.write_text(NEW, encoding="utf-8")
    assert not setting.proxy.can_use_proxy(setting.path, setting.report)
    assert setting.proxy.load(setting.path, setting.report)
    assert setting.report == rg.ReportBase(frequency=rg.Frequency(value=98_000_000.0))


def test_an_object_that_is_not_registered_is_no_reader_of_the_file(setting: Setting) -> None:
    other = rg.ReportBase(frequency=rg.Frequency(value=1.0))
    assert setting.proxy.can_use_proxy(setting.path, other)
    assert setting.proxy.load(setting.path, other)
    assert other == rg.ReportBase()
    assert setting.report == rg.ReportBase(frequency=rg.Frequency(value=121_500_000.0))


@pytest.mark.parametrize(
    "text", ["<Other/>", '<ReportBase Version="3"><MHz>1</MHz></ReportBase>', "<ReportBase/>"]
)
def test_a_file_that_no_object_is_registered_for(setting: Setting, text: str) -> None:
    setting.path.write_text(text, encoding="utf-8")
    assert not setting.proxy.can_use_proxy(setting.path, setting.report)
    setting.proxy.inject_xml_converter(None)
    assert not setting.proxy.load_xml(setting.path)
    assert setting.proxy.load(setting.path, setting.report) == text.startswith("<ReportBase")


def test_nothing_is_converted_without_a_converter(setting: Setting) -> None:
    setting.proxy.inject_xml_converter(None)
    assert not setting.proxy.load_xml(setting.path)
    assert setting.old.megahertz == 121.5
    assert setting.report == rg.ReportBase()


def test_a_converter_of_its_own_words_refuses(setting: Setting) -> None:
    setting.proxy.inject_xml_converter(rg.IXmlConverter())
    assert not setting.proxy.load_xml(setting.path)


def test_one_version_alone_is_not_converted(tmp_path: Path) -> None:
    path = tmp_path / "old.xml"
    path.write_text(OLD, encoding="utf-8")
    proxy = rg.VersionConverterProxy(Converter())
    assert not proxy.load_xml(path)
    old = OldReport()
    proxy.register_root_class("ReportBase", "0.9", old)
    assert not proxy.load_xml(path)
    assert old.megahertz == 121.5


def test_equal_numbers_of_versions_are_not_converted(setting: Setting) -> None:
    proxy = rg.VersionConverterProxy(setting.converter)
    proxy.register_root_class("ReportBase", "0.9", setting.old)
    proxy.register_root_class("ReportBase", "0.90", setting.report)
    assert not proxy.load_xml(setting.path)


def test_the_first_registration_of_a_pair_counts(setting: Setting) -> None:
    setting.proxy.register_root_class("ReportBase", "0.9", rg.ReportBase())
    assert setting.proxy.registered_root_class("ReportBase", "0.9") is setting.old
    assert setting.proxy.registered_root_class("ReportBase", "1.0") is setting.report
    assert setting.proxy.registered_root_class("ReportBase", "1") is None
    assert setting.proxy.registered_root_class("Task", "1.0") is None
    with pytest.raises(TypeError, match="an object is wanted"):
        setting.proxy.register_root_class("Task", "1.0", None)  # type: ignore[arg-type]


# --- What goes wrong


def test_files_that_cannot_be_read(setting: Setting, tmp_path: Path) -> None:
    for use in (
        setting.proxy.load_xml,
        lambda path: setting.proxy.can_use_proxy(path, setting.report),
        lambda path: setting.proxy.load(path, setting.report),
    ):
        with pytest.raises(FileNotFoundError):
            use(tmp_path / "none.xml")
        with pytest.raises(IsADirectoryError):
            use(tmp_path)


def test_malformed_xml(setting: Setting) -> None:
    setting.path.write_text("<ReportBase", encoding="utf-8")
    with pytest.raises(rg.ReportError):
        setting.proxy.can_use_proxy(setting.path, setting.report)
    with pytest.raises(rg.ReportError):
        setting.proxy.load(setting.path, setting.report)
    assert not setting.proxy.load_xml(setting.path)


def test_an_object_that_refuses_the_file(
    setting: Setting, caplog: pytest.LogCaptureFixture
) -> None:
    setting.path.write_text('<ReportBase Version="0.9"/>', encoding="utf-8")
    assert not setting.proxy.load_xml(setting.path)
    assert ("reportgenerator", logging.WARNING, "ReportBase of 'old.xml': there is no MHz") in (
        caplog.record_tuples
    )


@pytest.mark.parametrize("error", [rg.ReportError("no"), ZeroDivisionError("no")])
def test_what_a_converter_raises_passes_out(setting: Setting, error: Exception) -> None:
    def fail() -> None:
        raise error

    setting.converter.on_upgrade = fail
    with pytest.raises(type(error), match="^no$"):
        setting.proxy.load(setting.path, setting.report)
    setting.converter.on_upgrade = lambda: None
    assert setting.proxy.load(setting.path, setting.report)


def test_what_an_object_raises_passes_out(setting: Setting) -> None:
    setting.old.on_read = lambda: 1 / 0
    with pytest.raises(ZeroDivisionError):
        setting.proxy.load(setting.path, setting.report)
    setting.old.on_read = lambda: None
    assert setting.proxy.load(setting.path, setting.report)


def test_an_object_asks_the_proxy_while_it_loads_a_file_for_it(setting: Setting) -> None:
    answers: list[bool] = []
    setting.old.on_read = lambda: answers.append(
        setting.proxy.can_use_proxy(setting.path, setting.old)
    )
    assert setting.proxy.load(setting.path, setting.report)
    assert answers == [False]


def test_a_converter_that_puts_another_one_in_its_place(setting: Setting) -> None:
    gone = weakref.ref(setting.converter)
    setting.converter.on_upgrade = lambda: setting.proxy.inject_xml_converter(None)
    del setting.converter
    assert setting.proxy.load(setting.path, setting.report)
    gc.collect()
    assert gone() is None
    assert not setting.proxy.load(setting.path, setting.report)


# --- Lifetime and threads


def test_registered_objects_live_as_long_as_the_proxy(setting: Setting) -> None:
    gone = weakref.ref(setting.old)
    del setting.old
    gc.collect()
    assert setting.proxy.load(setting.path, setting.report)
    del setting.proxy
    gc.collect()
    assert gone() is None


def test_a_circle_is_collected(setting: Setting) -> None:
    setting.old.on_read = setting.proxy.inject_xml_converter  # type: ignore[assignment]
    gone = weakref.ref(setting.proxy)
    del setting.proxy, setting.old
    gc.collect()
    assert gone() is None


def test_several_threads(setting: Setting) -> None:
    wrong: list[object] = []

    def work() -> None:
        for _ in range(100):
            try:
                if not setting.proxy.load(setting.path, setting.report):
                    wrong.append(False)
            except BaseException as error:  # noqa: BLE001 - looked at below
                wrong.append(error)

    threads = [threading.Thread(target=work) for _ in range(3)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert wrong == []
    assert setting.report == rg.ReportBase(frequency=rg.Frequency(value=121_500_000.0))
