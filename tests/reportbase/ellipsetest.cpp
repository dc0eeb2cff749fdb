#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/ellipse.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <cmath>
#include <limits>

namespace {

using REPORTGENERATOR::Ellipse;
using Support::NewLogger;
using Support::Text;

constexpr double NOT_SET = -111111.11;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

Ellipse Of(double minRadius, double maxRadius, double rotation)
{
    Ellipse ellipse;
    ellipse.SetMinRadius(minRadius);
    ellipse.SetMaxRadius(maxRadius);
    ellipse.SetRotation(rotation);
    return ellipse;
}

} // namespace

TEST(Ellipse, StartsWithNothingSetAndPasses)
{
    const Ellipse ellipse;
    EXPECT_EQ(ellipse.GetMinRadius(), NOT_SET);
    EXPECT_EQ(ellipse.GetMaxRadius(), NOT_SET);
    EXPECT_EQ(ellipse.GetRotation(), NOT_SET);
    EXPECT_NO_RG_THROW(ellipse.Check());
    EXPECT_XML(ellipse, "");
}

TEST(Ellipse, CheckNamesTheFirstMissingValue)
{
    const struct
    {
        double minRadius, maxRadius, rotation;
        const char* missing;
    } rows[] = {
        {NOT_SET, NOT_SET, 30.0, "MinRadius"}, {NOT_SET, 2.0, NOT_SET, "MinRadius"},
        {NOT_SET, 2.0, 30.0, "MinRadius"},     {1.0, NOT_SET, NOT_SET, "MaxRadius"},
        {1.0, NOT_SET, 30.0, "MaxRadius"},     {1.0, 2.0, NOT_SET, "Rotation"},
    };
    for (const auto& row : rows) {
        const Ellipse ellipse = Of(row.minRadius, row.maxRadius, row.rotation);
        EXPECT_TRUE(ellipse.AnyData());
        EXPECT_FALSE(ellipse.HasData());
        EXPECT_TEXT(Support::UnindentedXmlOf(ellipse), "");
        for (const bool validate : {true, false}) {
            const auto logger = NewLogger();
            ellipse.SetValidate(validate);
            ellipse.SetLogger(logger);
            EXPECT_RG_THROW(ellipse.Check(), "RGException",
                            Text("Ellipse: Please set ") + Text(row.missing) + Text("!"));
            EXPECT_LOG(logger, {});
        }
    }
}

TEST(Ellipse, NoRelationBetweenTheValuesIsEnforced)
{
    EXPECT_NO_RG_THROW(Of(500.0, 100.0, 0.0).Check());
    EXPECT_NO_RG_THROW(Of(-1.0, -2.0, -720.0).Check());
    EXPECT_NO_RG_THROW(Of(NOT_A_NUMBER, INFINITE, NOT_A_NUMBER).Check());
    EXPECT_EQ(Of(500.0, 100.0, 0.0).GetMinRadius(), 500.0);
}

TEST(Ellipse, OnlyTheNumberForNotSetCountsAsUnset)
{
    EXPECT_FALSE(Of(NOT_SET, NOT_SET, NOT_SET).AnyData());
    EXPECT_RG_THROW(Of(1.0, 2.0, NOT_SET).Check(), "RGException", "Ellipse: Please set Rotation!");
    EXPECT_TRUE(Of(-111111.0, std::nextafter(NOT_SET, 0.0), NOT_A_NUMBER).HasData());
    EXPECT_TRUE(Of(0.0, 0.0, 0.0).HasData());
}

TEST(Ellipse, ComparesTheThreeValues)
{
    EXPECT_TRUE(Of(1.0, 2.0, 3.0) == Of(1.0, 2.0, 3.0));
    EXPECT_FALSE(Of(1.0, 2.0, 3.0) != Of(1.0, 2.0, 3.0));
    EXPECT_TRUE(Ellipse() == Ellipse());
    EXPECT_TRUE(Of(0.0, 0.0, 0.0) == Of(-0.0, -0.0, -0.0));
    for (const Ellipse& other : {Of(9.0, 2.0, 3.0), Of(1.0, 9.0, 3.0), Of(1.0, 2.0, 9.0)}) {
        EXPECT_FALSE(Of(1.0, 2.0, 3.0) == other);
        EXPECT_TRUE(Of(1.0, 2.0, 3.0) != other);
    }
    for (const Ellipse& nan :
         {Of(NOT_A_NUMBER, 2.0, 3.0), Of(1.0, NOT_A_NUMBER, 3.0), Of(1.0, 2.0, NOT_A_NUMBER)}) {
        EXPECT_FALSE(nan == nan);
        EXPECT_TRUE(nan != nan);
    }
    Ellipse other = Of(1.0, 2.0, 3.0);
    other.SetValidate(false);
    EXPECT_TRUE(other == Of(1.0, 2.0, 3.0));
}

TEST(Ellipse, WritesTwoDecimalsInItsOrder)
{
    EXPECT_XML(Of(1.005, 0.125, -0.001), "\n<Ellipse>"
                                         "\n    <MinRadius>1.00</MinRadius>"
                                         "\n    <MaxRadius>0.13</MaxRadius>"
                                         "\n    <Rotation>-0.00</Rotation>"
                                         "\n</Ellipse>");
    EXPECT_XML(Of(NOT_A_NUMBER, INFINITE, -INFINITE), "\n<Ellipse>"
                                                      "\n    <MinRadius>nan</MinRadius>"
                                                      "\n    <MaxRadius>inf</MaxRadius>"
                                                      "\n    <Rotation>-inf</Rotation>"
                                                      "\n</Ellipse>");
}

TEST(Ellipse, ReadsItsChildrenInAnyOrder)
{
    Ellipse ellipse;
    EXPECT_NO_RG_THROW(
        ellipse.SetXmlString(Text("<Ellipse><Rotation>3</Rotation><MaxRadius>2</MaxRadius>"
                                  "<MinRadius>9</MinRadius><MinRadius>1</MinRadius></Ellipse>"),
                             true));
    EXPECT_TRUE(ellipse == Of(1.0, 2.0, 3.0));
}

TEST(Ellipse, MissingRotationStaysUnsetAndIsReportedWhenValidating)
{
    const QString xml = Text("<Ellipse><MinRadius>1</MinRadius><MaxRadius>2</MaxRadius></Ellipse>");
    Ellipse ellipse = Of(7.0, 8.0, 9.0);
    EXPECT_RG_THROW(ellipse.SetXmlString(xml, true), "RGException", "Ellipse: Please set Rotation!");
    EXPECT_TRUE(ellipse == Of(1.0, 2.0, NOT_SET));
    ellipse.SetValidate(false);
    EXPECT_TRUE(ellipse.SetXmlString(xml, true));
}

TEST(Ellipse, MergeTakesTheWrittenNumbers)
{
    Ellipse ellipse = Of(1.0, 2.0, 3.0);
    EXPECT_TRUE(ellipse.MergeRGObject(Of(10.126, 20.0, 30.0)));
    EXPECT_TRUE(ellipse == Of(10.13, 20.0, 30.0)) << "with two decimals";
    EXPECT_TRUE(ellipse.MergeRGObject(Ellipse()));
    EXPECT_TRUE(ellipse == Of(10.13, 20.0, 30.0));
}

TEST(Ellipse, ChildrenBeforeAnUnknownOneAreKept)
{
    Ellipse ellipse = Of(7.0, 8.0, 9.0);
    ellipse.SetValidate(false);
    EXPECT_RG_THROW(ellipse.SetXmlString(Text("<Ellipse><Rotation>3</Rotation><Radius>1</Radius>"
                                              "<MinRadius>1</MinRadius></Ellipse>"),
                                         true),
                    "RGException", "Unknown Tag 'Radius' in 'Ellipse'.");
    EXPECT_TRUE(ellipse == Of(NOT_SET, NOT_SET, 3.0));
}

TEST(Ellipse, NumberForNotSetIsReadAsUnset)
{
    Ellipse ellipse;
    EXPECT_RG_THROW(ellipse.SetXmlString(Text("<Ellipse><MinRadius>1</MinRadius><MaxRadius>-111111.11"
                                              "</MaxRadius><Rotation>3</Rotation></Ellipse>"),
                                         true),
                    "RGException", "Ellipse: Please set MaxRadius!");
}
