// Every command survives files that are damaged: golden files with some bytes changed, cut off, doubled or left out.
// Within this process, so that the sanitizers of `./dev test --asan` watch each of them.

#include "support/composedinput.h"
#include "support/expect.h"
#include "support/vectorwalk.h"
#include "toolrun.h"

#include <reporttool/commands.h>
#include <reporttool/program.h>
#include <reporttool/textoutput.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QIODevice>
#include <QtCore/QStringList>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Support::Text;

#if defined(__SANITIZE_ADDRESS__)
constexpr int FILES = 10000;
#else
constexpr int FILES = 2000;
#endif

struct Outcome
{
    int exitCode;
    QByteArray output;
    QByteArray errors;
};

Outcome RunHere(const QStringList& arguments)
{
    QBuffer output;
    QBuffer errors;
    output.open(QIODevice::WriteOnly);
    errors.open(QIODevice::WriteOnly);
    ReportTool::TextOutput outputText(output, Text("standard output"));
    ReportTool::TextOutput errorText(errors, Text("standard error"));
    const int exitCode = ReportTool::Run(QStringList{Text("reporttool")} + arguments, outputText, errorText);
    outputText.Flush();
    errorText.Flush();
    return {exitCode, output.data(), errors.data()};
}

/// Each command, of the file and of a place for what it writes.
std::vector<QStringList> CommandsFor(const QString& file, const QString& out)
{
    return {
        {Text("check"), file},
        {Text("check"), Text("--strict"), Text("--json"), file},
        {Text("show"), file},
        {Text("show"), Text("--json"), file},
        {Text("show"), Text("--dump"), file},
        {Text("show"), Text("--map"), file},
        {Text("convert"), Text("--to"), Text("xml"), file, out},
        {Text("convert"), Text("--to"), Text("file"), file, out},
        {Text("convert"), Text("--from"), Text("json"), Text("--to"), Text("plain"), file, out},
        {Text("export"), Text("--to"), Text("geojson"), file, Text("-o"), out},
        {Text("import"), Text("--from"), Text("csv"), file, out},
        {Text("grep"), Text("frequency.value > 0 or area contains 8,47"), file},
        {Text("set"), file, Text("area.name=Lake"), Text("-o"), out},
        {Text("merge"), file, file, Text("-o"), out},
        {Text("diff"), file, file},
    };
}

/// The golden reports, binary ones as files too.
std::vector<QByteArray> GoldenFiles()
{
    std::vector<QByteArray> files;
    for (const Support::VectorInput& input : Support::VectorInputs()) {
        if (input.kind != Support::Kind::Report)
            continue;
        files.push_back(input.bytes);
        if (std::find(input.forms.begin(), input.forms.end(), Support::Form::BinaryFile) != input.forms.end())
            files.push_back(Support::InputFor(Support::Form::BinaryFile, input.kind, input.bytes).bytes);
    }
    return files;
}

TEST(ToolDamagedFiles, EndWithAStatedExitCodeWhateverTheCommand)
{
    ReportTool::DropMessagesOfQt();
    const ToolTest::Scratch scratch;
    const std::vector<QByteArray> golden = GoldenFiles();
    ASSERT_FALSE(golden.empty());
    int ended[ReportTool::EXIT_UNUSABLE + 1] = {};
    for (int number = 0; number < FILES; ++number) {
        Support::Choices choices(static_cast<quint64>(number));
        const QByteArray whole = choices.Of(golden);
        const QString file = scratch.Write("damaged", Support::Mutated(whole, choices));
        const QStringList arguments = choices.Of(CommandsFor(file, scratch.Path("out")));
        SCOPED_TRACE(std::to_string(number) + ": " + arguments.join(Text(" ")).toStdString());
        const Outcome outcome = RunHere(arguments);
        ASSERT_GE(outcome.exitCode, ReportTool::EXIT_GOOD);
        ASSERT_LE(outcome.exitCode, ReportTool::EXIT_UNUSABLE);
        // Whoever fails says why; to have found nothing is no failure.
        ASSERT_TRUE(outcome.exitCode == ReportTool::EXIT_GOOD || arguments.first() == Text("grep") ||
                    !outcome.output.isEmpty() || !outcome.errors.isEmpty());
        ASSERT_FALSE(outcome.errors.contains("--help")) << outcome.errors.toStdString();
        ++ended[outcome.exitCode];
    }
    // Files that are all good or all beyond reading would show little.
    EXPECT_GT(ended[ReportTool::EXIT_GOOD], FILES / 100);
    EXPECT_GT(ended[ReportTool::EXIT_INVALID], FILES / 10);
    EXPECT_GT(ended[ReportTool::EXIT_UNUSABLE], FILES / 50);
}

} // namespace
