// SaveXml opens its file as text: on Windows each line feed becomes two bytes there, elsewhere none does.

#include "support/expect.h"
#include "support/recordelements.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QtGlobal>

namespace {

using REPORTGENERATOR::ReportBase;
using Support::ReadScratch;
using Support::ScratchPath;
using Support::Text;
using Support::WriteScratch;

#ifdef Q_OS_WIN
#    define LINE_END "\r\n"
#else
#    define LINE_END "\n"
#endif

ReportBase WithFrequency()
{
    ReportBase report;
    report.GetFrequency().SetValue(1.0);
    return report;
}

TEST(LineEnds, ASavedFileHasThoseOfTheSystem)
{
    const ReportBase report = WithFrequency();
    ASSERT_TRUE(report.SaveXml(ScratchPath()));
    EXPECT_BYTES(ReadScratch(),
                 QByteArray(LINE_END "<ReportBase>" LINE_END "    <Frequency>1.00</Frequency>" LINE_END
                                     "</ReportBase>"));
    EXPECT_XML(report, "\n<ReportBase>\n    <Frequency>1.00</Frequency>\n</ReportBase>");
}

TEST(LineEnds, ThoseInsideATextAreWrittenAlike)
{
    ReportBase report;
    report.SetValidate(false);
    report.GetArea().SetName(Text("a\nb"));
    ASSERT_TRUE(report.SaveXml(ScratchPath()));
    EXPECT_BYTES(ReadScratch(),
                 QByteArray(LINE_END "<ReportBase>" LINE_END "    <Area Version=\"1.0\">" LINE_END
                                     "        <Name>a" LINE_END "b</Name>" LINE_END "    </Area>" LINE_END
                                     "</ReportBase>"));
    ReportBase loaded;
    loaded.SetValidate(false);
    ASSERT_TRUE(loaded.LoadXml(ScratchPath()));
    EXPECT_TEXT(loaded.GetArea().GetName(), "a\nb");
}

TEST(LineEnds, BothKindsAreLoadedOnEverySystem)
{
    for (const char* content : {"\n<ReportBase>\n    <Frequency>1.00</Frequency>\n</ReportBase>",
                                "\r\n<ReportBase>\r\n    <Frequency>1.00</Frequency>\r\n</ReportBase>\r\n"}) {
        WriteScratch(content);
        ReportBase loaded;
        ASSERT_TRUE(loaded.LoadXml(ScratchPath()));
        EXPECT_TRUE(loaded == WithFrequency());
    }
}

TEST(LineEnds, BinaryFilesHaveNone)
{
    // The length of the value's text, 13, is the byte of a carriage return: 00 00 00 0D.
    ReportBase report;
    report.GetFrequency().SetValue(1234567890.0);
    const QByteArray bytes = report.GetBinaryRepresentationAsQByteArray();
    ASSERT_TRUE(bytes.contains(QByteArray("\0\0\0\x0D"
                                          "1234567890.00",
                                          17)));
    WriteScratch(Support::BinaryFile(Support::Raw(bytes.toStdString())).Data());
    QFile file(ScratchPath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    ReportBase loaded;
    ASSERT_TRUE(loaded.LoadBinary(&file));
    EXPECT_TRUE(loaded == report);
}

} // namespace
