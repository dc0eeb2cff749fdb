// Time stamps around a change of the clocks. At 2:00 on 26 March 2017 the clocks of Central Europe went on to
// 3:00.

#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencylistvalue.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QtGlobal>

#include <ctime>

#ifndef Q_OS_WIN

namespace {

using REPORTGENERATOR::FrequencyListValue;
using Support::Text;

/// The process in Central Europe, as long as it lives.
class InCentralEurope
{
public:
    InCentralEurope() : m_wasSet(qEnvironmentVariableIsSet("TZ")), m_before(qgetenv("TZ"))
    {
        qputenv("TZ", "CET-1CEST,M3.5.0/2,M10.5.0/3");
        tzset();
    }
    ~InCentralEurope()
    {
        if (m_wasSet)
            qputenv("TZ", m_before);
        else
            qunsetenv("TZ");
        tzset();
    }
    InCentralEurope(const InCentralEurope&) = delete;
    InCentralEurope& operator=(const InCentralEurope&) = delete;

private:
    bool m_wasSet;
    QByteArray m_before;
};

void Stamp(FrequencyListValue& entry, const char* text)
{
    Support::ReadElement(entry, Text("<Value><TimeStamp>") + Text(text) + Text("</TimeStamp></Value>"));
}

TEST(ClockChange, ATimeInTheGapIsNoTimeStamp)
{
    const InCentralEurope here;
    FrequencyListValue entry;
    Stamp(entry, "2017-03-26T02:30:00");
    EXPECT_FALSE(entry.GetTimeStamp().isNull());
    EXPECT_FALSE(entry.AnyData());
    EXPECT_NO_RG_THROW(entry.Check());
    entry.SetFrequency(1.0);
    EXPECT_XML(entry, "\n<Value>\n    <Frequency>1.00</Frequency>\n</Value>");
}

TEST(ClockChange, TimesBesideTheGapAreTimeStamps)
{
    const InCentralEurope here;
    FrequencyListValue entry;
    entry.SetFrequency(1.0);
    Stamp(entry, "2017-03-26T01:59:59");
    EXPECT_XML(entry, "\n<Value>\n    <Frequency>1.00</Frequency>"
                      "\n    <TimeStamp>2017-03-26T00:59:59.000Z</TimeStamp>\n</Value>");
    Stamp(entry, "2017-03-26T03:00:00");
    EXPECT_XML(entry, "\n<Value>\n    <Frequency>1.00</Frequency>"
                      "\n    <TimeStamp>2017-03-26T01:00:00.000Z</TimeStamp>\n</Value>");
}

TEST(ClockChange, ATimeInUtcIsATimeStampWhateverTheClocksDo)
{
    const InCentralEurope here;
    FrequencyListValue entry;
    Stamp(entry, "2017-03-26T02:30:00Z");
    EXPECT_TRUE(entry.AnyData());
}

} // namespace

#endif
