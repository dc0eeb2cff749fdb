#include <reportviewer/commandline.h>

#include <reportgenerator/reflection/fieldpath.h>
#include <reportgenerator/reflection/reportfields.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QFileInfo>

namespace ReportViewer {

namespace {

/// What of it cannot be done, whatever the files hold; empty when nothing is wrong.
QString FaultOf(const CommandLine& line, bool takesPicture)
{
    const bool isOneFile = line.names.size() == 1 && !QFileInfo(line.names.constFirst()).isDir();
    if (takesPicture && (line.picture.isEmpty() || !isOneFile))
        return QStringLiteral("--screenshot takes the name of a picture, and one report file.");
    try {
        if (!line.field.isEmpty())
            ReportCore::FieldPath::Parse(ReportCore::ReportInfo(), line.field);
    } catch (const ReportCore::PathError& error) {
        return QStringLiteral("--field: ") + error.text;
    }
    return QString();
}

} // namespace

CommandLine ParseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Shows reports in any form: their fields, the area on a map, problems and bytes. A folder is\n"
        "shown as a list of its files; so are several files."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this help and exit."));
    const QCommandLineOption version(QStringLiteral("version"),
                                     QStringLiteral("Print the version and exit."));
    QCommandLineOption picture(QStringLiteral("screenshot"),
                               QStringLiteral("Put a picture of the window into this file and exit."),
                               QStringLiteral("file"));
    QCommandLineOption field(QStringLiteral("field"), QStringLiteral("Choose this field, by its path."),
                             QStringLiteral("path"));
    const QCommandLineOption problem(QStringLiteral("problem"), QStringLiteral("Go to the first problem."));
    parser.addOptions({help, version, field, problem, picture});
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Reports, or a folder of them."),
                                 QStringLiteral("[FILE...]"));
    CommandLine line;
    if (!parser.parse(arguments)) {
        line.request = CommandLine::Request::Wrong;
        line.text = parser.errorText();
    } else if (parser.isSet(help)) {
        line.request = CommandLine::Request::Help;
        line.text = parser.helpText();
    } else if (parser.isSet(version)) {
        line.request = CommandLine::Request::Version;
    }
    line.names = parser.positionalArguments();
    line.picture = parser.value(picture);
    line.field = parser.value(field);
    line.showsProblem = parser.isSet(problem);
    const QString fault = FaultOf(line, parser.isSet(picture));
    if (line.request == CommandLine::Request::Open && !fault.isEmpty()) {
        line.request = CommandLine::Request::Wrong;
        line.text = fault;
    }
    return line;
}

} // namespace ReportViewer
