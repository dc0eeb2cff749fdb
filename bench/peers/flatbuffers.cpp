#include "peers/peers.h"
#include "suite.h"

#include <report_generated.h>

#include <utility>

namespace Bench {

namespace {

/// A type of our own around what is written, so that the suite finds its BytesOf().
struct Buffer
{
    flatbuffers::DetachedBuffer bytes;
};

QByteArray BytesOf(const Buffer& buffer)
{
    return QByteArray(reinterpret_cast<const char*>(buffer.bytes.data()),
                      static_cast<int>(buffer.bytes.size()));
}

flat::ReportT Fill(const PlainReport& plain)
{
    flat::ReportT report;
    report.frequency = std::make_unique<flat::Frequency>(plain.frequency, plain.frequencyMin,
                                                         plain.frequencyMax, plain.frequencyUse);
    report.bandwidth = std::make_unique<flat::Bandwidth>(plain.bandwidth, plain.bandwidthMin);
    if (!plain.HasArea())
        return report;

    report.area = std::make_unique<flat::AreaT>();
    report.area->name = plain.areaName.toStdString();
    for (const Point& point : plain.points)
        report.area->coordinates.emplace_back(point.longitude, point.latitude);
    return report;
}

PlainReport Values(const flat::ReportT& report)
{
    PlainReport plain;
    plain.frequency = report.frequency->value();
    plain.frequencyMin = report.frequency->min();
    plain.frequencyMax = report.frequency->max();
    plain.frequencyUse = report.frequency->use();
    plain.bandwidth = report.bandwidth->value();
    plain.bandwidthMin = report.bandwidth->min();
    if (report.area == nullptr)
        return plain;

    plain.areaName = QString::fromStdString(report.area->name);
    for (const flat::Coordinate& coordinate : report.area->coordinates)
        plain.points.append({coordinate.longitude(), coordinate.latitude()});
    return plain;
}

Buffer Write(const flat::ReportT& report)
{
    flatbuffers::FlatBufferBuilder builder;
    builder.Finish(flat::Report::Pack(builder, &report));
    return {builder.Release()};
}

/// Verifies the buffer first, as all others look at what they read.
flat::ReportT Read(const Buffer& buffer)
{
    flat::ReportT report;
    flatbuffers::Verifier verifier(buffer.bytes.data(), buffer.bytes.size());
    if (flat::VerifyReportBuffer(verifier))
        flat::GetReport(buffer.bytes.data())->UnPackTo(&report);
    return report;
}

} // namespace

void AddFlatBuffers(Suite& suite)
{
    suite.AddForm("flatbuffers", Contender<flat::ReportT>{"flatbuffers", Fill, Values}, Write, Read);
}

} // namespace Bench
