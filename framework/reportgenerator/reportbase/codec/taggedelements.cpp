#include <reportgenerator/reportbase/codec/taggedelements.h>

#include <reportgenerator/reportbase/codec/limits.h>

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QtEndian>

#include <algorithm>
#include <typeinfo>

namespace REPORTGENERATOR::elements {

namespace {

/// What a stream says to a number of bytes that it doesn't skip.
constexpr int REFUSED = -1;

void ReadToEnd(QDataStream& stream)
{
    stream.device()->skip(stream.device()->bytesAvailable());
    stream.setStatus(QDataStream::ReadPastEnd);
}

/// Reads the length of a text or byte array in bytes, of which a character takes `characterSize`. Returns -1
/// for a null one, for one that ends within a character and for one that is longer than what is left.
qint64 ReadLength(QDataStream& stream, quint32 characterSize)
{
    quint32 length = wire::NULL_SIZE;
    stream >> length;
    if (length == wire::NULL_SIZE || stream.device() == nullptr)
        return -1;
    if (length % characterSize != 0) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return -1;
    }
    if (length > BytesLeft(stream) || length > limits::MAX_BYTE_ARRAY) {
        ReadToEnd(stream);
        return -1;
    }
    return length;
}

/// A pipe or a socket doesn't know what is left.
bool IsSequential(const QDataStream& stream)
{
    return stream.device() != nullptr && stream.device()->isSequential();
}

/// Whether room can be made for what the stream says is left: lengths can't be compared with the word of a
/// device that doesn't know or may say anything. The stream's own reading makes room step by step.
bool MayMakeRoom(const QDataStream& stream)
{
    return stream.device() == nullptr || IsKnownDevice(*stream.device());
}

/// Waits for so many bytes, at most a word, and leaves them there.
bool Comes(const QDataStream& stream, qint64 count)
{
    char bytes[wire::WORD_SIZE] = {};
    return stream.device()->peek(bytes, count) == count;
}

template <class Value>
Value ReadByStream(QDataStream& stream)
{
    Value value;
    stream >> value;
    return value;
}

/// A NUL ends the text.
QString TextOfLatin1(const QByteArray& bytes)
{
    if (bytes.isNull())
        return QString();
    const auto length = qstrnlen(bytes.constData(), static_cast<uint>(bytes.size()));
    return QString::fromLatin1(bytes.constData(), static_cast<int>(length));
}

bool IsForeignByteOrder(const QDataStream& stream)
{
    return (stream.byteOrder() == QDataStream::BigEndian) != (Q_BYTE_ORDER == Q_BIG_ENDIAN);
}

} // namespace

LengthField::LengthField(QDataStream& stream) : m_stream(stream)
{
    m_stream << qint32(0);
    m_start = m_stream.device() ? m_stream.device()->pos() : 0;
}

void LengthField::Close()
{
    QIODevice* device = m_stream.device();
    if (!device)
        return;
    const qint64 end = device->pos();
    device->seek(m_start - wire::WORD_SIZE);
    m_stream << static_cast<qint32>(end - m_start);
    device->seek(end);
}

bool IsKnownDevice(const QIODevice& device)
{
    return !device.isSequential() && (typeid(device) == typeid(QBuffer) || typeid(device) == typeid(QFile));
}

qint64 BytesLeft(const QDataStream& stream)
{
    return stream.device() ? stream.device()->bytesAvailable() : 0;
}

qint64 BytesToMakeRoomFor(const QDataStream& stream)
{
    const qint64 left = BytesLeft(stream);
    return MayMakeRoom(stream) ? left : std::min(left, limits::BYTES_ON_TRUST);
}

bool AtEnd(const QDataStream& stream)
{
    return IsSequential(stream) ? !Comes(stream, 1) : stream.atEnd();
}

bool CanGoOn(const QDataStream& stream)
{
    return stream.status() == QDataStream::Ok && !AtEnd(stream);
}

bool HasByte(const QDataStream& stream)
{
    return stream.status() == QDataStream::Ok && stream.device() && Comes(stream, 1);
}

bool TakeWord(QDataStream& stream, qint32& word)
{
    const bool isThere =
        IsSequential(stream) ? Comes(stream, wire::WORD_SIZE) : BytesLeft(stream) >= wire::WORD_SIZE;
    if (stream.status() != QDataStream::Ok || !isThere)
        return false;
    stream >> word;
    return stream.status() == QDataStream::Ok;
}

QByteArray ReadBytes(QDataStream& stream)
{
    if (!MayMakeRoom(stream))
        return ReadByStream<QByteArray>(stream);
    const qint64 length = ReadLength(stream, 1);
    if (length < 0)
        return QByteArray();
    QByteArray bytes(static_cast<int>(length), Qt::Uninitialized);
    stream.readRawData(bytes.data(), static_cast<int>(length));
    return bytes;
}

QString ReadText(QDataStream& stream)
{
    if (stream.version() == QDataStream::Qt_1_0)
        return TextOfLatin1(ReadBytes(stream));
    if (!MayMakeRoom(stream))
        return ReadByStream<QString>(stream);
    const qint64 length = ReadLength(stream, sizeof(QChar));
    if (length < 0)
        return QString();
    if (length == 0)
        return QLatin1String("");
    QString text(static_cast<int>(length / qint64(sizeof(QChar))), Qt::Uninitialized);
    auto* characters = reinterpret_cast<quint16*>(text.data());
    stream.readRawData(reinterpret_cast<char*>(characters), static_cast<int>(length));
    if (IsForeignByteOrder(stream))
        qbswap<sizeof(quint16)>(characters, text.size(), characters);
    return text;
}

QString ReadUtf8(QDataStream& stream)
{
    const QByteArray bytes = ReadBytes(stream);
    return bytes.isNull() ? QString() : TextOfUtf8(bytes.constData(), bytes.size());
}

QString TextOfUtf8(const char* bytes, qint64 size)
{
    const auto length = qstrnlen(bytes, static_cast<uint>(size));
    return QString::fromUtf8(bytes, static_cast<int>(length));
}

int Skip(QDataStream& stream, qint32 length)
{
    if (length >= 0)
        return static_cast<int>(stream.skipRawData(length));
    // What a stream does, but for the line that it prints. It takes the -1 of a refusal for as many bytes.
    if (stream.device() && length != REFUSED)
        stream.setStatus(QDataStream::ReadPastEnd);
    return REFUSED;
}

} // namespace REPORTGENERATOR::elements
