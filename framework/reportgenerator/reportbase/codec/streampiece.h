#ifndef REPORTGENERATOR_CODEC_STREAMPIECE_H
#define REPORTGENERATOR_CODEC_STREAMPIECE_H

#include <reportgenerator/reportbase/codec/buffer.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

/// Bytes that a caller's stream takes or gives in one piece, where nobody can tell this from the many small
/// ones.
namespace REPORTGENERATOR::streampiece {

/// Whether the stream writes integers and texts as those of the library do, to a place of known behaviour.
bool CanWrite(const QDataStream& stream);

/// Whether doubles take eight bytes.
bool HasDoubles(const QDataStream& stream);

void Write(QDataStream& stream, Buffer<QByteArray>& bytes);

/// The next bytes of the stream, which stay there; null where the stream is not as `CanWrite` wants it or has
/// fewer. `room` keeps them if need be.
const char* Peek(const QDataStream& stream, qint64 length, QByteArray& room);

/// Hands the next bytes of the stream to `read`, and skips them if that returns true. Returns whether it did.
template <class ReadBytes>
bool Read(QDataStream& stream, qint64 length, ReadBytes&& read)
{
    QByteArray room;
    const char* const bytes = Peek(stream, length, room);
    if (!bytes || !read(bytes))
        return false;
    if (stream.device()->skip(length) != length)
        stream.setStatus(QDataStream::ReadPastEnd);
    return true;
}

} // namespace REPORTGENERATOR::streampiece

#endif
