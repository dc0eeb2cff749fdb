#include "values.h"

#include <pybind11/numpy.h>

#include <algorithm>
#include <limits>
#include <string>

namespace Python {

namespace py = pybind11;

namespace {

[[noreturn]] void ThrowType(const char* wanted, py::handle value)
{
    throw py::type_error(std::string(wanted) + " is wanted, not " + Py_TYPE(value.ptr())->tp_name);
}

constexpr int HOST_BYTE_ORDER = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? -1 : 1;

/// More than an array of Qt holds is refused before anything is reserved.
int SizeOf(Py_ssize_t size)
{
    if (size > std::numeric_limits<int>::max() / 2)
        throw py::value_error("this is more than an object of the library can hold");
    return static_cast<int>(size);
}

} // namespace

py::object ToPython(double number)
{
    return py::float_(number);
}

py::object ToPython(bool isOn)
{
    return py::bool_(isOn);
}

py::object ToPython(const QString& text)
{
    int byteOrder = HOST_BYTE_ORDER;
    PyObject* const object =
        PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.constData()),
                              static_cast<Py_ssize_t>(text.size()) * 2, "surrogatepass", &byteOrder);
    if (!object)
        throw py::error_already_set();
    return py::reinterpret_steal<py::object>(object);
}

py::object ToPython(const QByteArray& bytes)
{
    return py::bytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

py::object ToPython(const QDateTime& time)
{
    if (time.isNull())
        return py::none();
    const qint64 milliseconds = time.toMSecsSinceEpoch();
    const py::module_ datetime = py::module_::import("datetime");
    const py::object epoch = datetime.attr("datetime")(1970, 1, 1, py::arg("tzinfo") = datetime.attr("UTC"));
    return epoch + datetime.attr("timedelta")(py::arg("milliseconds") = milliseconds);
}

py::object ToPython(REPORTGENERATOR::MeasurementTime::MeasurementModeType mode)
{
    if (mode == REPORTGENERATOR::MeasurementTime::GetInvalidMeasurementModeType())
        return py::none();
    return py::module_::import("reportgenerator._vocabularies")
        .attr("MeasurementMode")(static_cast<int>(mode));
}

py::object ToPython(const QVector<double>& numbers)
{
    // Code in Python may run meanwhile and change what it was taken of.
    const QVector<double> taken = numbers;
    py::array_t<double> array(static_cast<py::ssize_t>(taken.size()));
    std::copy(taken.cbegin(), taken.cend(), array.mutable_data());
    array.attr("flags").attr("writeable") = false;
    return std::move(array);
}

void FromPython(py::handle value, double& number)
{
    number = PyFloat_AsDouble(value.ptr());
    if (PyErr_Occurred())
        throw py::error_already_set();
}

void FromPython(py::handle value, bool& isOn)
{
    // Those of numpy are no bool, but are compared like one.
    const py::object numpyBool = py::module_::import("numpy").attr("bool_");
    if (!PyBool_Check(value.ptr()) && !py::isinstance(value, numpyBool))
        ThrowType("a bool", value);
    isOn = py::bool_(py::reinterpret_borrow<py::object>(value));
}

void FromPython(py::handle value, QString& text)
{
    if (!PyUnicode_Check(value.ptr()))
        ThrowType("a str", value);
    const char* const encoding = HOST_BYTE_ORDER < 0 ? "utf-16-le" : "utf-16-be";
    const auto bytes =
        py::reinterpret_steal<py::object>(PyUnicode_AsEncodedString(value.ptr(), encoding, "surrogatepass"));
    if (!bytes)
        throw py::error_already_set();
    const int size = SizeOf(PyBytes_GET_SIZE(bytes.ptr()) / 2);
    // An empty text isn't null.
    text = QString(size, Qt::Uninitialized);
    std::memcpy(text.data(), PyBytes_AS_STRING(bytes.ptr()), static_cast<std::size_t>(size) * 2);
    if (size == 0)
        text = QString::fromLatin1("");
}

void FromPython(py::handle value, REPORTGENERATOR::MeasurementTime::MeasurementModeType& mode)
{
    const py::object index = py::reinterpret_steal<py::object>(PyNumber_Index(value.ptr()));
    if (!index)
        throw py::error_already_set();
    int overflow = 0;
    const long number = PyLong_AsLongAndOverflow(index.ptr(), &overflow);
    if (overflow != 0 || number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        throw py::value_error("a mode is a small number");
    mode = static_cast<REPORTGENERATOR::MeasurementTime::MeasurementModeType>(number);
}

void FromPython(py::handle value, QVector<double>& numbers)
{
    const auto array = py::array_t<double, py::array::c_style | py::array::forcecast>::ensure(value);
    if (!array)
        ThrowType("an array of numbers", value);
    if (array.ndim() != 1)
        throw py::value_error("an array of one dimension is wanted");
    numbers.resize(SizeOf(array.size()));
    std::copy(array.data(), array.data() + array.size(), numbers.begin());
}

QByteArray BytesOf(py::handle value)
{
    Py_buffer buffer;
    if (PyObject_GetBuffer(value.ptr(), &buffer, PyBUF_SIMPLE) != 0)
        throw py::error_already_set();
    const auto size = buffer.len;
    if (size > std::numeric_limits<int>::max() / 2) {
        PyBuffer_Release(&buffer);
        throw py::value_error("these are more bytes than a report can have");
    }
    QByteArray bytes(static_cast<const char*>(buffer.buf), static_cast<int>(size));
    PyBuffer_Release(&buffer);
    return bytes;
}

} // namespace Python
