// A Double: its fields, what counts as set, and how it is written, read, compared and merged.

#include "support/doubles.h"
#include "support/expect.h"
#include "support/plainrows.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QXmlStreamWriter>

#include <cmath>
#include <memory>
#include <optional>
#include <utility>

namespace {

using REPORTGENERATOR::Double;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::VersionConverterProxy;
using Support::Data;
using Support::FieldsOf;
using Support::Filled;
using Support::INFINITE;
using Support::Named;
using Support::NewLogger;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;
using Support::Text;

constexpr const char* MISSING_VALUE = "NThe double has not been set! Please use SetValue first";
const std::nullopt_t NONE = std::nullopt;

/// Named "N".
Double Of(std::optional<double> value, std::optional<double> minimum = NONE,
          std::optional<double> maximum = NONE, std::optional<double> defaultValue = NONE,
          const char* unit = "")
{
    Double number;
    Support::Fill(number, {Text("N"), value, minimum, maximum, defaultValue, Text(unit)});
    return number;
}

/// The one of the tests that differs from the default in each field, but for what `change` does.
Double Changed(void (*change)(Double&))
{
    Double number = Filled();
    change(number);
    return number;
}

Double WithInvalid(double number)
{
    Double object = Named("N");
    object.SetDefaultInvalidValue(number);
    return object;
}

} // namespace

// --- Fields ------------------------------------------------------------------------------------------------

TEST(Double, NeedsItsValueAndWritesWhatElseIsSet)
{
    Support::ExpectObjects<Double>({
        {Double(), "AnyType: - - - - ", Data::None,
         "AnyTypeThe double has not been set! Please use SetValue first", nullptr},
        {Named("N"), "N: - - - - ", Data::None, MISSING_VALUE, nullptr},
        {Of(NONE, 0.0), "N: - 0 - - ", Data::Some, MISSING_VALUE, nullptr},
        {Of(NONE, NONE, 0.0), "N: - - 0 - ", Data::Some, MISSING_VALUE, nullptr},
        {Of(NONE, NONE, NONE, 0.0), "N: - - - 0 ", Data::Some, MISSING_VALUE, nullptr},
        {Of(NONE, NONE, NONE, NONE, "s"), "N: - - - - s", Data::Some, MISSING_VALUE, nullptr},
        {Of(NONE, 1.0, 9.0, 4.0, "dB"), "N: - 1 9 4 dB", Data::Some, MISSING_VALUE, nullptr},
        {Of(0.0), "N: 0 - - - ", Data::Whole, nullptr, "<N><DoubleValue>0.000000</DoubleValue></N>"},
        {Of(1.0, 0.0), "N: 1 0 - - ", Data::Whole, nullptr,
         "<N Minimum=\"0.000000\"><DoubleValue>1.000000</DoubleValue></N>"},
        {Of(1.0, NONE, 0.0), "N: 1 - 0 - ", Data::Whole, nullptr,
         "<N Maximum=\"0.000000\"><DoubleValue>1.000000</DoubleValue></N>"},
        {Of(1.0, NONE, NONE, 0.0), "N: 1 - - 0 ", Data::Whole, nullptr,
         "<N Default=\"0.000000\"><DoubleValue>1.000000</DoubleValue></N>"},
        {Of(1.0, NONE, NONE, NONE, "<\"&>"), "N: 1 - - - <\"&>", Data::Whole, nullptr,
         "<N Unit=\"&lt;&quot;&amp;&gt;\"><DoubleValue>1.000000</DoubleValue></N>"},
        {Of(1.0, NOT_SET, NOT_SET, NOT_SET), "N: 1 - - - ", Data::Whole, nullptr,
         "<N><DoubleValue>1.000000</DoubleValue></N>"},
        {Of(5.0, -1.25, 9.0, 4.0, "dB"), "N: 5 -1.25 9 4 dB", Data::Whole, nullptr,
         "<N Minimum=\"-1.250000\" Maximum=\"9.000000\" Default=\"4.000000\" Unit=\"dB\">"
         "<DoubleValue>5.000000</DoubleValue></N>"},
        {Of(NOT_A_NUMBER, 10.0, -INFINITE), "N: nan 10 -inf - ", Data::Whole, nullptr,
         "<N Minimum=\"10.000000\" Maximum=\"-inf\"><DoubleValue>nan</DoubleValue></N>"},
        // Nothing equals what is no number, so that everything is set.
        {WithInvalid(NOT_A_NUMBER), "N: nan nan nan nan ", Data::Whole, nullptr,
         "<N Minimum=\"nan\" Maximum=\"nan\" Default=\"nan\"><DoubleValue>nan</DoubleValue></N>"},
    });
}

TEST(Double, DefaultConstructedIsOfItsTypeAndValidatesWithoutLogger)
{
    const Double number;
    EXPECT_EQ(number.GetDefaultInvalidValue(), NOT_SET);
    EXPECT_EQ(number.GetValue(), NOT_SET);
    EXPECT_EQ(number.GetObjectType(), static_cast<ObjectTypes>(80));
    EXPECT_EQ(number.GetObjectId(), 80);
    EXPECT_TEXT(number.GetObjectName(), "AnyType");
    EXPECT_TEXT(number.GetVersion(), "");
    EXPECT_TRUE(number.GetValidate());
    EXPECT_EQ(number.GetLogger(), nullptr);
}

TEST(Double, NameIsTheObjectName)
{
    const auto logger = NewLogger();
    Double number = Named("DwellTime");
    EXPECT_TEXT(number.GetName(), "DwellTime");
    EXPECT_TEXT(number.GetObjectName(), "DwellTime");
    EXPECT_EQ(number.GetObjectType(), static_cast<ObjectTypes>(80));
    number.SetLogger(logger);
    number.InjectVersionConverter(nullptr);
    EXPECT_LOG(logger, {"INFO: DwellTime: Removing version converter."});
}

TEST(Double, OnlyTheObjectsOwnInvalidNumberIsNotValid)
{
    for (const double invalid : {NOT_SET, 2.5}) {
        const Double number = WithInvalid(invalid);
        const IRGObject& base = number;
        EXPECT_FALSE(number.IsValid(invalid));
        EXPECT_FALSE(base.IsValid(invalid));
        for (const double value : {std::nextafter(invalid, 0.0), std::nextafter(invalid, -INFINITE),
                                   std::nextafter(invalid, INFINITE), -111111.0, -invalid, 0.0, INFINITE,
                                   -INFINITE, NOT_A_NUMBER}) {
            EXPECT_TRUE(number.IsValid(value)) << value;
            EXPECT_TRUE(base.IsValid(value)) << value;
        }
        EXPECT_EQ(number.IsValid(NOT_SET), invalid != NOT_SET);
        EXPECT_TEXT(number.GetFormattedString(invalid), "");

        // The other types keep their own, and what the base stores for "not set" doesn't follow.
        EXPECT_FALSE(number.IsValid(-111111));
        EXPECT_FALSE(number.IsValid(-1111111.0f));
        EXPECT_TRUE(number.IsValid(2.5f));
        EXPECT_FALSE(number.IsValid(QString()));
        double value = 0;
        number.SetInvalid(value);
        EXPECT_EQ(value, NOT_SET);
    }
    for (const double zero : {0.0, -0.0})
        EXPECT_FALSE(WithInvalid(0.0).IsValid(zero));
    EXPECT_TRUE(WithInvalid(NOT_A_NUMBER).IsValid(NOT_A_NUMBER));
}

TEST(Double, ChangingTheInvalidNumberResetsTheObjectAlsoToTheSame)
{
    for (const double invalid : {0.0, NOT_SET}) {
        Double number = Of(5.0, 1.0, 9.0, 4.0, "dB");
        number.SetDefaultInvalidValue(invalid);
        EXPECT_EQ(number.GetDefaultInvalidValue(), invalid);
        EXPECT_EQ(number.GetValue(), invalid);
        EXPECT_TEXT(FieldsOf(number), "N: - - - - ");
        EXPECT_FALSE(number.AnyData());
    }
    Double number = WithInvalid(0.0);
    number.SetValue(0.0);
    EXPECT_RG_THROW(number.Check(), "RGException", MISSING_VALUE);
    number.SetValue(NOT_SET);
    EXPECT_NO_RG_THROW(number.Check());
}

TEST(Double, ResetKeepsNameAndInvalidNumber)
{
    Double number = Filled();
    number.SetValidate(false);
    number.Reset();
    EXPECT_TEXT(FieldsOf(number), "N: - - - - ");
    EXPECT_FALSE(number.AnyData());
    EXPECT_EQ(number.GetValue(), -1.0);
    EXPECT_EQ(number.GetDefaultInvalidValue(), -1.0);
    EXPECT_FALSE(number.GetValidate());
}

// --- Texts -------------------------------------------------------------------------------------------------

TEST(Double, FormattedStringHasSixDecimals)
{
    struct Row
    {
        double value;
        const char* text;
    };
    const Row rows[] = {
        {-0.0, "0.000000"},
        {-1.5, "-1.500000"},
        {0.0000004, "0.000000"},
        {0.0000006, "0.000001"},
        {-0.0000004, "-0.000000"},
        // 2 to the power of -7 is a tie between the sixth decimals 2 and 3.
        {0.0078125, "0.007813"},
        {-0.0078125, "-0.007813"},
        {0.9999996, "1.000000"},
        {1e22, "10000000000000000000000.000000"},
        {2251799813685248.5, "2251799813685248.500000"},
        {NOT_A_NUMBER, "nan"},
        {INFINITE, "inf"},
        {-INFINITE, "-inf"},
        {-111111.0, "-111111.000000"},
        {NOT_SET, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_TEXT(Double().GetFormattedString(row.value), row.text);
        EXPECT_TEXT(Of(row.value, 1.0, 2.0).GetValueString(), row.text);
        EXPECT_TEXT(Of(1.0, row.value, 2.0).GetMinimumString(), row.text);
        EXPECT_TEXT(Of(1.0, 2.0, row.value).GetMaximumString(), row.text);
    }
    EXPECT_TEXT(WithInvalid(3.0).GetFormattedString(NOT_SET), "-111111.110000");
}

TEST(Double, FormatCannotBeChanged)
{
    Double number;
    for (const auto& [format, precision] : {std::pair('e', 3), std::pair('\0', -1)}) {
        number.SetFormat(format, precision);
        EXPECT_EQ(number.GetFormat(), 'f');
        EXPECT_EQ(number.GetPrecision(), 6);
        EXPECT_TEXT(number.GetFormattedString(0.5), "0.500000");
    }
}

TEST(Double, MissingValueIsThrownWithoutALineOfItsOwn)
{
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        const Double number = Of(NONE, 1.0);
        number.SetValidate(validate);
        number.SetLogger(logger);
        EXPECT_RG_THROW(number.Check(true), "RGException", MISSING_VALUE);
        EXPECT_RG_THROW(number.Check(false), "RGException", MISSING_VALUE);
        EXPECT_LOG(logger, {});
        EXPECT_FALSE(logger->HasErrors());
        EXPECT_RG_THROW(number.GetXmlString(), "RGException", MISSING_VALUE);
        EXPECT_LOG(logger, {"INFO: N: Generating xml string."});

        QString text;
        QXmlStreamWriter writer(&text);
        EXPECT_RG_THROW(number.GetXml(writer), "RGException", MISSING_VALUE);
        EXPECT_TEXT(text, "");
    }
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(Double, ReadsItsAttributesAndTheLastValueBeforeAnUnknownChild)
{
    Support::ExpectReadings(
        Filled(),
        {
            {"<DoubleValue> 5 </DoubleValue>", "N: 5 -1.5 1000 4 s", nullptr, nullptr,
             "Unit='s' Default='4' Other='x' Maximum='1e3' Version='2.0' Minimum=' -1.5 '"},
            {"<DoubleValue>4</DoubleValue>", "N: 4 - - - ", nullptr, nullptr,
             "minimum='1' MAXIMUM='2' default='3' unit='s'"},
            {"", "N: - 1 - - dB", nullptr, MISSING_VALUE, "Minimum='1' Unit='dB'"},
            // The default is the value too.
            {"", "N: 5 - - 5 ", nullptr, nullptr, "Default='5'"},
            {"<DoubleValue>6</DoubleValue>", "N: 6 - - 5 ", nullptr, nullptr, "Default='5'"},
            {"<DoubleValue>nan</DoubleValue>", "N: nan -inf inf - ", nullptr, nullptr,
             "Minimum='-inf' Maximum='inf'"},
            {"<DoubleValue>6</DoubleValue> <!-- --> <DoubleValue>7</DoubleValue>", "N: 7 - - - "},
            {"<DoubleValue>12<!-- -->34</DoubleValue>", "N: 34 - - - "},
            {"<doublevalue>6</doublevalue>", "N: - - - - ", nullptr, MISSING_VALUE},
            {"<DoubleValue>6</DoubleValue><Extra>1</Extra><DoubleValue>7</DoubleValue>", "N: 6 - - - "},
            {"<Extra/><DoubleValue>7</DoubleValue>", "N: - 1 - - ", nullptr, MISSING_VALUE, "Minimum='1'"},
            {"<Extra><DoubleValue>6</DoubleValue></Extra><DoubleValue>7</DoubleValue>", "N: 6 - - - "},
        });
    Support::ExpectMalformed(Filled(),
                             {{"<N Minimum=\"1\"><DoubleValue>6</DoubleValue>", "N: 6 1 - - ", true}});
}

TEST(Double, AbsentAttributesLeaveTheirFieldsAlone)
{
    Double number = Filled();
    const auto read = [&number](const char* xml) {
        Support::ReadElement(number, Text(xml));
        return FieldsOf(number);
    };
    EXPECT_TEXT(read("<N/>"), "N: 5 1 9 4 dB");
    EXPECT_TEXT(read("<N Maximum=\"8\"/>"), "N: 5 1 8 4 dB");
    EXPECT_TEXT(read("<N Unit=\"\"/>"), "N: 5 1 8 4 ");
    EXPECT_TEXT(read("<N Version=\"3.5\"><DoubleValue>6</DoubleValue></N>"), "N: 6 1 8 4 ");
    EXPECT_TEXT(number.GetVersion(), "");
    EXPECT_XML(number, "\n<N Minimum=\"1.000000\" Maximum=\"8.000000\" Default=\"4.000000\">\n"
                       "    <DoubleValue>6.000000</DoubleValue>\n</N>");
}

// --- Copying, comparing and merging ------------------------------------------------------------------------

TEST(Double, CopyAndAssignmentTakeTheBaseAndEveryField)
{
    const auto logger = NewLogger();
    const auto converter = std::make_shared<VersionConverterProxy>();
    Double original = Filled();
    original.SetValidate(false);
    original.InjectVersionConverter(converter);
    original.SetLogger(logger);

    const Double copy(original);
    Double assigned = Of(-8.0);
    EXPECT_EQ(&(assigned = original), &assigned);
    const Double& same = original;
    original = same;
    EXPECT_TEXT(FieldsOf(original), "N: 5 1 9 4 dB");
    EXPECT_EQ(converter.use_count(), 4);

    original.SetValue(6.0);
    original.SetUnit(Text("V"));
    for (const Double* number : {&copy, static_cast<const Double*>(&assigned)}) {
        EXPECT_TEXT(FieldsOf(*number), "N: 5 1 9 4 dB");
        EXPECT_EQ(number->GetDefaultInvalidValue(), -1.0);
        EXPECT_FALSE(number->GetValidate());
        EXPECT_EQ(number->GetLogger(), logger);
        EXPECT_EQ(number->GetObjectType(), static_cast<ObjectTypes>(80));
    }
}

TEST(Double, ComparesFourNumbersAndTheUnit)
{
    const auto readVersion = [](Double& number) { Support::ReadElement(number, Text("<N Version=\"7\"/>")); };
    Support::ExpectComparisons<Double>({
        {Filled(), Filled(), true},
        {Filled(), Changed([](Double& number) { number.SetMinimum(std::nextafter(1.0, 2.0)); }), false},
        {Filled(), Changed([](Double& number) { number.SetMaximum(8.0); }), false},
        {Filled(), Changed([](Double& number) { number.SetDefault(3.0); }), false},
        {Filled(), Changed([](Double& number) { number.SetValue(6.0); }), false},
        {Filled(), Changed([](Double& number) { number.SetValue(-1.0); }), false},
        {Filled(), Changed([](Double& number) { number.SetValue(NOT_A_NUMBER); }), false},
        {Filled(), Changed([](Double& number) { number.SetUnit(Text("db")); }), false},
        {Filled(), Changed([](Double& number) { number.SetUnit(QString()); }), false},
        {Filled(), Changed([](Double& number) { number.SetName(Text("M")); }), true},
        {Filled(), Changed([](Double& number) { number.SetLogger(NewLogger()); }), true},
        {Filled(), Changed(readVersion), true},
        // The invalid number itself isn't compared.
        {Filled(), Of(5.0, 1.0, 9.0, 4.0, "dB"), true},
        {Double(), WithInvalid(-1.0), false},
        {Of(0.0), Of(-0.0), true},
    });
    Support::ExpectUnequalToThemselves<Double>({Of(NOT_A_NUMBER)});
}

TEST(Double, MergeTakesWhatTheOtherHasAndItsDefaultOnlyUntilItsValue)
{
    Support::ExpectMerges<Double>({
        {Of(1.0, 0.5, NONE, NONE, "s"), Of(8.0, NONE, NONE, 7.0), "N: 8 0.5 - 7 s"},
    });
    Double number = Of(1.0);
    Double other = Named("N");
    other.SetValidate(false);
    EXPECT_RG_THROW(number.MergeRGObject(other), "RGException", MISSING_VALUE);
    EXPECT_EQ(number.GetValue(), 1.0);
}
