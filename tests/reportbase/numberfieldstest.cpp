// Fields that hold a number: how they are set and compared, and which texts give which number.

#include "support/numberfields.h"
#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::BitsOf;
using Support::Bytes;
using Support::NumberField;
using Support::NumberFieldsOf;
using Support::Text;
using Support::WithLeftovers;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

template <class T>
constexpr const char* NAME = nullptr;
template <>
constexpr const char* NAME<Frequency> = "Frequency";
template <>
constexpr const char* NAME<IFBandwidth> = "IFBandwidth";
template <>
constexpr const char* NAME<Coordinate> = "Coordinate";
template <>
constexpr const char* NAME<Double> = "Double";
template <>
constexpr const char* NAME<Ellipse> = "Ellipse";
template <>
constexpr const char* NAME<FrequencyRangeOld> = "FrequencyRangeOld";
template <>
constexpr const char* NAME<ScanParameter> = "ScanParameter";
template <>
constexpr const char* NAME<ChannelSpacing> = "ChannelSpacing";
template <>
constexpr const char* NAME<ValueMinMax> = "ValueMinMax";

struct ClassNames
{
    template <class T>
    static std::string GetName(int)
    {
        return NAME<T>;
    }
};

/// As many of 1, 2, 3 as the class has fields.
template <class T>
std::vector<double> Numbers()
{
    std::vector<double> numbers;
    for (std::size_t i = 0; i < NumberFieldsOf<T>().size(); ++i)
        numbers.push_back(static_cast<double>(i + 1));
    return numbers;
}

template <class T>
int AllFlags()
{
    return (1 << NumberFieldsOf<T>().size()) - 1;
}

template <class T>
T WithAllSet(const std::vector<double>& numbers)
{
    return WithLeftovers<T>(AllFlags<T>(), numbers);
}

// --- Fields that take every number ------------------------------------------------------------------------

template <class T>
class FreeNumberFields : public ::testing::Test
{
};

using FreeClasses =
    ::testing::Types<Frequency, IFBandwidth, Double, Ellipse, FrequencyRangeOld, ScanParameter, ValueMinMax>;
TYPED_TEST_SUITE(FreeNumberFields, FreeClasses, ClassNames);

} // namespace

TYPED_TEST(FreeNumberFields, SettersTakeEveryNumberAsItIsAndInTheirOwnFieldAlone)
{
    const std::vector<NumberField<TypeParam>> fields = NumberFieldsOf<TypeParam>();
    const std::vector<double> numbers = Numbers<TypeParam>();
    for (const bool validate : {true, false}) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            for (const Support::NamedNumber& row : Support::OddNumbers()) {
                SCOPED_TRACE(fields[i].name + (" " + row.name) + (validate ? ", validating" : ""));
                TypeParam object;
                object.SetValidate(validate);
                for (std::size_t other = 0; other < fields.size(); ++other)
                    (object.*fields[other].set)(numbers[other]);
                const auto logger = Support::NewLogger();
                object.SetLogger(logger);
                EXPECT_NO_RG_THROW((object.*fields[i].set)(row.value));
                for (std::size_t other = 0; other < fields.size(); ++other) {
                    const double expected = other == i ? row.value : numbers[other];
                    EXPECT_EQ(BitsOf((object.*fields[other].get)()), BitsOf(expected)) << fields[other].name;
                }
                if constexpr (std::is_same_v<TypeParam, ScanParameter>) {
                    EXPECT_FALSE(object.GetFrequencyRange().AnyData());
                }
                EXPECT_LOG(logger, {});
            }
        }
    }
}

// --- Fields of a record -----------------------------------------------------------------------------------

namespace {

template <class T>
class RecordNumberFields : public ::testing::Test
{
};

using RecordsOfNumbers = ::testing::Types<Frequency, IFBandwidth, Coordinate>;
TYPED_TEST_SUITE(RecordNumberFields, RecordsOfNumbers, ClassNames);

} // namespace

TYPED_TEST(RecordNumberFields, GettersOfANewObjectGiveZeroAndMakeTheRecordButSetNothing)
{
    for (const NumberField<TypeParam>& field : NumberFieldsOf<TypeParam>()) {
        SCOPED_TRACE(field.name);
        const TypeParam object;
        EXPECT_EQ(BitsOf((object.*field.get)()), BitsOf(0.0));
        EXPECT_TRUE(object.IsInitialized());
        EXPECT_STATE(object, Support::StateOfClass<TypeParam>());
        EXPECT_FALSE(object.AnyData());
    }
}

TYPED_TEST(RecordNumberFields, DefaultsAreZeroAndDoNotMakeTheRecord)
{
    for (const NumberField<TypeParam>& field : NumberFieldsOf<TypeParam>()) {
        SCOPED_TRACE(field.name);
        const TypeParam object;
        EXPECT_EQ(BitsOf((object.*field.getDefault)()), BitsOf(0.0));
        EXPECT_FALSE(object.IsInitialized());
    }
}

TYPED_TEST(RecordNumberFields, SettingAFieldSetsItAlone)
{
    const std::vector<NumberField<TypeParam>> fields = NumberFieldsOf<TypeParam>();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        TypeParam object;
        (object.*fields[i].set)(1.5);
        for (std::size_t other = 0; other < fields.size(); ++other)
            EXPECT_EQ((object.*fields[other].isSet)(), other == i)
                << fields[i].name << " " << fields[other].name;
        EXPECT_EQ((object.*fields[i].get)(), 1.5) << fields[i].name;
    }
}

TYPED_TEST(RecordNumberFields, ResettingAFieldUnsetsItAloneAndStoresZero)
{
    const std::vector<NumberField<TypeParam>> fields = NumberFieldsOf<TypeParam>();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        SCOPED_TRACE(fields[i].name);
        TypeParam object = WithAllSet<TypeParam>(Numbers<TypeParam>());
        (object.*fields[i].reset)();
        for (std::size_t other = 0; other < fields.size(); ++other) {
            EXPECT_EQ((object.*fields[other].isSet)(), other != i) << fields[other].name;
            EXPECT_EQ(BitsOf((object.*fields[other].get)()),
                      BitsOf(other == i ? 0.0 : Numbers<TypeParam>()[other]));
        }
        EXPECT_TRUE(object.AnyData());
        EXPECT_TRUE(object.IsInitialized());
    }
}

TYPED_TEST(RecordNumberFields, ResettingAnUnsetFieldClearsItsLeftoverAlone)
{
    const std::vector<NumberField<TypeParam>> fields = NumberFieldsOf<TypeParam>();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        SCOPED_TRACE(fields[i].name);
        TypeParam object = WithLeftovers<TypeParam>(0, Numbers<TypeParam>());
        (object.*fields[i].reset)();
        for (std::size_t other = 0; other < fields.size(); ++other)
            EXPECT_EQ((object.*fields[other].get)(), other == i ? 0.0 : Numbers<TypeParam>()[other]);
    }
}

TYPED_TEST(RecordNumberFields, FieldsMatchWhenUnsetInBothOrSetInBothWithEqualNumbers)
{
    for (int left = 0; left <= AllFlags<TypeParam>(); ++left) {
        for (int right = 0; right <= AllFlags<TypeParam>(); ++right) {
            SCOPED_TRACE(std::to_string(left) + " and " + std::to_string(right));
            const TypeParam one = WithLeftovers<TypeParam>(left, Numbers<TypeParam>());
            const TypeParam other = WithLeftovers<TypeParam>(right, Numbers<TypeParam>());
            EXPECT_EQ(one == other, left == right);
            EXPECT_EQ(one != other, left != right);
        }
    }
}

TYPED_TEST(RecordNumberFields, EachNumberTakesPartInTheComparison)
{
    const std::vector<double> numbers = Numbers<TypeParam>();
    const TypeParam object = WithAllSet<TypeParam>(numbers);
    EXPECT_TRUE(object == WithAllSet<TypeParam>(numbers));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        SCOPED_TRACE(NumberFieldsOf<TypeParam>()[i].name);
        for (const double other : {numbers[i] + 0.5, std::nextafter(numbers[i], INF)}) {
            std::vector<double> changed = numbers;
            changed[i] = other;
            EXPECT_FALSE(object == WithAllSet<TypeParam>(changed));
            EXPECT_TRUE(object != WithAllSet<TypeParam>(changed));
        }
    }
    EXPECT_FALSE(object == WithAllSet<TypeParam>({numbers.rbegin(), numbers.rend()}));
}

TYPED_TEST(RecordNumberFields, LeftoversOfUnsetFieldsDoNotCount)
{
    for (int flags = 0; flags <= AllFlags<TypeParam>(); ++flags) {
        SCOPED_TRACE(flags);
        const std::vector<double> numbers = Numbers<TypeParam>();
        std::vector<double> others = numbers;
        for (std::size_t i = 0; i < others.size(); ++i)
            others[i] *= (flags >> i & 1) != 0 ? 1.0 : 10.0;
        EXPECT_TRUE(WithLeftovers<TypeParam>(flags, numbers) == WithLeftovers<TypeParam>(flags, others));
    }
    EXPECT_TRUE(WithLeftovers<TypeParam>(0, Numbers<TypeParam>()) == TypeParam());
    EXPECT_TRUE(TypeParam() == WithLeftovers<TypeParam>(0, Numbers<TypeParam>()));
}

TYPED_TEST(RecordNumberFields, AnObjectWithoutRecordDiffersFromOneWithAField)
{
    const std::vector<double> zeros(Numbers<TypeParam>().size(), 0.0);
    for (std::size_t i = 0; i < zeros.size(); ++i) {
        EXPECT_FALSE(TypeParam() == WithLeftovers<TypeParam>(1 << i, zeros)) << i;
        EXPECT_FALSE(WithLeftovers<TypeParam>(1 << i, zeros) == TypeParam()) << i;
    }
}

TYPED_TEST(RecordNumberFields, NumbersCompareAsNumbersSoThatZerosAreEqualAndNaNEqualsNothing)
{
    const std::size_t count = Numbers<TypeParam>().size();
    for (std::size_t i = 0; i < count; ++i) {
        SCOPED_TRACE(NumberFieldsOf<TypeParam>()[i].name);
        const auto with = [&](double number) {
            std::vector<double> numbers = Numbers<TypeParam>();
            numbers[i] = number;
            return WithAllSet<TypeParam>(numbers);
        };
        EXPECT_TRUE(with(0.0) == with(-0.0));
        EXPECT_TRUE(with(INF) == with(INF));
        EXPECT_TRUE(with(INF) != with(-INF));

        const TypeParam notANumber = with(NOT_A_NUMBER);
        EXPECT_FALSE(notANumber == with(NOT_A_NUMBER));
        EXPECT_FALSE(notANumber == notANumber);
        TypeParam sharing;
        sharing = notANumber;
        EXPECT_FALSE(sharing == notANumber);

        // Behind a flag that is not there nobody looks at it.
        std::vector<double> numbers = Numbers<TypeParam>();
        numbers[i] = NOT_A_NUMBER;
        const int others = AllFlags<TypeParam>() & ~(1 << i);
        EXPECT_TRUE(WithLeftovers<TypeParam>(others, numbers) == WithLeftovers<TypeParam>(others, numbers));
    }
}

// --- Texts ------------------------------------------------------------------------------------------------

namespace {

/// An element with a text, "#", in each place where the class reads a number.
template <class T>
constexpr const char* ELEMENT = "";
template <>
constexpr const char* ELEMENT<Frequency> = "<Frequency Min=\"#\" Max=\"#\">#</Frequency>";
template <>
constexpr const char* ELEMENT<IFBandwidth> = "<IFBandwidth Min=\"#\" Max=\"#\">#</IFBandwidth>";
template <>
constexpr const char* ELEMENT<Coordinate> =
    "<Coordinate><Longitude>#</Longitude><Latitude>#</Latitude></Coordinate>";
template <>
constexpr const char* ELEMENT<Double> =
    "<AnyType Minimum=\"#\" Maximum=\"#\" Default=\"#\"><DoubleValue>#</DoubleValue></AnyType>";
template <>
constexpr const char* ELEMENT<Ellipse> = "<Ellipse><MinRadius>#</MinRadius><MaxRadius>#</MaxRadius>"
                                         "<Rotation>#</Rotation></Ellipse>";
template <>
constexpr const char* ELEMENT<FrequencyRangeOld> =
    "<FrequencyRange><StartFrequency>#</StartFrequency><StopFrequency>#</StopFrequency></FrequencyRange>";
template <>
constexpr const char* ELEMENT<ScanParameter> =
    "<ScanParameter><HoldTime>#</HoldTime><DwellTime>#</DwellTime><FrequencyStep>#</FrequencyStep>"
    "</ScanParameter>";
template <>
constexpr const char* ELEMENT<ChannelSpacing> = "<ChannelSpacing><Value>#</Value></ChannelSpacing>";
template <>
constexpr const char* ELEMENT<ValueMinMax> = "<N Min=\"#\" Max=\"#\">#</N>";

/// The numbers that an object has read.
template <class T>
std::vector<double> ReadNumbers(const T& object)
{
    std::vector<double> numbers;
    for (const NumberField<T>& field : NumberFieldsOf<T>())
        numbers.push_back((object.*field.get)());
    return numbers;
}

std::vector<double> ReadNumbers(const ChannelSpacing& spacing)
{
    return {spacing.GetValues().begin(), spacing.GetValues().end()};
}

template <class T>
void Load(T& object, const QString& xml)
{
    EXPECT_NO_RG_THROW(EXPECT_TRUE(object.SetXmlString(xml, true)));
}

/// Its element is read by the holder alone.
void Load(ValueMinMax& object, const QString& xml)
{
    QXmlStreamReader reader(xml);
    EXPECT_TRUE(reader.readNextStartElement());
    object.ReadValuesFromXml(reader);
    EXPECT_TRUE(reader.isEndElement());
}

template <class T>
class NumberTexts : public ::testing::Test
{
};

using ReadingClasses = ::testing::Types<Frequency, IFBandwidth, Coordinate, Double, Ellipse,
                                        FrequencyRangeOld, ScanParameter, ChannelSpacing, ValueMinMax>;
TYPED_TEST_SUITE(NumberTexts, ReadingClasses, ClassNames);

} // namespace

TYPED_TEST(NumberTexts, ThatAreNoNumbersReadAsZero)
{
    for (const Support::NumberText& row : Support::NumberTexts()) {
        SCOPED_TRACE(::testing::PrintToString(row.text));
        TypeParam object;
        object.SetValidate(false);
        Load(object, Text(ELEMENT<TypeParam>).replace(QLatin1Char('#'), row.text));
        const std::vector<double> numbers = ReadNumbers(object);
        EXPECT_FALSE(numbers.empty());
        for (const double number : numbers)
            EXPECT_EQ(number, row.number);
    }
}

TYPED_TEST(RecordNumberFields, TextsThatAreNoNumbersCountAsSetWithoutAMessage)
{
    const double greatest = std::is_same_v<TypeParam, Coordinate> ? 90.0 : INF;
    for (const Support::NumberText& row : Support::NumberTexts()) {
        if (std::abs(row.number) > greatest)
            continue;
        SCOPED_TRACE(::testing::PrintToString(row.text));
        TypeParam object;
        const auto logger = Support::NewLogger();
        object.SetLogger(logger);
        EXPECT_TRUE(object.SetXmlString(Text(ELEMENT<TypeParam>).replace(QLatin1Char('#'), row.text), true));
        for (const NumberField<TypeParam>& field : NumberFieldsOf<TypeParam>()) {
            EXPECT_TRUE((object.*field.isSet)()) << field.name;
            EXPECT_EQ((object.*field.get)(), row.number) << field.name;
        }
        EXPECT_LOG(logger, Support::NamedLines<TypeParam>({"INFO: @: Loading xml string."}));
    }
}

TYPED_TEST(RecordNumberFields, TextsInElementsReadAsThoseInXml)
{
    const double greatest = std::is_same_v<TypeParam, Coordinate> ? 90.0 : INF;
    for (const Support::NumberText& row : Support::NumberTexts()) {
        if (std::abs(row.number) > greatest)
            continue;
        SCOPED_TRACE(::testing::PrintToString(row.text));
        const std::string text = row.text.toStdString();
        const Bytes elements = std::is_same_v<TypeParam, Coordinate>
                                   ? Support::Longitude(text) + Support::Latitude(text)
                                   : Support::Value(text) + Support::Min(text) + Support::Max(text);
        TypeParam object;
        EXPECT_EQ(Support::ReadElements(object, elements), 0);
        for (const NumberField<TypeParam>& field : NumberFieldsOf<TypeParam>()) {
            EXPECT_TRUE((object.*field.isSet)()) << field.name;
            EXPECT_EQ((object.*field.get)(), row.number) << field.name;
        }
    }
}
