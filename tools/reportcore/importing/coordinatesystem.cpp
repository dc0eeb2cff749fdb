#include <reportcore/importing/coordinatesystem.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>

namespace ReportCore {

namespace {

/// With two axes, and with heights as the third one.
bool IsWgs84(int code)
{
    return code == 4326 || code == 4979;
}

/// The number that a name has in the register of EPSG: "EPSG:25832", "urn:ogc:def:crs:EPSG:9.8:25832",
/// "http://www.opengis.net/def/crs/EPSG/0/25832", or nothing but the number. 0 where it has none.
int CodeOf(const QString& name)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:(?:.*[:/])?EPSG(?:[:/]|\\.XML#|\\.IO/)(?:[0-9.]*[:/])?)?([0-9]+)(?:[/?].*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return pattern.match(name).captured(1).toInt();
}

bool IsNameOfWgs84(const QString& name)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:(?:.*[:/])?CRS:?84H?|(?:GCS_)?WGS[ _-]?(?:19)?84)$"),
        QRegularExpression::CaseInsensitiveOption);
    return pattern.match(name).hasMatch();
}

/// As a shell takes it for one word.
QString Word(const QString& text)
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9_./:+,][A-Za-z0-9_./:+,=-]*$"));
    if (plain.match(text).hasMatch())
        return text;
#ifdef Q_OS_WIN
    return QLatin1Char('"') + text + QLatin1Char('"');
#else
    QString quoted = text;
    quoted.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QLatin1Char('\'') + quoted + QLatin1Char('\'');
#endif
}

QString LikelyCause(const Points& points)
{
    const auto are = [&points](double longitude, double latitude) {
        return std::all_of(points.begin(), points.end(), [=](const Point& point) {
            return std::abs(point.longitude) <= longitude && std::abs(point.latitude) <= latitude;
        });
    };
    if (!are(TURN, TURN))
        return QStringLiteral("these are no degrees but may be metres, which ogr2ogr -s_srs SYSTEM -t_srs "
                              "EPSG:4326 converts");
    if (are(POLE, HALF_TURN))
        return QStringLiteral("latitude and longitude may be swapped");
    if (are(TURN, POLE))
        return QStringLiteral("longitudes go from -180 to 180 degrees");
    return QStringLiteral("these are no longitudes and latitudes");
}

} // namespace

void RequireWgs84(const QString& name)
{
    const QString trimmed = name.trimmed();
    const int code = CodeOf(trimmed);
    if (IsWgs84(code) || IsNameOfWgs84(trimmed))
        return;
    throw OtherSystem{code == 0 ? trimmed : QStringLiteral("EPSG:%1").arg(code)};
}

QString RefusalOf(const OtherSystem& system, const ImportInput& input)
{
    const QString file = input.name.isEmpty() ? QStringLiteral("IN") : Word(input.name);
    const QString systems = QStringLiteral("ogr2ogr -s_srs %1 -t_srs EPSG:4326").arg(Word(system.name));
    // In the column of a table GDAL knows well-known text without a coordinate system.
    const QString command =
        system.column.isEmpty()
            ? QStringLiteral("%1 wgs84.geojson %2").arg(systems, file)
            : QStringLiteral(
                  "sed 's/SRID=[0-9]*;//' %1 | %2 -oo GEOM_POSSIBLE_NAMES=%3 wgs84.geojson CSV:/vsistdin/")
                  .arg(file, systems, system.column);
    return QStringLiteral("the coordinate system is %1, not WGS 84 (EPSG:4326); this converts it: %2")
        .arg(system.name, command);
}

QString FindOutOfRange(const Points& points)
{
    const auto isOut = [](const Point& point) {
        return std::isfinite(point.longitude) && std::isfinite(point.latitude) &&
               (std::abs(point.longitude) > HALF_TURN || std::abs(point.latitude) > POLE);
    };
    const auto found = std::find_if(points.begin(), points.end(), isOut);
    if (found == points.end())
        return QString();
    return QStringLiteral("point %1 is at longitude %2 and latitude %3: %4")
        .arg(QString::number(found - points.begin() + 1), NumberText(found->longitude),
             NumberText(found->latitude), LikelyCause(points));
}

} // namespace ReportCore
