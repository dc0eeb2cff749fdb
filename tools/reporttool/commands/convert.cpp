#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>
#include <reportcore/reportfile.h>
#include <reportcore/reportwriting.h>

#include <algorithm>
#include <iterator>

namespace ReportTool {

using ReportCore::FileForm;
using ReportCore::Form;

namespace {

constexpr int LOWEST_LEVEL = -1;
constexpr int HIGHEST_LEVEL = 9;

constexpr char DESCRIPTION[] =
    "Writes a report in another form. OUT is replaced only when the new content is complete.\n"
    "\n"
    "Forms:\n"
    "  xml         the report's XML element in UTF-8\n"
    "  plain       plain representation\n"
    "  compressed  compressed representation, at zlib's default level unless --level is given\n"
    "  file        binary file; it holds a plain representation, or a compressed one if --level\n"
    "              is given\n"
    "\n"
    "A report in which 'check' finds a problem is not converted.\n"
    "\n"
    "Exit codes: 0 OUT is written, 1 the report is invalid or does not fit into the form, 2 a\n"
    "file cannot be read or written or the command line is wrong.";

/// A form by its name on the command line.
struct NamedForm
{
    const char* name;
    FileForm form;
};

constexpr NamedForm FORMS[] = {{"xml", {Form::Xml, false}},
                               {"plain", {Form::Plain, false}},
                               {"compressed", {Form::Compressed, false}},
                               {"file", {Form::Plain, true}}};

FileForm FormOf(const Parser& parser)
{
    if (!parser.Has("to"))
        throw UsageError{QStringLiteral("--to is missing")};
    const QString name = parser.Value("to");
    const auto* const found =
        std::find_if(std::begin(FORMS), std::end(FORMS),
                     [&name](const NamedForm& form) { return name == QLatin1String(form.name); });
    if (found == std::end(FORMS))
        throw UsageError{QStringLiteral("no form is called '%1'").arg(name)};
    return found->form;
}

int LevelOf(const Parser& parser)
{
    if (!parser.Has("level"))
        return LOWEST_LEVEL;
    bool isNumber = false;
    const int level = parser.Value("level").toInt(&isNumber);
    if (!isNumber || level < LOWEST_LEVEL || level > HIGHEST_LEVEL)
        throw UsageError{
            QStringLiteral("a level is a number from %1 to %2, not '%3'")
                .arg(QString::number(LOWEST_LEVEL), QString::number(HIGHEST_LEVEL), parser.Value("level"))};
    return level;
}

/// The form with the level taken into account: it turns a binary file's content into a compressed one.
FileForm WithLevel(FileForm form, bool hasLevel)
{
    if (!hasLevel)
        return form;
    if (!form.isBinaryFile && form.form != Form::Compressed)
        throw UsageError{QStringLiteral("--level is for compressed forms")};
    return {Form::Compressed, form.isBinaryFile};
}

struct Request
{
    QString input;
    QString output;
    FileForm form;
    int level = LOWEST_LEVEL;
};

Request RequestOf(const Parser& parser)
{
    const QStringList files = parser.Arguments();
    if (files.size() != 2)
        throw UsageError{QStringLiteral("convert takes IN and OUT")};
    return {files.at(0), files.at(1), WithLevel(FormOf(parser), parser.Has("level")), LevelOf(parser)};
}

int Write(const REPORTGENERATOR::ReportBase& report, const Request& request, Console& console)
{
    const QByteArray bytes = ReportCore::WriteReport(report, request.form, request.level);
    const QString loss = ReportCore::FindLoss(report, bytes);
    if (!loss.isEmpty()) {
        console.Complain(request.output, QStringLiteral("this form would not keep ") + loss);
        return EXIT_INVALID;
    }
    ReportCore::WriteOutput(request.output, bytes);
    return EXIT_GOOD;
}

int Convert(const QStringList& arguments, Console& console)
{
    Parser parser(DESCRIPTION, "convert");
    parser.AddArgument("IN", "Report; - stands for standard input.", "IN");
    parser.AddArgument("OUT", "File to write; - stands for standard output.", "OUT");
    parser.AddOption("to", "Form to write: xml, plain, compressed or file.", "form");
    parser.AddOption("level", "Level of compression: 0 to 9, or -1 for zlib's default.", "level");
    parser.ParseOrThrow(arguments);
    if (parser.AsksForHelp()) {
        console.Output().Text(parser.helpText());
        return EXIT_GOOD;
    }
    const Request request = RequestOf(parser);
    const ReportCore::ReportFile file = ReportCore::ReadReport(ReportCore::ReadInput(request.input));
    for (const ReportCore::Problem& problem : file.problems)
        console.Complain(request.input, problem);
    return file.IsGood() ? Write(file.report, request, console) : EXIT_INVALID;
}

} // namespace

const Command CONVERT_COMMAND = {"convert", "IN OUT --to F", "write a report in another form", Convert};

} // namespace ReportTool
