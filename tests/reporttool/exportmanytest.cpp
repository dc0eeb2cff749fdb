// Many reports in one file.

#include "samples.h"
#include "toolrun.h"

#include <reportcore/exporting/deferredoutput.h>
#include <reportcore/exporting/formats.h>

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

#ifdef Q_OS_UNIX
#    include <csignal>
#endif

namespace {

using ReportCore::DeferredOutput;
using ToolTest::FullXml;
using ToolTest::NamedAreaXml;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char OLD_CONTENT[] = "what was there before";
constexpr int FILES = 1500;

/// So many reports with a point each, named by their numbers; every seventh is empty, every eleventh missing.
QByteArray MakeReports(const Scratch& scratch)
{
    QByteArray list;
    for (int i = 1; i <= FILES; ++i) {
        const QByteArray name = QByteArray::number(i);
        if (i % 11 != 0)
            scratch.Write(name.constData(), i % 7 == 0 ? QByteArray() : NamedAreaXml(name.constData()));
        list += name + '\n';
    }
    return list;
}

bool IsGood(int number)
{
    return number % 7 != 0 && number % 11 != 0;
}

TEST(ToolExportMany, ReportsComeInTheOrderOfTheirFiles)
{
    const Scratch scratch;
    const QByteArray list = MakeReports(scratch);
    QByteArray expected = "file,frequency_value,frequency_min,frequency_max,frequency_use,ifBandwidth_value,"
                          "ifBandwidth_min,ifBandwidth_max,area_name,area_version,area_scriptId,"
                          "point,longitude,latitude\r\n";
    QByteArray complaints;
    for (int i = 1; i <= FILES; ++i) {
        const QByteArray name = QByteArray::number(i);
        if (IsGood(i))
            expected += name + ",,,,,,,," + name + ",1.0,,1,8.5,47.25\r\n";
        else if (i % 11 == 0)
            complaints += "reporttool: " + name + ": no such file\n";
        else
            complaints += "reporttool: " + name + ": UnknownForm: not a report in any known form (empty)\n";
    }
    const ToolRun run =
        RunTool({"export", "--to", "csv-points", "--files-from", "-"}, {list, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_BYTES(run.output, expected);
    EXPECT_BYTES(run.errors, complaints);
}

TEST(ToolExportMany, EveryFormatIsTheSameAsOfFilesOneByOne)
{
    const Scratch scratch;
    scratch.Write("a", FullXml());
    scratch.Write("b", NamedAreaXml("point"));
    scratch.Write("c", "<ReportBase/>");
    scratch.Write("list", "a\nb\nc\na\n");
    // Four reports in the one file, each once in a file of its own.
    for (const char* format : {"geojsonl", "wkt"}) {
        QByteArray expected;
        for (const char* name : {"a", "b", "c", "a"})
            expected += RunTool({"export", name, "--to", format}, {{}, scratch.Folder(), {}}).output;
        const ToolRun run =
            RunTool({"export", "--files-from", "list", "--to", format}, {{}, scratch.Folder(), {}});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_BYTES(run.output, expected);
    }
}

TEST(ToolExportMany, FoldersAndPatternsAreTakenAsByCheck)
{
    const Scratch scratch;
    EXPECT_TRUE(QDir(scratch.Folder()).mkpath(QStringLiteral("in/b")));
    for (const char* name : {"in/c.xml", "in/a.xml", "in/d.txt", "in/b/e.xml"})
        scratch.Write(name, NamedAreaXml("p"));
    const ToolRun run = RunTool({"export", "-r", "--pattern", "*.xml", "in", "--to", "csv-points"},
                                {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 0);
    const QList<QByteArray> lines = run.output.split('\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_TRUE(lines.at(1).startsWith("in/a.xml,"));
    EXPECT_TRUE(lines.at(2).startsWith("in/b/e.xml,"));
    EXPECT_TRUE(lines.at(3).startsWith("in/c.xml,"));
    const ToolRun listed = RunTool({"export", "--files-from", "-", "-0", "--to", "wkt"},
                                   {QByteArray("in/a.xml\0in/d.txt\0", 18), scratch.Folder(), {}});
    EXPECT_BYTES(listed.output, QByteArray("POINT (8.5 47.25)\nPOINT (8.5 47.25)\n"));
}

TEST(ToolExportMany, ShownAreInTheOrderOfTheirFilesToo)
{
    const Scratch scratch;
    const QByteArray list = MakeReports(scratch);
    const ToolRun run = RunTool({"show", "--json", "--files-from", "-"}, {list, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 2);
    const QJsonArray array = QJsonDocument::fromJson(run.output).array();
    ASSERT_EQ(array.size(), FILES);
    EXPECT_BYTES(run.output, QJsonDocument(array).toJson());
    for (int i = 1; i <= FILES; ++i)
        EXPECT_TEXT(array.at(i - 1).toObject().value(QLatin1String("file")).toString(), QString::number(i));
    const ToolRun text = RunTool({"show", "--files-from", "-"}, {list, scratch.Folder(), {}});
    EXPECT_TRUE(text.output.startsWith("1:\n"));
    auto at = text.output.indexOf("1:\n");
    for (int i = 2; i <= FILES; ++i) {
        if (i % 11 == 0)
            continue;
        at = text.output.indexOf("\n\n" + QByteArray::number(i) + ":\n", at);
        ASSERT_GT(at, 0) << i;
    }
}

TEST(ToolExportMany, NoFilesAreAnEmptyArray)
{
    const Scratch scratch;
    EXPECT_BYTES(RunTool({"show", "--json", "-r", scratch.Folder()}).output, QByteArray("[\n]\n"));
}

TEST(ToolExportMany, TracksStandBehindAllWaypointsHoweverManyThereAre)
{
    // Two tracks of some ten megabytes, with a waypoint between them.
    const auto track = [](const char* name, int points) {
        QByteArray xml = QByteArray("<ReportBase><Area Version=\"1.0\"><Name>") + name + "</Name>";
        for (int i = 0; i < points; ++i)
            xml += "<Coordinate><Longitude>" + QByteArray::number(i % 170) + "</Longitude><Latitude>" +
                   QByteArray::number(i % 80) + "</Latitude></Coordinate>";
        return xml + "</Area></ReportBase>";
    };
    const Scratch scratch;
    scratch.Write("a", track("first", 200000));
    scratch.Write("b", NamedAreaXml("between"));
    scratch.Write("c", track("last", 200000));
    const ToolRun run = RunTool({"export", "a", "b", "c", "--to", "gpx"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 0);
    const int between = static_cast<int>(run.output.indexOf("<name>between</name>"));
    const int first = static_cast<int>(run.output.indexOf("<name>first</name>"));
    const int last = static_cast<int>(run.output.indexOf("<name>last</name>"));
    EXPECT_GT(between, 0);
    EXPECT_GT(first, between);
    EXPECT_GT(last, first);
    // The outline is closed where it doesn't end where it began.
    EXPECT_EQ(run.output.count("<trkpt "), 2 * 200001);
    EXPECT_TRUE(run.output.endsWith("  </trkseg>\n </trk>\n</gpx>\n"));
}

TEST(ToolExportMany, DeferredOutputComeBackInTheirOrder)
{
    DeferredOutput late;
    QByteArray expected;
    for (int i = 0; i < 30; ++i) {
        const QByteArray piece(1024 * 1024, static_cast<char>('a' + i % 26));
        late.Append(piece);
        expected += piece;
    }
    late.Append("end");
    QByteArray taken;
    late.TakeAll([&taken](const QByteArray& bytes) { taken += bytes; });
    EXPECT_TRUE(taken == expected + "end");
}

#ifdef Q_OS_UNIX
TEST(ToolExportMany, InterruptionLeavesTheOldFile)
{
    // The second file is standard input, so that no third one is ever written.
    const Scratch scratch;
    scratch.Write("out", OLD_CONTENT);
    scratch.Write("good", FullXml());
    QByteArray list = "missing\n-\n";
    for (int i = 0; i < 300000; ++i)
        list += "good\n";
    scratch.Write("list", list);
    QProcess process;
    process.setWorkingDirectory(scratch.Folder());
    process.start(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL),
                  {QStringLiteral("export"), QStringLiteral("--files-from"), QStringLiteral("list"),
                   QStringLiteral("--to"), QStringLiteral("csv"), QStringLiteral("-o"),
                   QStringLiteral("out")});
    process.setReadChannel(QProcess::StandardError);
    constexpr int PATIENCE_IN_MS = 60 * 1000;
    ASSERT_TRUE(process.waitForReadyRead(PATIENCE_IN_MS));
    ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished(PATIENCE_IN_MS));
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_TRUE(process.readAllStandardError().contains("reporttool: interrupted after "));
    EXPECT_BYTES(scratch.Read("out"), QByteArray(OLD_CONTENT));
    EXPECT_EQ(scratch.Names().size(), 3);
}
#endif

} // namespace
