#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/difference.h>
#include <reportgenerator/qt/points.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Difference;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::MakeCoordinate;
using REPORTGENERATOR::ReportBase;
using Support::Text;

/// An area of points at 0 to 99 degrees, over and over.
Area Row(int count)
{
    Area area;
    area.SetName(Text("Row"));
    for (int i = 0; i < count; ++i)
        area.AppendCoordinate(MakeCoordinate(i % 100, 0));
    return area;
}

void Move(Area& area, int index)
{
    area.GetCoordinate()[index].SetLatitude(1.5);
}

} // namespace

TEST(QtDifference, EqualObjectsHaveNone)
{
    EXPECT_TEXT(Difference(Ellipse(), Ellipse()), "");
    EXPECT_TEXT(Difference(Row(3), Row(3)), "");
    ReportBase report;
    report.SetArea(Row(3));
    EXPECT_TEXT(Difference(report, ReportBase(report)), "");
    Area marked;
    marked.GetCoordinate();
    EXPECT_TEXT(Difference(Area(), marked), "");
}

TEST(QtDifference, SmallObjectsAreShownWhole)
{
    Ellipse ellipse;
    ellipse.SetRotation(30.0);
    EXPECT_TEXT(Difference(ellipse, Ellipse()), "Ellipse(rotation: 30) and Ellipse()");
    EXPECT_TEXT(Difference(MakeCoordinate(1, 2), Support::OnlyLatitude(2.0)),
                "Coordinate(longitude: 1, latitude: 2) and Coordinate(latitude: 2)");
}

TEST(QtDifference, AreasTellThePointThatDiffers)
{
    Area area = Row(1000);
    Move(area, 499);
    EXPECT_TEXT(Difference(area, Row(1000)), "coordinate[500]: (99, 1.5) and (99, 0)");
    area.GetCoordinate()[0].ResetLongitude();
    EXPECT_TEXT(Difference(Row(1000), area), "coordinate[1]: (0, 0) and (not set, 0)\n"
                                             "coordinate[500]: (99, 0) and (99, 1.5)");
}

TEST(QtDifference, NoMoreThanFivePointsAreTold)
{
    Area area = Row(10);
    for (int i = 0; i < 5; ++i)
        Move(area, i);
    const char* const five = "coordinate[1]: (0, 1.5) and (0, 0)\ncoordinate[2]: (1, 1.5) and (1, 0)\n"
                             "coordinate[3]: (2, 1.5) and (2, 0)\ncoordinate[4]: (3, 1.5) and (3, 0)\n"
                             "coordinate[5]: (4, 1.5) and (4, 0)";
    EXPECT_TEXT(Difference(area, Row(10)), five);
    Move(area, 7);
    Move(area, 9);
    EXPECT_TEXT(Difference(area, Row(10)), Text(five) + Text("\ncoordinate: 2 more"));
}

TEST(QtDifference, AreasTellTextsAndHowManyPointsThereAre)
{
    Area named = Row(2);
    named.SetName(Text("Lake"));
    named.SetScriptID(Text(""));
    EXPECT_TEXT(Difference(named, Row(3)), "name: \"Lake\" and \"Row\"\ncoordinates: 2 and 3\n"
                                           "scriptId: \"\" and not set");
    named.ResetName();
    EXPECT_TEXT(Difference(Row(2), named), "name: \"Row\" and not set\nscriptId: not set and \"\"");
}

TEST(QtDifference, PointsThatCountAsNotSetAreTold)
{
    Area marked;
    marked.AppendCoordinate(Support::At(1.0, 2.0));
    EXPECT_TEXT(Difference(marked, Support::WithUnflaggedPoint()),
                "coordinates: Area(coordinates: 1 [(1, 2)]) and Area()");
    EXPECT_TEXT(Difference(Support::WithUnflaggedPoint(), marked), "");
}

TEST(QtDifference, ReportsTellTheirMembers)
{
    ReportBase left;
    left.GetFrequency().SetValue(1.0);
    left.SetArea(Row(2));
    ReportBase right;
    right.GetIFBandwidth().SetValue(2.0);
    EXPECT_TEXT(Difference(left, right),
                "frequency: Frequency(value: 1) and not set\n"
                "ifBandwidth: not set and IFBandwidth(value: 2)\n"
                "area: Area(name: \"Row\", coordinates: 2 [(0, 0), (1, 0)]) and not set");
    right = left;
    right.GetFrequency().SetValue(1.25);
    Move(right.GetArea(), 1);
    EXPECT_TEXT(Difference(left, right), "frequency: Frequency(value: 1) and Frequency(value: 1.25)\n"
                                         "area.coordinate[2]: (1, 0) and (1, 1.5)");
}

TEST(QtDifference, ANaNDiffersFromItself)
{
    Frequency frequency;
    frequency.SetValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TEXT(Difference(frequency, frequency), "Frequency(value: nan) and Frequency(value: nan)");
}
