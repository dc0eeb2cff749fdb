#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/manyfiles.h>
#include <reporttool/parser.h>

#include <reportcore/areapoints.h>
#include <reportcore/exporting/csvcells.h>
#include <reportcore/jsonwriting.h>
#include <reportcore/reportfile.h>
#include <reportcore/reportjson.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>
#include <reportgenerator/reflection/units.h>

#include <QtCore/QJsonDocument>

#include <algorithm>

namespace ReportTool {

using ReportCore::FieldPath;
using ReportCore::Printable;
using ReportCore::ReportFile;

namespace {

constexpr char DESCRIPTION[] =
    "Tells of each report in a line: its form, frequency, how many points its area has, how many\n"
    "problems 'check' finds in it, the file, and the name of the area. What isn't set is a dash.\n"
    "Lines come in the order of the files.\n"
    "\n"
    "Exit codes: 0 all reports are good, 1 a report is invalid, 2 a file cannot be read or the\n"
    "command line is wrong.";

enum class Layout
{
    Columns,
    Json,
    Csv
};

/// What there is to tell of a file. What isn't known is invalid.
struct Entry
{
    QString file;
    QVariant error;
    QVariant form;
    QVariant frequency;
    QVariant points;
    QVariant problems;
    QVariant area;
};

// --- Looking

QVariant ValueAt(const ReportFile& file, const char* path)
{
    return ReportCore::ValueAt(file.report, FieldPath::Parse(ReportCore::ReportInfo(), QLatin1String(path)));
}

QVariant CountOfPoints(const ReportFile& file)
{
    const FieldPath points = ReportCore::PathOfPoints();
    const auto* const parent = ReportCore::FindParent(file.report, points);
    return parent ? QVariant(points.Last().field->CountIn(*parent)) : QVariant();
}

Entry EntryOf(const QString& name, const ReportFile& file)
{
    return {name,
            {},
            QString(ReportCore::WordFor(file.form)),
            ValueAt(file, "frequency.value"),
            CountOfPoints(file),
            static_cast<qint64>(file.problems.size()),
            ValueAt(file, "area.name")};
}

// --- In columns, for people

struct Column
{
    const char* title;
    int width; ///< what is wider pushes the rest of its line
};

constexpr Column FORM = {"form", 10};
constexpr Column FREQUENCY = {"frequency", 12};
constexpr Column POINTS = {"points", 8};
constexpr Column PROBLEMS = {"problems", 8};
constexpr char FILE_TITLE[] = "file";
constexpr char AREA_TITLE[] = "area";
constexpr char GAP[] = "  ";

/// A longer name pushes what stands behind it.
constexpr int WIDEST_NAME = 60;

QString ColumnsLine(const QString& form, const QString& frequency, const QString& points,
                    const QString& problems, const QString& file, const QString& area, int nameWidth)
{
    const QString line = form.leftJustified(FORM.width) + QLatin1String(GAP) +
                         frequency.rightJustified(FREQUENCY.width) + QLatin1String(GAP) +
                         points.rightJustified(POINTS.width) + QLatin1String(GAP) +
                         problems.rightJustified(PROBLEMS.width) + QLatin1String(GAP);
    return line + file.leftJustified(nameWidth) + QLatin1String(GAP) + area;
}

QString HeaderOf(int nameWidth)
{
    return ColumnsLine(QLatin1String(FORM.title), QLatin1String(FREQUENCY.title), QLatin1String(POINTS.title),
                       QLatin1String(PROBLEMS.title), QLatin1String(FILE_TITLE), QLatin1String(AREA_TITLE),
                       nameWidth);
}

QString InColumns(const Entry& entry, int nameWidth)
{
    const QString none(QLatin1Char('-'));
    return ColumnsLine(entry.form.toString(),
                       entry.frequency.isValid() ? ReportCore::HertzText(entry.frequency.toDouble()) : none,
                       entry.points.isValid() ? entry.points.toString() : none, entry.problems.toString(),
                       Printable(entry.file),
                       entry.area.isValid() ? ReportCore::Quoted(entry.area.toString()) : none, nameWidth);
}

// --- For programs

constexpr const char* CSV_COLUMNS[] = {"file",   "error",    "form",     "frequency_value",
                                       "points", "problems", "area_name"};

QByteArray CsvHeader()
{
    QStringList cells;
    for (const char* column : CSV_COLUMNS)
        cells << QLatin1String(column);
    return ReportCore::CsvCells(cells) + ReportCore::CSV_LINE_END;
}

QByteArray CsvOf(const Entry& entry)
{
    QStringList cells;
    for (const QVariant& value :
         {entry.error, entry.form, entry.frequency, entry.points, entry.problems, entry.area})
        cells << ReportCore::CsvCell(value);
    return ReportCore::CsvCells(entry.file, cells) + ReportCore::CSV_LINE_END;
}

QByteArray JsonOf(const Entry& entry)
{
    QJsonObject json = {{QStringLiteral("error"), ReportCore::ValueToJson(entry.error)},
                        {QStringLiteral("form"), ReportCore::ValueToJson(entry.form)},
                        {QStringLiteral("frequency_value"), ReportCore::ValueToJson(entry.frequency)},
                        {QStringLiteral("points"), QJsonValue::fromVariant(entry.points)},
                        {QStringLiteral("problems"), QJsonValue::fromVariant(entry.problems)},
                        {QStringLiteral("area_name"), ReportCore::ValueToJson(entry.area)}};
    ReportCore::InsertFileName(json, QStringLiteral("file"), entry.file);
    return ReportCore::JsonBytes(QJsonDocument(json), QJsonDocument::Compact) + '\n';
}

// --- The command

struct Options
{
    QStringList files;
    Layout layout = Layout::Columns;
    int nameWidth = 0;
};

int ListFile(const QString& name, const Options& options, Console& console)
{
    QByteArray bytes;
    QString error;
    Entry entry;
    int exitCode = EXIT_UNUSABLE;
    if (console.Read(name, bytes, error)) {
        const ReportFile file = ReportCore::ReadReport(bytes);
        entry = EntryOf(name, file);
        exitCode = file.IsGood() ? EXIT_GOOD : EXIT_INVALID;
    } else {
        entry.file = name;
        entry.error = error;
    }
    if (options.layout == Layout::Json)
        console.Output().Bytes(JsonOf(entry));
    else if (options.layout == Layout::Csv)
        console.Output().Bytes(CsvOf(entry));
    else if (!entry.error.isValid())
        console.Output().Line(InColumns(entry, options.nameWidth));
    return exitCode;
}

Options OptionsOf(const Parser& parser)
{
    if (parser.Has("json") && parser.Has("csv"))
        throw UsageError{QStringLiteral("--json and --csv do not go together")};
    Options options;
    options.files = parser.Files();
    if (parser.Has("json"))
        options.layout = Layout::Json;
    else if (parser.Has("csv"))
        options.layout = Layout::Csv;
    for (const QString& file : options.files)
        options.nameWidth = std::max(options.nameWidth, static_cast<int>(Printable(file).size()));
    options.nameWidth = std::min(options.nameWidth, WIDEST_NAME);
    return options;
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddFiles();
    parser.AddSwitch("json", "Write a JSON object for each file, one a line.");
    parser.AddSwitch("csv", "Write CSV: a header and a line for each file.");
    parser.AddExample("list lake.xml lake.bin", "Tell of two reports in a line each.");
    parser.AddExample("list --csv -r reports", "Make a table of a folder of reports.");
}

int List(const Parser& parser, Console& console)
{
    const Options options = OptionsOf(parser);
    if (options.layout == Layout::Csv)
        console.Output().Bytes(CsvHeader());
    else if (options.layout == Layout::Columns && !options.files.isEmpty())
        console.Output().Line(HeaderOf(options.nameWidth));
    const int count = static_cast<int>(options.files.size());
    const std::vector<int> exitCodes =
        DoForEach(count, console, [&options](int number, Console& fileConsole) {
            return ListFile(options.files.at(number), options, fileConsole);
        });
    return ExitCodeOf(exitCodes, count);
}

} // namespace

const Command LIST_COMMAND = {"list", "FILE...", "tell of each report in a line", Declare, List};

} // namespace ReportTool
