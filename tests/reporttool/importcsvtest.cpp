#include "toolrun.h"

#include <gtest/gtest.h>

// Comma-separated values that hold something else than their header says.

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

/// Into a folder; the files that are written, and what is told.
void ExpectImport(const QByteArray& input, const char* files, const char* errors)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"import", "-", ".", "--from", "csv"}, PlainLocale(input, scratch.Folder()));
    EXPECT_EQ(run.exitCode, *errors == '\0' ? 0 : 1) << input.constData();
    EXPECT_TEXT(scratch.Names().join(QLatin1Char(' ')), files);
    EXPECT_TEXT(run.Errors(), errors);
}

TEST(ToolImportCsv, LineWithMoreCellsThanTheHeaderIsRefused)
{
    ExpectImport("name,point,lon,lat\na,1,1,2\nb,1,3,4\nb,2,9,5,47,5\nc,1,5,6\n", "report-1.xml report-3.xml",
                 "reporttool: -: feature 2: line 4: 6 cells under a header of 4\n");
    ExpectImport("name,WKT\na,POINT (1 2)\nb,POINT (1 2),\nc,POINT (1,5 2,5)\n", "report-1.xml",
                 "reporttool: -: feature 2: line 3: 3 cells under a header of 2\n"
                 "reporttool: -: feature 3: line 4: 4 cells under a header of 2\n");
}

TEST(ToolImportCsv, LineWithFewerCellsThanTheHeaderIsTaken)
{
    ExpectImport("name,WKT,frequency_value\na,POINT (1 2)\n", "report-1.xml", "");
}

TEST(ToolImportCsv, BytesThatAreNoUtf8AreRefused)
{
    ExpectImport("name,WKT\na,POINT (1 2)\nZ\xFCrich,POINT (1 2)\n", "",
                 "reporttool: -: line 3: not UTF-8\n");
    ExpectImport("\xEF\xBB\xBFname,WKT\nZ\xC3", "", "reporttool: -: line 2: not UTF-8\n");
    // Behind the mark at the start another one is a character.
    ExpectImport("\xEF\xBB\xBF\xEF\xBB\xBFname,WKT,area_name\n,POINT (1 2),a\n", "report-1.xml", "");
    // The character that stands for what cannot be read may be meant.
    ExpectImport("\xEF\xBB\xBFname,WKT\nZ\xEF\xBF\xBD\xC3\xBC,POINT (1 2)\n", "report-1.xml", "");
}

} // namespace
