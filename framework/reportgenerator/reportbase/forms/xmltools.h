#ifndef REPORTGENERATOR_FORMS_XMLTOOLS_H
#define REPORTGENERATOR_FORMS_XMLTOOLS_H

#include <QtCore/QString>

class QXmlStreamReader;

namespace REPORTGENERATOR::xmltools {

/// Whether `xml` matches the regular expression "<name([^>]*)?/?>" somewhere: a quick test for the start tag
/// of an element whose name begins with `name`. Takes time in proportion to the text for every name that an
/// element can have.
bool MayContainElement(const QString& xml, const QString& name);

/// The attribute "Version" of the element that the reader stands on, null when it has none.
QString VersionAttribute(const QXmlStreamReader& reader);

/// Reads on to the first token called `name`, beginning with the current one, or to the end.
void ReadToName(QXmlStreamReader& reader, const QString& name);

/// Skips the element that the reader stands on: reads on to the next token of the same name, or to the end.
void SkipElement(QXmlStreamReader& reader);

} // namespace REPORTGENERATOR::xmltools

#endif
