#include "floor.h"
#include "floorbuffers.h"
#include "floorbytes.h"

namespace Bench::Floor {

namespace {

char* PutRaw(char* out, const PlainReport& report)
{
    out = Put(out, report.HasArea() ? RAW_WITH_AREA : RAW_FREQUENCY_AND_BANDWIDTH);
    out = Put(out, RAW_FREQUENCY);
    for (const double number : {report.frequency, report.frequencyMin, report.frequencyMax})
        out = PutDouble(out, number);
    *out++ = report.frequencyUse ? 1 : 0;
    out = Put(out, RAW_BANDWIDTH);
    for (const double number : {report.bandwidth, report.bandwidthMin})
        out = PutDouble(out, number);
    if (!report.HasArea())
        return out;

    out = Put(out, RAW_AREA);
    out = PutText(out, QStringLiteral("1.0"));
    out = PutText(out, report.areaName);
    out = PutSize(out, report.points.size());
    for (const Point& point : report.points) {
        out = Put(out, RAW_COORDINATE);
        out = PutDouble(out, point.longitude);
        out = PutDouble(out, point.latitude);
    }
    return out;
}

} // namespace

QByteArray Raw(const PlainReport& report)
{
    return Filled(report, PutRaw);
}

PlainReport FromRaw(const QByteArray& bytes)
{
    PlainReport report;
    const char* in = bytes.constData();
    const auto flags = Take<quint8>(in);
    in += sizeof(RAW_FREQUENCY);
    for (double* const number : {&report.frequency, &report.frequencyMin, &report.frequencyMax})
        *number = TakeDouble(in);
    report.frequencyUse = *in++ != 0;
    in += sizeof(RAW_BANDWIDTH);
    for (double* const number : {&report.bandwidth, &report.bandwidthMin})
        *number = TakeDouble(in);
    if (flags != RAW_WITH_AREA)
        return report;

    in += sizeof(RAW_AREA);
    in += Take<qint32>(in); // the version
    report.areaName = TakeText(in);
    report.points.resize(Take<qint32>(in));
    for (Point& point : report.points) {
        in += sizeof(RAW_COORDINATE);
        point.longitude = TakeDouble(in);
        point.latitude = TakeDouble(in);
    }
    return report;
}

} // namespace Bench::Floor
