// What commands do where something around them fails: their output, their streams, the files that they read and write.

#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>

#include <ostream>

#ifdef Q_OS_LINUX

namespace {

using ToolTest::BrokenPipe;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::NamedAreaXml;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char OLD_CONTENT[] = "what was there before";

/// A command line, without the options that a test adds.
struct CommandLine
{
    const char* arguments;
    const char* output = "standard output"; ///< how messages call it
    int exitCode = 0;                       ///< where nothing fails
};

std::ostream& operator<<(std::ostream& stream, const CommandLine& line)
{
    return stream << line.arguments;
}

/// A folder with files of all kinds that commands read.
class ToolFailure : public testing::TestWithParam<CommandLine>
{
protected:
    ToolFailure()
    {
        m_scratch.Write("a.xml", FullXml());
        m_scratch.Write("b.xml", NamedAreaXml("Lake"));
        m_scratch.Write("a.plain", FullPlain());
        m_scratch.Write("bad.xml", "<ReportBase><Area><Name>a</Name></Area></ReportBase>");
        m_scratch.Write("odd.xml", "<ReportBase><Frequency>1,5</Frequency></ReportBase>");
        m_scratch.Write(
            "settings.xml",
            "<Ellipse><MinRadius>1</MinRadius><MaxRadius>2</MaxRadius><Rotation>3</Rotation></Ellipse>");
        m_scratch.Write("list", "a.xml\nb.xml\n");
        m_scratch.Write("p.csv", "name,WKT\nHill,POINT (1 2)\n");
        m_scratch.Write("p.geojson", R"({"type":"Feature","properties":{"name":"Hill"},)"
                                     R"("geometry":{"type":"Point","coordinates":[1,2]}})");
        m_scratch.Write("p.kml",
                        "<kml><Placemark><name>Hill</name><Point><coordinates>1,2</coordinates></Point>"
                        "</Placemark></kml>");
        EXPECT_TRUE(QDir(m_scratch.Folder()).mkpath(QStringLiteral("in")));
        m_scratch.Write("in/c.xml", FullXml());
        static const QByteArray json = RunShell(QStringLiteral("exec \"$0\" show --json a.xml")).output;
        m_scratch.Write("a.json", json);
    }

    static QStringList ShellArguments(const QString& script)
    {
        // An instrumented program can't write its profile everywhere either.
        return {QStringLiteral("-c"), QStringLiteral("export GCOV_ERROR_FILE=/dev/null; ") + script,
                QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)};
    }

    ToolRun RunShell(const QString& script) const
    {
        return ToolTest::RunProgram(QStringLiteral("/bin/sh"), ShellArguments(script),
                                    ToolTest::PlainLocale({}, m_scratch.Folder()));
    }

    ToolRun Run(const char* behind) const
    {
        return RunShell(QStringLiteral("exec \"$0\" %1 %2")
                            .arg(QLatin1String(GetParam().arguments), QLatin1String(behind)));
    }

    void ExpectWords(const ToolRun& run, const char* words) const
    {
        EXPECT_EQ(run.exitCode, 2);
        const QString line = QStringLiteral("reporttool: %1: %2\n")
                                 .arg(QLatin1String(GetParam().output), QLatin1String(words));
        EXPECT_TRUE(run.Errors().endsWith(line)) << run.errors.toStdString();
        EXPECT_EQ(run.errors.count(words), 1) << run.errors.toStdString();
    }

    const Scratch m_scratch;
};

// --- Those that write to standard output

class ToolOutputFailure : public ToolFailure
{
protected:
    /// The tool's exit code, as a shell tells it, is written to the file `code`.
    ToolRun RunOnBrokenPipe(BrokenPipe outcome) const
    {
        const QString script = QStringLiteral("\"$0\" %1; code=$?; echo $code >code; exit $code")
                                   .arg(QLatin1String(GetParam().arguments));
        return ToolTest::RunOnBrokenPipe(QStringLiteral("/bin/sh"), ShellArguments(script),
                                         ToolTest::PlainLocale({}, m_scratch.Folder()), outcome);
    }
};

TEST_P(ToolOutputFailure, NothingFailsByItself)
{
    const ToolRun run = Run("");
    EXPECT_EQ(run.exitCode, GetParam().exitCode) << run.errors.toStdString();
    EXPECT_FALSE(run.output.isEmpty());
}

TEST_P(ToolOutputFailure, FullOutputIsTold)
{
    ExpectWords(Run(">/dev/full"), "No space left on device");
}

TEST_P(ToolOutputFailure, ClosedOutputIsTold)
{
    ExpectWords(Run(">&-"), "is not open");
}

TEST_P(ToolOutputFailure, ClosedPipeIsTold)
{
    ExpectWords(RunOnBrokenPipe(BrokenPipe::Error), "Broken pipe");
    EXPECT_BYTES(m_scratch.Read("code"), QByteArray("2\n"));
}

TEST_P(ToolOutputFailure, PipeThatNobodyReadsEndsItByItsSignal)
{
    RunOnBrokenPipe(BrokenPipe::Signal);
    // 128 and the number of the signal.
    EXPECT_BYTES(m_scratch.Read("code"), QByteArray("141\n"));
}

TEST_P(ToolOutputFailure, ClosedInputOfOthersDoesNotMatter)
{
    const ToolRun run = Run("<&-");
    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    EXPECT_BYTES(run.output, Run("").output);
}

TEST_P(ToolOutputFailure, ClosedErrorsDoNotMatterToThoseWhoHaveNone)
{
    const ToolRun whole = Run("");
    const ToolRun closed = Run("2>&-");
    if (!whole.errors.isEmpty()) {
        EXPECT_EQ(closed.exitCode, 2);
        EXPECT_EQ(Run("2>/dev/full").exitCode, 2);
        return;
    }
    EXPECT_EQ(closed.exitCode, GetParam().exitCode);
    EXPECT_BYTES(closed.output, whole.output);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, ToolOutputFailure,
    testing::Values(
        CommandLine{"diff a.xml b.xml", "standard output", 1},
        CommandLine{"diff --json a.xml b.xml", "standard output", 1},
        CommandLine{"grep 'area set' a.xml b.xml"}, CommandLine{"grep 'area set' -r in"},
        CommandLine{"grep 'area set' --files-from list"}, CommandLine{"set a.xml area.name=Sea -o -", "-"},
        CommandLine{"set a.plain --unset area.scriptId -o -", "-"},
        CommandLine{"merge a.xml b.xml -o -", "-"}, CommandLine{"settings --dry-run settings.xml"},
        CommandLine{"export a.xml --to geojson", "-"}, CommandLine{"export a.xml --to geojsonl", "-"},
        CommandLine{"export a.xml --to csv", "-"}, CommandLine{"export a.xml --to csv-points", "-"},
        CommandLine{"export a.xml --to wkt", "-"}, CommandLine{"export a.xml --to kml", "-"},
        CommandLine{"export a.xml b.xml --to gpx", "-"},
        CommandLine{"export --files-from list --to wkt", "-"}, CommandLine{"import p.csv - --from csv", "-"},
        CommandLine{"import p.geojson - --from geojson --parts", "-"},
        CommandLine{"import p.kml - --from kml", "-"}, CommandLine{"convert a.xml - --to json", "-"},
        CommandLine{"convert --from json a.json -", "-"},
        CommandLine{"convert a.xml - --to file --level 9", "-"}, CommandLine{"show --map a.xml"},
        CommandLine{"show --json a.xml b.xml"}, CommandLine{"show --all --dump a.plain"},
        CommandLine{"check bad.xml", "standard output", 1},
        CommandLine{"check --json bad.xml a.xml", "standard output", 1},
        CommandLine{"check --strict odd.xml", "standard output", 1}));

// --- Those that write files

class ToolFileFailure : public ToolFailure
{
protected:
    void ExpectOldFile(const ToolRun& run, const char* words) const
    {
        ExpectWords(run, words);
        EXPECT_BYTES(m_scratch.Read(GetParam().output), QByteArray(OLD_CONTENT));
    }
};

TEST_P(ToolFileFailure, NothingFailsByItself)
{
    m_scratch.Write("out.xml", OLD_CONTENT);
    const ToolRun run = Run(">&-");
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_NE(m_scratch.Read(GetParam().output), QByteArray(OLD_CONTENT));
}

TEST_P(ToolFileFailure, FullDiskLeavesTheOldFile)
{
    m_scratch.Write(GetParam().output, OLD_CONTENT);
    const QStringList before = m_scratch.Names();
    // No file may grow at all.
    const ToolRun run = RunShell(
        QStringLiteral("trap '' XFSZ; ulimit -f 0; exec \"$0\" %1").arg(QLatin1String(GetParam().arguments)));
    ExpectOldFile(run, "File too large");
    EXPECT_EQ(m_scratch.Names(), before);
}

/// Without the right of the superuser to write everywhere, if one runs the tests.
constexpr char WITHOUT_RIGHTS[] =
    "if [ $(id -u) = 0 ]; then set -- setpriv --bounding-set -dac_override,-dac_read_search; fi; "
    "exec \"$@\" \"$0\" ";

TEST_P(ToolFileFailure, ReadOnlyFolderIsTold)
{
    m_scratch.Write(GetParam().output, OLD_CONTENT);
    const QString folder = QString::fromLatin1(GetParam().output).contains(QLatin1Char('/'))
                               ? QStringLiteral("into")
                               : QStringLiteral(".");
    const ToolRun run = RunShell(QStringLiteral("chmod a-w %1; ").arg(folder) +
                                 QLatin1String(WITHOUT_RIGHTS) + QLatin1String(GetParam().arguments));
    RunShell(QStringLiteral("chmod u+w ") + folder);
    ExpectOldFile(run, "Permission denied");
}

TEST_P(ToolFileFailure, ReadOnlyFileIsTold)
{
    m_scratch.Write(GetParam().output, OLD_CONTENT);
    const ToolRun run = RunShell(QStringLiteral("chmod a-w %1; ").arg(QLatin1String(GetParam().output)) +
                                 QLatin1String(WITHOUT_RIGHTS) + QLatin1String(GetParam().arguments));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_BYTES(m_scratch.Read(GetParam().output), QByteArray(OLD_CONTENT));
}

INSTANTIATE_TEST_SUITE_P(Commands, ToolFileFailure,
                         testing::Values(CommandLine{"set a.xml area.name=Sea -o out.xml", "out.xml"},
                                         CommandLine{"set a.xml --unset area.scriptId -o out.xml", "out.xml"},
                                         CommandLine{"merge a.xml b.xml -o out.xml", "out.xml"},
                                         CommandLine{"export a.xml --to geojson -o out.xml", "out.xml"},
                                         CommandLine{"export a.xml --to csv -o out.xml", "out.xml"},
                                         CommandLine{"export a.xml --to kml -o out.xml", "out.xml"},
                                         CommandLine{"export a.xml --to gpx -o out.xml", "out.xml"},
                                         CommandLine{"import p.csv out.xml --from csv", "out.xml"},
                                         CommandLine{"import p.geojson out.xml --from geojson", "out.xml"},
                                         CommandLine{"import p.kml out.xml --from kml --parts", "out.xml"},
                                         CommandLine{"convert a.plain out.xml --to json", "out.xml"},
                                         CommandLine{"convert --from json a.json out.xml", "out.xml"}));

// --- Files to read

class ToolInputFailure : public ToolFailure
{
};

TEST_P(ToolInputFailure, VanishedFileIsTold)
{
    const ToolRun run = RunShell(QStringLiteral("rm -f gone.xml; exec \"$0\" ") +
                                 QString::fromLatin1(GetParam().arguments).arg(QStringLiteral("gone.xml")));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.Errors().contains(QLatin1String("reporttool: gone.xml: no such file\n")))
        << run.errors.toStdString();
}

TEST_P(ToolInputFailure, ClosedInputIsTold)
{
    const ToolRun run = RunShell(QStringLiteral("exec \"$0\" %1 <&-")
                                     .arg(QString::fromLatin1(GetParam().arguments).arg(QLatin1Char('-'))));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.Errors().contains(QLatin1String("reporttool: -: is not open\n")))
        << run.errors.toStdString();
}

TEST_P(ToolInputFailure, FolderIsTold)
{
    const ToolRun run = RunShell(QStringLiteral("exec \"$0\" ") +
                                 QString::fromLatin1(GetParam().arguments).arg(QLatin1String("in")));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.Errors().contains(QLatin1String("reporttool: in: is a directory\n")))
        << run.errors.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Commands, ToolInputFailure,
    testing::Values(CommandLine{"diff a.xml %1"}, CommandLine{"diff --json %1 a.xml"},
                    CommandLine{"grep 'area set' a.xml %1 b.xml"},
                    CommandLine{"grep 'area set' --files-from %1"},
                    CommandLine{"set %1 area.name=Sea -o out"}, CommandLine{"set %1 --unset area -o out"},
                    CommandLine{"merge a.xml %1 -o out"}, CommandLine{"merge %1 a.xml -o out"},
                    CommandLine{"settings --dry-run %1"}, CommandLine{"export a.xml %1 --to csv"},
                    CommandLine{"export --files-from %1 --to csv"}, CommandLine{"import %1 out --from csv"},
                    CommandLine{"import %1 out --from geojson"},
                    CommandLine{"import %1 out --from kml --parts"}, CommandLine{"convert %1 out --to json"},
                    CommandLine{"convert --from json %1 out"}, CommandLine{"show --map a.xml %1"},
                    CommandLine{"show --json %1 a.xml"}, CommandLine{"check --json a.xml %1"},
                    CommandLine{"check --quiet %1"}));

// --- Many files into a folder

class ToolConvertFailure : public ToolFailure
{
};

TEST_P(ToolConvertFailure, FileThatCannotBeWrittenKeepsNoOtherFromIt)
{
    EXPECT_TRUE(QDir(m_scratch.Folder()).mkpath(QStringLiteral("into/a.json")));
    const ToolRun run = Run("");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(), "reporttool: into/a.json: is a directory\n"
                              "2 files: 1 written, 0 refused, 1 unusable\n");
    EXPECT_FALSE(m_scratch.Read("into/b.json").isEmpty());
}

TEST_P(ToolConvertFailure, FullDiskIsToldOfEachFile)
{
    EXPECT_TRUE(QDir(m_scratch.Folder()).mkpath(QStringLiteral("into")));
    const ToolRun run = RunShell(
        QStringLiteral("trap '' XFSZ; ulimit -f 0; exec \"$0\" %1").arg(QLatin1String(GetParam().arguments)));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(), "reporttool: into/a.json: File too large\n"
                              "reporttool: into/b.json: File too large\n"
                              "2 files: 0 written, 0 refused, 2 unusable\n");
    EXPECT_TRUE(QDir(m_scratch.Path("into")).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Commands, ToolConvertFailure,
                         testing::Values(CommandLine{"convert a.xml b.xml into --to json"},
                                         CommandLine{"convert --files-from list into/ --to json"}));

} // namespace

#endif
