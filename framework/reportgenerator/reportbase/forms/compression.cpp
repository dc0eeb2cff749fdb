#include <reportgenerator/reportbase/forms/compression.h>

#include <reportgenerator/reportbase/forms/limits.h>
#include <reportgenerator/reportbase/forms/wirefacts.h>

#include <QtCore/QtEndian>

namespace REPORTGENERATOR::compression {

namespace {

constexpr int PREFIX_SIZE = 4;

} // namespace

QByteArray Uncompress(const QByteArray& data)
{
    if (data.size() <= PREFIX_SIZE)
        return QByteArray();
    const qint64 claimed = qFromBigEndian<quint32>(data.constData());
    if (claimed > limits::MAX_BYTE_ARRAY)
        return QByteArray();
    const qint64 possible = qint64(data.size()) * wire::MAX_INFLATION + limits::INFLATION_SLACK;
    if (claimed <= possible)
        return qUncompress(data);
    // qUncompress grows its buffer when the prefix is too small, so a smaller claim gives the same result.
    QByteArray honest = data;
    qToBigEndian(static_cast<quint32>(possible), honest.data());
    return qUncompress(honest);
}

} // namespace REPORTGENERATOR::compression
