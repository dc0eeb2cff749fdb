// The numbers of items in paths are those that the items have in the report.

#include "reporttool/samples.h"

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/lint.h>
#include <reportcore/reportfile.h>

#include <gtest/gtest.h>

#include <QtCore/QStringList>

namespace {

using ReportCore::FindLint;
using ReportCore::Look;
using ReportCore::ReadReport;
using ReportCore::ReportFile;
using Support::AreaElement;
using Support::Bytes;
using Support::Coordinates;
using Support::Name;
using Support::Point;
using Support::Version;
using ToolTest::Plain;

/// The paths of all problems and lint, and how many coordinates there are.
QString PathsIn(const QByteArray& bytes)
{
    const ReportFile file = ReadReport(bytes);
    QStringList paths;
    for (const ReportCore::Problem& problem : file.problems)
        paths << problem.path;
    for (const ReportCore::Problem& warning : FindLint(bytes, file, Look::Thorough)) {
        if (warning.name == QLatin1String(ReportCore::NOT_A_NUMBER))
            paths << warning.path;
    }
    paths << QString::number(file.report.GetArea().GetCoordinate().size());
    return paths.join(QLatin1Char(' '));
}

Bytes TwoPoints()
{
    return Coordinates(2, Point("1.0", "2.0") + Point("3.0", "4.0"));
}

Bytes BadPoint()
{
    return Coordinates(1, Point("5.0", "95.0"));
}

Bytes OddPoint()
{
    return Coordinates(1, Point("abc", "6.0"));
}

TEST(ItemNumbers, SecondListInABinaryAreaGoesOn)
{
    const Bytes begin = Version(u"1.0") + Name("Lake") + TwoPoints();
    EXPECT_TEXT(PathsIn(Plain(AreaElement(begin + BadPoint()))), "area.coordinate[3].latitude 3");
    EXPECT_TEXT(PathsIn(Plain(AreaElement(begin + OddPoint()))), "area.coordinate[3].longitude 3");
    EXPECT_TEXT(PathsIn(Plain(AreaElement(begin + TwoPoints() + BadPoint()))),
                "area.coordinate[5].latitude 5");
}

TEST(ItemNumbers, SecondBinaryAreaTakesThePlaceOfTheFirst)
{
    const Bytes first = AreaElement(Version(u"1.0") + Name("Lake") + TwoPoints());
    EXPECT_TEXT(PathsIn(Plain(first + AreaElement(Version(u"1.0") + Name("Sea") + BadPoint()))),
                "area.coordinate[1].latitude 1");
}

TEST(ItemNumbers, OlderVersionInABinaryAreaBeginsAnew)
{
    EXPECT_TEXT(PathsIn(Plain(AreaElement(Version(u"1.0") + Name("Lake") + TwoPoints() + Version(u"0.9") +
                                          Name("Lake") + BadPoint()))),
                "area.coordinate[1].latitude 1");
    EXPECT_TEXT(PathsIn(Plain(AreaElement(Version(u"1.0") + Name("Lake") + TwoPoints() + Version(u"1.1") +
                                          BadPoint()))),
                "area.coordinate[3].latitude 3");
}

TEST(ItemNumbers, CompleteSecondListIsNothingRepeated)
{
    const QByteArray bytes = Plain(AreaElement(Version(u"1.0") + Name("Lake") + TwoPoints() + TwoPoints()));
    const ReportFile file = ReadReport(bytes);
    EXPECT_TRUE(file.IsGood());
    for (const ReportCore::Problem& warning : FindLint(bytes, file, Look::Thorough))
        EXPECT_NE(warning.name, QLatin1String(ReportCore::REPEATED_ELEMENT)) << warning.path.toStdString();
}

TEST(ItemNumbers, AnUnknownElementInAnItemDoesNotMoveIt)
{
    const auto incompletePoint = [](const Bytes& behind) {
        const Bytes point = Support::Body(Support::Longitude("5.0") + behind);
        const ReportFile file =
            ReadReport(Plain(AreaElement(Version(u"1.0") + Name("Lake") + Coordinates(1, point))));
        EXPECT_EQ(file.problems.size(), 1U);
        return file.problems.empty() ? QString() : ReportCore::PlaceCode(file.problems.front().place);
    };
    EXPECT_TEXT(incompletePoint(Support::Element(7, Support::Int32(0))), incompletePoint(Bytes()));
}

TEST(ItemNumbers, SecondAreaInXmlGoesOnWithTheItemsOfTheFirst)
{
    const auto point = [](const char* longitude, const char* latitude) {
        return QByteArray("<Coordinate><Longitude>") + longitude + "</Longitude><Latitude>" + latitude +
               "</Latitude></Coordinate>";
    };
    const auto area = [](const char* begin, const QByteArray& points) {
        return QByteArray(begin) + "<Name>Lake</Name>" + points + "</Area>";
    };
    const auto report = [](const QByteArray& areas) { return "<ReportBase>" + areas + "</ReportBase>"; };
    constexpr char CURRENT[] = "<Area Version=\"1.0\">";
    const QByteArray first = area(CURRENT, point("1.0", "2.0") + point("3.0", "4.0"));
    EXPECT_TEXT(PathsIn(report(first + area(CURRENT, point("5.0", "95.0")))),
                "area.coordinate[3].latitude 3");
    EXPECT_TEXT(PathsIn(report(first + area(CURRENT, point("abc", "6.0")))),
                "area.coordinate[3].longitude 3");
    // Without a version, or with an older one, an area begins anew.
    for (const char* begin : {"<Area>", "<Area Version=\"0.9\">"}) {
        EXPECT_TEXT(PathsIn(report(first + area(begin, point("5.0", "95.0")))),
                    "area.coordinate[1].latitude 1");
        EXPECT_TEXT(PathsIn(report(first + area(begin, point("abc", "6.0")))),
                    "area.coordinate[1].longitude 1");
    }
}

} // namespace
