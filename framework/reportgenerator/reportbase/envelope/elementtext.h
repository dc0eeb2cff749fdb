#ifndef REPORTGENERATOR_ENVELOPE_ELEMENTTEXT_H
#define REPORTGENERATOR_ENVELOPE_ELEMENTTEXT_H

#include <reportgenerator/reportbase/codec/values.h>
#include <reportgenerator/reportbase/envelope/objectaccess.h>

namespace REPORTGENERATOR {

// The value that the text of an element holds: of the one that the reader stands on, up to its end element,
// as `IRGObject::GetTextValue` gives it. Malformed XML is reported by the object, which throws.

void ReadElementText(const IRGObject& object, QXmlStreamReader& reader, double& value);

template <class T>
void ReadElementText(const IRGObject& object, QXmlStreamReader& reader, T& value)
{
    FromText(ObjectAccess::TextOf(object, reader), value);
}

} // namespace REPORTGENERATOR

#endif
