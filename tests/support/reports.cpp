#include "support/reports.h"

#include "support/points.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <gtest/gtest.h>

namespace Support {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

Frequency FrequencyOf(double value)
{
    Frequency frequency;
    frequency.SetValue(value);
    return frequency;
}

IFBandwidth BandwidthOf(double value)
{
    IFBandwidth bandwidth;
    bandwidth.SetValue(value);
    return bandwidth;
}

Area LakeWithoutScript()
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.AppendCoordinate(At(1.0, 2.0));
    return area;
}

ReportBase CompleteReport()
{
    ReportBase report;
    report.SetFrequency(FrequencyOf(5.0));
    report.SetIFBandwidth(BandwidthOf(6.0));
    report.SetArea(LakeWithoutScript());
    return report;
}

ReportState CompleteReportState()
{
    ReportState state;
    state.frequency = FrequencyState{5.0};
    state.bandwidth = BandwidthState{6.0};
    state.area = LakeState();
    state.area->scriptID.reset();
    return state;
}

ReportBase ReportWithFlags(int flags)
{
    ReportBase report = CompleteReport();
    Bytes raw = Byte(flags);
    if (flags & 1)
        raw += Byte(1) + Double(5.0);
    if (flags & 2)
        raw += Byte(1) + Double(6.0);
    if (flags & 4)
        raw += Byte(3) + String(u"1.0") + String(u"Lake") + Int32(0);
    EXPECT_EQ(ReadRawForm(report, raw), 0);
    return report;
}

Bytes LakeElements()
{
    return Version(u"1.0") + Name("Lake") + Coordinates(1, Point("1.000000", "2.000000"));
}

std::string Carried(const ReportBase& report)
{
    std::string members;
    if (report.IsFrequencySet())
        members += "frequency ";
    if (report.IsIFBandwidthSet())
        members += "bandwidth ";
    if (report.IsAreaSet())
        members += "area ";
    return members;
}

namespace {

class NameAccess : public Frequency
{
public:
    static void Rename(IRGObject& object, const QString& name)
    {
        (object.*(&NameAccess::SetObjectName))(name);
    }
};

} // namespace

void Rename(IRGObject& object, const QString& name)
{
    NameAccess::Rename(object, name);
}

} // namespace Support
