#include "peers/peers.h"
#include "suite.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborMap>
#include <QtCore/QCborValue>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace Bench {

namespace {

// JSON and CBOR hold the same; their classes differ in names, and in how a number is taken out.

template <class Map, class Array>
Map ToMap(const PlainReport& report)
{
    Map frequency;
    frequency.insert(QLatin1String("Value"), report.frequency);
    frequency.insert(QLatin1String("Min"), report.frequencyMin);
    frequency.insert(QLatin1String("Max"), report.frequencyMax);
    frequency.insert(QLatin1String("Use"), report.frequencyUse);

    Map bandwidth;
    bandwidth.insert(QLatin1String("Value"), report.bandwidth);
    bandwidth.insert(QLatin1String("Min"), report.bandwidthMin);

    Map root;
    root.insert(QLatin1String("Frequency"), frequency);
    root.insert(QLatin1String("IFBandwidth"), bandwidth);
    if (!report.HasArea())
        return root;

    Array coordinates;
    for (const Point& point : report.points) {
        Map coordinate;
        coordinate.insert(QLatin1String("Longitude"), point.longitude);
        coordinate.insert(QLatin1String("Latitude"), point.latitude);
        coordinates.append(coordinate);
    }
    Map area;
    area.insert(QLatin1String("Name"), report.areaName);
    area.insert(QLatin1String("Coordinates"), coordinates);
    root.insert(QLatin1String("Area"), area);
    return root;
}

template <class Map>
PlainReport FromMap(const Map& root)
{
    PlainReport report;
    const auto frequency = root.value(QLatin1String("Frequency"));
    report.frequency = frequency[QLatin1String("Value")].toDouble();
    report.frequencyMin = frequency[QLatin1String("Min")].toDouble();
    report.frequencyMax = frequency[QLatin1String("Max")].toDouble();
    report.frequencyUse = frequency[QLatin1String("Use")].toBool();

    const auto bandwidth = root.value(QLatin1String("IFBandwidth"));
    report.bandwidth = bandwidth[QLatin1String("Value")].toDouble();
    report.bandwidthMin = bandwidth[QLatin1String("Min")].toDouble();

    const auto area = root.value(QLatin1String("Area"));
    report.areaName = area[QLatin1String("Name")].toString();
    const auto coordinates = area[QLatin1String("Coordinates")].toArray();
    report.points.reserve(static_cast<int>(coordinates.size()));
    for (const auto& coordinate : coordinates)
        report.points.append({coordinate[QLatin1String("Longitude")].toDouble(),
                              coordinate[QLatin1String("Latitude")].toDouble()});
    return report;
}

} // namespace

void AddQtFormats(Suite& suite)
{
    suite.AddForm(
        "qjson", Contender<PlainReport>{"qjson", Itself, Itself},
        [](const PlainReport& report) {
            return QJsonDocument(ToMap<QJsonObject, QJsonArray>(report)).toJson(QJsonDocument::Compact);
        },
        [](const QByteArray& text) { return FromMap(QJsonDocument::fromJson(text).object()); });

    suite.AddForm(
        "qcbor", Contender<PlainReport>{"qcbor", Itself, Itself},
        [](const PlainReport& report) { return ToMap<QCborMap, QCborArray>(report).toCborValue().toCbor(); },
        [](const QByteArray& bytes) { return FromMap(QCborValue::fromCbor(bytes).toMap()); });
}

} // namespace Bench
