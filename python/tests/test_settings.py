"""Settings that come as XML, and who takes them."""

from __future__ import annotations

import copy
import functools
import gc
import logging
import threading
import weakref
from collections.abc import Callable
from xml.etree import ElementTree

import pytest

import reportgenerator as rg

BOTH = "<IFBandwidth>3000.00</IFBandwidth><Frequency>2000.00</Frequency>"


class Display(rg.CustomObject):
    """Settings of a program's own: how bright it is."""

    object_name = "Display"

    def __init__(self, id: int = 7) -> None:
        self.id = id
        self.brightness: float | None = None
        self.resets = 0
        self.on_read: Callable[[], object] = lambda: None

    @property
    def object_id(self) -> int:
        return self.id

    def reset(self) -> None:
        self.brightness = None
        self.resets += 1

    def read_element(self, element: ElementTree.Element) -> None:
        self.on_read()
        self.brightness = float(element.findtext("Brightness", "nan"))

    def has_data(self) -> bool:
        return self.brightness is not None


SETTINGS = "<Display><Brightness>0.5</Brightness></Display>"


def notifier_of(*interfaces: rg.IRGObject | rg.CustomObject) -> rg.SettingsNotifier:
    notifier = rg.SettingsNotifier()
    for interface in interfaces:
        notifier.notify_on_changed(interface)
    return notifier


# --- Centers


def test_a_center_without_an_object() -> None:
    center = rg.RegisterCenter()
    assert (center.interface, center.interface_id, center.object_name) == (None, -1, "")
    with pytest.raises(ValueError, match="without an object"):
        rg.SettingsNotifier().notify_on_changed(center)


def test_a_center_is_known_by_its_object() -> None:
    bandwidth = rg.IFBandwidth()
    center = rg.RegisterCenter(bandwidth, rg.ObjectType.AnyType)
    assert center.interface is bandwidth
    assert (center.interface_id, center.object_name) == (bandwidth.object_id, "IFBandwidth")
    assert copy.copy(center).interface is bandwidth


def test_an_object_of_no_known_kind_has_no_type() -> None:
    class Unknown(Display):
        object_type = 9999  # type: ignore[assignment]

    center = rg.RegisterCenter(Display())
    held = center.interface
    with pytest.raises(rg.InterfaceNotSupportedError) as refused:
        center.register_interface(Unknown(), rg.ObjectType.AnyType)
    assert refused.value.text == (
        "RegisterCenter:: While trying to register an interface that isn't defined"
    )
    assert center.interface is held
    center.register_interface(Unknown())
    assert isinstance(center.interface, Unknown)


def test_what_is_no_object_is_not_registered() -> None:
    with pytest.raises(TypeError, match="an object is wanted"):
        rg.RegisterCenter("Frequency")  # type: ignore[arg-type]


# --- Who takes settings


def test_each_object_takes_what_is_its_own() -> None:
    frequency, bandwidth, display = rg.Frequency(), rg.IFBandwidth(), Display()
    notifier = notifier_of(bandwidth, frequency, display)
    heard: list[object] = []
    notifier.connect(heard.append)
    notifier.set_settings(BOTH)
    assert frequency == rg.Frequency(value=2000.0)
    assert bandwidth == rg.IFBandwidth(value=3000.0)
    assert heard == [frequency, bandwidth] and heard[0] is frequency and heard[1] is bandwidth
    assert not display.has_data() and display.resets == 1


def test_what_is_not_in_the_settings_is_reset() -> None:
    frequency, display = rg.Frequency(value=1.0), Display()
    notifier = notifier_of(frequency, display)
    notifier.set_settings(SETTINGS)
    assert not frequency.has_data() and display.brightness == 0.5


def test_an_element_of_a_programs_own_comes_whole() -> None:
    read: list[str] = []

    class Nested(Display):
        def read_element(self, element: ElementTree.Element) -> None:
            read.append(ElementTree.tostring(element, encoding="unicode"))

    text = '<Display a="&lt;1"><!-- no --><b>x &amp; <i/>y</b><![CDATA[<c>]]></Display>'
    notifier_of(Nested()).set_settings(text)
    assert read == ['<Display a="&lt;1"><b>x &amp; <i />y</b>&lt;c&gt;</Display>']


def test_who_takes_something_without_data_is_not_told_of() -> None:
    class Silent(Display):
        def has_data(self) -> bool:
            return False

    notifier = notifier_of(Silent())
    heard: list[object] = []
    notifier.connect(heard.append)
    notifier.set_settings(SETTINGS)
    assert heard == []


@pytest.mark.parametrize("text", ["", "Display", "<Other/>", "<?xml version='1.0'?>" + SETTINGS])
def test_settings_that_nobody_takes(text: str) -> None:
    display = Display()
    with pytest.raises(rg.InvalidXmlError, match="^Invalid XML-Fragment!$"):
        notifier_of(display).set_settings(text)
    assert display.resets >= 1


def test_the_root_is_asked_for_on_demand() -> None:
    display = Display()
    notifier = notifier_of(display)
    notifier.set_settings(f"<All>{SETTINGS}</All>")
    assert display.brightness == 0.5
    with pytest.raises(rg.InvalidXmlError):
        notifier.set_settings(f"<All>{SETTINGS}</All>", check_root=True)
    notifier.set_settings(SETTINGS, check_root=True)


def test_settings_are_a_text() -> None:
    with pytest.raises(TypeError):
        notifier_of(Display()).set_settings(b"<Display/>")  # type: ignore[arg-type]


def test_an_id_is_taken_once() -> None:
    notifier = notifier_of(rg.Frequency())
    with pytest.raises(rg.InterfaceAlreadyRegisteredError) as refused:
        notifier.notify_on_changed(rg.Frequency())
    assert refused.value.text == "Interface Frequency already registered in SettingsNotifier"
    center = notifier.notify_on_changed(Display(8))
    assert notifier.get_center(8) is center
    assert notifier.get_center(9) is None
    notifier.unregister(8)
    notifier.unregister(8)
    assert notifier.get_center(8) is None
    assert notifier.notify_on_changed(center) is center


def test_a_class_derived_in_python_has_an_id_of_its_own() -> None:
    class Second(rg.Frequency):
        object_id = 12  # type: ignore[assignment]

    first, second = rg.Frequency(), Second()
    notifier_of(first, second).set_settings("<Frequency>5.00</Frequency>")
    assert first.value == second.value == 5.0


def test_an_id_that_is_no_number_of_64_bits() -> None:
    with pytest.raises((RuntimeError, OverflowError)):
        notifier_of(Display(1 << 70))


# --- What goes wrong


def test_an_object_that_refuses_its_settings_is_passed_over(
    caplog: pytest.LogCaptureFixture,
) -> None:
    display, frequency = Display(), rg.Frequency()

    def refuse() -> None:
        raise rg.ReportError("too bright")

    display.on_read = refuse
    text = SETTINGS + "<Frequency>1.00</Frequency>"
    notifier_of(display, frequency).set_settings(text)
    assert frequency.value == 1.0
    assert caplog.record_tuples == [
        ("reportgenerator", logging.WARNING, "SettingsNotifier::SetSettings: too bright")
    ]


def test_an_object_of_the_library_that_refuses_its_settings(
    caplog: pytest.LogCaptureFixture,
) -> None:
    ellipse, display = rg.Ellipse(min_radius=3.0), Display()
    notifier_of(ellipse, display).set_settings("<Ellipse><Odd/></Ellipse>" + SETTINGS)
    assert not ellipse.has_data() and display.brightness == 0.5
    assert [record.message for record in caplog.records] == [
        "SettingsNotifier::SetSettings: Unknown Tag 'Odd' in 'Ellipse'."
    ]


def test_any_other_exception_passes_out() -> None:
    display = Display()
    display.on_read = lambda: {}["brightness"]  # type: ignore[index]
    notifier = notifier_of(display)
    with pytest.raises(KeyError, match="brightness"):
        notifier.set_settings(SETTINGS)
    display.on_read = lambda: None
    notifier.set_settings(SETTINGS)
    assert display.brightness == 0.5


def test_a_part_that_its_holder_has_lost() -> None:
    report = rg.ReportBase(frequency=rg.Frequency(value=1.0))
    assert report.frequency is not None
    notifier = notifier_of(report.frequency)
    notifier.set_settings("<Frequency>2.00</Frequency>")
    assert report.frequency.value == 2.0
    del report.frequency
    with pytest.raises(ReferenceError):
        notifier.set_settings("<Frequency>3.00</Frequency>")


def test_what_callbacks_raise_is_raised_when_all_is_done(caplog: pytest.LogCaptureFixture) -> None:
    frequency, bandwidth = rg.Frequency(), rg.IFBandwidth()
    notifier = notifier_of(frequency, bandwidth)
    heard: list[object] = []

    def fail(interface: object) -> None:
        heard.append(interface)
        raise ZeroDivisionError(str(len(heard)))

    notifier.connect(fail)
    notifier.connect(heard.append)
    with pytest.raises(ZeroDivisionError, match="^1$"):
        notifier.set_settings(BOTH)
    assert heard == [frequency, frequency, bandwidth, bandwidth]
    assert [record.levelno for record in caplog.records] == [logging.ERROR]
    assert caplog.records[0].exc_info and str(caplog.records[0].exc_info[1]) == "3"


# --- Connections and lifetime


def test_connections_end() -> None:
    notifier = notifier_of(Display())
    heard: list[str] = []
    first = notifier.connect(lambda _: heard.append("first"))
    with notifier.connect(lambda _: heard.append("second")):
        notifier.set_settings(SETTINGS)
    first.disconnect()
    first.disconnect()
    notifier.set_settings(SETTINGS)
    assert heard == ["first", "second"]


def test_a_callback_may_do_anything_with_the_notifier() -> None:
    frequency, bandwidth = rg.Frequency(), rg.IFBandwidth()
    notifier = notifier_of(frequency, bandwidth)
    heard: list[object] = []

    def change(interface: object) -> None:
        heard.append(interface)
        if interface is not frequency:
            notifier.unregister(7)
            return
        last.disconnect()
        notifier.unregister(frequency.object_id)
        notifier.unregister(bandwidth.object_id)
        notifier.notify_on_changed(Display())
        notifier.set_settings(SETTINGS)

    notifier.connect(change)
    last = notifier.connect(heard.append)
    notifier.set_settings(BOTH)
    assert heard[0] is frequency and isinstance(heard[1], Display) and len(heard) == 2
    assert not bandwidth.has_data()


def test_an_object_that_unregisters_itself_while_it_is_served() -> None:
    display = Display()
    notifier = notifier_of(display)
    display.on_read = lambda: notifier.unregister(7)
    gone = weakref.ref(display)
    del display
    notifier.set_settings(SETTINGS)
    gc.collect()
    assert gone() is None


def test_a_registered_object_lives_as_long_as_its_notifier() -> None:
    display = Display()
    gone = weakref.ref(display)
    notifier = notifier_of(display)
    heard: list[float | None] = []
    notifier.connect(lambda interface: heard.append(interface.brightness))  # type: ignore[union-attr]
    del display
    gc.collect()
    notifier.set_settings(SETTINGS)
    assert heard == [0.5]
    del notifier
    gc.collect()
    assert gone() is None


def test_what_refers_to_each_other_in_a_circle_is_collected() -> None:
    display = Display()
    notifier = notifier_of(display)
    display.on_read = functools.partial(notifier.get_center, 7)
    notifier.connect(notifier.connect)
    gone = weakref.ref(notifier)
    del notifier, display
    gc.collect()
    assert gone() is None


def test_several_threads() -> None:
    frequency = rg.Frequency()
    notifier = notifier_of(frequency, Display())
    notifier.connect(lambda _: None)
    raised: list[BaseException] = []

    def work(number: int) -> None:
        try:
            for i in range(200):
                if number:
                    notifier.set_settings(f"<Frequency>{i}.00</Frequency>")
                else:
                    notifier.notify_on_changed(Display(100 + i))
                    notifier.unregister(99 + i)
        except BaseException as error:  # noqa: BLE001 - looked at below
            raised.append(error)

    threads = [threading.Thread(target=work, args=(number,)) for number in range(3)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert raised == [] and frequency.value == 199.0


def test_an_object_of_a_program_s_own_has_to_be_whole() -> None:
    class Half(rg.CustomObject):
        object_name = "Half"

    with pytest.raises(TypeError, match="abstract"):
        Half()  # type: ignore[abstract]
    assert Display.object_type is rg.ObjectType.AnyType
    assert rg.CustomObject.object_id.fget(Display()) == 80  # type: ignore[attr-defined]


def test_both_bounds_at_once() -> None:
    information = rg.FrequencyInformation(frequency=100.0, frequency_min=90.0)
    assert information.frequency_min_max == rg.MinMax(90.0, None)
    information.frequency_min_max = rg.MinMax(80.0, 120.0)
    assert (information.frequency_min, information.frequency_max) == (80.0, 120.0)
    low, high = information.frequency_min_max or (0.0, 0.0)
    assert (low, high) == (80.0, 120.0)
    information.frequency_min_max = (None, 3)
    assert information.frequency_min_max == (None, 3.0)
    with pytest.raises(ValueError, match="two bounds"):
        information.frequency_min_max = (1.0,)
    with pytest.raises(TypeError):
        information.frequency_min_max = ("a", 1.0)  # type: ignore[assignment]
    assert rg.MinMax() == (0.0, 0.0)
    del information.frequency_min_max
    assert (information.frequency_min, information.frequency_max) == (None, None)
    assert information.frequency_min_max is None
