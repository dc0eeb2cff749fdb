#include <reportcore/importing/importing.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

namespace ReportCore {

namespace {

/// Only placemarks count, wherever they stand; of their elements those that a report has a place for.
class KmlReader
{
public:
    explicit KmlReader(const QByteArray& bytes) : m_xml(bytes) {}

    ImportedFeatures Read()
    {
        bool isKml = false;
        while (!m_xml.atEnd()) {
            if (m_xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            isKml = isKml || m_xml.name() == QLatin1String("kml");
            if (m_xml.name() == QLatin1String("Placemark"))
                ReadPlacemark();
        }
        if (m_xml.hasError())
            throw ImportError{
                QStringLiteral("not XML: line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString())};
        if (!isKml && m_features.empty())
            throw ImportError{QStringLiteral("not KML: neither a kml element nor a placemark")};
        return std::move(m_features);
    }

private:
    void ReadPlacemark()
    {
        m_features.emplace_back();
        ImportedFeature& feature = m_features.back();
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("name"))
                feature.name = m_xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
            else if (m_xml.name() == QLatin1String("ExtendedData"))
                ReadData(feature);
            else
                ReadGeometry(feature);
        }
    }

    void ReadData(ImportedFeature& feature)
    {
        while (m_xml.readNextStartElement()) {
            const QString name = m_xml.attributes().value(QLatin1String("name")).toString();
            if (m_xml.name() == QLatin1String("SchemaData"))
                ReadSchemaData(feature);
            else if (m_xml.name() == QLatin1String("SimpleData"))
                feature.properties.emplace_back(name, m_xml.readElementText());
            else if (m_xml.name() == QLatin1String("Data"))
                feature.properties.emplace_back(name, ReadDataValue());
            else
                m_xml.skipCurrentElement();
        }
    }

    /// Nothing but values of its own counts there: whatever else it holds may hold more of the kind without end.
    void ReadSchemaData(ImportedFeature& feature)
    {
        while (m_xml.readNextStartElement()) {
            const QString name = m_xml.attributes().value(QLatin1String("name")).toString();
            if (m_xml.name() == QLatin1String("SimpleData"))
                feature.properties.emplace_back(name, m_xml.readElementText());
            else
                m_xml.skipCurrentElement();
        }
    }

    QVariant ReadDataValue()
    {
        QVariant value;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("value"))
                value = m_xml.readElementText();
            else
                m_xml.skipCurrentElement();
        }
        return value;
    }

    /// Any other element of a placemark or of a geometry that is made of several.
    void ReadGeometry(ImportedFeature& feature)
    {
        if (m_xml.name() == QLatin1String("MultiGeometry")) {
            if (++m_depth > DEEPEST)
                throw ImportError{QStringLiteral("geometries within geometries without end")};
            while (m_xml.readNextStartElement())
                ReadGeometry(feature);
            --m_depth;
        } else if (m_xml.name() == QLatin1String("Polygon")) {
            ReadPolygon(feature);
        } else if (m_xml.name() == QLatin1String("Point") || m_xml.name() == QLatin1String("LineString") ||
                   m_xml.name() == QLatin1String("LinearRing")) {
            feature.parts.push_back(ReadCoordinates());
        } else {
            if (IsOtherGeometry())
                feature.parts.push_back(
                    {{}, QStringLiteral("an area is one outline, not a %1").arg(m_xml.name().toString())});
            m_xml.skipCurrentElement();
        }
    }

    bool IsOtherGeometry() const
    {
        const auto name = m_xml.name();
        return name == QLatin1String("Track") || name == QLatin1String("MultiTrack") ||
               name == QLatin1String("Model");
    }

    void ReadPolygon(ImportedFeature& feature)
    {
        bool hasHoles = false;
        const std::size_t first = feature.parts.size();
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("outerBoundaryIs")) {
                while (m_xml.readNextStartElement())
                    feature.parts.push_back(ReadCoordinates());
                continue;
            }
            hasHoles = hasHoles || m_xml.name() == QLatin1String("innerBoundaryIs");
            m_xml.skipCurrentElement();
        }
        if (!hasHoles)
            return;
        if (feature.parts.size() == first)
            feature.parts.emplace_back();
        for (std::size_t i = first; i < feature.parts.size(); ++i)
            feature.parts[i].hindrance = QStringLiteral("an area has no holes");
    }

    ImportedPart ReadCoordinates()
    {
        ImportedPart part;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() != QLatin1String("coordinates")) {
                m_xml.skipCurrentElement();
                continue;
            }
            const QStringList positions =
                m_xml.readElementText().simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
            for (const QString& position : positions)
                TakePosition(position, part);
        }
        return part;
    }

    /// Behind longitude and latitude there may be a height, which no report has.
    static void TakePosition(const QString& position, ImportedPart& part)
    {
        const QStringList numbers = position.split(QLatin1Char(','));
        bool isLongitude = false;
        bool isLatitude = false;
        const Point point{numbers.at(0).toDouble(&isLongitude), numbers.value(1).toDouble(&isLatitude)};
        if (isLongitude && isLatitude)
            part.points.push_back(point);
        else if (part.hindrance.isEmpty())
            part.hindrance =
                QStringLiteral("a position is longitude,latitude and not %1").arg(Quoted(position));
    }

    static constexpr int DEEPEST = 100;

    QXmlStreamReader m_xml;
    ImportedFeatures m_features;
    int m_depth = 0;
};

} // namespace

ImportedFeatures ReadKml(const ImportInput& input)
{
    return KmlReader(input.bytes).Read();
}

} // namespace ReportCore
