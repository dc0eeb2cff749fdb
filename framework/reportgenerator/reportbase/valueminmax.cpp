#include <reportgenerator/reportbase/valueminmax.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>
#include <reportgenerator/reportbase/records/schemarules.h>

namespace REPORTGENERATOR {

struct ValueMinMax::Schema
{
    static constexpr auto MIN = AttributeField(&ValueMinMax::m_min, REPORTBASE_NAME("Min"));
    static constexpr auto MAX = AttributeField(&ValueMinMax::m_max, REPORTBASE_NAME("Max"));
    static constexpr auto VALUE = TextField(&ValueMinMax::m_value, REPORTBASE_NAME("Value")).Mandatory();
    static constexpr auto FIELDS = std::make_tuple(MIN, MAX, VALUE);
    static_assert(schema::AreFieldsDistinct(FIELDS), "two fields have the same name or member");
};

ValueMinMax::ValueMinMax() : ValueMinMax(INVALID_DOUBLE) {}

ValueMinMax::ValueMinMax(double value) : m_value(value), m_min(INVALID_DOUBLE), m_max(INVALID_DOUBLE) {}

ValueMinMax::ValueMinMax(const ValueMinMax& other) = default;

ValueMinMax& ValueMinMax::operator=(const ValueMinMax& other) = default;

ValueMinMax::~ValueMinMax() = default;

bool ValueMinMax::operator==(const ValueMinMax& other) const
{
    return m_name == other.m_name && AreValuesEqual(*this, other, Schema::FIELDS);
}

bool ValueMinMax::operator!=(const ValueMinMax& other) const
{
    return !(*this == other);
}

QString ValueMinMax::GetName() const
{
    return m_name;
}

void ValueMinMax::SetName(const QString& name)
{
    m_name = name;
}

double ValueMinMax::GetValue() const
{
    return m_value;
}

void ValueMinMax::SetValue(double value)
{
    m_value = value;
}

double ValueMinMax::GetMin() const
{
    return m_min;
}

void ValueMinMax::SetMin(double min)
{
    m_min = min;
}

double ValueMinMax::GetMax() const
{
    return m_max;
}

void ValueMinMax::SetMax(double max)
{
    m_max = max;
}

bool ValueMinMax::IsValid(double value)
{
    return IsValueSet(value);
}

bool ValueMinMax::AnyData() const
{
    // The bounds don't count.
    return HasData();
}

bool ValueMinMax::HasData() const
{
    return AreMandatoryFieldsSet(*this, Schema::FIELDS);
}

void ValueMinMax::Reset()
{
    UnsetFields(*this, Schema::FIELDS);
}

void ValueMinMax::Check() const
{
    // What the text calls the object name is the element's.
    if (m_name.isEmpty())
        throw RGException(messages::ValueMinMaxWithoutName());
}

void ValueMinMax::GetXml(QXmlStreamWriter& writer) const
{
    if (m_name.isEmpty() || !HasData())
        return;
    writer.writeStartElement(m_name);
    WritePlainFields(writer, *this, Schema::FIELDS);
    writer.writeEndElement();
}

void ValueMinMax::ReadValuesFromXml(QXmlStreamReader& reader)
{
    const auto store = [this](const auto& field, double value) { StoreField(*this, field, value); };
    Unset(m_min);
    Unset(m_max);
    const QXmlStreamAttributes attributes = reader.attributes();
    ForEachField(Schema::FIELDS, [&](const auto& field) { ReadXmlAttribute(attributes, field, store); });
    ReadXmlText(GetTextValue(reader), Schema::VALUE, store);
}

} // namespace REPORTGENERATOR
