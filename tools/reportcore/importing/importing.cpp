#include <reportcore/importing/importing.h>

#include <reportcore/exporting/feature.h>
#include <reportcore/importing/coordinatesystem.h>
#include <reportcore/importing/decimalcomma.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QtEndian>

#include <algorithm>

namespace ReportCore {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;

namespace {

/// What many programs call the name of a thing.
constexpr char NAME[] = "name";

/// Null where there is none, or where it isn't set.
const QVariant* FindProperty(const ImportedFeature& feature, const QString& name)
{
    const auto found =
        std::find_if(feature.properties.begin(), feature.properties.end(), [&name](const auto& property) {
            return property.first.compare(name, Qt::CaseInsensitive) == 0;
        });
    return found == feature.properties.end() || !found->second.isValid() ? nullptr : &found->second;
}

/// Invalid where the value is not set: a number or a switch cannot be empty. Databases write switches as 0 and 1.
QVariant ValueFor(const Field& field, const QVariant& value)
{
    if (field.Kind() == FieldKind::Number && value.userType() == QMetaType::Double)
        return value;
    const QString text = PropertyText(value);
    if (field.Kind() != FieldKind::Text && text.trimmed().isEmpty())
        return QVariant();
    if (field.Kind() == FieldKind::Switch && (text == QLatin1String("0") || text == QLatin1String("1")))
        return text == QLatin1String("1");
    if (field.Kind() != FieldKind::Number)
        return field.ValueOf(text);
    if (IsAmbiguous(text))
        throw RGException(QStringLiteral("the comma of %1 may stand before decimals or between thousands")
                              .arg(Quoted(text)));
    return field.ValueOf(WithDecimalPoint(text));
}

void TakeProperty(const PropertyType& type, const QVariant& property, ReportBase& report)
{
    try {
        const QVariant value = ValueFor(*type.path.Last().field, property);
        if (value.isValid())
            SetValue(report, type.path, value);
    } catch (const RGException& exception) {
        throw ImportError{QStringLiteral("%1: %2").arg(type.name, exception.GetErrorText())};
    }
}

void TakeProperties(const ImportedFeature& feature, ReportBase& report)
{
    for (const PropertyType& type : PropertyTypes()) {
        const QVariant* const property = FindProperty(feature, type.name);
        if (property && type.kind != FieldKind::Version)
            TakeProperty(type, *property, report);
    }
}

/// Empty where there is none.
QString NameOf(const ImportedFeature& feature)
{
    const QVariant* const property = FindProperty(feature, QLatin1String(NAME));
    return feature.name.isEmpty() && property ? PropertyText(*property) : feature.name;
}

void TakeOutline(const ImportedFeature& feature, ReportBase& report)
{
    const QString outOfRange = FindOutOfRange(feature.parts.front().points);
    if (!outOfRange.isEmpty())
        throw ImportError{outOfRange};
    QVector<Coordinate> coordinates;
    for (const Point& point : feature.parts.front().points) {
        Coordinate coordinate;
        coordinate.SetValidate(true);
        coordinate.SetLongitude(point.longitude);
        coordinate.SetLatitude(point.latitude);
        coordinates.append(coordinate);
    }
    Area area = report.GetArea();
    if (!area.IsNameSet() && !NameOf(feature).isEmpty())
        area.SetName(NameOf(feature));
    if (!area.IsNameSet())
        throw ImportError{QStringLiteral("the area has no name")};
    area.SetCoordinate(coordinates);
    report.SetArea(area);
}

/// What a packed file is, and what unpacks it; empty for any other file.
QString PackingOf(const QByteArray& bytes)
{
    if (bytes.startsWith("\x1F\x8B"))
        return QStringLiteral("this is a gzip file, which gunzip unpacks");
    if (!bytes.startsWith("PK\x03\x04"))
        return QString();
    constexpr int NAME_LENGTH_PLACE = 26; // of the first file in it
    constexpr int NAME_PLACE = 30;
    const QByteArray length = bytes.mid(NAME_LENGTH_PLACE, 2).leftJustified(2, '\0');
    const QByteArray first = bytes.mid(NAME_PLACE, qFromLittleEndian<quint16>(length.constData()));
    return first.toLower().endsWith(".kml")
               ? QStringLiteral("this is a kmz file, KML in a zip archive, which unzip unpacks")
               : QStringLiteral("this is a zip archive, which unzip unpacks");
}

} // namespace

const std::vector<ImportFormat>& ImportFormats()
{
    static const std::vector<ImportFormat> formats = {
        {"geojson",
         "GeoJSON: a feature collection, a feature, a geometry, or several of them (RFC 8142, or lines)",
         ReadGeoJson},
        {"csv", "a header and lines with WKT, or with longitude and latitude of a point each", ReadCsv, true},
        {"kml", "KML: the placemarks", ReadKml},
        {"gpx", "GPX: waypoints, routes and tracks", ReadGpx},
    };
    return formats;
}

ImportedFeatures ReadFeatures(const ImportFormat& format, const ImportInput& input)
{
    const QString packing = PackingOf(input.bytes);
    if (!packing.isEmpty())
        throw ImportError{packing};
    try {
        ImportedFeatures features = format.read(input);
        std::size_t number = 0;
        for (ImportedFeature& feature : features)
            feature.number = ++number;
        return features;
    } catch (const OtherSystem& system) {
        throw ImportError{RefusalOf(system, input)};
    }
}

ImportedFeatures Parted(const ImportedFeatures& features)
{
    ImportedFeatures parted;
    for (const ImportedFeature& feature : features) {
        if (feature.parts.size() < 2 || !feature.hindrance.isEmpty()) {
            parted.push_back(feature);
            continue;
        }
        std::size_t number = 0;
        for (const ImportedPart& part : feature.parts)
            parted.push_back({feature.number, ++number, feature.name, feature.properties, {part}, {}});
    }
    return parted;
}

QString LostNameOf(const ImportedFeature& feature)
{
    return feature.parts.empty() ? NameOf(feature) : QString();
}

ReportBase ReportOf(const ImportedFeature& feature)
{
    if (!feature.hindrance.isEmpty())
        throw ImportError{feature.hindrance};
    for (const ImportedPart& part : feature.parts) {
        if (!part.hindrance.isEmpty())
            throw ImportError{part.hindrance};
    }
    if (feature.parts.size() > 1)
        throw ImportError{QStringLiteral("an area is one outline, not %1; --parts makes a report of each")
                              .arg(feature.parts.size())};
    ReportBase report;
    TakeProperties(feature, report);
    if (!feature.parts.empty())
        TakeOutline(feature, report);
    return report;
}

} // namespace ReportCore
