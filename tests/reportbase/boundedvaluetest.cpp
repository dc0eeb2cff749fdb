// What Frequency and IFBandwidth have in common. Each test runs for both.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/numberfields.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>

#include <limits>
#include <string>
#include <string_view>

namespace {

using Support::ByteArray;
using Support::Bytes;
using Support::Int32;
using Support::Made;
using Support::Min;
using Support::Named;
using Support::NameOf;
using Support::NOT_SET;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::StateOfClass;
using Support::Value;
using Support::WithLeftovers;
using Support::Written;
namespace Tag = Support::Tag;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr int NO_FLAG = 0;
constexpr int VALUE_FLAG = 1;
constexpr int MIN_FLAG = 2;
constexpr int MAX_FLAG = 4;

template <class T>
T WithValue(double value)
{
    T object;
    object.SetValue(value);
    return object;
}

template <class T>
T Complete(double value, double min, double max)
{
    T object;
    object.SetValue(value);
    object.SetMin(min);
    object.SetMax(max);
    return object;
}

template <class T>
class BoundedValue : public ::testing::Test
{
};

TYPED_TEST_SUITE(BoundedValue, Support::BoundedClasses, Support::RecordClassNames);

} // namespace

// --- Fields -----------------------------------------------------------------------------------------------

TYPED_TEST(BoundedValue, EveryNumberIsValid)
{
    const TypeParam object;
    for (const Support::NumberField<TypeParam>& field : Support::NumberFieldsOf<TypeParam>()) {
        for (const Support::NamedNumber& row : Support::OddNumbers())
            EXPECT_TRUE((object.*field.isValid)(row.value)) << field.name << " " << row.name;
    }
    EXPECT_FALSE(object.IsInitialized());
}

TYPED_TEST(BoundedValue, AnyDataAsksForAnyFieldAndHasDataForTheValue)
{
    struct Row
    {
        int flags;
        bool anyData;
        bool hasData;
    };
    const Row rows[] = {
        {NO_FLAG, false, false}, {VALUE_FLAG, true, true},           {MIN_FLAG, true, false},
        {MAX_FLAG, true, false}, {MIN_FLAG | MAX_FLAG, true, false}, {VALUE_FLAG | MAX_FLAG, true, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.flags);
        const TypeParam object = WithLeftovers<TypeParam>(row.flags, {1.0, 2.0, 3.0});
        EXPECT_EQ(object.AnyData(), row.anyData);
        EXPECT_EQ(object.HasData(), row.hasData);
    }
}

// --- XML writing ------------------------------------------------------------------------------------------

TYPED_TEST(BoundedValue, XmlNumbersHaveExactlyTwoDecimals)
{
    struct Row
    {
        double number;
        const char* text;
    };
    const Row rows[] = {
        {0.0, "0.00"},      {-0.0, "0.00"},         {1.0, "1.00"},
        {99.999, "100.00"}, {1e9, "1000000000.00"}, {0.125, "0.13"},
        {-0.125, "-0.13"},  {0.375, "0.38"},        {1.005, "1.00"},
        {0.005, "0.01"},    {-0.001, "-0.00"},      {1e22, "10000000000000000000000.00"},
        {5e-324, "0.00"},   {-5e-324, "-0.00"},     {NOT_A_NUMBER, "nan"},
        {INF, "inf"},       {-INF, "-inf"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const QString text = Support::Text(row.text);
        EXPECT_XML(Complete<TypeParam>(row.number, row.number, row.number),
                   Named<TypeParam>("\n<@ Min=\"#\" Max=\"#\">#</@>").replace(QLatin1Char('#'), text));
    }
}

// --- XML reading ------------------------------------------------------------------------------------------

TYPED_TEST(BoundedValue, BoundWithoutItsSecondQuoteIsMalformed)
{
    for (const char* xml :
         {"<@ Min=\"4>5</@>", "<@ Min=\"4.50>5</@>", "<@ Max=\"4.50 >5</@>", "<@ Min=\"1\" Max=\"4>5</@>",
          "<@ Min=\"4'>5</@>", "<@ Min=\"4 Max=\"6\">5</@>", "<@ Min=\"\">5</@", "<@ Min=\">5</@>"}) {
        SCOPED_TRACE(xml);
        const QString text = Named<TypeParam>(xml);
        for (const bool checkRoot : {true, false}) {
            TypeParam object = WithValue<TypeParam>(7.0);
            EXPECT_RG_THROW(object.SetXmlString(text, checkRoot), "RGException", Support::XmlErrorOf(text));
        }
    }
}

TYPED_TEST(BoundedValue, TheReaderStaysOnTheEndTagSoThatAHolderCanGoOn)
{
    QXmlStreamReader reader(Named<TypeParam>("<r><@>1<x/></@><@>2</@><After/></r>"));
    QVector<double> values;
    QString after;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == NameOf<TypeParam>()) {
            TypeParam object;
            object.ReadValuesFromXml(reader);
            EXPECT_TRUE(reader.isEndElement());
            values << object.GetValue();
        } else {
            after = reader.name().toString();
        }
    }
    EXPECT_EQ(values, (QVector<double>{1.0, 2.0}));
    EXPECT_TEXT(after, "After");
}

TYPED_TEST(BoundedValue, WhatStandsBehindTheReadPartIsNotLookedAt)
{
    for (const char* xml : {"<@>5</@></@>", "<@>5</@><<<", "<a><@>5</@>", "<a><@>5</@></b>", "<@>5<x/>"}) {
        SCOPED_TRACE(xml);
        TypeParam object;
        EXPECT_TRUE(object.SetXmlString(Named<TypeParam>(xml), false));
        EXPECT_TRUE(object == WithValue<TypeParam>(5.0));
    }
}

// --- Tagged form ------------------------------------------------------------------------------------------

TYPED_TEST(BoundedValue, BodyFollowsTheByteOrderOfTheStream)
{
    const QByteArray bytes = Written([](QDataStream& stream) {
        stream.setByteOrder(QDataStream::LittleEndian);
        WithValue<TypeParam>(1.0).GetBinary(stream, 1, true);
    });
    EXPECT_BYTES(bytes, Support::Raw(std::string("\x01\0\0\0\x10\0\0\0", 8)) +
                            Support::Raw(std::string("\xb3\x57\xff\x8a\x08\0\0\0\x04\0\0\0", 12)) +
                            Support::Raw("1.00"));

    TypeParam object;
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.device()->seek(8);
    object.SetBinary(stream, 16);
    EXPECT_TRUE(object == WithValue<TypeParam>(1.0));
}

TYPED_TEST(BoundedValue, ElementsAreReadHoweverTheirTextsAndLengthsAre)
{
    struct Row
    {
        const char* name;
        Bytes elements;
        StateOfClass<TypeParam> state;
    };
    const Row rows[] = {
        {"null text", Element(Tag::FREQUENCY_VALUE, Support::NullByteArray()), {0.0}},
        {"NUL within the text",
         Value(std::string_view("12\0"
                                "34",
                                5)),
         {12.0}},
        {"byte order mark",
         Value("\xef\xbb\xbf"
               "2.5"),
         {2.5}},
        {"text that ends early",
         Min("2") + Element(Tag::FREQUENCY_VALUE, Int32(100) + Support::Raw("1234")),
         {0.0, 2.0}},
        // Declared lengths only count against the budget.
        {"lengths that make up for each other",
         ElementOfLength(Tag::FREQUENCY_MIN, 3, ByteArray("2")) +
             ElementOfLength(Tag::FREQUENCY_VALUE, 7, ByteArray("1")),
         {1.0, 2.0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TypeParam object;
        EXPECT_EQ(ReadElements(object, row.elements), 0);
        EXPECT_STATE(object, row.state);
    }
}

TYPED_TEST(BoundedValue, ANegativeLengthOfAnUnknownElementIsAnErrorAlsoWhenTheLengthsAddUp)
{
    // 8 bytes for the head of the unknown element, less 16, and 16 for the value.
    TypeParam object;
    EXPECT_RG_THROW(
        ReadElements(object, 8, ElementOfLength(Tag::UNKNOWN, -16, Bytes()) + Value("1.00")),
        "BinaryParsingException",
        Named<TypeParam>(
            "@::SetBinary(...): Length error occurred during processing of binary representation"));
    EXPECT_FALSE(object.AnyData());
}

TYPED_TEST(BoundedValue, DamagedInputIsReportedByTheExceptionAloneAndNothingIsPrinted)
{
    static int printed = 0;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++printed; });
    for (const long long length : {-1LL, -8LL, -16LL, -2147483648LL, 2147483647LL}) {
        TypeParam object;
        EXPECT_RG_THROW(
            ReadElements(object, ElementOfLength(Tag::UNKNOWN, length, Bytes()) + Value("1.00")),
            "BinaryParsingException",
            Named<TypeParam>("@::SetBinary(...): Length error occurred during processing of binary "
                             "representation"));
    }
    qInstallMessageHandler(previous);
    EXPECT_EQ(printed, 0);
}

// --- Raw form ---------------------------------------------------------------------------------------------

TYPED_TEST(BoundedValue, RawReadingDoesNotResetWhatItDoesNotRead)
{
    TypeParam object = Complete<TypeParam>(1.0, 2.0, 3.0);
    EXPECT_EQ(ReadRawForm(object, Support::Byte(VALUE_FLAG) + Support::Double(9.0)), 0);
    EXPECT_STATE(object, (StateOfClass<TypeParam>{9.0}));
    EXPECT_EQ(object.GetMin(), 2.0);
    EXPECT_EQ(object.GetMax(), 3.0);
}

// --- Merging ----------------------------------------------------------------------------------------------

TYPED_TEST(BoundedValue, MergingReplacesWhatTheOtherHasAndKeepsTheRest)
{
    const StateOfClass<TypeParam> state = {10.125, NOT_SET, 30.0};
    auto object = Made<TypeParam>({1.0, 2.0});
    const auto other = Made<TypeParam>(state);
    EXPECT_TRUE(object.MergeRGObject(other));
    EXPECT_STATE(object, (StateOfClass<TypeParam>{10.13, 2.0, 30.0}));
    EXPECT_STATE(other, state);
}

TYPED_TEST(BoundedValue, MergingAnObjectWithoutValueThatDoesNotValidateTakesZero)
{
    auto object = Made<TypeParam>({1.0});
    auto other = Made<TypeParam>({NOT_SET, 2.0});
    other.SetValidate(false);
    EXPECT_TRUE(object.MergeRGObject(other));
    EXPECT_STATE(object, (StateOfClass<TypeParam>{0.0, 2.0}));
}
