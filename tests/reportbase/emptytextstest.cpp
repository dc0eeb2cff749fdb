// A text that isn't there is a null one, and one that is read as empty is empty. Only an area tells the two
// apart. The same with every Qt.

#include "support/expect.h"
#include "support/plainobject.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/converters.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/measurementtype.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/valueminmax.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::ValueMinMax;
namespace MeasurementType = REPORTGENERATOR::MeasurementType;

constexpr double UNSET = -111111.11;

/// Numbers within and without all vocabularies.
constexpr int FIRST = -2;
constexpr int LAST = 300;

/// How many of the numbers have an empty text; each of these must be null.
template <class Value, class ToText>
int CountOfEmpty(ToText&& toText)
{
    int count = 0;
    for (int number = FIRST; number <= LAST; ++number) {
        const QString text = toText(static_cast<Value>(number));
        EXPECT_EQ(text.isNull(), text.isEmpty()) << number;
        count += text.isEmpty() ? 1 : 0;
    }
    return count;
}

TEST(EmptyTexts, NumbersWithoutANameHaveANullOne)
{
    using MeasurementType::MeasurementTypeValue;
    using MeasurementType::SubSensorTypeValue;
    EXPECT_GT(CountOfEmpty<ObjectTypes>(REPORTGENERATOR::ObjectTypesToName), 0);
    EXPECT_GT(CountOfEmpty<ObjectTypes>(IRGObject::GetXmlTagName), 0);
    EXPECT_GT(CountOfEmpty<MeasurementTypeValue>(MeasurementType::MeasurementTypeToName), 0);
    EXPECT_GT(CountOfEmpty<MeasurementTypeValue>(MeasurementType::MeasurementTypeToNodeName), 0);
    EXPECT_GT(CountOfEmpty<SubSensorTypeValue>(MeasurementType::SubSensorTypeToName), 0);
    EXPECT_GT(CountOfEmpty<SubSensorTypeValue>(MeasurementType::SubSensorTypeToSkpiName), 0);
    EXPECT_GT(CountOfEmpty<SubSensorTypeValue>(MeasurementType::SubSensorTypeToNodeName), 0);
    const MeasurementTime time;
    EXPECT_GT(CountOfEmpty<MeasurementTime::MeasurementModeType>(
                  [&time](auto mode) { return time.MeasurementModeTypeToName(mode); }),
              0);
}

TEST(EmptyTexts, NumbersThatAreNotSetHaveANullText)
{
    const Double number;
    EXPECT_TRUE(number.GetFormattedString(UNSET).isNull());
    EXPECT_TRUE(number.GetValueString().isNull());
    EXPECT_TRUE(number.GetMinimumString().isNull());
    EXPECT_TRUE(number.GetMaximumString().isNull());
}

TEST(EmptyTexts, TextsThatAreNotSetAreNull)
{
    Double number;
    EXPECT_TRUE(number.GetUnit().isNull());
    number.SetUnit(QStringLiteral("m"));
    number.Reset();
    EXPECT_TRUE(number.GetUnit().isNull());

    ChannelSpacing spacing;
    EXPECT_TRUE(spacing.GetVisual().isNull());
    spacing.SetVisual(QStringLiteral("V"));
    spacing.Reset();
    EXPECT_TRUE(spacing.GetVisual().isNull());

    EXPECT_TRUE(ValueMinMax().GetName().isNull());
    EXPECT_TRUE(Area().GetDefaultName().isNull());
    EXPECT_TRUE(Area().GetDefaultScriptID().isNull());
    EXPECT_TRUE(Area().GetInitialVersionLoaded().isNull());
    EXPECT_TRUE(REPORTGENERATOR::RegisterCenter().GetObjectName().isNull());

    QString text = QStringLiteral("T");
    Frequency().SetInvalid(text);
    EXPECT_TRUE(text.isNull());
}

TEST(EmptyTexts, TextsThatAreReadAsEmptyAreNotNull)
{
    for (const char* const xml : {"<Visual/>", "<Visual></Visual>", "<Visual><![CDATA[]]></Visual>"}) {
        ChannelSpacing spacing;
        Support::ReadElement(spacing,
                             Support::Text("<ChannelSpacing>%1</ChannelSpacing>").arg(QLatin1String(xml)));
        EXPECT_TRUE(spacing.GetVisual().isEmpty());
        EXPECT_FALSE(spacing.GetVisual().isNull());
    }
    Double number;
    Support::ReadElement(number, QStringLiteral("<AnyType Unit=\"\"/>"));
    EXPECT_TRUE(number.GetUnit().isEmpty());
    EXPECT_FALSE(number.GetUnit().isNull());
}

TEST(EmptyTexts, VersionsOfClassesWithoutOneAreNull)
{
    EXPECT_TRUE(IRGObject::EMPTY_VERSION.isNull());
    EXPECT_TRUE(Frequency().GetVersion().isNull());
    EXPECT_TRUE(Support::PlainObject().GetVersion().isNull());
}

TEST(EmptyTexts, ObjectsThatWriteNothingHaveNullXml)
{
    ChannelSpacing spacing;
    spacing.SetVisual(QStringLiteral("V"));
    spacing.SetValidate(false);
    EXPECT_TRUE(spacing.GetXmlString().isNull());
    EXPECT_TRUE(REPORTGENERATOR::VersionConverterProxy().GetXmlString().isNull());
}

TEST(EmptyTexts, DamagedDataUncompressToNothing)
{
    EXPECT_TRUE(IRGObject::UncompressBinary(QByteArray("damaged")).isEmpty());
    EXPECT_TRUE(IRGObject::UncompressString(QByteArray("damaged")).isEmpty());
}

} // namespace
