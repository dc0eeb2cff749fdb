#ifndef REPORTGENERATOR_FORMS_TAGGEDELEMENTS_H
#define REPORTGENERATOR_FORMS_TAGGEDELEMENTS_H

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>

namespace REPORTGENERATOR {

class IRGObject;

/// The tagged binary form: an element is a signed 32-bit tag, a signed 32-bit length and as many bytes of
/// payload.
namespace elements {

/// Stream version of everything that the library writes and reads (Qt 4.6).
constexpr int STREAM_VERSION = QDataStream::Qt_4_6;

/// Size of a tag and of a length.
constexpr qint64 WORD_SIZE = sizeof(qint32);

/// A tag as it is usually noted, in hexadecimal.
constexpr qint32 Tag(quint32 bits)
{
    return static_cast<qint32>(bits);
}

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

/// Writes a body: the tag if `withTag` is true, the length, and what `writePayload` writes.
template <class WritePayload>
void WriteBody(QDataStream& stream, qint32 tag, bool withTag, WritePayload&& writePayload)
{
    if (withTag)
        stream << tag;
    LengthField length(stream);
    writePayload();
    length.Close();
}

/// Writes one element.
template <class WritePayload>
void WriteElement(QDataStream& stream, qint32 tag, WritePayload&& writePayload)
{
    WriteBody(stream, tag, true, writePayload);
}

// Reading. Nothing here makes room for more than the stream still holds; of a sequential device, which cannot
// tell, room is made as the bytes arrive.

/// Bytes that the stream can still give, of a sequential device those that have arrived.
qint64 BytesLeft(const QDataStream& stream);

/// Whether the stream has nothing more to give. Unlike its own `atEnd` this waits for what a pipe has not
/// handed over yet.
bool AtEnd(const QDataStream& stream);

/// Whether the stream still gives a tag or a length; waits like `AtEnd`.
bool HasWord(const QDataStream& stream);

/// A serialised byte array; null, with the stream at its end, when its length is more than what is left.
QByteArray ReadBytes(QDataStream& stream);

/// A serialised text; null, with the stream at its end, when its length is more than what is left.
QString ReadText(QDataStream& stream);

/// A serialised byte array that holds a text in UTF-8; a null array gives a null text. A NUL ends the text.
QString ReadUtf8(QDataStream& stream);

/// The text as UTF-8; a null text gives a null array.
QByteArray ToUtf8(const QString& text);

/// Skips an element of an unknown tag.
void Skip(const IRGObject& reader, QDataStream& stream, qint32 length);

/// Reports that the lengths of a body don't come out; always throws.
[[noreturn]] void ThrowLengthError(const IRGObject& reader);

/// Walks the elements of a body of `length` bytes and hands each tag to `readPayload`, which reads the
/// payload and returns true, or returns false for a tag that it doesn't know. The declared lengths count
/// against the body's length whatever `readPayload` reads; the walk ends when they have used it up or the
/// stream is at its end. Throws the length error unless they come out exactly.
template <class ReadPayload>
void ReadBody(const IRGObject& reader, QDataStream& stream, qint32 length, ReadPayload&& readPayload)
{
    qint64 remaining = length;
    while (remaining > 0 && !AtEnd(stream)) {
        qint32 tag = 0;
        qint32 payloadLength = 0;
        stream >> tag >> payloadLength;
        remaining -= 2 * WORD_SIZE + payloadLength;
        if (!readPayload(tag, payloadLength))
            Skip(reader, stream, payloadLength);
    }
    if (remaining != 0)
        ThrowLengthError(reader);
}

} // namespace elements
} // namespace REPORTGENERATOR

#endif
