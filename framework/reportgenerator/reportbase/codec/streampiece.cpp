#include <reportgenerator/reportbase/codec/streampiece.h>

#include <reportgenerator/reportbase/codec/taggedelements.h>

namespace REPORTGENERATOR::streampiece {

namespace {

/// The device of a stream that is as those of the library are; null for every other one.
QIODevice* PlainDevice(const QDataStream& stream)
{
    QIODevice* const device = stream.device();
    const bool isPlain = device && stream.status() == QDataStream::Ok &&
                         stream.byteOrder() == QDataStream::BigEndian &&
                         stream.version() >= QDataStream::Qt_4_0 && !device->isTransactionStarted();
    // Other devices may look at each single write.
    return isPlain && elements::IsKnownDevice(*device) && !device->isTextModeEnabled() ? device : nullptr;
}

} // namespace

bool CanWrite(const QDataStream& stream)
{
    const QIODevice* const device = PlainDevice(stream);
    return device && device->isWritable() && !(device->openMode() & QIODevice::Append);
}

bool HasDoubles(const QDataStream& stream)
{
    return stream.version() < QDataStream::Qt_4_6 ||
           stream.floatingPointPrecision() == QDataStream::DoublePrecision;
}

void Write(QDataStream& stream, Buffer<QByteArray>& bytes)
{
    stream.writeRawData(bytes.Begin(), static_cast<int>(bytes.Size()));
}

const char* Peek(const QDataStream& stream, qint64 length, QByteArray& room)
{
    QIODevice* const device = PlainDevice(stream);
    if (!device || !device->isReadable() || length <= 0 || length > device->bytesAvailable())
        return nullptr;
    room = device->peek(length);
    return room.size() == length ? room.constData() : nullptr;
}

} // namespace REPORTGENERATOR::streampiece
