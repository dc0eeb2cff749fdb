#include "support/expect.h"
#include "support/plainrows.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencylistvalue.h>

#include <gtest/gtest.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::FrequencyListValue;
using Support::Data;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;
using Support::Text;

// What callers keep a reference to. There is no way to set it but reading.
static_assert(
    std::is_same_v<decltype(std::declval<const FrequencyListValue&>().GetTimeStamp()), const QDateTime&>);
static_assert(std::is_same_v<decltype(std::declval<FrequencyListValue&>().GetTimeStamp()), const QDateTime&>);

constexpr const char* MISSING_VALUE = "FrequencyList: Please set Value!";

constexpr const char* STAMP = "2017-02-03T14:05:09.007Z";

/// An entry with the time stamp read from `stamp`.
FrequencyListValue At(double frequency, double min = NOT_SET, double max = NOT_SET,
                      const char* stamp = nullptr)
{
    FrequencyListValue entry;
    if (stamp)
        Support::ReadElement(entry, Text("<Value><TimeStamp>") + Text(stamp) + Text("</TimeStamp></Value>"));
    entry.SetFrequency(frequency);
    entry.SetFrequencyMinMax(min, max);
    return entry;
}

FrequencyListValue Stamped(double frequency, const char* stamp)
{
    return At(frequency, NOT_SET, NOT_SET, stamp);
}

} // namespace

// Comparing date-times takes the beginning of the epoch for a null one in some time zones.
TEST(FrequencyListValue, NeedsAFrequencyOnlyWhenItHasATimeStampWhichIsWrittenInUtc)
{
    Support::ExpectObjects<FrequencyListValue>({
        {FrequencyListValue(), "- - - / -", Data::None, nullptr, ""},
        {At(NOT_SET, 1.0, 2.0), "- 1 2 / -", Data::None, nullptr, ""},
        {Stamped(NOT_SET, STAMP), "- - - / 2017-02-03T14:05:09.007Z", Data::Some, MISSING_VALUE, ""},
        {Stamped(NOT_SET, "1970-01-01T00:00:00Z"), "- - - / 1970-01-01T00:00:00.000Z", Data::Some,
         MISSING_VALUE, ""},
        {At(1.005), "1.005 - - / -", Data::Whole, nullptr, "<Value><Frequency>1.00</Frequency></Value>"},
        {At(NOT_A_NUMBER), "nan - - / -", Data::Whole, nullptr, "<Value><Frequency>nan</Frequency></Value>"},
        {At(1.0, 0.5, 1.5, STAMP), "1 0.5 1.5 / 2017-02-03T14:05:09.007Z", Data::Whole, nullptr,
         "<Value><Frequency Min=\"0.50\" Max=\"1.50\">1.00</Frequency>"
         "<TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp></Value>"},
        {Stamped(1.0, "2017-02-03T14:05:09+02:00"), "1 - - / 2017-02-03T14:05:09.000+02:00", Data::Whole,
         nullptr,
         "<Value><Frequency>1.00</Frequency><TimeStamp>2017-02-03T12:05:09.000Z</TimeStamp></Value>"},
        {Stamped(1.0, "1970-01-01T00:00:00Z"), "1 - - / 1970-01-01T00:00:00.000Z", Data::Whole, nullptr,
         "<Value><Frequency>1.00</Frequency><TimeStamp>1970-01-01T00:00:00.000Z</TimeStamp></Value>"},
    });
}

TEST(FrequencyListValue, ReadsChildrenInAnyOrderAndATextThatIsNoDateAsNoTimeStamp)
{
    Support::ExpectReadings(
        At(7.0, 8.0, 9.0, STAMP),
        {
            {"", "- - - / -"},
            {"<TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp><Frequency Max=\"3\">2</Frequency>",
             "2 - 3 / 2017-02-03T14:05:09.007Z"},
            {"<TimeStamp>2017-02-03T14:05:09Z</TimeStamp>", "- - - / 2017-02-03T14:05:09.000Z", nullptr,
             MISSING_VALUE},
            {"<Frequency Min=\"4\">5</Frequency><Nonsense/><TimeStamp>2017-02-03T14:05:09Z</TimeStamp>",
             "5 4 - / -", "Unknown Tag 'Nonsense' in 'Value'."},
            {"<TimeStamp>2017-02-03T14:05:09Z</TimeStamp><TimeStamp></TimeStamp>", "- - - / -"},
            {"<TimeStamp>2017-02-03T14:05:09Z</TimeStamp><TimeStamp> </TimeStamp>", "- - - / -"},
            {"<TimeStamp>2017-02-03T14:05:09Z</TimeStamp><TimeStamp>rubbish</TimeStamp>", "- - - / -"},
            {"<TimeStamp>2017-02-03T14:05:09Z</TimeStamp><TimeStamp>14:05:09</TimeStamp>", "- - - / -"},
            {"<TimeStamp>2017-02-03T14:05:09Z</TimeStamp><TimeStamp>03.02.2017 14:05:09</TimeStamp>",
             "- - - / -"},
        });
}

// The logger belongs to the object that was given it; the frequency has none of its own.
TEST(FrequencyListValue, OnlyAMalformedTimeStampIsLoggedByTheEntry)
{
    Support::ExpectMalformed(At(7.0), {
                                          {"<Value><Frequency>5", "- - - / -", false},
                                          {"<Value><TimeStamp>2017", "- - - / -", true},
                                      });
}

TEST(FrequencyListValue, ComparesTheFrequencyAlone)
{
    Support::ExpectComparisons<FrequencyListValue>({
        {At(1.0), At(1.0, 0.5, 1.5, STAMP), true},
        {FrequencyListValue(), Stamped(NOT_SET, STAMP), true},
        {At(0.0), At(-0.0), true},
        {At(1.0), At(2.0), false},
        {At(1.0), At(NOT_A_NUMBER), false},
    });
    Support::ExpectUnequalToThemselves<FrequencyListValue>({At(NOT_A_NUMBER)});
}

TEST(FrequencyListValue, MergeKeepsATimeStampThatTheOtherDoesNotHave)
{
    Support::ExpectMerges<FrequencyListValue>({
        {At(1.0, 0.5, NOT_SET, STAMP), At(2.0), "2 - - / 2017-02-03T14:05:09.007Z"},
        {Stamped(1.0, STAMP), Stamped(2.0, "2018-03-04T15:06:10.008Z"), "2 - - / 2018-03-04T15:06:10.008Z"},
    });
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
