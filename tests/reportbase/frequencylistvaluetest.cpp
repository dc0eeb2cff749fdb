#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencylistvalue.h>

#include <gtest/gtest.h>

#include <QtCore/QDate>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTime>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::FrequencyListValue;
using Support::NewLogger;
using Support::Text;

constexpr double NOT_SET = -111111.11;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

// What callers keep a reference to. There is no way to set it but reading.
static_assert(
    std::is_same_v<decltype(std::declval<const FrequencyListValue&>().GetTimeStamp()), const QDateTime&>);
static_assert(std::is_same_v<decltype(std::declval<FrequencyListValue&>().GetTimeStamp()), const QDateTime&>);

constexpr const char* MISSING_VALUE = "FrequencyList: Please set Value!";

FrequencyListValue AtFrequency(double frequency)
{
    FrequencyListValue entry;
    entry.SetFrequency(frequency);
    return entry;
}

/// An entry with the time stamp read from `text`.
FrequencyListValue Stamped(const char* text)
{
    FrequencyListValue entry;
    Support::ReadElement(entry, Text("<Value><TimeStamp>") + Text(text) + Text("</TimeStamp></Value>"));
    return entry;
}

} // namespace

TEST(FrequencyListValue, StartsWithNothingSetAndPasses)
{
    const FrequencyListValue entry;
    EXPECT_EQ(entry.GetFrequency(), NOT_SET);
    EXPECT_EQ(entry.GetFrequencyMin(), NOT_SET);
    EXPECT_EQ(entry.GetFrequencyMax(), NOT_SET);
    EXPECT_TRUE(entry.GetTimeStamp().isNull());
    EXPECT_NO_RG_THROW(entry.Check());
    EXPECT_XML(entry, "");
}

TEST(FrequencyListValue, BoundsAloneAreNoData)
{
    FrequencyListValue entry;
    entry.SetFrequencyMinMax(1.0, 2.0);
    EXPECT_FALSE(entry.AnyData());
    EXPECT_NO_RG_THROW(entry.Check());
    EXPECT_XML(entry, "");
}

TEST(FrequencyListValue, TimeStampAloneIsAnyDataAndRefused)
{
    const FrequencyListValue entry = Stamped("2017-02-03T14:05:09.007Z");
    EXPECT_TRUE(entry.AnyData());
    EXPECT_FALSE(entry.HasData());
    EXPECT_RG_THROW(entry.Check(), "RGException", MISSING_VALUE);
    EXPECT_TEXT(Support::UnindentedXmlOf(entry), "");

    FrequencyListValue read;
    EXPECT_RG_THROW(
        read.SetXmlString(Text("<Value><TimeStamp>2017-02-03T14:05:09Z</TimeStamp></Value>"), true),
        "RGException", MISSING_VALUE);
    EXPECT_TRUE(read.AnyData());
}

TEST(FrequencyListValue, RefusalIsNotNamedAfterTheObject)
{
    class Renamed : public FrequencyListValue
    {
    public:
        Renamed() { SetObjectName(Text("Entry")); }
    };
    Renamed entry;
    EXPECT_RG_THROW(
        entry.SetXmlString(Text("<Entry><TimeStamp>2017-02-03T14:05:09Z</TimeStamp></Entry>"), true),
        "RGException", MISSING_VALUE);
}

TEST(FrequencyListValue, ResetUnsetsFrequencyAndTimeStamp)
{
    FrequencyListValue entry = Stamped("2017-02-03T14:05:09.007Z");
    entry.SetFrequency(1.0);
    entry.SetFrequencyMinMax(1.0, 2.0);
    entry.Reset();
    EXPECT_EQ(entry.GetFrequency(), NOT_SET);
    EXPECT_EQ(entry.GetFrequencyMin(), NOT_SET);
    EXPECT_EQ(entry.GetFrequencyMax(), NOT_SET);
    EXPECT_TRUE(entry.GetTimeStamp().isNull());
    entry.SetFrequency(1.0);
    EXPECT_XML(entry, "\n<Value>\n    <Frequency>1.00</Frequency>\n</Value>");
}

TEST(FrequencyListValue, ComparesTheFrequencyAlone)
{
    FrequencyListValue entry = Stamped("2017-02-03T14:05:09.007Z");
    entry.SetFrequency(1.0);
    entry.SetFrequencyMinMax(0.5, 1.5);
    EXPECT_TRUE(entry == AtFrequency(1.0));
    EXPECT_FALSE(entry != AtFrequency(1.0));
    EXPECT_FALSE(AtFrequency(1.0) == AtFrequency(2.0));
    EXPECT_TRUE(AtFrequency(1.0) != AtFrequency(2.0));
    EXPECT_TRUE(FrequencyListValue() == Stamped("2017-02-03T14:05:09.007Z"));
    EXPECT_TRUE(AtFrequency(0.0) == AtFrequency(-0.0));
}

TEST(FrequencyListValue, NotANumberDiffersFromEverything)
{
    const FrequencyListValue nan = AtFrequency(NOT_A_NUMBER);
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);
    EXPECT_TRUE(nan != AtFrequency(1.0));
    EXPECT_TRUE(AtFrequency(1.0) != nan);
    EXPECT_TRUE(nan.HasData());
    EXPECT_XML(nan, "\n<Value>\n    <Frequency>nan</Frequency>\n</Value>");
}

TEST(FrequencyListValue, WritesTheTimeStampOnlyWhenThereIsOne)
{
    FrequencyListValue entry = AtFrequency(1.005);
    EXPECT_XML(entry, "\n<Value>\n    <Frequency>1.00</Frequency>\n</Value>");
    entry = Stamped("2017-02-03T14:05:09.007Z");
    entry.SetFrequency(1.0);
    EXPECT_XML(entry, "\n<Value>"
                      "\n    <Frequency>1.00</Frequency>"
                      "\n    <TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp>"
                      "\n</Value>");
}

TEST(FrequencyListValue, WritesTheTimeStampInUtcWithMilliseconds)
{
    FrequencyListValue entry = Stamped("2017-02-03T14:05:09+02:00");
    entry.SetFrequency(1.0);
    EXPECT_XML(entry, "\n<Value>"
                      "\n    <Frequency>1.00</Frequency>"
                      "\n    <TimeStamp>2017-02-03T12:05:09.000Z</TimeStamp>"
                      "\n</Value>");
}

TEST(FrequencyListValue, ReadsChildrenInAnyOrder)
{
    FrequencyListValue entry;
    EXPECT_NO_RG_THROW(entry.SetXmlString(Text("<Value><TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp>"
                                               "<Frequency Max=\"3\">2</Frequency></Value>"),
                                          true));
    EXPECT_EQ(entry.GetFrequency(), 2.0);
    EXPECT_EQ(entry.GetFrequencyMin(), NOT_SET);
    EXPECT_EQ(entry.GetFrequencyMax(), 3.0);
    EXPECT_EQ(entry.GetTimeStamp(), QDateTime(QDate(2017, 2, 3), QTime(14, 5, 9, 7), Qt::UTC));
}

TEST(FrequencyListValue, TextThatIsNoDateReadsAsNoTimeStamp)
{
    for (const char* text : {"", " ", "rubbish", "14:05:09", "03.02.2017 14:05:09"}) {
        FrequencyListValue entry = Stamped("2017-02-03T14:05:09.007Z");
        Support::ReadElement(entry, Text("<Value><TimeStamp>") + Text(text) + Text("</TimeStamp></Value>"));
        EXPECT_TRUE(entry.GetTimeStamp().isNull()) << text;
        EXPECT_FALSE(entry.AnyData()) << text;
    }
}

// Comparing date-times takes the beginning of the epoch for a null one in some time zones.
TEST(FrequencyListValue, BeginningOfTheEpochIsATimeStamp)
{
    FrequencyListValue entry = Stamped("1970-01-01T00:00:00Z");
    EXPECT_TRUE(entry.AnyData());
    EXPECT_RG_THROW(entry.Check(), "RGException", MISSING_VALUE);
    entry.SetFrequency(1.0);
    EXPECT_XML(entry, "\n<Value>"
                      "\n    <Frequency>1.00</Frequency>"
                      "\n    <TimeStamp>1970-01-01T00:00:00.000Z</TimeStamp>"
                      "\n</Value>");
}

TEST(FrequencyListValue, CopyTakesBoundsAndTimeStamp)
{
    FrequencyListValue source = Stamped("2017-02-03T14:05:09.007Z");
    source.SetFrequency(1.0);
    source.SetFrequencyMinMax(0.5, 1.5);
    const FrequencyListValue copy(source);
    FrequencyListValue assigned;
    assigned = source;
    source.Reset();
    for (const FrequencyListValue& object : {copy, assigned}) {
        EXPECT_EQ(object.GetFrequency(), 1.0);
        EXPECT_EQ(object.GetFrequencyMin(), 0.5);
        EXPECT_EQ(object.GetFrequencyMax(), 1.5);
        EXPECT_EQ(object.GetTimeStamp(), QDateTime(QDate(2017, 2, 3), QTime(14, 5, 9, 7), Qt::UTC));
    }
}

TEST(FrequencyListValue, MergeKeepsATimeStampThatTheOtherDoesNotHave)
{
    FrequencyListValue entry = Stamped("2017-02-03T14:05:09.007Z");
    entry.SetFrequency(1.0);
    entry.SetFrequencyMin(0.5);
    EXPECT_TRUE(entry.MergeRGObject(AtFrequency(2.0)));
    EXPECT_EQ(entry.GetFrequency(), 2.0);
    EXPECT_EQ(entry.GetFrequencyMin(), NOT_SET);
    EXPECT_FALSE(entry.GetTimeStamp().isNull());
}

TEST(FrequencyListValue, MergeTakesTheTimeStampOfTheOther)
{
    FrequencyListValue entry = Stamped("2017-02-03T14:05:09.007Z");
    entry.SetFrequency(1.0);
    FrequencyListValue other = Stamped("2018-03-04T15:06:10.008Z");
    other.SetFrequency(2.0);
    EXPECT_TRUE(entry.MergeRGObject(other));
    EXPECT_XML(entry, "\n<Value>"
                      "\n    <Frequency>2.00</Frequency>"
                      "\n    <TimeStamp>2018-03-04T15:06:10.008Z</TimeStamp>"
                      "\n</Value>");
}

TEST(FrequencyListValue, TimeStampWithoutOffsetIsLocalTimeAndWrittenInUtc)
{
    // 1400000000.123 s after the beginning of 1970 in UTC are 2014-05-13T16:53:20.123Z.
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(1400000000123);
    const QString text =
        local.date().toString(Qt::ISODate) + Text("T") + local.time().toString(Qt::ISODateWithMs);
    FrequencyListValue entry;
    EXPECT_NO_RG_THROW(entry.SetXmlString(
        Text("<Value><Frequency>1</Frequency><TimeStamp>") + text + Text("</TimeStamp></Value>"), true));
    EXPECT_EQ(entry.GetTimeStamp().timeSpec(), Qt::LocalTime);
    EXPECT_XML(entry, "\n<Value>"
                      "\n    <Frequency>1.00</Frequency>"
                      "\n    <TimeStamp>2014-05-13T16:53:20.123Z</TimeStamp>"
                      "\n</Value>");
}

TEST(FrequencyListValue, IncompleteLoadedEntryIsRefusedOnlyWhenValidating)
{
    const QString xml = Text("<Value><TimeStamp>2017-02-03T14:05:09Z</TimeStamp></Value>");
    for (const bool logging : {true, false}) {
        const auto logger = NewLogger();
        FrequencyListValue entry = AtFrequency(1.0);
        if (logging)
            entry.SetLogger(logger);
        EXPECT_RG_THROW(entry.SetXmlString(xml, true), "RGException", MISSING_VALUE);
        EXPECT_EQ(entry.GetFrequency(), NOT_SET);
        EXPECT_EQ(entry.GetTimeStamp(), QDateTime(QDate(2017, 2, 3), QTime(14, 5, 9), Qt::UTC));
        EXPECT_LOG(logger, (logging ? Support::Lines({"INFO: Value: Loading xml string."}) : QStringList()));
        entry.SetValidate(false);
        EXPECT_TRUE(entry.SetXmlString(xml, true));
    }
}

TEST(FrequencyListValue, ChildrenBeforeAnUnknownOneAreKept)
{
    FrequencyListValue entry = Stamped("2017-02-03T14:05:09.007Z");
    EXPECT_RG_THROW(entry.SetXmlString(Text("<Value><Frequency Min=\"4\">5</Frequency><Nonsense/>"
                                            "<TimeStamp>2017-02-03T14:05:09Z</TimeStamp></Value>"),
                                       true),
                    "RGException", "Unknown Tag 'Nonsense' in 'Value'.");
    EXPECT_EQ(entry.GetFrequency(), 5.0);
    EXPECT_EQ(entry.GetFrequencyMin(), 4.0);
    EXPECT_TRUE(entry.GetTimeStamp().isNull());
}

// The logger belongs to the object that was given it; the frequency has none of its own.
TEST(FrequencyListValue, OnlyAMalformedTimeStampIsLoggedByTheEntry)
{
    const QString inFrequency = Text("<Value><Frequency>5");
    const QString inTimeStamp = Text("<Value><TimeStamp>2017");
    const auto logger = NewLogger();
    FrequencyListValue entry;
    entry.SetLogger(logger);
    EXPECT_RG_THROW(entry.SetXmlString(inFrequency, true), "RGException", Support::XmlErrorOf(inFrequency));
    EXPECT_LOG(logger, {"INFO: Value: Loading xml string."});
    logger->Reset(true);
    EXPECT_RG_THROW(entry.SetXmlString(inTimeStamp, true), "RGException", Support::XmlErrorOf(inTimeStamp));
    EXPECT_LOG(logger, (QStringList{Text("INFO: Value: Loading xml string."),
                                    Text("FATAL ERROR: RGException: ") + Support::XmlErrorOf(inTimeStamp)}));
    EXPECT_TRUE(entry.GetTimeStamp().isNull());
}
