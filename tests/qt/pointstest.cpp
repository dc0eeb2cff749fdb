#include "support/points.h"
#include "support/expect.h"

#include <reportgenerator/qt/points.h>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::MakeArea;
using REPORTGENERATOR::MakeCoordinate;
using REPORTGENERATOR::Points;
using REPORTGENERATOR::ReportBase;
using Support::Text;

const char* const BAD_LONGITUDE =
    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.";
const char* const BAD_LATITUDE =
    "Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'.";

template <class Object, class = void>
constexpr bool HasPoints = false;
template <class Object>
constexpr bool HasPoints<Object, std::void_t<decltype(Points(std::declval<Object>()))>> = true;

} // namespace

TEST(QtPoints, ACoordinateIsMadeOfTwoNumbers)
{
    const Coordinate point = MakeCoordinate(-180.0, 90.0);
    EXPECT_EQ(point.GetLongitude(), -180.0);
    EXPECT_EQ(point.GetLatitude(), 90.0);
    EXPECT_TRUE(point.HasData());
}

TEST(QtPoints, ACoordinateOutsideTheRangesIsRefused)
{
    EXPECT_RG_THROW((MakeCoordinate(180.5, 0)), "OutOfRangeException", BAD_LONGITUDE);
    EXPECT_RG_THROW((MakeCoordinate(0, -90.5)), "OutOfRangeException", BAD_LATITUDE);
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_RG_THROW((MakeCoordinate(0, notANumber)), "OutOfRangeException", BAD_LATITUDE);
}

TEST(QtPoints, AnAreaIsMadeOfAListOfNumbers)
{
    const Area area = MakeArea(Text("Lake"), {{9.5, 47.5}, {9.6, 47.25}});
    EXPECT_XML(area, "\n<Area Version=\"1.0\">"
                     "\n    <Name>Lake</Name>"
                     "\n    <Coordinate>"
                     "\n        <Longitude>9.500000</Longitude>"
                     "\n        <Latitude>47.500000</Latitude>"
                     "\n    </Coordinate>"
                     "\n    <Coordinate>"
                     "\n        <Longitude>9.600000</Longitude>"
                     "\n        <Latitude>47.250000</Latitude>"
                     "\n    </Coordinate>"
                     "\n</Area>");
}

TEST(QtPoints, AnAreaIsMadeOfCoordinates)
{
    const QVector<Coordinate> points = {MakeCoordinate(9.5, 47.5), MakeCoordinate(9.6, 47.25)};
    EXPECT_TRUE(MakeArea(Text("Lake"), points) == MakeArea(Text("Lake"), {{9.5, 47.5}, {9.6, 47.25}}));
    EXPECT_TRUE(MakeArea(Text("Lake"), {MakeCoordinate(9.5, 47.5)}) == MakeArea(Text("Lake"), {{9.5, 47.5}}));
}

TEST(QtPoints, AnAreaRefusesWhatItsSettersRefuse)
{
    EXPECT_RG_THROW((MakeArea(QString(), {{1, 2}})), "OutOfRangeException",
                    "Area: Please set Name properly (origin: Setter).");
    EXPECT_RG_THROW((MakeArea(Text("Lake"), {{1, 2}, {181, 2}})), "OutOfRangeException", BAD_LONGITUDE);
    EXPECT_RG_THROW((MakeArea(Text("Lake"), {Coordinate()})), "IncompleteDefinitionException",
                    "Area: Tried to append not completely defined or invalid item Coordinate.");
}

TEST(QtPoints, WalkingThroughAnAreaMarksNothing)
{
    Area area;
    area.SetName(Text("Lake"));
    for (const Coordinate& point : Points(area))
        FAIL() << point.GetLongitude();
    EXPECT_FALSE(area.IsCoordinateSet());

    area = MakeArea(Text("Lake"), {{1, 2}, {3, 4}});
    double sum = 0.0;
    for (const Coordinate& point : Points(area))
        sum += point.GetLongitude();
    EXPECT_EQ(sum, 4.0);
}

TEST(QtPoints, WalkingThroughAReportMarksNothing)
{
    ReportBase report;
    EXPECT_TRUE(Points(report).isEmpty());
    EXPECT_FALSE(report.IsAreaSet());

    report.GetArea().SetName(Text("Lake"));
    EXPECT_TRUE(Points(report).isEmpty());
    EXPECT_FALSE(std::as_const(report).GetArea().IsCoordinateSet());

    report.SetArea(MakeArea(Text("Lake"), {{1, 2}}));
    EXPECT_EQ(Points(report).size(), 1);
}

TEST(QtPoints, AnAreaThatTheReportDoesNotCarryHasNoPoints)
{
    ReportBase report;
    Area& area = report.GetArea();
    report.ResetArea();
    area.AppendCoordinate(MakeCoordinate(1, 2));
    EXPECT_TRUE(Points(report).isEmpty());
}

TEST(QtPoints, ObjectsThatAreAboutToGoHaveNoPoints)
{
    EXPECT_TRUE(HasPoints<Area&>);
    EXPECT_TRUE(HasPoints<const ReportBase&>);
    EXPECT_FALSE(HasPoints<Area>);
    EXPECT_FALSE(HasPoints<ReportBase>);
}
