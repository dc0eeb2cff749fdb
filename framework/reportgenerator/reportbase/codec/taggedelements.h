#ifndef REPORTGENERATOR_CODEC_TAGGEDELEMENTS_H
#define REPORTGENERATOR_CODEC_TAGGEDELEMENTS_H

#include <reportgenerator/reportbase/codec/wireformat.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>

/// The tagged binary form on a stream: an element is a signed 32-bit tag, a signed 32-bit length and as many
/// bytes of payload.
namespace REPORTGENERATOR::elements {

// Writing

/// A length that is written before what it measures: a placeholder, patched by `Close` with the number of
/// bytes that have been written since.
class LengthField
{
public:
    explicit LengthField(QDataStream& stream);
    void Close();

private:
    QDataStream& m_stream;
    qint64 m_start = 0;
};

/// Whether the device is one of Qt's own, random-access, and so does what their pages say.
bool IsKnownDevice(const QIODevice& device);

// Reading. Nothing here makes room for more than the stream still holds; of a device that cannot tell, or may
// say anything, room is made as the bytes arrive.

/// Bytes that the stream can still give, of a sequential device those that have arrived.
qint64 BytesLeft(const QDataStream& stream);

/// How many of them may have room made for at once.
qint64 BytesToMakeRoomFor(const QDataStream& stream);

/// Whether the stream has nothing more to give. Unlike its own `atEnd` this waits for what a pipe has not
/// handed over yet.
bool AtEnd(const QDataStream& stream);

/// Whether a walk may read on: the stream is good and has more to give. What a bad one gives is not asked
/// for: within a transaction that would be nothing, without ever coming to an end.
bool CanGoOn(const QDataStream& stream);

/// The same of a stream whose device may be closed for reading, or fail, without calling that its end.
bool HasByte(const QDataStream& stream);

/// Reads a tag or a length if the stream still gives one; waits like `AtEnd`.
bool TakeWord(QDataStream& stream, qint32& word);

/// A serialised byte array; null, with the stream at its end, when its length is more than what is left.
QByteArray ReadBytes(QDataStream& stream);

/// A serialised text; null, with the stream at its end, when its length is more than what is left.
QString ReadText(QDataStream& stream);

/// A serialised byte array that holds a text in UTF-8; a null array gives a null text.
QString ReadUtf8(QDataStream& stream);

/// The text that bytes hold in UTF-8. A NUL ends it, and it is never null.
QString TextOfUtf8(const char* bytes, qint64 size);

/// Skips `length` bytes and returns how many were skipped. A negative length is refused as
/// `QDataStream::skipRawData` does it: the result is -1, and the status is `ReadPastEnd` unless the length is -1.
int Skip(QDataStream& stream, qint32 length);

/// Walks the elements of a body of `length` bytes and hands each tag to `readPayload`, which reads the
/// payload and returns true, or returns false for a tag that it doesn't know. The declared lengths count
/// against the body's length whatever `readPayload` reads; the walk ends when they have used it up or the
/// stream is at its end or no longer good. Returns whether they came out exactly.
template <class ReadPayload>
bool WalkBody(QDataStream& stream, qint32 length, ReadPayload&& readPayload)
{
    qint64 remaining = length;
    while (remaining > 0 && CanGoOn(stream)) {
        qint32 tag = 0;
        qint32 payloadLength = 0;
        stream >> tag >> payloadLength;
        // What is cut off counts as 0, which a device that fails would give for ever.
        if (stream.status() != QDataStream::Ok && !AtEnd(stream))
            return false;
        remaining -= 2 * wire::WORD_SIZE + payloadLength;
        if (!readPayload(tag, payloadLength))
            Skip(stream, payloadLength);
    }
    return remaining == 0;
}

} // namespace REPORTGENERATOR::elements

#endif
