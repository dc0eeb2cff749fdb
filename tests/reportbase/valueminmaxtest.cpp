#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ValueMinMax;
using Support::NewLogger;
using Support::Text;

// A number is no value range by itself.
static_assert(std::is_constructible_v<ValueMinMax, double>);
static_assert(!std::is_convertible_v<double, ValueMinMax>);

constexpr double NOT_SET = -111111.11;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

ValueMinMax Named(const char* name, double value = NOT_SET)
{
    ValueMinMax object(value);
    object.SetName(Text(name));
    return object;
}

/// Has the object read the root element, as its holders do. Returns the name of what the reader stands on.
QString ReadValues(ValueMinMax& object, const QString& xml)
{
    QXmlStreamReader reader(xml);
    EXPECT_TRUE(reader.readNextStartElement());
    object.ReadValuesFromXml(reader);
    EXPECT_TRUE(reader.isEndElement());
    return reader.name().toString();
}

} // namespace

// --- Fields ------------------------------------------------------------------------------------------------

TEST(ValueMinMax, StartsWithoutNameAndNumbers)
{
    const ValueMinMax object;
    EXPECT_TEXT(object.GetName(), "");
    EXPECT_TEXT(object.GetObjectName(), "AnyType");
    EXPECT_EQ(object.GetValue(), NOT_SET);
    EXPECT_EQ(object.GetMin(), NOT_SET);
    EXPECT_EQ(object.GetMax(), NOT_SET);
}

TEST(ValueMinMax, ConstructorTakesTheValueOnly)
{
    const ValueMinMax object(2.5);
    EXPECT_TEXT(object.GetName(), "");
    EXPECT_EQ(object.GetValue(), 2.5);
    EXPECT_EQ(object.GetMin(), NOT_SET);
    EXPECT_EQ(object.GetMax(), NOT_SET);
    EXPECT_TRUE(object.HasData());
}

TEST(ValueMinMax, SettersStoreAnyNumberInTheirOwnField)
{
    for (const double number : {0.0, -1.0, 1e300, INFINITE, -INFINITE, NOT_SET}) {
        ValueMinMax object;
        object.SetValue(number);
        object.SetMin(10.0);
        object.SetMax(-10.0);
        EXPECT_EQ(object.GetValue(), number);
        object.SetValue(1.0);
        object.SetMin(number);
        EXPECT_EQ(object.GetMin(), number);
        object.SetMax(number);
        EXPECT_EQ(object.GetMax(), number);
        EXPECT_EQ(object.GetValue(), 1.0);
    }
}

TEST(ValueMinMax, NameIsNotTheObjectName)
{
    ValueMinMax object;
    object.SetName(Text("N"));
    EXPECT_TEXT(object.GetName(), "N");
    EXPECT_TEXT(object.GetObjectName(), "AnyType");
}

TEST(ValueMinMax, OnlyTheNumberForNotSetIsInvalid)
{
    ValueMinMax object;
    EXPECT_FALSE(object.IsValid(NOT_SET));
    EXPECT_TRUE(object.IsValid(NOT_A_NUMBER));
    EXPECT_TRUE(object.IsValid(std::nextafter(NOT_SET, 0.0)));
    EXPECT_TRUE(object.IsValid(std::nextafter(NOT_SET, -INFINITE)));
    EXPECT_TRUE(object.IsValid(-111111.0));
    EXPECT_TRUE(object.IsValid(0.0));

    const IRGObject& base = object;
    EXPECT_FALSE(base.IsValid(NOT_SET));
    EXPECT_TRUE(base.IsValid(0.0));
}

TEST(ValueMinMax, ValidityOfADoubleHidesTheBasesOperation)
{
    bool (ValueMinMax::*own)(double) = &ValueMinMax::IsValid;
    ValueMinMax object;
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

TEST(ValueMinMax, OnlyTheValueCountsAsData)
{
    ValueMinMax object;
    object.SetMin(1.0);
    object.SetMax(2.0);
    EXPECT_FALSE(object.HasData());
    EXPECT_FALSE(object.AnyData());
    object.SetValue(0.0);
    EXPECT_TRUE(object.HasData());
    EXPECT_TRUE(object.AnyData());
    object.SetValue(NOT_SET);
    EXPECT_FALSE(object.HasData());
    EXPECT_FALSE(object.AnyData());
    object.SetValue(NOT_A_NUMBER);
    EXPECT_TRUE(object.HasData());
}

TEST(ValueMinMax, ResetKeepsTheName)
{
    ValueMinMax object = Named("N", 2.0);
    object.SetMin(1.0);
    object.SetMax(3.0);
    object.Reset();
    EXPECT_TEXT(object.GetName(), "N");
    EXPECT_EQ(object.GetValue(), NOT_SET);
    EXPECT_EQ(object.GetMin(), NOT_SET);
    EXPECT_EQ(object.GetMax(), NOT_SET);
}

TEST(ValueMinMax, CheckAsksForTheNameOnly)
{
    EXPECT_RG_THROW(ValueMinMax().Check(), "RGException", "ValueMinMax: Please set object name!");
    EXPECT_RG_THROW(ValueMinMax(1.0).Check(), "RGException", "ValueMinMax: Please set object name!");
    EXPECT_RG_THROW(Named("", 1.0).Check(), "RGException", "ValueMinMax: Please set object name!");
    EXPECT_NO_RG_THROW(Named("N").Check());
    EXPECT_NO_RG_THROW(Named(" ", NOT_A_NUMBER).Check());

    ValueMinMax inverted = Named("N", 5.0);
    inverted.SetMin(10.0);
    inverted.SetMax(1.0);
    EXPECT_NO_RG_THROW(inverted.Check());
}

TEST(ValueMinMax, ComparesNameValueAndBounds)
{
    const ValueMinMax object = Named("N", 2.0);
    EXPECT_TRUE(object == Named("N", 2.0));
    EXPECT_FALSE(object != Named("N", 2.0));
    EXPECT_FALSE(object == Named("M", 2.0));
    EXPECT_TRUE(object != Named("M", 2.0));
    EXPECT_FALSE(object == Named("N", std::nextafter(2.0, 3.0)));

    ValueMinMax other = object;
    other.SetMin(1.0);
    EXPECT_FALSE(object == other);
    EXPECT_TRUE(object != other);
    other = object;
    other.SetMax(1.0);
    EXPECT_FALSE(object == other);

    other = object;
    other.SetValidate(false);
    EXPECT_TRUE(object == other);
}

TEST(ValueMinMax, NullAndEmptyNameAreEqual)
{
    ValueMinMax empty;
    empty.SetName(QLatin1String(""));
    EXPECT_TRUE(empty == ValueMinMax());
}

TEST(ValueMinMax, ComparisonIsThatOfTheNumbersThemselves)
{
    EXPECT_TRUE(ValueMinMax(0.0) == ValueMinMax(-0.0));
    const ValueMinMax nan(NOT_A_NUMBER);
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);
    ValueMinMax nanBound(1.0);
    nanBound.SetMin(NOT_A_NUMBER);
    const ValueMinMax copy = nanBound;
    EXPECT_FALSE(nanBound == copy);
    EXPECT_TRUE(nanBound != copy);
}

// --- Writing -----------------------------------------------------------------------------------------------

TEST(ValueMinMax, WritesTheValueAloneWithoutAttributes)
{
    EXPECT_XML(Named("N", 1.005), "\n<N>1.00</N>");
}

TEST(ValueMinMax, WritesEachBoundOnlyWhenItIsSet)
{
    ValueMinMax object = Named("Frequency", 2.0);
    object.SetMin(1.0);
    EXPECT_XML(object, "\n<Frequency Min=\"1.00\">2.00</Frequency>");
    object.SetMax(3.0);
    EXPECT_XML(object, "\n<Frequency Min=\"1.00\" Max=\"3.00\">2.00</Frequency>");
    object.SetMin(NOT_SET);
    EXPECT_XML(object, "\n<Frequency Max=\"3.00\">2.00</Frequency>");
}

TEST(ValueMinMax, WritesTwoDecimalsRoundedHalfAwayFromZero)
{
    EXPECT_XML(Named("N", 0.125), "\n<N>0.13</N>");
    EXPECT_XML(Named("N", -0.125), "\n<N>-0.13</N>");
    EXPECT_XML(Named("N", 121500000.0), "\n<N>121500000.00</N>");
    EXPECT_XML(Named("N", 1e22), "\n<N>10000000000000000000000.00</N>");
    EXPECT_XML(Named("N", -0.0), "\n<N>0.00</N>");
    EXPECT_XML(Named("N", -0.001), "\n<N>-0.00</N>");
    EXPECT_XML(Named("N", NOT_A_NUMBER), "\n<N>nan</N>");
    EXPECT_XML(Named("N", INFINITE), "\n<N>inf</N>");
    EXPECT_XML(Named("N", -INFINITE), "\n<N>-inf</N>");

    ValueMinMax bounds = Named("N", 0.0);
    bounds.SetMin(-0.125);
    bounds.SetMax(NOT_A_NUMBER);
    EXPECT_XML(bounds, "\n<N Min=\"-0.13\" Max=\"nan\">0.00</N>");
}

TEST(ValueMinMax, WritesNothingWithoutNameOrValue)
{
    EXPECT_TEXT(Support::UnindentedXmlOf(ValueMinMax(1.0)), "");
    ValueMinMax boundsOnly = Named("N");
    boundsOnly.SetMin(1.0);
    boundsOnly.SetMax(2.0);
    EXPECT_TEXT(Support::UnindentedXmlOf(boundsOnly), "");
    EXPECT_XML(boundsOnly, "");
}

TEST(ValueMinMax, NamelessValueIsRefusedOnlyWhenValidating)
{
    const ValueMinMax object(1.0);
    EXPECT_RG_THROW(object.GetXmlString(), "RGException", "ValueMinMax: Please set object name!");
    object.SetValidate(false);
    EXPECT_XML(object, "");
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(ValueMinMax, ReadsValueAndBoundsAndConsumesItsElement)
{
    ValueMinMax object = Named("N");
    EXPECT_TEXT(ReadValues(object, Text("<X Max=\"3.5\" Min=\"1.25\">2.75</X>")), "X");
    EXPECT_TEXT(object.GetName(), "N");
    EXPECT_EQ(object.GetValue(), 2.75);
    EXPECT_EQ(object.GetMin(), 1.25);
    EXPECT_EQ(object.GetMax(), 3.5);
}

TEST(ValueMinMax, MissingAttributesUnsetTheirBounds)
{
    ValueMinMax object = Named("N", 2.0);
    object.SetMin(1.0);
    object.SetMax(3.0);
    ReadValues(object, Text("<N Max=\"4\">2</N>"));
    EXPECT_EQ(object.GetMin(), NOT_SET);
    EXPECT_EQ(object.GetMax(), 4.0);
    ReadValues(object, Text("<N Min=\"1\">2</N>"));
    EXPECT_EQ(object.GetMin(), 1.0);
    EXPECT_EQ(object.GetMax(), NOT_SET);
}

TEST(ValueMinMax, AttributesAreToldApartByCase)
{
    ValueMinMax object;
    ReadValues(object, Text("<N min=\"1\" MAX=\"2\" Minimum=\"3\">4</N>"));
    EXPECT_EQ(object.GetMin(), NOT_SET);
    EXPECT_EQ(object.GetMax(), NOT_SET);
    EXPECT_EQ(object.GetValue(), 4.0);
}

TEST(ValueMinMax, ElementWithoutTextSetsTheValueToZero)
{
    for (const char* xml : {"<N/>", "<N></N>", "<N> </N>"}) {
        ValueMinMax object;
        ReadValues(object, Text(xml));
        EXPECT_EQ(object.GetValue(), 0.0) << xml;
        EXPECT_TRUE(object.HasData()) << xml;
    }
}

TEST(ValueMinMax, EmptyAttributeIsZeroAndNotUnset)
{
    ValueMinMax object;
    ReadValues(object, Text("<N Min=\"\" Max=\"\">1</N>"));
    EXPECT_EQ(object.GetMin(), 0.0);
    EXPECT_EQ(object.GetMax(), 0.0);
}

TEST(ValueMinMax, ReadNumberForNotSetCountsAsUnset)
{
    ValueMinMax object;
    ReadValues(object, Text("<N Min=\"-111111.11\">-111111.11</N>"));
    EXPECT_FALSE(object.HasData());
    EXPECT_EQ(object.GetMin(), NOT_SET);
}

TEST(ValueMinMax, ValueInPiecesIsItsLastPiece)
{
    ValueMinMax object;
    ReadValues(object, Text("<N>12<!-- -->34</N>"));
    EXPECT_EQ(object.GetValue(), 34.0);
}

TEST(ValueMinMax, OwnElementIsNotReadByTheCommonFrame)
{
    ValueMinMax object = Named("N", 1.0);
    object.SetMin(0.5);
    EXPECT_FALSE(object.SetXmlString(Text("<N>5</N>"), true));
    EXPECT_EQ(object.GetValue(), 1.0);

    EXPECT_TRUE(object.SetXmlString(Text("<AnyType Min=\"3\">5</AnyType>"), true));
    EXPECT_FALSE(object.HasData()) << "reset, and no child was read";
    EXPECT_EQ(object.GetMin(), NOT_SET);
    EXPECT_TEXT(object.GetName(), "N");
}

TEST(ValueMinMax, MergeFindsNoElementOfTheObjectName)
{
    ValueMinMax object = Named("N", 1.0);
    EXPECT_FALSE(object.MergeRGObject(Named("N", 2.0)));
    EXPECT_EQ(object.GetValue(), 1.0);
    EXPECT_TRUE(object.MergeRGObject(Named("AnyType", 2.0))) << "found, but the frame reads children only";
    EXPECT_EQ(object.GetValue(), 1.0);
}

TEST(ValueMinMax, MalformedElementIsReportedAndLeavesTheValue)
{
    const QString xml = Text("<N Min=\"3\" Max=\"4\">5");
    const QString error = Support::XmlErrorOf(xml);
    ASSERT_FALSE(error.isEmpty());
    for (const bool logging : {true, false}) {
        const auto logger = NewLogger();
        ValueMinMax object = Named("N", 1.0);
        object.SetMin(0.5);
        if (logging)
            object.SetLogger(logger);
        QXmlStreamReader reader(xml);
        ASSERT_TRUE(reader.readNextStartElement());
        EXPECT_RG_THROW(object.ReadValuesFromXml(reader), "RGException", error);
        EXPECT_LOG(logger,
                   (logging ? QStringList{Text("FATAL ERROR: RGException: ") + error} : QStringList()));
        EXPECT_EQ(object.GetValue(), 1.0);
        EXPECT_EQ(object.GetMin(), 3.0) << "the attributes were complete";
        EXPECT_EQ(object.GetMax(), 4.0);
    }
}

TEST(ValueMinMax, ReadingTracesNothingAndChecksNothing)
{
    const auto logger = NewLogger();
    ValueMinMax nameless;
    nameless.SetLogger(logger);
    EXPECT_NO_RG_THROW(ReadValues(nameless, Text("<N Min=\"9\" Max=\"1\">5</N>")));
    EXPECT_EQ(nameless.GetValue(), 5.0);
    EXPECT_TEXT(nameless.GetName(), "");
    EXPECT_LOG(logger, {});
}
