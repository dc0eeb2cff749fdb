#include <reporttool/program.h>

#include <reporttool/commands.h>
#include <reporttool/textoutput.h>

#include <reportcore/files.h>
#include <reportcore/platform.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QIODevice>

#include <memory>
#include <utility>

namespace ReportTool {

namespace {

void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

/// In place of a stream that isn't open: whoever has something to write learns that.
class ClosedStream : public QIODevice
{
public:
    ClosedStream() { open(WriteOnly | Unbuffered); }

protected:
    qint64 readData(char* /*bytes*/, qint64 /*size*/) override { return -1; }

    qint64 writeData(const char* /*bytes*/, qint64 /*size*/) override
    {
        setErrorString(QStringLiteral("is not open"));
        return -1;
    }
};

std::unique_ptr<QIODevice> StreamOrNone(int stream)
{
    std::unique_ptr<QIODevice> device = ReportCore::OpenForOutput(stream);
    return device ? std::move(device) : std::make_unique<ClosedStream>();
}

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

void DropMessagesOfQt()
{
    qInstallMessageHandler(DropMessage);
}

int RunProgram()
{
    ReportCore::PreparePlatform();

    const std::unique_ptr<QIODevice> output = StreamOrNone(ReportCore::STANDARD_OUTPUT);
    const std::unique_ptr<QIODevice> errors = StreamOrNone(ReportCore::STANDARD_ERROR);
    try {
        return RunOnStreams(*output, *errors);
    } catch (const ReportCore::UnusableFile&) {
        // There is nobody left to tell.
        return EXIT_UNUSABLE;
    }
}

} // namespace ReportTool
