#ifndef REPORTGENERATOR_DESCRIPTIONS_UNIT_H
#define REPORTGENERATOR_DESCRIPTIONS_UNIT_H

namespace REPORTGENERATOR {

/// In which the numbers of a class are kept and written. A description whose class has one names it as `UNIT`.
enum class Unit
{
    None,
    Hertz,
    Degrees
};

} // namespace REPORTGENERATOR

#endif
