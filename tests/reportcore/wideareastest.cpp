// Areas that are so wide that the way between their points is in warning: looked at as they are drawn on maps.

#include <reportcore/condition.h>
#include <reportcore/exporting/geometry.h>
#include <reportcore/lint.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reflection/reportfields.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using ReportCore::Condition;
using ReportCore::OpenRingOf;
using ReportCore::Points;
using ReportCore::ReportFile;

QByteArray XmlOf(const Points& points)
{
    QByteArray xml =
        "<ReportBase><Frequency>1.00</Frequency><IFBandwidth>1.00</IFBandwidth><Area><Name>wide</Name>";
    for (const ReportCore::Point& point : points)
        xml += "<Coordinate><Longitude>" + QByteArray::number(point.longitude) + "</Longitude><Latitude>" +
               QByteArray::number(point.latitude) + "</Latitude></Coordinate>";
    return xml + "</Area></ReportBase>";
}

class WideArea
{
public:
    explicit WideArea(const Points& points) : m_xml(XmlOf(points)), m_file(ReportCore::ReadReport(m_xml)) {}

    std::vector<std::string> Warnings() const
    {
        std::vector<std::string> texts;
        for (const auto& problem : ReportCore::FindLint(m_xml, m_file, ReportCore::Look::Thorough))
            texts.push_back(problem.text.toStdString());
        return texts;
    }

    bool Contains(const char* place) const
    {
        const QString condition = QStringLiteral("area contains ") + QLatin1String(place);
        return Condition::Parse(ReportCore::ReportInfo(), condition).IsTrueOf(m_file.report);
    }

private:
    QByteArray m_xml;
    ReportFile m_file;
};

using Texts = std::vector<std::string>;

TEST(WideAreas, EdgesOfHalfATurnGoAsTheyStand)
{
    const WideArea area({{-90, 0}, {90, 0}, {90, 20}, {-90, 20}});
    EXPECT_EQ(area.Warnings(), Texts());
    EXPECT_TRUE(area.Contains("0,10"));
    EXPECT_FALSE(area.Contains("180,10"));
    EXPECT_FALSE(area.Contains("0,30"));
}

TEST(WideAreas, TheWholeEarthIsAnArea)
{
    const WideArea area({{-180, -90}, {180, -90}, {180, 90}, {-180, 90}});
    EXPECT_EQ(area.Warnings(), Texts());
    EXPECT_TRUE(area.Contains("0,10"));
    EXPECT_TRUE(area.Contains("180,0"));
    EXPECT_TRUE(area.Contains("-179,-89"));
}

TEST(WideAreas, AWayAroundTheEarthEnclosesItsPole)
{
    const WideArea cap({{0, 80}, {90, 80}, {180, 80}, {-90, 80}});
    EXPECT_EQ(cap.Warnings(), Texts());
    EXPECT_TRUE(cap.Contains("10,85"));
    EXPECT_TRUE(cap.Contains("-170,89"));
    EXPECT_FALSE(cap.Contains("10,75"));
    EXPECT_FALSE(cap.Contains("10,-85"));
    EXPECT_EQ(WideArea({{100, 70}, {40, 75}, {-20, 80}, {-80, 70}, {-140, 75}, {160, 80}}).Warnings(),
              Texts());
}

TEST(WideAreas, EdgesMeetHoweverFarTheOutlineWanders)
{
    EXPECT_EQ(WideArea({{0, 0}, {170, 10}, {-20, 20}, {160, 5}, {-30, 40}, {150, -20}}).Warnings().size(),
              1U);
    // Twice around the earth and back over itself.
    EXPECT_EQ(WideArea({{0, 0}, {120, 1}, {-120, 2}, {0, 3}, {120, 4}, {-120, 5}, {0, 6}, {10, -20}})
                  .Warnings()
                  .size(),
              1U);
}

TEST(WideAreas, ACapWhoseEdgesMeetIsWarnedOf)
{
    // From 100 degrees back to 80, and on across the way that led there.
    const WideArea cap({{0, 80}, {100, 80}, {80, 70}, {90, 85}, {180, 80}, {-90, 80}});
    EXPECT_EQ(cap.Warnings(), Texts{"the edges behind coordinate 1 and 3 meet"});
}

TEST(WideAreas, AcrossTheAntimeridianTheWayIsTheShorterOne)
{
    const WideArea area({{170, 0}, {-170, 0}, {-170, 10}, {170, 10}});
    EXPECT_EQ(area.Warnings(), Texts());
    EXPECT_TRUE(area.Contains("175,5"));
    EXPECT_TRUE(area.Contains("-175,5"));
    EXPECT_TRUE(area.Contains("180,5"));
    EXPECT_FALSE(area.Contains("0,5"));
}

TEST(WideAreas, WhatEnclosesNothingStaysWhereItIs)
{
    const WideArea line({{179, 0}, {180, 0}, {-179, 0}});
    EXPECT_TRUE(line.Contains("-179.5,0"));
    EXPECT_FALSE(line.Contains("0,0"));
    EXPECT_EQ(WideArea({{180, 5}, {-180, 5}}).Warnings(), Texts{"1 different points surround nothing"});
}

TEST(WideAreas, PointsOfARingKnowTheirPlaceInTheList)
{
    const auto indexes = [](const Points& ring) {
        std::vector<int> found;
        for (const ReportCore::Point& point : ring)
            found.push_back(point.index);
        return found;
    };
    // A point that comes twice, and the one that closes the ring.
    EXPECT_EQ(indexes(OpenRingOf({{0, 0, 4}, {5, 0, 5}, {5, 0, 6}, {5, 5, 8}, {0, 0, 9}})),
              (std::vector<int>{4, 5, 8}));
    // The antimeridian is met behind the third, and the way ends where it began, along the pole.
    EXPECT_EQ(indexes(OpenRingOf({{0, 80, 0}, {90, 80, 1}, {170, 80, 2}, {-90, 80, 3}})),
              (std::vector<int>{2, 3, 0, 1, 2, 2, 2, 2}));
}

} // namespace
