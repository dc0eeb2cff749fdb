#ifndef TESTS_SUPPORT_READERERROR_H
#define TESTS_SUPPORT_READERERROR_H

#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>

namespace Support {

/// What Qt's XML reader finds wrong with a text; empty when nothing.
inline QString ReaderError(const QString& xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? reader.errorString() : QString();
}

} // namespace Support

#endif
