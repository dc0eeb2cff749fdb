#include "support/expect.h"

#include "reporttool/samples.h"

#include <reportcore/reportfile.h>
#include <reportcore/reportwriting.h>

#include <gtest/gtest.h>

namespace {

using ReportCore::FileForm;
using ReportCore::Form;
using ReportCore::ReportFile;
using REPORTGENERATOR::ReportBase;

ReportBase WithoutName()
{
    ReportBase report(ReportCore::ReadReport(ToolTest::FullXml()).report);
    report.GetArea().ResetName();
    return report;
}

ReportFile Checked(const ReportBase& report, const FileForm& form)
{
    return ReportCore::CheckReport(report, ReportCore::WriteUnchecked(report, form, -1));
}

TEST(CheckReport, TellsWhatAFileWouldNotShow)
{
    // XML has an empty element for a name that isn't set, and reads it as one that is empty.
    const ReportBase report = WithoutName();
    const QByteArray bytes = ReportCore::WriteUnchecked(report, {Form::Xml, false}, -1);
    EXPECT_TRUE(ReportCore::ReadReport(bytes).IsGood());
    const ReportFile file = ReportCore::CheckReport(report, bytes);
    ASSERT_EQ(file.problems.size(), 1U);
    EXPECT_TEXT(file.problems[0].name, "OutOfRangeException");
    EXPECT_TEXT(file.problems[0].text, "Area: Please set Name properly.");
    EXPECT_TEXT(file.problems[0].path, "area.name");
    EXPECT_TRUE(file.problems[0].place.IsKnown());
    EXPECT_EQ(file.size, bytes.size());
    EXPECT_FALSE(file.report.IsAreaSet() && file.report.GetArea().IsNameSet());
}

TEST(CheckReport, KnowsEveryForm)
{
    for (const FileForm& form : {FileForm{Form::Xml, false}, FileForm{Form::Plain, false},
                                 FileForm{Form::Compressed, false}, FileForm{Form::Plain, true}}) {
        const ReportFile file = Checked(WithoutName(), form);
        EXPECT_EQ(file.form.form, form.form);
        EXPECT_EQ(file.form.isBinaryFile, form.isBinaryFile);
        EXPECT_EQ(file.problems.size(), 1U);
    }
}

TEST(CheckReport, FindsNothingWrongWithAGoodReport)
{
    EXPECT_TRUE(Checked(ReportCore::ReadReport(ToolTest::FullXml()).report, {Form::Xml, false}).IsGood());
}

} // namespace
