#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/channelspacing.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QVector>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using Support::NewLogger;
using Support::Text;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

// What callers keep references to.
static_assert(std::is_same_v<decltype(std::declval<const ChannelSpacing&>().GetVisual()), const QString&>);
static_assert(
    std::is_same_v<decltype(std::declval<const ChannelSpacing&>().GetValues()), const QVector<double>&>);

constexpr const char* MISSING_SAME_DISTANCE = "ChannelSpacing: Please set Samedistance!";
constexpr const char* MISSING_VALUES = "ChannelSpacing: Please set ChannelSpacing!";

ChannelSpacing Values(const QVector<double>& values)
{
    ChannelSpacing spacing;
    spacing.SetValues(values);
    return spacing;
}

ChannelSpacing Of(bool sameDistance, const QVector<double>& values)
{
    ChannelSpacing spacing = Values(values);
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

TEST(ChannelSpacing, StartsWithNothingSetAndPasses)
{
    const ChannelSpacing spacing;
    EXPECT_TEXT(spacing.GetVisual(), "");
    EXPECT_FALSE(spacing.IsSameDistance());
    EXPECT_FALSE(spacing.IsValidSameDistance());
    EXPECT_TRUE(spacing.GetValues().isEmpty());
    EXPECT_NO_RG_THROW(spacing.Check());
    EXPECT_XML(spacing, "");
}

TEST(ChannelSpacing, SetFalseIsSet)
{
    ChannelSpacing spacing;
    spacing.SetSameDistance(false);
    EXPECT_FALSE(spacing.IsSameDistance());
    EXPECT_TRUE(spacing.IsValidSameDistance());
    EXPECT_TRUE(spacing.AnyData());
    EXPECT_FALSE(spacing.HasData());
    spacing.SetSameDistance(true);
    EXPECT_TRUE(spacing.IsSameDistance());
    EXPECT_TRUE(spacing.IsValidSameDistance());
}

TEST(ChannelSpacing, ValuesKeepTheirOrderAndAreReplacedWhole)
{
    ChannelSpacing spacing = Values({3.0, 1.0, 2.0, 1.0});
    EXPECT_EQ(spacing.GetValues(), (QVector<double>{3.0, 1.0, 2.0, 1.0}));
    EXPECT_TRUE(spacing.AnyData());
    EXPECT_FALSE(spacing.HasData());
    spacing.SetValues({5.0});
    EXPECT_EQ(spacing.GetValues(), QVector<double>{5.0});
    spacing.SetValues({});
    EXPECT_FALSE(spacing.AnyData());
}

TEST(ChannelSpacing, VisualTextDoesNotCountAsData)
{
    ChannelSpacing spacing;
    spacing.SetVisual(Text("12,5 kHz"));
    EXPECT_TEXT(spacing.GetVisual(), "12,5 kHz");
    EXPECT_FALSE(spacing.AnyData());
    EXPECT_FALSE(spacing.HasData());
    EXPECT_NO_RG_THROW(spacing.Check());
    EXPECT_XML(spacing, "");
}

TEST(ChannelSpacing, ValuesWithoutSameDistanceAskForSamedistance)
{
    EXPECT_RG_THROW(Values({1.0}).Check(), "RGException", MISSING_SAME_DISTANCE);
    EXPECT_TEXT(Support::UnindentedXmlOf(Values({1.0})), "");
}

TEST(ChannelSpacing, SameDistanceWithoutValuesNamesTheObjectTwice)
{
    EXPECT_RG_THROW(Of(true, {}).Check(), "RGException", MISSING_VALUES);
    EXPECT_RG_THROW(Of(false, {}).Check(), "RGException", MISSING_VALUES);
    EXPECT_TEXT(Support::UnindentedXmlOf(Of(true, {})), "");

    class Renamed : public ChannelSpacing
    {
    public:
        Renamed() { SetObjectName(Text("Raster")); }
    };
    Renamed renamed;
    renamed.SetSameDistance(true);
    EXPECT_RG_THROW(renamed.Check(), "RGException", "Raster: Please set Raster!");
}

TEST(ChannelSpacing, BothRefusalsAreThrownWithoutALineInAllSettings)
{
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        const ChannelSpacing withoutFlag = Values({1.0});
        const ChannelSpacing withoutValues = Of(false, {});
        for (const ChannelSpacing* spacing : {&withoutFlag, &withoutValues}) {
            spacing->SetValidate(validate);
            spacing->SetLogger(logger);
        }
        EXPECT_RG_THROW(withoutFlag.Check(), "RGException", MISSING_SAME_DISTANCE);
        EXPECT_RG_THROW(withoutValues.Check(), "RGException", MISSING_VALUES);
        EXPECT_TEXT(Support::UnindentedXmlOf(withoutValues), "");
        EXPECT_LOG(logger, {});
    }
}

TEST(ChannelSpacing, NumbersAreNotChecked)
{
    EXPECT_NO_RG_THROW(Of(false, {-1.0, 0.0, -111111.11, NOT_A_NUMBER, INFINITE}).Check());
    EXPECT_TRUE(Of(false, {-111111.11}).HasData());
}

TEST(ChannelSpacing, ResetClearsTheTextsToNull)
{
    ChannelSpacing spacing = Of(true, {1.0});
    spacing.SetVisual(Text("x"));
    spacing.Reset();
    EXPECT_TRUE(spacing.GetVisual().isNull());
    EXPECT_FALSE(spacing.IsValidSameDistance());
    EXPECT_TRUE(spacing.GetValues().isEmpty());
}

TEST(ChannelSpacing, ComparesVisualSameDistanceAndValues)
{
    EXPECT_TRUE(Of(true, {1.0, 2.0}) == Of(true, {1.0, 2.0}));
    EXPECT_FALSE(Of(true, {1.0, 2.0}) != Of(true, {1.0, 2.0}));
    EXPECT_FALSE(Of(true, {1.0}) == Of(false, {1.0}));
    EXPECT_TRUE(Of(true, {1.0}) != Of(false, {1.0}));
    EXPECT_FALSE(Of(true, {1.0, 2.0}) == Of(true, {2.0, 1.0}));
    EXPECT_FALSE(Of(true, {1.0}) == Of(true, {1.0, 1.0}));
    EXPECT_FALSE(Of(true, {1.0, 1.0}) == Of(true, {1.0}));
    EXPECT_TRUE(Of(true, {0.0}) == Of(true, {-0.0}));

    ChannelSpacing other = Of(true, {1.0});
    other.SetVisual(Text("x"));
    EXPECT_FALSE(other == Of(true, {1.0}));
    other.SetVisual(QLatin1String(""));
    other.SetValidate(false);
    EXPECT_TRUE(other == Of(true, {1.0}));
}

TEST(ChannelSpacing, FalseAndUnsetSameDistanceAreEqual)
{
    EXPECT_TRUE(Of(false, {1.0}) == Values({1.0}));
    EXPECT_FALSE(Of(false, {1.0}) != Values({1.0}));
    EXPECT_TRUE(Read("<Samedistance>TRUE</Samedistance>") == ChannelSpacing());
}

TEST(ChannelSpacing, NotANumberDiffersEvenFromItsOwnSharedCopy)
{
    const ChannelSpacing spacing = Of(true, {1.0, NOT_A_NUMBER});
    const ChannelSpacing copy(spacing);
    EXPECT_FALSE(spacing == copy);
    EXPECT_TRUE(spacing != copy);
    EXPECT_FALSE(spacing == spacing);
}

TEST(ChannelSpacing, WritesFalseAndOneValue)
{
    const ChannelSpacing spacing = Of(false, {2.5});
    EXPECT_FALSE(spacing.IsSameDistance());
    EXPECT_TRUE(spacing.IsValidSameDistance());
    EXPECT_XML(spacing, "\n<ChannelSpacing>"
                        "\n    <Samedistance>false</Samedistance>"
                        "\n    <Value>2.50</Value>"
                        "\n</ChannelSpacing>");
}

TEST(ChannelSpacing, WritesEachValueWithTwoDecimals)
{
    ChannelSpacing spacing = Of(true, {12.5, 0.025, 1.005, -0.125, 1e15, NOT_A_NUMBER, -INFINITE});
    spacing.SetVisual(Text("a<b & c"));
    EXPECT_XML(spacing, "\n<ChannelSpacing>"
                        "\n    <Visual>a&lt;b &amp; c</Visual>"
                        "\n    <Samedistance>true</Samedistance>"
                        "\n    <Value>12.50</Value>"
                        "\n    <Value>0.03</Value>"
                        "\n    <Value>1.00</Value>"
                        "\n    <Value>-0.13</Value>"
                        "\n    <Value>1000000000000000.00</Value>"
                        "\n    <Value>nan</Value>"
                        "\n    <Value>-inf</Value>"
                        "\n</ChannelSpacing>");
}

TEST(ChannelSpacing, ReadSameDistanceIsKeptAsItIs)
{
    const ChannelSpacing upper = Read("<Samedistance>TRUE</Samedistance><Value>1</Value>");
    EXPECT_FALSE(upper.IsSameDistance());
    EXPECT_TRUE(upper.IsValidSameDistance());
    EXPECT_XML(upper, "\n<ChannelSpacing>"
                      "\n    <Samedistance>TRUE</Samedistance>"
                      "\n    <Value>1.00</Value>"
                      "\n</ChannelSpacing>");
    EXPECT_TRUE(Read("<Samedistance>true</Samedistance>").IsSameDistance());
    EXPECT_FALSE(Read("<Samedistance> true</Samedistance>").IsSameDistance());
    EXPECT_TRUE(Read("<Samedistance> </Samedistance>").IsValidSameDistance());
    EXPECT_FALSE(Read("<Samedistance></Samedistance>").IsValidSameDistance());
}

TEST(ChannelSpacing, ReadValuesAreAppendedInTheirOrder)
{
    const ChannelSpacing spacing = Read("<Value>3</Value><Visual>v</Visual><Value>1</Value>"
                                        "<Samedistance>true</Samedistance><Value>2</Value>");
    EXPECT_EQ(spacing.GetValues(), (QVector<double>{3.0, 1.0, 2.0}));
    EXPECT_TEXT(spacing.GetVisual(), "v");
}

TEST(ChannelSpacing, LoadingReplacesEarlierValues)
{
    ChannelSpacing spacing = Of(true, {1.0});
    spacing.SetVisual(Text("x"));
    EXPECT_NO_RG_THROW(spacing.SetXmlString(
        Text("<ChannelSpacing><Samedistance>false</Samedistance><Value>5</Value></ChannelSpacing>"), true));
    EXPECT_EQ(spacing.GetValues(), QVector<double>{5.0});
    EXPECT_TEXT(spacing.GetVisual(), "");
}

TEST(ChannelSpacing, IncompleteLoadedObjectIsRefusedOnlyWhenValidating)
{
    ChannelSpacing spacing;
    EXPECT_RG_THROW(spacing.SetXmlString(Text("<ChannelSpacing><Value>1</Value></ChannelSpacing>"), true),
                    "RGException", MISSING_SAME_DISTANCE);
    EXPECT_RG_THROW(
        spacing.SetXmlString(Text("<ChannelSpacing><Samedistance>x</Samedistance></ChannelSpacing>"), true),
        "RGException", MISSING_VALUES);
    EXPECT_NO_RG_THROW(
        spacing.SetXmlString(Text("<ChannelSpacing><Visual>x</Visual></ChannelSpacing>"), true));
    EXPECT_TEXT(spacing.GetVisual(), "x");
}

TEST(ChannelSpacing, MergeAppendsTheValues)
{
    ChannelSpacing spacing = Of(true, {1.0});
    spacing.SetVisual(Text("x"));
    EXPECT_TRUE(spacing.MergeRGObject(Of(false, {2.0, 3.0})));
    EXPECT_EQ(spacing.GetValues(), (QVector<double>{1.0, 2.0, 3.0}));
    EXPECT_FALSE(spacing.IsSameDistance());
    EXPECT_TEXT(spacing.GetVisual(), "x") << "the other has none";
}

TEST(ChannelSpacing, ReadTextsAreWrittenAsTheyWere)
{
    const char* xml = "\n<ChannelSpacing>"
                      "\n    <Visual> 8,33 &lt; 25 &quot;kHz&quot; </Visual>"
                      "\n    <Samedistance>a &amp; b</Samedistance>"
                      "\n    <Value>8.33</Value>"
                      "\n</ChannelSpacing>";
    const ChannelSpacing spacing = Read("<Visual> 8,33 &lt; 25 \"kHz\" </Visual>"
                                        "<Samedistance>a &amp; b</Samedistance><Value>8.33</Value>");
    EXPECT_TEXT(spacing.GetVisual(), " 8,33 < 25 \"kHz\" ");
    EXPECT_FALSE(spacing.IsSameDistance());
    EXPECT_XML(spacing, xml);
}

TEST(ChannelSpacing, LastOfSeveralTextsCounts)
{
    const ChannelSpacing spacing = Read("<Visual>a</Visual><Samedistance>true</Samedistance>"
                                        "<Visual/><Samedistance>false</Samedistance>");
    EXPECT_TEXT(spacing.GetVisual(), "");
    EXPECT_FALSE(spacing.IsSameDistance());
    EXPECT_TRUE(spacing.IsValidSameDistance());
}

TEST(ChannelSpacing, ChildrenBeforeAnUnknownOneAreKept)
{
    ChannelSpacing spacing = Of(true, {7.0});
    EXPECT_RG_THROW(spacing.SetXmlString(Text("<ChannelSpacing><Value>1</Value><Visual>v</Visual><Step/>"
                                              "<Value>2</Value></ChannelSpacing>"),
                                         true),
                    "RGException", "Unknown Tag 'Step' in 'ChannelSpacing'.");
    EXPECT_EQ(spacing.GetValues(), QVector<double>{1.0});
    EXPECT_TEXT(spacing.GetVisual(), "v");
    EXPECT_FALSE(spacing.IsValidSameDistance());
}
