#include <reportcore/inspect/filerange.h>

#include <QtCore/QtEndian>

namespace ReportCore {

namespace {

/// Qt 5 counts bytes as `int`, Qt 6 as `qsizetype`.
using ByteCount = decltype(QByteArray().size());

constexpr qint64 UTF16_UNIT = 2;

} // namespace

FileRange::FileRange(const QByteArray& bytes) : m_data(bytes.constData()), m_end(bytes.size()) {}

QByteArray FileRange::Bytes() const
{
    return QByteArray::fromRawData(m_data + m_begin, static_cast<ByteCount>(Size()));
}

QString FileRange::Utf8() const
{
    return QString::fromUtf8(m_data + m_begin, static_cast<ByteCount>(Size()));
}

QString FileRange::Utf16() const
{
    const auto count = static_cast<ByteCount>(Size() / UTF16_UNIT);
    if (count == 0)
        return QString();
    QString text(count, Qt::Uninitialized);
    qFromBigEndian<quint16>(m_data + m_begin, count, text.data());
    return text;
}

} // namespace ReportCore
