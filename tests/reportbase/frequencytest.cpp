// What a Frequency has beyond a value with bounds (see boundedvaluetest.cpp): the switch "use".

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequency.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <string>

namespace {

using REPORTGENERATOR::Frequency;
using Support::Bool;
using Support::Bytes;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::Value;
namespace Tag = Support::Tag;

constexpr int VALUE_FLAG = 1;
constexpr int USE_FLAG = 8;

Frequency WithUse(double value, bool use)
{
    Frequency frequency;
    frequency.SetValue(value);
    frequency.SetUse(use);
    return frequency;
}

Frequency WithAll(double value, double min, double max, bool use)
{
    Frequency frequency = WithUse(value, use);
    frequency.SetMin(min);
    frequency.SetMax(max);
    return frequency;
}

/// Whether "use" is set, and to what.
std::string UseOf(const Frequency& frequency)
{
    return std::string(frequency.IsUseSet() ? "set to " : "unset, ") +
           (frequency.GetUse() ? "true" : "false");
}

} // namespace

// --- The field --------------------------------------------------------------------------------------------

TEST(Frequency, SetterOfUseStoresAndSetsIt)
{
    for (const bool validate : {true, false}) {
        for (const bool use : {true, false}) {
            Frequency frequency;
            frequency.SetValidate(validate);
            const auto logger = Support::NewLogger();
            frequency.SetLogger(logger);
            frequency.SetUse(use);
            EXPECT_TRUE(frequency.IsUseSet());
            EXPECT_EQ(frequency.GetUse(), use);
            EXPECT_FALSE(frequency.IsValueSet());
            EXPECT_FALSE(frequency.IsMinSet());
            EXPECT_FALSE(frequency.IsMaxSet());
            EXPECT_LOG(logger, {});
        }
    }
}

TEST(Frequency, ResetUseStoresTrueAndUnsetsItAlone)
{
    Frequency frequency = WithAll(1.0, 2.0, 3.0, false);
    frequency.ResetUse();
    EXPECT_EQ(UseOf(frequency), "unset, true");
    EXPECT_TRUE(frequency.IsValueSet());
    EXPECT_TRUE(frequency.IsMinSet());
    EXPECT_TRUE(frequency.IsMaxSet());
}

TEST(Frequency, ResettingANumberLeavesUseAlone)
{
    Frequency frequency = WithAll(1.0, 2.0, 3.0, false);
    frequency.ResetValue();
    frequency.ResetMin();
    frequency.ResetMax();
    EXPECT_EQ(UseOf(frequency), "set to false");
}

TEST(Frequency, UseCountsAsAnyDataButNotAsData)
{
    Frequency frequency;
    frequency.SetUse(false);
    EXPECT_TRUE(frequency.AnyData());
    EXPECT_FALSE(frequency.HasData());
    EXPECT_RG_THROW(frequency.Check(), "OutOfRangeException", "Frequency: Please set Value properly.");
}

TEST(Frequency, ResetToDefaultDiffersFromResetInUse)
{
    Frequency frequency;
    EXPECT_TRUE(frequency.GetDefaultUse());
    frequency.ResetToDefault();
    EXPECT_TRUE(frequency.AnyData());
    EXPECT_TRUE(frequency != Frequency());
    frequency.Reset();
    EXPECT_TRUE(frequency == Frequency());
}

// --- Comparison -------------------------------------------------------------------------------------------

TEST(Frequency, UseTakesPartInTheComparison)
{
    Frequency unset;
    unset.SetValue(1.0);
    EXPECT_TRUE(WithUse(1.0, true) == WithUse(1.0, true));
    EXPECT_TRUE(WithUse(1.0, false) == WithUse(1.0, false));
    EXPECT_FALSE(WithUse(1.0, true) == WithUse(1.0, false));
    EXPECT_FALSE(WithUse(1.0, true) == unset);
    EXPECT_FALSE(unset == WithUse(1.0, true));
    EXPECT_TRUE(unset != WithUse(1.0, true));
}

TEST(Frequency, TheLeftoverOfAnUnsetUseDoesNotCount)
{
    Frequency leftover = WithUse(1.0, false);
    EXPECT_EQ(ReadRawForm(leftover, Support::Byte(VALUE_FLAG) + Support::Double(1.0)), 0);
    EXPECT_EQ(UseOf(leftover), "unset, false");
    Frequency plain;
    plain.SetValue(1.0);
    EXPECT_TRUE(leftover == plain);
    EXPECT_XML(leftover, "\n<Frequency>1.00</Frequency>");
}

// --- XML --------------------------------------------------------------------------------------------------

TEST(Frequency, UseIsReadAsFalseFromZeroAndFalseInAnyCaseAndAsTrueFromEverythingElse)
{
    struct Row
    {
        const char* text;
        bool use;
    };
    const Row rows[] = {
        {"0", false},
        {"false", false},
        {"FALSE", false},
        {"False", false},
        {"fAlSe", false},
        {"true", true},
        {"TRUE", true},
        {"1", true},
        {"2", true},
        {"no", true},
        {"off", true},
        {"", true},
        {" ", true},
        {"00", true},
        {"0.0", true},
        {"-0", true},
        {" false", true},
        {"false ", true},
        {"0 ", true},
        {"falsch", true},
        {"FALSE1", true},
        {"fal\xc5\xbf"
         "e",
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        Frequency frequency;
        EXPECT_TRUE(frequency.SetXmlString(
            QStringLiteral("<Frequency Use=\"%1\">1</Frequency>").arg(Support::Text(row.text)), true));
        EXPECT_TRUE(frequency.IsUseSet());
        EXPECT_EQ(frequency.GetUse(), row.use);
    }
}

TEST(Frequency, AttributesAreStoredBeforeMalformedTextIsMet)
{
    Frequency frequency;
    const QString xml = QStringLiteral("<Frequency Use=\"0\" Max=\"2\">1<");
    EXPECT_RG_THROW(frequency.SetXmlString(xml, true), "RGException", Support::XmlErrorOf(xml));
    EXPECT_EQ(UseOf(frequency), "set to false");
    EXPECT_TRUE(frequency.IsMaxSet());
    EXPECT_FALSE(frequency.IsValueSet());
}

TEST(Frequency, UseWithoutItsSecondQuoteIsMalformed)
{
    for (const char* text :
         {"<Frequency Use=\"true>1</Frequency>", "<Frequency Use=\"false >1</Frequency>"}) {
        SCOPED_TRACE(text);
        Frequency frequency = WithUse(1.0, false);
        const QString xml = QString::fromLatin1(text);
        EXPECT_RG_THROW(frequency.SetXmlString(xml, true), "RGException", Support::XmlErrorOf(xml));
        EXPECT_FALSE(frequency.AnyData());
    }
}

// --- Tagged form ------------------------------------------------------------------------------------------

TEST(Frequency, BodyReadsUseFromAnyPlaceAndAnyByteButZeroAsTrue)
{
    for (int byte = 0; byte <= 0xff; ++byte) {
        Frequency frequency;
        const Bytes use = Element(Tag::FREQUENCY_USE, Support::Byte(byte));
        EXPECT_EQ(ReadElements(frequency, Value("1") + use), 0);
        EXPECT_TRUE(frequency == WithUse(1.0, byte != 0)) << byte;
        EXPECT_EQ(ReadElements(frequency, use + Value("1")), 0);
        EXPECT_TRUE(frequency == WithUse(1.0, byte != 0)) << byte;
    }
}

TEST(Frequency, DeclaredLengthOfUseOnlyCountsAgainstTheBudget)
{
    Frequency frequency;
    const Bytes use = ElementOfLength(Tag::FREQUENCY_USE, 4, Bool(false));
    EXPECT_RG_THROW(ReadElements(frequency, use + Value("1.00")), "BinaryParsingException",
                    "Frequency::SetBinary(...): Length error occurred during processing of binary "
                    "representation");
    EXPECT_TRUE(frequency == WithUse(1.0, false));
    EXPECT_EQ(ReadElements(frequency, use.Size() + 3 + 16, use + Value("1.00")), 0);
    EXPECT_TRUE(frequency == WithUse(1.0, false));
}

// --- Raw form ---------------------------------------------------------------------------------------------

TEST(Frequency, RawReadingTakesUseOnlyWhenItsFlagIsThere)
{
    Frequency frequency = WithUse(1.0, false);
    EXPECT_EQ(ReadRawForm(frequency, Support::Byte(VALUE_FLAG) + Support::Double(2.0) + Bool(true)), 1);
    EXPECT_EQ(UseOf(frequency), "unset, false");

    EXPECT_EQ(ReadRawForm(frequency, Support::Byte(USE_FLAG) + Support::Double(2.0) + Bool(true)), 0);
    EXPECT_EQ(UseOf(frequency), "set to true");
    EXPECT_FALSE(frequency.IsValueSet());
}

TEST(Frequency, TheUpperFourFlagsSteerNothingAndAreKept)
{
    for (int stray = 0x10; stray <= 0x80; stray <<= 1) {
        SCOPED_TRACE(stray);
        Frequency frequency;
        const Bytes raw = Support::Byte(stray | USE_FLAG) + Support::Double(2.5) + Bool(true);
        EXPECT_EQ(ReadRawForm(frequency, raw), 0);
        EXPECT_EQ(UseOf(frequency), "set to true");
        EXPECT_FALSE(frequency.IsValueSet());
        EXPECT_BYTES(Support::RawFormOf(frequency), raw);
    }
}

// --- Merging ----------------------------------------------------------------------------------------------

TEST(Frequency, MergingTakesUseWhenTheOtherHasIt)
{
    Frequency frequency = WithUse(1.0, true);
    Frequency other;
    other.SetValue(2.0);
    EXPECT_TRUE(frequency.MergeRGObject(other));
    EXPECT_TRUE(frequency == WithUse(2.0, true));
    other.SetUse(false);
    EXPECT_TRUE(frequency.MergeRGObject(other));
    EXPECT_TRUE(frequency == WithUse(2.0, false));
}
