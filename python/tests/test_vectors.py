"""The golden vectors of the library through the bindings, and damaged ones."""

from __future__ import annotations

from pathlib import Path

import pytest
from conftest import TREE

import reportgenerator as rg

VECTORS = TREE / "tests" / "vectors"
CLASSES = {
    "area": rg.Area,
    "coordinate": rg.Coordinate,
    "frequency": rg.Frequency,
    "ifbandwidth": rg.IFBandwidth,
    "reportbase": rg.ReportBase,
}


def bytes_of(path: Path) -> bytes:
    """The bytes of an annotated file."""
    digits = ""
    for line in path.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            digits += line[6:53]
    return bytes.fromhex(digits)


def cases() -> list[tuple[str, str]]:
    return [(d, path.stem) for d in CLASSES for path in sorted((VECTORS / d).glob("*.xml"))]


def test_there_are_vectors() -> None:
    assert len(cases()) > 20


@pytest.mark.parametrize(("folder", "case"), cases())
def test_every_form_of_a_vector_is_the_same_object_and_is_written_again(
    folder: str, case: str
) -> None:
    cls = CLASSES[folder]
    plain = bytes_of(VECTORS / folder / f"{case}.hex")
    text = (VECTORS / folder / f"{case}.xml").read_bytes().decode().removesuffix("\n")
    of_plain = cls(validate=False)
    of_plain.parse_bytes(plain)
    # A number that rounds to zero keeps its sign; what is read is zero, which has none.
    if b"-0.00" in plain:
        plain = of_plain.to_bytes()
        text = of_plain.to_xml()
    assert of_plain.to_bytes() == plain
    of_compressed = cls.from_bytes(bytes_of(VECTORS / folder / f"{case}.zhex"), validate=False)
    assert of_compressed.to_bytes() == plain
    assert of_plain.to_xml() == text


@pytest.mark.parametrize("folder", CLASSES)
def test_what_must_be_refused_is(folder: str) -> None:
    errors = list((VECTORS / folder / "malformed").glob("*.error"))
    for error in errors:
        (name, text) = error.read_text(encoding="utf-8").rstrip("\n").split("\n")[:2]
        for path in error.parent.glob(f"{error.stem}.*"):
            if path.suffix in (".hex", ".zhex") and not path.name.endswith(".raw.hex"):
                with pytest.raises(rg.ReportError):
                    CLASSES[folder].from_bytes(bytes_of(path))
            elif path.suffix == ".xml":
                with pytest.raises(rg.ReportError) as refused:
                    CLASSES[folder].from_xml(path.read_bytes().decode())
                assert (refused.value.name, refused.value.text) == (name, text)


def use(data: bytes) -> None:
    """Whatever the bytes are: an object, or an error of the library."""
    rg.check(data)
    for cls in CLASSES.values():
        for validate in (True, False):
            try:
                read = cls.from_bytes(data, validate=validate)
            except rg.ReportError:
                continue
            repr(read)
            read.copy()
            read.validate = False
            read.to_bytes()
            read.to_xml()


@pytest.mark.parametrize("suffix", ["hex", "zhex", "xml"])
def test_every_truncation(suffix: str) -> None:
    path = (
        VECTORS / "reportbase" / max(p.name for p in (VECTORS / "reportbase").glob(f"*.{suffix}"))
    )
    whole = path.read_bytes() if suffix == "xml" else bytes_of(path)
    for size in range(len(whole)):
        use(whole[:size])


@pytest.mark.parametrize("folder", CLASSES)
def test_bytes_that_are_changed(folder: str) -> None:
    path = max(
        (VECTORS / folder).glob("*[a-z].hex"), key=lambda p: ("raw" not in p.name, p.stat().st_size)
    )
    whole = bytes_of(path)
    for place in range(len(whole)):
        for byte in (0x00, 0x7F, 0x80, 0xFF):
            use(whole[:place] + bytes([byte]) + whole[place + 1 :])
