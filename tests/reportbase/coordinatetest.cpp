#include "support/bytes.h"
#include "support/expect.h"
#include "support/numberfields.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/coordinate.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Coordinate;
using Support::At;
using Support::CoordinateState;
using Support::Latitude;
using Support::Longitude;
using Support::NumberField;
using Support::ReadElements;
using Support::WithLeftovers;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double DENORMAL = std::numeric_limits<double>::denorm_min();

const char* const LONGITUDE_OUT_OF_RANGE =
    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.";
const char* const LATITUDE_OUT_OF_RANGE =
    "Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'.";
const char* const SET_LONGITUDE = "Coordinate: Please set Longitude properly.";
const char* const SET_LATITUDE = "Coordinate: Please set Latitude properly.";

struct RangeField : NumberField<Coordinate>
{
    double bound;
    const char* outOfRange;
    const char* notSet;
};

std::vector<RangeField> RangeFields()
{
    const std::vector<NumberField<Coordinate>> fields = Support::NumberFieldsOf<Coordinate>();
    return {
        {fields.at(0), 180.0, LONGITUDE_OUT_OF_RANGE, SET_LONGITUDE},
        {fields.at(1), 90.0, LATITUDE_OUT_OF_RANGE, SET_LATITUDE},
    };
}

struct RangeRow
{
    std::string name;
    double value;
    bool isValid;
};

/// Numbers at and around the range [-bound, bound], and the odd ones.
std::vector<RangeRow> RangeRows(double bound)
{
    return {
        {"lower end", -bound, true},
        {"next below the lower end", std::nextafter(-bound, -INF), false},
        {"next above the lower end", std::nextafter(-bound, 0.0), true},
        {"below the lower end", -bound - 0.000001, false},
        {"far below", -1e300, false},
        {"upper end", bound, true},
        {"next above the upper end", std::nextafter(bound, INF), false},
        {"next below the upper end", std::nextafter(bound, 0.0), true},
        {"above the upper end", bound + 0.000001, false},
        {"far above", 1e300, false},
        {"zero", 0.0, true},
        {"negative zero", -0.0, true},
        {"denormal", DENORMAL, true},
        {"negative denormal", -DENORMAL, true},
        {"NaN", NOT_A_NUMBER, false},
        {"infinity", INF, false},
        {"negative infinity", -INF, false},
        {"unset double", -111111.11, false},
        {"next above the unset double", std::nextafter(-111111.11, INF), false},
        {"next below the unset double", std::nextafter(-111111.11, -INF), false},
        {"unset int", -111111.0, false},
        {"unset float", -1111111.0, false},
    };
}

CoordinateState State(std::optional<double> longitude, std::optional<double> latitude)
{
    return {longitude, latitude};
}

QString Xml(const char* longitude, const char* latitude)
{
    return QStringLiteral("\n<Coordinate>\n    <Longitude>%1</Longitude>\n    <Latitude>%2</Latitude>\n"
                          "</Coordinate>")
        .arg(Support::Text(longitude), Support::Text(latitude));
}

} // namespace

// --- Fields -----------------------------------------------------------------------------------------------

TEST(Coordinate, RangesIncludeTheirEndsAndExcludeNaN)
{
    const Coordinate coordinate;
    for (const RangeField& field : RangeFields()) {
        for (const RangeRow& row : RangeRows(field.bound))
            EXPECT_EQ((coordinate.*field.isValid)(row.value), row.isValid) << field.name << " " << row.name;
    }
    EXPECT_TRUE(coordinate.IsValidLongitude(90.5));
    EXPECT_FALSE(coordinate.IsValidLatitude(90.5));
    EXPECT_FALSE(coordinate.IsInitialized());
}

TEST(Coordinate, SetterStoresAndSetsValuesInTheRangeWithoutAMessage)
{
    for (const bool validate : {true, false}) {
        for (const RangeField& field : RangeFields()) {
            for (const RangeRow& row : RangeRows(field.bound)) {
                if (!row.isValid)
                    continue;
                SCOPED_TRACE(field.name + (" " + row.name));
                Coordinate coordinate;
                coordinate.SetValidate(validate);
                const auto logger = Support::NewLogger();
                coordinate.SetLogger(logger);
                EXPECT_NO_RG_THROW((coordinate.*field.set)(row.value));
                EXPECT_TRUE((coordinate.*field.isSet)());
                EXPECT_EQ(Support::BitsOf((coordinate.*field.get)()), Support::BitsOf(row.value));
                EXPECT_NE(coordinate.IsLongitudeSet(), coordinate.IsLatitudeSet());
                EXPECT_LOG(logger, {});
            }
        }
    }
}

TEST(Coordinate, SetterThrowsAndStoresNothingOutsideOfTheRangeWhenValidating)
{
    for (const RangeField& field : RangeFields()) {
        for (const RangeRow& row : RangeRows(field.bound)) {
            if (row.isValid)
                continue;
            SCOPED_TRACE(field.name + (" " + row.name));
            Coordinate fresh;
            EXPECT_RG_THROW((fresh.*field.set)(row.value), "OutOfRangeException", field.outOfRange);
            EXPECT_TRUE(fresh.IsInitialized());
            EXPECT_STATE(fresh, CoordinateState());

            Coordinate used = At(1.5, 2.5);
            const auto logger = Support::NewLogger();
            used.SetLogger(logger);
            EXPECT_RG_THROW((used.*field.set)(row.value), "OutOfRangeException", field.outOfRange);
            EXPECT_STATE(used, State(1.5, 2.5));
            EXPECT_LOG(logger, QStringList{QStringLiteral("FATAL ERROR: OutOfRangeException: ") +
                                           Support::Text(field.outOfRange)});
        }
    }
}

TEST(Coordinate, SetterStoresOutOfRangeValueAndWarnsWhenNotValidating)
{
    for (const RangeField& field : RangeFields()) {
        for (const RangeRow& row : RangeRows(field.bound)) {
            if (row.isValid)
                continue;
            SCOPED_TRACE(field.name + (" " + row.name));
            Coordinate coordinate = Support::NotValidating<Coordinate>();
            EXPECT_NO_RG_THROW((coordinate.*field.set)(row.value));
            EXPECT_TRUE((coordinate.*field.isSet)());
            EXPECT_EQ(Support::BitsOf((coordinate.*field.get)()), Support::BitsOf(row.value));

            const auto logger = Support::NewLogger();
            coordinate.SetLogger(logger);
            (coordinate.*field.reset)();
            EXPECT_NO_RG_THROW((coordinate.*field.set)(row.value));
            EXPECT_TRUE((coordinate.*field.isSet)());
            EXPECT_EQ(Support::BitsOf((coordinate.*field.get)()), Support::BitsOf(row.value));
            EXPECT_LOG(logger, QStringList{QStringLiteral("WARNING: OutOfRangeException: ") +
                                           Support::Text(field.outOfRange)});
            EXPECT_FALSE(logger->HasErrors());
        }
    }
}

TEST(Coordinate, OutOfRangeMessageNamesTheObject)
{
    Support::Renamed<Coordinate> coordinate("Corner %1");
    EXPECT_RG_THROW(coordinate.SetLongitude(200.0), "OutOfRangeException",
                    "Parameters for m_longitude are not set within range (-180, 180) in 'Corner %1'.");
    EXPECT_RG_THROW(coordinate.SetLatitude(-91.0), "OutOfRangeException",
                    "Parameters for m_latitude are not set within range (-90, 90) in 'Corner %1'.");
}

TEST(Coordinate, AnyDataAsksForOneValueAndHasDataForBoth)
{
    for (const int flags : {0, 1, 2, 3}) {
        EXPECT_EQ(WithLeftovers<Coordinate>(flags, {1.0, 2.0}).AnyData(), flags != 0) << flags;
        EXPECT_EQ(WithLeftovers<Coordinate>(flags, {1.0, 2.0}).HasData(), flags == 3) << flags;
    }
    EXPECT_TRUE(WithLeftovers<Coordinate>(3, {1000.0, NOT_A_NUMBER}).HasData());
}

// --- Check ------------------------------------------------------------------------------------------------

TEST(Coordinate, CheckReportsValuesOutsideOfTheirRanges)
{
    for (const RangeField& field : RangeFields()) {
        for (const RangeRow& row : RangeRows(field.bound)) {
            SCOPED_TRACE(field.name + (" " + row.name));
            Coordinate coordinate = At(1.0, 2.0);
            coordinate.SetValidate(false);
            (coordinate.*field.set)(row.value);
            if (row.isValid)
                EXPECT_NO_RG_THROW(coordinate.Check());
            else
                EXPECT_RG_THROW(coordinate.Check(), "OutOfRangeException", field.notSet);
        }
    }
}

TEST(Coordinate, CheckIgnoresLeftoversOfUnsetValues)
{
    EXPECT_RG_THROW(WithLeftovers<Coordinate>(1, {1.0, 2.0}).Check(), "OutOfRangeException", SET_LATITUDE);
    EXPECT_RG_THROW(WithLeftovers<Coordinate>(2, {1.0, 2.0}).Check(), "OutOfRangeException", SET_LONGITUDE);
}

// --- XML writing ------------------------------------------------------------------------------------------

TEST(Coordinate, XmlNumbersHaveExactlySixDecimals)
{
    struct Row
    {
        double number;
        const char* text;
    };
    const Row rows[] = {
        {0.0, "0.000000"},         {-0.0, "0.000000"},
        {90.0, "90.000000"},       {-90.0, "-90.000000"},
        {0.1, "0.100000"},         {1.0 / 3.0, "0.333333"},
        {2.0 / 3.0, "0.666667"},   {89.9999999, "90.000000"},
        {0.0000005, "0.000000"},                            // a little less than the tie
        {0.0000015, "0.000002"},                            // a little more than the tie
        {0.0000025, "0.000003"},                            // a little more than the tie
        {0.00390625, "0.003906"},  {0.0078125, "0.007813"}, // a tie
        {-0.0078125, "-0.007813"}, {-0.0000001, "-0.000000"},
        {5e-324, "0.000000"},
    };
    for (const Row& row : rows)
        EXPECT_XML(At(row.number, row.number), Xml(row.text, row.text));
}

// --- Reading ----------------------------------------------------------------------------------------------

TEST(Coordinate, OutOfRangeNumbersAreRefusedWhenValidatingAndStoredWithWarningsOtherwise)
{
    struct Row
    {
        const char* xml;
        Support::Bytes elements;
        std::vector<const char*> problems;
        CoordinateState refused;
        CoordinateState stored;
    };
    const Row rows[] = {
        {"<Longitude>180.000001</Longitude><Latitude>1</Latitude>",
         Longitude("180.000001") + Latitude("1"),
         {LONGITUDE_OUT_OF_RANGE},
         {},
         {180.000001, 1.0}},
        {"<Latitude>1</Latitude><Longitude>-181</Longitude>",
         Latitude("1") + Longitude("-181"),
         {LONGITUDE_OUT_OF_RANGE},
         State(std::nullopt, 1.0),
         {-181.0, 1.0}},
        {"<Longitude>1</Longitude><Latitude>inf</Latitude>",
         Longitude("1") + Latitude("inf"),
         {LATITUDE_OUT_OF_RANGE},
         {1.0},
         {1.0, INF}},
        {"<Longitude>1</Longitude><Latitude> nan</Latitude>",
         Longitude("1") + Latitude(" nan"),
         {LATITUDE_OUT_OF_RANGE},
         {1.0},
         {1.0, NOT_A_NUMBER}},
        {"<Latitude>91</Latitude><Longitude>-inf</Longitude>",
         Latitude("91") + Longitude("-inf"),
         {LATITUDE_OUT_OF_RANGE, LONGITUDE_OUT_OF_RANGE},
         {},
         {-INF, 91.0}},
    };
    for (const Row& row : rows) {
        for (const bool isXml : {true, false}) {
            SCOPED_TRACE(row.xml + std::string(isXml ? "" : " as elements"));
            const auto read = [&](Coordinate& coordinate) {
                const QString xml = Support::Text("<Coordinate>%1</Coordinate>").arg(Support::Text(row.xml));
                if (isXml)
                    EXPECT_TRUE(coordinate.SetXmlString(xml, true));
                else
                    EXPECT_EQ(ReadElements(coordinate, row.elements), 0);
            };
            const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
            Coordinate coordinate = At(7.0, 8.0);
            coordinate.SetLogger(logger);
            EXPECT_RG_THROW(read(coordinate), "OutOfRangeException", row.problems.front());
            EXPECT_STATE(coordinate, row.refused);
            coordinate.SetValidate(false);
            EXPECT_NO_RG_THROW(read(coordinate));
            EXPECT_STATE(coordinate, row.stored);
            QStringList lines;
            lines << Support::Text("FATAL ERROR: OutOfRangeException: ") +
                         Support::Text(row.problems.front());
            for (const char* problem : row.problems)
                lines << Support::Text("WARNING: OutOfRangeException: ") + Support::Text(problem);
            EXPECT_LOG(logger, lines);
        }
    }
}

// --- Merging ----------------------------------------------------------------------------------------------

/// It writes its unset latitude as 0.
TEST(Coordinate, MergingAnIncompleteCoordinateThatDoesNotValidateTakesBothValues)
{
    Coordinate coordinate = At(7.0, 8.0);
    Coordinate other = Support::OnlyLongitude(1.0);
    other.SetValidate(false);
    EXPECT_TRUE(coordinate.MergeRGObject(other));
    EXPECT_STATE(coordinate, State(1.0, 0.0));
}

TEST(Coordinate, MergingAnOutOfRangeCoordinateThrowsWhereTheTargetValidates)
{
    const Coordinate other = WithLeftovers<Coordinate>(3, {1.0, 95.0});
    Coordinate coordinate = At(7.0, 8.0);
    EXPECT_RG_THROW(coordinate.MergeRGObject(other), "OutOfRangeException", LATITUDE_OUT_OF_RANGE);
    EXPECT_STATE(coordinate, State(1.0, 8.0));
    coordinate.SetValidate(false);
    EXPECT_TRUE(coordinate.MergeRGObject(other));
    EXPECT_STATE(coordinate, State(1.0, 95.0));
}
