"""The errors of the library."""

from __future__ import annotations

from ._problems import Problem


class ReportError(Exception):
    """An error of a report object: the one class that callers need to catch.

    What the library throws arrives as this class or one below it, by its name.
    """

    _default_name = "RGException"

    def __init__(self, text: str, name: str | None = None) -> None:
        super().__init__(text)
        self.text = text
        """What went wrong, for people."""
        self.name = self._default_name if name is None else name
        """Name of the kind of error, as the library has it: "OutOfRangeException"."""
        self.problems: tuple[Problem, ...] = ()
        """Of a report that was read: all that is wrong with it."""

    def __str__(self) -> str:
        return self.text

    def __reduce__(self) -> tuple[object, ...]:
        return type(self), (self.text, self.name), self.__dict__


class OutOfRangeError(ReportError, ValueError):
    """A value is missing or outside its range."""

    _default_name = "OutOfRangeException"


class IncompleteDefinitionError(ReportError, ValueError):
    """An object lacks what it needs to be taken into another one."""

    _default_name = "IncompleteDefinitionException"


class InvalidXmlError(ReportError):
    """A text is no XML, or no fragment of it."""

    _default_name = "InvalidXmlException"


class ConversionFailure(ReportError):
    """A value cannot be turned into another form."""

    _default_name = "ConversionErrorException"


class BinaryParsingError(ReportError):
    """The lengths of binary data don't come out."""

    _default_name = "BinaryParsingException"


class InterfaceNotSupportedError(ReportError):
    """An object of a kind that is not known is to be registered."""

    _default_name = "InterfaceNotSupportedException"


class InterfaceAlreadyRegisteredError(ReportError):
    """An object is to be registered under an id that is taken."""

    _default_name = "InterfaceAlreadyRegisteredException"


class RefusedError(ReportError, ValueError):
    """A setter refuses a value, with an error that has no class of its own."""


class FormError(ReportError):
    """Bytes or text that no writer of a report would have written.

    Its names are UnknownForm, NoReport, LengthMismatch, DamagedData, TrailingData and TooLarge, and NotWritten for what a
    form cannot hold.
    """

    _default_name = "UnknownForm"


_BY_NAME: dict[str, type[ReportError]] = {
    cls._default_name: cls
    for cls in (
        OutOfRangeError,
        IncompleteDefinitionError,
        InvalidXmlError,
        ConversionFailure,
        BinaryParsingError,
        InterfaceNotSupportedError,
        InterfaceAlreadyRegisteredError,
    )
} | dict.fromkeys(
    (
        "UnknownForm",
        "NoReport",
        "LengthMismatch",
        "DamagedData",
        "TrailingData",
        "TooLarge",
        "NotWritten",
    ),
    FormError,
)


def _make(name: str, text: str, is_refusal: bool) -> ReportError:
    """The error that the library throws under a name."""
    cls = _BY_NAME.get(name, ReportError)
    if is_refusal and not issubclass(cls, ValueError):
        cls = RefusedError
    return cls(text, name)
