#include <reporttool/commands.h>

#include <reporttool/commandline.h>
#include <reporttool/dump.h>
#include <reporttool/files.h>
#include <reporttool/showjson.h>
#include <reporttool/showtext.h>
#include <reporttool/textoutput.h>
#include <reporttool/texts.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>
#include <new>
#include <variant>

namespace ReportTool {

namespace {

QString FileLine(const QString& file, const QString& text)
{
    return QStringLiteral("%1: %2").arg(Printable(file), Printable(text));
}

QString ProblemText(const QString& name, const QString& text)
{
    return QStringLiteral("%1: %2").arg(name, text);
}

int ExitCodeOf(const ReportFile& file)
{
    return file.IsGood() ? EXIT_GOOD : EXIT_INVALID;
}

/// The commands, one operator each.
class Commands
{
public:
    Commands(TextOutput& output, TextOutput& errors) : m_output(output), m_errors(errors) {}

    int operator()(const TextRequest& request)
    {
        m_output.Text(request.text);
        return EXIT_GOOD;
    }

    int operator()(const ShowRequest& request)
    {
        return request.asJson ? ShowAsJson(request.files) : ShowAsText(request);
    }

    int operator()(const CheckRequest& request)
    {
        int exitCode = EXIT_GOOD;
        for (const QString& name : request.files)
            exitCode = std::max(exitCode, CheckFile(name));
        return exitCode;
    }

    int operator()(const ConvertRequest& request)
    {
        const ReportFile file = ReadReport(ReadInput(request.input));
        for (const Problem& problem : file.problems)
            Complain(request.input, ProblemText(problem.name, problem.text));
        return file.IsGood() ? Convert(file.report, request) : EXIT_INVALID;
    }

    void Complain(const QString& file, const QString& text) { Complain(FileLine(file, text)); }

    void Complain(const QString& text)
    {
        // What came before stands before it on a terminal, too.
        m_output.Flush();
        m_errors.Line(QStringLiteral("reporttool: ") + text);
    }

private:
    int ShowAsText(const ShowRequest& request)
    {
        int exitCode = EXIT_GOOD;
        for (const QString& name : request.files) {
            if (name != request.files.first())
                m_output.Line(QString());
            exitCode = std::max(exitCode, ShowFileAsText(name, request));
        }
        return exitCode;
    }

    int ShowFileAsText(const QString& name, const ShowRequest& request)
    {
        QByteArray bytes;
        QString error;
        if (!Read(name, bytes, error))
            return EXIT_UNUSABLE;
        const ReportFile file = ReadReport(bytes);
        ShowText(name, file, request.withAllPoints, m_output);
        if (request.withDump && (file.form.form == Form::Plain || file.form.form == Form::Compressed)) {
            m_output.Line(QString());
            Dump(bytes, file.form.isBinaryFile, m_output);
        }
        return ExitCodeOf(file);
    }

    int ShowAsJson(const QStringList& names)
    {
        int exitCode = EXIT_GOOD;
        QJsonArray json;
        for (const QString& name : names) {
            QByteArray bytes;
            QString error;
            if (!Read(name, bytes, error)) {
                json.append(ToJson(name, error));
                exitCode = EXIT_UNUSABLE;
                continue;
            }
            const ReportFile file = ReadReport(bytes);
            json.append(ToJson(name, file));
            exitCode = std::max(exitCode, ExitCodeOf(file));
        }
        m_output.Bytes(QJsonDocument(json).toJson());
        return exitCode;
    }

    int CheckFile(const QString& name)
    {
        QByteArray bytes;
        QString error;
        if (!Read(name, bytes, error))
            return EXIT_UNUSABLE;
        const ReportFile file = ReadReport(bytes);
        for (const Problem& problem : file.problems)
            m_output.Line(FileLine(name, ProblemText(problem.name, problem.text)));
        return ExitCodeOf(file);
    }

    int Convert(const REPORTGENERATOR::ReportBase& report, const ConvertRequest& request)
    {
        const QByteArray bytes = WriteReport(report, request.form, request.level);
        const QString loss = FindLoss(report, bytes);
        if (!loss.isEmpty()) {
            Complain(request.output, QStringLiteral("this form would not keep ") + loss);
            return EXIT_INVALID;
        }
        WriteOutput(request.output, bytes);
        return EXIT_GOOD;
    }

    /// Reads a file; one that cannot be read doesn't keep the next from being read.
    bool Read(const QString& name, QByteArray& bytes, QString& error)
    {
        try {
            bytes = ReadInput(name);
            return true;
        } catch (const UnusableFile& unusable) {
            error = unusable.text;
        }
        Complain(name, error);
        return false;
    }

    TextOutput& m_output;
    TextOutput& m_errors;
};

} // namespace

int Run(const QStringList& arguments, TextOutput& output, TextOutput& errors)
{
    Commands commands(output, errors);
    try {
        const int exitCode = std::visit(commands, ParseCommandLine(arguments));
        output.Flush();
        return exitCode;
    } catch (const UsageError& error) {
        commands.Complain(error.text);
        errors.Line(QStringLiteral("Try 'reporttool --help'."));
    } catch (const UnusableFile& unusable) {
        commands.Complain(unusable.file, unusable.text);
    } catch (const std::bad_alloc&) {
        commands.Complain(QStringLiteral("out of memory"));
    }
    return EXIT_UNUSABLE;
}

} // namespace ReportTool
