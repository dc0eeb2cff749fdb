#include <reportgenerator/reportbase/forms/taggedelements.h>

#include <reportgenerator/reportbase/forms/limits.h>

#include <QtCore/QtEndian>

namespace REPORTGENERATOR::elements {

namespace {

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

/// A pipe or a socket doesn't know what is left, so that lengths can't be compared with it. The stream's own
/// reading makes room step by step and is taken there.
bool IsSequential(const QDataStream& stream)
{
    return stream.device() != nullptr && stream.device()->isSequential();
}

/// Waits for so many bytes, at most a word, and leaves them there.
bool ComesOfPipe(const QDataStream& stream, qint64 count)
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

qint64 BytesLeft(const QDataStream& stream)
{
    return stream.device() ? stream.device()->bytesAvailable() : 0;
}

bool AtEnd(const QDataStream& stream)
{
    return IsSequential(stream) ? !ComesOfPipe(stream, 1) : stream.atEnd();
}

bool HasWord(const QDataStream& stream)
{
    return IsSequential(stream) ? ComesOfPipe(stream, wire::WORD_SIZE) : BytesLeft(stream) >= wire::WORD_SIZE;
}

bool IsBarren(const QDataStream& stream)
{
    char byte = 0;
    return !IsSequential(stream) && !stream.atEnd() && stream.device()->peek(&byte, 1) < 1;
}

QByteArray ReadBytes(QDataStream& stream)
{
    if (IsSequential(stream))
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
    if (IsSequential(stream))
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
    const QString text = QString::fromUtf8(bytes, static_cast<int>(length));
    return text.isNull() ? QLatin1String("") : text;
}

int Skip(QDataStream& stream, qint32 length)
{
    // A stream refuses a negative length too, but not without printing.
    return length < 0 ? -1 : static_cast<int>(stream.skipRawData(length));
}

} // namespace REPORTGENERATOR::elements
