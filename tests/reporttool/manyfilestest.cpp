#include "samples.h"
#include "toolrun.h"

#include <reporttool/progress.h>

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>

#ifdef Q_OS_UNIX
#    include <csignal>
#endif

namespace {

using ReportTool::ProgressText;
using ToolTest::FullPlain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr int PATIENCE_IN_MS = 60 * 1000;
constexpr char EMPTY[] = ": UnknownForm: not a report in any known form (empty)\n";

/// Two folders with empty files.
void MakeFolders(const Scratch& scratch)
{
    QDir folder(scratch.Folder());
    EXPECT_TRUE(folder.mkpath(QStringLiteral("in/b")));
    for (const char* name : {"in/c.xml", "in/a.xml", "in/d.txt", "in/b/e.xml", "in/b/.f.xml"})
        scratch.Write(name, {});
}

// --- Which files

TEST(ToolManyFiles, FolderIsRefusedUnlessItIsToBeSearched)
{
    const Scratch scratch;
    MakeFolders(scratch);
    EXPECT_UNUSABLE(RunTool({"check", "in"}, {{}, scratch.Folder(), {}}), "in: is a directory");
}

TEST(ToolManyFiles, FilesOfFoldersComeInTheOrderOfTheirNames)
{
    const Scratch scratch;
    MakeFolders(scratch);
    const ToolRun run = RunTool({"check", "-r", "in"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(
        run.Output(),
        QStringLiteral("in/a.xml%1in/b/.f.xml%1in/b/e.xml%1in/c.xml%1in/d.txt%1").arg(QLatin1String(EMPTY)));
    EXPECT_TEXT(run.Errors(), "5 files: 0 good, 5 invalid, 0 unreadable\n");
}

TEST(ToolManyFiles, PatternIsForFilesOfFoldersOnly)
{
    const Scratch scratch;
    MakeFolders(scratch);
    const ToolRun run = RunTool({"check", "--recursive", "--pattern", "?.xml", "in/d.txt", "in/b", "in"},
                                {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(
        run.Output(),
        QStringLiteral("in/d.txt%1in/b/e.xml%1in/a.xml%1in/b/e.xml%1in/c.xml%1").arg(QLatin1String(EMPTY)));
}

TEST(ToolManyFiles, FolderWithoutFilesIsGood)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"check", "-r", scratch.Folder()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolManyFiles, ListHoldsANameALine)
{
    const Scratch scratch;
    MakeFolders(scratch);
    scratch.Write("list", "in/c.xml\r\n\nin/b/e.xml\nmissing");
    const ToolRun run = RunTool({"check", "in/a.xml", "--files-from", "list"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), QStringLiteral("in/a.xml%1in/c.xml%1in/b/e.xml%1").arg(QLatin1String(EMPTY)));
    EXPECT_TEXT(run.Errors(), "reporttool: missing: no such file\n"
                              "4 files: 0 good, 3 invalid, 1 unreadable\n");
}

TEST(ToolManyFiles, ListMayComeFromStandardInputWithNuls)
{
    const Scratch scratch;
    MakeFolders(scratch);
    const ToolRun run = RunTool({"check", "--files-from", "-", "-0", "-r"},
                                {QByteArray("in/a.xml\0in/b\0", 14), scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(),
                QStringLiteral("in/a.xml%1in/b/.f.xml%1in/b/e.xml%1").arg(QLatin1String(EMPTY)));
}

#ifdef Q_OS_LINUX
TEST(ToolManyFiles, ListWithNulsMayNameAFileWithALineBreak)
{
    const Scratch scratch;
    scratch.Write("a\nb", {});
    const ToolRun run =
        RunTool({"check", "--files-from", "-", "-0"}, {QByteArray("a\nb\0", 4), scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), QStringLiteral("a\\nb%1").arg(QLatin1String(EMPTY)));
}
#endif

TEST(ToolManyFiles, ListThatCannotBeReadEndsWithTwo)
{
    const Scratch scratch;
    EXPECT_UNUSABLE(RunTool({"check", "--files-from", "list"}, {{}, scratch.Folder(), {}}),
                    "list: no such file");
}

TEST(ToolManyFiles, ListMustNotNameStandardInputItself)
{
    EXPECT_UNUSABLE(RunTool({"check", "--files-from", "-"}, {"-\n", {}, {}}),
                    "standard input can be read only once\nTry 'reporttool --help'.");
}

TEST(ToolManyFiles, ListWithNulsNeedsItsOption)
{
    const Scratch scratch;
    MakeFolders(scratch);
    EXPECT_UNUSABLE(RunTool({"check", "--files-from", "-"},
                            {QByteArray("in/a.xml\0in/missing\0", 20), scratch.Folder(), {}}),
                    "-: there is a NUL in a name; with -0 each name has one behind it");
}

TEST(ToolManyFiles, ListMayBeginWithAByteOrderMark)
{
    const Scratch scratch;
    MakeFolders(scratch);
    const ToolRun run =
        RunTool({"check", "--files-from", "-"}, {"\xEF\xBB\xBFin/a.xml\n", scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), QStringLiteral("in/a.xml%1").arg(QLatin1String(EMPTY)));
}

// --- In which order

TEST(ToolManyFiles, OutputIsInTheOrderOfTheArguments)
{
    const Scratch scratch;
    QByteArray list;
    QByteArray expected;
    for (int i = 0; i < 2000; ++i) {
        const QByteArray name = QByteArray::number(i);
        // Every third is empty, every fifth is missing.
        if (i % 5 != 0)
            scratch.Write(name.constData(), i % 3 == 0 ? QByteArray() : FullPlain());
        if (i % 5 != 0 && i % 3 == 0)
            expected += name + EMPTY;
        list += name + '\n';
    }
    const ToolRun run =
        RunTool({"check", "--no-warnings", "--files-from", "-"}, {list, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), QString::fromLatin1(expected));
    // 667 numbers are divisible by three, 134 of these by five.
    EXPECT_TRUE(run.errors.endsWith("\n2000 files: 1067 good, 533 invalid, 400 unreadable\n"))
        << run.errors.right(100).toStdString();
    EXPECT_TRUE(run.errors.startsWith("reporttool: 0: no such file\nreporttool: 5: no such file\n"));
}

// --- How far

TEST(ToolManyFiles, ProgressTellsRateAndTimeLeft)
{
    EXPECT_TEXT(ProgressText(0, 400, 0), "0 of 400 (0 %)");
    EXPECT_TEXT(ProgressText(0, 400, 700), "0 of 400 (0 %)");
    EXPECT_TEXT(ProgressText(100, 400, 2000), "100 of 400 (25 %), 50/s, 6 s left");
    EXPECT_TEXT(ProgressText(399, 400, 2000), "399 of 400 (99 %), 199/s, 1 s left");
    EXPECT_TEXT(ProgressText(400, 400, 2000), "400 of 400 (100 %), 200/s, 0 s left");
}

TEST(ToolManyFiles, NothingButTheSummaryWhereErrorsGoElsewhere)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"check", scratch.Write("empty", {}), "-"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "2 files: 0 good, 2 invalid, 0 unreadable\n");
}

#ifdef Q_OS_UNIX
TEST(ToolManyFiles, InterruptionEndsItWithWhatWasDone)
{
    // Far more than it can tell before somebody reads what it tells.
    const Scratch scratch;
    const QString empty = scratch.Write("empty", {});
    QProcess process;
    QByteArray list;
    for (int i = 0; i < 300000; ++i)
        list += empty.toUtf8() + '\n';
    process.start(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL),
                  {QStringLiteral("check"), QStringLiteral("--files-from"), QStringLiteral("-")});
    process.write(list);
    process.closeWriteChannel();
    // It writes as soon as it has much to tell, and has begun by then.
    ASSERT_TRUE(process.waitForReadyRead(PATIENCE_IN_MS));
    ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    ASSERT_TRUE(process.waitForFinished(PATIENCE_IN_MS));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 2);
    const QByteArray output = process.readAllStandardOutput();
    const QByteArray errors = process.readAllStandardError();
    const int told = static_cast<int>(output.count(EMPTY));
    EXPECT_TRUE(output.endsWith(EMPTY));
    EXPECT_LT(told, 300000);
    EXPECT_TEXT(QString::fromUtf8(errors), QStringLiteral("reporttool: interrupted after %1 of 300000 files\n"
                                                          "%1 files: 0 good, %1 invalid, 0 unreadable\n")
                                               .arg(told));
}

TEST(ToolManyFiles, InterruptionIsIgnoredByWhoeverWasStartedSo)
{
    // Far more than it can tell before somebody reads what it tells.
    const Scratch scratch;
    scratch.Write("e", {});
    QProcess process;
    process.setWorkingDirectory(scratch.Folder());
    process.start(QStringLiteral("/bin/sh"),
                  {QStringLiteral("-c"), QStringLiteral("trap '' INT; exec \"$0\" check --files-from -"),
                   QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)});
    process.write(QByteArray("e\n").repeated(100000));
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForReadyRead(PATIENCE_IN_MS));
    ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    ASSERT_TRUE(process.waitForFinished(PATIENCE_IN_MS));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TEXT(QString::fromUtf8(process.readAllStandardError()),
                "100000 files: 0 good, 100000 invalid, 0 unreadable\n");
}
#endif

#ifdef Q_OS_LINUX
// --- With less than it could have

ToolRun RunShell(const char* script, const QString& folder)
{
    return ToolTest::RunProgram(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"), QLatin1String(script), QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
        ToolTest::PlainLocale({}, folder));
}

TEST(ToolManyFiles, WithoutThreadsOneFileComesAfterTheOther)
{
    const Scratch scratch;
    MakeFolders(scratch);
    // Each thread would get a stack of that many KiB, more than there are addresses.
    if (RunShell("ulimit -s 1099511627776 && exec \"$0\" help", scratch.Folder()).exitCode != 0)
        GTEST_SKIP() << "programs cannot be started with such a limit";
    const ToolRun run =
        RunShell("ulimit -s 1099511627776; exec \"$0\" check -r in in missing", scratch.Folder());
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), QStringLiteral("in/a.xml%1in/b/.f.xml%1in/b/e.xml%1in/c.xml%1in/d.txt%1"
                                             "in/a.xml%1in/b/.f.xml%1in/b/e.xml%1in/c.xml%1in/d.txt%1")
                                  .arg(QLatin1String(EMPTY)));
    EXPECT_TEXT(run.Errors(), "reporttool: missing: no such file\n"
                              "11 files: 0 good, 10 invalid, 1 unreadable\n");
}

TEST(ToolManyFiles, FolderThatMayNotBeSearchedIsTold)
{
    const Scratch scratch;
    MakeFolders(scratch);
    const ToolRun run = RunShell(
        "chmod a-rwx in/b; "
        "if [ $(id -u) = 0 ]; then set -- setpriv --bounding-set -dac_override,-dac_read_search; fi; "
        "\"$@\" \"$0\" check -r in; code=$?; chmod u+rwx in/b; exit $code",
        scratch.Folder());
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), QStringLiteral("in/a.xml%1in/c.xml%1in/d.txt%1").arg(QLatin1String(EMPTY)));
    EXPECT_TEXT(run.Errors(), "reporttool: in/b: Permission denied\n"
                              "4 files: 0 good, 3 invalid, 1 unreadable\n");
}
#endif

} // namespace
