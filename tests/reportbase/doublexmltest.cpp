// A Double in XML.

#include "support/doubles.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/plainrows.h"
#include "support/records.h"

#include <reportgenerator/reportbase/double.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QXmlStreamWriter>

namespace {

using REPORTGENERATOR::Double;
using Support::Filled;
using Support::MISSING_VALUE;
using Support::Named;
using Support::NewLogger;
using Support::NOT_SET;
using Support::Text;

} // namespace

// --- Writing XML -------------------------------------------------------------------------------------------

TEST(Double, WritesTheValueAloneWithoutAttributes)
{
    Double number = Named("N");
    number.SetValue(3.0);
    EXPECT_XML(number, "\n<N>\n    <DoubleValue>3.000000</DoubleValue>\n</N>");
}

TEST(Double, WritesAttributesInTheirOrder)
{
    Double number = Named("N");
    number.SetUnit(Text("dB"));
    number.SetDefault(4.0);
    number.SetMaximum(9.0);
    number.SetMinimum(-1.25);
    number.SetValue(5.0);
    EXPECT_XML(number, "\n<N Minimum=\"-1.250000\" Maximum=\"9.000000\" Default=\"4.000000\" Unit=\"dB\">\n"
                       "    <DoubleValue>5.000000</DoubleValue>\n</N>");
}

TEST(Double, WritesEachAttributeOnlyWhenItIsSet)
{
    struct Row
    {
        const char* name;
        void (*fill)(Double&);
        const char* attribute;
    };
    const Row rows[] = {
        {"minimum", [](Double& number) { number.SetMinimum(0.0); }, " Minimum=\"0.000000\""},
        {"maximum", [](Double& number) { number.SetMaximum(0.0); }, " Maximum=\"0.000000\""},
        {"default", [](Double& number) { number.SetDefault(0.0); }, " Default=\"0.000000\""},
        {"unit", [](Double& number) { number.SetUnit(Text("<\"&>")); }, " Unit=\"&lt;&quot;&amp;&gt;\""},
        {"invalid number", [](Double& number) { number.SetMinimum(NOT_SET); }, ""},
        {"empty unit", [](Double& number) { number.SetUnit(QStringLiteral("")); }, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Double number = Named("N");
        number.SetValue(1.0);
        row.fill(number);
        EXPECT_XML(number, Text("\n<N") + Text(row.attribute) +
                               Text(">\n    <DoubleValue>1.000000</DoubleValue>\n</N>"));
    }
}

TEST(Double, NeverWritesTheVersion)
{
    Double number = Named("N");
    Support::ReadElement(number, Text("<N Version=\"3.5\"><DoubleValue>1</DoubleValue></N>"));
    EXPECT_XML(number, "\n<N>\n    <DoubleValue>1.000000</DoubleValue>\n</N>");
    EXPECT_TEXT(number.GetVersion(), "");
}

TEST(Double, IsNamedAnyTypeUntilItGetsAName)
{
    Double number;
    number.SetValue(1.0);
    EXPECT_XML(number, "\n<AnyType>\n    <DoubleValue>1.000000</DoubleValue>\n</AnyType>");
}

TEST(Double, RefusesToWriteWithoutValueWhateverTheValidateFlag)
{
    for (const bool validate : {true, false}) {
        SCOPED_TRACE(validate);
        const auto logger = NewLogger();
        Double number = Named("N");
        number.SetMinimum(1.0);
        number.SetUnit(Text("dB"));
        number.SetValidate(validate);
        number.SetLogger(logger);
        EXPECT_RG_THROW(number.GetXmlString(), "RGException", Text("N") + Text(MISSING_VALUE));
        EXPECT_LOG(logger, {"INFO: N: Generating xml string."});

        QString text;
        QXmlStreamWriter writer(&text);
        EXPECT_RG_THROW(number.GetXml(writer), "RGException", Text("N") + Text(MISSING_VALUE));
        EXPECT_TEXT(text, "");
        EXPECT_LOG(logger, {"INFO: N: Generating xml string."});
    }
}

// --- Reading XML -------------------------------------------------------------------------------------------

TEST(Double, ReadsWhatItWrites)
{
    Double number = Named("N");
    number.SetMinimum(-1.25);
    number.SetMaximum(9.0);
    number.SetDefault(4.0);
    number.SetValue(5.5);
    number.SetUnit(Text("<µ\"&>"));
    Double read = Named("N");
    EXPECT_TRUE(read.SetXmlString(number.GetXmlString(), true));
    EXPECT_EQ(read, number);
}

TEST(Double, ReadsItsAttributesAndTheLastValueBeforeAnUnknownChild)
{
    const char* const missing = "NThe double has not been set! Please use SetValue first";
    Support::ExpectReadings(
        Filled(),
        {
            {"<DoubleValue> 5 </DoubleValue>", "N: 5 -1.5 1000 4 s", nullptr, nullptr,
             "Unit='s' Default='4' Other='x' Maximum='1e3' Version='2.0' Minimum=' -1.5 '"},
            {"<DoubleValue>4</DoubleValue>", "N: 4 - - - ", nullptr, nullptr,
             "minimum='1' MAXIMUM='2' default='3' unit='s'"},
            {"", "N: - 1 - - dB", nullptr, missing, "Minimum='1' Unit='dB'"},
            // The default is the value too.
            {"", "N: 5 - - 5 ", nullptr, nullptr, "Default='5'"},
            {"<DoubleValue>6</DoubleValue>", "N: 6 - - 5 ", nullptr, nullptr, "Default='5'"},
            {"<DoubleValue>nan</DoubleValue>", "N: nan -inf inf - ", nullptr, nullptr,
             "Minimum='-inf' Maximum='inf'"},
            {"", "N: 0 0 0 0 ", nullptr, nullptr, "Minimum='' Maximum='' Default=''"},
            {"", "N: 0 0 0 0 ", nullptr, nullptr, "Minimum='abc' Maximum='abc' Default='abc'"},
            {"", "N: 0 0 0 0 ", nullptr, nullptr, "Minimum='1,5' Maximum='1,5' Default='1,5'"},
            {"", "N: 0 0 0 0 ", nullptr, nullptr, "Minimum='5 dB' Maximum='5 dB' Default='5 dB'"},
            {"", "N: 0 0 0 0 ", nullptr, nullptr, "Minimum='0x5' Maximum='0x5' Default='0x5'"},
            {"<DoubleValue>6</DoubleValue> <!-- --> <DoubleValue>7</DoubleValue>", "N: 7 - - - "},
            {"<DoubleValue>12<!-- -->34</DoubleValue>", "N: 34 - - - "},
            {"<doublevalue>6</doublevalue>", "N: - - - - ", nullptr, missing},
            {"<DoubleValue>6</DoubleValue><Extra>1</Extra><DoubleValue>7</DoubleValue>", "N: 6 - - - "},
            {"<Extra/><DoubleValue>7</DoubleValue>", "N: - 1 - - ", nullptr, missing, "Minimum='1'"},
            {"<Extra><DoubleValue>6</DoubleValue></Extra><DoubleValue>7</DoubleValue>", "N: 6 - - - "},
        });
    Support::ExpectMalformed(Filled(),
                             {{"<N Minimum=\"1\"><DoubleValue>6</DoubleValue>", "N: 6 1 - - ", true}});
}

TEST(Double, AbsentAttributesLeaveTheirFieldsAlone)
{
    Double number = Filled();
    Support::ReadElement(number, Text("<N/>"));
    EXPECT_EQ(number, Filled());
    Support::ReadElement(number, Text("<N Maximum=\"8\"/>"));
    EXPECT_EQ(number.GetMinimum(), 1.0);
    EXPECT_EQ(number.GetMaximum(), 8.0);
    EXPECT_EQ(number.GetDefault(), 4.0);
    EXPECT_EQ(number.GetValue(), 5.0);
    EXPECT_TEXT(number.GetUnit(), "dB");
    Support::ReadElement(number, Text("<N Unit=\"\"/>"));
    EXPECT_TEXT(number.GetUnit(), "");
    Support::ReadElement(number, Text("<N><DoubleValue>6</DoubleValue></N>"));
    EXPECT_EQ(number.GetValue(), 6.0);
    EXPECT_EQ(number.GetDefault(), 4.0);
}

TEST(Double, ElementOfAnotherNameIsNotFound)
{
    Double number = Filled();
    EXPECT_FALSE(number.SetXmlString(Text("<M><DoubleValue>6</DoubleValue></M>"), false));
    EXPECT_EQ(number, Filled());
}

TEST(Double, IsSavedAndLoadedAsAFile)
{
    const Support::TemporaryFolder folder;
    Double number = Named("N");
    number.SetValue(0.25);
    number.SetUnit(Text("s"));
    EXPECT_TRUE(number.SaveXml(folder.Path("number.xml")));
    EXPECT_EQ(folder.Read("number.xml"),
              QByteArray("\n<N Unit=\"s\">\n    <DoubleValue>0.250000</DoubleValue>\n</N>"));
    Double read = Named("N");
    EXPECT_TRUE(read.LoadXml(folder.Path("number.xml")));
    EXPECT_EQ(read, number);
}
