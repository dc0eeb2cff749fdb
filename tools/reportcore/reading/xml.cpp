#include <reportcore/reading/reading.h>

#include <reportcore/form.h>
#include <reportcore/problemlogger.h>
#include <reportcore/reading/diagnostics.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QXmlStreamReader>

#include <memory>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

namespace {

/// In the words of Qt's reader.
constexpr char WRONG_ENCODING[] = "Encountered incorrectly encoded content.";

/// The library's own way to the report's element, which it leaves to derived classes.
class XmlReport : public ReportBase
{
public:
    using ReportBase::ReadXmlUntil;
};

/// What has been found out about a document by reading it.
struct XmlReading
{
    bool hasReport = false;
    qint64 root = 0;  ///< where the root element begins, or a little before
    QString trailing; ///< what is wrong behind the report
    qint64 trailingAt = 0;
};

/// Reads on to the root element and returns its name; empty if there is none.
QString FindRoot(QXmlStreamReader& reader)
{
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            return reader.name().toString();
    }
    return QString();
}

/// Reads the first element of a report, and on to the end of the document: the library stops at the end of the
/// report's element, but whoever reads the file with another program does not.
XmlReading ReadElement(XmlReport& report, QXmlStreamReader& reader, QString& rootName)
{
    XmlReading reading;
    const QString name = report.GetObjectName();
    rootName = FindRoot(reader);
    reading.root = reader.characterOffset();
    if (rootName != name && !report.ReadXmlUntil(reader, name))
        return reading;
    reading.hasReport = true;
    report.ProcessXml(reader);
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError()) {
        reading.trailing = reader.errorString();
        reading.trailingAt = reader.characterOffset();
    }
    return reading;
}

/// The reader decodes more than it reads, and notices at once what is wrong with any of it. Such a problem is about the
/// bytes that are.
void FindWrongEncoding(const QByteArray& bytes, const SourceMap& places, Problems& problems)
{
    for (Problem& problem : problems) {
        if (problem.text != QLatin1String(WRONG_ENCODING))
            continue;
        const qint64 position = FindUndecodable(bytes);
        if (position >= 0)
            problem.place = places.PlaceOf(position);
    }
}

} // namespace

void ReadXmlDiagnosing(const QByteArray& bytes, ReportFile& file)
{
    const auto logger = std::make_shared<ProblemLogger>();
    XmlReport report;
    Prepare(report, logger);
    QXmlStreamReader reader(ForXmlReader(bytes));
    logger->Follow([&reader] { return reader.characterOffset(); });
    XmlReading reading;
    bool isChecked = false;
    try {
        reading = ReadElement(report, reader, file.objectName);
        isChecked = reading.hasReport;
    } catch (const ReportException& exception) {
        logger->Catch(exception);
    }
    // The members keep the logger, and the reader is gone when they use it.
    logger->Follow(nullptr);
    const LogRecords read = logger->Take();
    const LogRecords checked = isChecked ? LogRecordsOfCheck(report, *logger) : LogRecords();
    file.report = report;
    // Places are looked for only when there is something to tell.
    if (reading.hasReport && read.empty() && checked.empty() && reading.trailing.isNull())
        return;
    Diagnostics diagnostics(report, read, checked, isChecked);
    diagnostics.Places().SearchXml(bytes);
    file.problems = diagnostics.Tell();
    if (!reading.hasReport && read.empty()) {
        file.problems.push_back(
            {QLatin1String(NO_REPORT), QStringLiteral("there is no element '%1'").arg(report.GetObjectName()),
             diagnostics.Places().PlaceOf(sourcetext::StartOfTag(diagnostics.Places().Text(), reading.root)),
             QString(), file.objectName});
    }
    if (!reading.trailing.isNull())
        file.problems.push_back({QLatin1String(TRAILING_DATA), reading.trailing,
                                 diagnostics.Places().PlaceOf(reading.trailingAt)});
    FindWrongEncoding(bytes, diagnostics.Places(), file.problems);
}

} // namespace ReportCore
