"""How gdb prints the objects of libreportbase: every field by its name, unset ones as such.

gdb loads this file with the library, see docs/install.md. `print /r` shows the members themselves.
"""

import gdb
import gdb.printing
import gdb.types

NAMESPACE = "REPORTGENERATOR::"

UNSET = "unset"
NOT_INITIALIZED = "not initialized"
UNREADABLE = "unreadable"
NO_LAYOUT = "no debug information of libreportbase"

# --- The classes. Their fields are their members; a member has the presence bit of its place among those of its record.

RECORDS = ("Area", "Coordinate", "Frequency", "IFBandwidth", "ReportBase")
PLAIN = ("ChannelSpacing", "Double", "Ellipse", "FrequencyInformation", "FrequencyListValue", "FrequencyRangeOld",
         "MeasurementTime", "MinMax", "ScanParameter", "ValueMinMax")

NO_FIELDS = ("flags", "made", "initialVersionLoaded", "m_version", "m_modeNames", "m_format", "m_precision",
             "m_defaultInvalidValue")
OTHER_NAMES = {"bandwidth": "IFBandwidth", "m_range": "FrequencyRange"}

SHOWN_LAST = ("coordinates", "m_minimum", "m_maximum", "m_default", "m_unit")

INVALID_DOUBLE = -111111.11
INVALID_MODE = -1

EXCEPTION = (("Name", "m_errorName"), ("Text", "m_errorText"))

EXCEPTIONS = ("ReportException", "RGException", "OutOfRangeException", "InvalidXmlException",
              "ConversionErrorException", "IncompleteDefinitionException", "InterfaceNotSupportedException",
              "InterfaceAlreadyRegisteredException", "BinaryParsingException")

# --- Layouts, each in one place


def only_number(value):
    """The number or pointer that a class holds as the only thing, such as the standard library's atomics."""
    while value.type.strip_typedefs().code == gdb.TYPE_CODE_STRUCT:
        value = value[next(field for field in value.type.strip_typedefs().fields() if hasattr(field, "bitpos"))]
    return value


def record_of(thing):
    """The record of an object, None while there is none."""
    storage = thing["m_record"]
    data = storage["m_data"]
    if "SharedRecord<" in storage.type.strip_typedefs().name:
        pointer = only_number(data)
        return pointer.dereference() if int(pointer) else None
    return data if int(only_number(data["made"])) else None


def items_of(item_list):
    """The vector of the items of a record; a copy shares its source's until somebody looks at them."""
    items = item_list["m_items"]
    return items if elements_of(items)[0] else item_list["m_source"]


def elements_of(container):
    """The number of elements in one of Qt's containers, and a function that gives the one at an index."""
    element = gdb.types.get_basic_type(container.type).template_argument(0).pointer()
    data = container["d"]
    if data.type.strip_typedefs().code == gdb.TYPE_CODE_STRUCT:  # Qt 6
        first, count = data["ptr"].cast(element), int(data["size"])
    elif gdb.types.has_field(data.type.target(), "array"):  # Qt 5's QList of what is too large to stand in it
        nodes, begin = data["array"], int(data["begin"])
        return int(data["end"]) - begin, lambda index: nodes[begin + index].cast(element).dereference()
    else:
        first, count = after(data, "offset").cast(element), int(data["size"])
    return count, lambda index: (first + index).dereference()


def text_of(string):
    """Address and number of a QString's characters."""
    data = string["d"]
    if data.type.strip_typedefs().code == gdb.TYPE_CODE_STRUCT:
        return data["ptr"], int(data["size"])  # Qt 6
    return after(data, "offset"), int(data["size"])


def after(data, offset):
    """The address that stands so many bytes after the beginning of Qt 5's array data."""
    return data.cast(gdb.lookup_type("char").pointer()) + int(data[offset])


def members_of(kind):
    """The members of a class and its bases, without those of every object."""
    for field in gdb.types.get_basic_type(kind).fields():
        if not field.is_base_class:
            if field.name not in NO_FIELDS:
                yield field
        elif field.name not in (NAMESPACE + "Record", NAMESPACE + "IRGObject"):
            yield from members_of(field.type)


def rows_of(kind):
    """Field, member and place, in the order in which they are shown."""
    rows = []
    for place, member in enumerate(members_of(kind)):
        name = member.name[2:] if member.name.startswith("m_") else member.name
        rows.append((OTHER_NAMES.get(member.name, name[0].upper() + name[1:]), member.name, place))
    return sorted(rows, key=lambda row: row[1] in SHOWN_LAST)


# --- Printing


def shown(value):
    """A field's value as gdb can show it."""
    kind = gdb.types.get_basic_type(value.type)
    if kind.name == "QString":
        characters, length = text_of(value)
        units = characters.cast(gdb.lookup_type("unsigned short").pointer())
        is_big_endian = "big endian" in gdb.execute("show endian", to_string=True)
        return units.lazy_string("UTF-16BE" if is_big_endian else "UTF-16LE", length)
    if kind.tag == "QVector<double>" or kind.tag == "QList<double>":
        count, at = elements_of(value)
        limit = gdb.parameter("print elements") or count
        numbers = [str(at(index)) for index in range(min(count, limit))]
        return "{%s%s}" % (", ".join(numbers), "..." if count > limit else "")
    return value


def is_plain_unset(value, invalid):
    kind = gdb.types.get_basic_type(value.type)
    if kind.name == "QString":
        return text_of(value)[1] == 0
    if kind.code == gdb.TYPE_CODE_ENUM:
        return int(value.cast(gdb.lookup_type("int"))) == INVALID_MODE
    return kind.code == gdb.TYPE_CODE_FLT and float(value) == invalid


def fields(rows, read):
    """The children of a printer; what can't be read doesn't hide the others."""
    for row in rows:
        try:
            value = read(row)
        except gdb.error:
            value = UNREADABLE
        yield row[0], value


class RecordPrinter:
    def __init__(self, thing):
        self._record = None
        self._state = None
        try:
            record = record_of(thing)
            if record is None:
                self._state = NOT_INITIALIZED
            elif not record.type.fields():
                self._state = NO_LAYOUT
            else:
                self._flags = int(record["flags"])
                self._record = record
        except gdb.MemoryError:
            self._state = UNREADABLE
        except gdb.error:
            self._state = NO_LAYOUT

    def to_string(self):
        return self._state

    def children(self):
        return fields(rows_of(self._record.type) if self._record is not None else (), self._read)

    def _read(self, row):
        _, member, bit = row
        return shown(self._record[member]) if self._flags & (1 << bit) else UNSET


class PlainPrinter:
    def __init__(self, thing, rows):
        self._thing = thing
        self._rows = rows

    def to_string(self):
        return None

    def children(self):
        return fields(self._rows, self._read)

    def _read(self, row):
        value = self._thing[row[1]]
        # A Double says itself which number is none.
        own = gdb.types.has_field(self._thing.type, "m_defaultInvalidValue")
        invalid = float(self._thing["m_defaultInvalidValue"]) if own else INVALID_DOUBLE
        return UNSET if is_plain_unset(value, invalid) else shown(value)


class ContainerPrinter:
    """As many elements as `set print elements` says, and their number."""

    def __init__(self, container):
        try:
            self._count, self._at = elements_of(container)
        except gdb.error:
            self._count = None

    def to_string(self):
        if self._count is None or self._count < 0:
            return UNREADABLE
        return "1 item" if self._count == 1 else "%d items" % self._count

    def children(self):
        for index in range(self._count or 0):
            yield "[%d]" % index, self._at(index)

    def display_hint(self):
        return "array"


class Printers(gdb.printing.PrettyPrinter):
    """Chooses the printer of a value by the name of its class."""

    def __init__(self):
        super().__init__("reportbase")

    def __call__(self, value):
        kind = gdb.types.get_basic_type(value.type)
        name = kind.tag or ""
        if value.type.strip_typedefs().code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        if name.startswith(NAMESPACE + "ObjectList<"):
            return ContainerPrinter(items_of(value))
        if name.startswith(("QVector<", "QList<")) and self._is_ours(kind.template_argument(0)):
            return ContainerPrinter(value)
        own_name = name[len(NAMESPACE):] if name.startswith(NAMESPACE) else ""
        if own_name in RECORDS:
            return RecordPrinter(value)
        if own_name in PLAIN:
            return PlainPrinter(value, rows_of(value.type))
        if name in EXCEPTIONS:
            return PlainPrinter(value, EXCEPTION)
        return None

    @staticmethod
    def _is_ours(kind):
        name = kind.strip_typedefs().tag or ""
        return name.startswith(NAMESPACE) and name[len(NAMESPACE):] in RECORDS + PLAIN


gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers(), replace=True)
