#include "gdalrun.h"

#include "reporttool/samples.h"

#include <reportcore/files.h>

#include <gtest/gtest.h>

namespace {

using GdalTest::Areas;
using GdalTest::AreaXml;
using GdalTest::Cells;
using GdalTest::Folder;
using GdalTest::Ids;
using GdalTest::Lines;
using GdalTest::Source;

TEST(GdalReading, ColumnsAreThoseOfExportWithTheirTypes)
{
    const Folder folder;
    const Source source(folder.Write("lake.xml", "<ReportBase/>"));
    ASSERT_TRUE(source.Dataset());
    EXPECT_EQ(source.Dataset()->GetLayerCount(), 1);
    EXPECT_FALSE(source.Dataset()->GetLayer(1));
    EXPECT_STREQ(source.Layer().GetName(), "lake");
    Lines columns;
    OGRFeatureDefn& definition = *source.Layer().GetLayerDefn();
    for (int i = 0; i < definition.GetFieldCount(); ++i) {
        const OGRFieldDefn& column = *definition.GetFieldDefn(i);
        columns.push_back(std::string(column.GetNameRef()) + ' ' + OGR_GetFieldTypeName(column.GetType()) +
                          ' ' + OGR_GetFieldSubTypeName(column.GetSubType()));
    }
    EXPECT_EQ(columns,
              Lines({"file String None", "frequency_value Real None", "frequency_min Real None",
                     "frequency_max Real None", "frequency_use Integer Boolean",
                     "ifBandwidth_value Real None", "ifBandwidth_min Real None", "ifBandwidth_max Real None",
                     "area_name String None", "area_version String None", "area_scriptId String None"}));
    EXPECT_EQ(source.Layer().GetGeomType(), wkbUnknown);
    EXPECT_STREQ(source.Layer().GetGeometryColumn(), "area");
}

TEST(GdalReading, LongitudeComesFirstInWgs84)
{
    const Folder folder;
    const Source source(folder.Write("a.xml", AreaXml({"8.5 47.25"})));
    const OGRSpatialReference* const system = source.Layer().GetSpatialRef();
    ASSERT_TRUE(system);
    EXPECT_STREQ(system->GetAuthorityCode(nullptr), "4326");
    EXPECT_EQ(system->GetDataAxisToSRSAxisMapping(), (std::vector<int>{2, 1}));
    const OGRFeatureUniquePtr feature(source.Layer().GetNextFeature());
    EXPECT_EQ(feature->GetGeometryRef()->toPoint()->getX(), 8.5);
    EXPECT_EQ(feature->GetGeometryRef()->toPoint()->getY(), 47.25);
    EXPECT_EQ(feature->GetGeometryRef()->getSpatialReference(), system);
}

TEST(GdalReading, ReportIsTheSameInEachForm)
{
    const Folder folder;
    for (const QByteArray& bytes : {ToolTest::FullXml(), ToolTest::FullPlain(), ToolTest::FullCompressed(),
                                    ToolTest::InFile(ToolTest::FullPlain())}) {
        const std::string path = folder.Write("report", bytes);
        const Source source(path);
        ASSERT_TRUE(source.Dataset());
        const OGRFeatureUniquePtr feature(source.Layer().GetNextFeature());
        ASSERT_TRUE(feature);
        EXPECT_EQ(feature->GetFID(), 0);
        EXPECT_STREQ(feature->GetFieldAsString("file"), path.c_str());
        EXPECT_EQ(feature->GetFieldAsDouble("frequency_value"), 121500000.0);
        EXPECT_EQ(feature->GetFieldAsDouble("frequency_min"), 117975000.0);
        EXPECT_EQ(feature->GetFieldAsDouble("frequency_max"), 137000000.0);
        EXPECT_EQ(feature->GetFieldAsInteger("frequency_use"), 1);
        EXPECT_EQ(feature->GetFieldAsDouble("ifBandwidth_value"), 8333.33);
        EXPECT_TRUE(feature->IsFieldNull(feature->GetFieldIndex("ifBandwidth_min")));
        EXPECT_TRUE(feature->IsFieldNull(feature->GetFieldIndex("ifBandwidth_max")));
        EXPECT_STREQ(feature->GetFieldAsString("area_name"), "Zürichsee");
        EXPECT_STREQ(feature->GetFieldAsString("area_version"), "1.0");
        EXPECT_STREQ(feature->GetFieldAsString("area_scriptId"), "VHF-1215");
        EXPECT_EQ(feature->GetGeometryRef()->exportToWkt(), "LINESTRING (8.54 47.36,8.685 47.258)");
        EXPECT_FALSE(OGRFeatureUniquePtr(source.Layer().GetNextFeature()));
    }
    EXPECT_EQ(folder.Said(), Lines());
}

TEST(GdalReading, WhatIsNotSetIsNull)
{
    const Folder folder;
    const Source source(folder.Write("a.xml", "<ReportBase/>"));
    EXPECT_EQ(Cells(source, "frequency_value"), Lines({"(null)"}));
    EXPECT_EQ(Cells(source, "frequency_use"), Lines({"(null)"}));
    EXPECT_EQ(Cells(source, "area_name"), Lines({"(null)"}));
    EXPECT_EQ(Areas(source), Lines({"(null)"}));
}

TEST(GdalReading, AreasHaveTheShapesOfExport)
{
    const Folder folder;
    folder.Write("1.xml", AreaXml({"1 2", "1 2"}));
    folder.Write("2.xml", AreaXml({"179 10", "-179 20"}));
    folder.Write("3.xml", AreaXml({"0 0", "0 1", "1 1"}));
    folder.Write("4.xml", AreaXml({"177 -19", "-178 -19", "-178 -16", "177 -16"}));
    folder.Write("5.xml", AreaXml({"0 80", "90 80", "180 80", "-90 80"}));
    const std::string fiji = "MULTIPOLYGON (((-180 -19,-178 -19,-178 -16,-180 -16,-180 -19)),"
                             "((180 -16,177 -16,177 -19,180 -19,180 -16)))";
    EXPECT_EQ(Areas(Source(folder.Path())),
              Lines({"POINT (1 2)", "MULTILINESTRING ((179 10,180 15),(-180 15,-179 20))",
                     "POLYGON ((0 0,1 1,0 1,0 0))", fiji,
                     "POLYGON ((-180 80,-90 80,0 80,90 80,180 80,180 90,-180 90,-180 80))"}));
    EXPECT_EQ(folder.Said(), Lines());
}

TEST(GdalReading, NumberWithoutEndStandsInItsColumn)
{
    const Folder folder;
    const Source source(
        folder.Write("a.xml", "<ReportBase><Frequency Max=\"inf\">5</Frequency></ReportBase>"));
    EXPECT_EQ(Cells(source, "frequency_max"), Lines({"inf"}));
}

TEST(GdalReading, FolderIsReadInTheOrderOfNames)
{
    const Folder folder;
    for (const char* const name : {"b.xml", "a.xml", "a/z.xml", "B.xml", "a-1.xml"})
        folder.Write(name, "<ReportBase/>");
    const auto names = [&folder](std::initializer_list<const char*> files) {
        Lines paths;
        for (const char* const file : files)
            paths.push_back(folder.Path(file));
        return paths;
    };
    const Source source(folder.Path());
    EXPECT_EQ(Cells(source, "file"), names({"B.xml", "a-1.xml", "a.xml", "b.xml"}));
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{0, 1, 2, 3}));
    const Source all(folder.Path(), {"RECURSIVE=YES"});
    EXPECT_EQ(Cells(all, "file"), names({"B.xml", "a/z.xml", "a-1.xml", "a.xml", "b.xml"}));
    EXPECT_STREQ(all.Layer().GetName(), "reports");
}

TEST(GdalReading, FilesWithoutGoodReportHaveNoRowAndOneWarning)
{
    const Folder folder;
    folder.Write("1.xml", "<ReportBase><Frequency>1</Frequency></ReportBase>");
    folder.Write("2.xml", "<ReportBase><Frequency>6,02</Frequency></ReportBase>");
    folder.Write("3.xml", "<ReportBase>");
    folder.Write("4.xml", AreaXml({"8 200"}));
    folder.Write("5.xml", "<ReportBase><Frequency>5</Frequency></ReportBase>");
    folder.Write("6.txt", "hello");
    const Source source(folder.Path());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Cells(source, "frequency_value"), Lines({"1", "5"}));
        EXPECT_EQ(Ids(source), (std::vector<GIntBig>{0, 4}));
    }
    EXPECT_EQ(
        folder.Said(),
        Lines(
            {"Warning: /vsimem/reports/2.xml: 1:24: would be lost: frequency.value \"6,02\" becomes 0; it "
             "has no row",
             "Warning: /vsimem/reports/3.xml: 1:13: RGException: Premature end of document.; it has no row",
             "Warning: /vsimem/reports/4.xml: 1:93: OutOfRangeException: Parameters for m_latitude are not "
             "set within "
             "range (-90, 90) in 'Coordinate'. (area.coordinate[1].latitude = \"200\"); it has no row",
             "Warning: /vsimem/reports/6.txt: UnknownForm: not a report in any known form; it has no row"}));
}

TEST(GdalReading, StrictReadingEndsAtTheFirstOfThem)
{
    const Folder folder;
    folder.Write("1.xml", "<ReportBase/>");
    folder.Write("2.xml", "<ReportBase>");
    folder.Write("3.xml", "<ReportBase/>");
    const Source source(folder.Path(), {"STRICT=YES"});
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{0}));
    const Lines failure{"Failure: /vsimem/reports/2.xml: 1:13: RGException: Premature end of document."};
    EXPECT_EQ(folder.Said(), failure);
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{0}));
    EXPECT_EQ(folder.Said(), failure);
}

TEST(GdalReading, EachReportOfADocumentIsARow)
{
    const Folder folder;
    folder.Write("1.xml", "<ReportBase/>");
    folder.Write(
        "2.xml",
        "<Mission><ReportBase><Frequency>5</Frequency></ReportBase><ReportBase>"
        "<Frequency>x</Frequency></ReportBase><ReportBase><Frequency>7</Frequency></ReportBase></Mission>");
    const Source source(folder.Path());
    EXPECT_EQ(Cells(source, "frequency_value"), Lines({"(null)", "5", "7"}));
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{0, 1, 1 + (GIntBig(2) << 32)}));
    EXPECT_EQ(folder.Said(), Lines({"Warning: /vsimem/reports/2.xml: 1:82: would be lost: frequency.value "
                                    "\"x\" becomes 0; it has no row"}));
}

TEST(GdalReading, FeaturesAreFoundByTheirIds)
{
    const Folder folder;
    folder.Write("1.xml", "<ReportBase><Frequency>1</Frequency></ReportBase>");
    folder.Write("2.xml",
                 "<M><ReportBase><Frequency>2</Frequency></ReportBase><ReportBase><Frequency>3</Frequency>"
                 "</ReportBase></M>");
    folder.Write("3.xml", "<ReportBase>");
    const Source source(folder.Path());
    const OGRFeatureUniquePtr first(source.Layer().GetNextFeature());
    for (const auto& [id, frequency] :
         {std::pair<GIntBig, double>{1, 2.0}, {1 + (GIntBig(1) << 32), 3.0}, {0, 1.0}}) {
        const OGRFeatureUniquePtr feature(source.Layer().GetFeature(id));
        ASSERT_TRUE(feature) << id;
        EXPECT_EQ(feature->GetFID(), id);
        EXPECT_EQ(feature->GetFieldAsDouble("frequency_value"), frequency);
    }
    EXPECT_EQ(folder.Said(), Lines());
    for (const GIntBig id : {GIntBig(-1), GIntBig(3), GIntBig(1) << 32, GIntBig(1) << 62})
        EXPECT_FALSE(OGRFeatureUniquePtr(source.Layer().GetFeature(id))) << id;
    EXPECT_EQ(folder.Said(), Lines());
    EXPECT_FALSE(OGRFeatureUniquePtr(source.Layer().GetFeature(2)));
    EXPECT_EQ(folder.Said().size(), 1U);
    // What comes next is none of their business.
    const OGRFeatureUniquePtr second(source.Layer().GetNextFeature());
    EXPECT_EQ(second->GetFID(), 1);
}

TEST(GdalReading, FiltersOfGdalChooseRows)
{
    const Folder folder;
    folder.Write("1.xml", AreaXml({"0 0", "1 0", "1 1"}));
    folder.Write("2.xml", AreaXml({"10 10", "11 10", "11 11"}));
    folder.Write("3.xml", "<ReportBase><Frequency>5</Frequency></ReportBase>");
    const Source source(folder.Path());
    EXPECT_EQ(source.Layer().GetFeatureCount(), 3);
    source.Layer().SetSpatialFilterRect(9.0, 9.0, 12.0, 12.0);
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{1}));
    EXPECT_EQ(source.Layer().GetFeatureCount(), 1);
    source.Layer().SetSpatialFilter(nullptr);
    source.Layer().SetAttributeFilter("frequency_value > 4");
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{2}));
    source.Layer().SetAttributeFilter("file LIKE '%1.xml'");
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{0}));
    source.Layer().SetAttributeFilter(nullptr);
    OGREnvelope extent;
    EXPECT_EQ(source.Layer().GetExtent(&extent), OGRERR_NONE);
    EXPECT_EQ(extent.MinX, 0.0);
    EXPECT_EQ(extent.MaxY, 11.0);
}

TEST(GdalReading, AreasThatNobodyAsksForAreNotMade)
{
    const Folder folder;
    const Source source(folder.Write("1.xml", AreaXml({"1 2"})));
    const char* ignored[] = {"OGR_GEOMETRY", nullptr};
    ASSERT_EQ(source.Layer().SetIgnoredFields(ignored), OGRERR_NONE);
    EXPECT_EQ(Areas(source), Lines({"(null)"}));
    EXPECT_EQ(Cells(source, "area_name"), Lines({"A"}));
}

TEST(GdalReading, CapabilitiesAreThoseItHas)
{
    const Folder folder;
    const Source source(folder.Write("1.xml", "<ReportBase/>"));
    for (const char* const capability : {OLCRandomRead, OLCStringsAsUTF8, OLCIgnoreFields})
        EXPECT_TRUE(source.Layer().TestCapability(capability)) << capability;
    for (const char* const capability :
         {OLCSequentialWrite, OLCRandomWrite, OLCFastSpatialFilter, OLCFastFeatureCount, OLCFastGetExtent,
          OLCFastSetNextByIndex, OLCCreateField, OLCDeleteFeature, OLCTransactions, OLCCurveGeometries})
        EXPECT_FALSE(source.Layer().TestCapability(capability)) << capability;
    EXPECT_FALSE(source.Dataset()->TestCapability(ODsCCreateLayer));
}

TEST(GdalReading, ArchivesAreFoldersAndPackedFilesAreFiles)
{
    const Folder folder;
    folder.Write("a.zip", {});
    for (const char* const name : {"b.xml", "a.xml"}) {
        VSILFILE* const file = VSIFOpenL(("/vsizip/" + folder.Path("r.zip/") + name).c_str(), "wb");
        ASSERT_TRUE(file);
        VSIFPrintfL(file, "<ReportBase><Frequency>%d</Frequency></ReportBase>", name[0]);
        VSIFCloseL(file);
    }
    const Source archive("/vsizip/" + folder.Path("r.zip"));
    EXPECT_EQ(Cells(archive, "frequency_value"), Lines({"97", "98"}));
    EXPECT_EQ(Cells(archive, "file"),
              Lines({"/vsizip//vsimem/reports/r.zip/a.xml", "/vsizip//vsimem/reports/r.zip/b.xml"}));
    VSILFILE* const file = VSIFOpenL(("/vsigzip/" + folder.Path("c.xml.gz")).c_str(), "wb");
    VSIFPrintfL(file, "<ReportBase><Frequency>3</Frequency></ReportBase>");
    VSIFCloseL(file);
    EXPECT_EQ(Cells(Source("/vsigzip/" + folder.Path("c.xml.gz")), "frequency_value"), Lines({"3"}));
    EXPECT_EQ(folder.Said(), Lines());
}

TEST(GdalReading, FilesBeyondTheCeilingHaveNoRow)
{
    const Folder folder;
    const Source source(folder.Write("1.xml", "<ReportBase>" + QByteArray(40000, ' ') + "</ReportBase>"));
    ReportCore::SetCeiling(30000);
    EXPECT_EQ(Ids(source), std::vector<GIntBig>());
    ReportCore::SetCeiling(ReportCore::USUAL_CEILING);
    EXPECT_EQ(folder.Said(),
              Lines({"Warning: /vsimem/reports/1.xml: holds more than 30000 bytes; it has no row"}));
}

TEST(GdalReading, FilesThatAreGoneHaveNoRow)
{
    const Folder folder;
    folder.Write("1.xml", "<ReportBase/>");
    folder.Write("2.xml", "<ReportBase/>");
    const Source source(folder.Path());
    VSIUnlink(folder.Path("1.xml").c_str());
    EXPECT_EQ(Ids(source), (std::vector<GIntBig>{1}));
    EXPECT_EQ(folder.Said(),
              Lines({"Warning: /vsimem/reports/1.xml: No such file or directory; it has no row"}));
}

TEST(GdalReading, NothingIsOpenedForChanges)
{
    const Folder folder;
    const Source source(folder.Write("1.xml", "<ReportBase/>"), {}, GDAL_OF_UPDATE);
    EXPECT_FALSE(source.Dataset());
    EXPECT_EQ(folder.Said(), Lines());
}

} // namespace
