#include "peers/peers.h"
#include "suite.h"

#include <report.pb.h>

namespace Bench {

namespace {

proto::Report Fill(const PlainReport& plain)
{
    proto::Report report;
    report.mutable_frequency()->set_value(plain.frequency);
    report.mutable_frequency()->set_min(plain.frequencyMin);
    report.mutable_frequency()->set_max(plain.frequencyMax);
    report.mutable_frequency()->set_use(plain.frequencyUse);
    report.mutable_bandwidth()->set_value(plain.bandwidth);
    report.mutable_bandwidth()->set_min(plain.bandwidthMin);
    if (!plain.HasArea())
        return report;

    report.mutable_area()->set_name(plain.areaName.toStdString());
    for (const Point& point : plain.points) {
        proto::Coordinate* const coordinate = report.mutable_area()->add_coordinates();
        coordinate->set_longitude(point.longitude);
        coordinate->set_latitude(point.latitude);
    }
    return report;
}

PlainReport Values(const proto::Report& report)
{
    PlainReport plain;
    plain.frequency = report.frequency().value();
    plain.frequencyMin = report.frequency().min();
    plain.frequencyMax = report.frequency().max();
    plain.frequencyUse = report.frequency().use();
    plain.bandwidth = report.bandwidth().value();
    plain.bandwidthMin = report.bandwidth().min();
    plain.areaName = QString::fromStdString(report.area().name());
    for (const proto::Coordinate& coordinate : report.area().coordinates())
        plain.points.append({coordinate.longitude(), coordinate.latitude()});
    return plain;
}

} // namespace

void AddProtobuf(Suite& suite)
{
    suite.AddForm(
        "protobuf", Contender<proto::Report>{"protobuf", Fill, Values},
        [](const proto::Report& report) { return report.SerializeAsString(); },
        [](const std::string& bytes) {
            proto::Report report;
            report.ParseFromString(bytes);
            return report;
        });
}

} // namespace Bench
