"""Settings that come as XML, and the objects that take them."""

from __future__ import annotations

import logging
import threading
from collections.abc import Callable
from types import TracebackType
from typing import Self, TypeAlias, TypeVar

from . import _reportgenerator as _native
from ._custom import CustomObject
from ._errors import ReportError

_log = logging.getLogger("reportgenerator")

_Interface: TypeAlias = _native.IRGObject | CustomObject
_R = TypeVar("_R")


class RegisterCenter:
    """The registration of one settings object with a `SettingsNotifier`. A copy has the same object."""

    def __init__(self, interface: _Interface | None = None, type: int | None = None) -> None:
        self._interface: _Interface | None = None
        if interface is not None:
            self.register_interface(interface, type)

    def register_interface(self, interface: _Interface, type: int | None = None) -> None:
        """Takes an object in place of the one before.

        With a `type`, an object whose own kind has no name is an `InterfaceNotSupportedError`, and the center stays as it
        was.
        """
        if not isinstance(interface, _native.IRGObject | CustomObject):
            raise TypeError(f"an object is wanted, not {interface!r}")
        if type is not None:
            _native.check_interface(interface, type)
        self._interface = interface

    @property
    def interface(self) -> _Interface | None:
        """The object, None when there is none."""
        return self._interface

    @property
    def interface_id(self) -> int:
        """The `object_id` of the object, whatever type it was registered with; -1 without one."""
        return -1 if self._interface is None else self._interface.object_id

    @property
    def object_name(self) -> str:
        """The name of the object, empty without one."""
        return "" if self._interface is None else self._interface.object_name

    def __repr__(self) -> str:
        return f"RegisterCenter({self._interface!r})"


class Connection:
    """What is called when settings have changed, until `disconnect`, or to the end of a `with` block."""

    def __init__(
        self, notifier: SettingsNotifier, callback: Callable[[_Interface], object]
    ) -> None:
        self._notifier = notifier
        self._callback = callback

    def disconnect(self) -> None:
        """It isn't called any more."""
        self._notifier._disconnect(self)

    def __enter__(self) -> Self:
        return self

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        traceback: TracebackType | None,
    ) -> None:
        self.disconnect()


class SettingsNotifier:
    """Distributes XML settings to the settings objects of an application.

    Each registered object is offered the whole text and takes what belongs to it; whoever is connected hears of each that
    took something and has data. The notifier keeps its objects and callbacks alive. One thread at a time uses it, and others
    wait; callbacks are called in the thread that brings the settings, and may do anything with the notifier.
    """

    def __init__(self) -> None:
        self._native = _native.Notifier()
        self._lock = threading.RLock()
        self._centers: dict[int, RegisterCenter] = {}
        self._connections: list[Connection] = []
        self._raised: list[BaseException] = []

    def notify_on_changed(self, center: RegisterCenter | _Interface) -> RegisterCenter:
        """Registers a center, or an object with a center of its own, under the id of the object.

        An id that is taken is an `InterfaceAlreadyRegisteredError`. The plain classes all have the id of `AnyType`, and
        other classes one of their own; a class derived in Python may have an `object_id` of its own.
        """
        if not isinstance(center, RegisterCenter):
            center = RegisterCenter(center)
        interface = center.interface
        if interface is None:
            raise ValueError("a center without an object")
        with self._lock:
            self._centers[self._native.register(interface)] = center
        return center

    def unregister(self, id: int) -> None:
        """Leaves the center under the id out, at once; does nothing when there is none."""
        with self._lock:
            self._native.unregister(id)
            self._centers.pop(id, None)

    def get_center(self, id: int) -> RegisterCenter | None:
        """The center of the object with this id, or None. The number of a kind is the id of objects that have no other one."""
        return self._centers.get(id)

    def connect(self, callback: Callable[[_Interface], object]) -> Connection:
        """Has `callback` called with each object that has taken new settings."""
        connection = Connection(self, callback)
        with self._lock:
            self._connections.append(connection)
        return connection

    def set_settings(self, xml: str, *, check_root: bool = False) -> None:
        """Resets every registered object, in the order of their ids, and offers it the settings: one element, or several.

        With `check_root` an object takes a text only whose root element is its own. A text with an XML declaration is taken
        by nobody. An object that refuses its settings by a `ReportError` is passed over, with a warning of the logger
        "reportgenerator"; other exceptions pass out at once. When no object took anything, that is an `InvalidXmlError`; all
        of them have been reset by then.

        What a callback raises is raised when all objects have been served; of several the first, and the others are logged.
        """
        raised: list[BaseException] = []
        with self._lock:
            before, self._raised = self._raised, raised
            try:
                self._native.set_settings(self, xml, check_root)
            except BaseException as error:  # noqa: BLE001 - raised when all is done
                raised.insert(0, error)
            finally:
                self._raised = before
        for further in raised[1:]:
            _log.error("a receiver of settings has failed", exc_info=further)
        if raised:
            raise raised[0]

    def _disconnect(self, connection: Connection) -> None:
        with self._lock:
            if connection in self._connections:
                self._connections.remove(connection)

    # What is asked while settings are distributed.

    def _interface(self, key: int) -> _Interface:
        interface = self._centers[key].interface
        assert interface is not None
        return interface

    def _reset(self, key: int) -> bool:
        self._served(self._interface(key).reset)
        return True

    def _take_xml(self, key: int, xml: str, check_root: bool) -> bool:
        interface = self._interface(key)
        return self._served(lambda: interface._take_xml(xml, check_root))

    def _has_data(self, key: int) -> bool:
        return bool(self._served(self._interface(key).has_data))

    def _served(self, ask: Callable[[], _R]) -> _R:
        try:
            return ask()
        except ReportError as error:
            _log.warning("SettingsNotifier::SetSettings: %s", error)
            raise

    def _changed(self, key: int) -> bool:
        interface = self._interface(key)
        for connection in tuple(self._connections):
            if connection not in self._connections:
                continue
            try:
                connection._callback(interface)
            except BaseException as error:  # noqa: BLE001 - raised when all is done
                self._raised.append(error)
        return True
