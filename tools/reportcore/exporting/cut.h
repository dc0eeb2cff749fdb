#ifndef REPORTCORE_EXPORTING_CUT_H
#define REPORTCORE_EXPORTING_CUT_H

#include <reportcore/exporting/geometry.h>

#include <vector>

namespace ReportCore {

/// The parts of one ring that is cut along one meridian. Rings are open here, without the point that closes them.
std::vector<Points> CutRing(const Points& ring, double meridian);

} // namespace ReportCore

#endif
