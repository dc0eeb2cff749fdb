// What would be gone if the report of a file took the file's place.

#include "reporttool/samples.h"

#include "support/choices.h"
#include "support/composedinput.h"
#include "support/expect.h"
#include "support/recordelements.h"

#include <reportcore/losses.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace {

using Support::AreaElement;
using Support::Bytes;
using Support::Coordinates;
using Support::Element;
using Support::FrequencyElement;
using Support::Name;
using Support::Point;
using Support::Value;
using Support::Version;
using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::InFile;
using ToolTest::NamedArea;
using ToolTest::NamedAreaXml;
using ToolTest::Plain;
namespace Tag = Support::Tag;

/// A line for each loss: place, name, text.
QString LossesOf(const QByteArray& bytes)
{
    QStringList lines;
    for (const ReportCore::Problem& loss : ReportCore::FindLosses(bytes, ReportCore::ReadReport(bytes)))
        lines << QStringLiteral("%1 %2: %3").arg(PlaceCode(loss.place), loss.name, loss.text);
    return lines.join(QLatin1Char('\n'));
}

QByteArray Report(const QByteArray& content)
{
    return "<ReportBase>" + content + "</ReportBase>";
}

/// In UTF-16 with the least significant byte first, without byte order mark.
QByteArray InUtf16(const QByteArray& ascii)
{
    QByteArray bytes;
    for (const char byte : ascii) {
        bytes += byte;
        bytes += '\0';
    }
    return bytes;
}

} // namespace

TEST(Losses, ThereAreNoneOfWhatTheLibraryWrites)
{
    for (const QByteArray& bytes :
         {FullXml(), FullPlain(), FullCompressed(), InFile(FullPlain()), InFile(FullCompressed())})
        EXPECT_TEXT(LossesOf(bytes), "");
}

TEST(Losses, BlanksCommentsAndDeclarationsAreNone)
{
    EXPECT_TEXT(LossesOf("<?xml version=\"1.0\"?>\r\n<!-- a -->\r\n<ReportBase>\r\n  <!-- b -->\r\n"
                         "  <Frequency Use=\"1\">5</Frequency>\r\n<?p q?></ReportBase>\r\n<!-- c -->"),
                "");
}

TEST(Losses, ElementsAroundTheReportAndBesideItAreLost)
{
    EXPECT_TEXT(LossesOf("<Mission><Head><Id>7</Id></Head><Task>\n<ReportBase/></Task></Mission>"),
                "1:1 SurroundingElement: element 'Mission' around the report\n"
                "1:10 SurroundingElement: element 'Head'\n"
                "1:33 SurroundingElement: element 'Task' around the report");
}

TEST(Losses, OtherReportsAreLost)
{
    EXPECT_TEXT(LossesOf("<Tasks><ReportBase/>\n<ReportBase><Foo/></ReportBase><ReportBase/></Tasks>"),
                "1:1 SurroundingElement: element 'Tasks' around the report\n"
                "2:1 SecondReport: another report\n"
                "2:32 SecondReport: another report");
}

TEST(Losses, UnknownElementsAttributesAndTextsAreLost)
{
    EXPECT_TEXT(LossesOf(Report("<Antenna><Height>3</Height></Antenna>")),
                "1:13 UnknownElement: element 'Antenna'");
    EXPECT_TEXT(LossesOf(Report("<Frequency Unit=\"Hz\">5</Frequency>")),
                "1:13 UnknownAttribute: attribute 'Unit'");
    EXPECT_TEXT(LossesOf(Report("<Frequency>5</Frequency>\n seen by \"me\"")),
                "2:2 UnknownText: text \"seen by \\\"me\\\"\"");
    EXPECT_TEXT(LossesOf(Report("hello")), "1:13 UnknownText: text \"hello\"");
}

TEST(Losses, AllButTheLastPieceOfADividedTextIsLost)
{
    EXPECT_TEXT(LossesOf(Report("<Frequency>12<!-- or -->15</Frequency>")),
                "1:37 UnknownText: a piece of a text that something divides");
}

TEST(Losses, ValuesThatReadingChangesAreNamedWithWhatTheyBecome)
{
    EXPECT_TEXT(LossesOf(Report("<Frequency>6,02</Frequency>")),
                "1:24 LostValue: frequency.value \"6,02\" becomes 0");
    EXPECT_TEXT(LossesOf(Report("<Frequency Use=\"no\">5</Frequency>")),
                "1:29 LostValue: frequency.use \"no\" becomes true");
    EXPECT_TEXT(LossesOf(Report("<Frequency>5</Frequency><Frequency>6</Frequency>")),
                "1:24 LostValue: frequency.value \"5\" becomes 6");
}

TEST(Losses, NumbersWithMoreDigitsThanAFormKeepsAreNone)
{
    EXPECT_TEXT(LossesOf(Report("<Frequency Min=\" 4.125 \">5.0000000001</Frequency>")), "");
}

TEST(Losses, CarriageReturnsInTextsAreLost)
{
    EXPECT_TEXT(LossesOf(NamedAreaXml("a\r\nb")), "1:39 CarriageReturns: carriage returns in area.name");
    // So are those that are all of a text, but not those that end lines.
    EXPECT_TEXT(LossesOf(NamedAreaXml("\r")), "1:39 CarriageReturns: carriage returns in area.name");
    EXPECT_TEXT(LossesOf(NamedAreaXml("a").replace("><", ">\r\n <") + "\r\n"), "");
    // One that is written as a reference is read as one.
    EXPECT_TEXT(LossesOf(NamedAreaXml("a&#13;b")), "");
}

TEST(Losses, WhatFollowsAnUnknownChildOfAnAreaIsLost)
{
    EXPECT_TEXT(
        LossesOf(Report("<Area Version=\"1.0\"><Colour/>\n<Name>A</Name>\n"
                        "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                        "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude></Coordinate></Area>")),
        "1:33 UnknownElement: element 'Colour'\n"
        "2:7 LostValue: area.name \"A\"\n"
        "3:1 LostValue: area.coordinate[1] to area.coordinate[2]");
}

TEST(Losses, WhatStandsBehindAMalformedPlaceIsLost)
{
    EXPECT_TEXT(LossesOf("<ReportBase><Frequency>5</Frequency>\n<Area"),
                "2:6 LostRest: what stands from line 2, column 6 on");
    EXPECT_TEXT(LossesOf("<ReportBase><Frequency>5</Frequency></ReportBase>\n<x"),
                "2:3 TrailingData: what stands from line 2, column 3 on");
}

TEST(Losses, EncodingsMakeNoDifference)
{
    EXPECT_TEXT(LossesOf(InUtf16("<Mission><ReportBase><Antenna/></ReportBase></Mission>")),
                "1:1 SurroundingElement: element 'Mission' around the report\n"
                "1:22 UnknownElement: element 'Antenna'");
}

TEST(Losses, UnknownBinaryElementsAreLost)
{
    // The frame takes 46 bytes, tag and length 8 each: those of the root, of the first element, of the frequency.
    const QByteArray bytes =
        Plain(Element(0x01020304, Bytes()) + Element(Tag::REPORT_FREQUENCY, Element(0x0badcafe, Bytes())));
    EXPECT_TEXT(LossesOf(bytes), "0x36 UnknownElement: element with tag 0x01020304\n"
                                 "0x46 UnknownElement: element with tag 0x0badcafe");
}

TEST(Losses, ValuesThatReadingTakesOtherwiseAreLostInBinaryFormsToo)
{
    EXPECT_TEXT(LossesOf(Plain(FrequencyElement("6,02"))),
                "0x4a LostValue: frequency.value \"6,02\" becomes 0");
    EXPECT_TEXT(LossesOf(Plain(Element(Tag::REPORT_FREQUENCY, Value("5") + Value("6")))),
                "0x4a LostValue: frequency.value \"5\" becomes 6");
    EXPECT_TEXT(LossesOf(Plain(NamedArea("a\xff"))),
                "0x5c LostValue: area.name \"a\xef\xbf\xbd\" becomes \"a\xef\xbf\xbd\"");
}

TEST(Losses, WhatAnOlderVersionEmptiesIsLost)
{
    EXPECT_TEXT(LossesOf(Plain(AreaElement(Name("A") + Version(u"0.9") + Name("B") +
                                           Coordinates(1, Point("8.500000", "47.250000"))))),
                "0x4a LostValue: area.name \"A\" becomes \"B\"");
}

TEST(Losses, AnAreaThatIsCutOffIsLostFromWhereItBegins)
{
    // The frequency ends at 0x4b, and so many bytes of the area are left that its name is there.
    const QByteArray whole = Plain(FrequencyElement("5") + NamedArea("Lake"));
    EXPECT_TEXT(LossesOf(whole.left(0x4b + 60)), "0x4b LostRest: the area from offset 0x4b on");
}

TEST(Losses, AllOfAFileWithoutAReportIsLost)
{
    EXPECT_TEXT(LossesOf("hello"), " UnknownForm: the whole file: not a report in any known form");
    EXPECT_TEXT(LossesOf("<Mission/>"), "1:1 NoReport: the whole file: there is no element 'ReportBase'");
}

TEST(Losses, BytesBehindTheEndAreLost)
{
    EXPECT_TEXT(LossesOf(Plain(FrequencyElement("5")) + "1234567"),
                "0x4b TrailingData: 7 bytes behind the end");
}

TEST(Losses, AreTheSameHoweverTheReportWasRead)
{
    int plain = 0;
    for (quint64 seed = 1; seed <= 2000; ++seed) {
        Support::Choices choices(seed);
        QByteArray bytes;
        if (seed % 2 == 0)
            bytes = Support::ComposeXml(Support::Kind::Report, choices).toUtf8().replace("\n", "\r\n");
        else
            bytes = Support::ComposeRepresentation(Support::Kind::Report, false, choices);
        if (seed % 3 == 0)
            bytes = Support::Mutated(bytes, choices);
        ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
        if (!file.wasReadWhole)
            continue;
        ++plain;
        const auto quick = ReportCore::FindLosses(bytes, file);
        file.wasReadWhole = false;
        const auto thorough = ReportCore::FindLosses(bytes, file);
        ASSERT_EQ(quick.size(), thorough.size())
            << seed << ": " << thorough.front().text.toStdString() << " in " << bytes.toStdString();
    }
    EXPECT_GT(plain, 100);
}
