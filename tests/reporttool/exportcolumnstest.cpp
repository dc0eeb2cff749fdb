// Tables that are filled batch by batch: the columns and their types don't depend on what a batch holds.

#include "samples.h"
#include "toolrun.h"

#include <reportcore/exporting/feature.h>

#include <QtCore/QFile>

#include <gtest/gtest.h>

namespace {

using ReportCore::FieldKind;
using ReportCore::PropertyType;
using ReportCore::PropertyTypes;
using ToolTest::RunTool;

QString Export(const QByteArray& report, const char* format)
{
    const ToolTest::ToolRun run = RunTool({"export", "-", "--to", format}, {report, {}, {}});
    EXPECT_EQ(run.exitCode, 0) << format;
    return run.Output();
}

/// With nothing, with everything, with whole numbers only.
QList<QByteArray> Batches()
{
    return {"<ReportBase/>", ToolTest::FullXml(),
            "<ReportBase><Frequency "
            "Use=\"false\">100</Frequency><Area><Name>7</Name><Coordinate><Longitude>9</Longitude>"
            "<Latitude>48</Latitude></Coordinate></Area></ReportBase>"};
}

QString Page(const char* name)
{
    QFile file(QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES "/../docs/") + QLatin1String(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return QString::fromUtf8(file.readAll());
}

TEST(ToolExportColumns, EveryBatchHasTheSame)
{
    for (const QByteArray& batch : Batches()) {
        EXPECT_TEXT(Export(batch, "csv").section(QLatin1Char('\r'), 0, 0),
                    "file,frequency_value,frequency_min,frequency_max,frequency_use,ifBandwidth_value,"
                    "ifBandwidth_min,ifBandwidth_max,area_name,area_version,area_scriptId,WKT");
        EXPECT_TEXT(
            Export(batch, "csv-points").section(QLatin1Char('\r'), 0, 0),
            "file,frequency_value,frequency_min,frequency_max,frequency_use,ifBandwidth_value,"
            "ifBandwidth_min,ifBandwidth_max,area_name,area_version,area_scriptId,point,longitude,latitude");
        const QString line = Export(batch, "geojsonl");
        auto place = line.indexOf(QStringLiteral("\"properties\":{\"file\":"));
        for (const PropertyType& type : PropertyTypes()) {
            const auto next = line.indexOf(QStringLiteral(",\"%1\":").arg(type.name), place);
            EXPECT_GT(next, place) << type.name.toStdString() << " in " << line.toStdString();
            place = next;
        }
    }
}

TEST(ToolExportColumns, WholeNumbersHaveAFractionToo)
{
    EXPECT_TEXT(Export(Batches().at(2), "csv").section(QLatin1Char('\n'), 1, 1),
                "-,100.0,,,false,,,,7,,,POINT (9 48)\r");
    EXPECT_TEXT(Export(Batches().at(2), "csv-points").section(QLatin1Char('\n'), 1, 1),
                "-,100.0,,,false,,,,7,,,1,9.0,48.0\r");
    EXPECT_TEXT(
        Export("<ReportBase><Frequency>nan</Frequency></ReportBase>", "csv").section(QLatin1Char('\n'), 1, 1),
        "-,nan,,,,,,,,,,\r");
}

/// What a page calls the types.
struct TypeWords
{
    QString number;
    QString boolean;
    QString text;

    const QString& Of(FieldKind kind) const
    {
        return kind == FieldKind::Number ? number : kind == FieldKind::Switch ? boolean : text;
    }
};

TEST(ToolExportColumns, AreThoseOfThePages)
{
    QString rows = QStringLiteral("| column | type |\n|---|---|\n| `file` | text |\n");
    const TypeWords words{QStringLiteral("number"), QStringLiteral("true or false"), QStringLiteral("text")};
    for (const PropertyType& type : PropertyTypes())
        rows += QStringLiteral("| `%1` | %2 |\n").arg(type.name, words.Of(type.kind));
    EXPECT_TRUE(Page("reporttool.md").contains(rows)) << rows.toStdString();
}

TEST(ToolExportColumns, TypesThatDatabasesAreToldAreThoseOfTheColumns)
{
    const QString page = Page("spatial-databases.md");
    const TypeWords csvt{QStringLiteral("Real"), QStringLiteral("Integer(Boolean)"),
                         QStringLiteral("String")};
    const TypeWords postgis{QStringLiteral("double precision"), QStringLiteral("boolean"),
                            QStringLiteral("text")};
    const TypeWords duckdb{QStringLiteral("DOUBLE"), QStringLiteral("BOOLEAN"), QStringLiteral("VARCHAR")};
    QString csvtLine = QStringLiteral("String");
    QString postgisTable = QStringLiteral("    file text,\n");
    QString duckdbFields = QStringLiteral("file VARCHAR");
    QString duckdbColumns = QStringLiteral("file: 'VARCHAR'");
    for (const PropertyType& type : PropertyTypes()) {
        csvtLine += QLatin1Char(',') + csvt.Of(type.kind);
        postgisTable += QStringLiteral("    %1 %2,\n").arg(type.name, postgis.Of(type.kind));
        duckdbFields += QStringLiteral(", %1 %2").arg(type.name, duckdb.Of(type.kind));
        duckdbColumns += QStringLiteral(", %1: '%2'").arg(type.name, duckdb.Of(type.kind));
    }
    for (const QString& text : {csvtLine + QStringLiteral(",WKT"), postgisTable})
        EXPECT_TRUE(page.contains(text)) << text.toStdString();
    // They stand on several lines.
    for (const QString& text : {duckdbFields, duckdbColumns + QStringLiteral(", WKT: 'VARCHAR'")})
        EXPECT_TRUE(page.simplified().contains(text)) << text.toStdString();
}

} // namespace
