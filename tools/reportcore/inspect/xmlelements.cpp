#include <reportcore/inspect/xmlelements.h>

#include <reportgenerator/reflection/reportfields.h>

namespace ReportCore {

using REPORTGENERATOR::Place;

XmlElement XmlElements::Report()
{
    return {&ReportInfo()};
}

XmlElement XmlElements::Within(const XmlElement& parent, const QString& name)
{
    const Field* const field = parent.object ? parent.object->FindElement(name, Place::Element) : nullptr;
    if (!field)
        return {};
    XmlElement element = {field->HasObjects() ? &field->Object() : nullptr, field, parent.path};
    element.path.Enter(*field);
    if (field->Kind() == FieldKind::List)
        element.path.SetIndex(m_counts.Next(element.path));
    return element;
}

void XmlElements::TakeVersion(const XmlElement& object, const QXmlStreamAttributes& attributes)
{
    for (const auto& field : object.object->All()) {
        if (field->Kind() == FieldKind::Version)
            m_counts.TakeVersion(object.path, *field,
                                 attributes.value(field->Facts().elementName).toString());
    }
}

} // namespace ReportCore
