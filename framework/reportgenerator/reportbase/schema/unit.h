#ifndef REPORTGENERATOR_SCHEMA_UNIT_H
#define REPORTGENERATOR_SCHEMA_UNIT_H

namespace REPORTGENERATOR {

/// In which the numbers of a class are kept and written. A schema whose class has one names it as `UNIT`.
enum class Unit
{
    None,
    Hertz,
    Degrees
};

} // namespace REPORTGENERATOR

#endif
