#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#ifdef Q_OS_LINUX
#    include <csignal>
#    include <fcntl.h>
#    include <sys/stat.h>
#    include <unistd.h>
#endif

namespace {

using ToolTest::FullPlain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

QByteArray Frequency(const char* value)
{
    return QByteArray("<ReportBase><Frequency>") + value + "</Frequency></ReportBase>";
}

/// As it is written.
QByteArray Written(const char* value)
{
    return QByteArray("\n<ReportBase>\n    <Frequency>") + value + "</Frequency>\n</ReportBase>\n";
}

ToolRun RunIn(const Scratch& scratch, ToolTest::Arguments arguments)
{
    return RunTool(arguments, {{}, scratch.Folder(), QStringLiteral("C")});
}

/// "in/a.xml" of 5 Hz, "in/b.xml" of 6 Hz and "in/deep/c.xml" of 7 Hz.
void MakeReports(const Scratch& scratch)
{
    EXPECT_TRUE(QDir(scratch.Folder()).mkpath(QStringLiteral("in/deep")));
    scratch.Write("in/a.xml", Frequency("5"));
    scratch.Write("in/b.xml", Frequency("6"));
    scratch.Write("in/deep/c.xml", Frequency("7"));
}

// --- In place

TEST(ToolSetMany, ChangesTheFilesOfAFolderInPlace)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(scratch, {"set", "-r", "in", "frequency.value=8Hz", "--in-place"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "3 files: 3 changed, 0 unchanged, 0 refused, 0 unusable\n");
    for (const char* name : {"in/a.xml", "in/b.xml", "in/deep/c.xml"})
        EXPECT_EQ(scratch.Read(name).trimmed(), Written("8.00").trimmed()) << name;
    EXPECT_EQ(QDir(scratch.Path("in")).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

TEST(ToolSetMany, FileThatHasTheValuesStaysAsItIs)
{
    const Scratch scratch;
    MakeReports(scratch);
    // Other digits and other blanks, but the same meaning.
    scratch.Write("in/b.xml", "<ReportBase><Frequency>5e0</Frequency>  </ReportBase>");
    const ToolRun run = RunIn(scratch, {"set", "-r", "in", "frequency.value=5", "--in-place"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "3 files: 1 changed, 2 unchanged, 0 refused, 0 unusable\n");
    EXPECT_EQ(scratch.Read("in/a.xml"), Frequency("5"));
    EXPECT_EQ(scratch.Read("in/b.xml"), "<ReportBase><Frequency>5e0</Frequency>  </ReportBase>");
}

TEST(ToolSetMany, ValueThatReadsAsTheNewOneIsWritten)
{
    // The text is no number and reads as 0.
    const Scratch scratch;
    scratch.Write("in", Frequency("121,5"));
    const ToolRun run = RunIn(scratch, {"set", "in", "frequency.value=0", "--in-place"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(scratch.Read("in").trimmed(), Written("0.00").trimmed());
}

TEST(ToolSetMany, OneFileInPlaceHasNoSummary)
{
    const Scratch scratch;
    scratch.Write("in", Frequency("5"));
    const ToolRun run = RunIn(scratch, {"set", "in", "frequency.value=6", "--in-place"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_EQ(scratch.Read("in").trimmed(), Written("6.00").trimmed());
}

TEST(ToolSetMany, OneBadFileDoesNotKeepTheOthersBack)
{
    const Scratch scratch;
    MakeReports(scratch);
    scratch.Write("bad", "x");
    const ToolRun run =
        RunIn(scratch, {"set", "missing", "bad", "in/a.xml", "in", "frequency.value=8", "--in-place"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(), "reporttool: missing: no such file\n"
                              "reporttool: bad: UnknownForm: not a report in any known form\n"
                              "reporttool: in: is a directory\n"
                              "4 files: 1 changed, 0 unchanged, 1 refused, 2 unusable\n");
    EXPECT_EQ(scratch.Read("in/a.xml").trimmed(), Written("8.00").trimmed());
    EXPECT_EQ(scratch.Read("bad"), "x");
    EXPECT_EQ(RunIn(scratch, {"set", "bad", "in/a.xml", "frequency.value=8", "--in-place"}).exitCode, 1);
}

TEST(ToolSetMany, WhatWouldBeDiscardedOfAFileKeepsThatFileAsItIs)
{
    const QByteArray wrapped = "<Mission>" + Frequency("5") + "<Note/></Mission>";
    const Scratch scratch;
    MakeReports(scratch);
    scratch.Write("in/a.xml", wrapped);
    const ToolRun run = RunIn(scratch, {"set", "-r", "in", "frequency.value=8", "--in-place"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.errors.contains("in/a.xml")) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.endsWith("\n3 files: 2 changed, 0 unchanged, 1 refused, 0 unusable\n"))
        << run.errors.toStdString();
    EXPECT_EQ(scratch.Read("in/a.xml"), wrapped);
    EXPECT_EQ(RunIn(scratch, {"set", "-r", "in", "frequency.value=8", "--in-place", "--discard"}).exitCode,
              0);
    EXPECT_EQ(scratch.Read("in/a.xml").trimmed(), Written("8.00").trimmed());
}

TEST(ToolSetMany, NothingIsDiscardedOfAFileThatStaysAsItIs)
{
    const QByteArray wrapped = "<Mission>" + Frequency("5") + "<Note/></Mission>";
    const Scratch scratch;
    scratch.Write("a", wrapped);
    scratch.Write("b", Frequency("6"));
    const ToolRun run = RunIn(scratch, {"set", "a", "b", "frequency.value=5", "--in-place"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "2 files: 1 changed, 1 unchanged, 0 refused, 0 unusable\n");
    EXPECT_EQ(scratch.Read("a"), wrapped);
}

TEST(ToolSetMany, EmptyFolderIsLeftAlone)
{
    const Scratch scratch;
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("in")));
    const ToolRun run = RunIn(scratch, {"set", "-r", "in", "frequency.value=8", "--in-place"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolSetMany, FileThatIsNamedTwiceIsChangedOnce)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(
        scratch, {"set", "-r", "in/a.xml", "./in/../in/a.xml", "in", "frequency.value=8", "--in-place"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "3 files: 3 changed, 0 unchanged, 0 refused, 0 unusable\n");
}

// --- Into a folder

TEST(ToolSetMany, WritesIntoAFolderUnderTheSameNames)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("to")));
    scratch.Write("d", FullPlain());
    const ToolRun run = RunIn(scratch, {"set", "-r", "in", "d", "frequency.value=6", "-o", "to"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "4 files: 3 changed, 1 unchanged, 0 refused, 0 unusable\n");
    EXPECT_EQ(QDir(scratch.Path("to")).entryList(QDir::Files).join(QLatin1Char(' ')),
              QStringLiteral("a.xml b.xml c.xml d"));
    EXPECT_EQ(scratch.Read("to/b.xml").trimmed(), Written("6.00").trimmed());
    EXPECT_EQ(scratch.Read("in/a.xml"), Frequency("5"));
    EXPECT_TRUE(RunIn(scratch, {"list", "to/d"}).output.contains("\nplain "));
}

TEST(ToolSetMany, FolderMayBeMeantByASlash)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("to")));
    EXPECT_EQ(RunIn(scratch, {"set", "in/a.xml", "frequency.value=6", "-o", "to/"}).exitCode, 0);
    EXPECT_EQ(scratch.Read("to/a.xml").trimmed(), Written("6.00").trimmed());
}

TEST(ToolSetMany, TwoFilesOfOneNameAreRefusedBeforehand)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("in/to")));
    scratch.Write("in/deep/a.xml", Frequency("5"));
    EXPECT_UNUSABLE(RunIn(scratch, {"set", "-r", "in", "frequency.value=6", "-o", "in/to"}),
                    QStringLiteral("in/a.xml and in/deep/a.xml would both become in/to/a.xml") +
                        QLatin1String(TRY_HELP));
    EXPECT_TRUE(QDir(scratch.Path("in/to")).isEmpty());
    EXPECT_UNUSABLE(RunIn(scratch, {"set", "-r", "in", "frequency.value=6", "-o", "new"}),
                    "new: no such folder");
}

// A folder within the one that is read is read too, the next time.
TEST(ToolSetMany, OutcomeIsNotTakenForAnotherReport)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("in/to")));
    EXPECT_EQ(RunIn(scratch, {"set", "-r", "in", "frequency.value=6", "-o", "in/to"}).exitCode, 0);
    EXPECT_UNUSABLE(RunIn(scratch, {"set", "-r", "in", "frequency.value=6", "-o", "in/to"}),
                    QStringLiteral("in/a.xml and in/to/a.xml would both become in/to/a.xml") +
                        QLatin1String(TRY_HELP));
}

// --- What would change

TEST(ToolSetMany, DryRunTellsWhatWouldChangeAndChangesNothing)
{
    const Scratch scratch;
    MakeReports(scratch);
    const QByteArray area = "<ReportBase><Area Version=\"1.0\"><Name>A</Name>"
                            "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                            "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude></Coordinate>"
                            "</Area></ReportBase>";
    scratch.Write("in/deep/c.xml", area);
    const ToolRun run =
        RunIn(scratch, {"set", "-r", "in", "frequency.value=6", "--unset", "area", "--dry-run"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "in/a.xml: ! frequency.value: 5 -> 6\n"
                              "in/deep/c.xml: + frequency.value: 6\n"
                              "in/deep/c.xml: - area.name: \"A\"\n"
                              "in/deep/c.xml: - area.coordinate[1] to area.coordinate[2]\n");
    EXPECT_TEXT(run.Errors(), "3 files: 2 would be changed, 1 unchanged, 0 refused, 0 unusable\n");
    EXPECT_EQ(scratch.Read("in/a.xml"), Frequency("5"));
    EXPECT_EQ(scratch.Read("in/deep/c.xml"), area);
}

TEST(ToolSetMany, DryRunEndsAsTheRunWould)
{
    const Scratch scratch;
    MakeReports(scratch);
    scratch.Write("bad", "x");
    EXPECT_EQ(RunIn(scratch, {"set", "bad", "in/a.xml", "frequency.value=6", "--dry-run"}).exitCode, 1);
    EXPECT_EQ(RunIn(scratch, {"set", "missing", "in/a.xml", "frequency.value=6", "--dry-run"}).exitCode, 2);
    // Nor would it be written: XML has no way to say this character.
    EXPECT_TRUE(QFile::remove(scratch.Path("bad")));
    const ToolRun run = RunIn(scratch, {"set", "in/a.xml", "frequency.min=high", "--dry-run"});
    EXPECT_EQ(run.exitCode, 2);
    const ToolRun invalid =
        RunIn(scratch, {"set", "in/a.xml", "--unset", "frequency.value", "frequency.use=true", "--dry-run"});
    EXPECT_EQ(invalid.exitCode, 1);
    EXPECT_TEXT(invalid.Output(), "");
    EXPECT_TEXT(invalid.Errors(),
                "reporttool: in/a.xml: OutOfRangeException: Frequency: Please set Value properly.\n");
    const ToolRun input =
        RunTool({"set", "-", "frequency.value=6", "--dry-run"}, {Frequency("5"), scratch.Folder(), {}});
    EXPECT_TEXT(input.Output(), "-: ! frequency.value: 5 -> 6\n");
}

// --- The command line

TEST(ToolSetMany, FilesComeFromAList)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunTool({"set", "--files-from", "-", "frequency.value=8", "--in-place"},
                                {"in/a.xml\nin/b.xml\n", scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "2 files: 2 changed, 0 unchanged, 0 refused, 0 unusable\n");
    EXPECT_EQ(scratch.Read("in/a.xml").trimmed(), Written("8.00").trimmed());
    EXPECT_EQ(scratch.Read("in/deep/c.xml"), Frequency("7"));
}

TEST(ToolSetMany, PatternChoosesAmongTheFilesOfFolders)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_EQ(
        RunIn(scratch, {"set", "-r", "--pattern", "[bc]*", "in", "frequency.value=8", "--in-place"}).exitCode,
        0);
    EXPECT_EQ(scratch.Read("in/a.xml"), Frequency("5"));
    EXPECT_EQ(scratch.Read("in/deep/c.xml").trimmed(), Written("8.00").trimmed());
}

TEST(ToolSetMany, NameWithAnEqualsSignStandsFirstOrHasAFolder)
{
    const Scratch scratch;
    scratch.Write("a=b", Frequency("5"));
    scratch.Write("c=d", Frequency("5"));
    const ToolRun run = RunIn(scratch, {"set", "a=b", "./c=d", "frequency.value=8", "--in-place"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(scratch.Read("a=b").trimmed(), Written("8.00").trimmed());
    EXPECT_EQ(scratch.Read("c=d").trimmed(), Written("8.00").trimmed());
}

TEST(ToolSetMany, WrongUseEndsWithTwo)
{
    const Scratch scratch;
    MakeReports(scratch);
    const struct
    {
        std::initializer_list<ToolTest::Argument> arguments;
        const char* text;
    } rows[] = {
        {{"set", "in/a.xml", "in/b.xml", "frequency.value=1"}, "-o or --in-place is missing"},
        {{"set", "-r", "in", "frequency.value=1"}, "-o or --in-place is missing"},
        {{"set", "in/a.xml", "frequency.value=1", "-o", "x", "--in-place"},
         "-o and --in-place do not go together"},
        {{"set", "-", "frequency.value=1", "--in-place"}, "standard input cannot be changed in place"},
        {{"set", "in/a.xml", "frequency.value=1", "in/b.xml", "--in-place"},
         "'in/b.xml' is no assignment: PATH=VALUE"},
        {{"set", "in/a.xml", "in/b.xml", "--in-place"}, "there is nothing to set"}};
    for (const auto& row : rows)
        EXPECT_UNUSABLE(RunIn(scratch, row.arguments), QString::fromUtf8(row.text) + QLatin1String(TRY_HELP));
    EXPECT_EQ(scratch.Read("in/a.xml"), Frequency("5"));
}

// --- Odd files

#ifdef Q_OS_LINUX
TEST(ToolSetMany, LinkStaysOneAndItsFileIsChangedOnce)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_TRUE(QFile::link(QStringLiteral("b.xml"), scratch.Path("in/latest.xml")));
    EXPECT_TRUE(QFile::link(QStringLiteral("nowhere"), scratch.Path("in/broken.xml")));
    const ToolRun run = RunIn(scratch, {"set", "-r", "in", "frequency.value=8", "--in-place"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "3 files: 3 changed, 0 unchanged, 0 refused, 0 unusable\n");
    EXPECT_TRUE(QFileInfo(scratch.Path("in/latest.xml")).isSymLink());
    EXPECT_EQ(RunIn(scratch, {"set", "in/latest.xml", "frequency.value=9", "--in-place"}).exitCode, 0);
    EXPECT_TRUE(QFileInfo(scratch.Path("in/latest.xml")).isSymLink());
    EXPECT_EQ(scratch.Read("in/b.xml").trimmed(), Written("9.00").trimmed());
}

TEST(ToolSetMany, InterruptionLeavesEachFileAsItWasOrChanged)
{
    const Scratch scratch;
    MakeReports(scratch);
    ASSERT_EQ(mkfifo(QFile::encodeName(scratch.Path("pipe")).constData(), S_IRUSR | S_IWUSR), 0);
    // Far more than it begins with while the pipe keeps it waiting.
    constexpr int MISSING = 100000;
    QByteArray list = "in/a.xml\npipe\n";
    for (int i = 0; i < MISSING; ++i)
        list += "missing\n";
    list += "in/b.xml\n";
    scratch.Write("list", list);
    QProcess process;
    process.setWorkingDirectory(scratch.Folder());
    process.start(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL),
                  {QStringLiteral("set"), QStringLiteral("--files-from"), QStringLiteral("list"),
                   QStringLiteral("frequency.value=8"), QStringLiteral("--in-place")});
    ASSERT_TRUE(process.waitForStarted());
    // It opens the pipe when it reads it.
    const int pipe = open(QFile::encodeName(scratch.Path("pipe")).constData(), O_WRONLY | O_CLOEXEC);
    ASSERT_GE(pipe, 0);
    ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    // Time to notice it; what is begun until then is told too.
    EXPECT_FALSE(process.waitForFinished(1000));
    close(pipe);
    ASSERT_TRUE(process.waitForFinished(60 * 1000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 2);
    const QByteArray errors = process.readAllStandardError();
    const auto missing = errors.count("reporttool: missing: no such file\n");
    EXPECT_LT(missing, MISSING);
    EXPECT_TRUE(errors.endsWith(QStringLiteral("reporttool: interrupted after %1 of %2 files\n"
                                               "%1 files: 1 changed, 0 unchanged, 1 refused, %3 unusable\n")
                                    .arg(missing + 2)
                                    .arg(MISSING + 3)
                                    .arg(missing)
                                    .toLatin1()))
        << errors.right(300).toStdString();
    EXPECT_EQ(scratch.Read("in/a.xml").trimmed(), Written("8.00").trimmed());
    EXPECT_EQ(scratch.Read("in/b.xml"), Frequency("6"));
    EXPECT_EQ(QDir(scratch.Path("in")).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

TEST(ToolSetMany, NamesMayHoldLineBreaks)
{
    const Scratch scratch;
    scratch.Write("a\nb", Frequency("5"));
    scratch.Write("c", Frequency("5"));
    const ToolRun run = RunTool({"set", "--files-from", "-", "-0", "frequency.value=8", "--dry-run"},
                                {QByteArray("a\nb\0c\0", 6), scratch.Folder(), {}});
    EXPECT_TEXT(run.Output(), "a\\nb: ! frequency.value: 5 -> 8\nc: ! frequency.value: 5 -> 8\n");
}

TEST(ToolSetMany, FolderThatMayNotBeWrittenIsTold)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = ToolTest::RunProgram(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"),
         QStringLiteral("chmod a-w in/deep; if [ $(id -u) = 0 ]; then set -- setpriv --bounding-set "
                        "-dac_override; fi; \"$@\" \"$0\" set -r in frequency.value=8 --in-place; code=$?; "
                        "chmod u+w in/deep; exit $code"),
         QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
        ToolTest::PlainLocale({}, scratch.Folder()));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(), "reporttool: in/deep/c.xml: Permission denied\n"
                              "3 files: 2 changed, 0 unchanged, 0 refused, 1 unusable\n");
    EXPECT_EQ(scratch.Read("in/deep/c.xml"), Frequency("7"));
}
#endif

} // namespace
