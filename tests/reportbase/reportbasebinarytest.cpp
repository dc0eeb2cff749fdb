// A report in its tagged and its raw form. What all records have in common there stands in
// recordbinarytest.cpp and recordrawformtest.cpp.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/reports.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <limits>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::ReportBase;
using Support::AreaElement;
using Support::BandwidthElement;
using Support::BodyOf;
using Support::ByteArray;
using Support::Bytes;
using Support::Carried;
using Support::CompleteReport;
using Support::FrequencyElement;
using Support::Int32;
using Support::LakeElements;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::ReportWithFlags;
using Support::String;
using Support::Text;
using Support::Value;
namespace Tag = Support::Tag;

constexpr int FREQUENCY_FLAG = 1;
constexpr int BANDWIDTH_FLAG = 2;
constexpr int AREA_FLAG = 4;
constexpr qint32 LEAST = std::numeric_limits<qint32>::min();

} // namespace

// --- Tagged form ------------------------------------------------------------------------------------------

TEST(ReportBase, MembersThatAreNotCarriedAreNotWritten)
{
    EXPECT_XML(ReportWithFlags(0), "\n<ReportBase/>");
    EXPECT_XML(ReportWithFlags(BANDWIDTH_FLAG),
               "\n<ReportBase>\n    <IFBandwidth>6.00</IFBandwidth>\n</ReportBase>");
    EXPECT_BYTES(BodyOf(ReportWithFlags(0)), Element(1, Bytes()));
    EXPECT_BYTES(BodyOf(ReportWithFlags(FREQUENCY_FLAG | AREA_FLAG)),
                 Element(1, FrequencyElement("5.00") + AreaElement(LakeElements())));
    EXPECT_BYTES(Support::RawFormOf(ReportWithFlags(FREQUENCY_FLAG)),
                 Support::Byte(1) + Support::Byte(1) + Support::Double(5.0));
}

TEST(ReportBase, OfRepeatedMemberElementsTheLastCounts)
{
    ReportBase report;
    EXPECT_EQ(ReadElements(report, Element(Tag::REPORT_FREQUENCY,
                                           Value("1") + Element(Tag::FREQUENCY_MIN, ByteArray("2"))) +
                                       AreaElement(LakeElements()) + FrequencyElement("5") +
                                       BandwidthElement("6") + AreaElement(LakeElements())),
              0);
    EXPECT_TRUE(report == CompleteReport());
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
         BandwidthElement("6") + ElementOfLength(Tag::REPORT_FREQUENCY, 12, Value("5")) +
             AreaElement(LakeElements()),
         "bandwidth "},
        {"IFBandwidth", FrequencyElement("5") + ElementOfLength(Tag::REPORT_IF_BANDWIDTH, 14, Value("6")),
         "frequency "},
        {"Area",
         BandwidthElement("6") +
             ElementOfLength(Tag::REPORT_AREA, LakeElements().Size() + 1, LakeElements()) +
             FrequencyElement("5"),
         "bandwidth "},
        {"Frequency", ElementOfLength(Tag::REPORT_FREQUENCY, -1, Value("5")), ""},
        {"Area", ElementOfLength(Tag::REPORT_AREA, LEAST, LakeElements()), ""},
    };
    for (const Row& row : rows) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(row.name);
            ReportBase report = CompleteReport();
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

TEST(ReportBase, RawReadingTakesTheFlagsAndResetsNoMember)
{
    ReportBase report = CompleteReport();
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
