// Nothing of a file is dropped without a word, and documents with several reports are taken apart when somebody asks.

#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace {

using ToolTest::Arguments;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char SEVERAL[] =
    "<Mission><Head/>\n"
    "<ReportBase><Frequency>1</Frequency></ReportBase>\n"
    "<ReportBase><Frequency>2</Frequency></ReportBase>\n"
    "  <ReportBase><Frequency>3</Frequency><IFBandwidth>oops</IFBandwidth></ReportBase>\n"
    "</Mission>";

constexpr char REFUSAL[] = "reporttool: in.xml:1:1: would be discarded: element 'Mission' around the report\n"
                           "reporttool: in.xml:1:10: would be discarded: element 'Head'\n"
                           "reporttool: in.xml:3:1: would be discarded: another report\n"
                           "reporttool: in.xml:4:3: would be discarded: another report\n"
                           "reporttool: in.xml: not written; 'convert --report N' takes one of its 3 "
                           "reports, --discard the first one\n";

ToolRun RunIn(const Scratch& scratch, Arguments arguments)
{
    return ToolTest::RunTool(arguments, {{}, scratch.Folder(), {}});
}

/// A folder with the document.
class ToolDiscard : public ::testing::Test
{
protected:
    ToolDiscard() { m_scratch.Write("in.xml", SEVERAL); }

    ToolRun Run(Arguments arguments) const { return RunIn(m_scratch, arguments); }

    QString FrequencyIn(const char* file) const
    {
        const ToolRun run = Run({"show", "--json", file});
        const QJsonObject json = QJsonDocument::fromJson(run.output).array().at(0).toObject();
        return QString::number(
            json.value(QStringLiteral("frequency")).toObject().value(QStringLiteral("value")).toDouble());
    }

    Scratch m_scratch;
};

void ExpectRefusal(const ToolRun& run)
{
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), REFUSAL);
}

} // namespace

TEST_F(ToolDiscard, CommandsThatWriteRefuseByName)
{
    ExpectRefusal(Run({"set", "in.xml", "frequency.value=7", "-o", "in.xml"}));
    ExpectRefusal(Run({"convert", "in.xml", "out", "--to", "plain"}));
    ExpectRefusal(Run({"export", "in.xml", "--to", "csv", "-o", "out"}));
    ExpectRefusal(Run({"merge", "in.xml", "in.xml", "-o", "out"}).exitCode == 1
                      ? Run({"convert", "in.xml", "in.xml", "--to", "xml"})
                      : ToolRun());
    EXPECT_EQ(m_scratch.Read("in.xml"), SEVERAL);
    EXPECT_FALSE(QFile::exists(m_scratch.Path("out")));
}

TEST_F(ToolDiscard, WithTheOptionTheFirstReportIsWritten)
{
    EXPECT_EQ(Run({"convert", "in.xml", "out", "--to", "plain", "--discard"}).exitCode, 0);
    EXPECT_TEXT(FrequencyIn("out"), "1");
    EXPECT_EQ(Run({"merge", "in.xml", "in.xml", "-o", "out", "--discard"}).exitCode, 0);
    EXPECT_EQ(Run({"set", "in.xml", "frequency.value=7", "-o", "in.xml", "--discard"}).exitCode, 0);
    EXPECT_EQ(m_scratch.Read("in.xml"), "\n<ReportBase>\n    <Frequency>7.00</Frequency>\n</ReportBase>");
}

TEST_F(ToolDiscard, OneReportMayBeTakenOutOfADocument)
{
    EXPECT_EQ(Run({"convert", "in.xml", "out", "--to", "plain", "--report", "2"}).exitCode, 0);
    EXPECT_TEXT(FrequencyIn("out"), "2");
    EXPECT_TEXT(Run({"export", "in.xml", "--to", "csv", "--report", "2"})
                    .Output()
                    .section(QLatin1Char('\n'), 1, 1)
                    .left(10),
                "in.xml,2.0");
    EXPECT_EQ(Run({"set", "in.xml", "ifBandwidth.value=5", "-o", "out.xml", "--report", "1"}).exitCode, 0);
    EXPECT_TEXT(FrequencyIn("out.xml"), "1");
}

TEST_F(ToolDiscard, WhatReadsAsAnotherValueIsNotTakenUnlessItIsSet)
{
    const ToolRun refused = Run({"convert", "in.xml", "out", "--to", "plain", "--report", "3"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TEXT(refused.Errors(),
                "reporttool: in.xml:4:52: would be discarded: ifBandwidth.value \"oops\" becomes 0\n"
                "reporttool: in.xml: not written; --discard writes it without that\n");
    const ToolRun set = Run({"set", "in.xml", "ifBandwidth.value=8", "-o", "out", "--report", "3"});
    EXPECT_EQ(set.exitCode, 0);
    EXPECT_TEXT(set.Errors(), "");
}

TEST_F(ToolDiscard, ADocumentIsNotReplacedByOneOfItsReports)
{
    const ToolRun run = Run({"set", "in.xml", "frequency.value=7", "-o", "./in.xml", "--report", "2"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(),
                "reporttool: in.xml:1:1: would be discarded: element 'Mission' around the report\n"
                "reporttool: in.xml:1:10: would be discarded: element 'Head'\n"
                "reporttool: in.xml:2:1: would be discarded: another report\n"
                "reporttool: in.xml:4:3: would be discarded: another report\n"
                "reporttool: in.xml: not written; --discard writes it without that\n");
    EXPECT_EQ(m_scratch.Read("in.xml"), SEVERAL);
}

TEST_F(ToolDiscard, ANumberThatIsNotThereIsRefused)
{
    const ToolRun run = Run({"convert", "in.xml", "out", "--to", "plain", "--report", "4"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "reporttool: in.xml: there is no report 4, the last one is 3\n");
    EXPECT_EQ(Run({"show", "in.xml", "--report", "4"}).exitCode, 1);
    EXPECT_EQ(Run({"show", "in.xml", "--report", "0"}).exitCode, 2);
    EXPECT_EQ(Run({"show", "in.xml", "--report", "1", "--all-reports"}).exitCode, 2);
}

TEST_F(ToolDiscard, AllReportsBecomeFilesOfAFolder)
{
    m_scratch.Write("in.xml", QByteArray(SEVERAL).replace("oops", "4"));
    m_scratch.Write("one.xml", "<ReportBase><Frequency>9</Frequency></ReportBase>");
    QDir(m_scratch.Folder()).mkdir(QStringLiteral("out"));
    const ToolRun run = Run({"convert", "in.xml", "one.xml", "out", "--to", "plain", "--all-reports"});
    EXPECT_TEXT(run.Errors(), "2 files: 2 written, 0 refused, 0 unusable\n");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(QDir(m_scratch.Path("out")).entryList(QDir::Files),
              QStringList({QStringLiteral("in-1.plain"), QStringLiteral("in-2.plain"),
                           QStringLiteral("in-3.plain"), QStringLiteral("one.plain")}));
    EXPECT_TEXT(FrequencyIn("out/in-1.plain"), "1");
    EXPECT_TEXT(FrequencyIn("out/in-3.plain"), "3");
}

TEST_F(ToolDiscard, AReportOfADocumentDoesNotReplaceWhatAnotherFileBecomes)
{
    m_scratch.Write("in-2.xml", "<ReportBase><Frequency>9</Frequency></ReportBase>");
    QDir(m_scratch.Folder()).mkdir(QStringLiteral("out"));
    const ToolRun run =
        Run({"convert", "in.xml", "in-2.xml", "out", "--to", "plain", "--all-reports", "--discard"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "reporttool: in.xml: report 2 and in-2.xml would both become out/in-2.plain\n"
                              "2 files: 1 written, 1 refused, 0 unusable\n");
    EXPECT_TEXT(FrequencyIn("out/in-2.plain"), "9");
}

TEST_F(ToolDiscard, AllReportsAreShownAndExported)
{
    const QByteArray shown = Run({"show", "--json", "--all-reports", "in.xml"}).output;
    const QJsonArray json = QJsonDocument::fromJson(shown).array();
    ASSERT_EQ(json.size(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(json.at(i).toObject().value(QStringLiteral("report")).toInt(), i + 1);
        EXPECT_EQ(json.at(i)
                      .toObject()
                      .value(QStringLiteral("frequency"))
                      .toObject()
                      .value(QStringLiteral("value"))
                      .toInt(),
                  i + 1);
    }
    EXPECT_TRUE(Run({"show", "--all-reports", "in.xml"})
                    .Output()
                    .contains(QStringLiteral("in.xml (report 3 of 3):\n")));
    const ToolRun lines = Run({"export", "in.xml", "--to", "geojsonl", "--all-reports"});
    EXPECT_EQ(lines.exitCode, 1);
    EXPECT_EQ(lines.output.count('\n'), 2);

    m_scratch.Write("shown.json", shown);
    const ToolRun back = Run({"convert", "--from", "json", "shown.json", "out", "--report", "2"});
    EXPECT_EQ(back.exitCode, 0) << back.errors.constData();
    EXPECT_TEXT(FrequencyIn("out"), "2");
}

TEST(ToolDiscardOfOne, WhatAReportCannotHoldIsRefused)
{
    const Scratch scratch;
    scratch.Write("in.bin", ToolTest::Plain(Support::Element(0x01020304, {})));
    const ToolRun run = RunIn(scratch, {"convert", "in.bin", "out", "--to", "xml"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "reporttool: in.bin:0x36: would be discarded: element with tag 0x01020304\n"
                              "reporttool: in.bin: not written; --discard writes it without that\n");
    EXPECT_EQ(RunIn(scratch, {"convert", "in.bin", "out", "--to", "xml", "--discard"}).exitCode, 0);
}

TEST(ToolDiscardOfOne, OfManyLossesTheFirstAreNamed)
{
    const Scratch scratch;
    scratch.Write("in.xml", "<ReportBase>" + QByteArray("<a/>").repeated(12) + "</ReportBase>");
    const ToolRun run = RunIn(scratch, {"convert", "in.xml", "out", "--to", "xml"});
    EXPECT_EQ(run.errors.count("element 'a'"), 10);
    EXPECT_TRUE(run.errors.contains("reporttool: in.xml: and 2 more would be discarded\n"));
}

TEST(ToolReports, KeepTheirPlacesEncodingEntitiesAndPrefixes)
{
    const Scratch scratch;
    scratch.Write(
        "in.xml",
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><!DOCTYPE m:T [<!ENTITY town \"Z\xfcrich\">]>\n"
        "<m:T xmlns:m=\"a&amp;b\"><m:ReportBase/>\n"
        "\xfc <m:ReportBase><Area Version=\"1.0\"><Name>&town;</Name><Coordinate><Longitude>200</Longitude>\n"
        "<Latitude>99</Latitude></Coordinate></Area></m:ReportBase></m:T>");
    const ToolRun run = RunIn(scratch, {"show", "--report", "2", "in.xml"});
    EXPECT_TRUE(run.Output().contains(QString::fromUtf8("\"Zürich\"")));
    EXPECT_TRUE(
        run.Output().contains(QStringLiteral("(line 3, column 79: area.coordinate[1].longitude = \"200\")")))
        << run.output.constData();
    EXPECT_TRUE(
        run.Output().contains(QStringLiteral("(line 4, column 11: area.coordinate[1].latitude = \"99\")")));
}

TEST(ToolReports, OfABrokenDocumentTheProblemIsTold)
{
    const Scratch scratch;
    scratch.Write("in.xml", "<T><ReportBase/><ReportBase/>");
    const ToolRun run = RunIn(scratch, {"export", "--to", "csv", "--all-reports", "in.xml"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "reporttool: in.xml:1:30: TrailingData: Premature end of document.\n");
}
