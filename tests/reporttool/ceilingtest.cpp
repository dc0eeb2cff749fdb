// How much a file may hold: what is refused to readers is refused to writers, too.

#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>

namespace {

using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr int POINTS = 13000;

QByteArray Point()
{
    return "<Coordinate><Longitude>8.5</Longitude><Latitude>47.1</Latitude></Coordinate>";
}

/// 988 kB. Indented, as the library writes it, it takes more than a MiB; as a plain representation 44 bytes a point.
QByteArray Large()
{
    return "<ReportBase><Area Version=\"1.0\"><Name>A</Name>" + Point().repeated(POINTS) +
           "</Area></ReportBase>";
}

QString TooLarge(qint64 size)
{
    return QStringLiteral(
               "this would be %1 bytes, more than the ceiling of 1048576; see reporttool --ceiling")
        .arg(size);
}

/// Expects that the run ended with 1, told this, and left nothing at the path.
void ExpectRefused(const ToolRun& run, const QString& text, const QString& output)
{
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: %1\n").arg(text));
    EXPECT_FALSE(QFile::exists(output));
}

TEST(ToolCeiling, IsInForceForReaders)
{
    const Scratch scratch;
    const QString report = scratch.Write("a.xml", Large() + QByteArray(100 * 1024, ' '));
    const QString refusal = report + QStringLiteral(": holds more than 1048576 bytes");
    EXPECT_UNUSABLE(RunTool({"check", "--ceiling", "1", report}), refusal);
    EXPECT_UNUSABLE(RunTool({"diff", "--ceiling=1", report, report}), refusal);
    EXPECT_UNUSABLE(RunTool({"convert", "--ceiling", "1", report, scratch.Path("b"), "--to", "plain"}),
                    refusal);
    EXPECT_UNUSABLE(RunTool({"settings", "--dry-run", "--ceiling", "1", report}), refusal);
    EXPECT_EQ(RunTool({"check", "--no-warnings", "--ceiling", "2", report}).exitCode, 0);
}

TEST(ToolCeiling, CanBeRaised)
{
    const Scratch scratch;
    QFile file(scratch.Path("large"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(qint64(256) * 1024 * 1024 + 1));
    file.close();
    EXPECT_UNUSABLE(RunTool({"check", file.fileName()}),
                    file.fileName() + QStringLiteral(": holds more than 268435456 bytes"));
    const ToolRun run = RunTool({"check", "--ceiling", "257", file.fileName()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(),
                file.fileName() + QStringLiteral(": UnknownForm: not a report in any known form\n"));
}

TEST(ToolCeiling, HoldsForDataWhenUncompressed)
{
    const Scratch scratch;
    const QString report = scratch.Write("a.xml", Large());
    const QString packed = scratch.Path("packed");
    ASSERT_EQ(RunTool({"convert", report, packed, "--to", "compressed"}).exitCode, 0);
    // What is claimed counts, if there are bytes enough that it could be true.
    QByteArray bytes = scratch.Read("packed");
    constexpr int PREFIX = 4 + 36 + 4 + 20 + 4;
    bytes.replace(PREFIX, 4, QByteArray("\x00\x20\x00\x00", 4));
    ASSERT_GT(bytes.size(), 1048576 / 1032);
    const ToolRun run = RunTool({"check", "--ceiling", "1", "-"}, {bytes, {}, {}});
    EXPECT_TEXT(run.Output(), "-:0x48: TooLarge: 2097152 bytes when uncompressed\n");
}

TEST(ToolCeiling, NothingIsWrittenThatCannotBeRead)
{
    const Scratch scratch;
    const QString report = scratch.Write("a.xml", Large());
    const QString output = scratch.Path("b");
    for (const char* form : {"xml", "json"}) {
        ASSERT_EQ(RunTool({"convert", report, scratch.Path(form), "--to", form}).exitCode, 0);
        ExpectRefused(RunTool({"convert", report, output, "--to", form, "--ceiling", "1"}),
                      output + QStringLiteral(": ") + TooLarge(scratch.Read(form).size()), output);
    }
    // A name of one letter for another one.
    ExpectRefused(RunTool({"set", report, "area.name=B", "-o", output, "--ceiling", "1"}),
                  output + QStringLiteral(": ") + TooLarge(scratch.Read("xml").size()), output);
}

TEST(ToolCeiling, NothingIsWrittenThatCannotBeReadWhenUncompressed)
{
    const Scratch scratch;
    const QString report = scratch.Write("a.xml", Large());
    const QString packed = scratch.Path("packed");
    const QString output = scratch.Path("b");
    ASSERT_EQ(RunTool({"convert", report, packed, "--to", "compressed", "--ceiling", "1"}).exitCode, 0);
    // Uncompressed, points take half a MiB, and twice as many more than one.
    const ToolRun run = RunTool({"merge", packed, packed, "-o", output, "--ceiling", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(
        run.Errors().contains(QLatin1String("more than the ceiling of 1048576; see reporttool --ceiling")))
        << run.errors.toStdString();
    EXPECT_FALSE(QFile::exists(output));
    EXPECT_EQ(RunTool({"merge", packed, packed, "-o", output}).exitCode, 0);
}

TEST(ToolCeiling, NothingIsImportedThatCannotBeRead)
{
    const Scratch scratch;
    const QString points = scratch.Write("a.csv", "area_name,longitude,latitude\n" +
                                                      QByteArray("A,8.5,47.1\n").repeated(POINTS));
    const QString output = scratch.Path("b.xml");
    ASSERT_EQ(RunTool({"import", points, scratch.Path("whole"), "--from", "csv"}).exitCode, 0);
    ExpectRefused(RunTool({"import", points, output, "--from", "csv", "--ceiling", "1"}),
                  points + QStringLiteral(": feature 1: ") + TooLarge(scratch.Read("whole").size()), output);
}

TEST(ToolCeiling, IsANumberOfMebibytes)
{
    for (const char* ceiling : {"0", "1024", "-1", "1.5", "x", ""}) {
        const ToolRun run = RunTool({"check", "--ceiling", ceiling, "-"});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TEXT(run.Errors(),
                    QStringLiteral("reporttool: a ceiling is a number of MiB from 1 to 1023, not '%1'\n"
                                   "Try 'reporttool --help'.\n")
                        .arg(QLatin1String(ceiling)));
    }
}

TEST(ToolCeiling, IsAnOptionOfCommandsThatTakeFiles)
{
    for (const char* command :
         {"check", "convert", "diff", "export", "grep", "import", "merge", "set", "settings", "show"})
        EXPECT_TRUE(RunTool({command, "--help"}).Output().contains(QLatin1String("--ceiling <MiB>")))
            << command;
    EXPECT_FALSE(RunTool({"help", "--help"}).Output().contains(QLatin1String("--ceiling")));
}

} // namespace
