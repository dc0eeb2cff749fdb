// What a view sees of a report.

#include "reportmodels/watchedmodel.h"
#include "support/expect.h"
#include "support/reports.h"

#include <gtest/gtest.h>

#include <QtCore/QStringList>

namespace {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportModel;
using ReportModelsTest::WatchedModel;

/// The complete report with a bound, a switch, a second point and a script ID.
ReportBase RichReport()
{
    ReportBase report = Support::CompleteReport();
    report.GetFrequency().SetMin(-0.125);
    report.GetFrequency().SetUse(true);
    Coordinate point;
    point.SetLongitude(9.5);
    point.SetLatitude(47.25);
    report.GetArea().AppendCoordinate(point);
    report.GetArea().SetScriptID(QStringLiteral("A\n1"));
    return report;
}

TEST(ReportModel, EmptyReportShowsAllFieldsAsNotSet)
{
    const WatchedModel watched{ReportBase()};
    EXPECT_TEXT(watched.Shown(), "frequency | not set\n"
                                 "  value | not set\n"
                                 "  min | not set\n"
                                 "  max | not set\n"
                                 "  use | not set\n"
                                 "IF bandwidth | not set\n"
                                 "  value | not set\n"
                                 "  min | not set\n"
                                 "  max | not set\n"
                                 "area | not set\n"
                                 "  name | not set\n"
                                 "  version | not set\n"
                                 "  script ID | not set\n"
                                 "  coordinates | not set\n");
}

TEST(ReportModel, ReportShowsItsFieldsInReadingOrder)
{
    const WatchedModel watched{RichReport()};
    EXPECT_TEXT(watched.Shown(), "frequency | \n"
                                 "  value | 5\n"
                                 "  min | -0.125\n"
                                 "  max | not set\n"
                                 "  use | true\n"
                                 "IF bandwidth | \n"
                                 "  value | 6\n"
                                 "  min | not set\n"
                                 "  max | not set\n"
                                 "area | \n"
                                 "  name | \"Lake\"\n"
                                 "  version | not set\n"
                                 "  script ID | \"A\\n1\"\n"
                                 "  coordinates | 2 coordinates\n"
                                 "    coordinate 1 | 1 2\n"
                                 "      longitude | 1\n"
                                 "      latitude | 2\n"
                                 "    coordinate 2 | 9.5 47.25\n"
                                 "      longitude | 9.5\n"
                                 "      latitude | 47.25\n");
}

} // namespace
