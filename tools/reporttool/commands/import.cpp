#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/formattable.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>
#include <reportcore/importing/importing.h>
#include <reportcore/reportwriting.h>

#include <reportgenerator/reflection/texts.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace ReportTool {

using ReportCore::ImportedFeature;
using ReportCore::ImportedFeatures;
using ReportCore::ImportError;
using ReportCore::ImportFormat;
using ReportCore::ImportFormats;

namespace {

constexpr char DESCRIPTION[] =
    "Makes reports with areas of what other programs have drawn, and writes them as XML. A file\n"
    "that holds one feature becomes the file OUT. Where OUT is a folder each feature becomes a file\n"
    "in it, named after IN and counted.\n"
    "\n"
    "Formats:\n"
    "%1"
    "\n"
    "Properties that bear the names of 'export' (frequency_value, area_name) become the fields of\n"
    "the report. Of an area without area_name the name is 'name'.\n"
    "\n"
    "Points are longitude and latitude in WGS 84. A file that names another coordinate system is\n"
    "refused, with the command that converts it.\n"
    "\n"
    "In csv cells are separated by commas, semicolons or tabs; which of them is found out in the\n"
    "header. The geometry stands in a column WKT, wkt_geom, geom, the_geom or geometry, or as numbers\n"
    "in longitude and latitude, lon or long or lng and lat, or X and Y.\n"
    "\n"
    "Exit codes: 0 all features are written, 1 IN is not in this format or a feature makes no\n"
    "report, 2 a file cannot be read or written or the command line is wrong.";

QStringList SeparatorNames()
{
    return {QStringLiteral("comma"), QStringLiteral("semicolon"), QStringLiteral("tab")};
}

/// Null where none is named.
QChar SeparatorOf(const Parser& parser, const ImportFormat& format)
{
    if (!parser.Has("separator"))
        return QChar();
    if (!format.hasSeparator)
        throw UsageError{QStringLiteral("--separator is for csv")};
    const QString text = parser.Value("separator");
    const auto number = SeparatorNames().indexOf(text);
    if (number >= 0)
        return QStringLiteral(",;\t").at(number);
    const bool isCharacter =
        text.size() == 1 && (text.at(0).isPunct() || text.at(0).isSymbol() || text.at(0).isSpace());
    if (!isCharacter || QStringLiteral("\"\r\n").contains(text))
        throw UsageError{QStringLiteral("--separator is comma, semicolon, tab or a character, not %1")
                             .arg(ReportCore::Quoted(text))};
    return text.at(0);
}

/// The files that the features become.
QStringList OutputsFor(const QString& input, const QString& output, std::size_t count)
{
    if (ReportCore::IsStandardStream(output) || !QFileInfo(output).isDir()) {
        if (count > 1)
            throw ReportCore::UnusableFile{
                output, QStringLiteral("%1 features need a folder that is there").arg(count)};
        return {output};
    }
    const QString base =
        ReportCore::IsStandardStream(input) ? QStringLiteral("report") : QFileInfo(input).completeBaseName();
    const int digits = static_cast<int>(QString::number(count).size());
    QStringList outputs;
    for (std::size_t i = 1; i <= count; ++i)
        outputs << QDir(output).filePath(
            QStringLiteral("%1-%2.xml").arg(base).arg(i, digits, 10, QLatin1Char('0')));
    return outputs;
}

/// What is in the way of a report; empty when it is written.
QString Write(const ImportedFeature& feature, const QString& output)
{
    try {
        const REPORTGENERATOR::ReportBase report = ReportCore::ReportOf(feature);
        const QByteArray bytes = ReportCore::WriteReport(report, {ReportCore::Form::Xml, false}, -1);
        QString excess = ReportCore::FindExcess(bytes);
        if (!excess.isEmpty())
            return excess;
        const QString loss = ReportCore::FindLoss(report, bytes);
        if (!loss.isEmpty())
            return QStringLiteral("XML would not keep ") + loss;
        ReportCore::WriteOutput(output, bytes);
        return QString();
    } catch (const ImportError& error) {
        return error.text;
    } catch (const RGException& exception) {
        return exception.GetErrorText();
    }
}

/// Empty for standard input.
QString NameOf(const QString& input)
{
    return ReportCore::IsStandardStream(input) ? QString() : input;
}

/// "feature 3"; "feature 3, part 2" where it has several.
QString WhichOf(const ImportedFeature& feature)
{
    const QString which = QStringLiteral("feature %1").arg(feature.number);
    return feature.part == 0 ? which : QStringLiteral("%1, part %2").arg(which).arg(feature.part);
}

int WriteAll(const ImportedFeatures& features, const QStringList& outputs, const QString& input,
             Console& console)
{
    int exitCode = EXIT_GOOD;
    for (std::size_t i = 0; i < features.size(); ++i) {
        const QString hindrance = Write(features[i], outputs.at(static_cast<int>(i)));
        const QString name = ReportCore::LostNameOf(features[i]);
        if (!hindrance.isEmpty()) {
            console.Complain(input, QStringLiteral("%1: %2").arg(WhichOf(features[i]), hindrance));
            exitCode = EXIT_INVALID;
        } else if (!name.isEmpty()) {
            console.Complain(
                QStringLiteral("warning: ") +
                FileLine(input, QStringLiteral("%1: without a geometry there is no area, and its name "
                                               "%2 is not kept")
                                    .arg(WhichOf(features[i]), ReportCore::Quoted(name))));
        }
    }
    return exitCode;
}

void Declare(Parser& parser)
{
    parser.SetDescription(QString(QLatin1String(DESCRIPTION)).arg(SummariesOf(ImportFormats())));
    parser.AddArgument("IN", "File of the other program; - stands for standard input.", "IN");
    parser.AddArgument("OUT", "File to write, - for standard output, or a folder.", "OUT");
    const QByteArray purpose = "Format to read: " + ChoiceOf(ImportFormats()).toLatin1() + '.';
    parser.AddOption("from", purpose.constData(), "format", Candidates::OneOf(NamesOf(ImportFormats())));
    parser.AddOption("separator", "Between cells of csv: comma, semicolon, tab or another character.",
                     "character", Candidates::OneOf(SeparatorNames()));
    parser.AddSwitch("parts", "Make a report of each part of a feature that has several.");
    parser.AddExample("import lakes.kml reports --from kml",
                      "Make a report in the folder reports of each placemark.");
}

int Import(const Parser& parser, Console& console)
{
    const QStringList files = parser.Arguments();
    if (files.size() != 2)
        throw UsageError{QStringLiteral("import takes IN and OUT")};
    const ImportFormat& format = FormatOf(ImportFormats(), parser, "from");
    const QChar separator = SeparatorOf(parser, format);
    ImportedFeatures features;
    try {
        features = ReportCore::ReadFeatures(
            format, {ReportCore::ReadInput(files.at(0)), NameOf(files.at(0)), separator});
    } catch (const ImportError& error) {
        console.Complain(files.at(0), error.text);
        return EXIT_INVALID;
    }
    if (features.empty()) {
        console.Complain(files.at(0), QStringLiteral("there is no feature"));
        return EXIT_INVALID;
    }
    if (parser.Has("parts"))
        features = ReportCore::Parted(features);
    return WriteAll(features, OutputsFor(files.at(0), files.at(1), features.size()), files.at(0), console);
}

} // namespace

const Command IMPORT_COMMAND = {"import", "IN OUT --from F", "make reports of what other programs have drawn",
                                Declare, Import};

} // namespace ReportTool
