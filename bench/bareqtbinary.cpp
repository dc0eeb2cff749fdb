#include "bareqt.h"
#include "peerwire.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

namespace Bench::BareQt {

namespace {

// --- Writing

/// Room for a length that is filled in when what it counts has been written. Returns where that begins.
qint64 BeginLength(QDataStream& stream)
{
    stream << qint32(0);
    return stream.device()->pos();
}

void EndLength(QDataStream& stream, qint64 begin)
{
    QIODevice* const device = stream.device();
    const qint64 end = device->pos();
    device->seek(begin - SIZE_BYTES);
    stream << static_cast<qint32>(end - begin);
    device->seek(end);
}

void WriteBytes(QDataStream& stream, qint32 tag, const QByteArray& bytes)
{
    stream << tag << static_cast<qint32>(SIZE_BYTES + bytes.size()) << bytes;
}

void WriteValue(QDataStream& stream, qint32 tag, double value)
{
    WriteBytes(stream, tag, QByteArray::number(value, 'f', VALUE_DECIMALS));
}

void WriteFrequency(QDataStream& stream, const PlainReport& report)
{
    stream << FREQUENCY_TAG;
    const qint64 begin = BeginLength(stream);
    WriteValue(stream, MIN_TAG, report.frequencyMin);
    WriteValue(stream, MAX_TAG, report.frequencyMax);
    stream << USE_TAG << qint32(1) << report.frequencyUse;
    WriteValue(stream, VALUE_TAG, report.frequency);
    EndLength(stream, begin);
}

void WriteBandwidth(QDataStream& stream, const PlainReport& report)
{
    stream << IF_BANDWIDTH_TAG;
    const qint64 begin = BeginLength(stream);
    WriteValue(stream, MIN_TAG, report.bandwidthMin);
    WriteValue(stream, VALUE_TAG, report.bandwidth);
    EndLength(stream, begin);
}

void WriteCoordinate(QDataStream& stream, const Point& point)
{
    const QByteArray longitude = QByteArray::number(point.longitude, 'f', COORDINATE_DECIMALS);
    const QByteArray latitude = QByteArray::number(point.latitude, 'f', COORDINATE_DECIMALS);
    const int aroundText = 3 * SIZE_BYTES; // tag, length, number of bytes
    stream << static_cast<qint32>(2 * aroundText + longitude.size() + latitude.size());
    WriteBytes(stream, LONGITUDE_TAG, longitude);
    WriteBytes(stream, LATITUDE_TAG, latitude);
}

void WriteArea(QDataStream& stream, const PlainReport& report)
{
    stream << AREA_TAG;
    const qint64 begin = BeginLength(stream);

    stream << VERSION_TAG;
    const qint64 beginVersion = BeginLength(stream);
    stream << QStringLiteral("1.0");
    EndLength(stream, beginVersion);

    WriteBytes(stream, NAME_TAG, report.areaName.toUtf8());

    stream << COORDINATES_TAG;
    const qint64 beginCoordinates = BeginLength(stream);
    stream << static_cast<qint32>(report.points.size());
    for (const Point& point : report.points)
        WriteCoordinate(stream, point);
    EndLength(stream, beginCoordinates);

    EndLength(stream, begin);
}

// --- Reading

QByteArray ReadBytes(QDataStream& stream)
{
    QByteArray bytes;
    stream >> bytes;
    return bytes;
}

double ReadNumber(QDataStream& stream)
{
    return ReadBytes(stream).toDouble();
}

/// Reads the elements of `length` bytes; `field` reads one of a tag and length.
template <class Field>
void ReadElements(QDataStream& stream, qint32 length, Field field)
{
    while (length > 0 && stream.status() == QDataStream::Ok) {
        qint32 tag = 0;
        qint32 elementLength = 0;
        stream >> tag >> elementLength;
        field(tag, elementLength);
        length -= 2 * SIZE_BYTES + elementLength;
    }
}

void ReadFrequency(QDataStream& stream, qint32 length, PlainReport& report)
{
    ReadElements(stream, length, [&](qint32 tag, qint32 elementLength) {
        if (tag == MIN_TAG)
            report.frequencyMin = ReadNumber(stream);
        else if (tag == MAX_TAG)
            report.frequencyMax = ReadNumber(stream);
        else if (tag == USE_TAG)
            stream >> report.frequencyUse;
        else if (tag == VALUE_TAG)
            report.frequency = ReadNumber(stream);
        else
            stream.skipRawData(elementLength);
    });
}

void ReadBandwidth(QDataStream& stream, qint32 length, PlainReport& report)
{
    ReadElements(stream, length, [&](qint32 tag, qint32 elementLength) {
        if (tag == MIN_TAG)
            report.bandwidthMin = ReadNumber(stream);
        else if (tag == VALUE_TAG)
            report.bandwidth = ReadNumber(stream);
        else
            stream.skipRawData(elementLength);
    });
}

Point ReadCoordinate(QDataStream& stream)
{
    Point point;
    qint32 length = 0;
    stream >> length;
    ReadElements(stream, length, [&](qint32 tag, qint32 elementLength) {
        if (tag == LONGITUDE_TAG)
            point.longitude = ReadNumber(stream);
        else if (tag == LATITUDE_TAG)
            point.latitude = ReadNumber(stream);
        else
            stream.skipRawData(elementLength);
    });
    return point;
}

void ReadCoordinates(QDataStream& stream, QVector<Point>& points)
{
    qint32 count = 0;
    stream >> count;
    points.reserve(count);
    for (qint32 i = 0; i < count; ++i)
        points.append(ReadCoordinate(stream));
}

void ReadArea(QDataStream& stream, qint32 length, PlainReport& report)
{
    ReadElements(stream, length, [&](qint32 tag, qint32 elementLength) {
        if (tag == NAME_TAG)
            report.areaName = QString::fromUtf8(ReadBytes(stream));
        else if (tag == COORDINATES_TAG)
            ReadCoordinates(stream, report.points);
        else
            stream.skipRawData(elementLength);
    });
}

void ReadMarkerAndName(QDataStream& stream)
{
    QString marker;
    QString name;
    stream >> marker >> name;
}

} // namespace

void WriteTagged(QDataStream& stream, const PlainReport& report)
{
    stream << ROOT_TAG;
    const qint64 begin = BeginLength(stream);
    WriteFrequency(stream, report);
    WriteBandwidth(stream, report);
    if (report.HasArea())
        WriteArea(stream, report);
    EndLength(stream, begin);
}

PlainReport ReadTagged(QDataStream& stream)
{
    PlainReport report;
    qint32 rootTag = 0;
    qint32 length = 0;
    stream >> rootTag >> length;
    ReadElements(stream, length, [&](qint32 tag, qint32 elementLength) {
        if (tag == FREQUENCY_TAG)
            ReadFrequency(stream, elementLength, report);
        else if (tag == IF_BANDWIDTH_TAG)
            ReadBandwidth(stream, elementLength, report);
        else if (tag == AREA_TAG)
            ReadArea(stream, elementLength, report);
        else
            stream.skipRawData(elementLength);
    });
    return report;
}

void WritePlain(QDataStream& stream, const PlainReport& report)
{
    stream << QStringLiteral("IRGObject") << QStringLiteral("ReportBase");
    WriteTagged(stream, report);
}

PlainReport ReadPlain(QDataStream& stream)
{
    ReadMarkerAndName(stream);
    return ReadTagged(stream);
}

void WriteCompressed(QDataStream& stream, const PlainReport& report, int level)
{
    QByteArray body;
    QDataStream bodyStream(&body, QIODevice::WriteOnly);
    bodyStream.setVersion(QDataStream::Qt_4_6);
    WriteTagged(bodyStream, report);
    stream << QStringLiteral("IRGObjectQCompress") << QStringLiteral("ReportBase") << qCompress(body, level);
}

PlainReport ReadCompressed(QDataStream& stream)
{
    ReadMarkerAndName(stream);
    const QByteArray body = qUncompress(ReadBytes(stream));
    QDataStream bodyStream(body);
    bodyStream.setVersion(QDataStream::Qt_4_6);
    return ReadTagged(bodyStream);
}

// --- Raw form

void WriteRaw(QDataStream& stream, const PlainReport& report)
{
    stream << (report.HasArea() ? RAW_WITH_AREA : RAW_FREQUENCY_AND_BANDWIDTH);
    stream << RAW_FREQUENCY << report.frequency << report.frequencyMin << report.frequencyMax
           << report.frequencyUse;
    stream << RAW_BANDWIDTH << report.bandwidth << report.bandwidthMin;
    if (!report.HasArea())
        return;

    stream << RAW_AREA << QStringLiteral("1.0") << report.areaName
           << static_cast<qint32>(report.points.size());
    for (const Point& point : report.points)
        stream << RAW_COORDINATE << point.longitude << point.latitude;
}

PlainReport ReadRaw(QDataStream& stream)
{
    PlainReport report;
    quint8 flags = 0;
    quint8 memberFlags = 0;
    stream >> flags;
    stream >> memberFlags >> report.frequency >> report.frequencyMin >> report.frequencyMax >>
        report.frequencyUse;
    stream >> memberFlags >> report.bandwidth >> report.bandwidthMin;
    if (flags != RAW_WITH_AREA)
        return report;

    QString version;
    qint32 count = 0;
    stream >> memberFlags >> version >> report.areaName >> count;
    report.points.reserve(count);
    for (qint32 i = 0; i < count; ++i) {
        Point point;
        stream >> memberFlags >> point.longitude >> point.latitude;
        report.points.append(point);
    }
    return report;
}

} // namespace Bench::BareQt
