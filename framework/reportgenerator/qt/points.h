#ifndef REPORTGENERATOR_QT_POINTS_H
#define REPORTGENERATOR_QT_POINTS_H

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>
#include <QtCore/QVector>

#include <initializer_list>

// Points and areas made in one expression, and walked through without changing anything.
//
//     const Area lake = MakeArea(QStringLiteral("Lake"), {{9.5, 47.5}, {9.6, 47.5}, {9.6, 47.6}});
//     report.SetArea(lake);
//     for (const Coordinate& point : Points(report))
//         Draw(point);

namespace REPORTGENERATOR {

/// A point in degrees, for the lists in braces of `MakeArea`.
struct LonLat
{
    double longitude = 0.0; ///< degrees east, [-180, 180]
    double latitude = 0.0;  ///< degrees north, [-90, 90]
};

/// A coordinate from its degrees: east, [-180, 180], and north, [-90, 90]. Throws `RGException` named
/// "OutOfRangeException" for others, NaN included, as the setters do.
inline Coordinate MakeCoordinate(double longitude, double latitude)
{
    Coordinate point;
    point.SetLongitude(longitude);
    point.SetLatitude(latitude);
    return point;
}

/// An area of coordinates. Throws what `Area::SetName` throws for a null text, and what `Area::AppendCoordinate` throws
/// for an incomplete coordinate.
inline Area MakeArea(const QString& name, const QVector<Coordinate>& points)
{
    Area area;
    area.SetName(name);
    for (const Coordinate& point : points)
        area.AppendCoordinate(point);
    return area;
}

/// An area of points given by their degrees. Throws as `MakeCoordinate`, too.
inline Area MakeArea(const QString& name, std::initializer_list<LonLat> points)
{
    Area area;
    area.SetName(name);
    for (const LonLat& point : points)
        area.AppendCoordinate(MakeCoordinate(point.longitude, point.latitude));
    return area;
}

/// The coordinates of an area, for a range-for too. Other than `Area::GetCoordinate` of an area that isn't const, this
/// never marks them as set. The list belongs to the area and is gone with it.
inline const QVector<Coordinate>& Points(const Area& area)
{
    return area.GetCoordinate();
}

/// The coordinates of a report's area, none when the report carries none. Marks neither the area nor its list as set.
inline const QVector<Coordinate>& Points(const ReportBase& report)
{
    static const QVector<Coordinate> NONE;
    return report.IsAreaSet() ? report.GetArea().GetCoordinate() : NONE;
}

/// Not to be called: the list of an object that is about to go.
const QVector<Coordinate>& Points(const Area&& area) = delete;
/// Not to be called: the list of an object that is about to go.
const QVector<Coordinate>& Points(const ReportBase&& report) = delete;

} // namespace REPORTGENERATOR

#endif
