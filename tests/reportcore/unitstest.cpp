// Numbers with units behind them.

#include "support/expect.h"

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/units.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <gtest/gtest.h>

namespace {

using ReportCore::HertzText;

const ReportCore::Field& FieldAt(const char* path)
{
    return *ReportCore::FieldPath::Parse(ReportCore::ReportInfo(), QLatin1String(path)).Last().field;
}

double Hertz(const char* text)
{
    return FieldAt("frequency.value").NumberOf(QString::fromUtf8(text));
}

/// Why a field doesn't take a number; nothing when it does.
QString RefusalOf(const char* path, const char* text)
{
    try {
        FieldAt(path).ValueOf(QString::fromUtf8(text));
    } catch (const ReportException& refused) {
        return refused.GetErrorText();
    }
    return QString();
}

TEST(Units, NumbersOfFrequenciesMayHaveOne)
{
    EXPECT_EQ(Hertz("121500000"), 121500000.0);
    EXPECT_EQ(Hertz("121500000Hz"), 121500000.0);
    EXPECT_EQ(Hertz("121500 kHz"), 121500000.0);
    EXPECT_EQ(Hertz("121.5MHz"), 121500000.0);
    EXPECT_EQ(Hertz("121.5 MHz"), 121500000.0);
    EXPECT_EQ(Hertz("0.1215  GHz"), 121500000.0);
    EXPECT_EQ(Hertz("-25 kHz"), -25000.0);
    EXPECT_EQ(Hertz("1e2kHz"), 100000.0);
    EXPECT_EQ(Hertz("1E-3 MHz"), 1000.0);
    for (const char* path : {"frequency.min", "frequency.max", "ifBandwidth.value", "ifBandwidth.min"})
        EXPECT_EQ(FieldAt(path).ValueOf(QStringLiteral("8.33 kHz")), QVariant(8330.0)) << path;
}

TEST(Units, NumberIsTheOneThatItsDigitsSay)
{
    // As doubles, 1.001 times a million is 1000999.9999999999.
    EXPECT_EQ(Hertz("1.001 MHz"), 1001000.0);
    EXPECT_EQ(Hertz("1.003MHz"), 1003000.0);
}

TEST(Units, WhatIsNoNumberOrNoUnitIsRefusedInWords)
{
    EXPECT_TEXT(RefusalOf("frequency.value", "121,5 MHz"), "value is a number, not \"121,5 MHz\"");
    EXPECT_TEXT(RefusalOf("frequency.value", "MHz"), "value is a number, not \"MHz\"");
    EXPECT_TEXT(RefusalOf("frequency.value", "nan MHz"), "value is a number, not \"nan MHz\"");
    EXPECT_TEXT(RefusalOf("frequency.value", "5 MHz/s"), "value is a number, not \"5 MHz/s\"");
    EXPECT_TEXT(RefusalOf("frequency.value", "5 mhz"),
                "no unit is called 'mhz', did you mean 'MHz'? There are Hz, kHz, MHz, GHz");
    EXPECT_TEXT(RefusalOf("frequency.value", "5 metres"),
                "no unit is called 'metres'; there are Hz, kHz, MHz, GHz");
}

TEST(Units, OthersTakeNone)
{
    EXPECT_TEXT(RefusalOf("area.coordinate[1].latitude", "5 MHz"), "latitude is in degrees, not in MHz");
    EXPECT_TEXT(RefusalOf("area.coordinate[1].longitude", "9.5E"), "longitude is in degrees, not in E");
    EXPECT_TEXT(RefusalOf("frequency.use", "5 MHz"), "use is true or false, not \"5 MHz\"");
    EXPECT_EQ(FieldAt("area.name").ValueOf(QStringLiteral("5 MHz")), QVariant(QStringLiteral("5 MHz")));
}

TEST(Units, FrequenciesAreShownInTheLargestOneThatFits)
{
    EXPECT_TEXT(HertzText(121500000.0), "121.5 MHz");
    EXPECT_TEXT(HertzText(8333.33), "8.33333 kHz");
    EXPECT_TEXT(HertzText(2.4e9), "2.4 GHz");
    EXPECT_TEXT(HertzText(500.0), "500 Hz");
    EXPECT_TEXT(HertzText(0.0), "0 Hz");
    EXPECT_TEXT(HertzText(-25000.0), "-25 kHz");
}

} // namespace
