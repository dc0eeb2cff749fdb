#include <reportcore/exporting/deferredoutput.h>
#include <reportcore/exporting/formats.h>
#include <reportcore/exporting/xmlpieces.h>

#include <reportgenerator/reflection/texts.h>

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

    QByteArray Add(const ExportPiece& piece) override
    {
        const Feature& feature = piece.feature;
        const Geometry::Shape shape = GeometryOf(feature.outline).shape;
        if (shape == Geometry::Shape::None)
            return QByteArray();
        if (shape != Geometry::Shape::Point) {
            KeepTrack(feature, shape == Geometry::Shape::Area ? Closed(feature.outline) : feature.outline);
            return QByteArray();
        }
        WritePoint(m_xml, "wpt", feature.outline.front());
        WriteTexts(m_xml, feature);
        m_xml.writeEndElement();
        return m_pieces.Take();
    }

    void End(const Write& write) override
    {
        const bool hasTracks = !m_tracks.IsEmpty();
        if (hasTracks) {
            // Ends the start tag, if it is still open.
            m_xml.writeCharacters(QString());
            write(m_pieces.Take());
            m_tracks.TakeAll(write);
            write("\n");
        }
        m_xml.writeEndDocument();
        write(m_pieces.Take());
    }

private:
    void KeepTrack(const Feature& feature, const Points& points)
    {
        XmlPieces pieces(1);
        QXmlStreamWriter& xml = pieces.Writer();
        xml.writeStartElement(QStringLiteral("trk"));
        WriteTexts(xml, feature);
        xml.writeStartElement(QStringLiteral("trkseg"));
        for (const Point& point : points) {
            WritePoint(xml, "trkpt", point);
            xml.writeEndElement();
        }
        xml.writeEndElement();
        xml.writeEndElement();
        m_tracks.Append(pieces.Take());
    }

    static QString NameOf(const Feature& feature)
    {
        return feature.name.isNull() ? feature.file : feature.name;
    }

    static void WritePoint(QXmlStreamWriter& xml, const char* element, const Point& point)
    {
        xml.writeStartElement(QLatin1String(element));
        xml.writeAttribute(QStringLiteral("lat"), NumberText(point.latitude));
        xml.writeAttribute(QStringLiteral("lon"), NumberText(Longitude(point.longitude)));
    }

    static void WriteTexts(QXmlStreamWriter& xml, const Feature& feature)
    {
        xml.writeTextElement(QStringLiteral("name"), XmlText(NameOf(feature)));
        xml.writeTextElement(QStringLiteral("desc"), XmlText(Description(feature)));
        xml.writeTextElement(QStringLiteral("src"), XmlText(feature.file));
    }

    XmlPieces m_pieces;
    QXmlStreamWriter& m_xml = m_pieces.Writer();
    DeferredOutput m_tracks;
};

} // namespace

std::unique_ptr<Exporter> MakeGpxExporter()
{
    return std::make_unique<Gpx>();
}

} // namespace ReportCore
