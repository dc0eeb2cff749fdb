#include <reportcore/reading/reading.h>

#include <reportcore/reading/diagnostics.h>
#include <reportcore/reading/faultlist.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/codec/wireformat.h>
#include <reportgenerator/reportbase/envelope/wholereading.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

namespace {

namespace wire = REPORTGENERATOR::wire;

/// Bytes that the library reads bit by bit, as it reads devices that it doesn't know: their position tells how far it has
/// got.
class WatchedBytes : public QBuffer
{
public:
    explicit WatchedBytes(const QByteArray& bytes)
    {
        setData(bytes);
        open(ReadOnly);
    }
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

/// The fault that the library could not go on with: the first one that isn't just something behind the end.
const Problem* FirstFault(const Problems& faults)
{
    const auto found = std::find_if(faults.begin(), faults.end(),
                                    [](const Problem& fault) { return !fault.Is(TRAILING_DATA); });
    if (found != faults.end())
        return &*found;
    return faults.empty() ? nullptr : &faults.back();
}

/// Reads the body along the stream path, and tells what the library says of it. Returns whether it came to the end.
bool ReadBodyDiagnosing(const QByteArray& bytes, const BinaryInspector& inspector, const Problem* firstFault,
                        ReportFile& file)
{
    WatchedBytes device(inspector.BodyBytes());
    const auto read = [&] {
        ReadBody(file.report, device);
        return true;
    };
    Diagnostics diagnostics(file.report, read, [&] { return inspector.BodyOffset() + device.pos(); });
    Problems found = diagnostics.Find(bytes, file.form);
    if (!diagnostics.IsRead() && firstFault) {
        found.back().place = firstFault->place;
        found.back().path = firstFault->path;
        found.back().value = QString();
    }
    file.problems.insert(file.problems.end(), found.begin(), found.end());
    return diagnostics.IsRead();
}

} // namespace

void ReadBinary(const QByteArray& bytes, ReportFile& file)
{
    FaultList faults(bytes, file.form.isBinaryFile);
    BinaryInspector& inspector = faults.Inspector();
    inspector.Envelope();
    inspector.End();
    file.objectName = inspector.ObjectName();
    const bool isReport = file.objectName == ReportBase::GetStaticObjectName();
    if (isReport && faults.Found().empty() &&
        ReadOnFastPath(&REPORTGENERATOR::ReadWholeBody, inspector.BodyBytes(), file))
        return;
    // A name that is cut off has been told already.
    if (!isReport && !faults.HasFault())
        file.problems.push_back({QLatin1String(NO_REPORT),
                                 QStringLiteral("this is an object '%1'").arg(file.objectName),
                                 faults.PlaceOfName()});
    const auto behindEnvelope = static_cast<std::ptrdiff_t>(faults.Found().size());
    file.problems.insert(file.problems.end(), faults.Found().begin(), faults.Found().end());
    if (!isReport)
        return;
    inspector.Body();
    // The library counts lengths only as far as it needs them; other readers may go by them. Where it breaks off, the
    // claim that doesn't come out is the reason.
    const bool isRead = ReadBodyDiagnosing(bytes, inspector, FirstFault(faults.Found()), file);
    std::copy_if(faults.Found().begin() + behindEnvelope, faults.Found().end(),
                 std::back_inserter(file.problems),
                 [isRead](const Problem& fault) { return isRead || fault.Is(LENGTH_MISMATCH); });
}

} // namespace ReportCore
