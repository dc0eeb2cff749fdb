#ifndef REPORTCORE_INSPECT_FILERANGE_H
#define REPORTCORE_INSPECT_FILERANGE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QtEndian>

namespace ReportCore {

/// A part of a byte array that is taken from its front. It never gives more than it has, whatever a number in
/// the data claims. The array must outlive it.
class FileRange
{
public:
    FileRange() = default;
    explicit FileRange(const QByteArray& bytes) : m_data(bytes.constData()), m_end(bytes.size()) {}

    /// Of the first byte, counted from the start of the array.
    qint64 Offset() const { return m_begin; }
    qint64 Size() const { return m_end - m_begin; }
    bool IsEmpty() const { return m_begin == m_end; }

    /// Whether there are so many bytes; there is never a negative number of them.
    bool Has(qint64 count) const { return count >= 0 && count <= Size(); }

    /// Cuts off and returns the first `count` bytes, or all that there are, if there are fewer.
    FileRange Take(qint64 count)
    {
        FileRange taken = *this;
        if (Has(count))
            taken.m_end = m_begin + count;
        m_begin = taken.m_end;
        return taken;
    }

    /// The first four bytes as a number, most significant byte first; there must be so many.
    quint32 Word() const { return qFromBigEndian<quint32>(m_data + m_begin); }

    /// The same, and cuts them off.
    quint32 TakeWord()
    {
        const quint32 word = Word();
        m_begin += qint64(sizeof word);
        return word;
    }

    quint8 At(qint64 index) const { return static_cast<quint8>(m_data[m_begin + index]); }

    /// The bytes themselves, not a copy.
    QByteArray Bytes() const { return QByteArray::fromRawData(m_data + m_begin, Count()); }

    QString Utf8() const { return QString::fromUtf8(m_data + m_begin, Count()); }

    /// UTF-16 with the most significant byte first; an odd last byte is left out.
    QString Utf16() const
    {
        const auto count = Count() / int(sizeof(QChar));
        if (count == 0)
            return QString();
        QString text(count, Qt::Uninitialized);
        qFromBigEndian<quint16>(m_data + m_begin, count, text.data());
        return text;
    }

private:
    using ByteCount = decltype(QByteArray().size()); ///< `int` in Qt 5, `qsizetype` in Qt 6

    ByteCount Count() const { return static_cast<ByteCount>(Size()); }

    const char* m_data = nullptr;
    qint64 m_begin = 0;
    qint64 m_end = 0;
};

} // namespace ReportCore

#endif
