#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>

namespace {

using ToolTest::FullPlain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

QByteArray Points(int from, int to)
{
    QByteArray points;
    for (int i = from; i <= to; ++i)
        points += "<Coordinate><Longitude>" + QByteArray::number(i) +
                  "</Longitude><Latitude>0.5</Latitude></Coordinate>";
    return points;
}

QByteArray Area(const char* name, const QByteArray& points)
{
    return QByteArray("<Area Version=\"1.0\"><Name>") + name + "</Name>" + points + "</Area>";
}

QByteArray Report(const QByteArray& members)
{
    return "<ReportBase>" + members + "</ReportBase>";
}

ToolRun RunIn(const Scratch& scratch, ToolTest::Arguments arguments)
{
    return RunTool(arguments, {{}, scratch.Folder(), {}});
}

TEST(ToolMerge, TellsWhatIsReplacedAndAdded)
{
    const Scratch scratch;
    scratch.Write("base", Report("<Frequency Min=\"1\">5</Frequency>" + Area("Lake", Points(1, 2))));
    scratch.Write("b", Report("<Frequency Use=\"true\">6</Frequency>" + Area("Sea", Points(3, 5))));
    scratch.Write("c", Report("<IFBandwidth>7</IFBandwidth>" + Area("Sea", Points(9, 9))));
    const ToolRun run = RunIn(scratch, {"merge", "base", "b", "c", "-o", "out"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "b: ! frequency.value: 5 -> 6\n"
                              "b: + frequency.use: true\n"
                              "b: ! area.name: \"Lake\" -> \"Sea\"\n"
                              "b: + area.coordinate[3] to area.coordinate[5]\n"
                              "c: + ifBandwidth.value: 7\n"
                              "c: + area.coordinate[6]: 9 0.5\n");
    scratch.Write("expected",
                  Report("<Frequency Min=\"1\" Use=\"true\">6</Frequency><IFBandwidth>7</IFBandwidth>" +
                         Area("Sea", Points(1, 5) + Points(9, 9))));
    const ToolRun diff = RunIn(scratch, {"diff", "expected", "out"});
    EXPECT_TEXT(diff.Output(), "");
    EXPECT_EQ(diff.exitCode, 0);
}

TEST(ToolMerge, KeepsTheFormOfTheFirst)
{
    const Scratch scratch;
    scratch.Write("base", FullPlain());
    scratch.Write("b", Report({}));
    const ToolRun run = RunIn(scratch, {"merge", "base", "b", "-o", "base"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_EQ(scratch.Read("base"), FullPlain());
}

TEST(ToolMerge, InvalidReportKeepsItFromBeingWritten)
{
    const Scratch scratch;
    scratch.Write("base", Report({}));
    scratch.Write("b", Report("<Area/>"));
    const ToolRun run = RunIn(scratch, {"merge", "base", "b", "-o", "out"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(
        run.Errors(),
        "reporttool: b:1:13: OutOfRangeException: Area: Please set Name properly. (area.name)\n"
        "reporttool: b:1:13: OutOfRangeException: Area: Please set Coordinate properly. (area.coordinate)\n");
    EXPECT_EQ(scratch.Names(), (QStringList{QStringLiteral("b"), QStringLiteral("base")}));
}

TEST(ToolMerge, WrongUseEndsWithTwo)
{
    const Scratch scratch;
    scratch.Write("base", Report({}));
    EXPECT_UNUSABLE(RunIn(scratch, {"merge", "base", "-o", "out"}),
                    QStringLiteral("merge takes BASE and OTHER") + QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"merge", "base", "base"}),
                    QStringLiteral("-o is missing") + QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"merge", "-", "-", "-o", "out"}),
                    QStringLiteral("standard input can be read only once") + QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"merge", "base", "missing", "-o", "out"}), "missing: no such file");
    // In the system's own words.
    QFile file(scratch.Path("no/out"));
    ASSERT_FALSE(file.open(QIODevice::WriteOnly));
    EXPECT_UNUSABLE(
        RunTool({"merge", "base", "base", "-o", "no/out"}, ToolTest::PlainLocale({}, scratch.Folder())),
        QStringLiteral("no/out: ") + file.errorString());
}

} // namespace
