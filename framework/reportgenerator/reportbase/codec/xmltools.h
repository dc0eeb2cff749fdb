#ifndef REPORTGENERATOR_CODEC_XMLTOOLS_H
#define REPORTGENERATOR_CODEC_XMLTOOLS_H

#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>

namespace REPORTGENERATOR::xmltools {

/// Whether `xml` matches the regular expression "<name([^>]*)?/?>" somewhere: a quick test for the start tag
/// of an element whose name begins with `name`. Takes time in proportion to the text for every name that an
/// element can have.
bool MayContainElement(const QString& xml, const QString& name);

/// The attribute "Version" of the element that the reader stands on, null when it has none.
QString VersionAttribute(const QXmlStreamReader& reader);

/// Reads the next token. Returns false at the end and when there is none, be it that the XML is malformed or
/// that its device fails: a reader doesn't call the latter its end.
bool ReadNext(QXmlStreamReader& reader);

/// Has `readChild` read each child of the element that the reader stands on, up to its end element.
template <class ReadChild>
void ForEachChild(QXmlStreamReader& reader, ReadChild&& readChild)
{
    while (ReadNext(reader) && !reader.isEndElement()) {
        if (reader.isStartElement())
            readChild();
    }
}

/// Reads on to the first token called `name`, beginning with the current one, or to the end.
void ReadToName(QXmlStreamReader& reader, const QString& name);

/// Skips the element that the reader stands on: reads on to the next token of the same name, or to the end.
void SkipElement(QXmlStreamReader& reader);

} // namespace REPORTGENERATOR::xmltools

#endif
