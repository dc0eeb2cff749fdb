#include <reportgenerator/reportbase/valueminmax.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

struct ValueMinMax::Schema
{
    static constexpr auto MIN = AttributeField(&ValueMinMax::m_min, REPORTBASE_NAME("Min"));
    static constexpr auto MAX = AttributeField(&ValueMinMax::m_max, REPORTBASE_NAME("Max"));
    static constexpr auto VALUE = TextField(&ValueMinMax::m_value, REPORTBASE_NAME("Value")).Mandatory();
    static constexpr auto BOUNDS = std::make_tuple(MIN, MAX);
    static constexpr auto FIELDS = std::tuple_cat(BOUNDS, std::make_tuple(VALUE));
};

ValueMinMax::ValueMinMax() : ValueMinMax(INVALID_DOUBLE) {}

ValueMinMax::ValueMinMax(double value)
{
    InitNumbers<Schema>(*this);
    m_value = value;
}

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
    const auto store = [this](const auto& field, double value) { field.In(*this) = value; };
    UnsetFields(*this, Schema::BOUNDS);
    const QXmlStreamAttributes attributes = reader.attributes();
    ForEachField(Schema::BOUNDS, [&](const auto& field) { ReadXmlAttribute(attributes, field, store); });
    ReadXmlText(GetTextValue(reader), Schema::VALUE, store);
}

} // namespace REPORTGENERATOR
