"""Enumerations, and the converters."""

from __future__ import annotations

import datetime
import pickle

import pytest

import reportgenerator as rg


def test_members_are_those_of_the_library() -> None:
    assert [t.name for t in rg.TaskType][:3] == ["Production", "Pool", "Search"]
    assert rg.TaskType.Tivor == 10
    assert len(rg.ResourceType) == 51
    assert rg.ObjectType.AnyType == 80
    assert pickle.loads(pickle.dumps(rg.TaskType.Pool)) is rg.TaskType.Pool


@pytest.mark.parametrize(
    "vocabulary",
    [rg.TaskType, rg.MeasurementType, rg.SubSensorType, rg.ResourceType, rg.ObjectType],
)
def test_names_lead_back(vocabulary: type) -> None:
    for member in vocabulary:
        assert member.to_name()
        assert vocabulary.from_name(member.to_name()) is member
    assert vocabulary.from_name("nothing of the kind") is None


def test_groups() -> None:
    assert rg.TaskType.Pool.is_pool and not rg.TaskType.Search.is_pool
    assert rg.TaskType.NG_Production.is_tivor_production
    assert rg.ResourceType.KT530.is_box_receiver_hf
    assert not rg.ResourceType.KTx60.is_box_receiver


def test_spellings() -> None:
    assert rg.MeasurementType.AMPos.to_name() == "AM Pos"
    assert rg.MeasurementType.AMPos.to_node_name() == "AMPOS"
    assert rg.SubSensorType.SubSensorAMPos.to_skpi_name() == "AM:POS"
    assert rg.MeasurementType.from_sensor_node_name("AM:POS") is rg.MeasurementType.AMPos
    assert rg.SubSensorType.from_node_name("AM") is rg.SubSensorType.SubSensorFM
    assert rg.SubSensorType.from_node_name("PMCW") is None


def test_dates() -> None:
    time = datetime.datetime(2014, 7, 3, 8, 5, 9, 120_999, tzinfo=datetime.UTC)
    assert rg.converters.to_string(time) == "2014-07-03T08:05:09.120Z"
    assert rg.converters.to_datetime("2014-07-03T10:05:09.120+02:00") == time.replace(
        microsecond=120_000
    )
    assert rg.converters.to_datetime("never") is None
    before = datetime.datetime(1969, 12, 31, 23, 59, 59, 999_000, tzinfo=datetime.UTC)
    assert rg.converters.to_string(before) == "1969-12-31T23:59:59.999Z"
    with pytest.raises(TypeError):
        rg.converters.to_string("2014")  # type: ignore[arg-type]


def test_references_and_texts() -> None:
    assert rg.converters.to_url("C:\\data\\a.xml") == "file:///C:/data/a.xml"
    assert rg.converters.to_valid_xml_string("a\a\v\f\tb") == "a\tb"
