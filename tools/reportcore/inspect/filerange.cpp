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
    QString text;
    for (qint64 i = m_begin; m_end - i >= UTF16_UNIT; i += UTF16_UNIT)
        text += QChar(qFromBigEndian<quint16>(m_data + i));
    return text;
}

} // namespace ReportCore
