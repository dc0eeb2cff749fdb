#include <reportcore/reportfile.h>

#include <reportcore/byterange.h>
#include <reportcore/problemlogger.h>
#include <reportcore/reportfields.h>
#include <reportcore/spots.h>
#include <reportcore/walk.h>

#include <reportgenerator/reportbase/forms/wirefacts.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cstring>
#include <memory>
#include <unordered_set>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

namespace wire = REPORTGENERATOR::wire;

// --- What was told, and where

/// A problem whose path is known, so that it can be told once.
struct Finding
{
    Problem problem;
    bool hasPath = false;
    FieldPath path = {};
};

using Findings = std::vector<Finding>;
using Paths = std::unordered_set<FieldPath, FieldPathHash>;

/// A field that the library's check complains about.
struct Complaint
{
    FieldPath path;
    QString text;
};

using Complaints = std::vector<Complaint>;

/// In the order of the library's check.
void Complain(const IRGObject& object, const ObjectInfo& info, FieldPath& path, Complaints& complaints)
{
    for (const auto& field : info.All()) {
        path.Enter(*field);
        if (!field->IsGoodIn(object))
            complaints.push_back({path, field->Complaint(object)});
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i) {
            if (field->Kind() == FieldKind::List)
                path.SetIndex(i);
            Complain(field->ItemIn(object, i), field->Object(), path, complaints);
        }
        path.Leave();
    }
}

bool AreOf(const Complaints& complaints, const Remarks& remarks)
{
    return std::equal(
        complaints.begin(), complaints.end(), remarks.begin(), remarks.end(),
        [](const Complaint& complaint, const Remark& remark) { return complaint.text == remark.text; });
}

/// What the reader has refused, and what the check says of the outcome, becomes one list in which nothing is told
/// twice.
class Telling
{
public:
    Telling(const ReportBase& report, const Remarks& read, const Remarks& checked, bool isChecked)
        : m_read(read), m_checked(checked)
    {
        FieldPath path;
        if (isChecked)
            Complain(report, ReportInfo(), path, m_complaints);
        // The words are the library's; where they are others than expected, they are told without a path.
        if (!AreOf(m_complaints, checked))
            m_complaints.clear();
        for (const Remark& remark : read)
            m_spots.WantEnd(remark.end);
        for (const Complaint& complaint : m_complaints)
            m_spots.WantPath(complaint.path);
    }

    Spots& Places() { return m_spots; }

    Problems Tell() const
    {
        const Findings read = FindingsOfReading();
        const Findings checked = FindingsOfCheck();
        const Paths refused = PathsOf(read, false);
        const Paths incomplete = PathsOf(checked, true);
        Problems problems;
        for (const Finding& finding : read) {
            // An item is incomplete because of a field that the check names.
            if (!IsIncomplete(finding.problem.name) || incomplete.count(finding.path) == 0)
                problems.push_back(finding.problem);
        }
        for (const Finding& finding : checked) {
            if (!finding.hasPath || refused.count(finding.path) == 0)
                problems.push_back(finding.problem);
        }
        return problems;
    }

private:
    static bool IsIncomplete(const QString& name)
    {
        return name == QLatin1String("IncompleteDefinitionException");
    }

    static Paths PathsOf(const Findings& findings, bool ofHolders)
    {
        Paths paths;
        for (const Finding& finding : findings) {
            if (finding.hasPath)
                paths.insert(ofHolders ? finding.path.Holder() : finding.path);
        }
        return paths;
    }

    Findings FindingsOfReading() const
    {
        Findings findings;
        for (const Remark& remark : m_read) {
            Finding finding{{remark.name, remark.text}};
            if (const Spot* const spot = m_spots.FindEnd(remark.end, IsIncomplete(remark.name))) {
                finding.problem.place = spot->place;
                finding.problem.value = spot->value;
                TakePath(finding, spot->path);
            } else if (remark.end >= 0) {
                finding.problem.place = m_spots.PlaceOf(remark.end);
            }
            findings.push_back(finding);
        }
        return findings;
    }

    Findings FindingsOfCheck() const
    {
        Findings findings;
        for (std::size_t i = 0; i < m_checked.size(); ++i) {
            Finding finding{{m_checked.at(i).name, m_checked.at(i).text}};
            if (!m_complaints.empty()) {
                const FieldPath& path = m_complaints.at(i).path;
                TakePath(finding, path);
                if (const Spot* const spot = m_spots.FindNearest(path)) {
                    finding.problem.place = spot->place;
                    finding.problem.value = spot->path == path ? spot->value : QString();
                }
            }
            findings.push_back(finding);
        }
        return findings;
    }

    static void TakePath(Finding& finding, const FieldPath& path)
    {
        finding.hasPath = true;
        finding.path = path;
        finding.problem.path = path.Text();
    }

    const Remarks& m_read;
    const Remarks& m_checked;
    Complaints m_complaints;
    Spots m_spots;
};

/// A report that takes what is wrong and tells it to the logger.
void Prepare(const ReportBase& report, const std::shared_ptr<ProblemLogger>& logger)
{
    report.SetValidate(false);
    report.SetLogger(logger);
}

// --- XML

/// The library's own way to the report's element, which it leaves to derived classes.
class XmlReport : public ReportBase
{
public:
    using ReportBase::ReadXmlUntil;
};

bool IsXmlBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t') ||
           character == QLatin1Char('\r') || character == QLatin1Char('\n');
}

/// How many elements an object's XML has at least: one each for the object and for what is set of it.
qint64 CountElements(const IRGObject& object, const ObjectInfo& info)
{
    qint64 elements = 1;
    for (const auto& field : info.All()) {
        const bool isElement =
            !field->HasObjects() && field->Facts().place == REPORTGENERATOR::Place::Element;
        if (isElement && field->IsSetIn(object))
            ++elements;
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i)
            elements += CountElements(field->ItemIn(object, i), field->Object());
    }
    return elements;
}

/// The text of a document that holds nothing but one element, as the library writes it, if it may be that; empty for
/// others. A declaration is left out.
QString ElementAlone(const QByteArray& bytes)
{
    QString text = QString::fromUtf8(bytes.constData(), static_cast<int>(bytes.size()));
    // Bytes that are no UTF-8 are an error of the XML. Of an element without end tag the tags below don't count.
    if (text.contains(QChar(QChar::ReplacementCharacter)) || text.contains(QLatin1String("/>")))
        return QString();
    static const QRegularExpression declaration(QStringLiteral(
        "\\A<\\?xml version=\"1\\.0\"(?: encoding=\"(?:UTF|utf)-8\")?(?: standalone=\"(?:yes|no)\")?\\?>"));
    const auto found = declaration.match(text);
    if (found.hasMatch())
        text.remove(0, found.capturedLength());
    int begin = 0;
    auto end = text.size();
    while (begin < end && IsXmlBlank(text.at(begin)))
        ++begin;
    while (end > begin && IsXmlBlank(text.at(end - 1)))
        --end;
    const QString name = ReportBase::GetStaticObjectName();
    const QStringView element = QStringView(text).mid(begin, end - begin);
    const bool isAlone =
        element.startsWith(QLatin1Char('<') + name) && element.endsWith(QStringLiteral("</%1>").arg(name));
    return isAlone ? text : QString();
}

/// Reads a good report that is alone in its document without looking at each tag twice. Returns whether it is one;
/// otherwise nothing is known of it.
bool ReadXmlAtOnce(const QByteArray& bytes, ReportFile& file)
{
    const QString text = ElementAlone(bytes);
    if (text.isEmpty())
        return false;
    const auto logger = std::make_shared<ProblemLogger>();
    ReportBase report;
    Prepare(report, logger);
    try {
        if (!report.SetXmlString(text, true) || logger->HasErrors())
            return false;
        report.Check(true);
    } catch (const ReportException&) {
        return false;
    }
    // The library has read all of the document if there are no more tags in it than the report accounts for.
    const qint64 tags = text.count(QLatin1Char('<'));
    if (logger->HasErrors() || tags != 2 * CountElements(report, ReportInfo()))
        return false;
    file.objectName = ReportBase::GetStaticObjectName();
    file.report = report;
    return true;
}

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

void ReadXmlWithPlaces(const QByteArray& bytes, ReportFile& file)
{
    const auto logger = std::make_shared<ProblemLogger>();
    XmlReport report;
    Prepare(report, logger);
    QXmlStreamReader reader(bytes);
    logger->Follow([&reader] { return reader.characterOffset(); });
    XmlReading reading;
    Remarks read;
    bool isChecked = false;
    try {
        reading = ReadElement(report, reader, file.objectName);
        logger->Follow(nullptr);
        read = logger->Take();
        isChecked = reading.hasReport;
        if (isChecked)
            report.Check(true);
    } catch (const ReportException& exception) {
        logger->Catch(exception);
        read = logger->Take();
    }
    // The members keep the logger, and the reader is gone when they use it.
    logger->Follow(nullptr);
    const Remarks checked = logger->Take();
    Telling telling(report, read, checked, isChecked);
    telling.Places().SearchXml(bytes);
    file.problems = telling.Tell();
    if (!reading.hasReport && read.empty()) {
        file.problems.push_back({QLatin1String(NO_REPORT),
                                 QStringLiteral("there is no element '%1'").arg(report.GetObjectName()),
                                 telling.Places().PlaceOf(telling.Places().StartOfTag(reading.root)),
                                 QString(), file.objectName});
    }
    if (!reading.trailing.isNull())
        file.problems.push_back(
            {QLatin1String(TRAILING_DATA), reading.trailing, telling.Places().PlaceOf(reading.trailingAt)});
    file.report = report;
}

// --- Binary forms

/// The faults that a walk finds, as problems.
class FaultList
{
public:
    Walk::Visitor Visitor()
    {
        return [this](const WireField& field) {
            if (field.kind == Kind::Utf16 && field.path->IsEmpty())
                m_lastText = field.bytes.Offset();
            if (field.IsFaulty())
                Keep(field);
        };
    }

    /// From now on offsets are those of the uncompressed data.
    void BeginUncompressed() { m_isUncompressed = true; }

    /// Whether there was one that isn't just something behind the end.
    bool HasFault() const { return m_hasFault; }

    const Problems& Found() const { return m_problems; }

    /// Where the last text of the frame begins, which is the object name.
    FilePlace PlaceOfName() const { return PlaceAt(m_lastText); }

private:
    /// Lengths stand within lengths: when one is wrong, others follow from it. So only the first fault
    /// counts, and what stands behind the end.
    void Keep(const WireField& field)
    {
        const QLatin1String name(field.fault);
        if (name != QLatin1String(TRAILING_DATA)) {
            if (m_hasFault)
                return;
            m_hasFault = true;
        }
        m_problems.push_back(
            {name, DescribeFault(field), PlaceAt(field.bytes.Offset()), field.path->Text(), QString()});
    }

    FilePlace PlaceAt(qint64 offset) const { return {0, 0, offset, m_isUncompressed}; }

    bool m_isUncompressed = false;
    bool m_hasFault = false;
    qint64 m_lastText = -1;
    Problems m_problems;
};

/// Bytes that are read bit by bit, so that their position tells how far a reader has got.
class WatchedBytes : public QIODevice
{
public:
    explicit WatchedBytes(const QByteArray& bytes) : m_bytes(bytes) { open(ReadOnly | Unbuffered); }

    qint64 size() const override { return m_bytes.size(); }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const qint64 size = std::min(maxSize, m_bytes.size() - pos());
        if (size > 0)
            std::memcpy(data, m_bytes.constData() + pos(), static_cast<std::size_t>(size));
        return std::max<qint64>(size, 0);
    }
    qint64 writeData(const char* /*data*/, qint64 /*maxSize*/) override { return -1; }

private:
    const QByteArray m_bytes;
};

/// Reads root tag, root length and elements as the library reads them.
void ReadBody(ReportBase& report, QIODevice& body)
{
    QDataStream stream(&body);
    stream.setVersion(wire::STREAM_VERSION);
    qint32 tag = 0;
    qint32 length = 0;
    stream >> tag >> length;
    report.SetBinary(stream, length);
}

bool ReadBinaryAtOnce(const QByteArray& bytes, ReportFile& file)
{
    Walk walk(bytes, file.form.isBinaryFile, nullptr);
    walk.Frame();
    if (walk.ObjectName() != ReportBase::GetStaticObjectName())
        return false;
    walk.Body();
    walk.End();
    if (walk.HasFault())
        return false;
    const auto logger = std::make_shared<ProblemLogger>();
    ReportBase report;
    Prepare(report, logger);
    QByteArray body = walk.BodyBytes();
    QBuffer device(&body);
    device.open(QIODevice::ReadOnly);
    try {
        ReadBody(report, device);
        report.Check(true);
    } catch (const ReportException&) {
        return false;
    }
    if (logger->HasErrors())
        return false;
    file.objectName = walk.ObjectName();
    file.report = report;
    return true;
}

/// The fault that the library could not go on with: the first one that isn't just something behind the end.
const Problem* FirstFault(const Problems& faults)
{
    const auto found = std::find_if(faults.begin(), faults.end(), [](const Problem& fault) {
        return fault.name != QLatin1String(TRAILING_DATA);
    });
    if (found != faults.end())
        return &*found;
    return faults.empty() ? nullptr : &faults.back();
}

/// Reads the body, and tells what the library says of it. Returns whether it came to the end.
bool ReadBodyWithPlaces(const QByteArray& bytes, const QByteArray& body, const Problem* firstFault,
                        ReportFile& file)
{
    const auto logger = std::make_shared<ProblemLogger>();
    Prepare(file.report, logger);
    WatchedBytes device(body);
    logger->Follow([&device] { return device.pos(); });
    bool isRead = false;
    Remarks read;
    try {
        ReadBody(file.report, device);
        isRead = true;
        logger->Follow(nullptr);
        read = logger->Take();
        file.report.Check(true);
    } catch (const ReportException& exception) {
        logger->Catch(exception);
        read = logger->Take();
    }
    logger->Follow(nullptr);
    const Remarks checked = logger->Take();
    Telling telling(file.report, read, checked, isRead);
    telling.Places().SearchBinary(bytes, file.form.isBinaryFile);
    Problems told = telling.Tell();
    if (!isRead && firstFault) {
        told.back().place = firstFault->place;
        told.back().path = firstFault->path;
        told.back().value = QString();
    }
    file.problems.insert(file.problems.end(), told.begin(), told.end());
    return isRead;
}

void ReadBinaryWithPlaces(const QByteArray& bytes, ReportFile& file)
{
    FaultList faults;
    Walk walk(bytes, file.form.isBinaryFile, faults.Visitor());
    walk.Frame();
    const FilePlace placeOfName = faults.PlaceOfName();
    walk.End();
    file.objectName = walk.ObjectName();
    const bool isReport = file.objectName == ReportBase::GetStaticObjectName();
    // A name that is cut off has been told already.
    if (!isReport && !faults.HasFault())
        file.problems.push_back({QLatin1String(NO_REPORT),
                                 QStringLiteral("this is an object '%1'").arg(file.objectName), placeOfName});
    const auto behindFrame = static_cast<std::ptrdiff_t>(faults.Found().size());
    file.problems.insert(file.problems.end(), faults.Found().begin(), faults.Found().end());
    if (!isReport)
        return;
    if (walk.IsCompressed())
        faults.BeginUncompressed();
    walk.Body();
    // The library counts lengths only as far as it needs them; other readers may go by them.
    if (ReadBodyWithPlaces(bytes, walk.BodyBytes(), FirstFault(faults.Found()), file))
        file.problems.insert(file.problems.end(), faults.Found().begin() + behindFrame, faults.Found().end());
}

} // namespace

ReportFile ReadReport(const QByteArray& bytes)
{
    ReportFile file;
    file.form = Recognise(bytes);
    file.size = bytes.size();
    switch (file.form.form) {
    case Form::Unknown:
        file.problems.push_back({QLatin1String(UNKNOWN_FORM),
                                 bytes.isEmpty() ? QStringLiteral("not a report in any known form (empty)")
                                                 : QStringLiteral("not a report in any known form")});
        break;
    case Form::Xml:
        file.wasReadAtOnce = ReadXmlAtOnce(bytes, file);
        if (!file.wasReadAtOnce)
            ReadXmlWithPlaces(bytes, file);
        break;
    case Form::Plain:
    case Form::Compressed:
        file.wasReadAtOnce = ReadBinaryAtOnce(bytes, file);
        if (!file.wasReadAtOnce)
            ReadBinaryWithPlaces(bytes, file);
        break;
    }
    file.report.ResetLogger();
    return file;
}

} // namespace ReportCore
