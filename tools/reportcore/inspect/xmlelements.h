#ifndef REPORTCORE_INSPECT_XMLELEMENTS_H
#define REPORTCORE_INSPECT_XMLELEMENTS_H

#include <reportcore/inspect/itemcounts.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QString>
#include <QtCore/QXmlStreamAttributes>

namespace ReportCore {

/// What an element of a report's XML is.
struct XmlElement
{
    const ObjectInfo* object = nullptr; ///< null for an element that is no object
    const Field* field = nullptr;       ///< null for the report and for what is unknown
    FieldPath path = {};                ///< empty for the report and for what is unknown
};

/// Tells elements apart by their names and by what stands around them, as the library does it. It is to see those of a
/// document in their order.
class XmlElements
{
public:
    static XmlElement Report();

    /// The element of that name in another one; of a list, the next item.
    XmlElement Within(const XmlElement& parent, const QString& name);

    /// The attributes of an object's start tag: by a version of the format it may have been emptied.
    void TakeVersion(const XmlElement& object, const QXmlStreamAttributes& attributes);

private:
    ItemCounts m_counts;
};

} // namespace ReportCore

#endif
