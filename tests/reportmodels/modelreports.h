#ifndef TESTS_REPORTMODELS_MODELREPORTS_H
#define TESTS_REPORTMODELS_MODELREPORTS_H

#include "support/reports.h"

namespace ReportModelsTest {

inline REPORTGENERATOR::Coordinate PointOf(double longitude, double latitude)
{
    REPORTGENERATOR::Coordinate point;
    point.SetLongitude(longitude);
    point.SetLatitude(latitude);
    return point;
}

/// The complete report with a bound, a switch, the point (9.5, 47.25) behind the other, and a script ID.
inline REPORTGENERATOR::ReportBase RichReport()
{
    REPORTGENERATOR::ReportBase report = Support::CompleteReport();
    report.GetFrequency().SetMin(-0.125);
    report.GetFrequency().SetUse(true);
    report.GetArea().AppendCoordinate(PointOf(9.5, 47.25));
    report.GetArea().SetScriptID(QStringLiteral("A\n1"));
    return report;
}

} // namespace ReportModelsTest

#endif
