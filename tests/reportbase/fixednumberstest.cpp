// The quick way between doubles and texts in fixed notation: which digits and bits come out, and when it says
// that it can't tell.

#include "support/againstqt.h"
#include "support/records.h"

#include <reportgenerator/reportbase/codec/fixednumbers.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace {

using REPORTGENERATOR::numbers::MAX_FIXED;
using REPORTGENERATOR::numbers::ReadFixed;
using REPORTGENERATOR::numbers::ReadFixedPrefix;
using REPORTGENERATOR::numbers::WriteFixed;
using Support::BitsOf;
using Support::Comparisons;
using Support::Random;

using Limits = std::numeric_limits<double>;

constexpr int NUMBERS_OF_EACH_KIND = 112000; // a million in all
constexpr int TEXTS = 500000;

/// What stands in the buffer before anything is written.
constexpr char UNTOUCHED = '#';

/// What `Written` gives for a number that is refused.
const char* const REFUSED = "refused";

/// The number as `Char`s make it a text.
template <class Char>
std::string Written(double number, int decimals)
{
    constexpr int AFTER = 8;
    std::array<Char, MAX_FIXED + AFTER> room = {};
    room.fill(static_cast<Char>(UNTOUCHED));
    const Char* const end = WriteFixed(room.data(), number, decimals);
    for (std::size_t i = MAX_FIXED; i < room.size(); ++i)
        EXPECT_EQ(room[i], static_cast<Char>(UNTOUCHED)) << number;
    return end == nullptr ? REFUSED : std::string(static_cast<const Char*>(room.data()), end);
}

template <class Char>
std::basic_string<Char> Units(const std::string& text)
{
    return std::basic_string<Char>(text.begin(), text.end());
}

/// The bits of the number that the units hold; fails when they are refused.
template <class Char>
quint64 BitsRead(const std::string& text)
{
    const std::basic_string<Char> units = Units<Char>(text);
    double number = Limits::quiet_NaN();
    EXPECT_TRUE(ReadFixed(units.data(), units.data() + units.size(), number)) << text;
    return BitsOf(number);
}

/// Whether the units are refused and what stood in the result stays.
template <class Char>
bool IsRefused(const std::basic_string<Char>& units)
{
    const double before = 47.11;
    double number = before;
    return !ReadFixed(units.data(), units.data() + units.size(), number) && number == before;
}

/// How many units were read and taken for `expected`; -1 when they are refused.
template <class Char>
std::ptrdiff_t PrefixLength(const std::string& text, double expected)
{
    const std::basic_string<Char> units = Units<Char>(text);
    const double before = 47.11;
    double number = before;
    const Char* const next = ReadFixedPrefix(units.data(), units.data() + units.size(), number);
    EXPECT_EQ(BitsOf(number), BitsOf(next == nullptr ? before : expected)) << text;
    return next == nullptr ? -1 : next - units.data();
}

template <class Char>
class FixedNumbers : public ::testing::Test
{
};

/// The last one is how QString::utf16() gives its characters.
using UnitTypes = ::testing::Types<char, char16_t, unsigned short>;
TYPED_TEST_SUITE(FixedNumbers, UnitTypes, );

struct Row
{
    double number;
    int decimals;
    const char* text;
};

struct Tie
{
    double number;
    int decimals;
    const char* below;
    const char* above;
};

} // namespace

// --- Writing ----------------------------------------------------------------------------------------------

TYPED_TEST(FixedNumbers, DecimalsAreRoundedToThoseAskedFor)
{
    const Row rows[] = {
        {179.123456, 2, "179.12"},      {179.126, 2, "179.13"},        {179.123456, 6, "179.123456"},
        {179.1234567, 6, "179.123457"}, {-0.000001, 6, "-0.000001"},   {0.999999, 6, "0.999999"},
        {0.999999, 2, "1.00"},          {9.996, 2, "10.00"},           {-99.9999996, 6, "-100.000000"},
        {999.996, 2, "1000.00"},        {999999.996, 2, "1000000.00"}, {121500000.0, 2, "121500000.00"},
        {8333.33, 2, "8333.33"},        {1e9, 2, "1000000000.00"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Written<TypeParam>(row.number, row.decimals), row.text);
}

TYPED_TEST(FixedNumbers, ZeroHasNoSignButWhatIsRoundedToItHas)
{
    const Row rows[] = {
        {0.0, 2, "0.00"},           {0.0, 6, "0.000000"},         {-0.0, 2, "0.00"},
        {-0.0, 6, "0.000000"},      {0.004, 2, "0.00"},           {-0.004, 2, "-0.00"},
        {0.0000004, 6, "0.000000"}, {-0.0000004, 6, "-0.000000"}, {5e-324, 6, "0.000000"},
        {-5e-324, 6, "-0.000000"},  {2e-308, 2, "0.00"},          {-2e-308, 2, "-0.00"}, // denormal
    };
    for (const Row& row : rows)
        EXPECT_EQ(Written<TypeParam>(row.number, row.decimals), row.text) << row.number;
}

TYPED_TEST(FixedNumbers, SentinelOfUnsetNumbersIsWrittenWithTheDecimalsOfEachForm)
{
    const Row rows[] = {
        {-111111.11, 2, "-111111.11"},
        {-111111.11, 6, "-111111.110000"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Written<TypeParam>(row.number, row.decimals), row.text);
}

TYPED_TEST(FixedNumbers, IntegersOfEveryLengthAreWritten)
{
    const std::string digits = "123456789012345";
    double ascending = 0.0;
    double power = 1.0;
    for (std::size_t length = 1; length <= digits.size(); ++length) {
        ascending = 10.0 * ascending + (digits[length - 1] - '0');
        power *= 10.0;
        const std::string nines(length, '9');
        const std::string whole = digits.substr(0, length) + ".00";
        EXPECT_EQ(Written<TypeParam>(ascending, 2), length <= 13 ? whole : REFUSED);
        EXPECT_EQ(Written<TypeParam>(-ascending, 2), length <= 13 ? "-" + whole : REFUSED);
        EXPECT_EQ(Written<TypeParam>(power - 1.0, 2), length <= 13 ? nines + ".00" : REFUSED);
        EXPECT_EQ(Written<TypeParam>(power - 1.0, 6), length <= 9 ? nines + ".000000" : REFUSED);
        EXPECT_EQ(Written<TypeParam>(power, 2),
                  length <= 12 ? "1" + std::string(length, '0') + ".00" : REFUSED);
    }
}

TYPED_TEST(FixedNumbers, TiesAreRefused)
{
    const Row rows[] = {
        {0.125, 2, REFUSED},
        {0.375, 2, REFUSED},
        {1.625, 2, REFUSED},
        {4503599627370.125, 2, REFUSED},
        {0.0078125, 6, REFUSED},
        // These are ties only as texts.
        {0.0000005, 6, REFUSED},
        {0.045, 2, REFUSED},
        {1.005, 2, REFUSED},
        {2.675, 2, REFUSED},
        {99.995, 2, REFUSED},
        {179.1234565, 6, REFUSED},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Written<TypeParam>(row.number, row.decimals), row.text) << row.number;
        EXPECT_EQ(Written<TypeParam>(-row.number, row.decimals), row.text) << row.number;
    }
}

TYPED_TEST(FixedNumbers, NeighboursOfTiesAreRefusedOrRoundedToTheirOwnSide)
{
    const Tie ties[] = {
        {0.125, 2, "0.12", "0.13"},
        {1000000.125, 2, "1000000.12", "1000000.13"},
        {2.375, 2, "2.37", "2.38"},
        {0.0078125, 6, "0.007812", "0.007813"},
        {179.0078125, 6, "179.007812", "179.007813"},
        {0.9921875, 6, "0.992187", "0.992188"},
    };
    // The eighth neighbour is further away than the product can be off.
    constexpr int CLEAR = 8;
    for (const Tie& tie : ties) {
        double below = tie.number;
        double above = tie.number;
        for (int steps = 1; steps <= CLEAR; ++steps) {
            below = std::nextafter(below, 0.0);
            above = std::nextafter(above, Limits::infinity());
            const std::string belowText = Written<TypeParam>(below, tie.decimals);
            const std::string aboveText = Written<TypeParam>(above, tie.decimals);
            EXPECT_TRUE(belowText == tie.below || (belowText == REFUSED && steps < CLEAR)) << belowText;
            EXPECT_TRUE(aboveText == tie.above || (aboveText == REFUSED && steps < CLEAR)) << aboveText;
        }
    }
}

TYPED_TEST(FixedNumbers, WhatIsNoNumberIsRefused)
{
    for (const int decimals : {2, 6}) {
        for (const double number : {Limits::quiet_NaN(), -Limits::quiet_NaN(), Limits::infinity(),
                                    -Limits::infinity(), Limits::max(), Limits::lowest()})
            EXPECT_EQ(Written<TypeParam>(number, decimals), REFUSED) << number;
    }
}

TYPED_TEST(FixedNumbers, NumbersAreRefusedFromTenToTheFifteenthUnitsOn)
{
    const Row rows[] = {
        {-9999999999999.0, 2, "-9999999999999.00"},
        {9999999999999.0, 2, "9999999999999.00"},
        {1e13, 2, REFUSED},
        {999999999.0, 6, "999999999.000000"},
        {1e9, 6, REFUSED},
        {-1e9, 6, REFUSED},
        {-1e300, 2, REFUSED},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Written<TypeParam>(row.number, row.decimals), row.text);
}

TYPED_TEST(FixedNumbers, LongestNumberFillsTheRoom)
{
    const std::string longest = "-1000000000.000000";
    EXPECT_EQ(Written<TypeParam>(-999999999.9999999, 6), longest);
    EXPECT_EQ(longest.size(), std::size_t(MAX_FIXED));
}

TYPED_TEST(FixedNumbers, NumbersOfDecimalsThatNoFormHasAreRefused)
{
    for (const int decimals : {-1, -1000, 0, 1, 3, 4, 5, 7, 1000})
        EXPECT_EQ(Written<TypeParam>(1.0, decimals), REFUSED) << decimals;
}

TYPED_TEST(FixedNumbers, NoNumberOfTheGridsIsRefused)
{
    Random random(1);
    for (int i = 0; i < NUMBERS_OF_EACH_KIND / 4; ++i) {
        const double degree = Support::NUMBER_KINDS[0].draw(random);
        ASSERT_NE(Written<TypeParam>(degree, 6), REFUSED) << degree;
        const double hertz = Support::NUMBER_KINDS[1].draw(random);
        ASSERT_NE(Written<TypeParam>(hertz, 2), REFUSED) << hertz;
    }
}

// --- Reading ----------------------------------------------------------------------------------------------

TYPED_TEST(FixedNumbers, PlainTextsAreReadAsTheNearestNumber)
{
    struct Plain
    {
        const char* text;
        double number;
    };
    // The compiler reads a literal as the nearest number too.
    const Plain rows[] = {
        {"0", 0.0},
        {"-0", -0.0},
        {"-0.00", -0.0},
        {"0.000000", 0.0},
        {"7", 7.0},
        {"007", 7.0},
        {"-00.5", -0.5},
        {"0.1", 0.1},
        {"0.3", 0.3},
        {"1.005", 1.005},
        {"179.123456", 179.123456},
        {"-179.123456", -179.123456},
        {"-111111.11", -111111.11},
        {"121500000.00", 121500000.0},
        {"123456789.987654", 123456789.987654},
        {"9007199254740992", 9007199254740992.0},
        {"90071992547409.92", 90071992547409.92},
        {"0.9007199254740992", 0.9007199254740992},
        {"0.000000000000000001", 1e-18},
        {"0.000000000000000123", 123e-18},
        {"0000000000000000001", 1.0},
    };
    for (const Plain& row : rows)
        EXPECT_EQ(BitsRead<TypeParam>(row.text), BitsOf(row.number)) << row.text;
}

TYPED_TEST(FixedNumbers, TextsOfAnyOtherShapeAreRefused)
{
    for (const char* text :
         {"",    "-",   "--1",  "+1",    "1-",   " 1",   "1 ",  "1\n", ".",     "-.",    ".5",   "5.",
          "-.5", "-5.", "1..2", "1.2.3", "1.2.", ".1.2", "1e5", "1E5", "1.e5",  "1.5e5", "0x10", "1,5",
          "1_0", "nan", "inf",  "-inf",  "/1",   ":1",   "1/",  "1:",  "1.2/3", "1.2:3", "\xb2", "1\xb2"})
        EXPECT_TRUE(IsRefused(Units<TypeParam>(text))) << text;
    EXPECT_TRUE(IsRefused(Units<TypeParam>(std::string("1\0", 2))));
    EXPECT_TRUE(IsRefused(Units<TypeParam>(std::string("\0", 1) + "1")));
}

TYPED_TEST(FixedNumbers, TextsThatMayNotBeExactAreRefused)
{
    for (const char* text : {
             "9007199254740993",       // more than a mantissa holds
             "900719925474099.3",      //
             "1.0000000000000000",     //
             "18446744073709551616",   // 0 in 64 bits
             "18446744073709551617.5", //
             "00000000000000000001",   // twenty digits
             "0.0000000000000000001",  //
             "-0.00000000000000000000000000000000000001",
         })
        EXPECT_TRUE(IsRefused(Units<TypeParam>(text))) << text;
}

TEST(FixedNumbersOfTwoBytes, UnitsAreLookedAtWhole)
{
    // The lower bytes of the odd ones are those of '1', '-' and '.'.
    for (const char16_t* text :
         {u"\u0131", u"1\u0131", u"\uFF11", u"\u0661", u"\u212D1", u"1\u222E5", u"\u22125"})
        EXPECT_TRUE(IsRefused(std::u16string(text)));
}

TYPED_TEST(FixedNumbers, PrefixEndsAtTheFirstUnitThatIsNeitherDigitNorPoint)
{
    EXPECT_EQ(PrefixLength<TypeParam>("12.5", 12.5), 4);
    EXPECT_EQ(PrefixLength<TypeParam>("12.5<", 12.5), 4);
    EXPECT_EQ(PrefixLength<TypeParam>("-0.00</Longitude>", -0.0), 5);
    EXPECT_EQ(PrefixLength<TypeParam>("7\" Max=\"8\"", 7.0), 1);
    EXPECT_EQ(PrefixLength<TypeParam>("1e5", 1.0), 1);
    EXPECT_EQ(PrefixLength<TypeParam>("1-2", 1.0), 1);
    EXPECT_EQ(PrefixLength<TypeParam>("1.5 ", 1.5), 3);
}

TYPED_TEST(FixedNumbers, PrefixThatIsNoPlainNumberIsRefused)
{
    for (const char* text : {"", "<", "-", "-<", ".5<", "5.<", "5.", "-.<", "1.2.3<", "1.2.<", "1..2<", "+1<",
                             " 1<", "9007199254740993<", "00000000000000000001<"})
        EXPECT_EQ(PrefixLength<TypeParam>(text, 0.0), -1) << text;
}

TYPED_TEST(FixedNumbers, NothingIsReadBehindTheEnd)
{
    const std::basic_string<TypeParam> units = Units<TypeParam>("-12.345");
    const TypeParam* const begin = units.data();
    double number = 0.0;
    EXPECT_FALSE(ReadFixed(begin, begin, number));
    EXPECT_FALSE(ReadFixed(begin, begin + 1, number));
    EXPECT_TRUE(ReadFixed(begin, begin + 2, number));
    EXPECT_EQ(number, -1.0);
    EXPECT_TRUE(ReadFixed(begin, begin + 3, number));
    EXPECT_EQ(number, -12.0);
    EXPECT_FALSE(ReadFixed(begin, begin + 4, number));
    EXPECT_EQ(ReadFixedPrefix(begin, begin + 4, number), nullptr);
    EXPECT_EQ(ReadFixedPrefix(begin, begin + 5, number), begin + 5);
    EXPECT_EQ(number, -12.3);
    EXPECT_FALSE(ReadFixed<TypeParam>(nullptr, nullptr, number));
    EXPECT_EQ(ReadFixedPrefix<TypeParam>(nullptr, nullptr, number), nullptr);
}

// --- Against Qt -------------------------------------------------------------------------------------------

TEST(FixedNumbersAgainstQt, AMillionNumbersAreWrittenAndReadAsQtDoes)
{
    Random random(20170301);
    for (const Support::NumberKind& kind : Support::NUMBER_KINDS) {
        Comparisons written;
        Comparisons read;
        for (int i = 0; i < NUMBERS_OF_EACH_KIND; ++i) {
            const double number = kind.draw(random);
            Support::CompareNumber(number, i % 2 == 0 ? 2 : 6, written, read);
        }
        EXPECT_EQ(written.differed, 0) << kind.name << ": " << written.firstDifference;
        EXPECT_EQ(read.differed, 0) << kind.name << ": " << read.firstDifference;
        EXPECT_GT(written.agreed, 0) << kind.name;
        EXPECT_GT(read.agreed, 0) << kind.name;
    }
}

TEST(FixedNumbersAgainstQt, TextsOfEveryShapeAreReadAsQtReadsThem)
{
    Random random(20170302);
    Comparisons read;
    for (int i = 0; i < TEXTS; ++i)
        Support::CompareText(Support::DrawNumberText(random), read);
    EXPECT_EQ(read.differed, 0) << read.firstDifference;
    EXPECT_GT(read.agreed, TEXTS / 4);
    EXPECT_GT(read.leftToQt, TEXTS / 4);
}
