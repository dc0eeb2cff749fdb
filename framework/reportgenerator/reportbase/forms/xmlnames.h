#ifndef REPORTGENERATOR_FORMS_XMLNAMES_H
#define REPORTGENERATOR_FORMS_XMLNAMES_H

#include <reportgenerator/reportbase/forms/name.h>

namespace REPORTGENERATOR {

/// The attribute of every class with a format version.
constexpr Name VERSION_ATTRIBUTE = REPORTBASE_NAME("Version");

} // namespace REPORTGENERATOR

#endif
