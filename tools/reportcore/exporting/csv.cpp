#include <reportcore/exporting/csvcells.h>
#include <reportcore/exporting/formats.h>
#include <reportcore/exporting/wkttext.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QStringList>

namespace ReportCore {

namespace {

QByteArray HeaderLine(const QStringList& further)
{
    QStringList cells{QStringLiteral("file")};
    for (const PropertyType& type : PropertyTypes())
        cells << type.name;
    return CsvCells(cells + further) + CSV_LINE_END;
}

/// The values, without what stands behind them.
QByteArray Values(const Feature& feature)
{
    QStringList cells;
    for (const QVariant& value : feature.values)
        cells << CsvCell(value);
    return CsvCells(feature.file, cells);
}

class Csv : public Exporter
{
public:
    QByteArray Begin() override { return HeaderLine({QStringLiteral("WKT")}); }

    ExportPiece Prepare(Feature feature) const override
    {
        const QByteArray wkt = WktText(GeometryOf(feature.outline));
        const QString cell = wkt.isEmpty() ? QString() : CsvCell(QString::fromLatin1(wkt));
        return {{}, Values(feature) + ',' + cell.toLatin1() + CSV_LINE_END};
    }
};

/// The points as they stand in the area. A report without an area has a line too.
class CsvPoints : public Exporter
{
public:
    QByteArray Begin() override
    {
        return HeaderLine({QStringLiteral("point"), QStringLiteral("longitude"), QStringLiteral("latitude")});
    }

    ExportPiece Prepare(Feature feature) const override
    {
        const QByteArray values = Values(feature);
        if (feature.outline.empty())
            return {{}, values + ",,," + CSV_LINE_END};
        QByteArray lines;
        int number = 0;
        for (const Point& point : feature.outline) {
            ++number;
            lines += values + ',' + QByteArray::number(number) + ',' +
                     FractionText(point.longitude).toLatin1() + ',' +
                     FractionText(point.latitude).toLatin1() + CSV_LINE_END;
        }
        return {{}, lines};
    }
};

} // namespace

std::unique_ptr<Exporter> MakeCsvExporter()
{
    return std::make_unique<Csv>();
}

std::unique_ptr<Exporter> MakeCsvPointsExporter()
{
    return std::make_unique<CsvPoints>();
}

} // namespace ReportCore
