// What is as the library writes it stays on the fast path, which asks for memory a few times only.

#include "support/allocations.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/points.h"
#include "support/reports.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <ostream>
#include <string>
#include <utility>

namespace {

using REPORTGENERATOR::ReportBase;

constexpr int POINTS = 1000;

/// Enough for objects, files, buffers and lists that grow; readers and streams of Qt take more with these points.
constexpr int SOME = 75;

ReportBase ReportOfManyPoints()
{
    ReportBase report = Support::CompleteReport();
    report.GetArea().SetName(QStringLiteral("<Lake> & \"Sea\""));
    for (int i = 1; i < POINTS; ++i)
        report.GetArea().AppendCoordinate(Support::At(0.125 * i, 0.0625 * i));
    return report;
}

struct Form
{
    const char* name;
    std::function<QByteArray(const ReportBase& report)> write;
    std::function<void(ReportBase& report, const QByteArray& written)> read;
};

void PrintTo(const Form& form, std::ostream* stream)
{
    *stream << form.name;
}

QByteArray InFile(const std::function<void()>& write)
{
    write();
    return Support::ReadScratch();
}

QByteArray InStream(const std::function<void(QDataStream& stream)>& write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    write(stream);
    return bytes;
}

const Form FORMS[] = {
    {"XmlString", [](const ReportBase& report) { return report.GetXmlString().toUtf8(); },
     [](ReportBase& report, const QByteArray& written) {
         report.SetXmlString(QString::fromUtf8(written), true);
     }},
    {"XmlFile",
     [](const ReportBase& report) { return InFile([&] { report.SaveXml(Support::ScratchPath()); }); },
     [](ReportBase& report, const QByteArray& /*written*/) { report.LoadXml(Support::ScratchPath()); }},
    {"Plain", [](const ReportBase& report) { return report.GetBinaryRepresentationAsQByteArray(); },
     [](ReportBase& report, const QByteArray& written) {
         QByteArray representation = written;
         report.SetBinaryRepresentation(representation);
     }},
    {"Compressed",
     [](const ReportBase& report) { return report.GetCompressedBinaryRepresentationAsQByteArray(1); },
     [](ReportBase& report, const QByteArray& written) {
         QByteArray representation = written;
         report.SetBinaryRepresentation(representation);
     }},
    {"PlainStream",
     [](const ReportBase& report) {
         return InStream([&](QDataStream& stream) { report.GetBinaryRepresentation(stream); });
     },
     [](ReportBase& report, const QByteArray& written) {
         QDataStream stream(written);
         report.SetBinaryRepresentation(stream);
     }},
    {"CompressedStream",
     [](const ReportBase& report) {
         return InStream([&](QDataStream& stream) { report.GetCompressedBinaryRepresentation(stream, 1); });
     },
     [](ReportBase& report, const QByteArray& written) {
         QDataStream stream(written);
         report.SetBinaryRepresentation(stream);
     }},
    {"Body",
     [](const ReportBase& report) {
         return InStream([&](QDataStream& stream) { report.GetBinary(stream, 1, true); });
     },
     [](ReportBase& report, const QByteArray& written) {
         QDataStream stream(written);
         qint32 tag = 0;
         qint32 length = 0;
         stream >> tag >> length;
         report.SetBinary(stream, length);
     }},
    {"Raw",
     [](const ReportBase& report) {
         return InStream(
             [&](QDataStream& stream) { report.GetVersionSpecificBinaryWithoutValidation(stream); });
     },
     [](ReportBase& report, const QByteArray& written) {
         QDataStream stream(written);
         report.SetVersionSpecificBinaryWithoutValidation(stream);
     }},
};

class FastPathForms : public ::testing::TestWithParam<Form>
{
protected:
    void SetUp() override
    {
        if (!Support::Allocations::AreCounted())
            GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    }
};

TEST_P(FastPathForms, TakeMemoryAFewTimesWhenWritten)
{
    const ReportBase report = ReportOfManyPoints();
    const Support::Allocations allocations;
    GetParam().write(report);
    EXPECT_LT(allocations.Count(), SOME);
}

TEST_P(FastPathForms, TakeMemoryAFewTimesWhenRead)
{
    const ReportBase report = ReportOfManyPoints();
    const QByteArray written = GetParam().write(report);
    ReportBase read;
    {
        const Support::Allocations allocations;
        GetParam().read(read, written);
        EXPECT_LT(allocations.Count(), SOME);
    }
    EXPECT_EQ(read, report);
}

INSTANTIATE_TEST_SUITE_P(Forms, FastPathForms, ::testing::ValuesIn(FORMS),
                         [](const auto& form) { return std::string(form.param.name); });

TEST(FastPath, ReadsXmlWithCommentsBetweenItsTags)
{
    if (!Support::Allocations::AreCounted())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    const ReportBase report = ReportOfManyPoints();
    QString xml = report.GetXmlString();
    xml.replace(QStringLiteral("<Coordinate>"), QStringLiteral("<!-- a\npoint -->\n<!----> <Coordinate>"));
    xml.replace(QStringLiteral("</Area>"), QStringLiteral("<!-- \u00e4\n -->\n</Area><!-- <Area> -->"));
    ReportBase read;
    {
        const Support::Allocations allocations;
        EXPECT_TRUE(read.SetXmlString(xml, true));
        EXPECT_LT(allocations.Count(), SOME);
    }
    EXPECT_EQ(read, report);
}

TEST(FastPath, LeavesMalformedCommentsToTheStreamPath)
{
    const QString point =
        QStringLiteral("<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>");
    for (const QString& comment :
         {QStringLiteral("<!-- -- -->"), QStringLiteral("<!-- --->"), QStringLiteral("<!-- \uFFFE -->"),
          QStringLiteral("<!-- \x01 -->"), QStringLiteral("<!-- "), QStringLiteral("<!- a -->")}) {
        SCOPED_TRACE(comment.toStdString());
        ReportBase report;
        EXPECT_THROW(report.SetXmlString(QStringLiteral("<ReportBase>%1<Area Version=\"1.0\"><Name>N</Name>%2"
                                                        "</Area></ReportBase>")
                                             .arg(comment, point),
                                         true),
                     RGException);
        EXPECT_FALSE(report.IsAreaSet());
        EXPECT_THROW(
            report.SetXmlString(QStringLiteral("<ReportBase><Area Version=\"1.0\"><Name>N</Name>%2%1%2"
                                               "</Area></ReportBase>")
                                    .arg(comment, point),
                                true),
            RGException);
        EXPECT_EQ(std::as_const(report).GetArea().GetCoordinate().size(), 1);
    }
}

TEST(FastPath, LeavesTextsThatAreNoUtf8ToTheStreamPath)
{
    for (const char* const text : {"\xff", "a\xff", "a&amp;\xff", "\xff&amp;"}) {
        SCOPED_TRACE(::testing::PrintToString(text));
        Support::OpenFile file(
            QByteArray("<ReportBase><Area Version=\"1.0\"><Name>") + text +
            "</Name><Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
            "</Area></ReportBase>");
        ReportBase report;
        EXPECT_RG_THROW(report.LoadXml(file.Get()), "RGException",
                        "Encountered incorrectly encoded content.");
        EXPECT_FALSE(std::as_const(report).GetArea().IsNameSet());
    }
    Support::OpenFile file("<ReportBase><!-- \xff --><Frequency>5</Frequency></ReportBase>");
    ReportBase report;
    EXPECT_RG_THROW(report.LoadXml(file.Get()), "RGException", "Encountered incorrectly encoded content.");
    EXPECT_FALSE(report.IsFrequencySet());
}

} // namespace
