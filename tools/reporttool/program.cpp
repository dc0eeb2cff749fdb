#include <reporttool/program.h>

#include <reporttool/commands.h>
#include <reporttool/textoutput.h>

#include <reportcore/files.h>
#include <reportcore/platform.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QIODevice>

#include <memory>

namespace ReportTool {

namespace {

void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

int RunOnStreams(QIODevice& output, QIODevice& errors)
{
    TextOutput outputText(output, QStringLiteral("standard output"));
    TextOutput errorText(errors, QStringLiteral("standard error"));
    // Qt asks Windows for the arguments, whose characters don't all fit into argv there.
    const int exitCode = Run(QCoreApplication::arguments(), outputText, errorText);
    errorText.Flush();
    return exitCode;
}

} // namespace

void DropRemarksOfQt()
{
    qInstallMessageHandler(DropMessage);
}

int RunProgram()
{
    ReportCore::PreparePlatform();

    const std::unique_ptr<QIODevice> output = ReportCore::OpenForOutput(ReportCore::STANDARD_OUTPUT);
    const std::unique_ptr<QIODevice> errors = ReportCore::OpenForOutput(ReportCore::STANDARD_ERROR);
    if (!output || !errors)
        return EXIT_UNUSABLE;
    try {
        return RunOnStreams(*output, *errors);
    } catch (const ReportCore::UnusableFile&) {
        // There is nobody left to tell.
        return EXIT_UNUSABLE;
    }
}

} // namespace ReportTool
