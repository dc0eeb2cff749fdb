#include "gdalrun.h"

#include <reportgdal/areas.h>

#include <reportcore/form.h>

#include <cpl_string.h>
#include <ogr_spatialref.h>

#include <gmock/gmock.h>

namespace {

using GdalTest::Areas;
using GdalTest::Cells;
using GdalTest::ContentOf;
using GdalTest::Folder;
using GdalTest::Lines;
using GdalTest::NamesIn;
using GdalTest::Source;

GDALDriver& Driver()
{
    return *GetGDALDriverManager()->GetDriverByName("REPORTS");
}

/// What is being written to; the files are there when it is gone.
class Output
{
public:
    explicit Output(const std::string& name, const char* form = nullptr)
    {
        CPLStringList options;
        if (form)
            options.SetNameValue("FORM", form);
        m_dataset.reset(Driver().Create(name.c_str(), 0, 0, 0, GDT_Unknown, options.List()));
        if (m_dataset)
            m_layer = m_dataset->CreateLayer("lakes");
    }

    GDALDataset* Dataset() const { return m_dataset.get(); }
    OGRLayer& Layer() const { return *m_layer; }

    void AddColumn(const char* name, OGRFieldType type) const
    {
        OGRFieldDefn column(name, type);
        EXPECT_EQ(m_layer->CreateField(&column), OGRERR_NONE);
    }

    /// Without geometry for a null text.
    OGRErr Add(const char* wkt, std::initializer_list<const char*> values = {}) const
    {
        OGRFeature feature(m_layer->GetLayerDefn());
        int column = 0;
        for (const char* const value : values) {
            if (value)
                feature.SetField(column, value);
            ++column;
        }
        OGRGeometry* geometry = nullptr;
        if (wkt && OGRGeometryFactory::createFromWkt(wkt, nullptr, &geometry) != OGRERR_NONE)
            ADD_FAILURE() << wkt;
        feature.SetGeometryDirectly(geometry);
        return m_layer->CreateFeature(&feature);
    }

private:
    GDALDatasetUniquePtr m_dataset;
    OGRLayer* m_layer = nullptr;
};

constexpr char LAKE[] = "\n<ReportBase>\n"
                        "    <Frequency Use=\"true\">121500000.00</Frequency>\n"
                        "    <Area Version=\"1.0\">\n"
                        "        <Name>Lake</Name>\n"
                        "        <Coordinate>\n"
                        "            <Longitude>8.500000</Longitude>\n"
                        "            <Latitude>47.250000</Latitude>\n"
                        "        </Coordinate>\n"
                        "    </Area>\n"
                        "</ReportBase>";

void WriteLake(const Output& output)
{
    ASSERT_TRUE(output.Dataset());
    output.AddColumn("frequency_value", OFTReal);
    output.AddColumn("frequency_use", OFTInteger);
    output.AddColumn("area_name", OFTString);
    EXPECT_EQ(output.Add("POINT (8.5 47.25)", {"121500000", "1", "Lake"}), OGRERR_NONE);
}

TEST(GdalWriting, FeatureBecomesAFileInAFolder)
{
    const Folder folder;
    WriteLake(Output(folder.Path("out")));
    EXPECT_EQ(NamesIn(folder.Path("out")), Lines({"lakes-000001.xml"}));
    EXPECT_EQ(ContentOf(folder.Path("out/lakes-000001.xml")), LAKE);
    EXPECT_EQ(folder.Said(), Lines());
}

TEST(GdalWriting, NameWithASuffixIsTheFileOfOneReport)
{
    const Folder folder;
    const Output output(folder.Path("lake.xml"));
    WriteLake(output);
    EXPECT_EQ(output.Add("POINT (8.5 47.25)", {"1", "1", "Second"}), OGRERR_FAILURE);
    EXPECT_EQ(folder.Said(),
              Lines({"Failure: feature 2: a file holds one report; the name of a folder takes more"}));
    EXPECT_EQ(ContentOf(folder.Path("lake.xml")), LAKE);
    EXPECT_EQ(NamesIn(folder.Path()), Lines({"lake.xml"}));
}

TEST(GdalWriting, FormIsThatOfTheOptionOrOfTheSuffix)
{
    struct Row
    {
        const char* name;
        const char* option;
        ReportCore::FileForm form;
    };
    using ReportCore::Form;
    for (const Row& row :
         {Row{"a.plain", nullptr, {Form::Plain}}, Row{"a.compressed", nullptr, {Form::Compressed}},
          Row{"a.file", nullptr, {Form::Plain, true}}, Row{"a.report", nullptr, {Form::Xml}},
          Row{"a.report", "PLAIN", {Form::Plain}}, Row{"a.xml", "compressed", {Form::Compressed}}}) {
        const Folder folder;
        WriteLake(Output(folder.Path(row.name), row.option));
        const QByteArray bytes = ContentOf(folder.Path(row.name));
        EXPECT_EQ(ReportCore::Recognise(bytes).form, row.form.form) << row.name;
        EXPECT_EQ(ReportCore::Recognise(bytes).isBinaryFile, row.form.isBinaryFile) << row.name;
        EXPECT_EQ(Areas(Source(folder.Path(row.name))), Lines({"POINT (8.5 47.25)"}));
    }
    const Folder folder;
    WriteLake(Output(folder.Path("out"), "compressed"));
    EXPECT_EQ(NamesIn(folder.Path("out")), Lines({"lakes-000001.compressed"}));
}

TEST(GdalWriting, UnknownFormIsRefused)
{
    const Folder folder;
    EXPECT_FALSE(Output(folder.Path("out"), "zip").Dataset());
    EXPECT_THAT(
        folder.Said(),
        testing::Contains("Failure: /vsimem/reports/out: FORM is xml, plain, compressed or file, not zip"));
}

TEST(GdalWriting, ReportsAreWrittenInTheOrderOfTheirNames)
{
    const Folder folder;
    const Output output(folder.Path("out"));
    output.AddColumn("frequency_value", OFTInteger64);
    for (int i = 1; i <= 11; ++i)
        EXPECT_EQ(output.Add(nullptr, {std::to_string(i).c_str()}), OGRERR_NONE);
    EXPECT_EQ(output.Layer().GetFeatureCount(), 11);
    EXPECT_EQ(Cells(Source(folder.Path("out")), "frequency_value"),
              Lines({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"}));
}

TEST(GdalWriting, GeometriesBecomeAreas)
{
    const Folder folder;
    const Output output(folder.Path("out"));
    output.AddColumn("name", OFTString);
    for (const char* const wkt : {"POINT Z (1 2 3)", "LINESTRING (0 0,1 1)", "POLYGON ((0 0,1 0,1 1,0 0))",
                                  "MULTIPOLYGON (((0 0,1 0,1 1,0 0)))", "MULTIPOINT ((5 6))"})
        EXPECT_EQ(output.Add(wkt, {"A"}), OGRERR_NONE) << wkt;
    EXPECT_EQ(Areas(Source(folder.Path("out"))),
              Lines({"POINT (1 2)", "LINESTRING (0 0,1 1)", "POLYGON ((0 0,1 0,1 1,0 0))",
                     "POLYGON ((0 0,1 0,1 1,0 0))", "POINT (5 6)"}));
    EXPECT_EQ(folder.Said(), Lines());
}

TEST(GdalWriting, WhatNoAreaHoldsIsRefusedAndOthersAreWritten)
{
    const Folder folder;
    const Output output(folder.Path("out"));
    output.AddColumn("area_name", OFTString);
    for (const char* const wkt : {"POLYGON ((0 0,9 0,9 9,0 0),(1 1,2 1,2 2,1 1))", "MULTIPOINT ((1 1),(2 2))",
                                  "GEOMETRYCOLLECTION (POINT (1 1))", "POINT (691875 5335437)"})
        EXPECT_EQ(output.Add(wkt, {"A"}), OGRERR_FAILURE) << wkt;
    EXPECT_EQ(output.Add("POINT (1 1)", {nullptr}), OGRERR_FAILURE);
    EXPECT_EQ(output.Add("POINT (1 1)", {"A"}), OGRERR_NONE);
    const Lines said = folder.Said();
    ASSERT_EQ(said.size(), 5U);
    EXPECT_EQ(said[0], "Failure: feature 1: an area has no holes");
    EXPECT_EQ(said[1], "Failure: feature 1: an area is one outline, not 2; --parts makes a report of each");
    EXPECT_EQ(said[2], "Failure: feature 1: an area is one outline, not a collection of geometries");
    EXPECT_THAT(said[3], testing::HasSubstr("691875"));
    EXPECT_EQ(said[4], "Failure: feature 1: the area has no name");
    EXPECT_EQ(NamesIn(folder.Path("out")), Lines({"lakes-000001.xml"}));
}

TEST(GdalWriting, NumbersKeepAllTheirDigits)
{
    for (const double number :
         {0.1 + 0.2, 1.0 / 3.0, 179.99999999999997, -1e-7, 1e-17, 47.655, 123.456789012345678}) {
        ReportCore::ImportedFeature feature;
        ReportGdal::AddOutlines(OGRPoint(number, -number), feature);
        ASSERT_EQ(feature.parts.size(), 1U);
        EXPECT_EQ(feature.parts[0].points[0].longitude, number);
        EXPECT_EQ(feature.parts[0].points[0].latitude, -number);
    }
}

TEST(GdalWriting, ColumnsAreMatchedByTheirNames)
{
    const Folder folder;
    const Output output(folder.Path("a.xml"));
    output.AddColumn("FREQUENCY_VALUE", OFTString);
    output.AddColumn("file", OFTString);
    output.AddColumn("antenna", OFTString);
    output.AddColumn("area_version", OFTString);
    EXPECT_EQ(folder.Said(), Lines({"Warning: reports have no field \"antenna\": it is not written"}));
    EXPECT_EQ(output.Add(nullptr, {"121.5 MHz", "x/y.xml", "loop", "9"}), OGRERR_NONE);
    EXPECT_EQ(ContentOf(folder.Path("a.xml")),
              "\n<ReportBase>\n    <Frequency>121500000.00</Frequency>\n</ReportBase>");
}

TEST(GdalWriting, WrongValuesAreRefused)
{
    const Folder folder;
    const Output output(folder.Path("a.xml"));
    output.AddColumn("frequency_value", OFTString);
    output.AddColumn("frequency_use", OFTInteger);
    EXPECT_EQ(output.Add(nullptr, {"often", "1"}), OGRERR_FAILURE);
    EXPECT_EQ(output.Add(nullptr, {"5", "7"}), OGRERR_FAILURE);
    EXPECT_EQ(folder.Said().size(), 2U);
    EXPECT_EQ(NamesIn(folder.Path()), Lines());
}

TEST(GdalWriting, NameWithoutGeometryIsNotKeptAndTold)
{
    const Folder folder;
    const Output output(folder.Path("a.xml"));
    output.AddColumn("name", OFTString);
    EXPECT_EQ(output.Add(nullptr, {"Lake"}), OGRERR_NONE);
    EXPECT_EQ(folder.Said(),
              Lines({"Warning: feature 1: without a geometry there is no area, and its name \"Lake\" is "
                     "not kept"}));
}

TEST(GdalWriting, FoldersThatAreNotEmptyStayAsTheyAre)
{
    const Folder folder;
    folder.Write("out/a.xml", LAKE);
    EXPECT_FALSE(Output(folder.Path("out")).Dataset());
    EXPECT_THAT(folder.Said(), testing::Contains("Failure: /vsimem/reports/out: the folder is not empty"));
    EXPECT_EQ(ContentOf(folder.Path("out/a.xml")), LAKE);
}

TEST(GdalWriting, OldFileStaysUntilANewOneIsWhole)
{
    const Folder folder;
    folder.Write("a.xml", "<ReportBase/>");
    {
        const Output output(folder.Path("a.xml"));
        EXPECT_EQ(ContentOf(folder.Path("a.xml")), "<ReportBase/>");
        EXPECT_EQ(output.Add("POINT (1 1)"), OGRERR_FAILURE);
        EXPECT_EQ(ContentOf(folder.Path("a.xml")), "<ReportBase/>");
        WriteLake(output);
    }
    EXPECT_EQ(ContentOf(folder.Path("a.xml")), LAKE);
    EXPECT_EQ(NamesIn(folder.Path()), Lines({"a.xml"}));
}

TEST(GdalWriting, ReportsAreNotDeleted)
{
    const Folder folder;
    folder.Write("a.xml", "<ReportBase/>");
    EXPECT_EQ(Driver().Delete(folder.Path("a.xml").c_str()), CE_Failure);
    EXPECT_EQ(ContentOf(folder.Path("a.xml")), "<ReportBase/>");
}

TEST(GdalWriting, OtherCoordinateSystemsAreRefused)
{
    const Folder folder;
    const GDALDatasetUniquePtr dataset(
        Driver().Create(folder.Path("out").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference system;
    system.importFromEPSG(25832);
    EXPECT_FALSE(dataset->CreateLayer("a", &system));
    EXPECT_EQ(folder.Said(),
              Lines({"Failure: reports have coordinates in WGS 84, not in ETRS89 / UTM zone 32N; ogr2ogr "
                     "converts them with -t_srs EPSG:4326"}));
    system.importFromEPSG(4326); // Latitude first by itself
    EXPECT_TRUE(dataset->CreateLayer("b", &system));
    EXPECT_FALSE(dataset->TestCapability(ODsCCreateLayer));
    EXPECT_FALSE(dataset->CreateLayer("c", &system));
    EXPECT_EQ(folder.Said(), Lines({"Failure: reports have one layer only"}));
}

TEST(GdalWriting, Wgs84HasSeveralNames)
{
    for (const char* const name : {"EPSG:4326", "OGC:CRS84", "EPSG:4979", "+proj=longlat +datum=WGS84"}) {
        OGRSpatialReference system;
        ASSERT_EQ(system.SetFromUserInput(name), OGRERR_NONE);
        EXPECT_EQ(ReportGdal::IsWgs84(&system), std::string(name) != "EPSG:4979") << name;
    }
    EXPECT_TRUE(ReportGdal::IsWgs84(nullptr));
    for (const char* const name : {"EPSG:4258", "EPSG:3857", "EPSG:4267"}) {
        OGRSpatialReference system;
        ASSERT_EQ(system.SetFromUserInput(name), OGRERR_NONE);
        EXPECT_FALSE(ReportGdal::IsWgs84(&system)) << name;
    }
}

TEST(GdalWriting, WhatCannotBeWrittenIsTold)
{
    const Folder folder;
    EXPECT_FALSE(Output("/nowhere/out").Dataset());
    const Output output("/nowhere/a.xml");
    EXPECT_EQ(output.Add(nullptr), OGRERR_FAILURE);
    EXPECT_THAT(folder.Said(), testing::Contains("Failure: /nowhere/out: the folder cannot be made"));
    EXPECT_FALSE(GDALDatasetUniquePtr(Driver().Create(folder.Path("b").c_str(), 5, 5, 1, GDT_Byte, nullptr)));
}

TEST(GdalWriting, CapabilitiesAreThoseItHas)
{
    const Folder folder;
    const Output output(folder.Path("out"));
    for (const char* const capability :
         {OLCSequentialWrite, OLCCreateField, OLCStringsAsUTF8, OLCFastFeatureCount})
        EXPECT_TRUE(output.Layer().TestCapability(capability)) << capability;
    for (const char* const capability : {OLCRandomRead, OLCRandomWrite, OLCDeleteFeature, OLCDeleteField,
                                         OLCTransactions, OLCCurveGeometries})
        EXPECT_FALSE(output.Layer().TestCapability(capability)) << capability;
}

} // namespace
