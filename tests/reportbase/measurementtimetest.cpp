#include "support/expect.h"
#include "support/files.h"
#include "support/plainrows.h"
#include "support/records.h"

#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/measurementtime.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::Double;
using REPORTGENERATOR::MeasurementTime;
using Support::Data;
using Support::FieldsOf;
using Support::Lines;
using Support::NewLogger;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;
using Support::Text;

// What callers keep references to.
static_assert(std::is_same_v<decltype(std::declval<const MeasurementTime&>().GetMeasurementMode()),
                             const MeasurementTime::MeasurementModeType&>);
static_assert(
    std::is_same_v<decltype(std::declval<const MeasurementTime&>().GetMeasurementTime()), const Double&>);
static_assert(std::is_same_v<decltype(std::declval<MeasurementTime&>().GetMeasurementTime()), Double&>);
static_assert(
    std::is_same_v<decltype(std::declval<const MeasurementTime&>().GetMeasurementTimeValue()), double>);
static_assert(sizeof(MeasurementTime::MeasurementModeType) == 4);

constexpr const char* MISSING_MODE = "MeasurementTime: Please set MeasurementMode!";
constexpr const char* MISSING_VALUE = "MeasurementTimeThe double has not been set! Please use SetValue first";
constexpr const char* INVALID_MODE = "'MeasurementTime': Invalid MeasurementModeType '-1'.";

constexpr int NO_MODES[] = {-1, 2, 3, 50, -2, 2147483647, -2147483647 - 1};

MeasurementTime::MeasurementModeType Mode(int number)
{
    return static_cast<MeasurementTime::MeasurementModeType>(number);
}

/// Without a mode when that is -1.
MeasurementTime Of(int mode, double value, const char* unit = "")
{
    MeasurementTime time;
    if (mode != -1)
        time.SetMeasurementMode(Mode(mode));
    time.GetMeasurementTime().SetValue(value);
    time.GetMeasurementTime().SetUnit(Text(unit));
    return time;
}

MeasurementTime WithNames(MeasurementTime time, const QStringList& names)
{
    time.SetMeasurementModeStringList(names);
    return time;
}

} // namespace

// The text of a mode is empty.
TEST(MeasurementTime, NeedsAModeAndIfItsTimeHasAnyDataItsValue)
{
    Support::ExpectObjects<MeasurementTime>({
        {MeasurementTime(), "-1 / - - - ", Data::None, MISSING_MODE, ""},
        {Of(-1, NOT_SET, "s"), "-1 / - - - s", Data::Some, MISSING_MODE, ""},
        {Of(-1, 1.0), "-1 / 1 - - ", Data::Some, MISSING_MODE, ""},
        {Of(0, NOT_SET), "0 / - - - ", Data::Some, nullptr, ""},
        {Of(1, NOT_SET), "1 / - - - ", Data::Some, nullptr, ""},
        {Of(1, NOT_SET, "s"), "1 / - - - s", Data::Some, MISSING_VALUE, ""},
        {Of(0, 0.0), "0 / 0 - - ", Data::Whole, nullptr,
         "<MeasurementTime><MeasurementTime><DoubleValue>0.000000</DoubleValue></MeasurementTime>"
         "<MeasurementMode></MeasurementMode></MeasurementTime>"},
        {Of(1, NOT_A_NUMBER, "s"), "1 / nan - - s", Data::Whole, nullptr,
         "<MeasurementTime><MeasurementTime Unit=\"s\"><DoubleValue>nan</DoubleValue></MeasurementTime>"
         "<MeasurementMode></MeasurementMode></MeasurementTime>"},
    });
    EXPECT_TEXT(MeasurementTime().GetMeasurementTime().GetName(), "MeasurementTime");
    EXPECT_EQ(MeasurementTime().GetMeasurementTimeValue(), NOT_SET);
}

TEST(MeasurementTime, ReadsModeByNameAndTimeInAnyOrder)
{
    Support::ExpectReadings(
        Of(0, 1.0, "s"),
        {
            {"", "-1 / - - - ", nullptr, MISSING_MODE},
            {"<MeasurementMode>Periodic</MeasurementMode>"
             "<MeasurementTime Unit=\"m\" Maximum=\"9\"><DoubleValue>2.5</DoubleValue></MeasurementTime>",
             "1 / 2.5 - 9 m"},
            {"<MeasurementTime><DoubleValue>2.5</DoubleValue></MeasurementTime>"
             "<MeasurementMode>Continuous</MeasurementMode>",
             "0 / 2.5 - - "},
            {"<MeasurementTime><DoubleValue>2</DoubleValue></MeasurementTime>", "-1 / 2 - - ", nullptr,
             MISSING_MODE},
            // What it writes itself can't be read back.
            {"<MeasurementTime><DoubleValue>2.500000</DoubleValue></MeasurementTime>"
             "<MeasurementMode></MeasurementMode>",
             "-1 / 2.5 - - ", INVALID_MODE},
            {"<MeasurementMode>periodic</MeasurementMode>", "-1 / - - - ", INVALID_MODE},
            {"<MeasurementMode>1</MeasurementMode>", "-1 / - - - ", INVALID_MODE},
            {"<MeasurementMode>Periodic</MeasurementMode><MeasurementMode>Sometimes</MeasurementMode>",
             "1 / - - - ", INVALID_MODE},
            {"<MeasurementMode>Periodic</MeasurementMode><Nonsense/>"
             "<MeasurementTime><DoubleValue>4</DoubleValue></MeasurementTime>",
             "1 / - - - ", "Unknown Tag 'Nonsense' in 'MeasurementTime'."},
            // The time takes the end of a child that it doesn't know for its own end.
            {"<MeasurementTime><X/><DoubleValue>4</DoubleValue></MeasurementTime>", "-1 / - - - ",
             "Unknown Tag 'DoubleValue' in 'MeasurementTime'."},
            {"<MeasurementTime><DoubleValue>4</DoubleValue><X/></MeasurementTime>"
             "<MeasurementMode>Periodic</MeasurementMode>",
             "-1 / 4 - - ", nullptr, MISSING_MODE},
        });
}

// The logger belongs to the object that was given it; the time has none of its own.
TEST(MeasurementTime, MalformedTimeIsThrownWithoutALineOfTheHolder)
{
    Support::ExpectMalformed(Of(0, 1.0),
                             {
                                 {"<MeasurementTime><MeasurementTime><DoubleValue>5", "-1 / - - - ", false},
                                 {"<MeasurementTime><MeasurementMode>Periodic", "-1 / - - - ", true},
                             });
}

TEST(MeasurementTime, ComparesModeTimeAndNames)
{
    MeasurementTime named = Of(1, 2.0);
    named.GetMeasurementTime().SetName(Text("T"));
    Support::ExpectComparisons<MeasurementTime>({
        {MeasurementTime(), MeasurementTime(), true},
        {Of(1, 2.0), named, true},
        {Of(1, 2.0), WithNames(Of(1, 2.0), Lines({"Continuous", "Periodic"})), true},
        {Of(1, 2.0), WithNames(Of(1, 2.0), Lines({"Continuous", "periodic"})), false},
        {Of(1, 2.0), Of(0, 2.0), false},
        {Of(1, 2.0), Of(1, 3.0), false},
        {Of(1, 2.0), Of(1, 2.0, "s"), false},
    });
    Support::ExpectUnequalToThemselves<MeasurementTime>({Of(1, NOT_A_NUMBER)});
}

TEST(MeasurementTime, MergeTakesTheTimeAndFailsAtTheMode)
{
    MeasurementTime time = Of(0, 1.0);
    EXPECT_RG_THROW(time.MergeRGObject(Of(1, 2.0)), "RGException", INVALID_MODE);
    EXPECT_TEXT(FieldsOf(time), "0 / 2 - - ");
}

TEST(MeasurementTime, CopyTakesTheNames)
{
    MeasurementTime source = WithNames(Of(1, 2.0), Lines({"A", "B"}));
    const MeasurementTime copy(source);
    MeasurementTime assigned;
    assigned = source;
    EXPECT_TRUE(copy == source);
    EXPECT_TRUE(assigned == source);
    source.SetMeasurementModeStringList(Lines({"C", "D"}));
    for (const MeasurementTime& object : {copy, assigned})
        EXPECT_EQ(object.NameToMeasurementModeType(Text("B")), 1);
}

TEST(MeasurementTime, ModesAreZeroAndOne)
{
    EXPECT_EQ(static_cast<int>(MeasurementTime::Continuous), 0);
    EXPECT_EQ(static_cast<int>(MeasurementTime::Periodic), 1);
    EXPECT_EQ(MeasurementTime::GetInvalidMeasurementModeType(), -1);
    MeasurementTime time;
    for (const int mode : {0, 1}) {
        EXPECT_TRUE(time.IsValidMeasurementModeType(Mode(mode)));
        EXPECT_NO_RG_THROW(time.SetMeasurementMode(Mode(mode)));
        EXPECT_EQ(time.GetMeasurementMode(), mode);
    }
}

TEST(MeasurementTime, OtherNumbersAreRefusedAndKeepTheMode)
{
    for (const int mode : NO_MODES) {
        MeasurementTime time = Of(1, 2.0);
        EXPECT_FALSE(time.IsValidMeasurementModeType(Mode(mode)));
        EXPECT_RG_THROW(time.SetMeasurementMode(Mode(mode)), "RGException",
                        Text("'MeasurementTime': Invalid MeasurementModeType '") + QString::number(mode) +
                            Text("'."));
        EXPECT_EQ(time.GetMeasurementMode(), 1);
    }
}

TEST(MeasurementTime, SettersRefuseWithoutALineInAllSettings)
{
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        MeasurementTime time = Of(1, 2.0);
        time.SetValidate(validate);
        time.SetLogger(logger);
        EXPECT_RG_THROW(time.SetMeasurementMode(Mode(2)), "RGException",
                        "'MeasurementTime': Invalid MeasurementModeType '2'.");
        EXPECT_RG_THROW(time.SetMeasurementModeStringList(Lines({"A"})), "RGException",
                        "'MeasurementTime': List has the wrong length! It should be '2'.");
        EXPECT_LOG(logger, {});
        EXPECT_EQ(time.GetMeasurementMode(), 1);
        EXPECT_EQ(time.NameToMeasurementModeType(Text("Periodic")), 1);
    }
}

TEST(MeasurementTime, RefusalsNameTheObjectByItsCurrentName)
{
    class Renamed : public MeasurementTime
    {
    public:
        Renamed() { SetObjectName(Text("Span")); }
    };
    Renamed time;
    EXPECT_RG_THROW(time.SetMeasurementMode(Mode(-1)), "RGException",
                    "'Span': Invalid MeasurementModeType '-1'.");
    EXPECT_RG_THROW(time.SetMeasurementModeStringList(QStringList()), "RGException",
                    "'Span': List has the wrong length! It should be '2'.");
    EXPECT_RG_THROW(time.Check(), "RGException", "Span: Please set MeasurementMode!");
    time.SetMeasurementMode(MeasurementTime::Continuous);
    time.GetMeasurementTime().SetValue(2.5);
    EXPECT_XML(time, "\n<Span>"
                     "\n    <MeasurementTime>"
                     "\n        <DoubleValue>2.500000</DoubleValue>"
                     "\n    </MeasurementTime>"
                     "\n    <MeasurementMode></MeasurementMode>"
                     "\n</Span>");
}

TEST(MeasurementTime, ModeIsHandedOutByReference)
{
    MeasurementTime time = Of(0, 2.0);
    const MeasurementTime::MeasurementModeType& mode = time.GetMeasurementMode();
    time.SetMeasurementMode(MeasurementTime::Periodic);
    EXPECT_EQ(mode, 1);
}

TEST(MeasurementTime, TimeIsAssignedWhole)
{
    Double value;
    value.SetName(Text("T"));
    value.SetValue(2.5);
    value.SetUnit(Text("s"));
    MeasurementTime time;
    time.SetMeasurementTime(value);
    EXPECT_EQ(time.GetMeasurementTimeValue(), 2.5);
    EXPECT_TEXT(time.GetMeasurementTime().GetUnit(), "s");
    EXPECT_TEXT(time.GetMeasurementTime().GetName(), "T");
    time.SetMeasurementMode(MeasurementTime::Continuous);
    EXPECT_XML(time, "\n<MeasurementTime>"
                     "\n    <T Unit=\"s\">"
                     "\n        <DoubleValue>2.500000</DoubleValue>"
                     "\n    </T>"
                     "\n    <MeasurementMode></MeasurementMode>"
                     "\n</MeasurementTime>");

    Support::ReadElement(time,
                         Text("<MeasurementTime><T><DoubleValue>4</DoubleValue></T></MeasurementTime>"));
    EXPECT_EQ(time.GetMeasurementTimeValue(), 4.0) << "read by its current name";
    time.Reset();
    EXPECT_TEXT(time.GetMeasurementTime().GetName(), "MeasurementTime");
}

TEST(MeasurementTime, NamesAreReplacedOnlyByTwo)
{
    MeasurementTime time;
    for (const QStringList& names : {QStringList(), Lines({"A"}), Lines({"A", "B", "C"})}) {
        EXPECT_RG_THROW(time.SetMeasurementModeStringList(names), "RGException",
                        "'MeasurementTime': List has the wrong length! It should be '2'.");
        EXPECT_EQ(time.NameToMeasurementModeType(Text("Periodic")), 1);
        EXPECT_EQ(time.NameToMeasurementModeType(Text("A")), -1);
    }
    EXPECT_NO_RG_THROW(time.SetMeasurementModeStringList(Lines({"A", "B"})));
    EXPECT_EQ(time.NameToMeasurementModeType(Text("A")), 0);
    EXPECT_EQ(time.NameToMeasurementModeType(Text("B")), 1);
    EXPECT_EQ(time.NameToMeasurementModeType(Text("Continuous")), -1);
    time.SetMeasurementMode(MeasurementTime::Periodic);
    time.Reset();
    EXPECT_EQ(time.GetMeasurementMode(), -1);
    EXPECT_EQ(time.NameToMeasurementModeType(Text("B")), 1) << "the names stay";
    EXPECT_EQ(MeasurementTime().NameToMeasurementModeType(Text("B")), -1) << "they belong to the object";
}

TEST(MeasurementTime, NameIsFoundExactlyAndFirst)
{
    MeasurementTime time;
    for (const char* name : {"", "continuous", "PERIODIC", "Periodic ", "Period"})
        EXPECT_EQ(time.NameToMeasurementModeType(Text(name)), -1) << name;
    time.SetMeasurementModeStringList(Lines({"Same", "Same"}));
    EXPECT_EQ(time.NameToMeasurementModeType(Text("Same")), 0);
}

TEST(MeasurementTime, InvertedTestLeavesEveryModeWithoutAName)
{
    const MeasurementTime time;
    MeasurementTime renamed;
    renamed.SetMeasurementModeStringList(Lines({"A", "B"}));
    for (const int mode : {0, 1, -1, 2, 3, 50, -2, 2147483647, -2147483647 - 1}) {
        EXPECT_TEXT(time.MeasurementModeTypeToName(Mode(mode)), "") << mode;
        EXPECT_TEXT(renamed.MeasurementModeTypeToName(Mode(mode)), "") << mode;
    }
}

TEST(MeasurementTime, EmptyNameOfAModeMakesItReadable)
{
    MeasurementTime time;
    time.SetMeasurementModeStringList(Lines({"A", ""}));
    EXPECT_NO_RG_THROW(time.SetXmlString(Of(0, 2.5).GetXmlString(), true));
    EXPECT_EQ(time.GetMeasurementMode(), 1);
}

TEST(MeasurementTime, PassesNoSettingsToItsTime)
{
    const MeasurementTime time = Of(1, 2.0);
    time.SetLogger(NewLogger());
    time.SetValidate(false);
    EXPECT_FALSE(time.GetXmlString().isEmpty());
    EXPECT_EQ(time.GetMeasurementTime().GetLogger(), nullptr);
    EXPECT_TRUE(time.GetMeasurementTime().GetValidate());
}

TEST(MeasurementTime, SavedFileCannotBeLoadedAgain)
{
    const Support::TemporaryFolder folder;
    EXPECT_TRUE(Of(1, 2.5).SaveXml(folder.Path("time.xml")));
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        MeasurementTime time = Of(0, 1.0);
        time.SetValidate(validate);
        time.SetLogger(logger);
        EXPECT_RG_THROW(time.LoadXml(folder.Path("time.xml")), "RGException", INVALID_MODE);
        EXPECT_LOG(logger, QStringList{Text("INFO: MeasurementTime: Loading xml file \"") +
                                       folder.Path("time.xml") + Text("\".")});
        EXPECT_EQ(time.GetMeasurementMode(), -1);
        EXPECT_EQ(time.GetMeasurementTimeValue(), 2.5) << "read before";
    }
}

TEST(MeasurementTime, ChildNamedMeasurementModeIsTheModeWhateverTheTimeIsNamed)
{
    MeasurementTime time = Of(0, 1.0);
    time.GetMeasurementTime().SetName(Text("MeasurementMode"));
    Support::ReadElement(
        time, Text("<MeasurementTime><MeasurementMode>Periodic</MeasurementMode></MeasurementTime>"));
    EXPECT_EQ(time.GetMeasurementMode(), 1);
    EXPECT_EQ(time.GetMeasurementTimeValue(), 1.0);
}
