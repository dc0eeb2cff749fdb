#include <reporttool/commands.h>
#include <reporttool/textoutput.h>

#include <reportcore/files.h>
#include <reportcore/platform.h>

#include <QtCore/QCoreApplication>

#include <memory>

namespace {

/// Qt's own remarks, on damaged compressed data for example, are not meant for our users.
void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

int RunOnStreams(QIODevice& output, QIODevice& errors)
{
    ReportTool::TextOutput outputText(output, QStringLiteral("standard output"));
    ReportTool::TextOutput errorText(errors, QStringLiteral("standard error"));
    const int exitCode = ReportTool::Run(QCoreApplication::arguments(), outputText, errorText);
    errorText.Flush();
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler(DropMessage);
    // Qt asks Windows for the arguments, whose characters don't all fit into argv there.
    const QCoreApplication application(argc, argv);
    ReportCore::PreparePlatform();

    const std::unique_ptr<QIODevice> output = ReportCore::OpenForOutput(ReportCore::STANDARD_OUTPUT);
    const std::unique_ptr<QIODevice> errors = ReportCore::OpenForOutput(ReportCore::STANDARD_ERROR);
    if (!output || !errors)
        return ReportTool::EXIT_UNUSABLE;
    try {
        return RunOnStreams(*output, *errors);
    } catch (const ReportCore::UnusableFile&) {
        // There is nobody left to tell.
        return ReportTool::EXIT_UNUSABLE;
    }
}
