#ifndef REPORTGENERATOR_CODEC_TAGGEDSINKS_H
#define REPORTGENERATOR_CODEC_TAGGEDSINKS_H

#include <reportgenerator/reportbase/codec/buffer.h>
#include <reportgenerator/reportbase/codec/fixednumbers.h>
#include <reportgenerator/reportbase/codec/taggedelements.h>
#include <reportgenerator/reportbase/codec/values.h>

#include <QtCore/QtEndian>

namespace REPORTGENERATOR {

// What tagged elements are written to. All sinks offer the same few operations: a body or an element around
// what a function writes, and the payloads.

/// A caller's stream, whose device lengths are patched by seeking.
class StreamElements
{
public:
    explicit StreamElements(QDataStream& stream) : m_stream(stream) {}

    QDataStream& Stream() const { return m_stream; }

    /// Writes a body: the tag if `withTag` is true, the length, and what `writePayload` writes.
    template <class WritePayload>
    void Body(qint32 tag, bool withTag, WritePayload&& writePayload)
    {
        if (withTag)
            m_stream << tag;
        elements::LengthField length(m_stream);
        writePayload();
        length.Close();
    }

    template <class WritePayload>
    void Element(qint32 tag, WritePayload&& writePayload)
    {
        Body(tag, true, writePayload);
    }

    void ExpectBodies(qint64 /*count*/, qint64 /*size*/) {}
    void Word(qint32 word) { m_stream << word; }
    void Text(const QString& text) { m_stream << text; }
    void Value(double value, NumberFormat format) { m_stream << ToText(value, format).toUtf8(); }
    void Value(const QString& value, NumberFormat /*format*/) { m_stream << value.toUtf8(); }
    void Value(bool value, NumberFormat /*format*/) { m_stream << value; }

private:
    QDataStream& m_stream;
};

/// The same bytes in one piece, as a stream of the library's version writes them.
class ElementBytes
{
public:
    explicit ElementBytes(Buffer<QByteArray>& out) : m_out(out) {}

    template <class WritePayload>
    void Body(qint32 tag, bool withTag, WritePayload&& writePayload)
    {
        if (withTag)
            Word(tag);
        Word(0);
        const qint64 start = m_out.Size();
        writePayload();
        PutWord(static_cast<quint32>(m_out.Size() - start), m_out.Begin() + start - wire::WORD_SIZE);
    }

    template <class WritePayload>
    void Element(qint32 tag, WritePayload&& writePayload)
    {
        Body(tag, true, writePayload);
    }

    /// Makes room at once for so many bodies of about that size.
    void ExpectBodies(qint64 count, qint64 size) { m_out.Room(count * size); }

    void Word(qint32 word)
    {
        char* const out = m_out.Room(wire::WORD_SIZE);
        PutWord(static_cast<quint32>(word), out);
        m_out.SetEnd(out + wire::WORD_SIZE);
    }

    /// One that isn't null, as names and versions are.
    void Text(const QString& text)
    {
        const qint64 size = qint64(text.size()) * qint64(sizeof(QChar));
        Word(static_cast<qint32>(size));
        char* const out = m_out.Room(size);
        qToBigEndian<ushort>(UnitsOf(text), text.size(), out);
        m_out.SetEnd(out + size);
    }

    /// A body without tag whose elements all are numbers: calls `next` with a function that takes tag, number
    /// and format of one after the other and returns false for a number that takes a longer way. Returns
    /// false, with nothing written, in that case. There are at most `count` numbers.
    template <class WriteNumbers>
    bool NumbersBody(qint64 count, WriteNumbers&& writeNumbers)
    {
        constexpr qint64 head = 3 * wire::WORD_SIZE;
        char* const begin = m_out.Room(wire::WORD_SIZE + count * (head + numbers::MAX_FIXED));
        char* next = begin + wire::WORD_SIZE;
        const bool isWritten = writeNumbers([&next](qint32 tag, double value, NumberFormat format) {
            char* const text = next + head;
            char* const end = numbers::WriteFixed(text, value, format.decimals);
            if (!end)
                return false;
            PutWord(static_cast<quint32>(tag), next);
            PutWord(static_cast<quint32>(end - text + wire::WORD_SIZE), next + wire::WORD_SIZE);
            PutWord(static_cast<quint32>(end - text), next + 2 * wire::WORD_SIZE);
            next = end;
            return true;
        });
        if (!isWritten)
            return false;
        PutWord(static_cast<quint32>(next - begin - wire::WORD_SIZE), begin);
        m_out.SetEnd(next);
        return true;
    }

    void Value(double value, NumberFormat format)
    {
        char* const size = m_out.Room(wire::WORD_SIZE + numbers::MAX_FIXED);
        char* const begin = size + wire::WORD_SIZE;
        char* const end = numbers::WriteFixed(begin, value, format.decimals);
        if (!end) {
            Bytes(ToText(value, format).toUtf8());
            return;
        }
        PutWord(static_cast<quint32>(end - begin), size);
        m_out.SetEnd(end);
    }

    void Value(const QString& value, NumberFormat /*format*/) { Bytes(value.toUtf8()); }

    void Value(bool value, NumberFormat /*format*/)
    {
        const char byte = value ? 1 : 0;
        m_out.Append(&byte, 1);
    }

    void Bytes(const QByteArray& bytes)
    {
        Word(bytes.isNull() ? static_cast<qint32>(wire::NULL_SIZE) : static_cast<qint32>(bytes.size()));
        m_out.Append(bytes.constData(), bytes.size());
    }

private:
    static void PutWord(quint32 word, char* out) { qToBigEndian(word, out); }

    Buffer<QByteArray>& m_out;
};

} // namespace REPORTGENERATOR

#endif
