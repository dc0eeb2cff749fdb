"""Files that another version of a class has written."""

from __future__ import annotations

import logging
import os
import threading
from typing import TypeAlias

from . import _reportgenerator as _native
from ._custom import CustomObject
from ._errors import ReportError
from ._files import _PathLike, _source

_log = logging.getLogger("reportgenerator")

_Interface: TypeAlias = _native.IRGObject | CustomObject


class IXmlConverter:
    """Copies the contents of an object of one version into an object of another version. Programs derive from it."""

    def upgrade(self, source: _Interface, target: _Interface) -> bool:
        """Fills `target`, the newer object, from `source`. Returns whether that was possible; this one returns False."""
        return False

    def downgrade(self, source: _Interface, target: _Interface) -> bool:
        """Fills `target`, the older object, from `source`. Returns whether that was possible; this one returns False."""
        return False


class VersionConverterProxy:
    """Lets an object load XML files that another version of its class has written.

    A program registers one object for each root element and version that it can read, mostly a `CustomObject` for a version
    that has gone, and injects an `IXmlConverter`. A file of another version is loaded into the object of that version, which
    is then converted into the one that is registered for the other version. The proxy keeps its objects alive. One thread at
    a time uses it, and others wait.
    """

    def __init__(self, converter: IXmlConverter | None = None) -> None:
        self._native = _native.Proxy()
        self._lock = threading.RLock()
        self._objects: list[_Interface] = []
        self._converter = converter

    def register_root_class(self, name: str, version: str, interface: _Interface) -> None:
        """Registers an object as the reader of root elements `name` with the attribute "Version" equal to `version`.

        The first registration of a pair counts; later ones are ignored. Versions are matched as texts.
        """
        if not isinstance(interface, _native.IRGObject | CustomObject):
            raise TypeError(f"an object is wanted, not {interface!r}")
        with self._lock:
            key = self._key(interface)
            if key is None:
                key = len(self._objects)
                self._objects.append(interface)
            self._native.register(name, version, key)

    def registered_root_class(self, name: str, version: str) -> _Interface | None:
        """The object that is registered for the pair, or None."""
        with self._lock:
            key = self._native.registered(name, version)
            return None if key < 0 else self._objects[key]

    def inject_xml_converter(self, converter: IXmlConverter | None) -> None:
        """Takes a converter in place of the one before. Without one nothing is converted."""
        self._converter = converter

    def can_use_proxy(self, path: _PathLike, target: _Interface) -> bool:
        """Whether the file names a registered root element in a registered version whose object is not `target`.

        False for a file that the proxy is loading. Malformed XML is a `ReportError`, a file that can't be read an `OSError`.
        """
        name = _source(path)
        with self._lock:
            return self._native.can_use(self, name, self._key(target))

    def load_xml(self, path: _PathLike) -> bool:
        """Loads the file into the object of its version, and converts that into the first one of another version.

        That is an upgrade when the other version is the greater number, a downgrade when it is the smaller one, and nothing
        when they are equal. Returns what the converter returns, and False without one or without two objects. An object that
        refuses the file by a `ReportError` has not loaded it, which is a warning of the logger "reportgenerator"; malformed
        XML is False. What the converter raises passes out.
        """
        name = _source(path)
        with self._lock:
            return self._native.load(self, name)

    def load(self, path: _PathLike, target: _Interface) -> bool:
        """Loads `target` from a file of its own version or, where `can_use_proxy` says so, by `load_xml`.

        The object is reset first. Returns whether its element was found, or what `load_xml` returns.
        """
        name = _source(path)
        with self._lock:
            target.reset()
            if not self.can_use_proxy(name, target):
                return target._load_xml(name)
            _log.info("%s: using a version converter to load '%s'", target.object_name, name)
            return self.load_xml(name)

    def _key(self, interface: _Interface) -> int | None:
        return next((i for i, known in enumerate(self._objects) if known is interface), None)

    # What is asked while a file is loaded.

    def _reset(self, key: int) -> bool:
        self._objects[key].reset()
        return True

    def _load_xml(self, key: int, path: str) -> bool:
        interface = self._objects[key]
        try:
            return interface._load_xml(path)
        except ReportError as error:
            _log.warning("%s of '%s': %s", interface.object_name, os.path.basename(path), error)
            raise

    def _convert(self, direction: str, source: int, target: int) -> bool:
        converter = self._converter
        if converter is None or source < 0 or target < 0:
            return False
        convert = converter.upgrade if direction == "upgrade" else converter.downgrade
        return bool(convert(self._objects[source], self._objects[target]))
