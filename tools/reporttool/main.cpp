#include <reporttool/commands.h>
#include <reporttool/textoutput.h>

#include <reportcore/files.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#ifdef Q_OS_WIN
#    include <fcntl.h>
#    include <io.h>
#endif

namespace {

/// Qt's own remarks, on damaged compressed data for example, are not meant for our users.
void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

/// Reports are bytes: line ends stay as they are.
void KeepStreamsBinary()
{
#ifdef Q_OS_WIN
    _setmode(ReportCore::STANDARD_INPUT, _O_BINARY);
    _setmode(ReportCore::STANDARD_OUTPUT, _O_BINARY);
#endif
}

int RunOnStreams(QFile& output, QFile& errors)
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
    const QCoreApplication application(argc, argv);
    KeepStreamsBinary();

    QFile output;
    QFile errors;
    const auto mode = QIODevice::WriteOnly | QIODevice::Unbuffered;
    if (!output.open(ReportCore::STANDARD_OUTPUT, mode) || !errors.open(ReportCore::STANDARD_ERROR, mode))
        return ReportTool::EXIT_UNUSABLE;
    try {
        return RunOnStreams(output, errors);
    } catch (const ReportCore::UnusableFile&) {
        // There is nobody left to tell.
        return ReportTool::EXIT_UNUSABLE;
    }
}
