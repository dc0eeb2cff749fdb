#include "samples.h"
#include "toolrun.h"

#include <reporttool/commands/list.h>
#include <reporttool/parser.h>

#include <QtCore/QDir>

#include <gtest/gtest.h>

namespace {

using ReportTool::Command;
using ReportTool::COMMANDS;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

TEST(ToolHelp, TellsOfACommandWhatItsOptionDoes)
{
    for (const Command* command : COMMANDS) {
        const ToolRun option = RunTool({command->name, "--help"});
        const ToolRun help = RunTool({"help", command->name});
        EXPECT_EQ(help.exitCode, 0) << command->name;
        EXPECT_TEXT(help.Output(), option.Output());
        EXPECT_TEXT(help.Errors(), "");
        EXPECT_TRUE(help.output.contains("\nExit codes: 0 ")) << command->name;
        EXPECT_TRUE(help.output.contains("\nExamples:\n  reporttool")) << command->name;
    }
}

TEST(ToolHelp, WithoutACommandTellsWhatTheOptionDoes)
{
    const ToolRun help = RunTool({"help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TEXT(help.Output(), RunTool({"--help"}).Output());
    EXPECT_TRUE(help.output.contains("\n  help [COMMAND]              tell more about a command\n"));
    EXPECT_TEXT(help.Errors(), "");
}

TEST(ToolHelp, OfWhatIsNoCommandSaysSo)
{
    EXPECT_UNUSABLE(RunTool({"help", "print"}), "no command is called 'print'\nTry 'reporttool --help'.");
    EXPECT_UNUSABLE(RunTool({"help", ""}), "no command is called ''\nTry 'reporttool --help'.");
    EXPECT_UNUSABLE(RunTool({"help", "show", "check"}), "help takes one COMMAND\nTry 'reporttool --help'.");
    EXPECT_UNUSABLE(RunTool({"help", "--all"}), "Unknown option 'all'.\nTry 'reporttool --help'.");
}

#ifndef Q_OS_WIN

/// What the examples speak of.
class ExampleFolder
{
public:
    ExampleFolder()
    {
        QDir(m_scratch.Folder()).mkdir(QStringLiteral("reports"));
        QDir(m_scratch.Folder()).mkdir(QStringLiteral("packed"));
        for (const char* name : {"lake.xml", "base.xml", "other.xml", "fragment.xml", "reports/lake.xml"})
            m_scratch.Write(name, XML);
        m_scratch.Write("lake.bin", ToolTest::InFile(ToolTest::Plain(ToolTest::NamedArea("Lake"))));
        m_scratch.Write("lakes.kml",
                        "<kml xmlns='http://www.opengis.net/kml/2.2'><Placemark><name>Lake</name>"
                        "<Point><coordinates>9.5,47.6</coordinates></Point></Placemark></kml>");
    }

    ToolRun Run(const QString& commandLine) const
    {
        const QString script =
            QStringLiteral("'%1' %2").arg(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), commandLine);
        return ToolTest::RunProgram(QStringLiteral("sh"), {QStringLiteral("-c"), script},
                                    ToolTest::PlainLocale({}, m_scratch.Folder()));
    }

private:
    static constexpr char XML[] =
        "<ReportBase><Frequency>121500000.00</Frequency><Area Version=\"1.0\"><Name>Lake</Name>"
        "<Coordinate><Longitude>9.000000</Longitude><Latitude>47.000000</Latitude></Coordinate>"
        "<Coordinate><Longitude>10.000000</Longitude><Latitude>47.000000</Latitude></Coordinate>"
        "<Coordinate><Longitude>9.500000</Longitude><Latitude>48.000000</Latitude></Coordinate>"
        "<ScriptID>A</ScriptID></Area></ReportBase>";

    Scratch m_scratch;
};

TEST(ToolHelp, TellsWhenStandardOutputIsFull)
{
    const ToolRun run = ExampleFolder().Run(QStringLiteral("help show >/dev/full"));
    EXPECT_UNUSABLE(run, "standard output: No space left on device");
}

TEST(ToolHelp, ItsExamplesWork)
{
    for (const Command* command : COMMANDS) {
        const ReportTool::Parser parser(*command);
        for (const ReportTool::Parser::Example& example : parser.AllExamples()) {
            const ToolRun run = ExampleFolder().Run(example.commandLine);
            // The two reports of the example differ, which 1 stands for.
            const int expected = command->name == QByteArray("diff") ? 1 : 0;
            EXPECT_EQ(run.exitCode, expected) << example.commandLine.toStdString() << "\n"
                                              << run.errors.toStdString() << run.output.toStdString();
            EXPECT_TRUE(example.commandLine.startsWith(QLatin1String(command->name)));
        }
    }
}

#endif

} // namespace
