// What an older release makes of a field that it doesn't know, where no other test shows it.

#include "support/bytes.h"
#include "support/expect.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <gtest/gtest.h>

#include <QtCore/QDataStream>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>

namespace {

using REPORTGENERATOR::ReportBase;
using Support::Byte;
using Support::Bytes;
using Support::Double;
using Support::Text;

/// Reads an element whose root and children all have an attribute that is new, and writes what was read.
template <class T>
void ExpectPassedOver(const char* xml)
{
    SCOPED_TRACE(xml);
    QString newer = Text(xml);
    newer.replace(QRegularExpression(Text("<(\\w+)")), Text("<\\1 New=\"1\""));
    T object;
    EXPECT_NO_RG_THROW(EXPECT_TRUE(object.SetXmlString(newer, true)));
    EXPECT_TEXT(object.GetXmlString().remove(QRegularExpression(Text("\\n *"))), xml);
}

} // namespace

TEST(NewerFields, AttributesArePassedOverInEveryClass)
{
    ExpectPassedOver<ReportBase>("<ReportBase><Frequency Min=\"1.00\">2.00</Frequency><Area Version=\"1.0\">"
                                 "<Name>Lake</Name><Coordinate><Longitude>1.000000</Longitude><Latitude>"
                                 "2.000000</Latitude></Coordinate></Area></ReportBase>");
    ExpectPassedOver<REPORTGENERATOR::FrequencyInformation>(
        "<FrequencyInformation><Frequency Min=\"1.00\">2.00</Frequency></FrequencyInformation>");
    ExpectPassedOver<REPORTGENERATOR::FrequencyListValue>("<Value><Frequency>2.00</Frequency></Value>");
    ExpectPassedOver<REPORTGENERATOR::FrequencyRangeOld>(
        "<FrequencyRange><StartFrequency>1.00</StartFrequency><StopFrequency>2.00</StopFrequency>"
        "</FrequencyRange>");
    ExpectPassedOver<REPORTGENERATOR::Ellipse>(
        "<Ellipse><MinRadius>1.00</MinRadius><MaxRadius>2.00</MaxRadius>"
        "<Rotation>3.00</Rotation></Ellipse>");
    ExpectPassedOver<REPORTGENERATOR::ChannelSpacing>(
        "<ChannelSpacing><Samedistance>true</Samedistance><Value>8333.33</Value></ChannelSpacing>");
    ExpectPassedOver<REPORTGENERATOR::ScanParameter>(
        "<ScanParameter "
        "Version=\"1.0\"><FrequencyRange><StartFrequency>1.00</StartFrequency><StopFrequency>2.00"
        "</StopFrequency></FrequencyRange><FrequencyStep>3.00</FrequencyStep></ScanParameter>");
}

TEST(NewerFields, AChildWithATextReplacesTheNumberThatItStandsBehind)
{
    ReportBase report;
    EXPECT_NO_RG_THROW(report.SetXmlString(
        Text("<ReportBase><Frequency>121500000<Offset>25</Offset></Frequency></ReportBase>"), true));
    EXPECT_EQ(report.GetFrequency().GetValue(), 25.0);
}

TEST(NewerFields, WhatFollowsAFieldInTheRawFormIsReadAmiss)
{
    // A fifth field of Frequency takes the bytes of the IF bandwidth: 25.0 is 40 39 and six zeros, of which the
    // first byte is taken for its flags.
    const Bytes raw =
        Byte(0x03) + Byte(0x11) + Double(121500000.0) + Double(25.0) + Byte(0x01) + Double(8333.33);
    const QByteArray bytes = raw.Data();
    QDataStream stream(bytes);
    ReportBase report;
    EXPECT_NO_RG_THROW(report.SetVersionSpecificBinaryWithoutValidation(stream));
    EXPECT_EQ(stream.status(), QDataStream::Ok);
    EXPECT_EQ(report.GetFrequency().GetValue(), 121500000.0);
    EXPECT_TRUE(report.IsIFBandwidthSet());
    EXPECT_FALSE(report.GetIFBandwidth().IsValueSet());
}
