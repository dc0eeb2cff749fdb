// A report in XML. What all records have in common there stands in recordxmltest.cpp.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/reports.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <utility>

namespace {

using REPORTGENERATOR::ReportBase;
using Support::AreaState;
using Support::BodyOf;
using Support::Bytes;
using Support::Carried;
using Support::CompleteReport;
using Support::FrequencyOf;
using Support::FrequencyState;
using Support::LakeWithoutScript;
using Support::NOT_SET;
using Support::NotValidating;
using Support::ReadElement;
using Support::Rename;
using Support::ReportState;
using Support::Text;

QString ReportXml(const char* content)
{
    return Text("<ReportBase>%1</ReportBase>").arg(Text(content));
}

} // namespace

// --- XML writing ------------------------------------------------------------------------------------------

TEST(ReportBase, XmlElementBearsTheCurrentNameAndSoDoThoseOfTheMembers)
{
    Support::Renamed<ReportBase> report("Summary");
    report.SetFrequency(FrequencyOf(5.0));
    Rename(report.GetFrequency(), QStringLiteral("Rx"));
    report.SetArea(LakeWithoutScript());
    Rename(report.GetArea(), QStringLiteral("Region"));
    EXPECT_TEXT(
        Support::UnindentedXmlOf(report),
        "<Summary><Rx>5.00</Rx><Region Version=\"1.0\"><Name>Lake</Name><Coordinate>"
        "<Longitude>1.000000</Longitude><Latitude>2.000000</Latitude></Coordinate></Region></Summary>");
}

TEST(ReportBase, MembersAreReadFromTheElementsOfTheirCurrentNames)
{
    const QString ofClass =
        Text("<ReportBase><Frequency>5.00</Frequency><IFBandwidth>6.00</IFBandwidth></ReportBase>");
    const QString ofMember = Text("<ReportBase><Rx>7.00</Rx><IFBandwidth>6.00</IFBandwidth></ReportBase>");
    for (const bool isFile : {false, true}) {
        SCOPED_TRACE(isFile ? "file" : "string");
        ReportBase report;
        Rename(report.GetFrequency(), QStringLiteral("Rx"));
        const auto read = [&](const QString& xml) {
            if (!isFile)
                return report.SetXmlString(xml, true);
            const Support::TemporaryFolder folder;
            return report.LoadXml(folder.Write("report.xml", xml.toUtf8()));
        };
        EXPECT_TRUE(read(ofClass));
        EXPECT_FALSE(report.IsFrequencySet());
        EXPECT_EQ(report.GetIFBandwidth().GetValue(), 6.0);
        EXPECT_TRUE(read(ofMember));
        EXPECT_TRUE(report.IsFrequencySet());
        EXPECT_EQ(std::as_const(report).GetFrequency().GetValue(), 7.0);
    }
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

TEST(ReportBase, RepeatedMembersAddUpUnlessAnAreaIsOfAnOlderVersion)
{
    struct Row
    {
        const char* xml; ///< with "#" for a lake
        ReportState state;
    };
    const AreaState twice = {Text("Lake"), {{1.0, 2.0}, {1.0, 2.0}}, NOT_SET, Text("1.0")};
    const AreaState older = {NOT_SET, {}, Text("S"), Text("0.9")};
    const Row rows[] = {
        {"<Frequency Min=\"1\">2</Frequency>#<Frequency Max=\"3\">4</Frequency>#",
         {FrequencyState{4.0, 1.0, 3.0}, NOT_SET, twice}},
        {"#<Area Version=\"0.9\"><ScriptID>S</ScriptID></Area>", {NOT_SET, NOT_SET, older}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.xml);
        const QString lake =
            Text("<Area Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>1</Longitude>"
                 "<Latitude>2</Latitude></Coordinate></Area>");
        ReportBase report = NotValidating<ReportBase>();
        EXPECT_TRUE(report.SetXmlString(ReportXml(row.xml).replace(QLatin1Char('#'), lake), true));
        EXPECT_STATE(report, row.state);
    }
}

TEST(ReportBase, WhatFollowsAnUnknownChildOfTheAreaIsLeftToTheReportWhenNotValidating)
{
    const QString xml = ReportXml("<Area Version=\"1.0\"><Name>Lake</Name><Foo/><Frequency>5</Frequency>"
                                  "<ScriptID>S</ScriptID></Area><IFBandwidth>6</IFBandwidth>");
    ReportBase report = NotValidating<ReportBase>();
    const auto logger = Support::NewLogger();
    report.SetLogger(logger);
    EXPECT_TRUE(report.SetXmlString(xml, true));
    EXPECT_STATE(report, (ReportState{FrequencyState{5.0}, NOT_SET,
                                      AreaState{Text("Lake"), {}, NOT_SET, Text("1.0")}}));
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
    Rename(report.GetFrequency(), QStringLiteral("Rx"));
    Rename(report.GetIFBandwidth(), QStringLiteral("Frequency"));
    Rename(report.GetArea(), QStringLiteral("Region"));
    EXPECT_TRUE(report.SetXmlString(
        ReportXml("<Rx>1</Rx><Frequency>2</Frequency><IFBandwidth>3</IFBandwidth><Area/>"), true));
    EXPECT_EQ(Carried(report), "frequency bandwidth ");
    EXPECT_EQ(report.GetFrequency().GetValue(), 1.0);
    EXPECT_EQ(report.GetIFBandwidth().GetValue(), 2.0);
    EXPECT_XML(report, "\n<ReportBase>\n    <Rx>1.00</Rx>\n    <Frequency>2.00</Frequency>\n</ReportBase>");
}

TEST(ReportBase, OfMembersWithTheSameNameTheFirstTakesTheElement)
{
    ReportBase report = NotValidating<ReportBase>();
    Rename(report.GetArea(), QStringLiteral("Same"));
    Rename(report.GetIFBandwidth(), QStringLiteral("Same"));
    report.Reset();
    EXPECT_TRUE(report.SetXmlString(ReportXml("<Same>1</Same>"), true));
    EXPECT_EQ(Carried(report), "bandwidth ");
    Rename(report.GetFrequency(), QStringLiteral("Same"));
    EXPECT_TRUE(report.SetXmlString(ReportXml("<Same>1</Same>"), true));
    EXPECT_EQ(Carried(report), "frequency ");
}

TEST(ReportBase, ACopyBearsTheOriginalNamesOfItsMembers)
{
    ReportBase report = CompleteReport();
    Rename(report.GetFrequency(), QStringLiteral("Rx"));
    report.ResetIFBandwidth();
    report.ResetArea();
    EXPECT_XML(ReportBase(report), "\n<ReportBase>\n    <Frequency>5.00</Frequency>\n</ReportBase>");
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
