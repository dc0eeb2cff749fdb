#ifndef REPORTGENERATOR_FRAMES_ELEMENTTEXT_H
#define REPORTGENERATOR_FRAMES_ELEMENTTEXT_H

#include <QtCore/QString>

class QXmlStreamReader;

namespace REPORTGENERATOR {

class IRGObject;

// The value that the text of an element holds: of the one that the reader stands on, up to its end element,
// as `IRGObject::GetTextValue` gives it. Malformed XML is reported by the object, which throws.

void ReadElementText(const IRGObject& object, QXmlStreamReader& reader, QString& value);
void ReadElementText(const IRGObject& object, QXmlStreamReader& reader, double& value);
void ReadElementText(const IRGObject& object, QXmlStreamReader& reader, bool& value);

} // namespace REPORTGENERATOR

#endif
