// A class that only the tests know, with a field of each kind: what its description says shows up everywhere without
// another line.

#include "support/expect.h"

#include <reportcore/reportjson.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/schemafields.h>
#include <reportgenerator/reportbase/schema/frequencyschema.h>

#include <gtest/gtest.h>

#include <QtCore/QJsonDocument>

namespace SchemaFieldsTest {

struct DipoleData : REPORTGENERATOR::Record
{
    double gain = 0.0;
    bool isActive = false;
    QString serialNumber;
    REPORTGENERATOR::Frequency frequency;
};

/// Keeps its record where everybody sees it.
class Dipole : public REPORTGENERATOR::IRGObject
{
public:
    using RecordData = DipoleData;

    bool HasData() const override { return true; }
    void Reset() override { data = DipoleData(); }
    using IRGObject::Check;
    void Check() const override {}
    void GetXml(QXmlStreamWriter& /*writer*/) const override {}

    DipoleData data;
};

} // namespace SchemaFieldsTest

using SchemaFieldsTest::Dipole;
using SchemaFieldsTest::DipoleData;

template <>
struct REPORTGENERATOR::Schema<DipoleData>
{
    using Object = Dipole;

    static constexpr Name NAME = REPORTBASE_NAME("Dipole");
    static constexpr auto GAIN = ElementField(&DipoleData::gain, REPORTBASE_NAME("GainDB"), PresenceBit{0, 1})
                                     .Mandatory()
                                     .Within(-20.0, 60.0);
    static constexpr auto ACTIVE =
        AttributeField(&DipoleData::isActive, REPORTBASE_NAME("Active"), PresenceBit{1, 2});
    static constexpr auto SERIAL_NUMBER =
        ElementField(&DipoleData::serialNumber, REPORTBASE_NAME("SerialNumber"), PresenceBit{2, 3});
    static constexpr Member<DipoleData, Frequency> FREQUENCY = {&DipoleData::frequency, PresenceBit{3, 4}};
    static constexpr auto FIELDS = std::make_tuple(ACTIVE, GAIN, SERIAL_NUMBER, FREQUENCY);
};

template <>
struct ReportCore::Records<DipoleData>
{
    static const DipoleData& Of(const REPORTGENERATOR::IRGObject& object)
    {
        return static_cast<const Dipole&>(object).data;
    }

    template <class Change>
    static void Alter(REPORTGENERATOR::IRGObject& object, Change&& change)
    {
        change(static_cast<Dipole&>(object).data);
    }
};

namespace {

using ReportCore::FieldPath;

const ReportCore::ObjectInfo& DipoleInfo()
{
    return ReportCore::InfoOf<DipoleData>();
}

FieldPath Path(const char* text)
{
    return FieldPath::Parse(DipoleInfo(), QLatin1String(text));
}

TEST(SchemaFields, FieldOfASchemaHasAPathAndAName)
{
    EXPECT_TEXT(DipoleInfo().ObjectName(), "Dipole");
    QStringList names;
    for (const ReportCore::Field* field : DipoleInfo().InReadingOrder())
        names << field->Name() + QLatin1Char('=') + field->Label();
    EXPECT_TEXT(names.join(QLatin1Char(' ')),
                "gainDb=gain DB active=active serialNumber=serial number frequency=frequency");
    EXPECT_EQ(DipoleInfo().FindTag(3), DipoleInfo().FindName(QStringLiteral("serialNumber")));
    EXPECT_EQ(DipoleInfo().FindTag(5), nullptr);
}

TEST(SchemaFields, FieldOfASchemaIsSetThroughItsChecks)
{
    Dipole dipole;
    ReportCore::SetValue(dipole, Path("gainDb"), 12.5);
    ReportCore::SetValue(dipole, Path("active"), true);
    ReportCore::SetValue(dipole, Path("frequency.min"), 100.0);
    EXPECT_EQ(dipole.data.gain, 12.5);
    EXPECT_TRUE(dipole.data.isActive);
    EXPECT_EQ(dipole.data.frequency.GetMin(), 100.0);
    EXPECT_EQ(dipole.data.flags, 0x0B);
    EXPECT_THROW(ReportCore::SetValue(dipole, Path("gainDb"), 60.5), RGException);
    EXPECT_EQ(dipole.data.gain, 12.5);
    ReportCore::Unset(dipole, Path("gainDb"));
    EXPECT_FALSE(ReportCore::IsSet(dipole, Path("gainDb")));
}

TEST(SchemaFields, FieldOfASchemaStandsInJson)
{
    Dipole dipole;
    ReportCore::SetValue(dipole, Path("serialNumber"), QStringLiteral("A-1"));
    const QJsonDocument json(ReportCore::FieldsToJson(dipole, DipoleInfo()));
    EXPECT_TEXT(QString::fromUtf8(json.toJson(QJsonDocument::Compact)),
                R"({"active":null,"frequency":null,"gainDb":null,"serialNumber":"A-1"})");
}

TEST(SchemaFields, FieldOfASchemaIsCheckedAsItSays)
{
    Dipole dipole;
    const ReportCore::Field& gain = *DipoleInfo().FindName(QStringLiteral("gainDb"));
    EXPECT_FALSE(gain.IsGoodIn(dipole));
    gain.SetIn(dipole, 60.0);
    EXPECT_TRUE(gain.IsGoodIn(dipole));
    dipole.data.gain = 61.0;
    EXPECT_FALSE(gain.IsGoodIn(dipole));
    EXPECT_TRUE(DipoleInfo().FindName(QStringLiteral("serialNumber"))->IsGoodIn(dipole));
}

} // namespace
