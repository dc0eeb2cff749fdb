#include <reportcore/reading/reading.h>

#include <reportcore/form.h>
#include <reportcore/inspect/sourcetext.h>
#include <reportcore/reading/diagnostics.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/envelope/wholereading.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

namespace {

// --- On the fast path

constexpr char DECLARATION[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

bool AreBlanks(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), IsXmlBlank<char>);
}

/// Whether nothing stands there but a declaration as it usually is.
bool IsUsualBegin(const QByteArray& before)
{
    return AreBlanks(before.startsWith(DECLARATION) ? before.mid(int(sizeof DECLARATION) - 1) : before);
}

bool IsUtf8(const QString& encoding)
{
    return encoding.isEmpty() || encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0;
}

/// The name of the root element of a document without its report, in whose place an empty one stands; null when the
/// document isn't sound, when the report isn't the only one, or when what is declared there could mean something to it.
QString RootAround(const QByteArray& document)
{
    const QString report = ReportBase::GetStaticObjectName();
    QXmlStreamReader reader(document);
    QString rootName;
    bool hasReport = false;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        const bool isReport = token == QXmlStreamReader::StartElement && reader.name() == report;
        const bool isOdd =
            token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference ||
            (token == QXmlStreamReader::StartDocument && !IsUtf8(reader.documentEncoding().toString())) ||
            (isReport && reader.qualifiedName() != report);
        if (isOdd)
            return QString();
        hasReport = hasReport || isReport;
        if (token == QXmlStreamReader::StartElement && rootName.isNull())
            rootName = reader.name().toString();
    }
    return hasReport && !reader.hasError() ? rootName : QString();
}

/// Reads the only report of a document in UTF-8 that is sound around it, cut out of it: that leads to the same report as
/// reading the document.
bool IsReadWhole(const QByteArray& bytes, ReportFile& file)
{
    static const QByteArray name = ReportBase::GetStaticObjectName().toLatin1();
    static const QByteArray startTag = '<' + name;
    static const QByteArray endTag = "</" + name + '>';
    const auto begin = bytes.indexOf(startTag);
    const auto lastTag = bytes.lastIndexOf(endTag);
    if (begin < 0 || lastTag < begin)
        return false;
    const QByteArray before = bytes.left(begin);
    const QByteArray behind = bytes.mid(lastTag + endTag.size());
    if (IsUsualBegin(before) && AreBlanks(behind))
        file.objectName = QString::fromLatin1(name);
    else if (!behind.contains(startTag))
        file.objectName = RootAround(before + startTag + "/>" + behind);
    const auto size = lastTag + endTag.size() - begin;
    return !file.objectName.isNull() &&
           ReadOnFastPath(&REPORTGENERATOR::ReadWholeXml,
                          QByteArray::fromRawData(bytes.constData() + begin, size), file);
}

// --- Diagnosing

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
    QString trailing; ///< what is wrong behind the report
    qint64 end = 0;   ///< of that, or of the root element's tag where there is no report
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
    reading.end = reader.characterOffset();
    if (rootName != name && !report.ReadXmlUntil(reader, name))
        return reading;
    reading.hasReport = true;
    report.ProcessXml(reader);
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError()) {
        reading.trailing = reader.errorString();
        reading.end = reader.characterOffset();
    }
    return reading;
}

/// The reader decodes more than it reads, and notices at once what is wrong with any of it. Such a problem is about the
/// bytes that are.
void FindWrongEncoding(const QByteArray& bytes, Problems& problems)
{
    for (Problem& problem : problems) {
        if (problem.text != QLatin1String(WRONG_ENCODING))
            continue;
        const qint64 position = FindUndecodable(bytes);
        if (position >= 0)
            problem.place = SourceText(bytes).PlaceOf(position);
    }
}

} // namespace

void ReadXml(const QByteArray& bytes, ReportFile& file)
{
    if (!IsReadWhole(bytes, file))
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
    if (!reading.hasReport && !diagnostics.HasFindings()) {
        const SourceText source(bytes);
        file.problems.push_back({QLatin1String(NO_REPORT),
                                 QStringLiteral("there is no element '%1'").arg(report.GetObjectName()),
                                 source.PlaceOf(source.StartOfTag(reading.end)), QString(), file.objectName});
    }
    if (!reading.trailing.isNull())
        file.problems.push_back(
            {QLatin1String(TRAILING_DATA), reading.trailing, SourceText(bytes).PlaceOf(reading.end)});
    FindWrongEncoding(bytes, file.problems);
}

} // namespace ReportCore
