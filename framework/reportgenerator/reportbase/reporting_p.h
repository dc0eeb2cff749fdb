#ifndef REPORTGENERATOR_REPORTING_P_H
#define REPORTGENERATOR_REPORTING_P_H

#include <reportgenerator/reportbase/forms/name.h>

class RGException;

namespace REPORTGENERATOR {

class IRGObject;

/// The ways in which a class reports a failure of its contents.
namespace reporting {

/// A field that a check finds missing or wrong: with a logger and `logOnly` it is only logged, otherwise
/// thrown.
void Missing(const IRGObject& object, const Name& field, bool logOnly);

/// A value that should not be stored: thrown when the object validates, otherwise a warning.
void Questionable(const IRGObject& object, RGException& exception);

} // namespace reporting
} // namespace REPORTGENERATOR

#endif
