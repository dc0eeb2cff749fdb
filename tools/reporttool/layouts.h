#ifndef REPORTTOOL_LAYOUTS_H
#define REPORTTOOL_LAYOUTS_H

#include <reportgenerator/reportbase/forms/wirefacts.h>

#include <QtCore/QString>

#include <cstddef>

namespace ReportTool {

struct Layout;

/// What the payload of an element consists of.
enum class PayloadType
{
    Utf8,        ///< a byte array that holds a text
    Utf16,       ///< a text
    Bool,        ///< one byte
    Coordinates, ///< a count, and the bodies of as many coordinates
    Object       ///< the elements of a member object
};

/// One kind of element: its tag, what people call it, and what it holds.
struct ElementType
{
    qint32 tag;
    const char* name;
    PayloadType payload;
    const Layout* layout; ///< of the member object or of each coordinate
};

/// The elements that objects of one class may have.
struct Layout
{
    REPORTGENERATOR::Name objectName;
    const ElementType* types;
    std::size_t count;
};

/// The layout of the objects of that name, null for names without one.
const Layout* FindLayout(const QString& objectName);

/// The element of that tag, null for a tag that the layout doesn't know. There may be no layout.
const ElementType* FindType(const Layout* layout, qint32 tag);

} // namespace ReportTool

#endif
