// The fields of a Double: setting, querying, comparing and merging them.

#include "support/doubles.h"
#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <cmath>
#include <limits>
#include <memory>

namespace {

using REPORTGENERATOR::Double;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::VersionConverterProxy;
using Support::Filled;
using Support::INFINITE;
using Support::MISSING_VALUE;
using Support::Named;
using Support::NewLogger;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;
using Support::Text;

void ExpectNothingSet(const Double& number, double invalid)
{
    EXPECT_EQ(number.GetMinimum(), invalid);
    EXPECT_EQ(number.GetMaximum(), invalid);
    EXPECT_EQ(number.GetDefault(), invalid);
    EXPECT_EQ(number.GetValue(), invalid);
    EXPECT_TEXT(number.GetUnit(), "");
    EXPECT_EQ(number.GetFormat(), 'f');
    EXPECT_EQ(number.GetPrecision(), 6);
    EXPECT_FALSE(number.AnyData());
    EXPECT_FALSE(number.HasData());
}

} // namespace

// --- Fields ------------------------------------------------------------------------------------------------

TEST(Double, DefaultConstructedHasNothingSet)
{
    const Double number;
    ExpectNothingSet(number, NOT_SET);
    EXPECT_EQ(number.GetDefaultInvalidValue(), NOT_SET);
    EXPECT_EQ(number.GetObjectType(), static_cast<ObjectTypes>(80));
    EXPECT_EQ(number.GetObjectId(), 80);
    EXPECT_TEXT(number.GetName(), "AnyType");
    EXPECT_TEXT(number.GetObjectName(), "AnyType");
    EXPECT_TEXT(number.GetVersion(), "");
    EXPECT_TRUE(number.GetValidate());
    EXPECT_EQ(number.GetLogger(), nullptr);
}

TEST(Double, SettersStoreAnyNumberWithoutRangeCheck)
{
    Double number;
    number.SetMinimum(10.0);
    number.SetMaximum(-10.0);
    for (const double value :
         {0.0, 100.0, -100.0, INFINITE, -INFINITE, std::numeric_limits<double>::max(), NOT_SET}) {
        number.SetValue(value);
        EXPECT_EQ(number.GetValue(), value);
        number.SetDefault(value);
        EXPECT_EQ(number.GetDefault(), value);
        number.SetMinimum(value);
        EXPECT_EQ(number.GetMinimum(), value);
        number.SetMaximum(value);
        EXPECT_EQ(number.GetMaximum(), value);
    }
    number.SetValue(NOT_A_NUMBER);
    EXPECT_TRUE(std::isnan(number.GetValue()));
}

TEST(Double, SettersChangeTheirOwnFieldOnly)
{
    Double number;
    number.SetMinimum(1.0);
    number.SetMaximum(2.0);
    number.SetDefault(3.0);
    number.SetValue(4.0);
    number.SetUnit(Text("µs"));
    EXPECT_EQ(number.GetMinimum(), 1.0);
    EXPECT_EQ(number.GetMaximum(), 2.0);
    EXPECT_EQ(number.GetDefault(), 3.0);
    EXPECT_EQ(number.GetValue(), 4.0);
    EXPECT_TEXT(number.GetUnit(), "µs");
    EXPECT_TEXT(number.GetName(), "AnyType");
    EXPECT_EQ(number.GetDefaultInvalidValue(), NOT_SET);
}

TEST(Double, NameIsTheObjectName)
{
    const auto logger = NewLogger();
    Double number;
    number.SetName(Text("DwellTime"));
    EXPECT_TEXT(number.GetName(), "DwellTime");
    EXPECT_TEXT(number.GetObjectName(), "DwellTime");
    EXPECT_EQ(number.GetObjectType(), static_cast<ObjectTypes>(80));
    number.SetLogger(logger);
    number.InjectVersionConverter(nullptr);
    EXPECT_LOG(logger, {"INFO: DwellTime: Removing version converter."});
}

TEST(Double, OnlyTheObjectsOwnInvalidNumberIsNotValid)
{
    Double number;
    EXPECT_FALSE(number.IsValid(NOT_SET));
    for (const double value : {std::nextafter(NOT_SET, 0.0), std::nextafter(NOT_SET, -INFINITE), -111111.0,
                               0.0, INFINITE, -INFINITE, NOT_A_NUMBER})
        EXPECT_TRUE(number.IsValid(value)) << value;

    number.SetDefaultInvalidValue(2.5);
    EXPECT_FALSE(number.IsValid(2.5));
    for (const double value :
         {std::nextafter(2.5, 0.0), std::nextafter(2.5, 3.0), NOT_SET, -2.5, NOT_A_NUMBER})
        EXPECT_TRUE(number.IsValid(value)) << value;
}

TEST(Double, ValidityIsDecidedByTheObjectThroughTheBaseToo)
{
    Double number;
    number.SetDefaultInvalidValue(2.5);
    const IRGObject& base = number;
    EXPECT_FALSE(base.IsValid(2.5));
    EXPECT_TRUE(base.IsValid(NOT_SET));

    // The other types keep their own.
    EXPECT_FALSE(number.IsValid(-111111));
    EXPECT_FALSE(number.IsValid(-1111111.0f));
    EXPECT_TRUE(number.IsValid(2.5f));
    EXPECT_FALSE(number.IsValid(QString()));

    // What the base stores for "not set" does not follow.
    double value = 0;
    number.SetInvalid(value);
    EXPECT_EQ(value, NOT_SET);
}

TEST(Double, BothZerosAreOneInvalidNumber)
{
    Double number;
    number.SetDefaultInvalidValue(0.0);
    EXPECT_FALSE(number.IsValid(0.0));
    EXPECT_FALSE(number.IsValid(-0.0));
}

TEST(Double, NotANumberAsInvalidNumberMakesEverythingValid)
{
    Double number = Named("N");
    number.SetDefaultInvalidValue(NOT_A_NUMBER);
    EXPECT_TRUE(number.IsValid(NOT_A_NUMBER));
    EXPECT_TRUE(number.HasData());
    EXPECT_TRUE(number.AnyData());
    EXPECT_XML(number, "\n<N Minimum=\"nan\" Maximum=\"nan\" Default=\"nan\">\n"
                       "    <DoubleValue>nan</DoubleValue>\n</N>");
}

TEST(Double, ChangingTheInvalidNumberResetsTheObject)
{
    Double number = Named("N");
    number.SetMinimum(1.0);
    number.SetMaximum(9.0);
    number.SetDefault(4.0);
    number.SetValue(5.0);
    number.SetUnit(Text("dB"));
    number.SetDefaultInvalidValue(0.0);
    EXPECT_EQ(number.GetDefaultInvalidValue(), 0.0);
    ExpectNothingSet(number, 0.0);
    EXPECT_TEXT(number.GetName(), "N");

    number.SetValue(0.0);
    EXPECT_FALSE(number.HasData());
    EXPECT_RG_THROW(number.Check(), "RGException", Text("N") + Text(MISSING_VALUE));
    number.SetValue(NOT_SET);
    EXPECT_TRUE(number.HasData());
    EXPECT_NO_RG_THROW(number.Check());
}

TEST(Double, SettingTheSameInvalidNumberResetsToo)
{
    Double number;
    number.SetValue(5.0);
    number.SetDefaultInvalidValue(NOT_SET);
    ExpectNothingSet(number, NOT_SET);
}

TEST(Double, ResetKeepsNameAndInvalidNumber)
{
    Double number = Filled();
    number.SetValidate(false);
    number.Reset();
    ExpectNothingSet(number, -1.0);
    EXPECT_TEXT(number.GetName(), "N");
    EXPECT_EQ(number.GetDefaultInvalidValue(), -1.0);
    EXPECT_FALSE(number.GetValidate());
}

TEST(Double, FormatCannotBeChanged)
{
    Double number;
    number.SetFormat('e', 3);
    EXPECT_EQ(number.GetFormat(), 'f');
    EXPECT_EQ(number.GetPrecision(), 6);
    EXPECT_TEXT(number.GetFormattedString(0.5), "0.500000");
    number.SetFormat('\0', -1);
    EXPECT_EQ(number.GetFormat(), 'f');
    EXPECT_EQ(number.GetPrecision(), 6);
}

// --- Queries -----------------------------------------------------------------------------------------------

TEST(Double, AnyDataCountsEveryNumberAndTheUnit)
{
    struct Row
    {
        const char* name;
        void (*fill)(Double&);
        bool hasData;
    };
    const Row rows[] = {
        {"minimum", [](Double& number) { number.SetMinimum(0.0); }, false},
        {"maximum", [](Double& number) { number.SetMaximum(0.0); }, false},
        {"default", [](Double& number) { number.SetDefault(0.0); }, false},
        {"value", [](Double& number) { number.SetValue(0.0); }, true},
        {"value that is no number", [](Double& number) { number.SetValue(NOT_A_NUMBER); }, true},
        {"unit", [](Double& number) { number.SetUnit(Text("s")); }, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Double number;
        row.fill(number);
        EXPECT_TRUE(number.AnyData());
        EXPECT_EQ(number.HasData(), row.hasData);
        number.Reset();
        EXPECT_FALSE(number.AnyData());
    }
    EXPECT_FALSE(Named("N").AnyData());
}

TEST(Double, FormattedStringHasSixDecimals)
{
    struct Row
    {
        double value;
        const char* text;
    };
    const Row rows[] = {
        {3.0, "3.000000"},
        {0.0, "0.000000"},
        {-0.0, "0.000000"},
        {-1.5, "-1.500000"},
        {123456.789, "123456.789000"},
        {0.0000004, "0.000000"},
        {0.0000006, "0.000001"},
        {-0.0000004, "-0.000000"},
        // 2 to the power of -7 is a tie between the sixth decimals 2 and 3.
        {0.0078125, "0.007813"},
        {-0.0078125, "-0.007813"},
        {0.9999996, "1.000000"},
        {1e9, "1000000000.000000"},
        {1e22, "10000000000000000000000.000000"},
        {2251799813685248.5, "2251799813685248.500000"},
        {NOT_A_NUMBER, "nan"},
        {INFINITE, "inf"},
        {-INFINITE, "-inf"},
        {-111111.0, "-111111.000000"},
        {NOT_SET, ""},
    };
    const Double formatter;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_TEXT(formatter.GetFormattedString(row.value), row.text);

        Double number;
        number.SetValue(row.value);
        EXPECT_TEXT(number.GetValueString(), row.text);
        EXPECT_TEXT(number.GetMinimumString(), "");
        EXPECT_TEXT(number.GetMaximumString(), "");
        number.Reset();
        number.SetMinimum(row.value);
        EXPECT_TEXT(number.GetMinimumString(), row.text);
        number.Reset();
        number.SetMaximum(row.value);
        EXPECT_TEXT(number.GetMaximumString(), row.text);
        EXPECT_TEXT(number.GetValueString(), "");
    }
}

TEST(Double, FormattedStringIsEmptyForTheObjectsOwnInvalidNumber)
{
    Double number;
    number.SetDefaultInvalidValue(3.0);
    EXPECT_TEXT(number.GetFormattedString(3.0), "");
    EXPECT_TEXT(number.GetFormattedString(NOT_SET), "-111111.110000");
}

TEST(Double, CheckAsksForTheValueOnlyAndThrowsWithoutTracing)
{
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        Double number = Named("N");
        number.SetMinimum(1.0);
        number.SetMaximum(9.0);
        number.SetDefault(4.0);
        number.SetUnit(Text("dB"));
        number.SetValidate(validate);
        number.SetLogger(logger);
        EXPECT_RG_THROW(number.Check(), "RGException",
                        "NThe double has not been set! Please use SetValue first");
        EXPECT_RG_THROW(number.Check(true), "RGException", Text("N") + Text(MISSING_VALUE));
        EXPECT_RG_THROW(number.Check(false), "RGException", Text("N") + Text(MISSING_VALUE));
        EXPECT_LOG(logger, {});
        EXPECT_FALSE(logger->HasErrors());

        number.SetValue(100.0);
        EXPECT_NO_RG_THROW(number.Check());
        EXPECT_NO_RG_THROW(number.Check(true));
        EXPECT_LOG(logger, {});
    }
}

// --- Copying and comparing ---------------------------------------------------------------------------------

TEST(Double, CopyAndAssignmentTakeTheBaseAndEveryField)
{
    const auto logger = NewLogger();
    const auto converter = std::make_shared<VersionConverterProxy>();
    Double original = Filled();
    original.SetValidate(false);
    original.InjectVersionConverter(converter);
    original.SetLogger(logger);

    const Double copy(original);
    Double assigned = Named("Other");
    assigned.SetValue(-8.0);
    EXPECT_EQ(&(assigned = original), &assigned);

    for (const Double* number : {&copy, static_cast<const Double*>(&assigned)}) {
        EXPECT_TEXT(number->GetName(), "N");
        EXPECT_EQ(number->GetMinimum(), 1.0);
        EXPECT_EQ(number->GetMaximum(), 9.0);
        EXPECT_EQ(number->GetDefault(), 4.0);
        EXPECT_EQ(number->GetValue(), 5.0);
        EXPECT_TEXT(number->GetUnit(), "dB");
        EXPECT_EQ(number->GetDefaultInvalidValue(), -1.0);
        EXPECT_EQ(number->GetFormat(), 'f');
        EXPECT_EQ(number->GetPrecision(), 6);
        EXPECT_FALSE(number->GetValidate());
        EXPECT_EQ(number->GetLogger(), logger);
        EXPECT_EQ(number->GetObjectType(), static_cast<ObjectTypes>(80));
    }
    EXPECT_EQ(converter.use_count(), 4);
}

TEST(Double, CopiesAreIndependent)
{
    Double original = Filled();
    Double copy(original);
    copy.SetValue(6.0);
    copy.SetUnit(Text("V"));
    EXPECT_EQ(original.GetValue(), 5.0);
    EXPECT_TEXT(original.GetUnit(), "dB");
}

TEST(Double, AssignmentToItselfKeepsEverything)
{
    Double number = Filled();
    const Double& same = number;
    number = same;
    EXPECT_EQ(number, Filled());
    EXPECT_TEXT(number.GetName(), "N");
}

TEST(Double, ComparesFourNumbersAndTheUnit)
{
    struct Row
    {
        const char* name;
        void (*change)(Double&);
        bool equal;
    };
    const Row rows[] = {
        {"nothing", [](Double&) {}, true},
        {"minimum", [](Double& number) { number.SetMinimum(std::nextafter(1.0, 2.0)); }, false},
        {"maximum", [](Double& number) { number.SetMaximum(8.0); }, false},
        {"default", [](Double& number) { number.SetDefault(3.0); }, false},
        {"value", [](Double& number) { number.SetValue(6.0); }, false},
        {"value unset", [](Double& number) { number.SetValue(-1.0); }, false},
        {"unit", [](Double& number) { number.SetUnit(Text("db")); }, false},
        {"unit unset", [](Double& number) { number.SetUnit(QString()); }, false},
        {"name", [](Double& number) { number.SetName(Text("M")); }, true},
        {"validate flag", [](Double& number) { number.SetValidate(false); }, true},
        {"logger", [](Double& number) { number.SetLogger(NewLogger()); }, true},
        {"version", [](Double& number) { Support::ReadElement(number, Text("<N Version=\"7\"/>")); }, true},
        {"value that is no number", [](Double& number) { number.SetValue(NOT_A_NUMBER); }, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Double left = Filled();
        Double right = Filled();
        row.change(right);
        EXPECT_EQ(left == right, row.equal);
        EXPECT_EQ(right == left, row.equal);
        EXPECT_EQ(left != right, !row.equal);
        EXPECT_EQ(right != left, !row.equal);
    }
}

TEST(Double, ComparisonIsThatOfTheNumbersThemselves)
{
    Double zero;
    zero.SetValue(0.0);
    Double negativeZero;
    negativeZero.SetValue(-0.0);
    EXPECT_TRUE(zero == negativeZero);

    Double noNumber;
    noNumber.SetValue(NOT_A_NUMBER);
    const Double copy(noNumber);
    EXPECT_FALSE(noNumber == copy);
    EXPECT_TRUE(noNumber != copy);
    const Double& same = noNumber;
    EXPECT_FALSE(noNumber == same);

    // An empty unit equals one that was never set.
    Double emptyUnit;
    emptyUnit.SetUnit(QStringLiteral(""));
    EXPECT_TRUE(emptyUnit == Double());
}

TEST(Double, InvalidNumberItselfIsNotCompared)
{
    Double left;
    Double right;
    right.SetDefaultInvalidValue(-1.0);
    EXPECT_FALSE(left == right);
    for (Double* number : {&left, &right}) {
        number->SetMinimum(1.0);
        number->SetMaximum(2.0);
        number->SetDefault(3.0);
        number->SetValue(4.0);
    }
    EXPECT_TRUE(left == right);
}

// --- Merging -----------------------------------------------------------------------------------------------

TEST(Double, MergeTakesWhatTheOtherHasAndItsDefaultOnlyUntilItsValue)
{
    Double number = Named("N");
    number.SetValue(1.0);
    number.SetMinimum(0.5);
    number.SetUnit(Text("s"));
    Double other = Named("N");
    other.SetDefault(7.0);
    other.SetValue(8.0);
    EXPECT_TRUE(number.MergeRGObject(other));
    EXPECT_EQ(number.GetDefault(), 7.0);
    EXPECT_EQ(number.GetValue(), 8.0);
    EXPECT_EQ(number.GetMinimum(), 0.5);
    EXPECT_TEXT(number.GetUnit(), "s");
}

TEST(Double, MergeOfAnObjectWithoutValueThrows)
{
    Double number = Named("N");
    number.SetValue(1.0);
    Double other = Named("M");
    other.SetValidate(false);
    EXPECT_RG_THROW(number.MergeRGObject(other), "RGException", Text("M") + Text(MISSING_VALUE));
    EXPECT_EQ(number.GetValue(), 1.0);
}
