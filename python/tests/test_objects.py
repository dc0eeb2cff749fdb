"""Objects as Python has them: properties, comparing, copying, restoring."""

from __future__ import annotations

import copy
import pickle
from collections.abc import Callable

import numpy as np
import pytest

import reportgenerator as rg


def some_objects() -> list[rg.IRGObject]:
    """One of each class, with all that can be set."""
    band = rg.FrequencyRangeOld(start_frequency=87.5e6, stop_frequency=108e6)
    return [
        rg.Coordinate(longitude=9.123456789, latitude=-47.5),
        rg.Area(name="Bodensee-Ufer", coordinates=[[9.5, 47.5], [9.6, 47.625]], script_id="lake"),
        rg.Frequency(value=121_500_000.125, min=1.0, max=2.0, use=False),
        rg.IFBandwidth(value=8333.333, min=1.0, max=2.0),
        rg.ReportBase(
            frequency=rg.Frequency(value=1.0),
            if_bandwidth=rg.IFBandwidth(value=2.0),
            area=rg.Area(name="", coordinates=[[0.0, 0.0]]),
        ),
        rg.Double(value=0.25, minimum=0.0, maximum=1.0, default=0.5, unit="s", name="DwellTime"),
        rg.ValueMinMax(name="Level", value=1.0, min=0.5, max=2.0),
        band,
        rg.FrequencyInformation(frequency_range=band),
        rg.FrequencyListValue(frequency=121.5e6, frequency_min=1.0, frequency_max=2.0),
        rg.Ellipse(min_radius=100.0, max_radius=250.5, rotation=30.0),
        rg.ChannelSpacing(visual="8.33", same_distance=True, values=[8333.33, 25000.0]),
        rg.ScanParameter(frequency_range=band, step_frequency=25e3, dwell_time=1.0, hold_time=2.0),
        rg.MeasurementTime(
            measurement_mode=rg.MeasurementMode.Periodic,
            measurement_time=rg.Double(value=2.5, unit="s", name="MeasurementTime"),
        ),
    ]


EVERY_OBJECT = pytest.mark.parametrize("one", some_objects(), ids=lambda one: type(one).__name__)


def properties_of(cls: type) -> list[str]:
    base = set(dir(rg.IRGObject))
    return [n for n, v in vars(cls).items() if isinstance(v, property) and n not in base]


def is_same(left: object, right: object) -> bool:
    if isinstance(left, np.ndarray) or isinstance(right, np.ndarray):
        return np.array_equal(left, right, equal_nan=True)  # type: ignore[arg-type]
    return left == right


def test_every_class_of_the_package_is_among_these() -> None:
    classes = {
        value
        for value in vars(rg).values()
        if isinstance(value, type) and issubclass(value, rg.IRGObject) and value is not rg.IRGObject
    }
    assert {type(one) for one in some_objects()} == classes


@EVERY_OBJECT
def test_nothing_is_set_in_a_new_object(one: rg.IRGObject) -> None:
    new = type(one)()
    always = {
        "name": "AnyType",
        "default_invalid_value": -111111.11,
    }
    for name in properties_of(type(one)):
        value = getattr(new, name)
        if isinstance(value, rg.IRGObject):
            assert not value.any_data(), name  # type: ignore[attr-defined]
        elif isinstance(one, rg.Double) and name in always:
            assert value == always[name]
        else:
            assert value is None, name


@EVERY_OBJECT
def test_what_is_set_is_unset_by_none_and_by_del(one: rg.IRGObject) -> None:
    fixed = {
        ("Double", "name"),
        ("Double", "default_invalid_value"),
        ("ChannelSpacing", "same_distance"),
    }
    fixed.add(("MeasurementTime", "measurement_mode"))  # the library has no way to unset it alone
    for name in properties_of(type(one)):
        if vars(type(one))[name].fset is None or (type(one).__name__, name) in fixed:
            continue
        for unset in (lambda o, n: setattr(o, n, None), delattr):
            changed = copy.copy(one)
            unset(changed, name)
            left = getattr(changed, name)
            assert left is None or not left.any_data(), name


@EVERY_OBJECT
def test_copies_are_equal_and_independent(one: rg.IRGObject) -> None:
    for copied in (copy.copy(one), copy.deepcopy(one), one.copy()):  # type: ignore[attr-defined]
        assert type(copied) is type(one)
        assert copied == one and copied == one
        copied.reset()
        assert not copied.any_data()
        assert one.any_data()  # type: ignore[attr-defined]


@EVERY_OBJECT
@pytest.mark.parametrize("protocol", range(2, pickle.HIGHEST_PROTOCOL + 1))
def test_pickling_keeps_everything(one: rg.IRGObject, protocol: int) -> None:
    one.validate = protocol % 2 == 0
    restored = pickle.loads(pickle.dumps(one, protocol))
    assert restored == one
    assert restored.validate == one.validate
    for name in properties_of(type(one)):
        if name != "initial_version_loaded":
            assert is_same(getattr(restored, name), getattr(one, name)), name
    one.validate = True


@EVERY_OBJECT
def test_an_empty_one_is_pickled_too(one: rg.IRGObject) -> None:
    new = type(one)(validate=False)
    restored = pickle.loads(pickle.dumps(new))
    assert repr(restored) == repr(new)


@EVERY_OBJECT
def test_the_representation_names_what_is_set(one: rg.IRGObject) -> None:
    assert eval(repr(one), dict(vars(rg))) == one


@EVERY_OBJECT
def test_objects_are_not_hashable_and_differ_from_others(one: rg.IRGObject) -> None:
    with pytest.raises(TypeError):
        hash(one)
    assert one != "text"
    assert one != object()


@EVERY_OBJECT
def test_a_name_that_is_no_property_is_a_type_error(one: rg.IRGObject) -> None:
    with pytest.raises(TypeError, match="no property 'wrong'"):
        type(one)(wrong=1)  # type: ignore[call-arg]


@EVERY_OBJECT
def test_every_property_has_words(one: rg.IRGObject) -> None:
    assert type(one).__doc__
    for name in properties_of(type(one)):
        text = vars(type(one))[name].__doc__
        assert text and len(text) > 20, name
        assert "RGException" not in text


def test_units_and_ranges_stand_in_the_words() -> None:
    assert "In Hz." in str(rg.Frequency.value.__doc__)
    assert "Within [-180, 180]." in str(rg.Coordinate.longitude.__doc__)
    assert "Degrees north" in str(rg.Coordinate.latitude.__doc__)
    assert "Must be set." in str(rg.Area.name.__doc__)


def test_a_part_is_changed_in_its_holder() -> None:
    report = rg.ReportBase(area=rg.Area(name="Lake"))
    area = report.area
    assert area is not None
    area.name = "River"
    assert report.area == rg.Area(name="River")


def test_a_part_sees_what_takes_its_place() -> None:
    report = rg.ReportBase(area=rg.Area(name="Lake"))
    area = report.area
    assert area is not None
    report.area = rg.Area(name="River")
    assert area.name == "River"
    report.parse_xml(
        "<ReportBase><Area Version='1.0'><Name>Sea</Name><Coordinate><Longitude>1</Longitude>"
        "<Latitude>2</Latitude></Coordinate></Area></ReportBase>"
    )
    assert area.name == "Sea"


@pytest.mark.parametrize("remove", ["del", "reset", "parse"])
def test_a_part_whose_holder_lost_it_is_an_error(remove: str) -> None:
    report = rg.ReportBase(area=rg.Area(name="Lake"))
    area = report.area
    assert area is not None
    if remove == "del":
        del report.area
    elif remove == "reset":
        report.reset()
    else:
        report.parse_xml("<ReportBase/>")
    for use in (
        lambda: area.name,
        lambda: area.to_xml(),
        lambda: repr(area),
        lambda: area == rg.Area(),
        lambda: area.copy(),
        lambda: pickle.dumps(area),
        lambda: setattr(area, "name", "x"),
    ):
        with pytest.raises(ReferenceError):
            use()


def test_a_part_keeps_its_holder_alive() -> None:
    area = rg.ReportBase(area=rg.Area(name="Lake")).area
    assert area is not None and area.name == "Lake"


def test_what_is_assigned_is_copied() -> None:
    area = rg.Area(name="Lake")
    report = rg.ReportBase(area=area)
    area.name = "River"
    assert report.area is not None and report.area.name == "Lake"
    report.area = report.area
    assert report.area.name == "Lake"


def test_a_part_of_a_part() -> None:
    time = rg.MeasurementTime()
    time.measurement_time.value = 2.5
    assert time.measurement_time_value == 2.5


@pytest.mark.parametrize(
    "use",
    [
        lambda: setattr(rg.Area(), "name", 5),
        lambda: setattr(rg.Frequency(), "value", "5"),
        lambda: setattr(rg.Frequency(), "use", 1),
        lambda: setattr(rg.ReportBase(), "area", rg.Frequency()),
        lambda: setattr(rg.Area(), "coordinates", "text"),
        lambda: rg.Area.from_xml(b"<Area/>"),  # type: ignore[arg-type]
        lambda: rg.Area.from_bytes("text"),  # type: ignore[arg-type]
        lambda: rg.ReportBase().merge(5),  # type: ignore[arg-type]
    ],
)
def test_other_types_are_type_errors(use: Callable[[], object]) -> None:
    with pytest.raises(TypeError):
        use()


def test_numbers_of_numpy_and_of_other_types_are_numbers() -> None:
    frequency = rg.Frequency(value=np.float32(0.5), min=5, use=np.bool_(False))
    assert (frequency.value, frequency.min, frequency.use) == (0.5, 5.0, False)


@pytest.mark.parametrize("text", ["", "ä€𝄞", "a\0b", "\ud800", "\ufeffx"])
def test_texts_of_every_kind_come_back(text: str) -> None:
    area = rg.Area(name=text)
    assert area.name == text
    assert pickle.loads(pickle.dumps(area)).name == text


def test_the_version_that_was_read_is_kept() -> None:
    area = rg.Area.from_xml(
        "<Area Version='2.5'><Name>n</Name><Coordinate><Longitude>1</Longitude>"
        "<Latitude>2</Latitude></Coordinate></Area>"
    )
    assert area.initial_version_loaded == "2.5"
    assert copy.copy(area).initial_version_loaded == "2.5"
    # A state is data of the present version.
    assert pickle.loads(pickle.dumps(area)).initial_version_loaded == "1.0"
    assert area.version == "1.0"


def test_the_time_stamp_is_read_only_and_pickled() -> None:
    text = "<Value><Frequency>121.50</Frequency><TimeStamp>2014-07-03T08:05:09.120Z</TimeStamp></Value>"
    entry = rg.FrequencyListValue.from_xml(text)
    assert entry.time_stamp is not None
    assert entry.time_stamp.isoformat() == "2014-07-03T08:05:09.120000+00:00"
    assert pickle.loads(pickle.dumps(entry)).time_stamp == entry.time_stamp
    del entry.frequency
    assert pickle.loads(pickle.dumps(entry)).time_stamp == entry.time_stamp
    with pytest.raises(AttributeError):
        entry.time_stamp = None  # type: ignore[misc]


def test_identity() -> None:
    assert rg.ReportBase().object_name == "ReportBase"
    assert rg.Area().object_id == 0x469B9976
    assert rg.Double().object_type is rg.ObjectType.AnyType


def test_a_class_can_be_derived_from() -> None:
    class Named(rg.Area):
        def shout(self) -> str:
            return (self.name or "").upper()

    named = Named(name="lake", coordinates=[[1.0, 2.0]])
    assert named.shout() == "LAKE"
    assert Named.from_bytes(named.to_bytes()).shout() == "LAKE"


def test_modes_have_names_of_their_own() -> None:
    time = rg.MeasurementTime()
    with pytest.raises(rg.RefusedError, match="wrong length"):
        time.set_mode_names(["one"])
    with pytest.raises(ValueError, match="Invalid MeasurementModeType '7'"):
        time.measurement_mode = 7
    time.measurement_mode = rg.MeasurementMode.Continuous
    assert time.measurement_mode is rg.MeasurementMode.Continuous
