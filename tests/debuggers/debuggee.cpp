// What gdb is made to print: it stops in Stop() and asks for the variables of main().

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <QtCore/QList>
#include <QtCore/QVector>

#include <cstring>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ScanParameter;

void Stop()
{
    // A call that stays a call.
    static volatile int stops = 0;
    stops = stops + 1;
}

Coordinate Point(double longitude, double latitude)
{
    Coordinate point;
    point.SetLongitude(longitude);
    point.SetLatitude(latitude);
    return point;
}

} // namespace

int main()
{
    const ReportBase untouched;
    const Frequency untouchedFrequency;

    Coordinate half;
    half.SetLongitude(9.25);

    Area lake;
    lake.SetName(QStringLiteral("Lake \"\u00dc\""));
    lake.AppendCoordinate(Point(9.5, 47.5));
    lake.AppendCoordinate(Point(9.25, 47.75));
    lake.AppendCoordinate(Point(9.5, 47.75));

    ReportBase report;
    report.GetFrequency().SetValue(97500000.0);
    report.GetFrequency().SetUse(true);
    report.SetArea(lake);

    // Has the coordinates of its source.
    ReportBase copy(report);
    copy.GetArea().SetScriptID(QStringLiteral("L-7"));
    copy.ResetFrequency();
    const ReportBase& reference = copy;
    const ReportBase* pointer = &copy;

    Area large;
    for (int i = 0; i < 1000; ++i)
        large.AppendCoordinate(Point(i * 0.125, -i * 0.0625));
    const Area largeCopy(large);

    const QVector<Coordinate> points = {Point(1.0, 2.0), half};
    const QList<ReportBase> reports = {report, untouched};
    const std::vector<IFBandwidth> bandwidths(2);

    Ellipse ellipse;
    ellipse.SetMinRadius(1.5);
    FrequencyInformation information;
    information.SetFrequency(433920000.0);
    ChannelSpacing spacing;
    spacing.SetSameDistance(true);
    spacing.SetValues({8333.25, 12500.0});
    ScanParameter scan;
    scan.SetDwellTime(0.25);
    MeasurementTime noTime;
    MeasurementTime time;
    time.SetMeasurementMode(MeasurementTime::Periodic);
    time.GetMeasurementTime().SetUnit(QStringLiteral("s"));
    time.GetMeasurementTime().SetValue(2.5);
    Double zeroMeansNone;
    zeroMeansNone.SetDefaultInvalidValue(0.0);
    zeroMeansNone.Reset();
    zeroMeansNone.SetMinimum(-111111.11);
    const OutOfRangeException exception(QStringLiteral("Latitude: 91"));

    // Memory in which no object has been made yet.
    alignas(Area) unsigned char memory[sizeof(Area)];
    std::memset(memory, 0xFF, sizeof memory);
    const Area* unmade = reinterpret_cast<const Area*>(memory);

    Stop();
    Q_UNUSED(unmade)
    return reference == *pointer ? 0 : 1;
}
