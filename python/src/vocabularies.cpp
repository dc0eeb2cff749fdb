// What the Python enumerations ask the library for; the table is made of its headers.

#include "classes.h"
#include "signed.h"
#include "values.h"

#include <reportgenerator/reportbase/converters.h>
#include <reportgenerator/reportbase/measurementtype.h>
#include <reportgenerator/reportbase/objecttypes.h>
#include <reportgenerator/reportbase/resourcetype.h>
#include <reportgenerator/reportbase/tasktype.h>

namespace Python {

namespace py = pybind11;

namespace {

QString TextOf(const py::object& value)
{
    QString text;
    FromPython(value, text);
    return text;
}

/// Of a `datetime`; one without a zone is in local time, as Python takes it.
QDateTime TimeOf(const py::object& value)
{
    const py::module_ datetime = py::module_::import("datetime");
    if (!py::isinstance(value, datetime.attr("datetime")))
        throw py::type_error("a datetime is wanted");
    const py::object epoch = datetime.attr("datetime")(1970, 1, 1, py::arg("tzinfo") = datetime.attr("UTC"));
    const py::object since = value.attr("astimezone")(datetime.attr("UTC")) - epoch;
    const py::object milliseconds =
        since.attr("__floordiv__")(datetime.attr("timedelta")(py::arg("milliseconds") = 1));
    return QDateTime::fromMSecsSinceEpoch(milliseconds.cast<qint64>(), Qt::UTC);
}

} // namespace

void BindVocabularies(py::module_& module)
{
    using namespace REPORTGENERATOR; // NOLINT(google-build-using-namespace): as the table names them
    const auto add = [&module](const char* name, const char* argument, auto function) {
        module.def(name, function, py::arg(argument),
                   Signed(name, "(" + std::string(argument) + ")", "").c_str());
    };
#define REPORT_TEST(name, Function, Enumeration)                                                             \
    add(name, "number", [](int number) { return Function(static_cast<Enumeration>(number)); });
#define REPORT_NAME(name, Function, Enumeration)                                                             \
    add(name, "number", [](int number) { return ToPython(Function(static_cast<Enumeration>(number))); });
#define REPORT_LOOK_UP(name, Function, Enumeration)                                                          \
    add(name, "text", [](const py::object& text) { return static_cast<int>(Function(TextOf(text))); });
#include "vocabularies.inc"
#undef REPORT_TEST
#undef REPORT_NAME
#undef REPORT_LOOK_UP
}

void BindConverters(py::module_& module)
{
    module.def(
        "converters_to_string",
        [](const py::object& time) { return ToPython(Converters::ToString(TimeOf(time))); }, py::arg("time"),
        Signed("converters_to_string", "(time)", "").c_str());
    module.def(
        "converters_to_datetime",
        [](const py::object& text) { return ToPython(Converters::ToDateTime(TextOf(text))); },
        py::arg("text"), Signed("converters_to_datetime", "(text)", "").c_str());
    module.def(
        "converters_to_url", [](const py::object& path) { return ToPython(Converters::ToUrl(TextOf(path))); },
        py::arg("path"), Signed("converters_to_url", "(path)", "").c_str());
    module.def(
        "converters_to_valid_xml_string",
        [](const py::object& text) { return ToPython(Converters::ToValidXmlString(TextOf(text))); },
        py::arg("text"), Signed("converters_to_valid_xml_string", "(text)", "").c_str());
}

} // namespace Python
