#ifndef REPORTGENERATOR_REPORTING_P_H
#define REPORTGENERATOR_REPORTING_P_H

#include <reportgenerator/reportbase/codec/name.h>
#include <reportgenerator/reportbase/logger.h>

class RGException;

namespace REPORTGENERATOR {

class IRGObject;

/// The ways in which a class reports a failure.
namespace reporting {

/// Logs the exception as fatal, if there is a logger, and throws it, whatever the logger does.
///
/// What is thrown is a plain `RGException` with the name and the text of `exception`.
[[noreturn]] void Throw(const IRGObject& object, const RGException& exception,
                        LogLevel level = LogLevel::ERROR);

/// A field that a check finds missing or wrong: with a logger and `logOnly` it is only logged, otherwise
/// thrown.
void ReportMissing(const IRGObject& object, const Name& field, bool logOnly);

/// A value that should not be stored: thrown when the object validates, otherwise a warning.
void WarnOrThrow(const IRGObject& object, const RGException& exception);

/// The lengths of a body don't come out.
[[noreturn]] void ThrowLengthError(const IRGObject& object);

} // namespace reporting
} // namespace REPORTGENERATOR

#endif
