#include "foreignobject.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QFile>

namespace Python {

namespace py = pybind11;

void Counterpart::ThrowAsLibrary(const py::error_already_set& raised)
{
    const py::object error = py::module_::import("reportgenerator._errors").attr("ReportError");
    if (!raised.matches(error))
        return;
    QString text;
    FromPython(py::str(raised.value()), text);
    throw RGException(text);
}

ForeignObject::ForeignObject(const Counterpart& counterpart, const py::object& object)
    : ForeignObject(counterpart, object.attr("object_id").cast<long long>())
{
    QString name;
    FromPython(object.attr("object_name"), name);
    SetObjectType(static_cast<REPORTGENERATOR::ObjectTypes>(object.attr("object_type").cast<int>()));
    SetObjectName(name);
    SetObjectId(m_key);
}

bool ForeignObject::SetXmlString(const QString& xml, bool checkRoot)
{
    const py::gil_scoped_acquire held;
    return m_counterpart.AskAsLibrary("_take_xml", m_key, ToPython(xml), checkRoot);
}

bool ForeignObject::LoadXml(QFile* file)
{
    const py::gil_scoped_acquire held;
    return m_counterpart.AskAsLibrary("_load_xml", m_key, ToPython(file->fileName()));
}

} // namespace Python
