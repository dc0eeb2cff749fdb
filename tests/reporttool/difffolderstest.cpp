#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace {

using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

QByteArray Frequency(const char* value)
{
    return QByteArray("<ReportBase><Frequency>") + value + "</Frequency></ReportBase>";
}

/// Two empty folders "a" and "b", each with a folder "in".
void MakeFolders(const Scratch& scratch)
{
    QDir folder(scratch.Folder());
    EXPECT_TRUE(folder.mkpath(QStringLiteral("a/in")));
    EXPECT_TRUE(folder.mkpath(QStringLiteral("b/in")));
}

ToolRun RunIn(const Scratch& scratch, ToolTest::Arguments arguments)
{
    return RunTool(arguments, {{}, scratch.Folder(), QStringLiteral("C")});
}

void ExpectDiff(const Scratch& scratch, int exitCode, const char* output, const char* errors = "")
{
    const ToolRun run = RunIn(scratch, {"diff", "-r", "a", "b"});
    EXPECT_EQ(run.exitCode, exitCode);
    EXPECT_TEXT(run.Output(), QString::fromUtf8(output));
    EXPECT_TEXT(run.Errors(), QString::fromUtf8(errors));
}

TEST(ToolDiffFolders, WithoutFilesAreTheSame)
{
    const Scratch scratch;
    MakeFolders(scratch);
    ExpectDiff(scratch, 0, "");
}

TEST(ToolDiffFolders, ReportsOfTheSameMeaningAreTheSame)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("a/in/x", FullXml());
    scratch.Write("b/in/x", FullPlain());
    ExpectDiff(scratch, 0, "");
}

TEST(ToolDiffFolders, TellsWhatIsOnlyHereOnlyThereAndDifferent)
{
    const Scratch scratch;
    MakeFolders(scratch);
    // "in.xml" would come before "in/e" if a slash counted as the character that it is.
    for (const char* name : {"a/d", "a/in/e", "b/in/f", "b/in.xml", "a/c", "b/c", "a/in/g", "b/in/g"})
        scratch.Write(name, Frequency("5"));
    scratch.Write("b/in/g", Frequency("6"));
    ExpectDiff(scratch, 1,
               "- d\n"
               "- in/e\n"
               "+ in/f\n"
               "in/g: ! frequency.value: 5 -> 6\n"
               "+ in.xml\n");
}

TEST(ToolDiffFolders, NamesOfFoldersMayEndInASlash)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("a/in/e", Frequency("5"));
    scratch.Write("b/in/e", Frequency("6"));
    const ToolRun run = RunIn(scratch, {"diff", "-r", "a/", "./b//"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "in/e: ! frequency.value: 5 -> 6\n");
}

TEST(ToolDiffFolders, NameIsComparedAndNotTheForm)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("a/x.xml", FullXml());
    scratch.Write("b/x.plain", FullPlain());
    ExpectDiff(scratch, 1, "+ x.plain\n- x.xml\n");
}

TEST(ToolDiffFolders, FilesOfTheSameBytesAreTheSameWhateverTheyAre)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("a/README", "no report");
    scratch.Write("b/README", "no report");
    ExpectDiff(scratch, 0, "");
}

TEST(ToolDiffFolders, WhatCannotBeComparedDoesNotKeepTheOthersBack)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("a/broken", "x");
    scratch.Write("b/broken", FullPlain());
    scratch.Write("a/c", Frequency("5"));
    scratch.Write("b/c", Frequency("6"));
    ExpectDiff(scratch, 2, "c: ! frequency.value: 5 -> 6\n",
               "reporttool: a/broken: UnknownForm: not a report in any known form\n");
}

TEST(ToolDiffFolders, PatternChoosesOnBothSides)
{
    const Scratch scratch;
    MakeFolders(scratch);
    for (const char* name : {"a/x.xml", "a/y", "b/z", "b/in/w.xml"})
        scratch.Write(name, Frequency("5"));
    const ToolRun run = RunIn(scratch, {"diff", "-r", "--pattern", "*.xml", "a", "b"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "+ in/w.xml\n- x.xml\n");
}

TEST(ToolDiffFolders, JsonHasAnObjectALine)
{
    const Scratch scratch;
    MakeFolders(scratch);
    for (const char* name : {"a/same", "b/same", "a/changed", "b/there"})
        scratch.Write(name, Frequency("5"));
    scratch.Write("b/changed", Frequency("6"));
    scratch.Write("a/broken", "x");
    scratch.Write("b/broken", "y");
    const ToolRun run = RunIn(scratch, {"diff", "-r", "--json", "a", "b"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(
        run.Output(),
        "{\"a\":\"a/broken\",\"b\":\"b/broken\",\"differences\":null,\"file\":\"broken\",\"same\":null}\n"
        "{\"a\":\"a/changed\",\"b\":\"b/changed\",\"differences\":[{\"change\":\"changed\",\"pathInA\":"
        "\"frequency.value\",\"pathInB\":\"frequency.value\",\"valueInA\":5,\"valueInB\":6}],\"file\":"
        "\"changed\",\"same\":false}\n"
        "{\"a\":\"a/same\",\"b\":\"b/same\",\"differences\":[],\"file\":\"same\",\"same\":true}\n"
        "{\"a\":null,\"b\":\"b/there\",\"differences\":[],\"file\":\"there\",\"same\":false}\n");
}

TEST(ToolDiffFolders, OptionsAreForFoldersAlone)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("x", Frequency("5"));
    scratch.Write("y", Frequency("6"));
    EXPECT_UNUSABLE(RunIn(scratch, {"diff", "a", "b"}), "a: is a directory");
    EXPECT_UNUSABLE(RunIn(scratch, {"diff", "-r", "a", "missing"}),
                    QStringLiteral("one of the two is a folder, the other is none") +
                        QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"diff", "-r", "x", "b"}),
                    QStringLiteral("one of the two is a folder, the other is none") +
                        QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"diff", "--pattern", "*", "a", "b"}),
                    QStringLiteral("--pattern is for folders, with -r") + QLatin1String(TRY_HELP));
    EXPECT_TEXT(RunIn(scratch, {"diff", "-r", "x", "y"}).Output(), "! frequency.value: 5 -> 6\n");
}

#ifdef Q_OS_LINUX
TEST(ToolDiffFolders, LinksToFoldersAreNotFollowedAndThoseToFilesAre)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("x", Frequency("5"));
    scratch.Write("b/link", Frequency("6"));
    EXPECT_TRUE(QFile::link(QStringLiteral("../x"), scratch.Path("a/link")));
    EXPECT_TRUE(QFile::link(QStringLiteral(".."), scratch.Path("a/loop")));
    ExpectDiff(scratch, 1, "link: ! frequency.value: 5 -> 6\n");
}

TEST(ToolDiffFolders, NamesMayHoldLineBreaks)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("a/x\ny", Frequency("5"));
    scratch.Write("b/x\ny", Frequency("6"));
    scratch.Write("b/z\n", Frequency("6"));
    ExpectDiff(scratch, 1, "x\\ny: ! frequency.value: 5 -> 6\n+ z\\n\n");
}

TEST(ToolDiffFolders, FolderThatMayNotBeSearchedIsToldAndNothingOfWhatIsInIt)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("b/in/hidden", Frequency("5"));
    scratch.Write("b/in.xml", Frequency("5"));
    const ToolRun run = ToolTest::RunProgram(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"),
         QStringLiteral("chmod a-rwx a/in; if [ $(id -u) = 0 ]; then set -- setpriv --bounding-set "
                        "-dac_override,-dac_read_search; fi; \"$@\" \"$0\" diff -r a b; code=$?; "
                        "\"$@\" \"$0\" diff -r a/in b; chmod u+rwx a/in; exit $code"),
         QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
        ToolTest::PlainLocale({}, scratch.Folder()));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "+ in.xml\n");
    EXPECT_TEXT(run.Errors(), "reporttool: a/in: Permission denied\nreporttool: a/in: Permission denied\n");
}
#endif

} // namespace
