#include <reportcore/importing/importing.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QXmlStreamReader>

namespace ReportCore {

namespace {

/// Of what a waypoint, a route or a track holds, the name and the points count.
class GpxReader
{
public:
    explicit GpxReader(const QByteArray& bytes) : m_xml(bytes) {}

    ImportedFeatures Read()
    {
        if (m_xml.readNextStartElement() && m_xml.name() != QLatin1String("gpx"))
            throw ImportError{QStringLiteral("not GPX: no gpx element")};
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("wpt"))
                ReadWaypoint();
            else if (m_xml.name() == QLatin1String("rte"))
                ReadRoute();
            else if (m_xml.name() == QLatin1String("trk"))
                ReadTrack();
            else
                m_xml.skipCurrentElement();
        }
        while (!m_xml.atEnd())
            m_xml.readNext();
        if (m_xml.hasError())
            throw ImportError{
                QStringLiteral("not XML: line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString())};
        return std::move(m_features);
    }

private:
    void ReadWaypoint()
    {
        ImportedFeature feature;
        feature.parts.emplace_back();
        TakePoint(feature.parts.back());
        while (m_xml.readNextStartElement())
            TakeName(feature);
        m_features.push_back(std::move(feature));
    }

    void ReadRoute()
    {
        ImportedFeature feature;
        ImportedPart part;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("rtept"))
                ReadPoint(part);
            else
                TakeName(feature);
        }
        AddPart(part, feature);
        m_features.push_back(std::move(feature));
    }

    void ReadTrack()
    {
        ImportedFeature feature;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("trkseg"))
                ReadSegment(feature);
            else
                TakeName(feature);
        }
        m_features.push_back(std::move(feature));
    }

    void ReadSegment(ImportedFeature& feature)
    {
        ImportedPart part;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("trkpt"))
                ReadPoint(part);
            else
                m_xml.skipCurrentElement();
        }
        AddPart(part, feature);
    }

    /// Devices write segments and routes without points too.
    static void AddPart(const ImportedPart& part, ImportedFeature& feature)
    {
        if (!part.points.empty() || !part.hindrance.isEmpty())
            feature.parts.push_back(part);
    }

    /// Takes the element, if it is the name, or passes it over.
    void TakeName(ImportedFeature& feature)
    {
        if (m_xml.name() == QLatin1String("name"))
            feature.name = m_xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        else
            m_xml.skipCurrentElement();
    }

    void ReadPoint(ImportedPart& part)
    {
        TakePoint(part);
        m_xml.skipCurrentElement();
    }

    /// The attributes of the element.
    void TakePoint(ImportedPart& part)
    {
        const QString longitude = m_xml.attributes().value(QLatin1String("lon")).toString();
        const QString latitude = m_xml.attributes().value(QLatin1String("lat")).toString();
        bool isLongitude = false;
        bool isLatitude = false;
        const Point point{longitude.toDouble(&isLongitude), latitude.toDouble(&isLatitude)};
        if (isLongitude && isLatitude)
            part.points.push_back(point);
        else if (part.hindrance.isEmpty())
            part.hindrance =
                QStringLiteral("line %1: a point has lon and lat and not %2 and %3")
                    .arg(QString::number(m_xml.lineNumber()), Quoted(longitude), Quoted(latitude));
    }

    QXmlStreamReader m_xml;
    ImportedFeatures m_features;
};

} // namespace

ImportedFeatures ReadGpx(const ImportInput& input)
{
    return GpxReader(input.bytes).Read();
}

} // namespace ReportCore
