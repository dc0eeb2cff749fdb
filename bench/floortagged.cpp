#include "floor.h"
#include "floorbuffers.h"
#include "floorbytes.h"
#include "floornumbers.h"

#include <zlib.h>

namespace Bench::Floor {

namespace {

/// A tag and a length; the text of a number.
constexpr int BEFORE_CONTENT = 2 * SIZE_BYTES;

template <int DECIMALS>
char* PutTaggedNumber(char* out, qint32 tag, double number)
{
    char* const text = out + BEFORE_CONTENT + SIZE_BYTES;
    char* const end = PutNumber<DECIMALS>(text, number);
    Put(out, tag);
    PutSize(out + SIZE_BYTES, end - text + SIZE_BYTES);
    PutSize(out + BEFORE_CONTENT, end - text);
    return end;
}

template <int DECIMALS>
double TakeTaggedNumber(const char*& in, qint32 tag)
{
    TakeExactly(in, tag);
    const auto length = Take<qint32>(in);
    TakeExactly(in, length - SIZE_BYTES);
    return TakeNumber<DECIMALS>(in);
}

char* PutFrequency(char* out, const PlainReport& report)
{
    char* const length = Put(out, FREQUENCY_TAG);
    out = PutTaggedNumber<VALUE_DECIMALS>(length + SIZE_BYTES, MIN_TAG, report.frequencyMin);
    out = PutTaggedNumber<VALUE_DECIMALS>(out, MAX_TAG, report.frequencyMax);
    out = Put(out, USE_TAG);
    out = PutSize(out, 1);
    *out++ = report.frequencyUse ? 1 : 0;
    out = PutTaggedNumber<VALUE_DECIMALS>(out, VALUE_TAG, report.frequency);
    PutLength(length, out);
    return out;
}

char* PutBandwidth(char* out, const PlainReport& report)
{
    char* const length = Put(out, IF_BANDWIDTH_TAG);
    out = PutTaggedNumber<VALUE_DECIMALS>(length + SIZE_BYTES, MIN_TAG, report.bandwidthMin);
    out = PutTaggedNumber<VALUE_DECIMALS>(out, VALUE_TAG, report.bandwidth);
    PutLength(length, out);
    return out;
}

char* PutPoint(char* length, const Point& point)
{
    char* out = PutTaggedNumber<COORDINATE_DECIMALS>(length + SIZE_BYTES, LONGITUDE_TAG, point.longitude);
    out = PutTaggedNumber<COORDINATE_DECIMALS>(out, LATITUDE_TAG, point.latitude);
    PutLength(length, out);
    return out;
}

char* PutArea(char* out, const PlainReport& report)
{
    char* const length = Put(out, AREA_TAG);

    char* const versionLength = Put(length + SIZE_BYTES, VERSION_TAG);
    out = PutText(versionLength + SIZE_BYTES, QStringLiteral("1.0"));
    PutLength(versionLength, out);

    char* const nameLength = Put(out, NAME_TAG);
    out = PutBytes(nameLength + SIZE_BYTES, report.areaName.toUtf8());
    PutLength(nameLength, out);

    char* const coordinatesLength = Put(out, COORDINATES_TAG);
    out = PutSize(coordinatesLength + SIZE_BYTES, report.points.size());
    for (const Point& point : report.points)
        out = PutPoint(out, point);
    PutLength(coordinatesLength, out);

    PutLength(length, out);
    return out;
}

char* PutTagged(char* out, const PlainReport& report)
{
    char* const length = Put(out, ROOT_TAG);
    out = PutFrequency(length + SIZE_BYTES, report);
    out = PutBandwidth(out, report);
    if (report.HasArea())
        out = PutArea(out, report);
    PutLength(length, out);
    return out;
}

void TakeFrequency(const char*& in, PlainReport& report)
{
    TakeExactly(in, FREQUENCY_TAG);
    in += SIZE_BYTES;
    report.frequencyMin = TakeTaggedNumber<VALUE_DECIMALS>(in, MIN_TAG);
    report.frequencyMax = TakeTaggedNumber<VALUE_DECIMALS>(in, MAX_TAG);
    TakeExactly(in, USE_TAG);
    TakeExactly(in, 1);
    report.frequencyUse = *in++ != 0;
    report.frequency = TakeTaggedNumber<VALUE_DECIMALS>(in, VALUE_TAG);
}

void TakeBandwidth(const char*& in, PlainReport& report)
{
    TakeExactly(in, IF_BANDWIDTH_TAG);
    in += SIZE_BYTES;
    report.bandwidthMin = TakeTaggedNumber<VALUE_DECIMALS>(in, MIN_TAG);
    report.bandwidth = TakeTaggedNumber<VALUE_DECIMALS>(in, VALUE_TAG);
}

Point TakePoint(const char*& in)
{
    Point point;
    in += SIZE_BYTES;
    point.longitude = TakeTaggedNumber<COORDINATE_DECIMALS>(in, LONGITUDE_TAG);
    point.latitude = TakeTaggedNumber<COORDINATE_DECIMALS>(in, LATITUDE_TAG);
    return point;
}

void TakeArea(const char*& in, PlainReport& report)
{
    TakeExactly(in, AREA_TAG);
    in += SIZE_BYTES;

    TakeExactly(in, VERSION_TAG);
    const auto versionLength = Take<qint32>(in);
    in += versionLength;

    TakeExactly(in, NAME_TAG);
    in += SIZE_BYTES;
    const auto nameBytes = Take<qint32>(in);
    report.areaName = QString::fromUtf8(in, nameBytes);
    in += nameBytes;

    TakeExactly(in, COORDINATES_TAG);
    in += SIZE_BYTES;
    report.points.resize(Take<qint32>(in));
    for (Point& point : report.points)
        point = TakePoint(in);
}

PlainReport TakeTagged(const char* in)
{
    PlainReport report;
    TakeExactly(in, ROOT_TAG);
    const auto length = Take<qint32>(in);
    const char* const end = in + length;
    TakeFrequency(in, report);
    TakeBandwidth(in, report);
    if (in < end)
        TakeArea(in, report);
    return report;
}

char* PutPlain(char* out, const PlainReport& report)
{
    out = PutText(out, QStringLiteral("IRGObject"));
    out = PutText(out, QStringLiteral("ReportBase"));
    return PutTagged(out, report);
}

/// Bytes of marker, name and sizes.
constexpr int MOST_IN_FRONT = 80;

void RequireZlib(int result)
{
    if (result != Z_OK)
        throw std::runtime_error("zlib fails");
}

} // namespace

QByteArray Plain(const PlainReport& report)
{
    return Filled(report, PutPlain);
}

PlainReport FromPlain(const QByteArray& bytes)
{
    return TakeTagged(BehindName(bytes.constData()));
}

QByteArray Tagged(const PlainReport& report)
{
    return Filled(report, PutTagged);
}

PlainReport FromTagged(const QByteArray& bytes)
{
    return TakeTagged(bytes.constData());
}

QByteArray Packed(const QByteArray& tagged, int level)
{
    uLong packedSize = compressBound(static_cast<uLong>(tagged.size()));
    QByteArray bytes(MOST_IN_FRONT + static_cast<int>(packedSize), Qt::Uninitialized);
    char* out = PutText(bytes.data(), QStringLiteral("IRGObjectQCompress"));
    char* const size = PutText(out, QStringLiteral("ReportBase"));
    out = PutSize(size + SIZE_BYTES, tagged.size());
    RequireZlib(compress2(reinterpret_cast<Bytef*>(out), &packedSize,
                          reinterpret_cast<const Bytef*>(tagged.constData()),
                          static_cast<uLong>(tagged.size()), level));
    out += packedSize;
    PutLength(size, out);
    bytes.truncate(static_cast<int>(out - bytes.constData()));
    return bytes;
}

QByteArray Unpacked(const QByteArray& bytes)
{
    const char* in = BehindName(bytes.constData());
    const auto packedSize = static_cast<uLong>(Take<qint32>(in) - SIZE_BYTES);
    QByteArray tagged(Take<qint32>(in), Qt::Uninitialized);
    auto size = static_cast<uLongf>(tagged.size());
    RequireZlib(uncompress(reinterpret_cast<Bytef*>(tagged.data()), &size, reinterpret_cast<const Bytef*>(in),
                           packedSize));
    return tagged;
}

} // namespace Bench::Floor
