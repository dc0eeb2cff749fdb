#ifndef REPORTCORE_BYTERANGE_H
#define REPORTCORE_BYTERANGE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportCore {

/// A part of a byte array that is taken from its front. It never gives more than it has, whatever a number in
/// the data claims. The array must outlive it.
class ByteRange
{
public:
    ByteRange() = default;
    explicit ByteRange(const QByteArray& bytes);

    /// Of the first byte, counted from the start of the array.
    qint64 Offset() const { return m_begin; }
    qint64 Size() const { return m_end - m_begin; }
    bool IsEmpty() const { return m_begin == m_end; }

    /// Whether there are so many bytes; there is never a negative number of them.
    bool Has(qint64 count) const { return count >= 0 && count <= Size(); }

    /// Cuts off and returns the first `count` bytes, or all that there are, if there are fewer.
    ByteRange Take(qint64 count);

    /// The first four bytes as a number, most significant byte first; there must be so many.
    quint32 Word() const;

    quint8 At(qint64 index) const { return static_cast<quint8>(m_data[m_begin + index]); }

    /// The bytes themselves, not a copy.
    QByteArray Bytes() const;

    QString Utf8() const;

    /// UTF-16 with the most significant byte first; an odd last byte is left out.
    QString Utf16() const;

private:
    const char* m_data = nullptr;
    qint64 m_begin = 0;
    qint64 m_end = 0;
};

} // namespace ReportCore

#endif
