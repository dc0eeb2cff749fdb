// A report that is read whole on the fast path is the one that is found by looking at each tag, and so is what is said of it.

#include "reporttool/samples.h"

#include "support/expect.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <reportcore/lint.h>
#include <reportcore/reading/reading.h>
#include <reportcore/reportfile.h>

#include <gtest/gtest.h>

#include <QtCore/QStringList>

namespace {

using ReportCore::FindLint;
using ReportCore::Look;
using ReportCore::ReadReport;
using ReportCore::ReportFile;
using Support::ByteArray;
using Support::Element;
using ToolTest::Plain;
namespace Tag = Support::Tag;

constexpr char BEGIN[] = "<ReportBase><Frequency Min=\"1.00\">2.00</Frequency><Area Version=\"1.0\"><Name>";
constexpr char AFTER_NAME[] = "</Name>";
constexpr char POINTS[] = "<Coordinate><Longitude>1.0</Longitude><Latitude>2.0</Latitude></Coordinate>"
                          "<Coordinate><Longitude>3.0</Longitude><Latitude>2.5</Latitude></Coordinate>"
                          "<Coordinate><Longitude>2.0</Longitude><Latitude>4.0</Latitude></Coordinate>";
constexpr char END[] = "</Area></ReportBase>";

QByteArray Lake()
{
    return QByteArray(BEGIN) + "Lake" + AFTER_NAME + POINTS + END;
}

/// The lake with something put in place of a piece of it.
QByteArray Lake(const char* piece, const char* other)
{
    QByteArray xml = Lake();
    EXPECT_EQ(xml.count(piece), 1) << piece;
    return xml.replace(piece, other);
}

QString LinesOf(const ReportCore::Problems& problems)
{
    QStringList lines;
    for (const ReportCore::Problem& problem : problems)
        lines << ReportCore::ProblemLine(problem);
    return lines.join(QLatin1Char('\n'));
}

/// What is known of a file in the end, for comparing.
QString Outcome(const ReportFile& file, const QByteArray& bytes)
{
    return file.objectName + QLatin1Char('\n') + file.report.GetXmlString() + QLatin1Char('\n') +
           LinesOf(file.problems) + QLatin1Char('\n') + LinesOf(FindLint(bytes, file, Look::Thorough));
}

void ExpectSame(const QByteArray& bytes, bool isWhole)
{
    SCOPED_TRACE(bytes.toStdString());
    const ReportFile quick = ReadReport(bytes);
    EXPECT_EQ(quick.wasReadWhole, isWhole);
    ReportFile thorough;
    thorough.form = quick.form;
    ReadXmlDiagnosing(bytes, thorough);
    thorough.report.ResetLogger();
    EXPECT_TEXT(Outcome(quick, bytes), Outcome(thorough, bytes));
}

TEST(QuickReading, ReportAloneIsReadWhole)
{
    ExpectSame(Lake(), true);
    ExpectSame("\n " + Lake() + "\n", true);
    ExpectSame("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + Lake(), true);
    ExpectSame("<?xml version='1.0' standalone='yes' ?>" + Lake(), true);
    ExpectSame("\xEF\xBB\xBF" + Lake(), true);
    ExpectSame(Lake("Lake", "L\xC3\xA4ke"), true);
}

TEST(QuickReading, ReferencesToWhatXmlItselfUsesAreReadWhole)
{
    for (const char* const name : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "L&amp;", "&amp;L",
                                   "&lt;&gt;", "&amp;lt;", "L &amp; \xC3\xA4 &lt; M"})
        ExpectSame(Lake("Lake", name), true);
    EXPECT_TEXT(ReadReport(Lake("Lake", "&lt;A&amp;amp; &quot;B&quot;&gt;&apos;")).report.GetArea().GetName(),
                "<A&amp; \"B\">'");
}

TEST(QuickReading, OtherReferencesAreNot)
{
    for (const char* const name : {"&#76;", "&#x4C;", "&ake;", "&amp", "&amp ;", "&AMP;", "&", "L&", "&;",
                                   "&&amp;", "&amp;&ake;", "&amp;\xC3"})
        ExpectSame(Lake("Lake", name), false);
    ExpectSame(Lake("2.00", "2&amp;"), false);
    ExpectSame(Lake("1.00", "1.00&quot;"), false);
}

TEST(QuickReading, CommentsBetweenTagsAreLeftOut)
{
    ExpectSame("<!-- a --> <!-- b = c & d -->" + Lake() + "<!-- </ReportBase -->", true);
    ExpectSame(Lake("<Name>", "<!-- a > b --><Name>"), true);
    ExpectSame(Lake("<Name>", "\n<!-- <Name>Sea</Name> -->\n<!--=-->\n <Name>"), true);
    ExpectSame(Lake("</Area>", "<!---->\n</Area><!-- \xC3\xA4 -->"), true);
    ExpectSame(Lake("</Name>", "</Name> <!--- a -->"), true);
    ExpectSame(Lake("<Longitude>3.0", "<!-- a --><!-- b --><Longitude>3.0"), true);
    ExpectSame(Lake("<Coordinate><Longitude>2.0", "<!-- a -->\n<!-- b --><Coordinate><Longitude>2.0"), true);
    ExpectSame(Lake("<Coordinate><Longitude>3.0", "<!-- a --> <Coordinate><Longitude>3.0"), true);
    ExpectSame("<ReportBase>\n<!-- a -->\n</ReportBase>", true);
}

TEST(QuickReading, CommentsWithinTextsStay)
{
    ExpectSame(Lake("Lake", "<!-- a -->"), false);
    ExpectSame(Lake("Lake", " <!-- a --> "), false);
    ExpectSame(Lake("Lake", "La<!-- a -->ke"), false);
    ExpectSame(Lake("2.00", "<!-- a -->2.00"), false);
    ExpectSame(Lake("2.00", "1<!-- a -->.00"), false);
    ExpectSame(Lake("2.00", "2.00<!-- a -->"), false);
    ExpectSame(Lake("2.00", "2.00 <!-- a --> "), false);
    ExpectSame(Lake("Min=", "<!-- a -->Min="), false);
}

TEST(QuickReading, MalformedCommentsAreNoticed)
{
    ExpectSame(Lake("<Name>", "<!-- a -- b --><Name>"), false);
    ExpectSame(Lake("<Name>", "<!-- a ---><Name>"), false);
    ExpectSame(Lake("<Name>", "<!-- \x01 --><Name>"), false);
    ExpectSame(Lake("<Name>", "<!-- \xC3 --><Name>"), false);
    ExpectSame(Lake("<Name>", "<!-- \xEF\xBF\xBE --><Name>"), false);
    ExpectSame(Lake("<Name>", "<!-- \xED\xA0\x80 --><Name>"), false);
    ExpectSame(Lake("<Coordinate><Longitude>2.0", "<!-- a -- b --><Coordinate><Longitude>2.0"), false);
    ExpectSame(Lake("</Area>", "</Area><!--"), false);
    ExpectSame(Lake("</Area>", "</Area><!-->"), false);
    ExpectSame(Lake("Min=\"1.00\"", "Min=\"1.00 > <!-- a --> <\""), false);
    ExpectSame("<!-- a -- b -->" + Lake(), false);
    ExpectSame(Lake() + "<!-- a", false);
}

TEST(QuickReading, ReportWithinOtherElementsIsReadWhole)
{
    ExpectSame("<a><b/><c x=\"&lt;\">d</c>" + Lake() + "</a>", true);
    ExpectSame("<?xml version=\"1.0\"?><a xmlns=\"urn:a\" xmlns:b=\"urn:b\"><b:c/>" + Lake() + " text </a>\n",
               true);
    ExpectSame("<!-- <ReportBase> --><a>" + Lake() + "</a>", false);
}

TEST(QuickReading, SurroundingsThatAreNotSoundAreNoticed)
{
    ExpectSame("<a>" + Lake(), false);
    ExpectSame(Lake() + "</a>", false);
    ExpectSame(Lake() + "text", false);
    ExpectSame(" <?xml version=\"1.0\"?>" + Lake(), false);
    ExpectSame("<a><b:c/>" + Lake() + "</a>", false);
    ExpectSame("<a>&unknown;" + Lake() + "</a>", false);
    ExpectSame("<a>\xC3" + Lake() + "</a>", false);
}

TEST(QuickReading, DeclarationsMayMeanSomethingToTheReport)
{
    ExpectSame("<!DOCTYPE ReportBase [<!ENTITY lake \"Lake\">]>" + Lake("Lake", "&lake;"), false);
    ExpectSame("<!DOCTYPE ReportBase [<!ATTLIST Frequency Max CDATA \"0.50\">]>" + Lake(), false);
    ExpectSame("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + Lake("Lake", "L\xC3\xA4ke"), false);
}

TEST(QuickReading, FirstOfSeveralReportsCounts)
{
    ExpectSame("<a>" + Lake() + Lake("Lake", "Sea") + "</a>", false);
    ExpectSame("<a>" + Lake() + "<ReportBase/></a>", false);
    ExpectSame("<a xmlns:b=\"urn:b\"><b:ReportBase/>" + Lake() + "</a>", false);
    ExpectSame("<a><!-- " + Lake() + " --><ReportBase/></a>", false);
    ExpectSame("<a xmlns:b=\"urn:b\"><!-- " + Lake() + " --><b:ReportBase></b:ReportBase></a>", false);
    ExpectSame("<a><!-- " + Lake() + " --><ReportBase/><cut-out-report/></a>", false);
    ExpectSame("<a><!-- " + Lake() + " --><cut-out-report/></a>", false);
    ExpectSame("<a><![CDATA[ " + Lake() + " ]]></a>", false);
}

TEST(QuickReading, WhatIsUnknownIsNoticed)
{
    ExpectSame(Lake("<Area", "<Erea/><Area"), false);
    ExpectSame(Lake("<Area", "<Erea></Erea><Area"), false);
    ExpectSame(Lake("</Name>", "</Name><ScriptID/>"), false);
    ExpectSame(Lake("<Frequency", "<Frequency Mim=\"1\""), false);
    ExpectSame(Lake("Lake", "&sea;"), false);
    ExpectSame(Lake("Lake", "<![CDATA[Lake]]>"), false);
    ExpectSame(Lake("Lake", "La=ke"), true);
}

TEST(QuickReading, EntitiesOfXmlAreNothingOdd)
{
    const QByteArray bytes = Lake("Lake", "A &amp; B");
    EXPECT_EQ(LinesOf(FindLint(bytes, ReadReport(bytes), Look::Thorough)), QString());
    ExpectSame(Lake("Lake", "A &amp; B &lt;&gt;&quot;&apos; &#65;&#x42;"), false);
}

TEST(QuickReading, NumbersThatAreNoneAreNoticed)
{
    ExpectSame(Lake("1.0<", "0.0<"), true);
    ExpectSame(Lake("1.0<", "-0<"), true);
    ExpectSame(Lake("1.0<", "abc<"), false);
    ExpectSame(Lake("1.0<", "<"), false);
    ExpectSame(Lake("1.0<", "1,5<"), false);
    ExpectSame(Lake("1.0<", "0e5<"), false);
    ExpectSame(Lake("1.0<", " 0 <"), false);
    ExpectSame(Lake("1.0<", "&#48;<"), false);
    ExpectSame(Lake("2.00", "x"), false);
    ExpectSame(Lake("1.00", "1."), false);
    ExpectSame(Lake("1.00", "0."), false);
    ExpectSame(Lake("Min=\"1.00\"", "Min='0.00'"), false);
    ExpectSame(Lake("Min=\"1.00\"", "Min = \"0.00\""), false);
    // A text that is a number where none belongs changes nothing.
    ExpectSame(Lake("Lake", "0").replace("1.0<", "abc<"), false);
    ExpectSame(Lake("Min=", "Use=\"0\" Min=").replace("1.0<", "true<"), false);
}

TEST(QuickReading, BinaryFormSaysWhetherItIsReadWhole)
{
    const auto frequency = [](const char* min, bool isTwice) {
        Support::Bytes fields =
            Element(Tag::FREQUENCY_MIN, ByteArray(min)) + Element(Tag::FREQUENCY_VALUE, ByteArray("2.00"));
        if (isTwice)
            fields += Element(Tag::FREQUENCY_VALUE, ByteArray("3.00"));
        return ReadReport(Plain(Element(Tag::REPORT_FREQUENCY, fields)));
    };
    EXPECT_TRUE(frequency("0.00", false).wasReadWhole);
    EXPECT_FALSE(frequency("0.00", true).wasReadWhole);
    EXPECT_FALSE(frequency("abc", false).wasReadWhole);
    EXPECT_FALSE(frequency("", false).wasReadWhole);
}

} // namespace
