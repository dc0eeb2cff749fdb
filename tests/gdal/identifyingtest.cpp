#include "gdalrun.h"

#include "reporttool/samples.h"

#include <reportgdal/identifying.h>

#include <gtest/gtest.h>

namespace {

using GdalTest::Folder;
using GdalTest::Ids;
using GdalTest::Lines;
using GdalTest::Source;
using ReportGdal::BeginsAsReport;

QByteArray Utf16(const char* text)
{
    const QString characters = QString::fromLatin1(text);
    return "\xFF\xFE" +
           QByteArray(reinterpret_cast<const char*>(characters.utf16()), int(characters.size()) * 2);
}

TEST(GdalIdentifying, ReportsAreTakenInEachForm)
{
    for (const QByteArray& bytes :
         {ToolTest::FullXml(), ToolTest::FullPlain(), ToolTest::FullCompressed(),
          ToolTest::InFile(ToolTest::FullPlain()), QByteArray("<ReportBase/>"),
          QByteArray("\n <ReportBase"
                     " a='1'>"),
          QByteArray("<?xml version='1.0'?><!-- x --><a:M xmlns:a='u'><b/><ReportBase><Frequency>12"),
          QByteArray("\xEF\xBB\xBF<ReportBase/>"), Utf16("<ReportBase/>")})
        EXPECT_TRUE(BeginsAsReport(bytes)) << bytes.constData();
}

TEST(GdalIdentifying, WhatMayBeOthersIsLeftToThem)
{
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("<"), QByteArray("ReportBase"), QByteArray("<Report/>"),
          QByteArray("<kml xmlns='http://www.opengis.net/kml/2.2'><Document/></kml>"),
          QByteArray("<html><!-- <ReportBase/> --></html>"), QByteArray("<a><![CDATA[<ReportBase/>]]></a>"),
          QByteArray("<a b='<ReportBase/>'/>"), QByteArray("<a></b><ReportBase/>"),
          QByteArray("{\"type\":\"FeatureCollection\"}"), QByteArray("file,WKT\n<ReportBase/>"),
          QByteArray("\x89PNG\r\n"), QByteArray("PK\x03\x04"), QByteArray(1024, '\0'),
          QByteArray("SQLite format 3\0", 16), QByteArray("\0\0\0\x12\0I\0R", 8)})
        EXPECT_FALSE(BeginsAsReport(bytes)) << bytes.constData();
}

TEST(GdalIdentifying, OnlyTheBeginningCounts)
{
    const Folder folder;
    const QByteArray late = "<a>" + QByteArray(2000, ' ') + "<ReportBase/></a>";
    EXPECT_FALSE(Source(folder.Write("late.xml", late)).Dataset());
    EXPECT_EQ(Ids(Source("REPORTS:" + folder.Path("late.xml"))), (std::vector<GIntBig>{0}));
    EXPECT_EQ(Ids(Source("reports:" + folder.Path("late.xml"))), (std::vector<GIntBig>{0}));
}

TEST(GdalIdentifying, FolderIsTakenWhenHalfOfItsFilesAreReports)
{
    const Folder folder;
    folder.Write("1.csv", "a,b\n");
    EXPECT_FALSE(Source(folder.Path()).Dataset());
    folder.Write("2.xml", "<ReportBase/>");
    EXPECT_TRUE(Source(folder.Path()).Dataset());
    folder.Write("3.shp", "x");
    EXPECT_FALSE(Source(folder.Path()).Dataset());
    EXPECT_TRUE(Source("REPORTS:" + folder.Path()).Dataset());
}

TEST(GdalIdentifying, FoldersInAFolderCountWhereTheyAreRead)
{
    const Folder folder;
    folder.Write("a/1.xml", "<ReportBase/>");
    EXPECT_FALSE(Source(folder.Path()).Dataset());
    EXPECT_TRUE(Source(folder.Path(), {"RECURSIVE=YES"}).Dataset());
    folder.Write("1.xml", "<ReportBase/>");
    folder.Write("a/2.txt", "x");
    folder.Write("a/3.txt", "x");
    folder.Write("a/4.txt", "x");
    EXPECT_TRUE(Source(folder.Path()).Dataset());
    EXPECT_FALSE(Source(folder.Path(), {"RECURSIVE=YES"}).Dataset());
}

TEST(GdalIdentifying, NoMoreThanSomeFilesAreLookedAt)
{
    const Folder folder;
    for (int i = 10; i < 26; ++i)
        folder.Write(std::to_string(i) + ".xml", "<ReportBase/>");
    for (int i = 26; i < 50; ++i)
        folder.Write(std::to_string(i) + ".txt", "x");
    EXPECT_TRUE(Source(folder.Path()).Dataset());
}

TEST(GdalIdentifying, WhatIsNotThereIsTold)
{
    const Folder folder;
    EXPECT_FALSE(Source("REPORTS:" + folder.Path("none")).Dataset());
    EXPECT_EQ(folder.Said(), Lines({"Failure: /vsimem/reports/none: no such file"}));
}

} // namespace
