#include <reporttool/reportfile.h>

#include <reporttool/byterange.h>
#include <reporttool/problemlogger.h>
#include <reporttool/walk.h>

#include <reportgenerator/reportbase/forms/wirefacts.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QDataStream>
#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <iterator>
#include <memory>

namespace ReportTool {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ReportBase;

namespace {

namespace wire = REPORTGENERATOR::wire;

// --- Recognising

bool BeginsWithMarker(ByteRange range, const REPORTGENERATOR::Name& marker)
{
    if (!range.Has(wire::WORD_SIZE))
        return false;
    const qint64 size = range.Take(wire::WORD_SIZE).Word();
    return range.Has(size) && range.Take(size).Utf16() == marker;
}

Form FormOfRepresentation(const ByteRange& range)
{
    if (BeginsWithMarker(range, wire::PLAIN_MARKER))
        return Form::Plain;
    return BeginsWithMarker(range, wire::COMPRESSED_MARKER) ? Form::Compressed : Form::Unknown;
}

/// One of the ways in which XML may be encoded, as far as its first character shows it.
struct Encoding
{
    const char* byteOrderMark;
    qint64 markSize;
    qint64 unitSize;
    qint64 lowestByte; ///< which byte of a unit counts for ASCII characters
};

constexpr Encoding ENCODINGS[] = {{"\xEF\xBB\xBF", 3, 1, 0},
                                  {"\xFF\xFE\x00\x00", 4, 4, 0},
                                  {"\x00\x00\xFE\xFF", 4, 4, 3},
                                  {"\xFF\xFE", 2, 2, 0},
                                  {"\xFE\xFF", 2, 2, 1}};

/// The first character of the range if it is an ASCII character, else NUL.
char AsciiAt(const ByteRange& range, const Encoding& encoding)
{
    for (qint64 i = 0; i < encoding.unitSize; ++i) {
        if (i != encoding.lowestByte && range.At(i) != 0)
            return '\0';
    }
    return static_cast<char>(range.At(encoding.lowestByte));
}

bool IsXmlBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

bool LooksLikeXml(ByteRange range, const Encoding& encoding)
{
    ByteRange start = range;
    if (start.Take(encoding.markSize).Bytes() ==
        QByteArray(encoding.byteOrderMark, static_cast<int>(encoding.markSize)))
        range = start;
    while (range.Has(encoding.unitSize)) {
        const char character = AsciiAt(range, encoding);
        if (!IsXmlBlank(character))
            return character == '<';
        range.Take(encoding.unitSize);
    }
    return false;
}

// --- Reading

/// The library's own way to the report's element, which it leaves to derived classes.
class XmlReport : public ReportBase
{
public:
    using ReportBase::ReadXmlUntil;
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

/// The library stops at the end of the report's element; whoever reads the file with another program does
/// not.
void ReadToEnd(QXmlStreamReader& reader, Problems& problems)
{
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        problems.push_back({QLatin1String(TRAILING_DATA), reader.errorString(), reader.lineNumber()});
}

/// Reads the first element of a report. Returns whether there is one.
bool ReadElement(XmlReport& report, QXmlStreamReader& reader, ReportFile& file)
{
    const QString name = report.GetObjectName();
    file.objectName = FindRoot(reader);
    if (file.objectName != name && !report.ReadXmlUntil(reader, name)) {
        file.problems.push_back(
            {QLatin1String(NO_REPORT), QStringLiteral("there is no element '%1'").arg(name), 0});
        return false;
    }
    report.ProcessXml(reader);
    ReadToEnd(reader, file.problems);
    return true;
}

/// Adds what the library told, in front of what was found behind the report.
void AddLogged(ReportFile& file, const ProblemLogger& logger)
{
    file.problems.insert(file.problems.begin(), logger.Found().begin(), logger.Found().end());
}

void ReadXml(const QByteArray& bytes, ReportFile& file)
{
    const auto logger = std::make_shared<ProblemLogger>();
    XmlReport report;
    report.SetValidate(false);
    report.SetLogger(logger);
    QXmlStreamReader reader(bytes);
    logger->Follow(&reader);
    try {
        if (ReadElement(report, reader, file)) {
            logger->Follow(nullptr);
            report.Check(true);
        }
    } catch (const ReportException& exception) {
        logger->Catch(exception);
    }
    // The members keep the logger, and the reader is gone when they use it.
    logger->Follow(nullptr);
    AddLogged(file, *logger);
    file.report = report;
}

/// The faults that a walk finds, as problems.
class FaultList
{
public:
    Walk::Visitor Visitor()
    {
        return [this](const Field& field) {
            if (field.IsFaulty())
                Keep(field);
        };
    }

    /// From now on offsets are those of the uncompressed data.
    void BeginUncompressed() { m_place = "offset 0x%1 of the uncompressed data: %2"; }

    /// Whether there was one that isn't just something behind the end.
    bool HasFault() const { return m_hasFault; }

    void MoveTo(Problems& problems)
    {
        problems.insert(problems.end(), m_problems.begin(), m_problems.end());
        m_problems.clear();
    }

private:
    /// Lengths stand within lengths: when one is wrong, others follow from it. So only the first fault
    /// counts, and what stands behind the end.
    void Keep(const Field& field)
    {
        const QLatin1String name(field.fault);
        if (name != QLatin1String(TRAILING_DATA)) {
            if (m_hasFault)
                return;
            m_hasFault = true;
        }
        const QString offset = QString::number(field.bytes.Offset(), HEXADECIMAL);
        m_problems.push_back({name, QString(QLatin1String(m_place)).arg(offset, DescribeFault(field)), 0});
    }

    static constexpr int HEXADECIMAL = 16;

    const char* m_place = "offset 0x%1: %2";
    bool m_hasFault = false;
    Problems m_problems;
};

/// Reads root tag, root length and elements as the library reads them. Returns whether it came to the end.
bool ReadBody(ReportBase& report, const QByteArray& body, Problems& problems)
{
    const auto logger = std::make_shared<ProblemLogger>();
    report.SetValidate(false);
    report.SetLogger(logger);
    bool isRead = false;
    try {
        QDataStream stream(body);
        stream.setVersion(wire::STREAM_VERSION);
        qint32 tag = 0;
        qint32 length = 0;
        stream >> tag >> length;
        report.SetBinary(stream, length);
        isRead = true;
        report.Check(true);
    } catch (const ReportException& exception) {
        logger->Catch(exception);
    }
    problems.insert(problems.end(), logger->Found().begin(), logger->Found().end());
    return isRead;
}

void ReadBinary(const QByteArray& bytes, ReportFile& file)
{
    FaultList faults;
    Walk walk(bytes, file.form.isBinaryFile, faults.Visitor());
    walk.Frame();
    walk.End();
    file.objectName = walk.ObjectName();
    const bool isReport = file.objectName == ReportBase::GetStaticObjectName();
    // A name that is cut off has been told already.
    if (!isReport && !faults.HasFault())
        file.problems.push_back(
            {QLatin1String(NO_REPORT), QStringLiteral("this is an object '%1'").arg(file.objectName), 0});
    faults.MoveTo(file.problems);
    if (!isReport || !ReadBody(file.report, walk.BodyBytes(), file.problems))
        return;
    // The library counts lengths only as far as it needs them; other readers may go by them.
    if (walk.IsCompressed())
        faults.BeginUncompressed();
    walk.Body();
    faults.MoveTo(file.problems);
}

// --- Writing

QByteArray BinaryFile(const QByteArray& representation)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(wire::STREAM_VERSION);
    stream << representation;
    return bytes;
}

QString FindLossOfArea(const Area& written, const Area& read)
{
    if (written.GetName() != read.GetName())
        return QStringLiteral("the name of the area");
    if (written.IsScriptIDSet() != read.IsScriptIDSet() || written.GetScriptID() != read.GetScriptID())
        return QStringLiteral("the script identifier of the area");
    if (written.GetCoordinate().size() != read.GetCoordinate().size())
        return QStringLiteral("coordinates of the area");
    return QString();
}

} // namespace

FileForm Recognise(const QByteArray& bytes)
{
    const ByteRange range(bytes);
    if (const Form form = FormOfRepresentation(range); form != Form::Unknown)
        return {form, false};
    ByteRange content = range;
    content.Take(wire::WORD_SIZE);
    if (const Form form = FormOfRepresentation(content); form != Form::Unknown)
        return {form, true};
    const bool isXml =
        std::any_of(std::begin(ENCODINGS), std::end(ENCODINGS),
                    [&range](const Encoding& encoding) { return LooksLikeXml(range, encoding); });
    return {isXml ? Form::Xml : Form::Unknown, false};
}

ReportFile ReadReport(const QByteArray& bytes)
{
    ReportFile file;
    file.form = Recognise(bytes);
    file.size = bytes.size();
    switch (file.form.form) {
    case Form::Unknown:
        file.problems.push_back({QLatin1String(UNKNOWN_FORM),
                                 bytes.isEmpty() ? QStringLiteral("not a report in any known form (empty)")
                                                 : QStringLiteral("not a report in any known form"),
                                 0});
        break;
    case Form::Xml:
        ReadXml(bytes, file);
        break;
    case Form::Plain:
    case Form::Compressed:
        ReadBinary(bytes, file);
        break;
    }
    file.report.ResetLogger();
    return file;
}

QByteArray WriteReport(const ReportBase& report, const FileForm& form, int level)
{
    report.SetValidate(true);
    if (form.form == Form::Xml)
        return report.GetXmlString().toUtf8();
    const QByteArray representation = form.form == Form::Compressed
                                          ? report.GetCompressedBinaryRepresentationAsQByteArray(level)
                                          : report.GetBinaryRepresentationAsQByteArray();
    return form.isBinaryFile ? BinaryFile(representation) : representation;
}

QString FindLoss(const ReportBase& written, const QByteArray& bytes)
{
    const ReportFile file = ReadReport(bytes);
    const ReportBase& read = file.report;
    if (!file.IsGood())
        return QStringLiteral("the report: ") + file.problems.front().text;
    if (written.IsFrequencySet() != read.IsFrequencySet())
        return QStringLiteral("the frequency");
    if (written.IsIFBandwidthSet() != read.IsIFBandwidthSet())
        return QStringLiteral("the IF bandwidth");
    if (written.IsAreaSet() != read.IsAreaSet())
        return QStringLiteral("the area");
    return written.IsAreaSet() ? FindLossOfArea(written.GetArea(), read.GetArea()) : QString();
}

} // namespace ReportTool
