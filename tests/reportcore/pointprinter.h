#ifndef TESTS_REPORTCORE_POINTPRINTER_H
#define TESTS_REPORTCORE_POINTPRINTER_H

#include <reportcore/exporting/geometry.h>

#include <ostream>

namespace ReportCore {

/// So that failures show points as people write them.
inline void PrintTo(const Point& point, std::ostream* stream)
{
    *stream << point.longitude << ' ' << point.latitude;
}

} // namespace ReportCore

#endif
