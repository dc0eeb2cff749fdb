#include "support/expect.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <stdexcept>

// The examples of the pages in docs/.

namespace {

using REPORTGENERATOR::Double;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ValueMinMax;
using Support::Text;

QString ReadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw std::runtime_error("cannot read " + path.toStdString());
    return QString::fromUtf8(file.readAll());
}

QString Page(const char* name)
{
    return ReadFile(Text(REPORTGENERATOR_TEST_VECTORS "/../../docs/") + Text(name));
}

/// The fenced blocks of a language, each without the line feed at its end.
QStringList Blocks(const QString& page, const char* language)
{
    const QString opening = Text("\n```") + Text(language) + Text("\n");
    const QString closing = Text("\n```\n");
    QStringList blocks;
    auto start = page.indexOf(opening);
    while (start >= 0) {
        start += opening.size();
        const auto end = page.indexOf(closing, start);
        if (end < 0)
            throw std::runtime_error("a block without end");
        blocks << page.mid(start, end - start);
        start = page.indexOf(opening, end);
    }
    return blocks;
}

QString RootName(const QString& xml)
{
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    return reader.name().toString();
}

/// What an object writes that has read the text.
QString WrittenAgain(IRGObject& object, const QString& xml)
{
    EXPECT_NO_RG_THROW(EXPECT_TRUE(object.SetXmlString(xml, true)));
    return object.GetXmlString();
}

template <class T>
QString WrittenAgain(const QString& xml)
{
    T object;
    return WrittenAgain(object, xml);
}

/// Its element bears its own name, not the object name, so that its holder hands it the reader.
QString WrittenAgainByValueMinMax(const QString& xml)
{
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    ValueMinMax value;
    value.SetName(reader.name().toString());
    value.ReadValuesFromXml(reader);
    return value.GetXmlString();
}

QString WrittenAgainByDouble(const QString& xml)
{
    Double number;
    number.SetName(RootName(xml));
    return WrittenAgain(number, xml);
}

/// It cannot read the empty mode that it writes; the time is read as far as that.
QString WrittenAgainByMeasurementTime(const QString& xml)
{
    MeasurementTime time;
    EXPECT_RG_THROW(time.SetXmlString(xml, true), "RGException",
                    "'MeasurementTime': Invalid MeasurementModeType '-1'.");
    time.SetMeasurementMode(MeasurementTime::Continuous);
    return time.GetXmlString();
}

QString WrittenAgainByItsClass(const QString& xml)
{
    using Write = QString (*)(const QString&);
    static const struct
    {
        const char* element;
        Write write;
    } CLASSES[] = {
        {"ReportBase", WrittenAgain<REPORTGENERATOR::ReportBase>},
        {"FrequencyInformation", WrittenAgain<REPORTGENERATOR::FrequencyInformation>},
        {"Value", WrittenAgain<REPORTGENERATOR::FrequencyListValue>},
        {"FrequencyRange", WrittenAgain<REPORTGENERATOR::FrequencyRangeOld>},
        {"ScanParameter", WrittenAgain<REPORTGENERATOR::ScanParameter>},
        {"ChannelSpacing", WrittenAgain<REPORTGENERATOR::ChannelSpacing>},
        {"Ellipse", WrittenAgain<REPORTGENERATOR::Ellipse>},
        {"MeasurementTime", WrittenAgainByMeasurementTime},
        {"Threshold", WrittenAgainByDouble},
        {"Level", WrittenAgainByValueMinMax},
    };
    const QString element = RootName(xml);
    for (const auto& row : CLASSES) {
        if (element == Text(row.element))
            return row.write(xml);
    }
    return Text("nobody's element: ") + element;
}

} // namespace

TEST(Documentation, ExamplesOfTheXmlFormAreReadAndWrittenAgain)
{
    const QStringList examples = Blocks(Page("xml.md"), "xml");
    EXPECT_EQ(examples.size(), 11);
    for (const QString& example : examples)
        EXPECT_EQ(WrittenAgainByItsClass(example), Text("\n") + example);
}

TEST(Documentation, ExamplesOfTheBinaryFormsAreGoldenVectors)
{
    const QStringList examples = Blocks(Page("binary.md"), "text");
    ASSERT_EQ(examples.size(), 2);
    const QString vectors = Text(REPORTGENERATOR_TEST_VECTORS "/reportbase/frequency_bandwidth_area");
    EXPECT_EQ(examples[0] + Text("\n"), ReadFile(vectors + Text(".hex")));
    EXPECT_EQ(examples[1] + Text("\n"), ReadFile(vectors + Text(".raw.hex")));
}
