#include <reportgenerator/reportbase/reporting_p.h>

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/outofrangeexception.h>

#include <memory>

namespace REPORTGENERATOR::reporting {

void Throw(const IRGObject& object, const RGException& exception, LogLevel level)
{
    if (const std::shared_ptr<Logger> logger = object.GetLogger())
        logger->Trace(level, exception, true);
    // Catchers rely on the exact type, so that a derived exception is cut down to it on purpose.
    throw RGException(exception);
}

void ReportMissing(const IRGObject& object, const Name& field, bool logOnly)
{
    OutOfRangeException exception(messages::PleaseSetProperly(object.GetObjectName(), field));
    object.TraceOrThrow(LogLevel::ERROR, exception, !logOnly, true);
}

void WarnOrThrow(const IRGObject& object, const RGException& exception)
{
    if (object.GetValidate())
        Throw(object, exception);
    object.Trace(LogLevel::WARNING, exception);
}

void ThrowLengthError(const IRGObject& object)
{
    Throw(object, BinaryParsingException(messages::BinaryLengthError(object.GetObjectName())));
}

} // namespace REPORTGENERATOR::reporting
