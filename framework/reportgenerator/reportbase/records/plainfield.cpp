#include <reportgenerator/reportbase/records/plainfield.h>

#include <reportgenerator/reportbase/messages_p.h>

namespace REPORTGENERATOR {

bool IsValueEqual(const ValueMinMax& left, const ValueMinMax& right)
{
    return left.GetValue() == right.GetValue() && left.GetMin() == right.GetMin() &&
           left.GetMax() == right.GetMax();
}

bool ReadObject(IRGObject& object, QXmlStreamReader& reader)
{
    const bool isIts = reader.name() == object.GetObjectName();
    if (isIts)
        object.ProcessXml(reader);
    return isIts;
}

bool ReadObject(ValueMinMax& object, QXmlStreamReader& reader)
{
    // Whatever the object has been called.
    const bool isIts = reader.name() == wire::FREQUENCY;
    if (isIts)
        object.ReadValuesFromXml(reader);
    return isIts;
}

void ThrowUnknownTag(const IRGObject& object, const QXmlStreamReader& reader)
{
    throw RGException(messages::UnknownTag(reader.name().toString(), object.GetObjectName()));
}

} // namespace REPORTGENERATOR
