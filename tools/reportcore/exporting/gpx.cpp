#include <reportcore/exporting/formats.h>
#include <reportcore/exporting/xmlpieces.h>

#include <reportcore/texts.h>

#include <QtCore/QStringList>

namespace ReportCore {

namespace {

constexpr double EAST_END = 180.0;

/// GPX knows the antimeridian from the east only.
double Longitude(double longitude)
{
    return longitude == EAST_END ? -EAST_END : longitude;
}

/// GPX has a place for texts only.
QString Description(const Feature& feature)
{
    QStringList parts;
    for (std::size_t i = 0; i < feature.values.size(); ++i) {
        if (feature.values[i].isValid())
            parts << PropertyTypes()[i].name + QLatin1Char('=') + PropertyText(feature.values[i]);
    }
    return parts.join(QLatin1String("; "));
}

/// Waypoints stand before all tracks in a document, so these are kept until the end.
class Gpx : public Exporter
{
public:
    QByteArray Begin() override
    {
        m_xml.writeStartDocument();
        m_xml.writeStartElement(QStringLiteral("gpx"));
        m_xml.writeDefaultNamespace(QStringLiteral("http://www.topografix.com/GPX/1/1"));
        m_xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.1"));
        m_xml.writeAttribute(QStringLiteral("creator"), QStringLiteral("reporttool"));
        return m_pieces.Take();
    }

    QByteArray Add(const Feature& feature) override
    {
        const Geometry::Shape shape = GeometryOf(feature.outline).shape;
        if (shape == Geometry::Shape::None)
            return QByteArray();
        if (shape != Geometry::Shape::Point) {
            m_tracks.push_back({NameOf(feature), Description(feature), feature.file,
                                shape == Geometry::Shape::Area ? Closed(feature.outline) : feature.outline});
            return QByteArray();
        }
        WritePoint("wpt", feature.outline.front());
        WriteTexts(NameOf(feature), Description(feature), feature.file);
        m_xml.writeEndElement();
        return m_pieces.Take();
    }

    QByteArray End() override
    {
        for (const Track& track : m_tracks) {
            m_xml.writeStartElement(QStringLiteral("trk"));
            WriteTexts(track.name, track.description, track.file);
            m_xml.writeStartElement(QStringLiteral("trkseg"));
            for (const Point& point : track.points) {
                WritePoint("trkpt", point);
                m_xml.writeEndElement();
            }
            m_xml.writeEndElement();
            m_xml.writeEndElement();
        }
        m_xml.writeEndDocument();
        return m_pieces.Take();
    }

private:
    struct Track
    {
        QString name;
        QString description;
        QString file;
        Points points;
    };

    static QString NameOf(const Feature& feature)
    {
        return feature.name.isNull() ? feature.file : feature.name;
    }

    void WritePoint(const char* element, const Point& point)
    {
        m_xml.writeStartElement(QLatin1String(element));
        m_xml.writeAttribute(QStringLiteral("lat"), NumberText(point.latitude));
        m_xml.writeAttribute(QStringLiteral("lon"), NumberText(Longitude(point.longitude)));
    }

    void WriteTexts(const QString& name, const QString& description, const QString& file)
    {
        m_xml.writeTextElement(QStringLiteral("name"), XmlText(name));
        m_xml.writeTextElement(QStringLiteral("desc"), XmlText(description));
        m_xml.writeTextElement(QStringLiteral("src"), XmlText(file));
    }

    XmlPieces m_pieces;
    QXmlStreamWriter& m_xml = m_pieces.Writer();
    std::vector<Track> m_tracks;
};

} // namespace

std::unique_ptr<Exporter> MakeGpxExporter()
{
    return std::make_unique<Gpx>();
}

} // namespace ReportCore
