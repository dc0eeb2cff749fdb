#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/formattable.h>
#include <reporttool/manyfiles.h>
#include <reporttool/parser.h>
#include <reporttool/reportchoice.h>
#include <reporttool/reportoutput.h>

#include <reportcore/exporting/formats.h>
#include <reportcore/files.h>
#include <reportcore/outputfile.h>
#include <reportcore/reportfile.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#ifdef Q_OS_WIN
#    include <QtCore/QProcess>
#else
#    include <cerrno>
#    include <unistd.h>
#endif

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace ReportTool {

using ReportCore::Exporter;
using ReportCore::ExportFormat;
using ReportCore::ExportFormats;
using ReportCore::ExportPiece;
using ReportCore::OutputFile;
using ReportCore::PictureSize;
using ReportCore::Terminals;

namespace {

constexpr int SMALLEST_PICTURE = 100;
constexpr int LARGEST_PICTURE = 10000;

#ifdef Q_OS_WIN
constexpr char EXECUTABLE_SUFFIX[] = ".exe";
#else
constexpr char EXECUTABLE_SUFFIX[] = "";
#endif

constexpr char DESCRIPTION[] =
    "Writes reports for other programs: maps, spreadsheets, databases. Several reports go into one\n"
    "file, each with its name, its frequencies and the file that it comes from.\n"
    "\n"
    "Formats:\n"
    "%1"
    "\n"
    "Pictures are drawn by the program reportpicture, which stands beside this one where it was built\n"
    "with Qt Gui and, for svg, Qt Svg.\n"
    "\n"
    "Reports in which 'check' finds a problem are left out, with a word on each. So are, without\n"
    "--discard, those whose files hold something beside them, or values that read as others. Where\n"
    "no report is left nothing is written.\n"
    "\n"
    "Exit codes: 0 all reports are written, 1 a report is invalid or something would be discarded, 2\n"
    "a file cannot be read or written or the command line is wrong.";

std::unique_ptr<Exporter> ExporterOf(const ExportFormat& format, PictureSize size)
{
    if (!format.painter)
        return format.make();
    const ReportCore::MakePicture make = ReportCore::OwnPainters().*(format.painter);
    if (!make)
        throw UsageError{QStringLiteral("reportpicture was built without Qt Svg, so it draws png only")};
    return make(size);
}

/// The file that all reports go to. It is opened for the first of them.
class Collection
{
public:
    Collection(std::unique_ptr<Exporter> exporter, const QString& name, Terminals terminals)
        : m_exporter(std::move(exporter)), m_name(name), m_terminals(terminals)
    {
    }

    const Exporter& Format() const { return *m_exporter; }

    void Add(const ExportPiece& piece)
    {
        if (!m_output) {
            m_output.emplace(m_name, m_terminals);
            m_output->Write(m_exporter->Begin());
        }
        m_output->Write(m_exporter->Add(piece));
    }

    void Finish()
    {
        if (!m_output)
            return;
        m_exporter->End([this](const QByteArray& bytes) { m_output->Write(bytes); });
        m_output->Commit();
    }

private:
    std::unique_ptr<Exporter> m_exporter;
    QString m_name;
    Terminals m_terminals;
    std::optional<OutputFile> m_output;
};

using ExportPieces = std::vector<ExportPiece>;

/// The pieces of a file's reports in the file that all go to; none of a report that cannot be there.
FileResult ExportFile(const QString& name, const ReportChoice& choice, const Exporter& exporter,
                      Console& console)
{
    ExportPieces pieces;
    qint64 size = 0;
    try {
        const GoodReports good = ReadGoodReports(name, QString(), choice, console);
        for (const ChosenReport& report : good.reports) {
            pieces.push_back(exporter.Prepare(ReportCore::FeatureOf(name, report.file.report)));
            const auto points = static_cast<qint64>(pieces.back().feature.outline.size());
            size += pieces.back().text.size() + points * qint64(sizeof(ReportCore::Point));
        }
        return {good.areAll ? EXIT_GOOD : EXIT_INVALID, std::move(pieces), size};
    } catch (const ReportCore::UnusableFile& unusable) {
        console.Complain(unusable.file, unusable.text);
        return {EXIT_UNUSABLE};
    }
}

int DimensionOf(const QString& text)
{
    bool isNumber = false;
    const int dimension = text.toInt(&isNumber);
    if (!isNumber || dimension < SMALLEST_PICTURE || dimension > LARGEST_PICTURE)
        throw UsageError{QStringLiteral("a size is WIDTHxHEIGHT, each from %1 to %2 pixels")
                             .arg(QString::number(SMALLEST_PICTURE), QString::number(LARGEST_PICTURE))};
    return dimension;
}

PictureSize SizeOf(const Parser& parser, const ExportFormat& format)
{
    if (!parser.Has("size"))
        return {};
    if (!format.painter)
        throw UsageError{QStringLiteral("--size is for pictures")};
    const QString text = parser.Value("size");
    return {DimensionOf(text.section(QLatin1Char('x'), 0, 0)),
            DimensionOf(text.section(QLatin1Char('x'), 1))};
}

/// Runs the program with these arguments and the streams of this one, and returns its exit code.
int Become(const QString& program, const QStringList& arguments)
{
#ifdef Q_OS_WIN
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit)
        throw ReportCore::UnusableFile{program, process.errorString()};
    return process.exitCode();
#else
    // It takes the place of this one, so that what a signal does to it is what whoever started this one sees.
    std::vector<QByteArray> words = {QFile::encodeName(program)};
    std::transform(arguments.begin(), arguments.end(), std::back_inserter(words), QFile::encodeName);
    std::vector<char*> pointers;
    std::transform(words.begin(), words.end(), std::back_inserter(pointers),
                   [](QByteArray& word) { return word.data(); });
    pointers.push_back(nullptr);
    execv(pointers.front(), pointers.data());
    throw ReportCore::UnusableFile{program, qt_error_string(errno)};
#endif
}

/// Has the program that can draw do the same.
int RunElsewhere(const QStringList& arguments, Console& console)
{
    const QString program =
        QDir(QCoreApplication::applicationDirPath())
            .filePath(QStringLiteral(REPORTTOOL_PICTURE_PROGRAM) + QLatin1String(EXECUTABLE_SUFFIX));
    if (!QFileInfo(program).isExecutable())
        throw ReportCore::UnusableFile{program, QStringLiteral("is not there, and draws the pictures")};
    console.Output().Flush();
    return Become(program, arguments.mid(1));
}

/// A report that is read is not replaced by what becomes of it.
void RequireOther(const QString& output, const QStringList& files)
{
    const QFileInfo target(output);
    if (ReportCore::IsStandardStream(output) || !target.isFile())
        return;
    const QString path = target.canonicalFilePath();
    const bool isRead = std::any_of(files.begin(), files.end(), [&path](const QString& file) {
        return !ReportCore::IsStandardStream(file) && QFileInfo(file).canonicalFilePath() == path;
    });
    if (isRead)
        throw UsageError{QStringLiteral("%1 is one of the reports and would be replaced").arg(output)};
}

void Declare(Parser& parser)
{
    parser.SetDescription(QString(QLatin1String(DESCRIPTION)).arg(SummariesOf(ExportFormats())));
    parser.AddFiles();
    parser.AddOption("to", "Format to write.", "format", Candidates::OneOf(NamesOf(ExportFormats())));
    parser.AddOption("size", "Size of a picture in pixels, 1200x900 where it is missing.", "size");
    parser.AddOutput();
    AddReportNumber(parser);
    AddAllReports(parser);
    AddDiscard(parser);
    AddForce(parser);
    parser.AddExample("export -r reports --to geojsonl -o reports.geojsonl",
                      "Write all reports of a folder for a map or a database.");
    parser.AddExample("export lake.xml --to wkt", "Write the area as text.");
}

int Export(const Parser& parser, Console& console)
{
    const ExportFormat& format = FormatOf(ExportFormats(), parser, "to");
    const PictureSize size = SizeOf(parser, format);
    const ReportChoice choice = ChoiceOf(parser);
    const QStringList files = parser.Files();
    const bool isPainter = ReportCore::OwnPainters().png != nullptr;
    if (format.painter && !isPainter)
        return RunElsewhere(parser.CommandLine(), console);
    RequireOther(parser.Output(), files);
    if (files.isEmpty())
        console.Complain(QStringLiteral("there are no files, so nothing is written"));
    Collection collection(ExporterOf(format, size), parser.Output(),
                          format.isText ? Terminals::Taken : TerminalsOf(parser));
    const int count = static_cast<int>(files.size());
    const std::vector<int> exitCodes = DoForEach(
        count, console,
        [&](int number, Console& fileConsole) {
            return ExportFile(files.at(number), choice, collection.Format(), fileConsole);
        },
        [&collection](std::any& result) {
            if (const auto* const pieces = std::any_cast<ExportPieces>(&result))
                std::for_each(pieces->begin(), pieces->end(),
                              [&collection](const ExportPiece& piece) { collection.Add(piece); });
        });
    // Part of the reports is none of what was asked for.
    if (static_cast<int>(exitCodes.size()) == count)
        collection.Finish();
    return ExitCodeOf(exitCodes, count);
}

} // namespace

const Command EXPORT_COMMAND = {"export", "FILE... --to F", "write reports for maps, spreadsheets, databases",
                                Declare, Export};

} // namespace ReportTool
