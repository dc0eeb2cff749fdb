#include <reportcore/reading/reading.h>

#include <reportcore/form.h>
#include <reportcore/inspect/sourcetext.h>
#include <reportcore/reading/diagnostics.h>
#include <reportcore/reading/xmlcut.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/envelope/wholereading.h>

#include <QtCore/QXmlStreamReader>

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

void ReadXml(const QByteArray& bytes, ReportFile& file)
{
    const XmlCut cut = CutReport(bytes);
    ReportBase report;
    report.SetValidate(false);
    if (REPORTGENERATOR::ReadWholeXml(report, cut.element) && TakeIfGood(report, file))
        file.objectName = cut.rootName;
    else
        ReadXmlDiagnosing(bytes, file);
}

void ReadXmlDiagnosing(const QByteArray& bytes, ReportFile& file)
{
    XmlReport report;
    QXmlStreamReader reader(ForXmlReader(bytes));
    XmlReading reading;
    const auto read = [&] {
        reading = ReadElement(report, reader, file.objectName);
        return reading.hasReport;
    };
    Diagnostics diagnostics(report, read, [&reader] { return reader.characterOffset(); });
    file.report = report;
    // Places are looked for only when there is something to tell.
    if (reading.hasReport && !diagnostics.HasFindings() && reading.trailing.isNull())
        return;
    file.problems = diagnostics.Find(bytes, file.form);
    const SourceMap& places = diagnostics.Places();
    if (!reading.hasReport && !diagnostics.HasFindings()) {
        const qint64 root = sourcetext::StartOfTag(DecodeXml(bytes), reading.root);
        file.problems.push_back({QLatin1String(NO_REPORT),
                                 QStringLiteral("there is no element '%1'").arg(report.GetObjectName()),
                                 places.PlaceOf(root), QString(), file.objectName});
    }
    if (!reading.trailing.isNull())
        file.problems.push_back(
            {QLatin1String(TRAILING_DATA), reading.trailing, places.PlaceOf(reading.trailingAt)});
    FindWrongEncoding(bytes, places, file.problems);
}

} // namespace ReportCore
