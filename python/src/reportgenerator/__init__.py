"""Reports of a radio-monitoring system: objects with checked fields, their forms, and their checks.

    >>> import reportgenerator as rg
    >>> report = rg.ReportBase(frequency=rg.Frequency(value=121_500_000.0))
    >>> rg.ReportBase.from_bytes(report.to_bytes("compressed")) == report
    True

A property is None while it is not set, and `del` unsets it. An object that is a property of another one is a part of it:
changing it changes the other one. What a setter refuses is a `ReportError` and a `ValueError`.

Objects may be used by several threads as Python's own may. What they warn of goes to the logger "reportgenerator" of the
module `logging`.
"""

from __future__ import annotations

import logging as _logging

from . import converters
from ._custom import CustomObject
from ._errors import (
    BinaryParsingError,
    ConversionFailure,
    FormError,
    IncompleteDefinitionError,
    InterfaceAlreadyRegisteredError,
    InterfaceNotSupportedError,
    InvalidXmlError,
    OutOfRangeError,
    RefusedError,
    ReportError,
)
from ._files import check, read
from ._minmax import MinMax
from ._problems import Problem
from ._reportgenerator import (
    Area,
    ChannelSpacing,
    Coordinate,
    Double,
    Ellipse,
    Frequency,
    FrequencyInformation,
    FrequencyListValue,
    FrequencyRangeOld,
    IFBandwidth,
    IRGObject,
    MeasurementTime,
    ReportBase,
    ScanParameter,
    ValueMinMax,
)
from ._settings import Connection, RegisterCenter, SettingsNotifier
from ._versions import IXmlConverter, VersionConverterProxy
from ._vocabularies import (
    MeasurementMode,
    MeasurementType,
    ObjectType,
    ResourceType,
    SubSensorType,
    TaskType,
)

# What nobody wants to have is not printed.
_logging.getLogger("reportgenerator").addHandler(_logging.NullHandler())

__all__ = [
    "Area",
    "BinaryParsingError",
    "ChannelSpacing",
    "Connection",
    "ConversionFailure",
    "Coordinate",
    "CustomObject",
    "Double",
    "Ellipse",
    "FormError",
    "Frequency",
    "FrequencyInformation",
    "FrequencyListValue",
    "FrequencyRangeOld",
    "IFBandwidth",
    "IRGObject",
    "IXmlConverter",
    "IncompleteDefinitionError",
    "InterfaceAlreadyRegisteredError",
    "InterfaceNotSupportedError",
    "InvalidXmlError",
    "MeasurementMode",
    "MeasurementTime",
    "MeasurementType",
    "MinMax",
    "ObjectType",
    "OutOfRangeError",
    "Problem",
    "RefusedError",
    "RegisterCenter",
    "ReportBase",
    "ReportError",
    "ResourceType",
    "ScanParameter",
    "SettingsNotifier",
    "SubSensorType",
    "TaskType",
    "ValueMinMax",
    "VersionConverterProxy",
    "check",
    "converters",
    "read",
]
