#include "libraryobjects.h"

namespace Bench {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;

namespace {

Coordinate MakeCoordinate(const Point& point)
{
    Coordinate coordinate;
    coordinate.SetLongitude(point.longitude);
    coordinate.SetLatitude(point.latitude);
    return coordinate;
}

} // namespace

void FillArea(Area& area, const PlainReport& plain)
{
    area.SetName(plain.areaName);
    for (const Point& point : plain.points)
        area.AppendCoordinate(MakeCoordinate(point));
}

ReportBase EmptyReport(bool validate)
{
    ReportBase report;
    report.SetValidate(validate);
    return report;
}

ReportBase MakeReport(const PlainReport& plain, bool validate)
{
    ReportBase report = EmptyReport(validate);
    report.GetFrequency().SetValue(plain.frequency);
    report.GetFrequency().SetMin(plain.frequencyMin);
    report.GetFrequency().SetMax(plain.frequencyMax);
    report.GetFrequency().SetUse(plain.frequencyUse);
    report.GetIFBandwidth().SetValue(plain.bandwidth);
    report.GetIFBandwidth().SetMin(plain.bandwidthMin);
    if (plain.HasArea())
        FillArea(report.GetArea(), plain);
    return report;
}

QVector<Point> PointsOf(const Area& area)
{
    QVector<Point> points;
    points.reserve(area.GetCoordinate().size());
    for (const Coordinate& coordinate : area.GetCoordinate())
        points.append({coordinate.GetLongitude(), coordinate.GetLatitude()});
    return points;
}

PlainReport ValuesOf(const ReportBase& report)
{
    PlainReport plain;
    plain.frequency = report.GetFrequency().GetValue();
    plain.frequencyMin = report.GetFrequency().GetMin();
    plain.frequencyMax = report.GetFrequency().GetMax();
    plain.frequencyUse = report.GetFrequency().GetUse();
    plain.bandwidth = report.GetIFBandwidth().GetValue();
    plain.bandwidthMin = report.GetIFBandwidth().GetMin();
    plain.areaName = report.GetArea().GetName();
    plain.points = PointsOf(report.GetArea());
    return plain;
}

} // namespace Bench
