"""Objects of a program's own kind."""

from __future__ import annotations

import abc
from xml.etree import ElementTree

from . import _reportgenerator as _native
from ._vocabularies import ObjectType


class CustomObject(abc.ABC):
    """An object of a program's own kind, which reads an element of XML: settings, or a version of a file that has gone.

    Derived classes say how their element is called, and have `reset`, `read_element` and `has_data`. A `SettingsNotifier`
    and a `VersionConverterProxy` take their objects like those of the library.
    """

    object_name: str
    """The name of the element."""

    object_type: ObjectType = ObjectType.AnyType
    """The kind."""

    @property
    def object_id(self) -> int:
        """What a `SettingsNotifier` files the object under: the number of its kind, unless a class has another one."""
        return int(self.object_type)

    @abc.abstractmethod
    def reset(self) -> None:
        """Forgets all that was read."""

    @abc.abstractmethod
    def read_element(self, element: ElementTree.Element) -> None:
        """Takes what the element says, after a `reset`. Refuses it by a `ReportError`."""

    @abc.abstractmethod
    def has_data(self) -> bool:
        """Whether anything is set that counts as data."""

    def _take_xml(self, text: str, check_root: bool) -> bool:
        return self._take(_native.element_of_text(self.object_name, text, check_root))

    def _load_xml(self, path: str) -> bool:
        self.reset()
        return self._take(_native.element_of_file(self.object_name, path))

    def _take(self, element: str | None) -> bool:
        if element is None:
            return False
        self.reset()
        self.read_element(ElementTree.fromstring(element))
        return True
