#include <reportgenerator/reportbase/records/plainfield.h>

#include <reportgenerator/reportbase/messages_p.h>

namespace REPORTGENERATOR {

void ThrowUnknownTag(const IRGObject& object, const QXmlStreamReader& reader)
{
    throw RGException(messages::UnknownTag(reader.name().toString(), object.GetObjectName()));
}

} // namespace REPORTGENERATOR
