#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QtGlobal>

// Qt 6 knows no names but those in UTF-8.
#if defined(Q_OS_LINUX) && QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

namespace {

using ToolTest::FullPlain;
using ToolTest::Scratch;
using ToolTest::ToolRun;

/// Runs a script for the shell in the folder, where $0 is the program and $name the name of a file with a byte that is
/// no UTF-8. Other programs couldn't clear such a name away.
ToolRun RunWithName(const Scratch& scratch, const char* script)
{
    return ToolTest::RunProgram(QStringLiteral("/bin/sh"),
                                {QStringLiteral("-c"),
                                 QStringLiteral("name=$(printf 'Z\\374rich\\303\\274'); ") +
                                     QLatin1String(script) +
                                     QStringLiteral("; code=$?; rm -f \"$name\" \"$name.plain\"; exit $code"),
                                 QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
                                {{}, scratch.Folder(), QStringLiteral("C.UTF-8")});
}

TEST(ToolOddNames, AreReadAndWrittenByteByByte)
{
    const Scratch scratch;
    scratch.Write("in", FullPlain());
    const ToolRun run =
        RunWithName(scratch, "mv in \"$name\" && \"$0\" check --no-warnings \"$name\" && \"$0\" "
                             "convert \"$name\" \"$name.plain\" --to plain && "
                             "cp \"$name.plain\" out");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_BYTES(scratch.Read("out"), FullPlain());
}

TEST(ToolOddNames, AreFoundInFoldersAndTakenFromLists)
{
    const Scratch scratch;
    scratch.Write("in", FullPlain());
    const ToolRun run = RunWithName(scratch, "mv in \"$name\" && \"$0\" check --no-warnings -r . && printf "
                                             "'%s\\n' \"$name\" | \"$0\" check --no-warnings --files-from -");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolOddNames, FitPatterns)
{
    const Scratch scratch;
    scratch.Write("in", {});
    const ToolRun run = RunWithName(scratch, "mv in \"$name\" && \"$0\" check -r . --pattern 'Z*'");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(),
                QString::fromUtf8("./Z\\udcfcrichü: UnknownForm: not a report in any known form (empty)\n"));
}

TEST(ToolOddNames, AreShownWithTheirBytesAsEscapes)
{
    const Scratch scratch;
    scratch.Write("in", {});
    const ToolRun run = RunWithName(scratch, "mv in \"$name\" && \"$0\" check \"$name\"");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(),
                QString::fromUtf8("Z\\udcfcrichü: UnknownForm: not a report in any known form (empty)\n"));
}

TEST(ToolOddNames, AreExportedToCsvWithTheirBytesAsEscapes)
{
    const Scratch scratch;
    scratch.Write("in", FullPlain());
    const ToolRun run =
        RunWithName(scratch, "mv in \"$name\" && \"$0\" export --to csv \"$name\" | cut -d, -f1");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), QString::fromUtf8("file\nZ\\udcfcrichü\n"));
}

} // namespace

#endif
