#include "support/plainrows.h"

#include <reportgenerator/reportbase/ellipse.h>

#include <gtest/gtest.h>

namespace {

using REPORTGENERATOR::Ellipse;
using Support::Data;
using Support::INFINITE;
using Support::NextToUnset;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;

constexpr const char* NO_MIN_RADIUS = "Ellipse: Please set MinRadius!";
constexpr const char* NO_MAX_RADIUS = "Ellipse: Please set MaxRadius!";
constexpr const char* NO_ROTATION = "Ellipse: Please set Rotation!";

Ellipse Of(double minRadius, double maxRadius, double rotation)
{
    Ellipse ellipse;
    ellipse.SetMinRadius(minRadius);
    ellipse.SetMaxRadius(maxRadius);
    ellipse.SetRotation(rotation);
    return ellipse;
}

} // namespace

TEST(Ellipse, NeedsAllItsValuesOrNoneAndNamesTheFirstMissing)
{
    Support::ExpectObjects<Ellipse>({
        {Ellipse(), "- - -", Data::None, nullptr, ""},
        {Of(NOT_SET, NOT_SET, 30.0), "- - 30", Data::Some, NO_MIN_RADIUS, ""},
        {Of(NOT_SET, 2.0, NOT_SET), "- 2 -", Data::Some, NO_MIN_RADIUS, ""},
        {Of(NOT_SET, 2.0, 30.0), "- 2 30", Data::Some, NO_MIN_RADIUS, ""},
        {Of(1.0, NOT_SET, NOT_SET), "1 - -", Data::Some, NO_MAX_RADIUS, ""},
        {Of(1.0, NOT_SET, 30.0), "1 - 30", Data::Some, NO_MAX_RADIUS, ""},
        {Of(1.0, 2.0, NOT_SET), "1 2 -", Data::Some, NO_ROTATION, ""},
        {Of(500.0, 100.0, 0.0), "500 100 0", Data::Whole, nullptr,
         "<Ellipse><MinRadius>500.00</MinRadius><MaxRadius>100.00</MaxRadius><Rotation>0.00</Rotation>"
         "</Ellipse>"},
        {Of(-1.0, -2.0, -720.0), "-1 -2 -720", Data::Whole, nullptr,
         "<Ellipse><MinRadius>-1.00</MinRadius><MaxRadius>-2.00</MaxRadius><Rotation>-720.00</Rotation>"
         "</Ellipse>"},
        {Of(1.005, 0.125, -0.001), "1.005 0.125 -0.001", Data::Whole, nullptr,
         "<Ellipse><MinRadius>1.00</MinRadius><MaxRadius>0.13</MaxRadius><Rotation>-0.00</Rotation>"
         "</Ellipse>"},
        {Of(NOT_A_NUMBER, INFINITE, -INFINITE), "nan inf -inf", Data::Whole, nullptr,
         "<Ellipse><MinRadius>nan</MinRadius><MaxRadius>inf</MaxRadius><Rotation>-inf</Rotation></Ellipse>"},
        {Of(-111111.0, NextToUnset(), 0.0), "-111111 ~ 0", Data::Whole, nullptr,
         "<Ellipse><MinRadius>-111111.00</MinRadius><MaxRadius>-111111.11</MaxRadius>"
         "<Rotation>0.00</Rotation></Ellipse>"},
    });
}

TEST(Ellipse, ReadsItsChildrenInAnyOrderAndTheLastOfEach)
{
    Support::ExpectReadings(
        Of(7.0, 8.0, 9.0),
        {
            {"", "- - -"},
            {"<Rotation>3</Rotation><MaxRadius>2</MaxRadius><MinRadius>9</MinRadius><MinRadius>1</MinRadius>",
             "1 2 3"},
            {"<MinRadius>1</MinRadius><MaxRadius>2</MaxRadius>", "1 2 -", nullptr, NO_ROTATION},
            {"<MinRadius>1</MinRadius><MaxRadius>-111111.11</MaxRadius><Rotation>3</Rotation>", "1 - 3",
             nullptr, NO_MAX_RADIUS},
            {"<Rotation>3</Rotation><Radius>1</Radius><MinRadius>1</MinRadius>", "- - 3",
             "Unknown Tag 'Radius' in 'Ellipse'."},
        });
}

TEST(Ellipse, ComparesTheThreeValues)
{
    Support::ExpectComparisons<Ellipse>({
        {Ellipse(), Ellipse(), true},
        {Of(1.0, 2.0, 3.0), Of(1.0, 2.0, 3.0), true},
        {Of(0.0, 0.0, 0.0), Of(-0.0, -0.0, -0.0), true},
        {Of(1.0, 2.0, 3.0), Of(9.0, 2.0, 3.0), false},
        {Of(1.0, 2.0, 3.0), Of(1.0, 9.0, 3.0), false},
        {Of(1.0, 2.0, 3.0), Of(1.0, 2.0, 9.0), false},
    });
    Support::ExpectUnequalToThemselves<Ellipse>(
        {Of(NOT_A_NUMBER, 2.0, 3.0), Of(1.0, NOT_A_NUMBER, 3.0), Of(1.0, 2.0, NOT_A_NUMBER)});
}

TEST(Ellipse, MergeTakesTheWrittenNumbers)
{
    Support::ExpectMerges<Ellipse>({
        {Of(1.0, 2.0, 3.0), Of(10.126, 20.0, 30.0), "10.13 20 30"},
        {Of(1.0, 2.0, 3.0), Ellipse(), "1 2 3"},
    });
}
