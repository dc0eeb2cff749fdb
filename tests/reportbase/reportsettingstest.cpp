// When a report or an area that reads passes validate flag and logger on: with each child element, whatever came
// before, and not at all without one.

#include "support/expect.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using Support::At;
using Support::Lake;
using Support::NewLogger;
using Support::NotValidating;
using Support::ReadElement;
using Support::StreamPathOnly;
using Support::Text;

const char* const POINT = "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>";

/// Reads a child by itself, as a derived class may.
template <class Object>
class Open : public Object
{
public:
    void ReadChild(const char* xml)
    {
        QXmlStreamReader reader{Text(xml)};
        ASSERT_TRUE(reader.readNextStartElement());
        this->ProcessXmlStartElement(reader);
    }
};

void ExpectSettled(const IRGObject& member, const IRGObject& holder)
{
    EXPECT_EQ(member.GetValidate(), holder.GetValidate()) << member.GetObjectName().toStdString();
    EXPECT_EQ(member.GetLogger(), holder.GetLogger()) << member.GetObjectName().toStdString();
}

void ExpectSettled(const Area& area)
{
    EXPECT_FALSE(area.GetCoordinate().isEmpty());
    for (const Coordinate& coordinate : area.GetCoordinate())
        ExpectSettled(coordinate, area);
}

void ExpectSettled(const ReportBase& report)
{
    ExpectSettled(report.GetFrequency(), report);
    ExpectSettled(report.GetIFBandwidth(), report);
    ExpectSettled(report.GetArea(), report);
    ExpectSettled(report.GetArea());
}

// --- Areas ------------------------------------------------------------------------------------------------

/// Two points, settled by a reading.
Area Read(bool validate, const std::shared_ptr<REPORTGENERATOR::Logger>& logger)
{
    Area area;
    area.SetValidate(validate);
    area.SetLogger(logger);
    ReadElement(area, Text("<Area Version=\"1.0\"><Name>N</Name>%1%1</Area>").arg(Text(POINT)));
    return area;
}

/// The ways of reading that neither make nor reset anything on their way to the first child.
const std::pair<const char*, void (*)(Area&)> WAYS_TO_READ[] = {
    {"ProcessXml",
     [](Area& area) { ReadElement(area, Text("<Area Version=\"1.0\"><Name>M</Name></Area>")); }},
    {"MergeRGObject",
     [](Area& area) {
         Area other = NotValidating<Area>();
         other.SetName(QStringLiteral("M"));
         area.MergeRGObject(other);
     }},
};

using List = std::function<QVector<Coordinate>&()>;

/// What leaves coordinates with other settings than the area's.
const std::pair<const char*, void (*)(Area&, const List&)> DISTURBANCES[] = {
    {"assigned", [](Area& area, const List&) { area = Read(true, NewLogger()); }},
    {"assigned and appended to",
     [](Area& area, const List&) {
         area = Read(true, NewLogger());
         area.AppendCoordinate(At(5.0, 6.0));
     }},
    {"without its logger", [](Area& area, const List&) { area.ResetLogger(); }},
    {"given another list", [](Area& area, const List&) { area.SetCoordinate({At(5.0, 6.0)}); }},
    {"changed through the constant list",
     [](Area& area, const List&) {
         std::as_const(area).GetCoordinate().at(0).SetValidate(true);
         std::as_const(area).GetCoordinate().at(1).SetLogger(NewLogger());
     }},
    {"changed through the list",
     [](Area&, const List& list) {
         list()[0].SetValidate(true);
         list()[1].SetLogger(nullptr);
     }},
    {"replaced and appended to in the list",
     [](Area&, const List& list) {
         list() = {At(5.0, 6.0), At(7.0, 8.0)};
         list().append(At(9.0, 10.0));
     }},
};

TEST(AreaSettling, CoordinatesGetTheSettingsOfTheirAreaAgainWhateverCameBefore)
{
    for (const auto& [way, read] : WAYS_TO_READ) {
        for (const auto& [disturbance, disturb] : DISTURBANCES) {
            for (const bool isHeld : {false, true}) {
                SCOPED_TRACE(Text("%1, %2").arg(Text(way), Text(disturbance)).toStdString());
                const auto logger = NewLogger();
                Area area = Read(false, logger);
                area.SetLogger(logger);
                QVector<Coordinate>* const held = isHeld ? &area.GetCoordinate() : nullptr;
                read(area);
                disturb(area, [&]() -> QVector<Coordinate>& { return held ? *held : area.GetCoordinate(); });
                read(area);
                ExpectSettled(area);
                logger->Reset(true);
                EXPECT_NO_RG_THROW(area.GetCoordinate()[0].SetLongitude(200.0));
                if (area.GetLogger() == nullptr) {
                    EXPECT_LOG(logger, {});
                }
            }
        }
    }
}

/// Is told of warnings, and does something.
class LoggerThatActs : public REPORTGENERATOR::Logger
{
public:
    explicit LoggerThatActs(std::function<void()> act)
        : Logger(REPORTGENERATOR::WARNING), m_act(std::move(act))
    {
    }

    using Logger::Trace;
    void Trace(REPORTGENERATOR::LogLevel level, const QString& /*text*/, bool /*fatal*/) override
    {
        if (level == REPORTGENERATOR::WARNING)
            m_act();
    }
    bool HasErrors() const override { return false; }
    void Reset(bool /*clearEntries*/) override {}

private:
    std::function<void()> m_act;
};

TEST(AreaSettling, ALoggerThatIsTakenAwayWithinAReadingIsTakenFromTheCoordinatesToo)
{
    Area area = NotValidating<Area>();
    area.SetLogger(std::make_shared<LoggerThatActs>([&] { area.ResetLogger(); }));
    // The second coordinate is incomplete: its warning takes the logger away.
    ReadElement(area, Text("<Area Version=\"1.0\">%1<Coordinate><Longitude>3</Longitude></Coordinate>"
                           "<Name>N</Name></Area>")
                          .arg(Text(POINT)));
    EXPECT_EQ(area.GetLogger(), nullptr);
    ExpectSettled(area);
}

TEST(AreaSettling, WhatALoggerDoesToAnAreaIsUndoneByTheNextOneInTheReport)
{
    const std::function<void(Area&)> changes[] = {
        [](Area& area) { std::as_const(area).GetCoordinate().at(0).SetValidate(true); },
        [](Area& area) { area.GetCoordinate()[0].ResetLogger(); },
        [](Area& area) { area = Lake(); },
        [](Area& area) { area.SetCoordinate({At(1.0, 2.0)}); },
    };
    for (const auto& change : changes) {
        ReportBase report = NotValidating<ReportBase>();
        report.SetLogger(std::make_shared<LoggerThatActs>([&] { change(report.GetArea()); }));
        ReadElement(report, Text("<ReportBase><Area Version=\"1.0\"><Name>N</Name>%1<Coordinate>"
                                 "<Longitude>3</Longitude></Coordinate></Area>"
                                 "<Area Version=\"1.0\"><Name>N</Name></Area></ReportBase>")
                                .arg(Text(POINT)));
        ExpectSettled(std::as_const(report).GetArea());
    }
}

TEST(AreaSettling, AListThatIsShortenedInItsPlaceWithinAReadingIsServedFromItsBeginning)
{
    // The list stays in its place unless the incomplete one has made it grow.
    for (int points = 2; points < 10; ++points) {
        SCOPED_TRACE(points);
        Area area = NotValidating<Area>();
        area.SetLogger(std::make_shared<LoggerThatActs>([&] {
            area.GetCoordinate().resize(1);
            area.GetCoordinate()[0].ResetLogger();
        }));
        ReadElement(area, Text("<Area Version=\"1.0\">%1<Coordinate><Longitude>3</Longitude></Coordinate>"
                               "<Name>N</Name></Area>")
                              .arg(Text(POINT).repeated(points)));
        EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 1);
        ExpectSettled(area);
    }
}

TEST(AreaSettling, AChildThatIsReadByItselfIsAReadingOfItsOwn)
{
    Open<Area> area;
    area.SetValidate(false);
    area.SetLogger(NewLogger());
    area.SetCoordinate({At(1.0, 2.0), At(3.0, 4.0)});
    for (int i = 0; i < 2; ++i) {
        std::as_const(area).GetCoordinate().at(i).SetValidate(true);
        std::as_const(area).GetCoordinate().at(i).SetLogger(nullptr);
        area.ReadChild("<Name>N</Name>");
        ExpectSettled(area);
    }
}

TEST(AreaSettling, AnOverrideOfResetMayTakeTheRecordAway)
{
    class Taking : public Area
    {
    public:
        void Reset() override { Area::operator=(Area()); }
    };
    Taking area;
    area.SetValidate(false);
    area.AppendCoordinate(At(3.0, 4.0));
    ReadElement(area, Text("<Area Version=\"0.5\"><Name>N</Name>%1</Area>").arg(Text(POINT)));
    EXPECT_EQ(area.GetName(), Text("N"));
    EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 1);
    ExpectSettled(area);
}

TEST(AreaSettling, AnElementWithoutChildrenLeavesTheCoordinatesAlone)
{
    Area area = NotValidating<Area>();
    area = Lake();
    area.SetLogger(NewLogger());
    const auto logger = NewLogger();
    area.GetCoordinate()[0].SetLogger(logger);
    ReadElement(area, QStringLiteral("<Area Version=\"1.0\"/>"));
    EXPECT_EQ(std::as_const(area).GetCoordinate().at(0).GetLogger(), logger);
    EXPECT_TRUE(std::as_const(area).GetCoordinate().at(0).GetValidate());
}

// --- Reports ----------------------------------------------------------------------------------------------

/// Members and coordinates validate and have no logger; the report does neither.
template <class Report>
void GiveOtherSettings(Report& report)
{
    ReportBase source;
    source.SetArea(Lake());
    report.SetValidate(false);
    report.SetLogger(NewLogger());
    static_cast<ReportBase&>(report) = source;
}

TEST(ReportSettings, ArePassedOnWithEachChildThatADerivedClassHasRead)
{
    for (const char* child : {"<Frequency>1</Frequency>", "<Unknown/>", "<Area Version=\"1.0\"/>"}) {
        SCOPED_TRACE(child);
        Open<ReportBase> report;
        GiveOtherSettings(report);
        report.ReadChild(child);
        ExpectSettled(report);
    }
}

TEST(ReportSettings, ArePassedOnAgainWhenADerivedClassHasChangedThemMeanwhile)
{
    class Changing : public ReportBase
    {
    protected:
        void ProcessXmlStartElement(QXmlStreamReader& reader) override
        {
            GetFrequency().SetValidate(true);
            GetFrequency().ResetLogger();
            change(GetArea());
            ReportBase::ProcessXmlStartElement(reader);
            ExpectSettled(*this);
        }

    public:
        std::function<void(Area& area)> change;
    };
    Coordinate other = At(1.0, 2.0);
    QVector<Coordinate>* held = nullptr;
    const std::function<void(Area&)> changes[] = {
        [](Area& area) { area.GetCoordinate()[0].SetValidate(true); },
        [](Area& area) { std::as_const(area).GetCoordinate().at(0).SetLogger(NewLogger()); },
        [&](Area& area) {
            held = held ? held : &area.GetCoordinate();
            held->first().ResetLogger();
        },
        [&](Area& area) {
            area.ResetCoordinate();
            area.AppendCoordinate(other);
        },
        [&](Area& area) { area.SetCoordinate({other}); },
    };
    for (const auto& change : changes) {
        Changing report;
        report.change = change;
        GiveOtherSettings(report);
        ReadElement(report,
                    Text("<ReportBase><Unknown/><Unknown/><Area Version=\"1.0\"><Name>N</Name>%1</Area>"
                         "<Unknown/><Area Version=\"1.0\"><Name>N</Name></Area><Unknown/></ReportBase>")
                        .arg(Text(POINT)));
    }
}

/// By the class itself and by a subclass, which reads by Qt's reader in every case.
template <class Object>
void ExpectNothingIsPassedOn(const std::function<void(ReportBase&)>& read)
{
    Object report;
    GiveOtherSettings(report);
    read(report);
    const ReportBase& constant = report;
    for (const IRGObject* member : {static_cast<const IRGObject*>(&constant.GetFrequency()),
                                    static_cast<const IRGObject*>(&constant.GetIFBandwidth()),
                                    static_cast<const IRGObject*>(&constant.GetArea())}) {
        EXPECT_TRUE(member->GetValidate());
        EXPECT_EQ(member->GetLogger(), nullptr);
    }
}

TEST(ReportSettings, AnElementWithoutChildrenPassesNothingOn)
{
    const QString empty = QStringLiteral("<ReportBase/>");
    const Support::TemporaryFolder folder;
    const QString file = folder.Write("empty.xml", empty.toUtf8());
    const std::vector<std::function<void(ReportBase&)>> ways = {
        [&](ReportBase& report) { ReadElement(report, empty); },
        [&](ReportBase& report) { EXPECT_TRUE(report.SetXmlString(empty, true)); },
        [&](ReportBase& report) { EXPECT_TRUE(report.LoadXml(file)); },
        [](ReportBase& report) {
            ReadElement(report, Text("<ReportBase> text <!-- <Area/> --> </ReportBase>"));
        },
    };
    for (const auto& read : ways) {
        ExpectNothingIsPassedOn<ReportBase>(read);
        ExpectNothingIsPassedOn<StreamPathOnly<ReportBase>>(read);
    }
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

TEST(ReportSettings, GivenBeforeTheRecordReachTheMembersWhenItIsMade)
{
    ReportBase report;
    report.SetLogger(NewLogger());
    report.SetValidate(false);
    EXPECT_FALSE(report.IsInitialized());
    ExpectSettled(std::as_const(report).GetFrequency(), report);
    ExpectSettled(std::as_const(report).GetIFBandwidth(), report);
    ExpectSettled(std::as_const(report).GetArea(), report);
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
        const auto logger = NewLogger();
        report.SetLogger(logger);
        report.GetFrequency().ResetLogger();
        report.Check();
        EXPECT_EQ(report.GetFrequency().GetLogger(), logger);
        EXPECT_EQ(ofMember.use_count(), 2);
        EXPECT_EQ(ofReport.use_count(), hasReportOne ? 2 : 1);
    }
}

} // namespace
