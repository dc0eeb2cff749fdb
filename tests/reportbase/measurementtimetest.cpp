#include "support/expect.h"
#include "support/files.h"
#include "support/records.h"

#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/measurementtime.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::Double;
using REPORTGENERATOR::MeasurementTime;
using Support::Lines;
using Support::NewLogger;
using Support::Text;

constexpr double NOT_SET = -111111.11;

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
constexpr const char* INVALID_MODE = "'MeasurementTime': Invalid MeasurementModeType '-1'.";

constexpr int NO_MODES[] = {-1, 2, 3, 50, -2, 2147483647, -2147483647 - 1};

MeasurementTime::MeasurementModeType Mode(int number)
{
    return static_cast<MeasurementTime::MeasurementModeType>(number);
}

MeasurementTime Of(int mode, double value)
{
    MeasurementTime time;
    time.SetMeasurementMode(Mode(mode));
    time.GetMeasurementTime().SetValue(value);
    return time;
}

} // namespace

TEST(MeasurementTime, StartsWithoutModeAndTime)
{
    const MeasurementTime time;
    EXPECT_EQ(time.GetMeasurementMode(), -1);
    EXPECT_EQ(time.GetMeasurementTimeValue(), NOT_SET);
    EXPECT_TEXT(time.GetMeasurementTime().GetName(), "MeasurementTime");
    EXPECT_FALSE(time.GetMeasurementTime().AnyData());
    EXPECT_EQ(time.NameToMeasurementModeType(Text("Continuous")), 0);
    EXPECT_EQ(time.NameToMeasurementModeType(Text("Periodic")), 1);
    EXPECT_RG_THROW(time.Check(), "RGException", MISSING_MODE);
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

TEST(MeasurementTime, DataAreModeAndTime)
{
    MeasurementTime time;
    EXPECT_FALSE(time.AnyData());
    time.GetMeasurementTime().SetUnit(Text("s"));
    EXPECT_TRUE(time.AnyData()) << "what the time counts";
    EXPECT_FALSE(time.HasData());
    time.Reset();
    time.GetMeasurementTime().SetValue(1.0);
    EXPECT_TRUE(time.AnyData());
    EXPECT_FALSE(time.HasData());
    time.Reset();
    time.SetMeasurementMode(MeasurementTime::Continuous);
    EXPECT_TRUE(time.AnyData());
    EXPECT_FALSE(time.HasData());
    EXPECT_TRUE(Of(0, 0.0).HasData());
    EXPECT_TRUE(Of(0, std::numeric_limits<double>::quiet_NaN()).HasData());
    EXPECT_FALSE(Of(0, NOT_SET).HasData());
}

TEST(MeasurementTime, CheckAsksForTheModeAndThenTheTimeIfItHasAnyData)
{
    MeasurementTime time;
    time.GetMeasurementTime().SetValue(1.0);
    EXPECT_RG_THROW(time.Check(), "RGException", MISSING_MODE);
    EXPECT_NO_RG_THROW(Of(1, NOT_SET).Check());
    EXPECT_NO_RG_THROW(Of(1, 2.0).Check());
    MeasurementTime unitOnly = Of(1, NOT_SET);
    unitOnly.GetMeasurementTime().SetUnit(Text("s"));
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        unitOnly.SetValidate(validate);
        unitOnly.SetLogger(logger);
        EXPECT_RG_THROW(unitOnly.Check(), "RGException",
                        "MeasurementTimeThe double has not been set! Please use SetValue first");
        EXPECT_TEXT(Support::UnindentedXmlOf(unitOnly), "");
        EXPECT_LOG(logger, {});
    }
}

TEST(MeasurementTime, ModeWithoutTimeWritesNothing)
{
    EXPECT_XML(Of(1, NOT_SET), "");
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

TEST(MeasurementTime, InvertedTestLeavesTheModesWithoutAName)
{
    MeasurementTime time;
    EXPECT_TEXT(time.MeasurementModeTypeToName(MeasurementTime::Continuous), "");
    EXPECT_TEXT(time.MeasurementModeTypeToName(MeasurementTime::Periodic), "");
    time.SetMeasurementModeStringList(Lines({"A", "B"}));
    EXPECT_TEXT(time.MeasurementModeTypeToName(MeasurementTime::Periodic), "");
}

TEST(MeasurementTime, NumbersBehindTheListHaveNoNameEither)
{
    const MeasurementTime time;
    MeasurementTime renamed;
    renamed.SetMeasurementModeStringList(Lines({"A", "B"}));
    for (const int mode : NO_MODES) {
        EXPECT_TEXT(time.MeasurementModeTypeToName(Mode(mode)), "") << mode;
        EXPECT_TEXT(renamed.MeasurementModeTypeToName(Mode(mode)), "") << mode;
    }
}

TEST(MeasurementTime, WrittenModeCannotBeReadBack)
{
    const QString xml = Of(1, 2.5).GetXmlString();
    EXPECT_TEXT(xml, "\n<MeasurementTime>"
                     "\n    <MeasurementTime>"
                     "\n        <DoubleValue>2.500000</DoubleValue>"
                     "\n    </MeasurementTime>"
                     "\n    <MeasurementMode></MeasurementMode>"
                     "\n</MeasurementTime>");
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        MeasurementTime time = Of(0, 1.0);
        time.SetValidate(validate);
        time.SetLogger(logger);
        EXPECT_RG_THROW(time.SetXmlString(xml, true), "RGException", INVALID_MODE);
        EXPECT_LOG(logger, {"INFO: MeasurementTime: Loading xml string."});
        EXPECT_EQ(time.GetMeasurementMode(), -1);
        EXPECT_EQ(time.GetMeasurementTimeValue(), 2.5) << "read before";
    }
}

TEST(MeasurementTime, EmptyNameOfAModeMakesItReadable)
{
    MeasurementTime time;
    time.SetMeasurementModeStringList(Lines({"A", ""}));
    EXPECT_NO_RG_THROW(time.SetXmlString(Of(0, 2.5).GetXmlString(), true));
    EXPECT_EQ(time.GetMeasurementMode(), 1);
}

TEST(MeasurementTime, ReadsModeByNameAndTimeInAnyOrder)
{
    MeasurementTime time;
    EXPECT_NO_RG_THROW(
        time.SetXmlString(Text("<MeasurementTime><MeasurementMode>Periodic</MeasurementMode>"
                               "<MeasurementTime Unit=\"s\" Maximum=\"9\"><DoubleValue>2.5</DoubleValue>"
                               "</MeasurementTime></MeasurementTime>"),
                          true));
    EXPECT_EQ(time.GetMeasurementMode(), 1);
    EXPECT_EQ(time.GetMeasurementTimeValue(), 2.5);
    EXPECT_EQ(time.GetMeasurementTime().GetMaximum(), 9.0);
    EXPECT_TEXT(time.GetMeasurementTime().GetUnit(), "s");
}

TEST(MeasurementTime, UnknownNameOfAModeThrows)
{
    for (const char* name : {"periodic", "1", "", "Sometimes"}) {
        MeasurementTime time;
        EXPECT_RG_THROW(time.SetXmlString(Text("<MeasurementTime><MeasurementMode>") + Text(name) +
                                              Text("</MeasurementMode></MeasurementTime>"),
                                          true),
                        "RGException", INVALID_MODE);
    }
}

TEST(MeasurementTime, LoadedTimeWithoutModeIsRefusedOnlyWhenValidating)
{
    const QString xml = Text("<MeasurementTime><MeasurementTime><DoubleValue>2</DoubleValue>"
                             "</MeasurementTime></MeasurementTime>");
    MeasurementTime time = Of(1, 1.0);
    EXPECT_RG_THROW(time.SetXmlString(xml, true), "RGException", MISSING_MODE);
    time.SetValidate(false);
    EXPECT_TRUE(time.SetXmlString(xml, true));
    EXPECT_EQ(time.GetMeasurementTimeValue(), 2.0);
}

TEST(MeasurementTime, ComparesModeTimeAndNames)
{
    EXPECT_TRUE(MeasurementTime() == MeasurementTime());
    EXPECT_TRUE(Of(1, 2.0) == Of(1, 2.0));
    EXPECT_FALSE(Of(1, 2.0) != Of(1, 2.0));
    EXPECT_FALSE(Of(1, 2.0) == Of(0, 2.0));
    EXPECT_TRUE(Of(1, 2.0) != Of(0, 2.0));
    EXPECT_FALSE(Of(1, 2.0) == Of(1, 3.0));
    MeasurementTime inSeconds = Of(1, 2.0);
    inSeconds.GetMeasurementTime().SetUnit(Text("s"));
    EXPECT_FALSE(inSeconds == Of(1, 2.0));

    MeasurementTime other = Of(1, 2.0);
    other.GetMeasurementTime().SetName(Text("T"));
    other.SetValidate(false);
    EXPECT_TRUE(other == Of(1, 2.0)) << "the time's name and the base don't count";
    other.SetMeasurementModeStringList(Lines({"Continuous", "periodic"}));
    EXPECT_FALSE(other == Of(1, 2.0));
    EXPECT_TRUE(other != Of(1, 2.0));
    other.SetMeasurementModeStringList(Lines({"Continuous", "Periodic"}));
    EXPECT_TRUE(other == Of(1, 2.0));

    const MeasurementTime nan = Of(1, std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);
}

TEST(MeasurementTime, CopyTakesNamesModeAndTime)
{
    MeasurementTime source = Of(1, 2.0);
    source.SetMeasurementModeStringList(Lines({"A", "B"}));
    source.GetMeasurementTime().SetUnit(Text("s"));
    const MeasurementTime copy(source);
    MeasurementTime assigned;
    assigned = source;
    EXPECT_TRUE(copy == source);
    EXPECT_TRUE(assigned == source);
    source.Reset();
    source.SetMeasurementModeStringList(Lines({"C", "D"}));
    for (const MeasurementTime& object : {copy, assigned}) {
        EXPECT_EQ(object.NameToMeasurementModeType(Text("B")), 1);
        EXPECT_EQ(object.GetMeasurementMode(), 1);
        EXPECT_EQ(object.GetMeasurementTimeValue(), 2.0);
        EXPECT_TEXT(object.GetMeasurementTime().GetUnit(), "s");
    }
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

TEST(MeasurementTime, MergeTakesTheTimeAndFailsAtTheMode)
{
    MeasurementTime time = Of(0, 1.0);
    EXPECT_RG_THROW(time.MergeRGObject(Of(1, 2.0)), "RGException", INVALID_MODE);
    EXPECT_EQ(time.GetMeasurementTimeValue(), 2.0);
    EXPECT_EQ(time.GetMeasurementMode(), 0);
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

TEST(MeasurementTime, FileWithTheNameOfAModeIsLoaded)
{
    const Support::TemporaryFolder folder;
    const QString path =
        folder.Write("time.xml", "<MeasurementTime><MeasurementMode>Continuous</MeasurementMode>"
                                 "<MeasurementTime><DoubleValue>2.5</DoubleValue>"
                                 "</MeasurementTime></MeasurementTime>");
    MeasurementTime time;
    bool found = false;
    EXPECT_NO_RG_THROW(found = time.LoadXml(path));
    EXPECT_TRUE(found);
    EXPECT_TRUE(time == Of(0, 2.5));
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

TEST(MeasurementTime, RefusedNameOfAModeKeepsTheModeReadBefore)
{
    MeasurementTime time;
    EXPECT_RG_THROW(time.SetXmlString(Text("<MeasurementTime><MeasurementMode>Periodic</MeasurementMode>"
                                           "<MeasurementMode>Sometimes</MeasurementMode></MeasurementTime>"),
                                      true),
                    "RGException", INVALID_MODE);
    EXPECT_EQ(time.GetMeasurementMode(), 1);
}

TEST(MeasurementTime, ChildrenBeforeAnUnknownOneAreKept)
{
    MeasurementTime time = Of(0, 1.0);
    EXPECT_RG_THROW(
        time.SetXmlString(Text("<MeasurementTime><MeasurementMode>Periodic</MeasurementMode><Nonsense/>"
                               "<MeasurementTime><DoubleValue>4</DoubleValue></MeasurementTime>"
                               "</MeasurementTime>"),
                          true),
        "RGException", "Unknown Tag 'Nonsense' in 'MeasurementTime'.");
    EXPECT_EQ(time.GetMeasurementMode(), 1);
    EXPECT_EQ(time.GetMeasurementTimeValue(), NOT_SET);
}

// The time takes the end of a child that it doesn't know for its own end.
TEST(MeasurementTime, UnknownChildOfTheTimeEndsTheTime)
{
    MeasurementTime time;
    EXPECT_RG_THROW(
        time.SetXmlString(Text("<MeasurementTime><MeasurementTime><X/><DoubleValue>4</DoubleValue>"
                               "</MeasurementTime></MeasurementTime>"),
                          true),
        "RGException", "Unknown Tag 'DoubleValue' in 'MeasurementTime'.");

    const QString xml = Text("<MeasurementTime><MeasurementTime><DoubleValue>4</DoubleValue><X/>"
                             "</MeasurementTime><MeasurementMode>Periodic</MeasurementMode>"
                             "</MeasurementTime>");
    EXPECT_RG_THROW(time.SetXmlString(xml, true), "RGException", MISSING_MODE);
    time.SetValidate(false);
    EXPECT_TRUE(time.SetXmlString(xml, true));
    EXPECT_EQ(time.GetMeasurementTimeValue(), 4.0);
    EXPECT_EQ(time.GetMeasurementMode(), -1) << "the time's own end ended the object";
}

// The logger belongs to the object that was given it; the time has none of its own.
TEST(MeasurementTime, MalformedTimeIsThrownWithoutALineOfTheHolder)
{
    const QString inTime = Text("<MeasurementTime><MeasurementTime><DoubleValue>5");
    const QString inMode = Text("<MeasurementTime><MeasurementMode>Periodic");
    const auto logger = NewLogger();
    MeasurementTime time = Of(0, 1.0);
    time.SetLogger(logger);
    EXPECT_RG_THROW(time.SetXmlString(inTime, true), "RGException", Support::XmlErrorOf(inTime));
    EXPECT_LOG(logger, {"INFO: MeasurementTime: Loading xml string."});
    logger->Reset(true);
    EXPECT_RG_THROW(time.SetXmlString(inMode, true), "RGException", Support::XmlErrorOf(inMode));
    EXPECT_LOG(logger, (QStringList{Text("INFO: MeasurementTime: Loading xml string."),
                                    Text("FATAL ERROR: RGException: ") + Support::XmlErrorOf(inMode)}));
    EXPECT_TRUE(time == MeasurementTime());
}
