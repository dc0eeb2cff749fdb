#include <reportcore/reading/reading.h>

#include <reportcore/files.h>
#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/inspect/filerange.h>
#include <reportcore/problemlogger.h>
#include <reportcore/reading/diagnostics.h>
#include <reportcore/reading/faultlist.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/codec/wireformat.h>
#include <reportgenerator/reportbase/envelope/wholereading.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

namespace {

namespace wire = REPORTGENERATOR::wire;

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

/// A text of the frame, if it is that one.
bool TakeName(FileRange& range, const REPORTGENERATOR::Name& name)
{
    if (!range.Has(wire::WORD_SIZE))
        return false;
    const qint64 size = range.TakeWord();
    return range.Has(size) && range.Take(size).Utf16() == name;
}

/// The rest, if a number in front says how many bytes it has.
bool TakeSizeOfRest(FileRange& range)
{
    return range.Has(wire::WORD_SIZE) && qint64(range.TakeWord()) == range.Size();
}

/// What compressed data hold; null when they are not what they claim to be, or are too large to be tried.
QByteArray Uncompressed(FileRange data)
{
    const QByteArray prefixed = data.Bytes();
    if (!data.Has(wire::WORD_SIZE))
        return QByteArray();
    const qint64 claimed = data.TakeWord();
    if (claimed > Ceiling() && prefixed.size() > Ceiling() / wire::MAX_INFLATION)
        return QByteArray();
    const QByteArray bytes = ReportBase::UncompressBinary(prefixed);
    return bytes.size() == claimed ? bytes : QByteArray();
}

/// Root tag, root length and elements of a report; null when there is anything odd about what is around them.
QByteArray RootElement(const QByteArray& bytes, const FileForm& form)
{
    FileRange range(bytes);
    if (form.isBinaryFile && !TakeSizeOfRest(range))
        return QByteArray();
    const bool isCompressed = form.form == Form::Compressed;
    if (!TakeName(range, isCompressed ? wire::COMPRESSED_MARKER : wire::PLAIN_MARKER) ||
        !TakeName(range, wire::REPORT))
        return QByteArray();
    if (!isCompressed)
        return range.Bytes();
    return TakeSizeOfRest(range) ? Uncompressed(range) : QByteArray();
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
bool ReadBodyDiagnosing(const QByteArray& bytes, const QByteArray& body, const Problem* firstFault,
                        ReportFile& file)
{
    const auto logger = std::make_shared<ProblemLogger>();
    Prepare(file.report, logger);
    WatchedBytes device(body);
    logger->Follow([&device] { return device.pos(); });
    bool isRead = false;
    try {
        ReadBody(file.report, device);
        isRead = true;
    } catch (const ReportException& exception) {
        logger->Catch(exception);
    }
    logger->Follow(nullptr);
    const LogRecords read = logger->Take();
    const LogRecords checked = isRead ? LogRecordsOfCheck(file.report, *logger) : LogRecords();
    Diagnostics diagnostics(file.report, read, checked, isRead);
    diagnostics.Places().SearchBinary(bytes, file.form.isBinaryFile);
    Problems told = diagnostics.Tell();
    if (!isRead && firstFault) {
        told.back().place = firstFault->place;
        told.back().path = firstFault->path;
        told.back().value = QString();
    }
    file.problems.insert(file.problems.end(), told.begin(), told.end());
    return isRead;
}

} // namespace

bool ReadBinaryWhole(const QByteArray& bytes, ReportFile& file)
{
    ReportBase report;
    report.SetValidate(false);
    if (!REPORTGENERATOR::ReadWholeBody(report, RootElement(bytes, file.form)) || !TakeIfGood(report, file))
        return false;
    file.objectName = ReportBase::GetStaticObjectName();
    return true;
}

void ReadBinaryDiagnosing(const QByteArray& bytes, ReportFile& file)
{
    FaultList faults;
    BinaryInspector inspector(bytes, file.form.isBinaryFile, faults.Visitor());
    inspector.Envelope();
    const FilePlace placeOfName = faults.PlaceOfName();
    inspector.End();
    file.objectName = inspector.ObjectName();
    const bool isReport = file.objectName == ReportBase::GetStaticObjectName();
    // A name that is cut off has been told already.
    if (!isReport && !faults.HasFault())
        file.problems.push_back({QLatin1String(NO_REPORT),
                                 QStringLiteral("this is an object '%1'").arg(file.objectName), placeOfName});
    const auto behindFrame = static_cast<std::ptrdiff_t>(faults.Found().size());
    file.problems.insert(file.problems.end(), faults.Found().begin(), faults.Found().end());
    if (!isReport)
        return;
    if (inspector.IsCompressed())
        faults.BeginUncompressed();
    inspector.Body();
    const Problems ofBody(faults.Found().begin() + behindFrame, faults.Found().end());
    // The library counts lengths only as far as it needs them; other readers may go by them. Where it breaks off, the
    // claim that doesn't come out is the reason.
    const bool isRead = ReadBodyDiagnosing(bytes, inspector.BodyBytes(), FirstFault(faults.Found()), file);
    std::copy_if(
        ofBody.begin(), ofBody.end(), std::back_inserter(file.problems),
        [isRead](const Problem& fault) { return isRead || fault.name == QLatin1String(LENGTH_MISMATCH); });
}

} // namespace ReportCore
