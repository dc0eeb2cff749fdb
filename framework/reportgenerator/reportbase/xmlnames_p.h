#ifndef REPORTGENERATOR_XMLNAMES_P_H
#define REPORTGENERATOR_XMLNAMES_P_H

#include <reportgenerator/reportbase/name_p.h>

namespace REPORTGENERATOR {

/// The attribute of every class with a format version.
constexpr Name VERSION_ATTRIBUTE = REPORTBASE_NAME("Version");

} // namespace REPORTGENERATOR

#endif
