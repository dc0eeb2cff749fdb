#include <reportgenerator/reportbase/frequencylistvalue.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

struct FrequencyListValue::Schema
{
    static constexpr Name NAME = REPORTBASE_NAME("Value");
    static constexpr auto FREQUENCY =
        ElementField(&FrequencyListValue::m_frequency, REPORTBASE_NAME("Frequency")).Mandatory();
    static constexpr auto TIME_STAMP =
        ElementField(&FrequencyListValue::m_timeStamp, REPORTBASE_NAME("TimeStamp"));
    static constexpr auto FIELDS = std::make_tuple(FREQUENCY, TIME_STAMP);
};

FrequencyListValue::FrequencyListValue() : FrequencyHolder(IdentityNamed<Schema::NAME>())
{
    InitNumbers<Schema>(*this);
}

FrequencyListValue::FrequencyListValue(const FrequencyListValue& other) = default;

FrequencyListValue& FrequencyListValue::operator=(const FrequencyListValue& other) = default;

FrequencyListValue::~FrequencyListValue() = default;

bool FrequencyListValue::operator==(const FrequencyListValue& other) const
{
    // Bounds and time stamp don't count, which is part of the interface.
    return GetFrequency() == other.GetFrequency();
}

bool FrequencyListValue::operator!=(const FrequencyListValue& other) const
{
    return !(*this == other);
}

const QDateTime& FrequencyListValue::GetTimeStamp() const
{
    return m_timeStamp;
}

bool FrequencyListValue::AnyData() const
{
    return IsAnyFieldSet(*this, Schema::FIELDS);
}

bool FrequencyListValue::HasData() const
{
    return AreMandatoryFieldsSet(*this, Schema::FIELDS);
}

void FrequencyListValue::Reset()
{
    UnsetFields(*this, Schema::FIELDS);
}

void FrequencyListValue::Check() const
{
    // The text names the list instead of the entry.
    if (AnyData() && !m_frequency.HasData())
        throw RGException(messages::FrequencyListWithoutValue());
}

void FrequencyListValue::GetXml(QXmlStreamWriter& writer) const
{
    WritePlainObject(writer, *this, Schema::FIELDS);
}

void FrequencyListValue::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    ReadPlainElement(*this, reader, Schema::FIELDS);
}

} // namespace REPORTGENERATOR
