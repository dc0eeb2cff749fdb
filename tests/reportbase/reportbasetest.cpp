#include "support/bytes.h"
#include "support/expect.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using Support::AreaState;
using Support::BodyOf;
using Support::ByteArray;
using Support::Bytes;
using Support::Int32;
using Support::NullString;
using Support::ReadElement;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::ReportState;
using Support::String;
using Support::Text;
using Support::Written;
namespace Tag = Support::Tag;

constexpr int FREQUENCY_FLAG = 1;
constexpr int BANDWIDTH_FLAG = 2;
constexpr int AREA_FLAG = 4;
constexpr int ALL_FLAGS = FREQUENCY_FLAG | BANDWIDTH_FLAG | AREA_FLAG;
constexpr qint32 GREATEST = std::numeric_limits<qint32>::max();
constexpr qint32 LEAST = std::numeric_limits<qint32>::min();

const char* const LENGTH_ERROR =
    "ReportBase::SetBinary(...): Length error occurred during processing of binary representation";

// --- Objects ----------------------------------------------------------------------------------------------

Frequency FrequencyOf(double value)
{
    Frequency frequency;
    frequency.SetValue(value);
    return frequency;
}

IFBandwidth BandwidthOf(double value)
{
    IFBandwidth bandwidth;
    bandwidth.SetValue(value);
    return bandwidth;
}

/// Name "Lake", one point, (1, 2).
Area Lake()
{
    Coordinate point;
    point.SetLongitude(1.0);
    point.SetLatitude(2.0);
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.AppendCoordinate(point);
    return area;
}

/// Frequency 5, IF bandwidth 6, the lake.
ReportBase Complete()
{
    ReportBase report;
    report.SetFrequency(FrequencyOf(5.0));
    report.SetIFBandwidth(BandwidthOf(6.0));
    report.SetArea(Lake());
    return report;
}

ReportState CompleteState()
{
    ReportState state;
    state.frequency = Support::FrequencyState();
    state.frequency->value = 5.0;
    state.bandwidth = Support::BandwidthState();
    state.bandwidth->value = 6.0;
    state.area = AreaState();
    state.area->name = QStringLiteral("Lake");
    state.area->coordinates = {{1.0, 2.0}};
    return state;
}

ReportBase NotValidating()
{
    ReportBase report;
    report.SetValidate(false);
    return report;
}

/// The complete report with other flags: members that are not carried keep their data.
ReportBase WithFlags(int flags)
{
    ReportBase report = Complete();
    Bytes raw = Support::Byte(flags);
    if (flags & FREQUENCY_FLAG)
        raw += Support::Byte(1) + Support::Double(5.0);
    if (flags & BANDWIDTH_FLAG)
        raw += Support::Byte(1) + Support::Double(6.0);
    if (flags & AREA_FLAG)
        raw += Support::Byte(3) + String(u"1.0") + String(u"Lake") + Int32(0);
    EXPECT_EQ(ReadRawForm(report, raw), 0);
    return report;
}

std::string Carried(const ReportBase& report)
{
    std::string members;
    if (report.IsFrequencySet())
        members += "frequency ";
    if (report.IsIFBandwidthSet())
        members += "bandwidth ";
    if (report.IsAreaSet())
        members += "area ";
    return members;
}

/// Renames an object as a class derived from it may.
class NameAccess : public Frequency
{
public:
    static void Rename(IRGObject& object, const QString& name)
    {
        (object.*(&NameAccess::SetObjectName))(name);
    }
};

class Renamed : public ReportBase
{
public:
    Renamed() { SetObjectName(QStringLiteral("Summary")); }
};

// --- Bytes and texts --------------------------------------------------------------------------------------

Bytes Value(const char* text)
{
    return Element(Tag::FREQUENCY_VALUE, ByteArray(text));
}

Bytes AreaElements()
{
    return Element(Tag::AREA_VERSION, String(u"1.0")) + Element(Tag::AREA_NAME, ByteArray("Lake")) +
           Element(Tag::AREA_COORDINATES,
                   Int32(1) + Support::Body(Element(Tag::COORDINATE_LONGITUDE, ByteArray("1.000000")) +
                                            Element(Tag::COORDINATE_LATITUDE, ByteArray("2.000000"))));
}

Bytes FrequencyElement(const char* value)
{
    return Element(Tag::REPORT_FREQUENCY, Value(value));
}

Bytes BandwidthElement(const char* value)
{
    return Element(Tag::REPORT_IF_BANDWIDTH, Value(value));
}

Bytes AreaElement()
{
    return Element(Tag::REPORT_AREA, AreaElements());
}

const char* const LAKE_XML =
    "<Area Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>1.000000</Longitude>"
    "<Latitude>2.000000</Latitude></Coordinate></Area>";

QString ReportXml(const char* content)
{
    return Text("<ReportBase>%1</ReportBase>").arg(Text(content));
}

} // namespace

// --- Members ----------------------------------------------------------------------------------------------

TEST(ReportBase, ConstantGettersGiveUninitializedMembersAndCarryNothing)
{
    const ReportBase report;
    EXPECT_FALSE(report.GetFrequency().IsInitialized());
    EXPECT_TRUE(report.IsInitialized());
    EXPECT_FALSE(report.GetIFBandwidth().IsInitialized());
    EXPECT_FALSE(report.GetArea().IsInitialized());
    EXPECT_EQ(Carried(report), "");
    EXPECT_FALSE(report.AnyData());
}

TEST(ReportBase, AskingForAModifiableMemberMakesTheReportCarryIt)
{
    ReportBase report;
    EXPECT_FALSE(report.GetFrequency().IsInitialized());
    EXPECT_EQ(Carried(report), "frequency ");
    EXPECT_FALSE(report.GetIFBandwidth().IsInitialized());
    EXPECT_EQ(Carried(report), "frequency bandwidth ");
    EXPECT_FALSE(report.GetArea().IsInitialized());
    EXPECT_EQ(Carried(report), "frequency bandwidth area ");
    EXPECT_FALSE(report.AnyData());
}

TEST(ReportBase, ModifiableMembersAreTheMembersThemselves)
{
    ReportBase report;
    report.GetFrequency().SetValue(5.0);
    report.GetIFBandwidth().SetValue(6.0);
    report.GetArea() = Lake();
    EXPECT_STATE(report, CompleteState());
    EXPECT_EQ(&report.GetFrequency(), &std::as_const(report).GetFrequency());
}

TEST(ReportBase, SettersTakeTheFieldsOfTheMember)
{
    ReportBase report;
    report.SetFrequency(FrequencyOf(5.0));
    EXPECT_EQ(Carried(report), "frequency ");
    report.SetIFBandwidth(BandwidthOf(6.0));
    EXPECT_EQ(Carried(report), "frequency bandwidth ");
    report.SetArea(Lake());
    EXPECT_EQ(Carried(report), "frequency bandwidth area ");
    EXPECT_STATE(report, CompleteState());

    report.SetFrequency(Frequency());
    EXPECT_TRUE(report.IsFrequencySet());
    EXPECT_FALSE(std::as_const(report).GetFrequency().IsInitialized());
}

TEST(ReportBase, SettersLeaveNameAndSettingsOfTheMemberAlone)
{
    ReportBase report;
    NameAccess::Rename(report.GetFrequency(), QStringLiteral("Rx"));
    Frequency frequency = FrequencyOf(5.0);
    frequency.SetValidate(false);
    const auto logger = Support::NewLogger();
    frequency.SetLogger(logger);
    report.SetFrequency(frequency);
    EXPECT_TEXT(report.GetFrequency().GetObjectName(), "Rx");
    EXPECT_TRUE(report.GetFrequency().GetValidate());
    EXPECT_EQ(report.GetFrequency().GetLogger(), nullptr);
    EXPECT_EQ(report.GetFrequency().GetValue(), 5.0);
}

TEST(ReportBase, EveryMemberIsValid)
{
    const ReportBase report;
    EXPECT_TRUE(report.IsValidFrequency(Frequency()));
    EXPECT_TRUE(report.IsValidIFBandwidth(IFBandwidth()));
    EXPECT_TRUE(report.IsValidArea(Area()));
    EXPECT_FALSE(report.IsInitialized());
}

TEST(ReportBase, ResettingAMemberDropsItAloneAndItsData)
{
    ReportBase report = Complete();
    report.ResetFrequency();
    EXPECT_EQ(Carried(report), "bandwidth area ");
    EXPECT_FALSE(std::as_const(report).GetFrequency().IsInitialized());
    report.ResetArea();
    EXPECT_EQ(Carried(report), "bandwidth ");
    EXPECT_FALSE(std::as_const(report).GetArea().IsInitialized());
    EXPECT_TRUE(report.AnyData());
    report.ResetIFBandwidth();
    EXPECT_EQ(Carried(report), "");
    EXPECT_FALSE(std::as_const(report).GetIFBandwidth().IsInitialized());
    EXPECT_FALSE(report.AnyData());
    EXPECT_TRUE(report.IsInitialized());
}

TEST(ReportBase, ResettingAMemberThatIsNotCarriedDropsItsData)
{
    ReportBase report = WithFlags(0);
    EXPECT_TRUE(std::as_const(report).GetArea().AnyData());
    report.ResetArea();
    EXPECT_FALSE(std::as_const(report).GetArea().IsInitialized());
    EXPECT_TRUE(std::as_const(report).GetFrequency().AnyData());
}

TEST(ReportBase, ResetDropsAllMembersAndKeepsTheRecord)
{
    for (const bool toDefault : {true, false}) {
        ReportBase report = Complete();
        if (toDefault)
            report.ResetToDefault();
        else
            report.Reset();
        EXPECT_TRUE(report.IsInitialized());
        EXPECT_EQ(Carried(report), "");
        EXPECT_FALSE(std::as_const(report).GetFrequency().IsInitialized());
        EXPECT_FALSE(std::as_const(report).GetIFBandwidth().IsInitialized());
        EXPECT_FALSE(std::as_const(report).GetArea().IsInitialized());
    }
}

TEST(ReportBase, ResetKeepsNamesAndSettingsOfTheMembers)
{
    ReportBase report = Complete();
    const auto logger = Support::NewLogger();
    report.SetLogger(logger);
    report.SetValidate(false);
    NameAccess::Rename(report.GetArea(), QStringLiteral("Region"));
    report.Reset();
    EXPECT_TEXT(std::as_const(report).GetArea().GetObjectName(), "Region");
    EXPECT_EQ(std::as_const(report).GetArea().GetLogger(), logger);
    EXPECT_FALSE(std::as_const(report).GetArea().GetValidate());
}

TEST(ReportBase, AnyDataAsksTheMembersAndNotTheFlags)
{
    EXPECT_TRUE(WithFlags(0).AnyData());
    ReportBase report;
    report.GetFrequency();
    report.GetArea();
    EXPECT_FALSE(report.AnyData());
    report.GetIFBandwidth().SetMin(1.0);
    EXPECT_TRUE(report.AnyData());
    report.GetIFBandwidth().Reset();
    EXPECT_FALSE(report.AnyData());
    report.GetArea().SetScriptID(QStringLiteral(""));
    EXPECT_TRUE(report.AnyData());
}

TEST(ReportBase, HasDataIsAlwaysTrue)
{
    EXPECT_TRUE(ReportBase().HasData());
    EXPECT_TRUE(Complete().HasData());
    ReportBase report = Complete();
    report.Reset();
    EXPECT_TRUE(report.HasData());
}

// --- Comparison -------------------------------------------------------------------------------------------

TEST(ReportBase, MembersMatchWhenCarriedByNeitherOrByBothAndEqual)
{
    for (int left = 0; left <= ALL_FLAGS; ++left) {
        for (int right = 0; right <= ALL_FLAGS; ++right) {
            const ReportBase one = WithFlags(left);
            const ReportBase other = WithFlags(right);
            EXPECT_EQ(one == other, left == right) << left << " and " << right;
            EXPECT_EQ(one != other, left != right) << left << " and " << right;
        }
    }
}

TEST(ReportBase, EachMemberTakesPartInTheComparison)
{
    EXPECT_TRUE(Complete() == Complete());
    ReportBase report = Complete();
    report.GetFrequency().SetMin(1.0);
    EXPECT_FALSE(report == Complete());
    report = Complete();
    report.GetIFBandwidth().SetValue(7.0);
    EXPECT_FALSE(report == Complete());
    report = Complete();
    report.GetArea().SetScriptID(QStringLiteral("S"));
    EXPECT_FALSE(report == Complete());
    EXPECT_TRUE(report != Complete());
}

TEST(ReportBase, AMemberWithoutDataThatIsCarriedDiffersFromOneThatIsNot)
{
    ReportBase report;
    report.GetFrequency();
    EXPECT_FALSE(report == ReportBase());
    EXPECT_FALSE(ReportBase() == report);
    ReportBase other;
    other.SetFrequency(Frequency());
    EXPECT_TRUE(report == other);
}

TEST(ReportBase, DataOfMembersThatAreNotCarriedDoNotCount)
{
    EXPECT_TRUE(WithFlags(0) == ReportBase());
    EXPECT_TRUE(ReportBase() == WithFlags(0));
}

// --- Check ------------------------------------------------------------------------------------------------

TEST(ReportBase, CheckDoesNotAskMembersThatAreNotCarried)
{
    ReportBase report;
    Frequency& frequency = report.GetFrequency();
    report.ResetFrequency();
    frequency.SetMin(1.0);
    EXPECT_TRUE(report.AnyData());
    EXPECT_NO_RG_THROW(report.Check());
}

// --- XML writing ------------------------------------------------------------------------------------------

TEST(ReportBase, XmlOfAReportThatCarriesNothingIsAnEmptyElement)
{
    EXPECT_XML(ReportBase(), "\n<ReportBase/>");
    EXPECT_XML(NotValidating(), "\n<ReportBase/>");
    EXPECT_XML(WithFlags(0), "\n<ReportBase/>");
}

TEST(ReportBase, XmlHoldsTheCarriedMembersInTheirOrder)
{
    ReportBase report;
    report.SetArea(Lake());
    report.SetIFBandwidth(BandwidthOf(6.0));
    report.SetFrequency(FrequencyOf(5.0));
    EXPECT_XML(report, "\n<ReportBase>\n"
                       "    <Frequency>5.00</Frequency>\n"
                       "    <IFBandwidth>6.00</IFBandwidth>\n"
                       "    <Area Version=\"1.0\">\n"
                       "        <Name>Lake</Name>\n"
                       "        <Coordinate>\n"
                       "            <Longitude>1.000000</Longitude>\n"
                       "            <Latitude>2.000000</Latitude>\n"
                       "        </Coordinate>\n"
                       "    </Area>\n"
                       "</ReportBase>");
    EXPECT_XML(WithFlags(BANDWIDTH_FLAG),
               "\n<ReportBase>\n    <IFBandwidth>6.00</IFBandwidth>\n</ReportBase>");
}

TEST(ReportBase, XmlElementBearsTheCurrentNameAndSoDoThoseOfTheMembers)
{
    Renamed report;
    report.SetFrequency(FrequencyOf(5.0));
    NameAccess::Rename(report.GetFrequency(), QStringLiteral("Rx"));
    report.SetArea(Lake());
    NameAccess::Rename(report.GetArea(), QStringLiteral("Region"));
    EXPECT_TEXT(
        Support::UnindentedXmlOf(report),
        "<Summary><Rx>5.00</Rx><Region Version=\"1.0\"><Name>Lake</Name><Coordinate>"
        "<Longitude>1.000000</Longitude><Latitude>2.000000</Latitude></Coordinate></Region></Summary>");
}

TEST(ReportBase, XmlHoldsMembersWithoutDataAsTheyStandWhenNotValidating)
{
    ReportBase report = NotValidating();
    report.GetFrequency();
    report.GetIFBandwidth();
    report.GetArea();
    EXPECT_XML(report, "\n<ReportBase>\n"
                       "    <Frequency>0.00</Frequency>\n"
                       "    <IFBandwidth>0.00</IFBandwidth>\n"
                       "    <Area Version=\"1.0\">\n"
                       "        <Name></Name>\n"
                       "    </Area>\n"
                       "</ReportBase>");
}

TEST(ReportBase, ACarriedAreaWithAnEmptyListIsLeftOutWhenValidating)
{
    ReportBase report;
    report.GetArea().SetName(QStringLiteral("Lake"));
    report.GetArea().GetCoordinate();
    EXPECT_XML(report, "\n<ReportBase/>");
    EXPECT_BYTES(BodyOf(report), Element(1, Bytes()));
}

// --- XML reading ------------------------------------------------------------------------------------------

TEST(ReportBase, XmlReadingTakesTheMembersInAnyOrder)
{
    ReportBase report;
    EXPECT_TRUE(report.SetXmlString(
        ReportXml((std::string(LAKE_XML) + "<IFBandwidth>6</IFBandwidth><Frequency>5</Frequency>").c_str()),
        true));
    ReportState state = CompleteState();
    state.area->initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(report, state);
    EXPECT_TRUE(report == Complete());
}

TEST(ReportBase, RepeatedMembersAddUp)
{
    ReportBase report;
    EXPECT_TRUE(report.SetXmlString(ReportXml((std::string("<Frequency Min=\"1\">2</Frequency>") + LAKE_XML +
                                               "<Frequency Max=\"3\">4</Frequency>" + LAKE_XML)
                                                  .c_str()),
                                    true));
    ReportState state;
    state.frequency = Support::FrequencyState();
    state.frequency->value = 4.0;
    state.frequency->min = 1.0;
    state.frequency->max = 3.0;
    state.area = CompleteState().area;
    state.area->coordinates = {{1.0, 2.0}, {1.0, 2.0}};
    state.area->initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(report, state);
}

TEST(ReportBase, ARepeatedAreaOfAnOlderVersionStartsAnew)
{
    ReportBase report = NotValidating();
    EXPECT_TRUE(report.SetXmlString(
        ReportXml((std::string(LAKE_XML) + "<Area Version=\"0.9\"><ScriptID>S</ScriptID></Area>").c_str()),
        true));
    ReportState state;
    state.area = AreaState();
    state.area->scriptID = QStringLiteral("S");
    state.area->initialVersionLoaded = QStringLiteral("0.9");
    EXPECT_STATE(report, state);
}

TEST(ReportBase, WhatFollowsAnUnknownChildOfTheAreaIsLeftToTheReportWhenNotValidating)
{
    const QString xml = ReportXml("<Area Version=\"1.0\"><Name>Lake</Name><Foo/><Frequency>5</Frequency>"
                                  "<ScriptID>S</ScriptID></Area><IFBandwidth>6</IFBandwidth>");
    ReportBase report = NotValidating();
    const auto logger = Support::NewLogger();
    report.SetLogger(logger);
    EXPECT_TRUE(report.SetXmlString(xml, true));
    ReportState state;
    state.frequency = CompleteState().frequency;
    state.area = AreaState();
    state.area->name = QStringLiteral("Lake");
    state.area->initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(report, state);
    EXPECT_LOG(logger, {"INFO: ReportBase: Loading xml string.",
                        "WARNING: InvalidXmlException: Unknown Tag 'Foo' in 'Area'."});
    EXPECT_TEXT(ReadElement(report, xml), "</Area>");

    ReportBase validating;
    EXPECT_RG_THROW(validating.SetXmlString(xml, true), "InvalidXmlException",
                    "Unknown Tag 'Foo' in 'Area'.");
    EXPECT_EQ(Carried(validating), "");
}

TEST(ReportBase, MembersAreToldApartByTheirCurrentNames)
{
    ReportBase report;
    NameAccess::Rename(report.GetFrequency(), QStringLiteral("Rx"));
    NameAccess::Rename(report.GetIFBandwidth(), QStringLiteral("Frequency"));
    NameAccess::Rename(report.GetArea(), QStringLiteral("Region"));
    EXPECT_TRUE(report.SetXmlString(
        ReportXml("<Rx>1</Rx><Frequency>2</Frequency><IFBandwidth>3</IFBandwidth><Area/>"), true));
    EXPECT_EQ(Carried(report), "frequency bandwidth ");
    EXPECT_EQ(report.GetFrequency().GetValue(), 1.0);
    EXPECT_EQ(report.GetIFBandwidth().GetValue(), 2.0);
    EXPECT_XML(report, "\n<ReportBase>\n    <Rx>1.00</Rx>\n    <Frequency>2.00</Frequency>\n</ReportBase>");
}

TEST(ReportBase, OfMembersWithTheSameNameTheFirstTakesTheElement)
{
    ReportBase report = NotValidating();
    NameAccess::Rename(report.GetArea(), QStringLiteral("Same"));
    NameAccess::Rename(report.GetIFBandwidth(), QStringLiteral("Same"));
    report.Reset();
    EXPECT_TRUE(report.SetXmlString(ReportXml("<Same>1</Same>"), true));
    EXPECT_EQ(Carried(report), "bandwidth ");
    NameAccess::Rename(report.GetFrequency(), QStringLiteral("Same"));
    EXPECT_TRUE(report.SetXmlString(ReportXml("<Same>1</Same>"), true));
    EXPECT_EQ(Carried(report), "frequency ");
}

TEST(ReportBase, ACopyBearsTheOriginalNamesOfItsMembers)
{
    ReportBase report = Complete();
    NameAccess::Rename(report.GetFrequency(), QStringLiteral("Rx"));
    report.ResetIFBandwidth();
    report.ResetArea();
    EXPECT_XML(ReportBase(report), "\n<ReportBase>\n    <Frequency>5.00</Frequency>\n</ReportBase>");
}

TEST(ReportBase, AnIncompleteMemberFailsTheCheckWhenValidating)
{
    ReportBase report;
    EXPECT_RG_THROW(report.SetXmlString(ReportXml("<Frequency>5</Frequency><Area Version=\"1.0\"/>"), true),
                    "OutOfRangeException", "Area: Please set Name properly.");
    EXPECT_EQ(Carried(report), "frequency area ");
    report.SetValidate(false);
    EXPECT_TRUE(report.SetXmlString(ReportXml("<Frequency>5</Frequency><Area Version=\"1.0\"/>"), true));
    EXPECT_EQ(Carried(report), "frequency area ");
}

TEST(ReportBase, AttributesOfAMemberThatMetMalformedTextStayInIt)
{
    ReportBase report;
    const QString xml = QStringLiteral("<ReportBase><Frequency Min=\"1\">6");
    EXPECT_RG_THROW(report.SetXmlString(xml, false), "RGException", Support::XmlErrorOf(xml));
    EXPECT_FALSE(report.IsFrequencySet());
    EXPECT_TRUE(std::as_const(report).GetFrequency().IsMinSet());
    EXPECT_TRUE(report.AnyData());
}

// --- Tagged form ------------------------------------------------------------------------------------------

TEST(ReportBase, BodyHoldsTheCarriedMembersInTheirOrder)
{
    EXPECT_BYTES(BodyOf(ReportBase()), Element(1, Bytes()));
    EXPECT_BYTES(BodyOf(WithFlags(0)), Element(1, Bytes()));
    EXPECT_BYTES(BodyOf(Complete()),
                 Element(1, FrequencyElement("5.00") + BandwidthElement("6.00") + AreaElement()));
    EXPECT_BYTES(BodyOf(Complete(), -3, false),
                 Support::Body(FrequencyElement("5.00") + BandwidthElement("6.00") + AreaElement()));
    EXPECT_BYTES(BodyOf(WithFlags(AREA_FLAG)), Element(1, AreaElement()));
    EXPECT_BYTES(BodyOf(WithFlags(FREQUENCY_FLAG | AREA_FLAG)),
                 Element(1, FrequencyElement("5.00") + AreaElement()));
    Written([](QDataStream& stream) { EXPECT_TRUE(ReportBase().GetBinary(stream, 1, true)); });
}

TEST(ReportBase, BodyHoldsMembersWithoutDataAsTheyStandWhenNotValidating)
{
    ReportBase report = NotValidating();
    report.GetFrequency();
    report.GetArea();
    EXPECT_BYTES(
        BodyOf(report),
        Element(1, FrequencyElement("0.00") +
                       Element(Tag::REPORT_AREA, Element(Tag::AREA_VERSION, String(u"1.0")) +
                                                     Element(Tag::AREA_NAME, Support::NullByteArray()) +
                                                     Element(Tag::AREA_COORDINATES, Int32(0)))));
}

TEST(ReportBase, MemberElementsMayComeInAnyOrder)
{
    ReportBase report;
    EXPECT_EQ(ReadElements(report, AreaElement() + BandwidthElement("6") + FrequencyElement("5")), 0);
    EXPECT_TRUE(report == Complete());
}

TEST(ReportBase, OfRepeatedMemberElementsTheLastCounts)
{
    ReportBase report;
    EXPECT_EQ(
        ReadElements(
            report, Element(Tag::REPORT_FREQUENCY, Value("1") + Element(Tag::FREQUENCY_MIN, ByteArray("2"))) +
                        AreaElement() + FrequencyElement("5") + BandwidthElement("6") + AreaElement()),
        0);
    EXPECT_TRUE(report == Complete());
}

TEST(ReportBase, MemberElementsOfLengthZeroAreCarriedWithoutDataAndNotChecked)
{
    ReportBase report;
    EXPECT_EQ(ReadElements(report, Element(Tag::REPORT_FREQUENCY, Bytes()) +
                                       Element(Tag::REPORT_IF_BANDWIDTH, Bytes()) +
                                       Element(Tag::REPORT_AREA, Bytes())),
              0);
    EXPECT_EQ(Carried(report), "frequency bandwidth area ");
    EXPECT_FALSE(report.AnyData());
}

TEST(ReportBase, AMembersOwnLengthErrorEndsTheReadingAndTheMemberIsNotCarried)
{
    struct Row
    {
        const char* name;
        Bytes elements;
        const char* carried;
    };
    const std::vector<Row> rows = {
        {"Frequency",
         BandwidthElement("6") + ElementOfLength(Tag::REPORT_FREQUENCY, 12, Value("5")) + AreaElement(),
         "bandwidth "},
        {"IFBandwidth", FrequencyElement("5") + ElementOfLength(Tag::REPORT_IF_BANDWIDTH, 14, Value("6")),
         "frequency "},
        {"Area",
         BandwidthElement("6") +
             ElementOfLength(Tag::REPORT_AREA, AreaElements().Size() + 1, AreaElements()) +
             FrequencyElement("5"),
         "bandwidth "},
        {"Frequency", ElementOfLength(Tag::REPORT_FREQUENCY, -1, Value("5")), ""},
        {"Area", ElementOfLength(Tag::REPORT_AREA, LEAST, AreaElements()), ""},
    };
    for (const Row& row : rows) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(row.name);
            ReportBase report = Complete();
            report.SetValidate(validate);
            const auto logger = Support::NewLogger();
            report.SetLogger(logger);
            const QString message = Text(row.name) + QStringLiteral("::SetBinary(...): Length error occurred "
                                                                    "during processing of binary "
                                                                    "representation");
            EXPECT_RG_THROW(ReadElements(report, row.elements), "BinaryParsingException", message);
            EXPECT_EQ(Carried(report), row.carried);
            EXPECT_LOG(logger,
                       QStringList{QStringLiteral("FATAL ERROR: BinaryParsingException: ") + message});
        }
    }
}

TEST(ReportBase, AMemberThatRefusesItsElementsIsNotCarried)
{
    ReportBase report;
    const Bytes nullName = Element(Tag::REPORT_AREA, Element(Tag::AREA_SCRIPT_ID, ByteArray("S")) +
                                                         Element(Tag::AREA_NAME, Support::NullByteArray()));
    EXPECT_RG_THROW(ReadElements(report, FrequencyElement("5") + nullName), "OutOfRangeException",
                    "Area: Please set Name properly (origin: Setter).");
    EXPECT_EQ(Carried(report), "frequency ");
    EXPECT_TEXT(std::as_const(report).GetArea().GetScriptID(), "S");

    report.SetValidate(false);
    EXPECT_EQ(ReadElements(report, FrequencyElement("5") + nullName), 0);
    EXPECT_EQ(Carried(report), "frequency area ");
}

// --- Raw form ---------------------------------------------------------------------------------------------

TEST(ReportBase, RawFormHoldsTheFlagsAndTheRawFormsOfTheCarriedMembers)
{
    const Bytes frequency = Support::Byte(1) + Support::Double(5.0);
    const Bytes bandwidth = Support::Byte(1) + Support::Double(6.0);
    const Bytes area = Support::Byte(3) + String(u"1.0") + String(u"Lake") + Int32(1) + Support::Byte(3) +
                       Support::Double(1.0) + Support::Double(2.0);
    EXPECT_BYTES(Support::RawFormOf(ReportBase()), Support::Byte(0));
    EXPECT_BYTES(Support::RawFormOf(Complete()), Support::Byte(7) + frequency + bandwidth + area);
    EXPECT_BYTES(Support::RawFormOf(WithFlags(FREQUENCY_FLAG | AREA_FLAG)),
                 Support::Byte(5) + frequency + area);

    ReportBase read;
    EXPECT_EQ(ReadRawForm(read, Support::Byte(7) + frequency + bandwidth + area + Support::Byte(9)), 1);
    EXPECT_TRUE(read == Complete());
}

TEST(ReportBase, RawFormIsNeitherCheckedNorTraced)
{
    ReportBase report;
    const auto logger = Support::NewLogger();
    report.SetLogger(logger);
    report.GetFrequency();
    report.GetArea();
    const Bytes raw = Support::Byte(5) + Support::Byte(0) + Support::Double(0.0) + Support::Byte(0) +
                      String(u"1.0") + NullString() + Int32(0);
    EXPECT_BYTES(Support::RawFormOf(report), raw);
    ReportBase read;
    read.SetLogger(logger);
    EXPECT_EQ(ReadRawForm(read, raw), 0);
    EXPECT_EQ(Carried(read), "frequency area ");
    EXPECT_FALSE(read.AnyData());
    EXPECT_LOG(logger, {});
}

TEST(ReportBase, RawReadingTakesTheFlagsAndResetsNoMember)
{
    ReportBase report = Complete();
    EXPECT_EQ(ReadRawForm(report, Support::Byte(BANDWIDTH_FLAG) + Support::Byte(2) + Support::Double(1.5) +
                                      Support::Double(2.5)),
              0);
    EXPECT_EQ(Carried(report), "bandwidth ");
    EXPECT_EQ(std::as_const(report).GetFrequency().GetValue(), 5.0);
    EXPECT_TEXT(std::as_const(report).GetArea().GetName(), "Lake");
    EXPECT_TRUE(report.GetIFBandwidth().IsMinSet());
    EXPECT_FALSE(report.GetIFBandwidth().IsValueSet());
}

TEST(ReportBase, AnOlderAreaInTheRawFormLeavesItsScriptIdentifierOnTheStream)
{
    ReportBase report;
    EXPECT_EQ(ReadRawForm(report, Support::Byte(AREA_FLAG) + Support::Byte(7) + String(u"0.9") +
                                      String(u"Lake") + Int32(0) + String(u"S")),
              6);
    EXPECT_EQ(Carried(report), "area ");
    EXPECT_TEXT(report.GetArea().GetName(), "Lake");
    EXPECT_FALSE(report.GetArea().IsNameSet());
    EXPECT_FALSE(report.GetArea().IsScriptIDSet());
}

// --- Settings of the members ------------------------------------------------------------------------------

namespace {

std::vector<const IRGObject*> MembersOf(const ReportBase& report)
{
    std::vector<const IRGObject*> members = {&report.GetFrequency(), &report.GetIFBandwidth(),
                                             &report.GetArea()};
    for (const Coordinate& coordinate : report.GetArea().GetCoordinate())
        members.push_back(&coordinate);
    return members;
}

} // namespace

TEST(ReportBase, SettingsGivenBeforeTheRecordReachTheMembersWhenItIsMade)
{
    ReportBase report;
    const auto logger = Support::NewLogger();
    report.SetLogger(logger);
    report.SetValidate(false);
    EXPECT_FALSE(report.IsInitialized());
    for (const IRGObject* member : MembersOf(report)) {
        EXPECT_EQ(member->GetLogger(), logger);
        EXPECT_FALSE(member->GetValidate());
    }
}

TEST(ReportBase, ReadingAppliesTheSettingsToMembersThatWereGivenOthers)
{
    const QString outOfRange =
        ReportXml("<Area Version=\"1.0\"><Name>Lake</Name><Coordinate>"
                  "<Longitude>181</Longitude><Latitude>2</Latitude></Coordinate></Area>");
    const QString warning =
        QStringLiteral("WARNING: OutOfRangeException: Parameters for m_longitude are not set within range "
                       "(-180, 180) in 'Coordinate'.");
    const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
    const auto otherLogger = Support::NewLogger();
    ReportBase report = NotValidating();
    report.SetLogger(logger);
    std::as_const(report).GetArea().SetValidate(true);
    std::as_const(report).GetArea().SetLogger(otherLogger);
    EXPECT_TRUE(report.SetXmlString(outOfRange, true));
    EXPECT_LOG(logger, QStringList{warning});

    std::as_const(report).GetArea().SetValidate(true);
    std::as_const(report).GetArea().SetLogger(otherLogger);
    EXPECT_EQ(
        ReadElements(
            report,
            Element(Tag::REPORT_AREA,
                    Element(Tag::AREA_COORDINATES,
                            Int32(1) + Support::Body(Element(Tag::COORDINATE_LONGITUDE, ByteArray("181")) +
                                                     Element(Tag::COORDINATE_LATITUDE, ByteArray("2")))))),
        0);
    EXPECT_LOG(logger, QStringList({warning, warning}));
    EXPECT_LOG(otherLogger, {});
}

// --- Merging ----------------------------------------------------------------------------------------------

TEST(ReportBase, MergingLaysTheMembersOfTheOtherOverThose)
{
    ReportBase report;
    report.GetFrequency().SetValue(1.0);
    report.GetFrequency().SetMin(2.0);
    report.SetArea(Lake());
    ReportBase other;
    other.GetFrequency().SetValue(5.0);
    other.SetIFBandwidth(BandwidthOf(6.0));
    EXPECT_TRUE(report.MergeRGObject(other));
    ReportState state = CompleteState();
    state.frequency->min = 2.0;
    EXPECT_STATE(report, state);

    EXPECT_TRUE(report.MergeRGObject(Complete()));
    state.area->coordinates.push_back({1.0, 2.0});
    state.area->initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(report, state);
}

TEST(ReportBase, MergingAReportThatCarriesNothingChangesNothing)
{
    ReportBase report = Complete();
    EXPECT_TRUE(report.MergeRGObject(ReportBase()));
    EXPECT_TRUE(report.MergeRGObject(WithFlags(0)));
    EXPECT_STATE(report, CompleteState());
}
