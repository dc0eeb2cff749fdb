#ifndef REPORTGENERATOR_CODEC_BYTERANGE_H
#define REPORTGENERATOR_CODEC_BYTERANGE_H

#include <reportgenerator/reportbase/codec/wireformat.h>

#include <QtCore/QChar>
#include <QtCore/QtEndian>

namespace REPORTGENERATOR {

/// Bytes that are read from the front, as a stream of the library's version holds them. What isn't there is
/// not taken.
struct ByteRange
{
    const char* next;
    const char* end;

    qint64 Left() const { return end - next; }

    bool TakeWord(qint32& word)
    {
        if (Left() < wire::WORD_SIZE)
            return false;
        word = qFromBigEndian<qint32>(next);
        next += wire::WORD_SIZE;
        return true;
    }

    /// The next `length` bytes.
    bool TakePart(qint64 length, ByteRange& part)
    {
        if (length < 0 || length > Left())
            return false;
        part = {next, next + length};
        next += length;
        return true;
    }

    /// The content of a serialised text or byte array that isn't null.
    bool TakeCounted(ByteRange& content)
    {
        qint32 size = 0;
        return TakeWord(size) && TakePart(size, content);
    }

    /// The same of a text, which has whole characters.
    bool TakeText(ByteRange& content)
    {
        return TakeCounted(content) && content.Left() % qint64(sizeof(QChar)) == 0;
    }

    /// The size of a serialised text or byte array that takes up the rest.
    bool TakeSizeOfRest()
    {
        qint32 size = 0;
        return TakeWord(size) && size == Left();
    }

    /// Whether the bytes are that text in UTF-16.
    bool HoldsText(const Name& text) const
    {
        if (Left() != 2 * qint64(text.size))
            return false;
        for (qint64 i = 0; i < text.size; ++i) {
            if (next[2 * i] != 0 || next[2 * i + 1] != text.latin1[i])
                return false;
        }
        return true;
    }
};

} // namespace REPORTGENERATOR

#endif
