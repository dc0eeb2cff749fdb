// What would be written, without writing it.

#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>

namespace {

using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

ToolRun RunIn(const Scratch& scratch, ToolTest::Arguments arguments)
{
    return RunTool(arguments, {{}, scratch.Folder(), QStringLiteral("C")});
}

TEST(ToolConvertDryRun, TellsWhichFilesComeAreReplacedOrStay)
{
    const Scratch scratch;
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("to")));
    scratch.Write("a.xml", FullXml());
    scratch.Write("b.bin", FullCompressed());
    scratch.Write("c", FullXml());
    scratch.Write("to/b.plain", FullPlain());
    scratch.Write("to/c.plain", "something else");
    const ToolRun run =
        RunIn(scratch, {"convert", "a.xml", "b.bin", "c", "to", "--to", "plain", "--dry-run"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "+ to/a.plain: plain, from a.xml\n"
                              "= to/b.plain: plain, from b.bin\n"
                              "! to/c.plain: plain, from c\n");
    EXPECT_TEXT(run.Errors(), "3 files: 3 would be written, 0 refused, 0 unusable\n");
    EXPECT_EQ(QDir(scratch.Path("to")).entryList(QDir::Files).join(QLatin1Char(' ')),
              QStringLiteral("b.plain c.plain"));
    EXPECT_EQ(scratch.Read("to/c.plain"), "something else");
}

TEST(ToolConvertDryRun, OneReportHasNoSummary)
{
    const Scratch scratch;
    scratch.Write("a.xml", FullXml());
    const ToolRun run = RunIn(scratch, {"convert", "a.xml", "out", "--to", "json", "--dry-run"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "+ out: json, from a.xml\n");
    EXPECT_TEXT(run.Errors(), "");
    const ToolRun file =
        RunIn(scratch, {"convert", "a.xml", "-", "--to", "file", "--level", "9", "--dry-run"});
    EXPECT_TEXT(file.Output(), "+ -: file, from a.xml\n");
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("a.xml")));
}

TEST(ToolConvertDryRun, EndsAsTheRunWould)
{
    const Scratch scratch;
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("to")));
    scratch.Write("a.xml", FullXml());
    scratch.Write("bad", "x");
    scratch.Write("wrapped", "<Mission>" + FullXml() + "</Mission>");
    const ToolRun run =
        RunIn(scratch, {"convert", "bad", "wrapped", "a.xml", "to", "--to", "plain", "--dry-run"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "+ to/a.plain: plain, from a.xml\n");
    EXPECT_TRUE(run.errors.endsWith("\n3 files: 1 would be written, 2 refused, 0 unusable\n"))
        << run.errors.toStdString();
    EXPECT_EQ(RunIn(scratch, {"convert", "missing", "a.xml", "to", "--to", "plain", "--dry-run"}).exitCode,
              2);
}

// Files are looked for before the first one is written.
TEST(ToolConvertDryRun, FolderWithinTheOneThatIsRead)
{
    const Scratch scratch;
    EXPECT_TRUE(QDir(scratch.Folder()).mkpath(QStringLiteral("in/to")));
    scratch.Write("in/a.xml", FullXml());
    const ToolRun first = RunIn(scratch, {"convert", "-r", "in", "in/to", "--to", "plain"});
    EXPECT_EQ(first.exitCode, 0);
    EXPECT_EQ(QDir(scratch.Path("in/to")).entryList(QDir::Files), QStringList(QStringLiteral("a.plain")));
    EXPECT_UNUSABLE(RunIn(scratch, {"convert", "-r", "in", "in/to", "--to", "plain"}),
                    "in/a.xml and in/to/a.plain would both become in/to/a.plain\nTry 'reporttool --help'.");
}

} // namespace
