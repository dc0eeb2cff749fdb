#include "support/expect.h"
#include "support/plainrows.h"

#include <reportgenerator/reportbase/channelspacing.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QVector>

#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using Support::Data;
using Support::INFINITE;
using Support::NOT_A_NUMBER;
using Support::Text;

// What callers keep references to.
static_assert(std::is_same_v<decltype(std::declval<const ChannelSpacing&>().GetVisual()), const QString&>);
static_assert(
    std::is_same_v<decltype(std::declval<const ChannelSpacing&>().GetValues()), const QVector<double>&>);

constexpr const char* MISSING_SAME_DISTANCE = "ChannelSpacing: Please set Samedistance!";
constexpr const char* MISSING_VALUES = "ChannelSpacing: Please set ChannelSpacing!";

ChannelSpacing Values(const QVector<double>& values, const char* visual = "")
{
    ChannelSpacing spacing;
    spacing.SetValues(values);
    spacing.SetVisual(Text(visual));
    return spacing;
}

ChannelSpacing Of(bool sameDistance, const QVector<double>& values, const char* visual = "")
{
    ChannelSpacing spacing = Values(values, visual);
    spacing.SetSameDistance(sameDistance);
    return spacing;
}

/// Has a new object read children, without a check.
ChannelSpacing Read(const char* children)
{
    ChannelSpacing spacing;
    spacing.SetValidate(false);
    EXPECT_NO_RG_THROW(
        spacing.SetXmlString(Text("<ChannelSpacing>") + Text(children) + Text("</ChannelSpacing>"), true));
    return spacing;
}

} // namespace

// A text of "false" is set; the visual text doesn't count, and a number that means unset elsewhere does.
TEST(ChannelSpacing, NeedsSameDistanceAndValuesOrNeither)
{
    Support::ExpectObjects<ChannelSpacing>({
        {ChannelSpacing(), " / - / ", Data::None, nullptr, ""},
        {Values({}, "12,5 kHz"), "12,5 kHz / - / ", Data::None, nullptr, ""},
        {Values({3.0, 1.0, 2.0, 1.0}), " / - / 3 1 2 1", Data::Some, MISSING_SAME_DISTANCE, ""},
        {Of(false, {}), " / false / ", Data::Some, MISSING_VALUES, ""},
        {Of(true, {}), " / true / ", Data::Some, MISSING_VALUES, ""},
        {Of(false, {2.5}), " / false / 2.5", Data::Whole, nullptr,
         "<ChannelSpacing><Samedistance>false</Samedistance><Value>2.50</Value></ChannelSpacing>"},
        {Of(false, {-111111.11}), " / false / -", Data::Whole, nullptr,
         "<ChannelSpacing><Samedistance>false</Samedistance><Value>-111111.11</Value></ChannelSpacing>"},
        {Of(true, {12.5, 0.025, 1.005, -0.125, 1e15, NOT_A_NUMBER, -INFINITE}, "a<b & c"),
         "a<b & c / true / 12.5 0.025 1.005 -0.125 1e+15 nan -inf", Data::Whole, nullptr,
         "<ChannelSpacing><Visual>a&lt;b &amp; c</Visual><Samedistance>true</Samedistance>"
         "<Value>12.50</Value><Value>0.03</Value><Value>1.00</Value><Value>-0.13</Value>"
         "<Value>1000000000000000.00</Value><Value>nan</Value><Value>-inf</Value></ChannelSpacing>"},
        // Whatever was read is kept, and only "true" is.
        {Read("<Samedistance>TRUE</Samedistance><Value>1</Value>"), " / false / 1", Data::Whole, nullptr,
         "<ChannelSpacing><Samedistance>TRUE</Samedistance><Value>1.00</Value></ChannelSpacing>"},
        {Read("<Visual> 8,33 &lt; 25 \"kHz\" </Visual><Samedistance>a &amp; b</Samedistance>"
              "<Value>8.33</Value>"),
         " 8,33 < 25 \"kHz\"  / false / 8.33", Data::Whole, nullptr,
         "<ChannelSpacing><Visual> 8,33 &lt; 25 &quot;kHz&quot; </Visual>"
         "<Samedistance>a &amp; b</Samedistance><Value>8.33</Value></ChannelSpacing>"},
    });
}

TEST(ChannelSpacing, ReadsTheLastOfEachTextAndAllValuesInTheirOrder)
{
    Support::ExpectReadings(
        Of(true, {7.0}, "x"),
        {
            {"", " / - / "},
            {"<Visual>x</Visual>", "x / - / "},
            {"<Samedistance>false</Samedistance><Value>5</Value>", " / false / 5"},
            {"<Value>3</Value><Visual>v</Visual><Value>1</Value><Samedistance>true</Samedistance>"
             "<Value>2</Value>",
             "v / true / 3 1 2"},
            {"<Visual>a</Visual><Samedistance>true</Samedistance><Visual/><Samedistance>false</Samedistance>"
             "<Value>1</Value>",
             " / false / 1"},
            {"<Samedistance> true</Samedistance><Value>1</Value>", " / false / 1"},
            {"<Samedistance> </Samedistance><Value>1</Value>", " / false / 1"},
            {"<Samedistance></Samedistance><Value>1</Value>", " / - / 1", nullptr, MISSING_SAME_DISTANCE},
            {"<Value>1</Value>", " / - / 1", nullptr, MISSING_SAME_DISTANCE},
            {"<Samedistance>x</Samedistance>", " / false / ", nullptr, MISSING_VALUES},
            {"<Value>1</Value><Visual>v</Visual><Step/><Value>2</Value>", "v / - / 1",
             "Unknown Tag 'Step' in 'ChannelSpacing'."},
        });
}

TEST(ChannelSpacing, ComparesVisualSameDistanceAndValues)
{
    Support::ExpectComparisons<ChannelSpacing>({
        {Of(true, {1.0, 2.0}), Of(true, {1.0, 2.0}), true},
        {Of(true, {0.0}), Of(true, {-0.0}), true},
        {Of(false, {1.0}), Values({1.0}), true},
        {Read("<Samedistance>TRUE</Samedistance>"), ChannelSpacing(), true},
        {Of(true, {1.0}), Of(false, {1.0}), false},
        {Of(true, {1.0, 2.0}), Of(true, {2.0, 1.0}), false},
        {Of(true, {1.0}), Of(true, {1.0, 1.0}), false},
        {Of(true, {1.0}, "x"), Of(true, {1.0}), false},
    });
    Support::ExpectUnequalToThemselves<ChannelSpacing>({Of(true, {1.0, NOT_A_NUMBER})});
}

TEST(ChannelSpacing, MergeAppendsTheValues)
{
    Support::ExpectMerges<ChannelSpacing>({
        {Of(true, {1.0}, "x"), Of(false, {2.0, 3.0}), "x / false / 1 2 3"},
    });
}

TEST(ChannelSpacing, MissingValuesNameTheObjectTwice)
{
    class Renamed : public ChannelSpacing
    {
    public:
        Renamed() { SetObjectName(Text("Raster")); }
    };
    Renamed renamed;
    renamed.SetSameDistance(true);
    EXPECT_RG_THROW(renamed.Check(), "RGException", "Raster: Please set Raster!");
}

TEST(ChannelSpacing, ResetClearsTheTextsToNull)
{
    ChannelSpacing spacing = Of(true, {1.0}, "x");
    spacing.Reset();
    EXPECT_TRUE(spacing.GetVisual().isNull());
    EXPECT_FALSE(spacing.IsValidSameDistance());
    EXPECT_TRUE(spacing.GetValues().isEmpty());
}
