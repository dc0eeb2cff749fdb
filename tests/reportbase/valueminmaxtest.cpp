#include "support/expect.h"
#include "support/plainrows.h"
#include "support/records.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <cmath>
#include <type_traits>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ValueMinMax;
using Support::Data;
using Support::FieldsOf;
using Support::INFINITE;
using Support::NewLogger;
using Support::NextToUnset;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;
using Support::Text;

// A number is no value range by itself.
static_assert(std::is_constructible_v<ValueMinMax, double>);
static_assert(!std::is_convertible_v<double, ValueMinMax>);

constexpr const char* NO_NAME = "ValueMinMax: Please set object name!";

ValueMinMax Of(const char* name, double value, double min = NOT_SET, double max = NOT_SET)
{
    ValueMinMax object(value);
    object.SetName(Text(name));
    object.SetMin(min);
    object.SetMax(max);
    return object;
}

} // namespace

// --- Fields ------------------------------------------------------------------------------------------------

TEST(ValueMinMax, OnlyTheValueIsDataAndOnlyTheNameIsAskedFor)
{
    Support::ExpectObjects<ValueMinMax>({
        {ValueMinMax(), ": - - -", Data::None, NO_NAME, ""},
        {ValueMinMax(2.5), ": 2.5 - -", Data::Whole, NO_NAME, ""},
        {Of("", 1.0), ": 1 - -", Data::Whole, NO_NAME, ""},
        {Of("N", NOT_SET), "N: - - -", Data::None, nullptr, ""},
        {Of("N", NOT_SET, 1.0, 2.0), "N: - 1 2", Data::None, nullptr, ""},
        {Of("N", NextToUnset()), "N: ~ - -", Data::Whole, nullptr, "<N>-111111.11</N>"},
        {Of("N", 5.0, 10.0, 1.0), "N: 5 10 1", Data::Whole, nullptr,
         "<N Min=\"10.00\" Max=\"1.00\">5.00</N>"},
        {Of("Frequency", 2.0, 1.0), "Frequency: 2 1 -", Data::Whole, nullptr,
         "<Frequency Min=\"1.00\">2.00</Frequency>"},
        {Of("N", 2.0, NOT_SET, 3.0), "N: 2 - 3", Data::Whole, nullptr, "<N Max=\"3.00\">2.00</N>"},
        {Of("N", 1.005), "N: 1.005 - -", Data::Whole, nullptr, "<N>1.00</N>"},
        {Of("N", 0.125), "N: 0.125 - -", Data::Whole, nullptr, "<N>0.13</N>"},
        {Of("N", -0.0, -0.125, NOT_A_NUMBER), "N: 0 -0.125 nan", Data::Whole, nullptr,
         "<N Min=\"-0.13\" Max=\"nan\">0.00</N>"},
        {Of("N", -0.001), "N: -0.001 - -", Data::Whole, nullptr, "<N>-0.00</N>"},
        {Of("N", 121500000.0), "N: 121500000 - -", Data::Whole, nullptr, "<N>121500000.00</N>"},
        {Of("N", 1e22), "N: 1e+22 - -", Data::Whole, nullptr, "<N>10000000000000000000000.00</N>"},
        {Of("N", NOT_A_NUMBER), "N: nan - -", Data::Whole, nullptr, "<N>nan</N>"},
        {Of("N", INFINITE, -INFINITE), "N: inf -inf -", Data::Whole, nullptr, "<N Min=\"-inf\">inf</N>"},
    });
    EXPECT_NO_RG_THROW(Of(" ", 1.0).Check());
}

TEST(ValueMinMax, ResetKeepsTheName)
{
    ValueMinMax object = Of("N", 2.0, 1.0, 3.0);
    object.Reset();
    EXPECT_TEXT(FieldsOf(object), "N: - - -");
}

TEST(ValueMinMax, OnlyTheNumberForNotSetIsInvalid)
{
    ValueMinMax object;
    EXPECT_FALSE(object.IsValid(NOT_SET));
    EXPECT_TRUE(object.IsValid(NOT_A_NUMBER));
    EXPECT_TRUE(object.IsValid(NextToUnset()));
    EXPECT_TRUE(object.IsValid(std::nextafter(NOT_SET, -INFINITE)));
    EXPECT_TRUE(object.IsValid(-111111.0));
    EXPECT_TRUE(object.IsValid(0.0));

    const IRGObject& base = object;
    EXPECT_FALSE(base.IsValid(NOT_SET));
    EXPECT_TRUE(base.IsValid(0.0));

    bool (ValueMinMax::*own)(double) = &ValueMinMax::IsValid;
    EXPECT_FALSE((object.*own)(NOT_SET));
    EXPECT_TRUE((object.*own)(1.0));
}

TEST(ValueMinMax, ValidityOfTheOtherTypesIsThatOfTheBase)
{
    ValueMinMax object;
    EXPECT_FALSE(object.IsValid(-111111)) << "an int, not the double next to it";
    EXPECT_FALSE(object.IsValid(-1111111.0f));
    EXPECT_FALSE(object.IsValid(4294967295u));
    EXPECT_FALSE(object.IsValid(-111111ll));
    EXPECT_FALSE(object.IsValid(QString()));
    EXPECT_FALSE(object.IsValid(QDateTime()));
    EXPECT_TRUE(object.IsValid(false));
    EXPECT_TRUE(object.IsValid(0));
    EXPECT_TRUE(object.IsValid(Text("N")));

    const ValueMinMax constant;
    EXPECT_FALSE(constant.IsValid(-111111));
    EXPECT_FALSE(constant.IsValid(NOT_SET));
    EXPECT_TRUE(constant.IsValid(1.0));
}

TEST(ValueMinMax, ComparesNameValueAndBounds)
{
    ValueMinMax emptyName;
    emptyName.SetName(QLatin1String(""));
    Support::ExpectComparisons<ValueMinMax>({
        {Of("N", 2.0), Of("N", 2.0), true},
        {Of("N", 0.0), Of("N", -0.0), true},
        {emptyName, ValueMinMax(), true},
        {Of("N", 2.0), Of("M", 2.0), false},
        {Of("N", 2.0), Of("N", std::nextafter(2.0, 3.0)), false},
        {Of("N", 2.0), Of("N", 2.0, 1.0), false},
        {Of("N", 2.0), Of("N", 2.0, NOT_SET, 1.0), false},
    });
    Support::ExpectUnequalToThemselves<ValueMinMax>(
        {Of("N", NOT_A_NUMBER), Of("N", 1.0, NOT_A_NUMBER), Of("N", 1.0, 2.0, NOT_A_NUMBER)});
}

// --- Reading -----------------------------------------------------------------------------------------------

/// Its holder hands it the element, whatever that is named.
TEST(ValueMinMax, ReadsValueAndBoundsWithoutACheckOrALineAndConsumesItsElement)
{
    struct Row
    {
        const char* xml;
        const char* fields;
    };
    const Row rows[] = {
        {"<X Max=\"3.5\" Min=\"1.25\">2.75</X>", "N: 2.75 1.25 3.5"},
        {"<X Min=\"9\" Max=\"1\">5</X>", "N: 5 9 1"},
        {"<X Max=\"4\">2</X>", "N: 2 - 4"},
        {"<X Min=\"1\">2</X>", "N: 2 1 -"},
        {"<X min=\"1\" MAX=\"2\" Minimum=\"3\">4</X>", "N: 4 - -"},
        {"<X/>", "N: 0 - -"},
        {"<X></X>", "N: 0 - -"},
        {"<X> </X>", "N: 0 - -"},
        {"<X Min=\"\" Max=\"\">1</X>", "N: 1 0 0"},
        {"<X Min=\"-111111.11\">-111111.11</X>", "N: - - -"},
        {"<X>12<!-- -->34</X>", "N: 34 - -"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.xml);
        const auto logger = NewLogger();
        ValueMinMax object = Of("N", 7.0, 8.0, 9.0);
        object.SetLogger(logger);
        QXmlStreamReader reader(Text(row.xml));
        EXPECT_TRUE(reader.readNextStartElement());
        EXPECT_NO_RG_THROW(object.ReadValuesFromXml(reader));
        EXPECT_TRUE(reader.isEndElement());
        EXPECT_TEXT(reader.name().toString(), "X");
        EXPECT_TEXT(FieldsOf(object), row.fields);
        EXPECT_LOG(logger, {});
    }
}

TEST(ValueMinMax, MalformedElementIsReportedAndLeavesTheValue)
{
    const QString xml = Text("<N Min=\"3\" Max=\"4\">5");
    const QString error = Support::XmlErrorOf(xml);
    ASSERT_FALSE(error.isEmpty());
    for (const bool logging : {true, false}) {
        const auto logger = NewLogger();
        ValueMinMax object = Of("N", 1.0, 0.5);
        if (logging)
            object.SetLogger(logger);
        QXmlStreamReader reader(xml);
        ASSERT_TRUE(reader.readNextStartElement());
        EXPECT_RG_THROW(object.ReadValuesFromXml(reader), "RGException", error);
        EXPECT_LOG(logger,
                   (logging ? QStringList{Text("FATAL ERROR: RGException: ") + error} : QStringList()));
        EXPECT_TEXT(FieldsOf(object), "N: 1 3 4") << "the attributes were complete";
    }
}

TEST(ValueMinMax, OwnElementIsNotReadByTheCommonFrame)
{
    ValueMinMax object = Of("N", 1.0, 0.5);
    EXPECT_FALSE(object.SetXmlString(Text("<N>5</N>"), true));
    EXPECT_FALSE(object.MergeRGObject(Of("N", 2.0)));
    EXPECT_TRUE(object.MergeRGObject(Of("AnyType", 2.0))) << "found, but the frame reads children only";
    EXPECT_TEXT(FieldsOf(object), "N: 1 0.5 -");

    EXPECT_TRUE(object.SetXmlString(Text("<AnyType Min=\"3\">5</AnyType>"), true));
    EXPECT_TEXT(FieldsOf(object), "N: - - -") << "reset, and no child was read";
}
