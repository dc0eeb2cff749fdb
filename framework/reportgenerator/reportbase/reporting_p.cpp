#include <reportgenerator/reportbase/reporting_p.h>

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/outofrangeexception.h>

namespace REPORTGENERATOR::reporting {

void Missing(const IRGObject& object, const Name& field, bool logOnly)
{
    OutOfRangeException exception(messages::PleaseSetProperly(object.GetObjectName(), field));
    object.TraceOrThrow(LogLevel::ERROR, exception, !logOnly, true);
}

void Questionable(const IRGObject& object, RGException& exception)
{
    if (object.GetValidate())
        object.TraceOrThrow(LogLevel::ERROR, exception, true, true);
    object.Trace(LogLevel::WARNING, exception);
}

} // namespace REPORTGENERATOR::reporting
