#include "bareqt.h"
#include "peerwire.h"

#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

namespace Bench::BareQt {

namespace {

QString ValueText(double value)
{
    return QString::number(value, 'f', VALUE_DECIMALS);
}

QString CoordinateText(double value)
{
    return QString::number(value, 'f', COORDINATE_DECIMALS);
}

void WriteFrequency(QXmlStreamWriter& writer, const PlainReport& report)
{
    writer.writeStartElement(QStringLiteral("Frequency"));
    writer.writeAttribute(QStringLiteral("Min"), ValueText(report.frequencyMin));
    writer.writeAttribute(QStringLiteral("Max"), ValueText(report.frequencyMax));
    writer.writeAttribute(QStringLiteral("Use"),
                          report.frequencyUse ? QStringLiteral("true") : QStringLiteral("false"));
    writer.writeCharacters(ValueText(report.frequency));
    writer.writeEndElement();
}

void WriteBandwidth(QXmlStreamWriter& writer, const PlainReport& report)
{
    writer.writeStartElement(QStringLiteral("IFBandwidth"));
    writer.writeAttribute(QStringLiteral("Min"), ValueText(report.bandwidthMin));
    writer.writeCharacters(ValueText(report.bandwidth));
    writer.writeEndElement();
}

void WriteArea(QXmlStreamWriter& writer, const PlainReport& report)
{
    writer.writeStartElement(QStringLiteral("Area"));
    writer.writeAttribute(QStringLiteral("Version"), QStringLiteral("1.0"));
    writer.writeTextElement(QStringLiteral("Name"), report.areaName);
    for (const Point& point : report.points) {
        writer.writeStartElement(QStringLiteral("Coordinate"));
        writer.writeTextElement(QStringLiteral("Longitude"), CoordinateText(point.longitude));
        writer.writeTextElement(QStringLiteral("Latitude"), CoordinateText(point.latitude));
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void ReadFrequency(QXmlStreamReader& reader, PlainReport& report)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    report.frequencyMin = attributes.value(QLatin1String("Min")).toDouble();
    report.frequencyMax = attributes.value(QLatin1String("Max")).toDouble();
    report.frequencyUse = attributes.value(QLatin1String("Use")) == QLatin1String("true");
    report.frequency = reader.readElementText().toDouble();
}

void ReadBandwidth(QXmlStreamReader& reader, PlainReport& report)
{
    report.bandwidthMin = reader.attributes().value(QLatin1String("Min")).toDouble();
    report.bandwidth = reader.readElementText().toDouble();
}

Point ReadCoordinate(QXmlStreamReader& reader)
{
    Point point;
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Longitude"))
            point.longitude = reader.readElementText().toDouble();
        else if (reader.name() == QLatin1String("Latitude"))
            point.latitude = reader.readElementText().toDouble();
        else
            reader.skipCurrentElement();
    }
    return point;
}

void ReadArea(QXmlStreamReader& reader, PlainReport& report)
{
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Coordinate"))
            report.points.append(ReadCoordinate(reader));
        else if (reader.name() == QLatin1String("Name"))
            report.areaName = reader.readElementText();
        else
            reader.skipCurrentElement();
    }
}

} // namespace

void WriteXml(QXmlStreamWriter& writer, const PlainReport& report)
{
    writer.setAutoFormatting(true);
    writer.writeStartElement(QStringLiteral("ReportBase"));
    WriteFrequency(writer, report);
    WriteBandwidth(writer, report);
    if (report.HasArea())
        WriteArea(writer, report);
    writer.writeEndElement();
}

PlainReport ReadXml(QXmlStreamReader& reader)
{
    PlainReport report;
    reader.readNextStartElement();
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Frequency"))
            ReadFrequency(reader, report);
        else if (reader.name() == QLatin1String("IFBandwidth"))
            ReadBandwidth(reader, report);
        else if (reader.name() == QLatin1String("Area"))
            ReadArea(reader, report);
        else
            reader.skipCurrentElement();
    }
    return report;
}

} // namespace Bench::BareQt
