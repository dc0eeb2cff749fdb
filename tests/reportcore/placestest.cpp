// Where problems are said to stand.

#include "reporttool/samples.h"

#include "support/expect.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <reportcore/reportfile.h>

#include <gtest/gtest.h>

#include <QtCore/QStringList>

namespace {

using ReportCore::ReadReport;
using Support::ByteArray;
using Support::Element;
using ToolTest::InFile;
using ToolTest::Plain;
namespace Tag = Support::Tag;

constexpr char TOO_FAR_NORTH[] =
    "OutOfRangeException: Parameters for m_latitude are not set within range (-90, 90) in "
    "'Coordinate'. ";

/// The problems of a report, a line each.
QString ProblemsOf(const QByteArray& bytes)
{
    QStringList lines;
    for (const ReportCore::Problem& problem : ReadReport(bytes).problems)
        lines << ReportCore::ProblemLine(problem);
    return lines.join(QLatin1Char('\n'));
}

/// A named area with one point at 8.5 east, and that latitude.
QByteArray AreaAt(const char* latitude)
{
    return QByteArray("<ReportBase>\n<Area Version=\"1.0\">\n <Name>Lake</Name>\n <Coordinate>\n"
                      "  <Longitude>8.5</Longitude>\n  <Latitude>") +
           latitude + "</Latitude>\n </Coordinate>\n</Area>\n</ReportBase>\n";
}

TEST(Places, ValueInXmlIsFoundByLineAndColumn)
{
    EXPECT_TEXT(ProblemsOf(AreaAt("200")), QStringLiteral("6:13: ") + QLatin1String(TOO_FAR_NORTH) +
                                               QStringLiteral("(area.coordinate[1].latitude = \"200\")"));
}

TEST(Places, ValueIsToldAsItWasFound)
{
    EXPECT_TRUE(ProblemsOf(AreaAt(" 2e2 ")).endsWith(QLatin1String("latitude = \" 2e2 \")")));
    EXPECT_TRUE(ProblemsOf(AreaAt("&#50;00")).endsWith(QLatin1String("latitude = \"200\")")));
    EXPECT_TRUE(ProblemsOf(AreaAt("91<!-- -->92")).startsWith(QLatin1String("6:23: ")));
}

TEST(Places, ColumnsCountCharactersWhateverTheEncoding)
{
    const QString xml = QStringLiteral(
        "<ReportBase><Area Version=\"1.0\"><Name>\u00FC\U0001F4E1</Name><Coordinate><Longitude>8"
        "</Longitude><Latitude>91</Latitude></Coordinate></Area></ReportBase>");
    // 12 + 20 + 6 + 2 + 7 + 12 + 11 + 1 + 12 + 10 characters stand before the value.
    const QString expected = QStringLiteral("1:94: ") + QLatin1String(TOO_FAR_NORTH) +
                             QStringLiteral("(area.coordinate[1].latitude = \"91\")");
    EXPECT_TEXT(ProblemsOf(xml.toUtf8()), expected);
    EXPECT_TEXT(ProblemsOf("\xEF\xBB\xBF" + xml.toUtf8()), expected);
    QByteArray utf16("\xFE\xFF");
    for (const QChar unit : xml) {
        utf16 += static_cast<char>(unit.unicode() >> 8U);
        utf16 += static_cast<char>(unit.unicode() & 0xFFU);
    }
    EXPECT_TEXT(ProblemsOf(utf16), expected);
}

TEST(Places, LinesAreCountedFromTheDeclaration)
{
    const QString problems = ProblemsOf("<?xml version=\"1.0\"?>\r\n" + AreaAt("-91"));
    EXPECT_TRUE(problems.startsWith(QLatin1String("7:13: "))) << problems.toStdString();
}

TEST(Places, WhatIsMissingIsToldWhereItsObjectBegins)
{
    EXPECT_TEXT(ProblemsOf("<ReportBase>\n  <Frequency Min=\"1\"/>\n <Area Version=\"1.0\"><Name>a</Name>\n"
                           "<Coordinate><Latitude>1</Latitude></Coordinate></Area></ReportBase>"),
                "4:1: OutOfRangeException: Coordinate: Please set Longitude properly. "
                "(area.coordinate[1].longitude)");
}

TEST(Places, ItemsOfASecondAreaGoOnCounting)
{
    const QByteArray area = "<Area Version=\"1.0\"><Name>a</Name><Coordinate><Longitude>1</Longitude>"
                            "<Latitude>99</Latitude></Coordinate></Area>\n";
    EXPECT_TEXT(ProblemsOf("<ReportBase>\n" + area + area + "</ReportBase>"),
                QStringLiteral("2:81: ") + QLatin1String(TOO_FAR_NORTH) +
                    QStringLiteral("(area.coordinate[1].latitude = \"99\")\n3:81: ") +
                    QLatin1String(TOO_FAR_NORTH) + QStringLiteral("(area.coordinate[2].latitude = \"99\")"));
}

TEST(Places, ValueInABinaryFormIsFoundByItsOffset)
{
    // Root at 0x2e, area at 0x36, its version from 0x3e on, its name from 0x50 on, coordinates from 0x60 on: tag,
    // length, count, length of the first; longitude from 0x70 on, latitude from 0x84 on, its text at 0x90.
    const Support::Bytes area =
        Support::AreaElement(Support::Version(u"1.0") + Support::Name("Lake") +
                             Support::Coordinates(1, Support::Point("8.500000", "99.000000")));
    const QString expected =
        QLatin1String(TOO_FAR_NORTH) + QStringLiteral("(area.coordinate[1].latitude = \"99.000000\")");
    EXPECT_TEXT(ProblemsOf(Plain(area)), QStringLiteral("0x90: ") + expected);
    EXPECT_TEXT(ProblemsOf(InFile(Plain(area))), QStringLiteral("0x94: ") + expected);
    EXPECT_TEXT(ProblemsOf(Support::CompressedRepresentation(u"ReportBase", area).Data()),
                QStringLiteral("uncompressed:0x62: ") + expected);
}

TEST(Places, AnObjectIsFoundWhereItBeginsNotAtWhatNobodyKnowsInIt)
{
    // Root at 0x2e, the IF bandwidth at 0x36, an unknown element at 0x3e.
    EXPECT_TEXT(ProblemsOf(Plain(Element(Tag::REPORT_IF_BANDWIDTH, Element(0x12345678, ByteArray("?"))))),
                "0x36: OutOfRangeException: IFBandwidth: Please set Value properly. (ifBandwidth.value)");
}

TEST(Places, WrongLengthIsToldWithTheFieldWhoseItIs)
{
    EXPECT_TEXT(ProblemsOf(Plain(Support::ElementOfLength(Tag::REPORT_FREQUENCY, 1000,
                                                          Element(Tag::FREQUENCY_VALUE, ByteArray("1.00"))))),
                "0x3a: BinaryParsingException: Frequency::SetBinary(...): Length error occurred during "
                "processing of binary representation (frequency)\n"
                "0x3a: LengthMismatch: length of frequency: 1000 claimed, 16 left (frequency)");
}

TEST(Places, GoodReportsAreReadAtOnceAndPieceByPieceAlike)
{
    // A comment, an unknown element and another encoding keep the report from being read at once.
    const QByteArray plain = AreaAt("1");
    QByteArray commented = plain;
    commented.replace("<Area", "<!-- 1 --><Area");
    QByteArray newer = plain;
    newer.replace("<Area", "<New/><Area");
    const auto report = ReadReport(plain).report;
    for (const QByteArray& bytes :
         {plain, commented, newer, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + plain,
          "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + plain, "<x>" + plain + "</x>"}) {
        const ReportCore::ReportFile file = ReadReport(bytes);
        EXPECT_TRUE(file.IsGood()) << bytes.constData();
        EXPECT_EQ(file.report, report) << bytes.constData();
    }
}

TEST(Places, WhatTheLibraryDoesNotReadIsLookedAtAllTheSame)
{
    // An element within one of its name ends the report for the library.
    const QByteArray nested = "<ReportBase><New><New/></New><Frequency>1.00</Frequency><</ReportBase>";
    EXPECT_TRUE(ProblemsOf(nested).contains(QLatin1String("TrailingData: "))) << nested.constData();
}

} // namespace
