// What programs do where people look at their output.

#include "terminal.h"
#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QProcess>

#include <ostream>

#ifdef Q_OS_UNIX

namespace {

using ToolTest::Arguments;
using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::InFile;
using ToolTest::Scratch;
using ToolTest::Terminal;
using ToolTest::ToolRun;

constexpr int PATIENCE_IN_MS = 60 * 1000;

/// A folder with a report in each form.
class ToolTerminal : public testing::Test
{
protected:
    ToolTerminal()
    {
        m_scratch.Write("xml", FullXml());
        m_scratch.Write("plain", FullPlain());
        m_scratch.Write("compressed", FullCompressed());
        m_scratch.Write("file", InFile(FullPlain()));
    }

    /// The tool, with a terminal for its output.
    int RunOnTerminal(Arguments arguments)
    {
        QStringList texts;
        for (const ToolTest::Argument& argument : arguments)
            texts << argument.Text();
        QProcess process;
        process.setWorkingDirectory(m_scratch.Folder());
        process.setStandardOutputFile(m_terminal.Name());
        process.start(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), texts);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(PATIENCE_IN_MS));
        m_errors = QString::fromUtf8(process.readAllStandardError());
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    void ExpectRefusal(Arguments arguments, const QString& output = QStringLiteral("-"))
    {
        EXPECT_EQ(RunOnTerminal(arguments), 2);
        EXPECT_TRUE(m_errors.endsWith(
            QStringLiteral("reporttool: %1: is a terminal; --force writes bytes to it all the same\n")
                .arg(output)))
            << m_errors.toStdString();
        EXPECT_BYTES(m_terminal.Shown(), QByteArray());
    }

    void Write(const char* name, const QByteArray& bytes) const { m_scratch.Write(name, bytes); }

    void ExpectShown(Arguments arguments, const QByteArray& bytes)
    {
        const QByteArray before = m_terminal.Shown();
        EXPECT_EQ(RunOnTerminal(arguments), 0) << m_errors.toStdString();
        EXPECT_BYTES(m_terminal.Shown().mid(before.size()), bytes);
    }

    const Scratch m_scratch;
    Terminal m_terminal;
    QString m_errors;
};

TEST_F(ToolTerminal, BinaryFormsAreRefused)
{
    for (const char* form : {"plain", "compressed", "file"}) {
        ExpectRefusal({"convert", "xml", "-", "--to", form});
        ExpectRefusal({"set", form, "area.name=Lake", "-o", "-"});
        ExpectRefusal({"merge", form, "xml", "-o", "-"});
    }
    ExpectRefusal({"convert", "xml", "-", "--to", "file", "--level", "9"});
}

TEST_F(ToolTerminal, ByItsOwnNameItIsRefusedToo)
{
    const QString name = m_terminal.Name();
    ExpectRefusal({"convert", "xml", name, "--to", "plain"}, name);
    ExpectRefusal({"set", "plain", "area.name=Lake", "-o", name}, name);
    ExpectRefusal({"merge", "plain", "xml", "-o", name}, name);
}

TEST_F(ToolTerminal, ForceWritesBytesAllTheSame)
{
    ExpectShown({"convert", "xml", "-", "--to", "plain", "--force"}, FullPlain());
    ExpectShown({"convert", "--force", "xml", m_terminal.Name(), "--to", "file"}, InFile(FullPlain()));
    ExpectShown({"set", "plain", "frequency.use=true", "-o", "-", "--force"}, FullPlain());
    EXPECT_EQ(RunOnTerminal({"merge", "plain", "xml", "-o", "-", "--force"}), 0);
    EXPECT_TRUE(m_terminal.Shown().endsWith("1215"));
}

TEST_F(ToolTerminal, TextIsWritten)
{
    EXPECT_EQ(RunOnTerminal({"convert", "plain", "-", "--to", "xml"}), 0);
    EXPECT_TRUE(m_terminal.Shown().contains("</ReportBase>"));
    EXPECT_EQ(RunOnTerminal({"convert", "plain", "-", "--to", "json"}), 0);
    EXPECT_TRUE(m_terminal.Shown().contains("\"form\": \"plain\""));
    EXPECT_EQ(RunOnTerminal({"export", "plain", "--to", "wkt"}), 0);
    EXPECT_TRUE(m_terminal.Shown().contains("LINESTRING"));
    m_scratch.Write("in.csv", "name,WKT\nHill,POINT (1 2)\n");
    EXPECT_EQ(RunOnTerminal({"import", "in.csv", "-", "--from", "csv"}), 0);
    EXPECT_TRUE(m_terminal.Shown().contains("<Name>Hill</Name>"));
    EXPECT_EQ(RunOnTerminal({"set", "xml", "area.name=Sea", "-o", "-"}), 0);
    EXPECT_TRUE(m_terminal.Shown().contains("<Name>Sea</Name>"));
}

TEST_F(ToolTerminal, ElsewhereBytesNeedNoForce)
{
    const ToolRun run =
        ToolTest::RunTool({"convert", "xml", "-", "--to", "plain"}, {{}, m_scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_BYTES(run.output, FullPlain());
}

// --- How far many files have got

/// A command, and what it writes to the terminal in the end, when the bar is gone.
struct Progressing
{
    const char* command;
    const char* end = "";
};

std::ostream& operator<<(std::ostream& stream, const Progressing& progressing)
{
    return stream << progressing.command;
}

/// The tool with two files, the second of which is standard input, so that it waits.
class ToolProgress : public ToolTerminal, public testing::WithParamInterface<Progressing>
{
};

TEST_P(ToolProgress, IsShownOnATerminal)
{
    QStringList arguments = QString::fromLatin1(GetParam().command).split(QLatin1Char(' '));
    arguments << QStringLiteral("xml") << QStringLiteral("-");
    QProcess process;
    process.setWorkingDirectory(m_scratch.Folder());
    process.setStandardErrorFile(m_terminal.Name());
    process.start(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), arguments);
    EXPECT_TRUE(process.waitForStarted(PATIENCE_IN_MS));
    m_terminal.ShownUntil("1 of 2 (50 %)");
    process.write(FullXml());
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(PATIENCE_IN_MS));
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_TRUE(m_terminal.Shown().endsWith(QByteArray("\r\x1B[K") + GetParam().end))
        << m_terminal.Shown().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Commands, ToolProgress,
                         testing::Values(Progressing{"export --to csv"}, Progressing{"export --to kml"},
                                         Progressing{"show"}, Progressing{"show --json"},
                                         Progressing{"check --no-warnings",
                                                     "2 files: 2 good, 0 invalid, 0 unreadable\n"}),
                         [](const testing::TestParamInfo<Progressing>& row) {
                             QString name = QString::fromLatin1(row.param.command);
                             name.remove(QLatin1Char(' '));
                             name.remove(QLatin1Char('-'));
                             return name.toStdString();
                         });

TEST_F(ToolTerminal, NamesThatGrepFindsAreShownWithoutControlCharacters)
{
    Write("a\x1b[31m", FullPlain());
    Write("b", FullPlain());
    ExpectShown({"grep", "frequency set", "a\x1b[31m", "b"}, "a\\u001b[31m\nb\n");
}

} // namespace

#endif
