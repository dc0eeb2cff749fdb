#include <reportcore/exporting/formats.h>
#include <reportcore/exporting/wkttext.h>

#include <reportcore/texts.h>

#include <QtCore/QStringList>

#include <algorithm>

namespace ReportCore {

namespace {

constexpr char LINE_END[] = "\r\n";

/// An empty text stands in quotes; without, it isn't set.
QString Cell(const QString& text, bool isText)
{
    const auto isSpecial = [](QChar character) {
        return character == QLatin1Char('"') || character == QLatin1Char(',') ||
               character == QLatin1Char('\n') || character == QLatin1Char('\r');
    };
    if (!(isText && text.isEmpty()) && std::none_of(text.begin(), text.end(), isSpecial))
        return text;
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

/// The name of a file. What stands for a byte of it that is no UTF-8 has no bytes of its own and becomes its escape.
QString FileText(const QString& file)
{
    QString text;
    for (auto i = file.cbegin(); i != file.cend(); ++i) {
        if (i->isHighSurrogate() && i + 1 != file.cend() && (i + 1)->isLowSurrogate()) {
            text += *i;
            ++i;
            text += *i;
        } else {
            text += i->isSurrogate() ? Printable(*i) : QString(*i);
        }
    }
    return text;
}

QByteArray HeaderLine(const QStringList& further)
{
    QStringList cells{QStringLiteral("file")};
    for (const PropertyType& type : PropertyTypes())
        cells << type.name;
    return (cells + further).join(QLatin1Char(',')).toUtf8() + LINE_END;
}

QString ValueText(const QVariant& value)
{
    return value.userType() == QMetaType::Double ? FractionText(value.toDouble()) : PropertyText(value);
}

/// The values, without what stands behind them.
QByteArray Values(const Feature& feature)
{
    QStringList cells{Cell(FileText(feature.file), true)};
    for (const QVariant& value : feature.values)
        cells << Cell(ValueText(value), value.userType() == QMetaType::QString);
    return cells.join(QLatin1Char(',')).toUtf8();
}

class Csv : public Exporter
{
public:
    QByteArray Begin() override { return HeaderLine({QStringLiteral("WKT")}); }

    ExportPiece Prepare(Feature feature) const override
    {
        const QByteArray wkt = WktText(GeometryOf(feature.outline));
        return {{}, Values(feature) + ',' + Cell(QString::fromLatin1(wkt), false).toLatin1() + LINE_END};
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
            return {{}, values + ",,," + LINE_END};
        QByteArray lines;
        int number = 0;
        for (const Point& point : feature.outline) {
            ++number;
            lines += values + ',' + QByteArray::number(number) + ',' +
                     FractionText(point.longitude).toLatin1() + ',' +
                     FractionText(point.latitude).toLatin1() + LINE_END;
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
