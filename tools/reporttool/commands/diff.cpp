#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/folderpairs.h>
#include <reporttool/goodreport.h>
#include <reporttool/manyfiles.h>
#include <reporttool/parser.h>

#include <reportcore/differences.h>
#include <reportcore/files.h>
#include <reportcore/jsonwriting.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace ReportTool {

using ReportCore::Change;
using ReportCore::Difference;
using ReportCore::Differences;

namespace {

constexpr char DESCRIPTION[] =
    "Tells in which fields and coordinates two reports differ, whatever their forms. A line begins\n"
    "with - for what only A has, + for what only B has, and ! for what is another in B. Numbers\n"
    "count as they are written, with two or six decimals.\n"
    "\n"
    "With -r A and B are folders: files of the same name are compared, those of the folders in them\n"
    "too. A line with - tells of a file that only A has, one with + of a file that only B has; in\n"
    "front of what differs within a file stands its name. Files of the same bytes are the same,\n"
    "whatever they are.\n"
    "\n"
    "Exit codes: 0 the reports are the same, 1 they differ, 2 a report cannot be read or is\n"
    "invalid, or the command line is wrong.";

QLatin1String NameOf(Change change)
{
    switch (change) {
    case Change::Removed:
        return QLatin1String("removed");
    case Change::Added:
        return QLatin1String("added");
    case Change::Changed:
        break;
    }
    return QLatin1String("changed");
}

QJsonValue PathOrNull(const ReportCore::FieldPath& path)
{
    return path.IsEmpty() ? QJsonValue() : QJsonValue(path.Text());
}

QJsonObject ToJson(const Difference& difference)
{
    return {{QStringLiteral("change"), NameOf(difference.change)},
            {QStringLiteral("pathInA"), PathOrNull(difference.left)},
            {QStringLiteral("pathInB"), PathOrNull(difference.right)},
            {QStringLiteral("valueInA"), difference.leftJson},
            {QStringLiteral("valueInB"), difference.rightJson}};
}

QJsonArray ToJson(const Differences& differences)
{
    QJsonArray json;
    for (const Difference& difference : differences)
        json.append(ToJson(difference));
    return json;
}

void WriteJson(const QStringList& files, const Differences& differences, Console& console)
{
    QJsonObject whole = {{QStringLiteral("same"), differences.empty()},
                         {QStringLiteral("differences"), ToJson(differences)}};
    ReportCore::InsertFileName(whole, QStringLiteral("a"), files.at(0));
    ReportCore::InsertFileName(whole, QStringLiteral("b"), files.at(1));
    console.Output().Bytes(ReportCore::JsonBytes(QJsonDocument(whole)));
}

Differences DifferencesOf(const ReportCore::ReportFile& left, const ReportCore::ReportFile& right)
{
    return ReportCore::FindDifferences(left.report, right.report, ReportCore::ReportInfo());
}

int DiffReports(const QStringList& files, bool asJson, Console& console)
{
    const auto left = ReadGoodReport(files.at(0), console);
    const auto right = ReadGoodReport(files.at(1), console);
    if (!left || !right)
        return EXIT_UNUSABLE;
    const Differences differences = DifferencesOf(*left, *right);
    if (asJson) {
        WriteJson(files, differences, console);
    } else {
        for (const Difference& difference : differences)
            console.Output().Line(ReportCore::DifferenceLine(difference));
    }
    return differences.empty() ? EXIT_GOOD : EXIT_INVALID;
}

// --- Folders

/// How a file of one folder compares to that of the other.
struct Comparison
{
    int exitCode = EXIT_UNUSABLE;
    Differences differences = {};
};

/// Of a file that one of the folders doesn't have. What cannot be searched is none.
Comparison CompareOne(const QString& file, Console& console)
{
    QByteArray bytes;
    QString error;
    if (QFileInfo(file).isDir() && !console.Read(file, bytes, error))
        return {EXIT_UNUSABLE};
    return {EXIT_INVALID};
}

Comparison Compare(const FilePair& pair, Console& console)
{
    if (pair.left.isEmpty() || pair.right.isEmpty())
        return CompareOne(pair.left + pair.right, console);
    QByteArray leftBytes;
    QByteArray rightBytes;
    QString error;
    const bool hasLeft = console.Read(pair.left, leftBytes, error);
    const bool hasRight = console.Read(pair.right, rightBytes, error);
    if (!hasLeft || !hasRight)
        return {EXIT_UNUSABLE};
    if (leftBytes == rightBytes)
        return {EXIT_GOOD};
    const auto left = GoodReportIn(leftBytes, pair.left, console);
    const auto right = GoodReportIn(rightBytes, pair.right, console);
    if (!left || !right)
        return {EXIT_UNUSABLE};
    const Differences differences = DifferencesOf(*left, *right);
    return {differences.empty() ? EXIT_GOOD : EXIT_INVALID, differences};
}

void InsertNameOrNull(QJsonObject& json, const QString& key, const QString& name)
{
    if (name.isEmpty())
        json.insert(key, QJsonValue());
    else
        ReportCore::InsertFileName(json, key, name);
}

/// One line for programs.
void JsonLine(const FilePair& pair, const Comparison& comparison, Console& console)
{
    const bool isKnown = comparison.exitCode != EXIT_UNUSABLE;
    QJsonObject json = {
        {QStringLiteral("same"), isKnown ? QJsonValue(comparison.exitCode == EXIT_GOOD) : QJsonValue()},
        {QStringLiteral("differences"), isKnown ? QJsonValue(ToJson(comparison.differences)) : QJsonValue()}};
    ReportCore::InsertFileName(json, QStringLiteral("file"), pair.name);
    InsertNameOrNull(json, QStringLiteral("a"), pair.left);
    InsertNameOrNull(json, QStringLiteral("b"), pair.right);
    console.Output().Bytes(ReportCore::JsonBytes(QJsonDocument(json), QJsonDocument::Compact) + '\n');
}

void TellAlone(const FilePair& pair, TextOutput& output)
{
    output.Bytes(pair.right.isEmpty() ? "- " : "+ ");
    output.FileNameInLine(pair.name);
    output.Bytes("\n");
}

void Lines(const FilePair& pair, const Comparison& comparison, Console& console)
{
    const bool isAlone = pair.left.isEmpty() || pair.right.isEmpty();
    if (isAlone && comparison.exitCode == EXIT_INVALID)
        TellAlone(pair, console.Output());
    for (const Difference& difference : comparison.differences)
        console.Tell(pair.name, ReportCore::DifferenceLine(difference));
}

int DiffFolders(const std::vector<FilePair>& pairs, bool asJson, Console& console)
{
    const int count = static_cast<int>(pairs.size());
    const std::vector<int> exitCodes = DoForEach(count, console, [&](int number, Console& fileConsole) {
        const FilePair& pair = pairs.at(static_cast<std::size_t>(number));
        const Comparison comparison = Compare(pair, fileConsole);
        asJson ? JsonLine(pair, comparison, fileConsole) : Lines(pair, comparison, fileConsole);
        return comparison.exitCode;
    });
    return ExitCodeOf(exitCodes, count);
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("A", "Report; - stands for standard input.", "A");
    parser.AddArgument("B", "Report; - stands for standard input.", "B");
    parser.AddSwitch("json",
                     "Write a JSON object with all differences; of folders one for each file, one a line.");
    parser.AddFolderOptions();
    parser.AddExample("diff lake.xml lake.bin", "Tell in what two reports differ.");
    parser.AddExample("diff -r reports packed", "Tell in what two folders differ.");
}

int Diff(const Parser& parser, Console& console)
{
    const QStringList files = parser.Arguments();
    if (files.size() != 2)
        throw UsageError{QStringLiteral("diff takes A and B")};
    if (ReportCore::IsStandardStream(files.at(0)) && ReportCore::IsStandardStream(files.at(1)))
        throw UsageError{QStringLiteral("standard input can be read only once")};
    const QString pattern = parser.Pattern();
    const bool asJson = parser.Has("json");
    const bool isFolder = QFileInfo(files.at(0)).isDir();
    if (!parser.Has("recursive") || (!isFolder && !QFileInfo(files.at(1)).isDir()))
        return DiffReports(files, asJson, console);
    if (!isFolder || !QFileInfo(files.at(1)).isDir())
        throw UsageError{QStringLiteral("one of the two is a folder, the other is none")};
    return DiffFolders(PairsOf(files.at(0), files.at(1), pattern), asJson, console);
}

} // namespace

const Command DIFF_COMMAND = {"diff", "A B", "tell in what two reports or folders differ", Declare, Diff};

} // namespace ReportTool
