#include <reportcore/exporting/formats.h>
#include <reportcore/exporting/xmlpieces.h>

#include <reportgenerator/reflection/texts.h>

namespace ReportCore {

namespace {

constexpr char FILE_PROPERTY[] = "file";

QString Coordinates(const Points& points)
{
    QString text;
    for (const Point& point : points) {
        if (!text.isEmpty())
            text += QLatin1Char(' ');
        text += NumberText(point.longitude) + QLatin1Char(',') + NumberText(point.latitude);
    }
    return text;
}

QString TypeName(FieldKind kind)
{
    switch (kind) {
    case FieldKind::Number:
        return QStringLiteral("double");
    case FieldKind::Switch:
        return QStringLiteral("bool");
    default:
        return QStringLiteral("string");
    }
}

/// Some readers make integers of switches.
QString ValueText(const QVariant& value)
{
    if (value.userType() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    return PropertyText(value);
}

class Kml : public Exporter
{
public:
    QByteArray Begin() override
    {
        m_xml.writeStartDocument();
        m_xml.writeStartElement(QStringLiteral("kml"));
        m_xml.writeDefaultNamespace(QStringLiteral("http://www.opengis.net/kml/2.2"));
        m_xml.writeStartElement(QStringLiteral("Document"));
        m_xml.writeStartElement(QStringLiteral("Schema"));
        m_xml.writeAttribute(QStringLiteral("name"), QStringLiteral("Report"));
        m_xml.writeAttribute(QStringLiteral("id"), QStringLiteral("Report"));
        WriteFieldType(QLatin1String(FILE_PROPERTY), FieldKind::Text);
        for (const PropertyType& type : PropertyTypes())
            WriteFieldType(type.name, type.kind);
        m_xml.writeEndElement();
        return m_pieces.Take();
    }

    QByteArray Add(const ExportPiece& piece) override
    {
        const Feature& feature = piece.feature;
        m_xml.writeStartElement(QStringLiteral("Placemark"));
        m_xml.writeTextElement(QStringLiteral("name"),
                               XmlText(feature.name.isNull() ? feature.file : feature.name));
        m_xml.writeStartElement(QStringLiteral("ExtendedData"));
        m_xml.writeStartElement(QStringLiteral("SchemaData"));
        m_xml.writeAttribute(QStringLiteral("schemaUrl"), QStringLiteral("#Report"));
        WriteValue(QLatin1String(FILE_PROPERTY), feature.file);
        for (std::size_t i = 0; i < feature.values.size(); ++i) {
            if (feature.values[i].isValid())
                WriteValue(PropertyTypes()[i].name, ValueText(feature.values[i]));
        }
        m_xml.writeEndElement();
        m_xml.writeEndElement();
        WriteGeometry(GeometryOf(feature.outline));
        m_xml.writeEndElement();
        return m_pieces.Take();
    }

    void End(const Write& write) override
    {
        m_xml.writeEndDocument();
        write(m_pieces.Take());
    }

private:
    void WriteFieldType(const QString& name, FieldKind kind)
    {
        m_xml.writeEmptyElement(QStringLiteral("SimpleField"));
        m_xml.writeAttribute(QStringLiteral("type"), TypeName(kind));
        m_xml.writeAttribute(QStringLiteral("name"), name);
    }

    void WriteValue(const QString& name, const QString& text)
    {
        m_xml.writeStartElement(QStringLiteral("SimpleData"));
        m_xml.writeAttribute(QStringLiteral("name"), name);
        m_xml.writeCharacters(XmlText(text));
        m_xml.writeEndElement();
    }

    void WriteGeometry(const Geometry& geometry)
    {
        const bool isMulti = geometry.parts.size() > 1;
        if (isMulti)
            m_xml.writeStartElement(QStringLiteral("MultiGeometry"));
        for (const Points& part : geometry.parts)
            WritePart(geometry.shape, part);
        if (isMulti)
            m_xml.writeEndElement();
    }

    void WritePart(Geometry::Shape shape, const Points& points)
    {
        switch (shape) {
        case Geometry::Shape::None:
            return;
        case Geometry::Shape::Point:
            WriteCoordinates("Point", points);
            return;
        case Geometry::Shape::Line:
            WriteCoordinates("LineString", points);
            return;
        case Geometry::Shape::Area:
            break;
        }
        m_xml.writeStartElement(QStringLiteral("Polygon"));
        m_xml.writeStartElement(QStringLiteral("outerBoundaryIs"));
        WriteCoordinates("LinearRing", points);
        m_xml.writeEndElement();
        m_xml.writeEndElement();
    }

    void WriteCoordinates(const char* element, const Points& points)
    {
        m_xml.writeStartElement(QLatin1String(element));
        m_xml.writeTextElement(QStringLiteral("coordinates"), Coordinates(points));
        m_xml.writeEndElement();
    }

    XmlPieces m_pieces;
    QXmlStreamWriter& m_xml = m_pieces.Writer();
};

} // namespace

std::unique_ptr<Exporter> MakeKmlExporter()
{
    return std::make_unique<Kml>();
}

} // namespace ReportCore
