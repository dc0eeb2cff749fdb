#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace {

using ToolTest::FullXml;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char LAKE[] =
    "<ReportBase><Area Version=\"1.0\"><Name>A \"lake\"</Name>"
    "<Coordinate><Longitude>8</Longitude><Latitude>47</Latitude></Coordinate>"
    "<Coordinate><Longitude>9</Longitude><Latitude>91</Latitude></Coordinate></Area></ReportBase>";
constexpr char AIR[] = "<ReportBase><Frequency>121500000</Frequency></ReportBase>";

ToolRun RunIn(const Scratch& scratch, ToolTest::Arguments arguments)
{
    return RunTool(arguments, {{}, scratch.Folder(), {}});
}

void MakeReports(const Scratch& scratch)
{
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("in")));
    scratch.Write("in/lake.xml", LAKE);
    scratch.Write("in/air.xml", AIR);
    scratch.Write("empty", {});
}

TEST(ToolList, TellsOfEachFileInALine)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(scratch, {"list", "empty", "-r", "in"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(),
                "form           frequency    points  problems  file         area\n"
                "unknown                -         -         1  empty        -\n"
                "xml            121.5 MHz         -         0  in/air.xml   -\n"
                "xml                    -         2         1  in/lake.xml  \"A \\\"lake\\\"\"\n");
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_EQ(RunIn(scratch, {"list", "in/air.xml"}).exitCode, 0);
}

TEST(ToolList, OrderIsThatOfTheFiles)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(scratch, {"list", "in/lake.xml", "in/air.xml", "in/lake.xml"});
    const QStringList lines = run.Output().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 5);
    EXPECT_TRUE(lines.at(1).contains(QLatin1String("lake.xml")));
    EXPECT_TRUE(lines.at(2).contains(QLatin1String("air.xml")));
    EXPECT_EQ(lines.at(3), lines.at(1));
}

TEST(ToolList, LongNamesPushWhatStandsBehindThem)
{
    const Scratch scratch;
    const QByteArray name(80, 'n');
    scratch.Write(name.constData(), AIR);
    scratch.Write("air", AIR);
    const ToolRun run = RunIn(scratch, {"list", "air", name.constData()});
    EXPECT_TEXT(run.Output(), QStringLiteral("form           frequency    points  problems  file%1area\n"
                                             "xml            121.5 MHz         -         0  air%2-\n"
                                             "xml            121.5 MHz         -         0  %3  -\n")
                                  .arg(QString(58, QLatin1Char(' ')), QString(59, QLatin1Char(' ')),
                                       QString::fromLatin1(name)));
}

TEST(ToolList, NothingIsToldOfNoFiles)
{
    const Scratch scratch;
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("in")));
    const ToolRun run = RunIn(scratch, {"list", "-r", "in"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(RunIn(scratch, {"list", "--json", "-r", "in"}).Output(), "");
    EXPECT_TEXT(RunIn(scratch, {"list", "--csv", "-r", "in"}).Output(),
                "file,error,form,frequency_value,points,problems,area_name\r\n");
}

TEST(ToolList, FileThatCannotBeReadDoesNotKeepTheOthersBack)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(scratch, {"list", "missing", "in/air.xml"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "form           frequency    points  problems  file        area\n"
                              "xml            121.5 MHz         -         0  in/air.xml  -\n");
    EXPECT_TEXT(run.Errors(), "reporttool: missing: no such file\n");
}

TEST(ToolList, JsonHasAnObjectALine)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(scratch, {"list", "--json", "missing", "in/air.xml", "in/lake.xml"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(),
                "{\"area_name\":null,\"error\":\"no such file\",\"file\":\"missing\",\"form\":null,"
                "\"frequency_value\":null,\"points\":null,\"problems\":null}\n"
                "{\"area_name\":null,\"error\":null,\"file\":\"in/air.xml\",\"form\":\"xml\","
                "\"frequency_value\":121500000,\"points\":null,\"problems\":0}\n"
                "{\"area_name\":\"A \\\"lake\\\"\",\"error\":null,\"file\":\"in/lake.xml\",\"form\":\"xml\","
                "\"frequency_value\":null,\"points\":2,\"problems\":1}\n");
}

TEST(ToolList, CsvHasAHeaderAndALineForEachFile)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(scratch, {"list", "--csv", "missing", "in/air.xml", "in/lake.xml"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "file,error,form,frequency_value,points,problems,area_name\r\n"
                              "missing,no such file,,,,,\r\n"
                              "in/air.xml,,xml,121500000.0,,0,\r\n"
                              "in/lake.xml,,xml,,2,1,\"A \"\"lake\"\"\"\r\n");
}

TEST(ToolList, FormIsTheOneThatConvertWrites)
{
    const Scratch scratch;
    scratch.Write("in", FullXml());
    for (const char* form : {"xml", "plain", "compressed", "file"}) {
        EXPECT_EQ(RunIn(scratch, {"convert", "in", "out", "--to", form}).exitCode, 0) << form;
        const QByteArray line = RunIn(scratch, {"list", "--json", "out"}).output;
        EXPECT_TEXT(QJsonDocument::fromJson(line).object().value(QLatin1String("form")).toString(), form);
    }
}

TEST(ToolList, JsonAndCsvDoNotGoTogether)
{
    EXPECT_UNUSABLE(RunTool({"list", "--json", "--csv", "a"}),
                    "--json and --csv do not go together\nTry 'reporttool --help'.");
}

} // namespace
