#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/formoptions.h>
#include <reporttool/manyfiles.h>
#include <reporttool/outputfolder.h>
#include <reporttool/parser.h>
#include <reporttool/reportchoice.h>
#include <reporttool/reportoutput.h>
#include <reporttool/showjson.h>

#include <reportcore/files.h>
#include <reportcore/jsonreading.h>
#include <reportcore/jsonwriting.h>
#include <reportcore/reportfile.h>
#include <reportcore/reportwriting.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>
#include <optional>
#include <vector>

namespace ReportTool {

using ReportCore::Printable;
using ReportCore::ReportFile;
using ReportCore::UnusableFile;

namespace {

constexpr char DESCRIPTION[] =
    "Writes a report in another form. OUT is replaced only when the new content is complete.\n"
    "With several reports, with -r or --files-from, or when it ends in a slash, OUT is a folder:\n"
    "each report gets a file there that is named after it and its form.\n"
    "\n"
    "Forms:\n"
    "  xml         the report's XML element in UTF-8\n"
    "  plain       plain representation\n"
    "  compressed  compressed representation, at zlib's default level unless --level is given\n"
    "  file        binary file; it holds a plain representation, or a compressed one if --level\n"
    "              is given\n"
    "  json        what 'show --json' writes; --from json reads it, and writes the form that it\n"
    "              tells of unless --to is given\n"
    "\n"
    "A report in which 'check' finds a problem is not converted. What its file holds beside the\n"
    "report, and values that read as others, are dropped only with --discard. With --all-reports\n"
    "OUT is a folder, and the reports of a document are counted there: lake-1.xml, lake-2.xml.\n"
    "\n"
    "Exit codes: 0 OUT is written, 1 the report is invalid, does not fit into the form or something\n"
    "would be discarded, 2 a file cannot be read or written or the command line is wrong.";

struct Options
{
    std::optional<Target> target;
    bool isFromJson = false;
    ReportChoice choice;
    ReportCore::Terminals terminals = ReportCore::Terminals::Refused;
    bool isDryRun = false;
};

Options OptionsOf(const Parser& parser)
{
    const Options options = {TargetOf(parser), parser.Has("from"), ChoiceOf(parser), TerminalsOf(parser),
                             parser.Has("dry-run")};
    if (options.isFromJson && parser.Value("from") != QLatin1String("json"))
        throw UsageError{QStringLiteral("--from is for json; other forms are recognised")};
    if (!options.target && !options.isFromJson)
        throw UsageError{QStringLiteral("--to is missing")};
    return options;
}

/// The reports that JSON tells of, with the forms that they had.
std::vector<ChosenReport> ReadJson(const QByteArray& bytes, const ReportChoice& choice)
{
    QJsonParseError error;
    const QJsonDocument document = ReportCore::ParseJson(bytes, error);
    if (error.error != QJsonParseError::NoError)
        throw ReportCore::JsonError{
            QStringLiteral("%1 at offset %2").arg(error.errorString()).arg(error.offset)};
    const QJsonArray array = document.isArray() ? document.array() : QJsonArray{document.object()};
    const auto count = static_cast<int>(array.size());
    if (choice.number > count)
        throw ReportCore::JsonError{
            QStringLiteral("there is no report %1, the last one is %2").arg(choice.number).arg(count)};
    if (!choice.IsMade() && (count != 1 || !array.at(0).isObject()))
        throw ReportCore::JsonError{QStringLiteral("one report is expected, not %1").arg(count)};
    std::vector<ChosenReport> reports;
    for (int number = 1; number <= count; ++number) {
        if (choice.number != 0 && number != choice.number)
            continue;
        if (!array.at(number - 1).isObject())
            throw ReportCore::JsonError{QStringLiteral("an object is expected for each report")};
        reports.push_back({{}, number, count});
        FromJson(array.at(number - 1).toObject(), reports.back().file);
    }
    return reports;
}

GoodReports Read(const QString& input, const QString& output, const Options& options, Console& console)
{
    if (!options.isFromJson)
        return ReadGoodReports(input, output, options.choice, console);
    try {
        return {ReadJson(ReportCore::ReadInput(input), options.choice), true};
    } catch (const ReportCore::JsonError& error) {
        console.Complain(input, error.text);
    }
    return {};
}

/// Why the JSON of a report is not written; empty where it is.
QString HindranceIn(const QByteArray& json, const ReportFile& file)
{
    QString excess = ReportCore::FindExcess(json);
    if (!excess.isEmpty())
        return excess;
    const QString loss = ReportCore::FindLossBetween(file.report, ReadJson(json, {}).front().file.report);
    return loss.isEmpty() ? QString() : QStringLiteral("this form would not keep ") + loss;
}

std::optional<QByteArray> JsonOf(const QString& input, const ReportFile& file, const QString& output,
                                 Console& console)
{
    const QByteArray json = ReportCore::JsonBytes(QJsonDocument(QJsonArray{ToJson(input, file)}));
    const QString hindrance = HindranceIn(json, file);
    if (hindrance.isEmpty())
        return json;
    console.Complain(output, hindrance);
    return std::nullopt;
}

/// Whether there is such a file, with these bytes or others.
QString SignOf(const QString& output, const QByteArray& bytes)
{
    if (ReportCore::IsStandardStream(output) || !QFileInfo::exists(output))
        return QStringLiteral("+");
    try {
        const bool isSame = QFileInfo(output).isFile() && ReportCore::ReadInput(output) == bytes;
        return isSame ? QStringLiteral("=") : QStringLiteral("!");
    } catch (const UnusableFile&) {
        return QStringLiteral("!");
    }
}

int WriteFile(const QString& input, const ReportFile& file, const QString& output, const Options& options,
              Console& console)
{
    const Target target = options.target ? *options.target : Target{file.form};
    const auto bytes = target.isJson ? JsonOf(input, file, output, console)
                                     : BytesOf(file.report, target.form, target.level, output, console);
    if (!bytes)
        return EXIT_INVALID;
    if (!options.isDryRun)
        PutBytes(*bytes, target.form, output, options.terminals);
    else
        console.Output().Line(
            QStringLiteral("%1 %2: %3, from %4")
                .arg(SignOf(output, *bytes), Printable(output), NameOf(target), Printable(input)));
    return EXIT_GOOD;
}

int ConvertFile(const QString& input, const QString& output, const Options& options, Console& console)
{
    const GoodReports good = Read(input, output, options, console);
    return good.areAll ? WriteFile(input, good.reports.front().file, output, options, console) : EXIT_INVALID;
}

/// The name that a report gets in a folder; those of several in a document are counted.
QString NameIn(const QString& input, const Target& target, int number = 1, int count = 1)
{
    QString name = QFileInfo(input).completeBaseName();
    if (count > 1)
        name += QStringLiteral("-%1").arg(number, static_cast<int>(QString::number(count).size()), 10,
                                          QLatin1Char('0'));
    return name + SuffixOf(target);
}

/// Each of the chosen reports becomes a file in the folder, but none that another input becomes.
int ConvertReports(const QString& input, const QString& folder, const QHash<QString, QString>& outputs,
                   const Options& options, Console& console)
{
    const QString whole = outputs.value(input);
    const GoodReports good = Read(input, whole, options, console);
    int exitCode = good.areAll ? EXIT_GOOD : EXIT_INVALID;
    for (const ChosenReport& report : good.reports) {
        const int count = options.choice.isAll ? report.count : 1;
        const QString output = QDir(folder).filePath(NameIn(input, *options.target, report.number, count));
        const QString other = count > 1 ? outputs.key(output) : QString();
        if (!other.isEmpty() && other != input) {
            console.Complain(input, QStringLiteral("report %1 and %2 would both become %3")
                                        .arg(QString::number(report.number), other, output));
            exitCode = EXIT_INVALID;
            continue;
        }
        exitCode = std::max(exitCode, WriteFile(input, report.file, output, options, console));
    }
    return exitCode;
}

int ConvertInto(const QString& folder, const QStringList& inputs, const Options& options, Console& console)
{
    if (!options.target)
        throw UsageError{QStringLiteral("--to is missing")};
    const QHash<QString, QString> outputs =
        OutputsIn(folder, inputs, [&](const QString& input) { return NameIn(input, *options.target); });
    const auto work = [&](int number, Console& fileConsole) {
        return FileResult{ConvertReports(inputs.at(number), folder, outputs, options, fileConsole)};
    };
    const std::vector<int> exitCodes =
        DoForEach(static_cast<int>(inputs.size()), console, Complaining(work), [](std::any& /*result*/) {});
    if (inputs.size() > 1)
        Summarise(exitCodes,
                  {{options.isDryRun ? "would be written" : "written", CountOf(exitCodes, EXIT_GOOD)},
                   {"refused", CountOf(exitCodes, EXIT_INVALID)},
                   {"unusable", CountOf(exitCodes, EXIT_UNUSABLE)}},
                  console);
    return ExitCodeOf(exitCodes, static_cast<int>(inputs.size()));
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("IN", "Report; - stands for standard input.", "IN...");
    parser.AddArgument("OUT", "File to write, - for standard output; or the folder to write to.", "OUT");
    AddFormOptions(parser);
    parser.AddOption("from", "The reports are JSON; other forms are recognised.", "json",
                     Candidates::OneOf({QStringLiteral("json")}));
    parser.AddFileOptions();
    AddReportNumber(parser);
    AddAllReports(parser);
    AddDiscard(parser);
    AddDryRun(parser);
    AddForce(parser);
    parser.AddExample("convert lake.xml lake.bin --to compressed", "Write one report in another form.");
    parser.AddExample("convert -r reports packed --to file --level 9",
                      "Write all reports of a folder into the folder packed.");
}

int Convert(const Parser& parser, Console& console)
{
    QStringList files = parser.Arguments();
    const bool namesMore = parser.NamesMoreFiles();
    if (files.size() < (namesMore ? 1 : 2))
        throw UsageError{QStringLiteral("convert takes IN and OUT")};
    const Options options = OptionsOf(parser);
    const QString output = files.takeLast();
    if (namesMore || files.size() > 1 || options.choice.isAll || output.endsWith(QLatin1Char('/')))
        return ConvertInto(output, parser.FilesAmong(files), options, console);
    return ConvertFile(files.first(), output, options, console);
}

} // namespace

const Command CONVERT_COMMAND = {"convert", "IN... OUT --to F", "write reports in another form", Declare,
                                 Convert};

} // namespace ReportTool
