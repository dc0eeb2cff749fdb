#include <reportgenerator/reportbase/frequencylistvalue.h>

#include <reportgenerator/reportbase/converters.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

namespace {

const ObjectIdentity& Identity()
{
    static const ObjectIdentity identity = IdentityNamed(QStringLiteral("Value"));
    return identity;
}

constexpr Name TIME_STAMP = REPORTBASE_NAME("TimeStamp");

} // namespace

FrequencyListValue::FrequencyListValue() : FrequencyHolder(Identity()) {}

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
    return m_frequency.AnyData() || IsTimeStampSet();
}

bool FrequencyListValue::HasData() const
{
    return m_frequency.HasData();
}

void FrequencyListValue::Reset()
{
    m_frequency.Reset();
    m_timeStamp = QDateTime();
}

void FrequencyListValue::Check() const
{
    // The text names the list instead of the entry.
    if (AnyData() && !m_frequency.HasData())
        throw RGException(messages::FrequencyListWithoutValue());
}

void FrequencyListValue::GetXml(QXmlStreamWriter& writer) const
{
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    m_frequency.GetXml(writer);
    if (IsTimeStampSet())
        writer.writeTextElement(TIME_STAMP.Text(), Converters::ToString(m_timeStamp));
    writer.writeEndElement();
}

/// A local time that a clock change leaves out is not null, but is no time either.
bool FrequencyListValue::IsTimeStampSet() const
{
    return m_timeStamp != QDateTime();
}

void FrequencyListValue::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    if (reader.name() == FrequencyName())
        m_frequency.ReadValuesFromXml(reader);
    else if (reader.name() == TIME_STAMP.Latin1())
        m_timeStamp = Converters::ToDateTime(GetTextValue(reader));
    else
        ThrowUnknownTag(*this, reader);
}

} // namespace REPORTGENERATOR
