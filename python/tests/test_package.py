"""The package as such."""

import reportgenerator


def test_everything_that_is_offered_is_there() -> None:
    assert reportgenerator.__all__
    for name in reportgenerator.__all__:
        assert hasattr(reportgenerator, name), name
