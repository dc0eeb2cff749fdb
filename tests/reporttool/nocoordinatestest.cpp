// JSON with the number of coordinates in place of the coordinates.

#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace {

using ToolTest::FullXml;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

QJsonObject Shown(const QByteArray& report, const QStringList& options)
{
    const ToolRun run = ToolTest::RunProgram(
        QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL),
        QStringList{QStringLiteral("show"), QStringLiteral("-")} + options, {report, {}, {}});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    return QJsonDocument::fromJson(run.output).array().at(0).toObject();
}

TEST(ToolNoCoordinates, TellsHowManyThereAreAndLeavesTheRestAsItIs)
{
    const QStringList json{QStringLiteral("--json")};
    QJsonObject expected = Shown(FullXml(), json);
    QJsonObject area = expected.value(QLatin1String("area")).toObject();
    ASSERT_EQ(area.take(QStringLiteral("coordinates")).toArray().size(), 2);
    area.insert(QStringLiteral("points"), 2);
    expected.insert(QStringLiteral("area"), area);
    EXPECT_EQ(Shown(FullXml(), json + QStringList{QStringLiteral("--no-coordinates")}), expected);
}

TEST(ToolNoCoordinates, AreaWithoutCoordinatesHasNull)
{
    const ToolRun run =
        RunTool({"show", "--json", "--no-coordinates", "-"},
                {"<ReportBase><Area Version=\"1.0\"><Name>A</Name></Area></ReportBase>", {}, {}});
    EXPECT_EQ(run.exitCode, 1);
    const QJsonObject area =
        QJsonDocument::fromJson(run.output).array().at(0).toObject().value(QLatin1String("area")).toObject();
    EXPECT_TRUE(area.value(QLatin1String("points")).isNull());
    EXPECT_FALSE(area.contains(QLatin1String("coordinates")));
}

TEST(ToolNoCoordinates, IsNotTakenForAReportWithoutThem)
{
    const Scratch scratch;
    scratch.Write("in", FullXml());
    const ToolRun shown = RunTool({"show", "--json", "--no-coordinates", "in"}, {{}, scratch.Folder(), {}});
    scratch.Write("json", shown.output);
    const ToolRun run =
        RunTool({"convert", "--from", "json", "json", "out", "--to", "xml"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "reporttool: json: area.points: there is no such field\n");
}

TEST(ToolNoCoordinates, IsForJson)
{
    EXPECT_UNUSABLE(RunTool({"show", "--no-coordinates", "a"}),
                    "--no-coordinates is for --json\nTry 'reporttool --help'.");
}

} // namespace
