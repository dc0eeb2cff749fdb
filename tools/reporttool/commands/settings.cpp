#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>
#include <reporttool/settingstrial.h>

#include <reportcore/files.h>
#include <reportcore/form.h>
#include <reportcore/jsonwriting.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace ReportTool {

namespace {

constexpr char DESCRIPTION[] =
    "Hands a fragment of XML settings to one settings object of each of the library's classes, as\n"
    "an application does by a notifier, and tells which of them take an element of it, what they\n"
    "hold afterwards, and what nobody takes. Nothing is changed anywhere, which --dry-run stands\n"
    "for.\n"
    "\n"
    "Exit codes: 0 everything is taken, 1 an element is refused or something is taken by nobody,\n"
    "2 the fragment cannot be read or the command line is wrong.";

constexpr int INDENT = 4;

// --- As text

void WriteIndented(const QString& xml, Console& console)
{
    for (const QString& line : xml.split(QLatin1Char('\n')))
        console.Output().Line(QString(INDENT, QLatin1Char(' ')) + ReportCore::Printable(line));
}

void Tell(const Outcome& outcome, Console& console)
{
    const QString place = outcome.element->Place();
    if (!outcome.isTaken) {
        const QString refusal = QStringLiteral("%1: %2").arg(outcome.refusalName, outcome.refusalText);
        console.Output().Line(
            QStringLiteral("%1 refuses %2: %3").arg(outcome.object, place, ReportCore::Printable(refusal)));
    } else if (outcome.xml.isEmpty()) {
        console.Output().Line(
            QStringLiteral("%1 takes %2 and has no data afterwards").arg(outcome.object, place));
    } else {
        console.Output().Line(QStringLiteral("%1 takes %2 and holds:").arg(outcome.object, place));
        WriteIndented(outcome.xml, console);
    }
}

void WriteText(const Outcomes& outcomes, Console& console)
{
    for (const Outcome& outcome : outcomes.offers)
        Tell(outcome, console);
    if (!outcomes.rest.empty())
        console.Output().Line(QStringLiteral("Nobody takes:"));
    for (const FragmentPart* part : outcomes.rest)
        console.Output().Line(
            QStringLiteral("    %1: %2").arg(part->Place(), ReportCore::Printable(part->path)));
}

// --- As JSON

QJsonValue TextOrNull(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject PlaceOf(const FragmentPart& part)
{
    return {{QStringLiteral("line"), part.line}, {QStringLiteral("column"), part.column}};
}

void WriteJson(const QString& file, const Outcomes& outcomes, Console& console)
{
    QJsonArray taken;
    QJsonArray refused;
    for (const Outcome& outcome : outcomes.offers) {
        QJsonObject json = PlaceOf(*outcome.element);
        json.insert(QStringLiteral("object"), outcome.object);
        if (outcome.isTaken) {
            json.insert(QStringLiteral("xml"), TextOrNull(outcome.xml));
            taken.append(json);
        } else {
            json.insert(QStringLiteral("name"), TextOrNull(outcome.refusalName));
            json.insert(QStringLiteral("text"), TextOrNull(outcome.refusalText));
            refused.append(json);
        }
    }
    QJsonArray left;
    for (const FragmentPart* part : outcomes.rest) {
        QJsonObject json = PlaceOf(*part);
        json.insert(QStringLiteral("path"), part->path);
        left.append(json);
    }
    QJsonObject whole = {{QStringLiteral("taken"), taken},
                         {QStringLiteral("refused"), refused},
                         {QStringLiteral("left"), left}};
    ReportCore::InsertFileName(whole, QStringLiteral("file"), file);
    console.Output().Bytes(ReportCore::JsonBytes(QJsonDocument(whole)));
}

int DryRun(const QString& file, bool asJson, Console& console)
{
    const QString text = ReportCore::DecodeXml(ReportCore::ReadInput(file));
    Fragment fragment;
    try {
        fragment = Fragment::Parse(text);
    } catch (const FragmentError& error) {
        console.Complain(file, error.text);
        return EXIT_INVALID;
    }
    const Outcomes outcomes = TrySettings(text, fragment);
    if (asJson)
        WriteJson(file, outcomes, console);
    else
        WriteText(outcomes, console);
    return outcomes.AreGood() ? EXIT_GOOD : EXIT_INVALID;
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("FRAGMENT", "File with XML settings; - stands for standard input.", "FRAGMENT");
    parser.AddSwitch("dry-run", "Only tell; must be given.");
    parser.AddSwitch("json", "Write a JSON object with all that is told.");
    parser.AddExample("settings fragment.xml --dry-run", "Tell who would take what of a fragment.");
}

int RunSettings(const Parser& parser, Console& console)
{
    if (parser.Arguments().size() != 1)
        throw UsageError{QStringLiteral("settings takes one FRAGMENT")};
    if (!parser.Has("dry-run"))
        throw UsageError{QStringLiteral("settings can only be tried: --dry-run is missing")};
    return DryRun(parser.Arguments().first(), parser.Has("json"), console);
}

} // namespace

const Command SETTINGS_COMMAND = {"settings", "FRAGMENT --dry-run", "tell who would take which settings",
                                  Declare, RunSettings};

} // namespace ReportTool
