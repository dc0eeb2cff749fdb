"""The coordinates of an area as an array."""

from __future__ import annotations

import logging
import math

import numpy as np
import pytest

import reportgenerator as rg


def test_longitude_comes_first() -> None:
    area = rg.Area(coordinates=[[9.5, 47.5], [-9.5, -47.5]])
    assert area.coordinates is not None
    assert area.coordinates.dtype == np.float64
    assert area.coordinates.tolist() == [[9.5, 47.5], [-9.5, -47.5]]
    first = area.coordinate_at(0)
    assert (first.longitude, first.latitude) == (9.5, 47.5)
    assert area.coordinate_at(-1).longitude == -9.5


@pytest.mark.parametrize("index", [2, -3])
def test_places_that_there_are_not(index: int) -> None:
    with pytest.raises(IndexError, match="the area has 2 coordinates"):
        rg.Area(coordinates=[[1, 2], [3, 4]]).coordinate_at(index)


def test_the_array_is_a_copy_that_cannot_be_written_to() -> None:
    area = rg.Area(coordinates=[[1.0, 2.0]])
    points = area.coordinates
    assert points is not None
    with pytest.raises(ValueError):
        points[0, 0] = 5.0
    area.coordinates = points + 1.0
    assert points.tolist() == [[1.0, 2.0]]


@pytest.mark.parametrize(
    "points",
    [
        np.array([[1, 2], [3, 4]], dtype=np.int32),
        np.array([[1, 2], [3, 4]], dtype=">f8"),
        np.array([[1, 3], [2, 4]], dtype=np.float64).T,
        np.array([[1, 9, 2, 9], [3, 9, 4, 9]], dtype=np.float64)[:, ::2],
        [(1, 2), (3, 4)],
    ],
)
def test_arrays_of_every_layout(points: object) -> None:
    area = rg.Area(coordinates=points)  # type: ignore[arg-type]
    assert area.coordinates is not None
    assert area.coordinates.tolist() == [[1.0, 2.0], [3.0, 4.0]]


@pytest.mark.parametrize("points", [np.zeros((2, 3)), np.zeros(4), np.zeros((1, 2, 2)), 5.0])
def test_other_shapes_are_refused(points: object) -> None:
    with pytest.raises(ValueError, match="longitude first"):
        rg.Area(coordinates=points)  # type: ignore[arg-type]


def test_an_empty_list_is_set_and_no_list_is_none() -> None:
    area = rg.Area()
    assert area.coordinates is None
    area.coordinates = []
    assert area.coordinates is not None and area.coordinates.shape == (0, 2)
    del area.coordinates
    assert area.coordinates is None


@pytest.mark.parametrize("bad", [[180.5, 0.0], [0.0, -90.5], [math.nan, 0.0], [0.0, math.inf]])
def test_a_bad_row_is_refused_and_named(bad: list[float]) -> None:
    area = rg.Area(coordinates=[[1.0, 2.0]])
    with pytest.raises(rg.OutOfRangeError) as refused:
        area.coordinates = [[0.0, 0.0], [0.0, 0.0], bad]
    assert isinstance(refused.value, ValueError)
    assert refused.value.__notes__ == ["row 2"]
    assert area.coordinates is not None and area.coordinates.tolist() == [[1.0, 2.0]]


def test_without_validating_everything_is_taken(caplog: pytest.LogCaptureFixture) -> None:
    area = rg.Area(validate=False)
    with caplog.at_level(logging.INFO, logger="reportgenerator"):
        area.coordinates = [[200.0, math.nan]]
    assert [record.levelname for record in caplog.records] == ["WARNING"]
    assert "m_longitude" in caplog.records[0].getMessage()
    point = area.coordinate_at(0)
    assert (point.longitude, point.latitude) == (200.0, None)
    assert area.coordinates is not None and math.isnan(area.coordinates[0, 1])


def test_points_one_by_one() -> None:
    area = rg.Area()
    area.append(rg.Coordinate(longitude=1, latitude=2))
    assert area.coordinates is not None and area.coordinates.tolist() == [[1.0, 2.0]]
    with pytest.raises(rg.IncompleteDefinitionError):
        area.append(rg.Coordinate(longitude=1))


def test_many() -> None:
    points = np.random.default_rng(1).uniform(-90, 90, (100_000, 2))
    area = rg.Area(coordinates=points)
    assert area.coordinates is not None
    assert np.array_equal(area.coordinates, points)
