// What the library's objects do without writing or reading.

#include "contenders.h"
#include "libraryobjects.h"
#include "suite.h"
#include "workload.h"

#include <utility>

namespace Bench {

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ReportBase;

template <bool VALIDATE>
void AddBuild(Suite& suite)
{
    suite.AddJob(
        "build", LIBRARY<VALIDATE>.name, [](const PlainReport& plain) { return plain; },
        [](const PlainReport& plain) {
            Area area;
            area.SetValidate(VALIDATE);
            if (plain.HasArea())
                FillArea(area, plain);
            return area;
        },
        [](const Area& area, const PlainReport& plain) { return PointsOf(area) == plain.points; });
}

template <bool VALIDATE>
void AddCheck(Suite& suite)
{
    suite.AddJob(
        "check", LIBRARY<VALIDATE>.name, MakeReport<VALIDATE>,
        [](const ReportBase& report) {
            report.Check();
            return true;
        },
        [](bool checked, const PlainReport&) { return checked; });
}

template <bool VALIDATE>
void AddCompare(Suite& suite)
{
    suite.AddJob(
        "compare", LIBRARY<VALIDATE>.name,
        [](const PlainReport& plain) {
            return std::pair<ReportBase, ReportBase>(MakeReport<VALIDATE>(plain),
                                                     MakeReport<VALIDATE>(plain));
        },
        [](const std::pair<ReportBase, ReportBase>& reports) { return reports.first == reports.second; },
        [](bool equal, const PlainReport&) { return equal; });
}

template <bool VALIDATE>
void AddCopy(Suite& suite)
{
    suite.AddJob(
        "copy", LIBRARY<VALIDATE>.name, MakeReport<VALIDATE>,
        [](const ReportBase& report) { return ReportBase(report); },
        [](const ReportBase& copy, const PlainReport& plain) { return ValuesOf(copy) == plain; });

    suite.AddJob(
        "copy_and_change", LIBRARY<VALIDATE>.name, MakeReport<VALIDATE>,
        [](const ReportBase& report) {
            ReportBase copy(report);
            if (copy.IsAreaSet())
                copy.GetArea().GetCoordinate().first().SetLongitude(CHANGED_NUMBER);
            else
                copy.GetFrequency().SetValue(CHANGED_NUMBER);
            return copy;
        },
        [](const ReportBase& copy, const PlainReport& plain) {
            return ValuesOf(copy) == ChangedCopy(plain);
        });
}

/// A text of settings that is none of a report.
void AddRefusal(Suite& suite)
{
    for (const int size : REFUSED_SIZES) {
        suite.AddTask("refuse", "library", size, [xml = OtherSettings(size)] {
            ReportBase report;
            return !report.SetXmlString(xml, false);
        });
    }
}

template <bool VALIDATE>
void AddJobs(Suite& suite)
{
    AddBuild<VALIDATE>(suite);
    AddCheck<VALIDATE>(suite);
    AddCompare<VALIDATE>(suite);
    AddCopy<VALIDATE>(suite);
}

} // namespace

void AddLibraryJobs(Suite& suite)
{
    AddJobs<true>(suite);
    AddJobs<false>(suite);
    AddRefusal(suite);
}

} // namespace Bench
