#include <reportgenerator/reportbase/codec/compression.h>

#include <reportgenerator/reportbase/codec/limits.h>
#include <reportgenerator/reportbase/codec/wireformat.h>

#include <QtCore/QtEndian>

#include <algorithm>
#include <new>

namespace REPORTGENERATOR::compression {

namespace {

constexpr int PREFIX_SIZE = 4;

/// What zlib needs for itself.
constexpr qint64 UNPACKER_SIZE = 65536;

/// Of data that claim to hold so many bytes.
QByteArray UncompressClaimed(const QByteArray& data, qint64 claimed)
{
    QByteArray bytes = qUncompress(data);
    if (!bytes.isEmpty())
        return bytes;
    // Nothing comes of damaged data, but also for want of memory. Then there is none here either, or there is again.
    static_cast<void>(QByteArray(static_cast<int>(std::max(claimed, UNPACKER_SIZE)), Qt::Uninitialized));
    return qUncompress(data);
}

} // namespace

QByteArray Compress(const QByteArray& data, int level)
{
    QByteArray compressed = qCompress(data, level);
    // Also of no bytes there is something.
    if (compressed.isEmpty())
        throw std::bad_alloc();
    return compressed;
}

QByteArray Uncompress(const QByteArray& data)
{
    if (data.size() <= PREFIX_SIZE)
        return QByteArray();
    const qint64 claimed = qFromBigEndian<quint32>(data.constData());
    if (claimed > limits::MAX_BYTE_ARRAY)
        return QByteArray();
    const qint64 possible = qint64(data.size()) * wire::MAX_INFLATION + limits::INFLATION_SLACK;
    if (claimed <= possible)
        return UncompressClaimed(data, claimed);
    // qUncompress grows its buffer when the prefix is too small, so a smaller claim gives the same result.
    QByteArray honest = data;
    qToBigEndian(static_cast<quint32>(possible), honest.data());
    return UncompressClaimed(honest, possible);
}

} // namespace REPORTGENERATOR::compression
