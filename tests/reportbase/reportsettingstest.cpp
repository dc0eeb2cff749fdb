// When a report or an area that reads XML passes validate flag and logger on: with each child element, and
// not at all without one.

#include "support/expect.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/points.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ReportBase;
using Support::StreamPathOnly;

Area Lake()
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.AppendCoordinate(Support::At(1.0, 2.0));
    return area;
}

/// Members and coordinates validate and have no logger; the object does neither.
template <class Object>
void GiveOtherSettings(Object& object, const Object& source)
{
    object.SetValidate(false);
    object.SetLogger(Support::NewLogger());
    object = source;
}

void ExpectSettings(const Area& area, bool arePassedOn)
{
    const auto& points = area.GetCoordinate();
    ASSERT_FALSE(points.isEmpty());
    EXPECT_EQ(points.at(0).GetValidate(), !arePassedOn);
    EXPECT_EQ(points.at(0).GetLogger() != nullptr, arePassedOn);
}

void ExpectMemberSettings(const ReportBase& report, bool arePassedOn)
{
    for (const REPORTGENERATOR::IRGObject* member :
         {static_cast<const REPORTGENERATOR::IRGObject*>(&report.GetFrequency()),
          static_cast<const REPORTGENERATOR::IRGObject*>(&report.GetIFBandwidth()),
          static_cast<const REPORTGENERATOR::IRGObject*>(&report.GetArea())}) {
        EXPECT_EQ(member->GetValidate(), !arePassedOn);
        EXPECT_EQ(member->GetLogger() != nullptr, arePassedOn);
    }
}

/// A report whose reading step by step is open to the test.
class Report : public ReportBase
{
public:
    Report()
    {
        ReportBase source;
        source.SetArea(Lake());
        GiveOtherSettings<ReportBase>(*this, source);
    }

    using ReportBase::ProcessXmlStartElement;
};

TEST(ReportSettings, ArePassedOnWithEachChildThatADerivedClassHasRead)
{
    for (const char* child : {"<Frequency>1</Frequency>", "<Unknown/>", "<Area Version=\"1.0\"/>"}) {
        SCOPED_TRACE(child);
        Report report;
        QXmlStreamReader reader(QString::fromLatin1(child));
        reader.readNextStartElement();
        report.ProcessXmlStartElement(reader);
        ExpectMemberSettings(report, true);
        ExpectSettings(std::as_const(report).GetArea(), true);
    }
}

TEST(ReportSettings, ArePassedOnAgainWhenADerivedClassHasChangedThemMeanwhile)
{
    class Changing : public Report
    {
    protected:
        void ProcessXmlStartElement(QXmlStreamReader& reader) override
        {
            GetFrequency().SetValidate(true);
            GetFrequency().ResetLogger();
            Report::ProcessXmlStartElement(reader);
            EXPECT_FALSE(GetFrequency().GetValidate());
            EXPECT_TRUE(GetFrequency().GetLogger());
        }
    };
    Changing report;
    Support::ReadElement(report, QStringLiteral("<ReportBase><Unknown/><Unknown/></ReportBase>"));
}

/// By the class itself and by a subclass, which reads by Qt's reader in every case.
template <class Object>
void ExpectNothingIsPassedOn(const std::function<void(ReportBase&)>& read)
{
    ReportBase source;
    source.SetArea(Lake());
    Object report;
    GiveOtherSettings<ReportBase>(report, source);
    read(report);
    ExpectMemberSettings(report, false);
}

TEST(ReportSettings, AnElementWithoutChildrenPassesNothingOn)
{
    const QString empty = QStringLiteral("<ReportBase/>");
    const Support::TemporaryFolder folder;
    const QString file = folder.Write("empty.xml", empty.toUtf8());
    const std::vector<std::function<void(ReportBase&)>> ways = {
        [&](ReportBase& report) { Support::ReadElement(report, empty); },
        [&](ReportBase& report) { EXPECT_TRUE(report.SetXmlString(empty, true)); },
        [&](ReportBase& report) { EXPECT_TRUE(report.LoadXml(file)); },
    };
    for (const auto& read : ways) {
        ExpectNothingIsPassedOn<ReportBase>(read);
        ExpectNothingIsPassedOn<StreamPathOnly<ReportBase>>(read);
    }
}

TEST(ReportSettings, TextAndCommentsAreNoChildren)
{
    ExpectNothingIsPassedOn<ReportBase>([](ReportBase& report) {
        Support::ReadElement(report, QStringLiteral("<ReportBase> text <!-- <Area/> --> </ReportBase>"));
    });
}

TEST(ReportSettings, AnAreaWithoutChildrenPassesNothingOn)
{
    Area area;
    GiveOtherSettings(area, Lake());
    Support::ReadElement(area, QStringLiteral("<Area Version=\"1.0\"/>"));
    ExpectSettings(area, false);
    Support::ReadElement(area, QStringLiteral("<Area Version=\"1.0\"><Name>N</Name></Area>"));
    ExpectSettings(area, true);
}

TEST(ReportSettings, CheckingAfterReadingPassesThemOn)
{
    ReportBase source;
    source.SetArea(Lake());
    source.SetValidate(false);
    ReportBase report;
    report = source;
    EXPECT_TRUE(report.SetXmlString(QStringLiteral("<ReportBase/>"), true));
    EXPECT_TRUE(std::as_const(report).GetFrequency().GetValidate());
    EXPECT_TRUE(std::as_const(report).GetArea().GetValidate());
}

TEST(ReportSettings, AMemberKeepsItsVersionConverterAndGetsNoneOfItsReport)
{
    for (const bool hasReportOne : {false, true}) {
        ReportBase report;
        const auto ofReport = std::make_shared<REPORTGENERATOR::VersionConverterProxy>();
        const auto ofMember = std::make_shared<REPORTGENERATOR::VersionConverterProxy>();
        if (hasReportOne)
            report.InjectVersionConverter(ofReport);
        report.GetFrequency().InjectVersionConverter(ofMember);
        report.GetFrequency().SetValue(1.0);
        const auto logger = Support::NewLogger();
        report.SetLogger(logger);
        report.GetFrequency().ResetLogger();
        report.Check();
        EXPECT_EQ(report.GetFrequency().GetLogger(), logger);
        EXPECT_EQ(ofMember.use_count(), 2);
        EXPECT_EQ(ofReport.use_count(), hasReportOne ? 2 : 1);
    }
}

} // namespace
