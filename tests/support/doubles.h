#ifndef TESTS_SUPPORT_DOUBLES_H
#define TESTS_SUPPORT_DOUBLES_H

#include "support/expect.h"

#include <reportgenerator/reportbase/double.h>

#include <limits>

namespace Support {

constexpr double NOT_SET = -111111.11;
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

inline REPORTGENERATOR::Double Named(const char* name)
{
    REPORTGENERATOR::Double number;
    number.SetName(Text(name));
    return number;
}

/// An object in which each field differs from its default.
inline REPORTGENERATOR::Double Filled()
{
    REPORTGENERATOR::Double number = Named("N");
    number.SetDefaultInvalidValue(-1.0);
    number.SetMinimum(1.0);
    number.SetMaximum(9.0);
    number.SetDefault(4.0);
    number.SetValue(5.0);
    number.SetUnit(Text("dB"));
    return number;
}

} // namespace Support

#endif
